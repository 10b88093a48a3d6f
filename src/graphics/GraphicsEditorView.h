// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;
class QToolBar;

namespace kestrel {

class Announcement;
class ChrCanvas;
class ColorSelector;
class ElidedLabel;
class GraphicsActions;
class TileCollection;
class UnsavedWork;

/// The widgets of the graphics pane, their layout, and the line that describes what is under the
/// pointer.
class GraphicsEditorView : public QWidget {
    Q_OBJECT

public:
    explicit GraphicsEditorView(QWidget* parent);

    TileCollection& tileViewer() const { return *m_tileViewer; }
    ChrCanvas& pixelEditor() const { return *m_pixelEditor; }
    ColorSelector& colorSelector() const { return *m_colorSelector; }
    QPushButton& saveButton() const { return *m_saveButton; }
    const GraphicsActions& actions() const { return *m_actions; }

    /// Adds the line that offers unsaved work below the file's name.
    void addDraftLine(UnsavedWork& work);

    void setFileName(const QString& name);
    /// A sentence for the user below the views; an empty one takes it away.
    void setMessage(const QString& message);

    /// Tells again what is under the pointer or the keyboard's cursor.
    void describeCursor();

Q_SIGNALS:
    /// The tile and the pixel under the pointer or the keyboard's cursor; empty for none.
    void cursorDescribed(const QString& text);

protected:
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;
    /// The keys 0 to 3 choose the colour wherever in the pane the focus is.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void nameViews();
    QToolBar* makeToolBar();
    void layOut(QToolBar* toolBar);
    void setTabOrder(const QToolBar& toolBar);
    /// Marks the colour that is painted with.
    void showColor(int box);
    void describeTile(int number);
    void describePixel();
    int selectedTile() const;
    QString tileText(int number) const;
    QString cursorText() const;

    TileCollection* m_tileViewer;
    ChrCanvas* m_pixelEditor;
    ColorSelector* m_colorSelector;
    QPushButton* m_saveButton;
    ElidedLabel* m_fileName;
    ElidedLabel* m_tileInfo;
    QLabel* m_message;
    Announcement* m_announcement;
    GraphicsActions* m_actions;
};

} // namespace kestrel
