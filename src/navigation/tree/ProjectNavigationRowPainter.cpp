// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectNavigationRowPainter.h"

#include "icons/Icons.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationModel.h"
#include "widgets/Contrast.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace kestrel {

namespace {

/// Pure red on a light background; else the first red with enough contrast, or the one with the
/// most.
QColor readableRed(const QColor& background, bool light) {
    static constexpr std::array<QRgb, 4> Reds = {0xffff6b6b, 0xffffb3b3, 0xff500000, 0xffff0000};
    constexpr double Enough = 4.5; // WCAG 2, success criterion 1.4.3
    if (light) {
        return Qt::red;
    }
    const auto against = [&](QRgb red) { return contrast(QColor(red), background); };
    const auto readable =
        std::find_if(Reds.begin(), Reds.end(), [&](QRgb red) { return against(red) >= Enough; });
    if (readable != Reds.end()) {
        return {*readable};
    }
    return {*std::max_element(Reds.begin(), Reds.end(),
                              [&](QRgb one, QRgb two) { return against(one) < against(two); })};
}

/// Paints a row's name on a rectangle in the background colour of an unselected row.
void paintOnPlate(QPainter& painter, const QString& name, const QStyleOptionViewItem& row,
                  QPalette::ColorGroup group, const QRect& place) {
    const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
    const QString text =
        row.fontMetrics.elidedText(name, row.textElideMode, place.width() - 2 * margin);
    const QSize size(row.fontMetrics.horizontalAdvance(text) + 2 * margin, place.height() - 2);
    const QRect plate = QStyle::alignedRect(row.direction, row.displayAlignment, size, place);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(row.palette.brush(group, QPalette::Base));
    painter.drawRoundedRect(plate, 3, 3);
    painter.setPen(row.palette.color(group, QPalette::Text));
    painter.setFont(row.font);
    painter.drawText(plate, Qt::AlignCenter | Qt::TextSingleLine, text);
    painter.restore();
}

} // namespace

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

QColor ProjectNavigationRowPainter::shade(ProjectNavigationItem::TextColour colour,
                                          const QColor& background, const QColor& normal) {
    const bool light = luminance(background) > 0.5;
    switch (colour) {
    case ProjectNavigationItem::TextColour::red:
        return readableRed(background, light);
    case ProjectNavigationItem::TextColour::darkGrey:
        return light ? QColor(Qt::darkGray) : QColor(Qt::lightGray);
    case ProjectNavigationItem::TextColour::black:
        break;
    }
    return light ? QColor(Qt::black) : normal;
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
    const ProjectNavigationItem::TextColour colour = m_textField->textColour;
    const QPalette::ColorGroup group =
        row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const auto paintedAs = [&](QPalette::ColorRole text, QPalette::ColorRole background) {
        row.palette.setColor(
            group, text,
            shade(colour, row.palette.color(group, background), row.palette.color(group, text)));
    };
    paintedAs(QPalette::Text, QPalette::Base);
    paintedAs(QPalette::HighlightedText, QPalette::Highlight);
    const QStyle* style = row.widget != nullptr ? row.widget->style() : QApplication::style();
    const QRect namePlace = style->subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
    // No red is readable on the usual highlight colours.
    const bool onPlate = colour == ProjectNavigationItem::TextColour::red &&
                         row.state.testFlag(QStyle::State_Selected);
    const QString name = onPlate ? std::exchange(row.text, QString()) : QString();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    if (onPlate) {
        paintOnPlate(*painter, name, row, group, namePlace);
    }

    const QRect place = style->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget);
    painter->save();
    painter->setOpacity(m_imageView->opacity);
    if (const std::optional<QIcon> image = view->imageForItem()) {
        image->paint(painter, place, row.decorationAlignment);
    }
    painter->restore();
}

} // namespace kestrel
