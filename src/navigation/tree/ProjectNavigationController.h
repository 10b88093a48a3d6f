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

/// The navigation tree: shows the projects, knows what is selected, tells its delegate, and edits
/// the trees for the project commands. It never touches files; it only looks whether they exist.
///
/// To be used on the user-interface thread.
class ProjectNavigationController : public QWidget {
    Q_OBJECT

public:
    /// `centre` gets what the context menu asks for and must outlive the tree. Without one the tree
    /// only shows and selects: it has no context menu and no Delete key, and posts nothing.
    explicit ProjectNavigationController(NotificationCentre* centre, QWidget* parent = nullptr);
    ~ProjectNavigationController() override;

    /// The outline view that the tree drives. It is a child of the tree, may go at any time, and
    /// may be replaced; nothing takes it away.
    OutlineView* outlineView() const;
    void setOutlineView(OutlineView* outlineView);

    /// Held weakly; nothing is allowed.
    void setProjectNavigationDelegate(ProjectNavigationDelegate* delegate);

    /// The project roots, top row first.
    const ProjectItems& allItems() const { return m_allItems; }
    void setAllItems(ProjectItems items);

    /// The root of the node last selected; deleting does not clear it.
    std::shared_ptr<ProjectItem> currentlySelectedProject() const { return m_selectedProject; }

    /// The node last selected; deleting does not clear it.
    std::shared_ptr<ProjectItem> currentlySelectedItem() const { return m_selectedItem; }

    /// The node of the selected row; nothing without a selected row.
    std::shared_ptr<ProjectItem> selectedItem() const;

    /// The node under which a node is shown, whatever its `parent` says; nothing for a root and for
    /// a node that is not shown.
    std::shared_ptr<ProjectItem> containerOf(const std::shared_ptr<ProjectItem>& item) const;

    /// Whether the selected row can be deleted: not one that is no project and stands in no
    /// container, as a damaged structure file can make it.
    bool canDelete() const;

    /// Selects the row of this very node, bringing it into sight. False when it is not shown.
    bool select(const std::shared_ptr<ProjectItem>& item);

    /// Inserts a node. A project becomes the topmost one and is selected. Any other node goes into
    /// the selected group, at its end; or into the selected project, as its first; or into the
    /// container of the selected file, at the place "visible rows between the container's row and
    /// the selected one" (at most the end). The selected row stays selected. The caller sets the
    /// node's `parent`. `row` is not used. False, with a line in the log, without a selected row.
    bool add(const std::shared_ptr<ProjectItem>& newProjectItem, std::optional<int> row = {});

    /// Inserts a node for the file at this path, which stays where it is, and shows it to the
    /// delegate without selecting it. Gives the new node, which has no `parent` yet.
    std::shared_ptr<ProjectItem> add(const std::filesystem::path& file);

    /// Removes the node at a visible row, or the selected one: the first of its container's
    /// sub-items with its `uniqueID`, or, for a project, the roots of its name. What follows is
    /// selected instead (the next sibling, else the previous, else the container), but neither
    /// currentlySelectedItem nor the delegate learns of it before reportSelection() is called, so
    /// that the caller can save first. Gives what was removed, in order.
    std::vector<RemovedItem> delete_(std::optional<int> row = {});

    /// Makes the selected row's node the current one and tells the delegate, if it is another than
    /// the one last reported.
    void reportSelection();

    /// Puts back what delete_() gave, at the former places and as expanded as it was. False when a
    /// container is no longer shown; the nodes in it stay out.
    bool restore(const std::vector<RemovedItem>& removed);

    /// Shows what the nodes are now and asks again which files exist; expansion, scroll position
    /// and selection stay.
    void reloadFileStatusForNavigationContent();

    /// Accepted and ignored.
    void updateCurrentItemUpToDate(bool upToDate);

    /// The context menu, whose actions may stand in the menu bar, too; nothing in a tree without.
    Menu* menu() const { return m_menu; }

    /// The rows; owned by the tree.
    ProjectNavigationModel* model() const { return m_model; }

    /// Replaces how the file system is asked; for tests.
    void setFileExistence(ProjectNavigationItem::FileExistence fileExists);

    /// Posts a request for a new project in the form of a NewItemType.
    void requestNewProject(QObject* sender = nullptr);

Q_SIGNALS:
    /// The selected row is another one, or there is none any more.
    void selectedRowChanged();
    /// The row that is selected already was chosen once more, by mouse or by Return.
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
    QPersistentModelIndex m_selectedRow; ///< while rows come and go: what is to be selected then
    bool m_selectionHeld = false;        ///< selection changes are the toolkit's own now
};

} // namespace kestrel
