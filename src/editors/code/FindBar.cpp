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
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace kestrel {

namespace {

using namespace std::chrono_literals;

/// So long after the last keystroke in the text the matches are counted again.
constexpr auto RecountDelay = 200ms;

/// Between the widgets of a row, and around all rows.
constexpr int Spacing = 6;
constexpr QMargins Margins(8, 4, 8, 4);

QToolButton* makeButton(QWidget& bar, const QString& objectName, const QString& name,
                        QStyle::StandardPixmap icon) {
    auto* button = new QToolButton(&bar);
    button->setObjectName(objectName);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(button->style()->standardIcon(icon));
    return button;
}

/// The width of a row of widgets at their least width.
int rowWidth(const QList<QWidget*>& widgets) {
    int width = Margins.left() + Margins.right() - Spacing;
    for (const QWidget* widget : widgets) {
        width += std::max(widget->minimumWidth(), widget->minimumSizeHint().width()) + Spacing;
    }
    return width;
}

} // namespace

FindBar::FindBar(CodeEditorTextView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(view)
    , m_label(new QLabel(tr("F&ind:"), this))
    , m_termEdit(new QLineEdit(this))
    , m_countLabel(new QLabel(this))
    , m_previous(makeButton(*this, QStringLiteral("findPreviousButton"),
                            tr("Find previous (Shift+F3)"), QStyle::SP_ArrowUp))
    , m_next(makeButton(*this, QStringLiteral("findNextButton"), tr("Find next (F3)"),
                        QStyle::SP_ArrowDown))
    , m_close(makeButton(*this, QStringLiteral("findCloseButton"), tr("Close (Escape)"),
                         QStyle::SP_TitleBarCloseButton))
    , m_matchCase(new QCheckBox(tr("Match &case"), this))
    , m_wholeWords(new QCheckBox(tr("&Whole words"), this)) {
    setObjectName(QStringLiteral("findBar"));
    setAccessibleName(tr("Find"));
    nameWidgets();
    buildRows();
    m_recount.setSingleShot(true);
    m_recount.setInterval(RecountDelay);
    connect(m_previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(m_next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(m_close, &QToolButton::clicked, this, &FindBar::closeBar);
    connect(&m_recount, &QTimer::timeout, this, &FindBar::showCount);
    connect(m_termEdit, &QLineEdit::textChanged, this, &FindBar::termChanged);
    connect(m_matchCase, &QCheckBox::toggled, this, &FindBar::termChanged);
    connect(m_wholeWords, &QCheckBox::toggled, this, &FindBar::termChanged);
    connect(&m_view, &QPlainTextEdit::textChanged, this, &FindBar::textChanged);
    hide();
}

void FindBar::nameWidgets() {
    m_label->setBuddy(m_termEdit);
    m_termEdit->setObjectName(QStringLiteral("findTerm"));
    m_termEdit->setAccessibleName(tr("Text to find"));
    m_termEdit->setClearButtonEnabled(true);
    m_termEdit->setMinimumWidth(80);
    m_countLabel->setObjectName(QStringLiteral("findCount"));
    m_countLabel->setTextFormat(Qt::PlainText);
    m_matchCase->setObjectName(QStringLiteral("findMatchCase"));
    m_matchCase->setAccessibleName(tr("Match case"));
    m_wholeWords->setObjectName(QStringLiteral("findWholeWords"));
    m_wholeWords->setAccessibleName(tr("Whole words"));
}

void FindBar::buildRows() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margins);
    column->setSpacing(Spacing);
    for (QHBoxLayout*& row : m_rows) {
        row = new QHBoxLayout;
        row->setSpacing(Spacing);
        column->addLayout(row);
    }
    arrange();
    // However many rows there are, Tab goes as through one.
    const Row inOneRow = arrangements().front().front();
    for (QWidget* former = m_termEdit; QWidget* const widget : inOneRow) {
        if (widget != former && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            setTabOrder(former, widget);
            former = widget;
        }
    }
}

/// The widgets of each row where all are in one, and where there are two and three rows.
std::array<FindBar::Rows, 3> FindBar::arrangements() const {
    const Row oneRow{m_label, m_termEdit,  m_countLabel, m_previous,
                     m_next,  m_matchCase, m_wholeWords, m_close};
    const Row firstRow{m_label, m_termEdit, m_previous, m_next, m_close};
    return {Rows{oneRow, Row(), Row()},
            Rows{firstRow, Row{m_matchCase, m_wholeWords, m_countLabel}, Row()},
            Rows{firstRow, Row{m_matchCase, m_wholeWords}, Row{m_countLabel}}};
}

/// As few rows as the width allows.
void FindBar::arrange() {
    const auto all = arrangements();
    const auto* const fitting = std::find_if(all.begin(), all.end() - 1, [this](const Rows& rows) {
        return std::ranges::all_of(rows,
                                   [this](const auto& row) { return rowWidth(row) <= width(); });
    });
    if (*fitting == m_arrangement) {
        return;
    }
    m_arrangement = *fitting;
    for (QHBoxLayout* row : m_rows) {
        while (const QLayoutItem* item = row->takeAt(0)) {
            delete item; // not its widget
        }
    }
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        for (QWidget* widget : m_arrangement.at(i)) {
            m_rows.at(i)->addWidget(widget, widget == m_termEdit ? 1 : 0);
        }
        if (i > 0) {
            m_rows.at(i)->addStretch(m_arrangement.at(i).isEmpty() ? 0 : 1);
        }
    }
    updateGeometry();
}

QSize FindBar::minimumSizeHint() const {
    const Rows narrowest = arrangements().back();
    int width = 0;
    for (const auto& row : narrowest) {
        width = std::max(width, rowWidth(row));
    }
    return {width, QWidget::minimumSizeHint().height()};
}

void FindBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
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
        arrange();
        return;
    }
    const int count = search().count();
    const auto current = search().at(m_view.textCursor().selectionStart());
    m_countLabel->setText(count == 0 ? tr("No matches")
                                     : tr("%1 of %2").arg(current ? *current + 1 : 0).arg(count));
    arrange();
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
