#include "app/ConsoleWindow.h"

#include "app/ConsoleOutput.h"

#include <QAction>

namespace kestrel {

namespace {

constexpr QSize FirstSize(880, 360);
constexpr QSize SmallestSize(320, 120);

} // namespace

ConsoleWindow::ConsoleWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_consoleOutput(new ConsoleOutput(this)) {
    setObjectName(QStringLiteral("ConsoleOutputWindow"));
    setAccessibleName(tr("Console"));
    setWindowTitle(tr("Console"));
    // The program goes on when this is the last window to be closed: it is the other that counts.
    setAttribute(Qt::WA_QuitOnClose, false);
    setCentralWidget(m_consoleOutput);
    setMinimumSize(SmallestSize);
    resize(FirstSize);
    auto* hide = new QAction(tr("Close"), this);
    hide->setObjectName(QStringLiteral("closeConsoleAction"));
    hide->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
    connect(hide, &QAction::triggered, this, &QWidget::close);
    addAction(hide);
}

void ConsoleWindow::comeToFront() {
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
    m_consoleOutput->setFocus();
}

} // namespace kestrel
