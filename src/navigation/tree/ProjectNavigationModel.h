// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QAbstractItemModel>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// The rows that the navigation tree shows: a mirror of the project trees. The nodes change first;
/// reload() then compares them with the mirror and tells the view exactly which rows came, went and
/// changed, so that expansion, selection and scroll position survive. The mirror also is the map
/// from a row to the container it is shown under, which a node's own `parent` need not name.
///
/// The sub-items of a node that does not expand (a file) have no rows.
class ProjectNavigationModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit ProjectNavigationModel(QObject* parent = nullptr);
    ~ProjectNavigationModel() override;

    /// Makes the rows what `roots` and the nodes below them are now, and forgets which files were
    /// found.
    void reload(const ProjectItems& roots);

    /// Whether a row of this node shows a disclosure triangle: a group, also an empty one, and
    /// every node with sub-items.
    static bool isItemExpandable(const std::shared_ptr<ProjectItem>& item);

    /// Whether a row of this node may be expanded and collapsed: groups and projects only.
    static bool shouldExpandItem(const std::shared_ptr<ProjectItem>& item);

    /// The node at a row; nothing for an invalid index.
    std::shared_ptr<ProjectItem> item(const QModelIndex& index) const;

    /// The first row, from the top, that shows this very node; invalid when there is none.
    QModelIndex indexOf(const std::shared_ptr<ProjectItem>& item) const;

    /// Whether the row's file was found, as noted since the last reload.
    std::optional<bool> presence(const QModelIndex& index) const;
    void setPresence(const QModelIndex& index, bool found);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The node's name; as tool tip and accessible description, that the row's file is missing,
    /// and where, when presence() knows so. Nothing for a row without a node and every other role.
    QVariant data(const QModelIndex& index, int role) const override;

    /// Accepted and ignored: rows are not edited in place.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    struct Row;
    using Rows = std::vector<std::unique_ptr<Row>>;

    Row* rowAt(const QModelIndex& index) const;
    QModelIndex indexFor(const Row& row) const;
    std::unique_ptr<Row> makeRow(const std::shared_ptr<ProjectItem>& node, Row* parent,
                                 std::size_t number) const;
    void update(Row& row);
    void reloadChildren(Row& parent, const ProjectItems& now);
    void mergeChildren(Row& parent, const ProjectItems& now, std::size_t first, std::size_t oldEnd,
                       std::size_t newEnd);
    void insertChildren(Row& parent, const ProjectItems& now, std::size_t first, std::size_t end);
    void removeChildren(Row& parent, std::size_t first, std::size_t end);

    std::unique_ptr<Row> m_root;
    std::uint32_t m_generation = 1; ///< counts reloads; a presence noted in an earlier one is void
};

} // namespace kestrel
