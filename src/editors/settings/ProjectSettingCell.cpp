// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingCell.h"

#include "editors/settings/BuildFileListModel.h"
#include "navigation/tree/NamePainter.h"

namespace kestrel {

namespace {

constexpr int RowPadding = 4; // above and below the name together

} // namespace

ProjectSettingCell::ProjectSettingCell(QObject* parent)
    : QStyledItemDelegate(parent)
    , m_label(std::make_shared<ProjectNavigationItem::TextField>()) {
    projectSettingsLabel = m_label;
}

void ProjectSettingCell::show(const QModelIndex& index) const {
    const auto label = projectSettingsLabel.lock();
    const auto* model = qobject_cast<const BuildFileListModel*>(index.model());
    if (!label || model == nullptr) {
        return;
    }
    label->stringValue = index.data().toString();
    label->textColour = model->isMissing(index.row()) ? ProjectNavigationItem::TextColour::red
                                                      : ProjectNavigationItem::TextColour::black;
}

void ProjectSettingCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    show(index);
    row.text = m_label->stringValue;
    paintNamedRow(*painter, row, m_label->textColour);
}

QSize ProjectSettingCell::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, RowPadding);
}

} // namespace kestrel
