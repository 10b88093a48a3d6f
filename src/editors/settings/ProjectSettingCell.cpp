// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingCell.h"

#include "editors/settings/BuildFileListModel.h"
#include "navigation/tree/ProjectNavigationRowPainter.h"

#include <QApplication>
#include <QStyle>

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
    const QPalette::ColorGroup group =
        row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const auto paintedAs = [&](QPalette::ColorRole text, QPalette::ColorRole background) {
        row.palette.setColor(group, text,
                             ProjectNavigationRowPainter::shade(
                                 m_label->textColour, row.palette.color(group, background),
                                 row.palette.color(group, text)));
    };
    paintedAs(QPalette::Text, QPalette::Base);
    paintedAs(QPalette::HighlightedText, QPalette::Highlight);
    const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
}

QSize ProjectSettingCell::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, RowPadding);
}

} // namespace kestrel
