// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"
#include "navigation/tree/ProjectNavigationDelegate.h"
#include "navigation/tree/ProjectNavigationItem.h"
#include "navigation/tree/RemovedItem.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

class Menu;
class NotificationCentre;
class OutlineView;
class ProjectNavigationModel;
class ProjectNavigationRowPainter;

/// The navigation tree: shows the projects, reports the selection to its delegate, and edits the
/// trees for the project commands. Of files it only checks whether they exist. User-interface
/// thread only.
class ProjectNavigationController : public QWidget {
    Q_OBJECT

public:
    /// The context menu posts its commands to `centre`, which must outlive the tree. With nullptr
    /// the tree only shows and selects: it has no context menu and no Delete key.
    explicit ProjectNavigationController(NotificationCentre* centre, QWidget* parent = nullptr);
    ~ProjectNavigationController() override;

    /// The outline view of the tree, its child. It may be replaced, and destroyed at any time;
    /// nullptr removes it.
    OutlineView* outlineView() const;
    void setOutlineView(OutlineView* outlineView);

    /// Refers to the delegate weakly; nullptr is allowed.
    void setProjectNavigationDelegate(ProjectNavigationDelegate* delegate);

    /// The project roots, top row first.
    const ProjectItems& allItems() const { return m_allItems; }
    void setAllItems(ProjectItems items);

    /// The root of the last selected node; deleting does not clear it.
    std::shared_ptr<ProjectItem> currentlySelectedProject() const { return m_selectedProject; }

    /// The last selected node; deleting does not clear it.
    std::shared_ptr<ProjectItem> currentlySelectedItem() const { return m_selectedItem; }

    /// The node of the selected row; nullptr without one.
    std::shared_ptr<ProjectItem> selectedItem() const;

    /// The node whose row is the parent row of a node's row, whatever the node's `parent` is;
    /// nullptr for a root and for a node without a row.
    std::shared_ptr<ProjectItem> containerOf(const std::shared_ptr<ProjectItem>& item) const;

    /// Whether the selected row can be deleted. A root that is not a project, from a damaged
    /// structure file, cannot.
    bool canDelete() const;

    /// Selects the row of this node object and scrolls to it. False when it has no row.
    bool select(const std::shared_ptr<ProjectItem>& item);

    /// Inserts a node. A project becomes the topmost one and is selected. Any other node is
    /// inserted at the end of the selected group, at the start of the selected project, or in the
    /// container of the selected file, at the number of visible rows from the container's row to
    /// the selected one (at most at the end); the selected row stays selected. A collapsed project
    /// that gets the node is expanded, a group is not. The caller sets the node's `parent`. `row`
    /// is not used. False, with a line in the log, without a selected row.
    bool add(const std::shared_ptr<ProjectItem>& newProjectItem, std::optional<int> row = {});

    /// Inserts a node that refers to the file at this path, and reports it to the delegate without
    /// selecting it. Returns the new node, which has no `parent` yet.
    std::shared_ptr<ProjectItem> add(const std::filesystem::path& file);

    /// Removes the node at a visible row, or the selected one: the first of its container's
    /// sub-items with its `uniqueID`, or, for a project, the roots with its name. Selects the next
    /// sibling, else the previous one, else the container; currentlySelectedItem and the delegate
    /// are only updated by reportSelection(), so that the caller can save first. Returns what was
    /// removed, in order.
    std::vector<RemovedItem> delete_(std::optional<int> row = {});

    /// Makes the selected row's node the current one and tells the delegate, unless it is the last
    /// one reported.
    void reportSelection();

    /// Restores what delete_() returned, with its places and expansion. False when a container no
    /// longer has a row; its nodes are left out.
    bool restore(const std::vector<RemovedItem>& removed);

    /// Updates the rows and checks again which files exist. Keeps expansion, scroll position and
    /// selection.
    void reloadFileStatusForNavigationContent();

    /// Does nothing.
    void updateCurrentItemUpToDate(bool upToDate);

    /// The context menu, whose actions the menu bar may use too; nullptr when there is none.
    Menu* menu() const { return m_menu; }

    /// The rows.
    ProjectNavigationModel* model() const { return m_model; }

    /// Replaces the check whether a file exists; for tests.
    void setFileExistence(ProjectNavigationItem::FileExistence fileExists);

    /// Posts a request for a new project, with a NewItemType as the object.
    void requestNewProject(QObject* sender = nullptr);

Q_SIGNALS:
    /// Another row, or no row, is selected now.
    void selectedRowChanged();
    /// The selected row was clicked again, or Return was pressed on it.
    void selectedRowChosenAgain();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void reload();
    void restoreSelection();
    void selectionDidChange();
    void rowsAboutToGo(const QModelIndex& parent, int first, int last);
    void showMenu(const QModelIndex& index, const QPoint& position);
    void updateMenu();
    void removeFrom(ProjectItems& items, const std::shared_ptr<ProjectItem>& container,
                    std::size_t position, std::vector<RemovedItem>& removed);
    ProjectItems expandedWithin(const std::shared_ptr<ProjectItem>& item) const;

    NotificationCentre* m_centre;
    ProjectNavigationModel* m_model;
    ProjectNavigationRowPainter* m_painter;
    QPointer<OutlineView> m_outlineView;
    Menu* m_menu = nullptr;
    std::weak_ptr<ProjectNavigationDelegate> m_delegate;
    ProjectItems m_allItems;
    std::shared_ptr<ProjectItem> m_selectedProject;
    std::shared_ptr<ProjectItem> m_selectedItem;
    std::weak_ptr<ProjectItem> m_lastReported;
    QPersistentModelIndex m_selectedRow; ///< while rows change: the row to select afterwards
    bool m_selectionHeld = false;        ///< selection changes come from Qt, not the user
};

} // namespace kestrel
