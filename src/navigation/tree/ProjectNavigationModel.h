// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QAbstractItemModel>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kestrel {

/// The rows of the navigation tree, a copy of the project trees. After the nodes have changed,
/// reload() compares them with the rows and reports exactly which rows were inserted, removed and
/// changed, so that expansion, selection and scroll position survive. A row's parent row is the
/// container that it is shown under, which may differ from the node's `parent`.
///
/// The sub-items of a node that does not expand, such as a file, have no rows.
class ProjectNavigationModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit ProjectNavigationModel(QObject* parent = nullptr);
    ~ProjectNavigationModel() override;

    /// Updates the rows to `roots` and the nodes below them, and forgets which files were found.
    void reload(const ProjectItems& roots);

    /// Whether a node has a disclosure triangle: every group and every node with sub-items.
    static bool isItemExpandable(const std::shared_ptr<ProjectItem>& item);

    /// Whether a node may be expanded and collapsed: groups and projects only.
    static bool shouldExpandItem(const std::shared_ptr<ProjectItem>& item);

    /// The node at a row; nullptr for an invalid index.
    std::shared_ptr<ProjectItem> item(const QModelIndex& index) const;

    /// The topmost row of this node object; invalid when there is none.
    QModelIndex indexOf(const std::shared_ptr<ProjectItem>& item) const;

    /// Whether the row's file was found; nothing when not checked since the last reload.
    std::optional<bool> presence(const QModelIndex& index) const;
    void setPresence(const QModelIndex& index, bool found);

    /// What looks for a row's file and calls setPresence(), for a row that assistive technology
    /// asks about before it was painted. Must stay usable as long as the model.
    using Looker = std::function<void(const QModelIndex& index)>;
    void setLooker(Looker look) { m_look = std::move(look); }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The node's name; as tool tip the path of the row's file, if presence() is false; as
    /// accessible description the node's kind, and the path of a missing file. Nothing for a row
    /// without a node and for any other role.
    QVariant data(const QModelIndex& index, int role) const override;

    /// Accepts and ignores the value: rows are not edited in place.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    struct Row;
    using Rows = std::vector<std::unique_ptr<Row>>;

    QString description(const QModelIndex& index) const;
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
    Looker m_look;
    std::uint32_t m_generation =
        1; ///< counts reloads; a presence set before the last one is ignored
};

} // namespace kestrel
