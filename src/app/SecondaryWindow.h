// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace kestrel {

/// A window beside the main one. Closing it only hides it, and it does not keep the program
/// running.
class SecondaryWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Shows the window before all others and makes it the one that gets the keys.
    void comeToFront();

protected:
    /// Named `objectName`; `title` is its accessible name, too, until another is set.
    SecondaryWindow(const QString& objectName, const QString& title, QWidget* parent);

    /// Gives the window this size, or what a small screen has room for.
    void resizeWithinScreen(QSize size);
};

} // namespace kestrel
