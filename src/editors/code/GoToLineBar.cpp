// SPDX-License-Identifier: MIT
#include "editors/code/GoToLineBar.h"

#include "editors/code/CodeEditorTextView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <limits>

namespace kestrel {

GoToLineBar::GoToLineBar(CodeEditorTextView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(view)
    , m_lineEdit(new QLineEdit(this))
    , m_countLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("goToLineBar"));
    setAccessibleName(tr("Go to line"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    auto* label = new QLabel(tr("&Line:"), this);
    label->setBuddy(m_lineEdit);
    row->addWidget(label);
    m_lineEdit->setObjectName(QStringLiteral("goToLineNumber"));
    m_lineEdit->setAccessibleName(tr("Line number"));
    m_lineEdit->setMaximumWidth(120);
    m_lineEdit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
    row->addWidget(m_lineEdit);
    m_countLabel->setObjectName(QStringLiteral("goToLineCount"));
    row->addWidget(m_countLabel);
    auto* button = new QPushButton(tr("&Go"), this);
    button->setObjectName(QStringLiteral("goToLineButton"));
    button->setAccessibleName(tr("Go to line"));
    row->addWidget(button);
    row->addStretch(1);
    connect(button, &QPushButton::clicked, this, &GoToLineBar::go);
    hide();
}

void GoToLineBar::open() {
    m_lineEdit->setText(QString::number(m_view.lineAt(m_view.textCursor().position()) + 1));
    m_countLabel->setText(tr("of %1").arg(m_view.lineCount()));
    show();
    m_lineEdit->setFocus(Qt::ShortcutFocusReason);
    m_lineEdit->selectAll();
}

void GoToLineBar::closeBar() {
    hide();
    m_view.setFocus(Qt::OtherFocusReason);
}

void GoToLineBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        closeBar();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        go();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// A number beyond the text means its last line.
void GoToLineBar::go() {
    const QString text = m_lineEdit->text();
    if (text.isEmpty()) {
        return;
    }
    bool fits = false;
    const int wanted = text.toInt(&fits);
    const int line =
        std::clamp(fits ? wanted : std::numeric_limits<int>::max(), 1, m_view.lineCount());
    QTextCursor cursor = m_view.textCursor();
    cursor.setPosition(m_view.startOfLine(line - 1));
    m_view.setTextCursor(cursor);
    m_view.centerCursor();
    closeBar();
}

} // namespace kestrel
