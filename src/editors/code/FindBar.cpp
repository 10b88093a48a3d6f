// SPDX-License-Identifier: MIT
#include "editors/code/FindBar.h"

#include "editors/code/CodeEditorTextView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QToolButton>

#include <chrono>

namespace kestrel {

namespace {

using namespace std::chrono_literals;

/// So long after the last keystroke in the text the matches are counted again.
constexpr auto RecountDelay = 200ms;

QToolButton* addButton(QHBoxLayout& row, const QString& objectName, const QString& name,
                       QStyle::StandardPixmap icon) {
    auto* button = new QToolButton(row.parentWidget());
    button->setObjectName(objectName);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(button->style()->standardIcon(icon));
    row.addWidget(button);
    return button;
}

} // namespace

FindBar::FindBar(CodeEditorTextView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(view)
    , m_termEdit(new QLineEdit(this))
    , m_countLabel(new QLabel(this))
    , m_matchCase(new QCheckBox(tr("Match &case"), this))
    , m_wholeWords(new QCheckBox(tr("&Whole words"), this)) {
    setObjectName(QStringLiteral("findBar"));
    setAccessibleName(tr("Find"));
    buildRow();
    m_recount.setSingleShot(true);
    m_recount.setInterval(RecountDelay);
    connect(&m_recount, &QTimer::timeout, this, &FindBar::showCount);
    connect(m_termEdit, &QLineEdit::textChanged, this, &FindBar::termChanged);
    connect(m_matchCase, &QCheckBox::toggled, this, &FindBar::termChanged);
    connect(m_wholeWords, &QCheckBox::toggled, this, &FindBar::termChanged);
    connect(&m_view, &QPlainTextEdit::textChanged, this, &FindBar::textChanged);
    hide();
}

void FindBar::buildRow() {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    auto* label = new QLabel(tr("F&ind:"), this);
    label->setBuddy(m_termEdit);
    row->addWidget(label);
    m_termEdit->setObjectName(QStringLiteral("findTerm"));
    m_termEdit->setAccessibleName(tr("Text to find"));
    m_termEdit->setClearButtonEnabled(true);
    m_termEdit->setMinimumWidth(80);
    row->addWidget(m_termEdit, 1);
    m_countLabel->setObjectName(QStringLiteral("findCount"));
    m_countLabel->setTextFormat(Qt::PlainText);
    row->addWidget(m_countLabel);
    connect(addButton(*row, QStringLiteral("findPreviousButton"), tr("Find previous (Shift+F3)"),
                      QStyle::SP_ArrowUp),
            &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(addButton(*row, QStringLiteral("findNextButton"), tr("Find next (F3)"),
                      QStyle::SP_ArrowDown),
            &QToolButton::clicked, this, &FindBar::findNext);
    m_matchCase->setObjectName(QStringLiteral("findMatchCase"));
    m_matchCase->setAccessibleName(tr("Match case"));
    row->addWidget(m_matchCase);
    m_wholeWords->setObjectName(QStringLiteral("findWholeWords"));
    m_wholeWords->setAccessibleName(tr("Whole words"));
    row->addWidget(m_wholeWords);
    connect(addButton(*row, QStringLiteral("findCloseButton"), tr("Close (Escape)"),
                      QStyle::SP_TitleBarCloseButton),
            &QToolButton::clicked, this, &FindBar::closeBar);
    QWidget* former = m_termEdit;
    for (int i = 0; i < row->count(); ++i) {
        QWidget* widget = row->itemAt(i)->widget();
        if (widget != former && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            setTabOrder(former, widget);
            former = widget;
        }
    }
}

void FindBar::open() {
    const QTextCursor cursor = m_view.textCursor();
    const QString selected = SourceDocument::selectedText(cursor);
    // The field would cut a term off that is longer than it holds.
    if (!selected.isEmpty() && selected.size() <= m_termEdit->maxLength() &&
        !selected.contains(u'\n')) {
        m_termEdit->setText(selected);
    }
    show();
    m_termEdit->setFocus(Qt::ShortcutFocusReason);
    m_termEdit->selectAll();
    showCount();
}

void FindBar::closeBar() {
    hide();
    m_view.setFocus(Qt::OtherFocusReason);
}

void FindBar::findNext() {
    if (m_termEdit->text().isEmpty()) {
        open();
        return;
    }
    const QTextCursor cursor = m_view.textCursor();
    const bool onMatch = cursor.hasSelection() && search().at(cursor.selectionStart());
    select(search().atOrAfter(cursor.selectionStart() + (onMatch ? 1 : 0)));
}

void FindBar::findPrevious() {
    if (m_termEdit->text().isEmpty()) {
        open();
        return;
    }
    select(search().before(m_view.textCursor().selectionStart()));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        closeBar();
    } else if (isReturn && (event->modifiers() & Qt::ShiftModifier) != 0) {
        findPrevious();
    } else if (isReturn) {
        findNext();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// Searches from where the caret was, so that a longer term goes on from the same place.
void FindBar::termChanged() {
    m_search.reset();
    if (isVisible()) {
        select(search().atOrAfter(m_view.textCursor().selectionStart()));
    }
}

void FindBar::textChanged() {
    m_search.reset();
    if (isVisible()) {
        m_recount.start();
    }
}

void FindBar::select(std::optional<int> match) {
    QTextCursor cursor = m_view.textCursor();
    if (match) {
        cursor.setPosition(search().position(*match));
        cursor.setPosition(search().end(*match), QTextCursor::KeepAnchor);
    } else {
        cursor.setPosition(cursor.selectionStart());
    }
    const int scrolled = m_view.verticalScrollBar()->value();
    m_view.setTextCursor(cursor);
    if (m_view.verticalScrollBar()->value() != scrolled) { // the match was out of sight
        m_view.centerCursor();
    }
    showCount();
}

void FindBar::showCount() {
    if (m_termEdit->text().isEmpty()) {
        m_countLabel->clear();
        return;
    }
    const int count = search().count();
    const auto current = search().at(m_view.textCursor().selectionStart());
    m_countLabel->setText(count == 0 ? tr("No matches")
                                     : tr("%1 of %2").arg(current ? *current + 1 : 0).arg(count));
}

const TextSearch& FindBar::search() {
    if (!m_search) {
        m_search.emplace(m_view.source(), term());
    }
    return *m_search;
}

SearchTerm FindBar::term() const {
    return {m_termEdit->text(), m_matchCase->isChecked(), m_wholeWords->isChecked()};
}

} // namespace kestrel
