// SPDX-License-Identifier: MIT
#include "memory/MemoryView.h"

#include "facts/ProgramKnowledge.h"
#include "memory/MemoryLegend.h"
#include "memory/MemoryList.h"
#include "memory/MemoryModel.h"
#include "memory/MemoryRowDelegate.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace kestrel {

namespace {

constexpr QMargins TextMargins(8, 6, 8, 6);

QString emptyText() {
    return MemoryView::tr("Build a project to see how full its banks and its memory are: choose "
                          "Build > Build, or press Ctrl+B.");
}

} // namespace

MemoryView::MemoryView(const ProgramKnowledge& knowledge, QWidget* parent)
    : QWidget(parent)
    , m_knowledge(&knowledge)
    , m_model(new MemoryModel(this))
    , m_summary(makeText("memorySummary"))
    , m_note(makeText("memoryNote"))
    , m_list(new MemoryList(emptyText(), this))
    , m_legend(new MemoryLegend(this)) {
    setObjectName(QStringLiteral("memoryView"));
    setAccessibleName(tr("Memory"));
    m_note->hide();
    m_list->setObjectName(QStringLiteral("memoryList"));
    m_list->setAccessibleName(tr("Banks and memory"));
    m_list->setModel(m_model);
    m_list->setItemDelegate(new MemoryRowDelegate(*m_model, this));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_note);
    layout->addWidget(m_summary);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_legend);
    setFocusProxy(m_list);
    connect(m_list, &MemoryList::copyWanted, this, &MemoryView::copySelected);
    connect(&knowledge, &ProgramKnowledge::changed, this, &MemoryView::refresh);
    refresh();
}

QLabel* MemoryView::makeText(const char* objectName) {
    auto* text = new QLabel(this);
    text->setObjectName(QLatin1String(objectName));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setContentsMargins(TextMargins);
    return text;
}

void MemoryView::setNote(const QString& note) {
    if (note != m_note->text()) {
        m_note->setText(note);
        m_note->setAccessibleName(note);
        m_note->setVisible(!note.isEmpty());
    }
}

void MemoryView::copySelected() const {
    const std::vector<MemoryRow>& rows = m_model->report().rows();
    QStringList lines{MemoryReport::tabbedHead()};
    for (int i = 0; i < m_model->rowCount(); ++i) {
        if (m_list->selectionModel()->isSelected(m_model->index(i))) {
            lines += MemoryReport::tabbed(rows[static_cast<std::size_t>(i)]);
        }
    }
    if (lines.size() > 1) {
        QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    }
}

void MemoryView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_isStale) {
        refresh();
    }
}

void MemoryView::refresh() {
    m_isStale = !isVisible();
    if (m_isStale || !m_knowledge) {
        return;
    }
    const auto& facts = m_knowledge->facts();
    m_model->setReport(
        facts ? MemoryReport(facts, m_knowledge->before().get(),
                             QString::fromStdString(m_knowledge->image().filename().string()))
              : MemoryReport());
    const std::vector<MemoryRow>& rows = m_model->report().rows();
    m_summary->setText(rows.empty() ? QString() : m_model->report().summary());
    m_summary->setVisible(!rows.empty());
    m_legend->setVisible(!rows.empty());
    m_legend->setHasNamed(
        std::ranges::any_of(rows, [](const MemoryRow& row) { return !row.area->named.empty(); }));
}

} // namespace kestrel
