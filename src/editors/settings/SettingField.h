// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace kestrel {

class NESProjectBuilder;

/// One setting of a project in the settings pane: a label, below it a field and a button.
class SettingField : public QWidget {
    Q_OBJECT

public:
    /// Shows the setting as the project of `builder` has it.
    virtual void showSetting(const NESProjectBuilder& builder) = 0;

    /// Looks again at what the setting stands for: files may have come or gone.
    virtual void refresh() = 0;

    /// Whether there is a project at all whose setting could be changed.
    virtual void setProjectPresent(bool /*present*/) {}

    /// The widgets that take the focus from the Tab key, in their order.
    const std::vector<QWidget*>& tabStops() const { return m_tabStops; }

protected:
    explicit SettingField(QWidget* parent);

    /// Lays the parts out, with a label of this text and object name; further rows can be added
    /// below.
    QVBoxLayout* layOut(const QString& labelText, const QString& labelName, QWidget& field,
                        QWidget& button);

    /// Adds a further button to the row, after it was laid out.
    void addButton(QWidget& button);

private:
    QHBoxLayout* m_row = nullptr;
    std::vector<QWidget*> m_tabStops;
};

} // namespace kestrel
