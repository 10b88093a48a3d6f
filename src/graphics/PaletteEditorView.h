// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class QBoxLayout;
class QPushButton;
class QScrollArea;

namespace kestrel {

class ColorSelector;
class ElidedLabel;
class GeneralColorSelector;
class PaletteSelector;
class UnsavedWork;

/// The widgets of the palette pane: the file's name, the save button, and the selectors, side by
/// side where they fit and below one another where they do not.
class PaletteEditorView : public QWidget {
    Q_OBJECT

public:
    explicit PaletteEditorView(QWidget* parent = nullptr);

    ColorSelector* colorSelector() const;
    PaletteSelector* paletteSelector() const;
    GeneralColorSelector* generalSelectableColors() const;
    QPushButton* saveButton() const;

    /// Adds the line that offers unsaved work below the file's name.
    void addDraftLine(UnsavedWork& work);

    /// The name of the file that is shown; `changed` when the palettes differ from it.
    void setFileName(const QString& name, bool changed);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildHeader(QBoxLayout& layout);
    void buildSelectors(QBoxLayout& layout);
    void buildDescription(QBoxLayout& layout);
    void arrangeColumns();
    QBoxLayout* column(QWidget* parent, const QString& heading, QWidget* selector);

    QPointer<ElidedLabel> m_fileName;
    QPointer<QPushButton> m_saveButton;
    QPointer<PaletteSelector> m_paletteSelector;
    QPointer<ColorSelector> m_colorSelector;
    QPointer<GeneralColorSelector> m_generalSelectableColors;
    QPointer<QScrollArea> m_scrollArea;
    QPointer<QWidget> m_selectors;
    QPointer<QBoxLayout> m_columns;
};

} // namespace kestrel
