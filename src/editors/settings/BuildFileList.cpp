// SPDX-License-Identifier: MIT
#include "editors/settings/BuildFileList.h"

#include "editors/settings/BuildFileListModel.h"
#include "editors/settings/BuildFileTable.h"
#include "editors/settings/ProjectSettingCell.h"
#include "widgets/ThinFrame.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

BuildFileList::BuildFileList(const Names& names, QWidget* parent)
    : QWidget(parent)
    , m_kind(names.kind)
    , m_model(new BuildFileListModel(this))
    , m_table(new BuildFileTable(this))
    , m_cell(new ProjectSettingCell(this))
    , m_subtractButton(new QPushButton(QStringLiteral("−"), this))
    , m_addButton(new QPushButton(QStringLiteral("+"), this)) {
    const QString table = QLatin1String(names.table);
    auto* heading = new QLabel(names.heading, this);
    heading->setObjectName(table + QStringLiteral("Label"));
    heading->setBuddy(m_table);
    m_table->setObjectName(table);
    m_table->setAccessibleName(QString(names.heading).remove(QLatin1Char('&')));
    m_table->setPlaceholderText(names.emptyText);
    m_table->setModel(m_model);
    m_table->setItemDelegate(m_cell);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(heading);
    column->addWidget(new ThinFrame(*m_table, this), 1);
    buildButtons(names);
    connect(m_table, &BuildFileTable::selectedRowChanged, this, &BuildFileList::updateButtons);
    connect(m_table, &BuildFileTable::deletePressed, m_subtractButton, &QPushButton::click);
    setFiles({}, nullptr);
}

void BuildFileList::buildButtons(const Names& names) {
    const auto name = [&](QPushButton& button, const char* objectName, const QString& what) {
        button.setObjectName(QLatin1String(objectName));
        button.setAccessibleName(what);
        button.setToolTip(what);
        button.setAutoDefault(false);
        button.setFixedWidth(button.fontMetrics().height() * 2);
    };
    name(*m_subtractButton, names.subtractButton, tr("Remove %1").arg(names.fileOfKind));
    name(*m_addButton, names.addButton, tr("Add %1").arg(names.fileOfKind));
    auto* row = new QHBoxLayout;
    row->addWidget(m_subtractButton);
    row->addWidget(m_addButton);
    row->addStretch(1);
    if (auto* column = qobject_cast<QVBoxLayout*>(layout())) {
        column->addLayout(row);
    }
}

const ProjectItems& BuildFileList::files() const {
    return m_model->files();
}

void BuildFileList::setFiles(ProjectItems files, const std::shared_ptr<ProjectItem>& project) {
    m_model->setFiles(std::move(files), project);
    m_addButton->setEnabled(project != nullptr);
    updateButtons();
}

void BuildFileList::updateButtons() {
    m_subtractButton->setEnabled(m_table->selectedRow() >= 0);
}

} // namespace kestrel
