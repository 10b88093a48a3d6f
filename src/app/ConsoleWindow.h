#pragma once

#include <QMainWindow>

namespace kestrel {

class ConsoleOutput;

/// The window of the console. There is one, however much is written; closing it only hides it.
class ConsoleWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit ConsoleWindow(QWidget* parent = nullptr);

    /// What the window shows.
    ConsoleOutput* consoleOutput() const { return m_consoleOutput; }

    /// Shows the window before all others and makes it the one that gets the keys.
    void comeToFront();

private:
    ConsoleOutput* m_consoleOutput;
};

} // namespace kestrel
