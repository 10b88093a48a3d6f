// SPDX-License-Identifier: MIT
#include "app/BuildStrip.h"

#include "app/BuildMark.h"
#include "widgets/Announcement.h"
#include "widgets/WrappedLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

namespace {

constexpr QMargins Margins(8, 6, 8, 7);
constexpr int LineGap = 2;
/// The text's part of a strip with its button beside it, in average characters; in a narrower strip
/// the button is below.
constexpr int LeastTextBesideButton = 40;

WrappedLabel* makeLabel(const char* objectName, QWidget* parent) {
    auto* label = new WrappedLabel(parent);
    label->setObjectName(QLatin1String(objectName));
    label->hide();
    return label;
}

} // namespace

BuildStrip::BuildStrip(QWidget* parent)
    : QWidget(parent)
    , m_announcement(new Announcement(*this))
    , m_mark(new BuildMark(this))
    , m_text(makeLabel("buildText", this))
    , m_hint(makeLabel("buildHint", this))
    , m_notice(makeLabel("buildNotice", this))
    , m_saveAndBuild(new QPushButton(this)) {
    setObjectName(QStringLiteral("buildStrip"));
    setAccessibleName(tr("Result of the build"));
    m_saveAndBuild->setObjectName(QStringLiteral("saveAndBuildButton"));
    m_saveAndBuild->setFocusPolicy(Qt::TabFocus); // clicked, it leaves the focus where it is
    offer(BuildNews::Again::nothing);
    connect(m_saveAndBuild, &QPushButton::clicked, this, [this] {
        m_saveAndBuild->hide(); // the second click of a double one shall not build again
        if (m_news.again == BuildNews::Again::run) {
            Q_EMIT saveAndRunRequested();
        } else {
            Q_EMIT saveAndBuildRequested();
        }
    });
    layOut();
    hide();
}

void BuildStrip::layOut() {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(LineGap);
    for (WrappedLabel* label : {m_text, m_hint, m_notice}) {
        texts->addWidget(label);
    }
    auto* marked = new QHBoxLayout;
    marked->addWidget(m_mark, 0, Qt::AlignTop);
    marked->addLayout(texts, 1);
    m_layout = new QBoxLayout(QBoxLayout::LeftToRight, this);
    m_layout->setContentsMargins(Margins);
    m_layout->addLayout(marked, 1);
    m_layout->addWidget(m_saveAndBuild, 0, Qt::AlignLeft | Qt::AlignTop);
    // As high as its texts need in its width, and no higher.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

void BuildStrip::showNews(const BuildNews& news) {
    const BuildNews before = std::exchange(m_news, news);
    m_mark->setKind(news.mark);
    setText(*m_text, news.text);
    if (!news.elapsed.isEmpty()) {
        m_text->setText(tr("%1 %2").arg(news.text, news.elapsed));
    }
    setText(*m_hint, news.hint);
    setText(*m_notice, QString());
    offer(news.again);
    const bool isSaid = news.text == before.text && news.mark == before.mark;
    if (!news.text.isEmpty() && (!isSaid || news.elapsed.isEmpty())) {
        m_announcement->say(news.hint.isEmpty() ? news.text
                                                : tr("%1. %2").arg(news.text, news.hint));
    }
    setVisible(!news.text.isEmpty());
}

void BuildStrip::withdrawOffer() {
    offer(BuildNews::Again::nothing);
}

void BuildStrip::offer(BuildNews::Again again) {
    const bool isRun = again == BuildNews::Again::run;
    const QString text = isRun ? tr("Save and Run Again") : tr("Save and Build Again");
    const QString toolTip = isRun ? tr("Save what is on the screen, then build and run")
                                  : tr("Save what is on the screen, then build");
    m_saveAndBuild->setText(text);
    m_saveAndBuild->setAccessibleName(text);
    m_saveAndBuild->setAccessibleDescription(toolTip);
    m_saveAndBuild->setToolTip(toolTip);
    m_saveAndBuild->setVisible(again != BuildNews::Again::nothing);
}

void BuildStrip::showNotice(const QString& notice) {
    if (m_text->isHidden()) {
        m_mark->setKind(BuildMarkKind::notice);
        setAccessibleName(notice);
    }
    setText(*m_notice, notice);
    setVisible(!m_text->isHidden() || !notice.isEmpty());
}

/// The accessible name of a label stands in place of its text, so it is without the time.
void BuildStrip::setText(WrappedLabel& label, const QString& text) {
    label.setText(text);
    if (label.accessibleName() != text) { // a name is announced each time it is set
        label.setAccessibleName(text);
    }
    label.setVisible(!text.isEmpty());
}

/// A line parts it from the console's text.
void BuildStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), palette().mid());
}

void BuildStrip::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int beside = width() - m_saveAndBuild->sizeHint().width();
    m_layout->setDirection(beside < LeastTextBesideButton * fontMetrics().averageCharWidth()
                               ? QBoxLayout::TopToBottom
                               : QBoxLayout::LeftToRight);
}

} // namespace kestrel
