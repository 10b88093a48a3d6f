// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectNavigationModel.h"

#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationItem.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kestrel {

/// One row: its node, its place, its text and its child rows.
struct ProjectNavigationModel::Row {
    std::shared_ptr<ProjectItem> node;
    Row* parent = nullptr;
    std::size_t number = 0;
    std::string name;
    FileType type = FileType::unknown;
    std::uint32_t madeGeneration = 0; ///< the reload in which the row was made
    bool expandable = false;
    bool found = false;
    std::uint32_t foundGeneration = 0; ///< the reload in which `found` was noted; 0: never
    Rows children;
};

namespace {

const ProjectItems& shownChildren(const std::shared_ptr<ProjectItem>& node) {
    static const ProjectItems none;
    return ProjectNavigationModel::shouldExpandItem(node) ? std::as_const(*node).subItems() : none;
}

QString locationText(const std::shared_ptr<ProjectItem>& node) {
    const std::shared_ptr<ProjectItem> project = findParentFromItem(node);
    return QString::fromStdString(ProjectNavigationItem::locationOf(*node, *project).string());
}

/// The kind of a node, for those who do not see its icon.
QString kindText(FileType type) {
    switch (type) {
    case FileType::project:
        return ProjectNavigationModel::tr("Project");
    case FileType::group:
        return ProjectNavigationModel::tr("Group");
    case FileType::text:
        return ProjectNavigationModel::tr("Assembly file");
    case FileType::graphics:
        return ProjectNavigationModel::tr("Tile file");
    case FileType::palette:
        return ProjectNavigationModel::tr("Palette file");
    case FileType::unknown:
        return ProjectNavigationModel::tr("File without a kind");
    case FileType::empty:
        break;
    }
    return ProjectNavigationModel::tr("File");
}

} // namespace

ProjectNavigationModel::ProjectNavigationModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Row>()) {}

ProjectNavigationModel::~ProjectNavigationModel() = default;

bool ProjectNavigationModel::isItemExpandable(const std::shared_ptr<ProjectItem>& item) {
    return item && (item->itemFileType() == FileType::group || !item->subItems().empty());
}

bool ProjectNavigationModel::shouldExpandItem(const std::shared_ptr<ProjectItem>& item) {
    if (!item) {
        return false;
    }
    const FileType type = item->itemFileType();
    return type == FileType::group || type == FileType::project;
}

std::shared_ptr<ProjectItem> ProjectNavigationModel::item(const QModelIndex& index) const {
    return rowAt(index)->node;
}

QModelIndex ProjectNavigationModel::indexOf(const std::shared_ptr<ProjectItem>& item) const {
    std::vector<const Row*> waiting{m_root.get()};
    while (item && !waiting.empty()) {
        const Row* row = waiting.back();
        waiting.pop_back();
        if (row->node == item) {
            return indexFor(*row);
        }
        std::transform(row->children.rbegin(), row->children.rend(), std::back_inserter(waiting),
                       [](const std::unique_ptr<Row>& child) { return child.get(); });
    }
    return {};
}

std::optional<bool> ProjectNavigationModel::presence(const QModelIndex& index) const {
    const Row* row = rowAt(index);
    return row->foundGeneration == m_generation ? std::optional(row->found) : std::nullopt;
}

void ProjectNavigationModel::setPresence(const QModelIndex& index, bool found) {
    Row* row = rowAt(index);
    row->found = found;
    row->foundGeneration = m_generation;
}

QModelIndex ProjectNavigationModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    return createIndex(row, column, rowAt(parent)->children[static_cast<std::size_t>(row)].get());
}

QModelIndex ProjectNavigationModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexFor(*rowAt(child)->parent) : QModelIndex();
}

int ProjectNavigationModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(rowAt(parent)->children.size());
}

int ProjectNavigationModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

bool ProjectNavigationModel::hasChildren(const QModelIndex& parent) const {
    // While rows are being removed, a node may already have fewer sub-items than rows.
    const Row* row = rowAt(parent);
    return row->expandable || !row->children.empty();
}

Qt::ItemFlags ProjectNavigationModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.isValid() && !shouldExpandItem(rowAt(index)->node)) {
        flags |= Qt::ItemNeverHasChildren;
    }
    return flags;
}

QVariant ProjectNavigationModel::data(const QModelIndex& index, int role) const {
    const std::shared_ptr<ProjectItem> node = index.isValid() ? rowAt(index)->node : nullptr;
    if (!node) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(rowAt(index)->name);
    case Qt::ToolTipRole:
        // The line break also keeps a path that looks like markup from being shown as such.
        return presence(index) == false ? tr("File is missing:\n%1").arg(locationText(node))
                                        : QVariant();
    case Qt::AccessibleDescriptionRole:
        return description(index);
    default:
        return {};
    }
}

QString ProjectNavigationModel::description(const QModelIndex& index) const {
    const std::shared_ptr<ProjectItem>& node = rowAt(index)->node;
    const QString kind = kindText(node->itemFileType());
    if (!presence(index) && m_look) {
        m_look(index);
    }
    return presence(index) == false ? tr("%1, file is missing: %2").arg(kind, locationText(node))
                                    : kind;
}

bool ProjectNavigationModel::setData(const QModelIndex& index, const QVariant& /*value*/,
                                     int /*role*/) {
    return index.isValid();
}

ProjectNavigationModel::Row* ProjectNavigationModel::rowAt(const QModelIndex& index) const {
    return index.isValid() ? static_cast<Row*>(index.internalPointer()) : m_root.get();
}

