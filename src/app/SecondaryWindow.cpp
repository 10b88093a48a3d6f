// SPDX-License-Identifier: MIT
#include "app/SecondaryWindow.h"

#include <QAction>
#include <QScreen>

namespace kestrel {

SecondaryWindow::SecondaryWindow(const QString& objectName, const QString& title, QWidget* parent)
    : QMainWindow(parent) {
    setObjectName(objectName);
    setAccessibleName(title);
    setWindowTitle(title);
    // The program ends with the main window, even while this one is still there.
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* hide = new QAction(tr("Close"), this);
    hide->setObjectName(QStringLiteral("closeAction"));
    hide->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
    connect(hide, &QAction::triggered, this, &QWidget::close);
    addAction(hide);
}

void SecondaryWindow::resizeWithinScreen(QSize size) {
    // Room for the frame, and for what the desktop may have at the edges.
    resize(size.boundedTo(screen()->availableSize() * 9 / 10));
}

void SecondaryWindow::comeToFront() {
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
    if (centralWidget() != nullptr) {
        centralWidget()->setFocus();
    }
}

} // namespace kestrel
