// SPDX-License-Identifier: MIT
#include "widgets/DraftLine.h"

#include "drafts/UnsavedWork.h"
#include "widgets/Announcement.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace kestrel {

namespace {

constexpr QMargins Margins(8, 2, 8, 2);

QString timeText(std::int64_t milliseconds) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(milliseconds);
    const QDate today = QDate::currentDate();
    if (time.date() == today) {
        return time.toString(QStringLiteral("HH:mm"));
    }
    const QString day = time.date().year() == today.year() ? QStringLiteral("d MMMM")
                                                           : QStringLiteral("d MMMM yyyy");
    return QLocale(QLocale::English).toString(time, day + QStringLiteral(", HH:mm"));
}

} // namespace

DraftLine::DraftLine(UnsavedWork& work, QWidget& content, QWidget* parent)
    : QWidget(parent)
    , m_announcement(new Announcement(*this))
    , m_work(work)
    , m_content(&content)
    , m_text(new QLabel(this))
    , m_bringBack(makeButton("bringBackButton", tr("Bring Back"),
                             tr("Put the unsaved changes in place of what the file holds")))
    , m_drop(makeButton("dropDraftButton", tr("Drop"), tr("Forget the unsaved changes"))) {
    setObjectName(QStringLiteral("draftLine"));
    m_text->setObjectName(QStringLiteral("draftText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    layOut();
    connect(m_bringBack, &QPushButton::clicked, this, [this] { act(&UnsavedWork::bringBack); });
    connect(m_drop, &QPushButton::clicked, this, [this] { act(&UnsavedWork::drop); });
    connect(&work, &UnsavedWork::offerChanged, this, &DraftLine::showOffer);
    showOffer();
}

QPushButton* DraftLine::makeButton(const char* objectName, const QString& text,
                                   const QString& toolTip) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(text);
    button->setAccessibleDescription(toolTip);
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::TabFocus); // clicked, it leaves the focus where it is
    return button;
}

void DraftLine::layOut() {
    // The colours of a note: dark on light, or the other way round, on every theme.
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Margins);
    row->addWidget(m_text, 1);
    row->addWidget(m_bringBack);
    row->addWidget(m_drop);
    // As high as its text needs in its width, and no higher.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

void DraftLine::setTabOrderAfter(QWidget* before) {
    setTabOrder(before, m_bringBack);
    setTabOrder(m_bringBack, m_drop);
}

void DraftLine::showOffer() {
    const auto offer = m_work.offer();
    if (!offer) {
        hide();
        return;
    }
    const QString time = timeText(offer->time);
    m_text->setText(
        offer->fileChanged
            ? tr("Unsaved changes of %1 are kept. The file has changed since then.").arg(time)
            : tr("Unsaved changes of %1 are kept").arg(time));
    m_announcement->say(m_text->text());
    show();
}

void DraftLine::act(void (UnsavedWork::*operation)()) {
    const bool hadFocus = m_bringBack->hasFocus() || m_drop->hasFocus();
    (m_work.*operation)();
    if (hadFocus && isHidden() && m_content) {
        m_content->setFocus();
    }
}

} // namespace kestrel