QModelIndex ProjectNavigationModel::indexFor(const Row& row) const {
    return &row == m_root.get() ? QModelIndex()
                                : createIndex(static_cast<int>(row.number), 0, &row);
}

std::unique_ptr<ProjectNavigationModel::Row>
ProjectNavigationModel::makeRow(const std::shared_ptr<ProjectItem>& node, Row* parent,
                                std::size_t number) const {
    auto row = std::make_unique<Row>();
    row->node = node;
    row->parent = parent;
    row->number = number;
    row->madeGeneration = m_generation;
    if (node) {
        row->name = node->itemName();
        row->type = node->itemFileType();
        row->expandable = isItemExpandable(node);
        const ProjectItems& children = shownChildren(node);
        row->children.reserve(children.size());
        for (const std::shared_ptr<ProjectItem>& child : children) {
            row->children.push_back(makeRow(child, row.get(), row->children.size()));
        }
    }
    return row;
}

void ProjectNavigationModel::reload(const ProjectItems& roots) {
    ++m_generation;
    reloadChildren(*m_root, roots);
}

void ProjectNavigationModel::update(Row& row) {
    if (!row.node || row.madeGeneration == m_generation) {
        return;
    }
    const FileType type = row.node->itemFileType();
    const bool expandable = isItemExpandable(row.node);
    if (type != row.type || expandable != row.expandable || row.node->itemName() != row.name) {
        row.type = type;
        row.expandable = expandable;
        row.name = row.node->itemName();
        const QModelIndex index = indexFor(row);
        Q_EMIT dataChanged(index, index);
    }
    reloadChildren(row, shownChildren(row.node));
}

void ProjectNavigationModel::reloadChildren(Row& parent, const ProjectItems& now) {
    const auto same = [](const std::unique_ptr<Row>& row,
                         const std::shared_ptr<ProjectItem>& node) { return row->node == node; };
    Rows& rows = parent.children;
    const auto [oldChange, newChange] =
        std::mismatch(rows.begin(), rows.end(), now.begin(), now.end(), same);
    const auto first = static_cast<std::size_t>(newChange - now.begin());
    std::size_t oldEnd = rows.size();
    std::size_t newEnd = now.size();
    while (oldEnd > first && newEnd > first && same(rows[oldEnd - 1], now[newEnd - 1])) {
        --oldEnd;
        --newEnd;
    }
    if (oldEnd > first || newEnd > first) {
        mergeChildren(parent, now, first, oldEnd, newEnd);
    }
    for (const std::unique_ptr<Row>& row : rows) {
        update(*row);
    }
}

/// Updates the rows [first, oldEnd) to the nodes [first, newEnd). Keeps rows whose nodes are still
/// in the same order; removes and inserts again the row of a node that moved.
void ProjectNavigationModel::mergeChildren(Row& parent, const ProjectItems& now, std::size_t first,
                                           std::size_t oldEnd, std::size_t newEnd) {
    using Place = std::pair<const ProjectItem*, std::size_t>;
    std::vector<Place> places;
    for (std::size_t i = first; i < newEnd; ++i) {
        places.emplace_back(now[i].get(), i);
    }
    std::sort(places.begin(), places.end());
    std::vector<std::size_t> kept;  // the new places of the rows that stay
    std::vector<std::size_t> going; // the old places of the others
    std::size_t next = first;
    for (std::size_t i = first; i < oldEnd; ++i) {
        const ProjectItem* node = parent.children[i]->node.get();
        const auto place = std::lower_bound(places.begin(), places.end(), Place(node, next));
        if (place != places.end() && place->first == node) {
            kept.push_back(place->second);
            next = place->second + 1;
        } else {
            going.push_back(i);
        }
    }
    while (!going.empty()) {
        const std::size_t end = going.back() + 1;
        std::size_t begin = end;
        while (!going.empty() && going.back() + 1 == begin) {
            begin = going.back();
            going.pop_back();
        }
        removeChildren(parent, begin, end);
    }
    kept.push_back(newEnd);
    std::size_t begin = first;
    for (const std::size_t place : kept) {
        if (place > begin) {
            insertChildren(parent, now, begin, place);
        }
        begin = place + 1;
    }
}

void ProjectNavigationModel::insertChildren(Row& parent, const ProjectItems& now, std::size_t first,
                                            std::size_t end) {
    Rows fresh;
    for (std::size_t i = first; i < end; ++i) {
        fresh.push_back(makeRow(now[i], &parent, i));
    }
    beginInsertRows(indexFor(parent), static_cast<int>(first), static_cast<int>(end) - 1);
    Rows& rows = parent.children;
    const auto place = rows.begin() + static_cast<std::ptrdiff_t>(first);
    rows.insert(place, std::make_move_iterator(fresh.begin()),
                std::make_move_iterator(fresh.end()));
    for (std::size_t i = end; i < rows.size(); ++i) {
        rows[i]->number = i;
    }
    endInsertRows();
}

void ProjectNavigationModel::removeChildren(Row& parent, std::size_t first, std::size_t end) {
    beginRemoveRows(indexFor(parent), static_cast<int>(first), static_cast<int>(end) - 1);
    Rows& rows = parent.children;
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(first),
               rows.begin() + static_cast<std::ptrdiff_t>(end));
    for (std::size_t i = first; i < rows.size(); ++i) {
        rows[i]->number = i;
    }
    endRemoveRows();
}

} // namespace kestrel
