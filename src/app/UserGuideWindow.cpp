// SPDX-License-Identifier: MIT
#include "app/UserGuideWindow.h"

#include <QFile>
#include <QTextBrowser>

/// The linker drops a resource of a static library that nobody asks for; this asks. It has to stand
/// outside of any namespace.
static void registerGuide() {
    Q_INIT_RESOURCE(guide);
}

namespace kestrel {

UserGuideWindow::UserGuideWindow(QWidget* parent)
    : SecondaryWindow(QStringLiteral("userGuideWindow"), tr("Kestrel User Guide"), parent) {
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
    resizeWithinScreen({720, 640});
}

} // namespace kestrel
