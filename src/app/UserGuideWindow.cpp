#include "app/UserGuideWindow.h"

#include <QAction>
#include <QFile>
#include <QTextBrowser>

/// The linker drops a resource of a static library that nobody asks for; this asks. It has to stand
/// outside of any namespace.
static void registerGuide() {
    Q_INIT_RESOURCE(guide);
}

namespace kestrel {

UserGuideWindow::UserGuideWindow(QWidget* parent)
    : QMainWindow(parent) {
    setObjectName(QStringLiteral("userGuideWindow"));
    setAccessibleName(tr("User guide"));
    setWindowTitle(tr("Kestrel User Guide"));
    setAttribute(Qt::WA_QuitOnClose, false);
    registerGuide();
    auto* text = new QTextBrowser(this);
    text->setObjectName(QStringLiteral("userGuideText"));
    text->setAccessibleName(tr("User guide"));
    text->setOpenExternalLinks(true);
    text->setFrameShape(QFrame::NoFrame);
    text->document()->setDocumentMargin(16);
    QFile guide(QStringLiteral(":/guide/user-guide.md"));
    if (guide.open(QIODevice::ReadOnly)) {
        text->setMarkdown(QString::fromUtf8(guide.readAll()));
    }
    setCentralWidget(text);
    resize(720, 640);
    auto* hide = new QAction(tr("Close"), this);
    hide->setObjectName(QStringLiteral("closeUserGuideAction"));
    hide->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
    connect(hide, &QAction::triggered, this, &QWidget::close);
    addAction(hide);
}

void UserGuideWindow::comeToFront() {
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
}

} // namespace kestrel
