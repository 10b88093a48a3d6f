// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectNavigationRowPainter.h"

#include "icons/Icons.h"
#include "navigation/tree/NamePainter.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationModel.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace kestrel {

ProjectNavigationRowPainter::ProjectNavigationRowPainter(ProjectNavigationModel& model,
                                                         QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
    , m_imageView(std::make_shared<ProjectNavigationItem::ImageView>())
    , m_textField(std::make_shared<ProjectNavigationItem::TextField>())
    , m_groupIcon(iconNamed(u"navigationGroup"))
    , m_projectIcon(iconNamed(u"navigationProject"))
    , m_fileIcon(iconNamed(u"navigationFile")) {
    setFileExistence({});
    m_model.setLooker([self = QPointer(this)](const QModelIndex& index) {
        if (self != nullptr) {
            self->viewForItem(index);
        }
    });
}

void ProjectNavigationRowPainter::setFileExistence(
    ProjectNavigationItem::FileExistence fileExists) {
    m_view = std::make_unique<ProjectNavigationItem>(std::move(fileExists));
    m_view->outletIconImageView = m_imageView;
    m_view->outletTextField = m_textField;
}

const QIcon& ProjectNavigationRowPainter::iconFor(FileType type) const {
    switch (type) {
    case FileType::group:
        return m_groupIcon;
    case FileType::project:
        return m_projectIcon;
    case FileType::empty:
    case FileType::unknown:
    case FileType::text:
    case FileType::palette:
    case FileType::graphics:
        break;
    }
    return m_fileIcon;
}

/// Clears the row view and fills it, except for what needs the file system.
void ProjectNavigationRowPainter::dequeue(const QModelIndex& index) const {
    const std::shared_ptr<ProjectItem> node = m_model.item(index);
    *m_imageView = {};
    *m_textField = {};
    const QVariant name = m_model.data(index, Qt::DisplayRole);
    m_view->setNameForItem(name.isValid() ? std::optional(name.toString()) : std::nullopt);
    m_view->projectItem = node;
    m_view->currentProjectItem = findParentFromItem(node);
    if (node) {
        m_view->setImageForItem(iconFor(node->itemFileType()));
    }
}

ProjectNavigationItem* ProjectNavigationRowPainter::viewForItem(const QModelIndex& index) const {
    if (!index.isValid() || !m_model.item(index)) {
        return nullptr;
    }
    dequeue(index);
    if (m_view->projectItem->itemFileType() == FileType::group) {
        return m_view.get();
    }
    if (const std::optional<bool> known = m_model.presence(index)) {
        m_view->fileNotFound(*known);
    } else if (const std::optional<bool> found = m_view->checkFile()) {
        m_model.setPresence(index, *found);
    }
    return m_view.get();
}

void ProjectNavigationRowPainter::initStyleOption(QStyleOptionViewItem* option,
                                                  const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const std::shared_ptr<ProjectItem> node = m_model.item(index)) {
        option->icon = iconFor(node->itemFileType());
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
}

void ProjectNavigationRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    const ProjectNavigationItem* view = viewForItem(index);
    if (view == nullptr) {
        return;
    }
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text = view->nameForItem().value_or(QString());
    row.icon = QIcon();
    paintNamedRow(*painter, row, m_textField->textColour);
    const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
    const QRect place = style->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget);
    painter->save();
    painter->setOpacity(m_imageView->opacity);
    if (const std::optional<QIcon> image = view->imageForItem()) {
        image->paint(painter, place, row.decorationAlignment);
    }
    painter->restore();
}

} // namespace kestrel
