// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectNavigationController.h"

#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "navigation/tree/Menu.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/OutlineAccessible.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationModel.h"
#include "navigation/tree/ProjectNavigationRowPainter.h"
#include "newitem/types/NewItemType.h"

#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <any>
#include <set>
#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view NoOutlineView = "NSOutlineView not set for ProjectNavigationController";

/// For a bug in the calling code, which no user action can cause.
void programmingFault(const char* what) {
    writeLog(what);
    Q_ASSERT_X(false, "ProjectNavigationController", what);
}

std::size_t placeByID(const ProjectItems& items, const ProjectItem& item) {
    const auto same = [id = item.uniqueID()](const std::shared_ptr<ProjectItem>& other) {
        return other && other->uniqueID() == id;
    };
    return static_cast<std::size_t>(std::find_if(items.begin(), items.end(), same) - items.begin());
}

bool isProject(const std::shared_ptr<ProjectItem>& item) {
    return item->itemFileType() == FileType::project;
}

/// Calls `visit` for the row, if it may be expanded, and for every such row below it.
template<typename Visit>
void forEachContainer(const ProjectNavigationModel& model, const QModelIndex& top, Visit visit) {
    std::vector<QModelIndex> waiting{top};
    while (!waiting.empty()) {
        const QModelIndex index = waiting.back();
        waiting.pop_back();
        if (!index.isValid() || index.flags().testFlag(Qt::ItemNeverHasChildren)) {
            continue;
        }
        visit(index);
        for (int i = 0; i < model.rowCount(index); ++i) {
            waiting.push_back(model.index(i, 0, index));
        }
    }
}

template<typename Place> auto at(ProjectItems& items, Place place) {
    const auto end = static_cast<Place>(items.size());
    return items.begin() + static_cast<std::ptrdiff_t>(std::min(place, end));
}

} // namespace

ProjectNavigationController::ProjectNavigationController(NotificationCentre* centre,
                                                         QWidget* parent)
    : QWidget(parent)
    , m_centre(centre)
    , m_model(new ProjectNavigationModel(this))
    , m_painter(new ProjectNavigationRowPainter(*m_model, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    if (m_centre != nullptr) {
        m_menu = new Menu(*m_centre, this);
    }
    connect(m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &ProjectNavigationController::rowsAboutToGo);
    QAccessible::installFactory(OutlineAccessible::make);
    setOutlineView(new OutlineView(this));
}

ProjectNavigationController::~ProjectNavigationController() {
    // Ignores selection changes while the view's parts are destroyed.
    m_selectionHeld = true;
}

OutlineView* ProjectNavigationController::outlineView() const {
    return m_outlineView;
}

void ProjectNavigationController::setOutlineView(OutlineView* outlineView) {
    const std::unique_ptr<OutlineView> former(m_outlineView.data());
    m_outlineView = outlineView;
    if (outlineView == nullptr) {
        return;
    }
    outlineView->setObjectName(QStringLiteral("outlineView"));
    outlineView->setAccessibleName(tr("Projects"));
    outlineView->setFrameShape(QFrame::NoFrame);
    outlineView->setModel(m_model);
    outlineView->setItemDelegate(m_painter);
    layout()->addWidget(outlineView);
    setFocusProxy(outlineView);
    connect(outlineView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ProjectNavigationController::selectionDidChange);
    connect(outlineView, &OutlineView::selectedRowChosenAgain, this,
            &ProjectNavigationController::selectedRowChosenAgain);
    if (m_menu != nullptr) {
        m_menu->setOutlineView(outlineView);
        connect(outlineView, &OutlineView::contextMenuWanted, this,
                &ProjectNavigationController::showMenu);
        outlineView->setEmptyText(
            tr("No projects yet.\n\nChoose File > New Project to make one, or right-click here."));
    }
}

void ProjectNavigationController::setProjectNavigationDelegate(
    ProjectNavigationDelegate* delegate) {
    m_delegate.reset();
    if (delegate != nullptr) {
        m_delegate = delegate->weakReference();
    }
}

void ProjectNavigationController::setAllItems(ProjectItems items) {
    m_allItems = std::move(items);
    reload();
    selectionDidChange();
}

void ProjectNavigationController::setFileExistence(
    ProjectNavigationItem::FileExistence fileExists) {
    m_painter->setFileExistence(std::move(fileExists));
}

std::shared_ptr<ProjectItem> ProjectNavigationController::selectedItem() const {
    return m_outlineView != nullptr ? m_model->item(m_outlineView->selectedIndex()) : nullptr;
}

std::shared_ptr<ProjectItem>
ProjectNavigationController::containerOf(const std::shared_ptr<ProjectItem>& item) const {
    return m_model->item(m_model->indexOf(item).parent());
}

bool ProjectNavigationController::canDelete() const {
    const std::shared_ptr<ProjectItem> item = selectedItem();
    return item && (isProject(item) || m_outlineView->selectedIndex().parent().isValid());
}

bool ProjectNavigationController::select(const std::shared_ptr<ProjectItem>& item) {
    const QModelIndex index = m_model->indexOf(item);
    if (!index.isValid() || m_outlineView == nullptr) {
        return false;
    }
    m_outlineView->selectIndex(index);
    m_outlineView->scrollTo(index);
    return true;
}

bool ProjectNavigationController::add(const std::shared_ptr<ProjectItem>& newProjectItem,
                                      std::optional<int> /*row*/) {
    if (isProject(newProjectItem)) {
        m_allItems.insert(m_allItems.begin(), newProjectItem);
        reload();
        if (m_outlineView != nullptr) {
            m_outlineView->selectIndex(m_model->index(0, 0));
        }
        m_selectedItem = newProjectItem;
        return true;
    }
    const std::shared_ptr<ProjectItem> selected = selectedItem();
    if (!selected) {
        writeLog(NoOutlineView);
        return false;
    }
    const QModelIndex index = m_outlineView->selectedIndex();
    QPersistentModelIndex project; // that gets the node
    if (selected->itemFileType() == FileType::group) {
        selected->subItems().push_back(newProjectItem);
    } else if (const std::shared_ptr<ProjectItem> container = m_model->item(index.parent())) {
        ProjectItems& items = container->subItems();
        const int rows = m_outlineView->rowsBelowParent(index, static_cast<int>(items.size()));
        items.insert(at(items, rows), newProjectItem);
        project = isProject(container) ? index.parent() : QModelIndex();
    } else if (isProject(selected)) {
        ProjectItems& items = selected->subItems();
        items.insert(items.begin(), newProjectItem);
        project = index;
    }
    // The new row is below the selected one, which so keeps its number.
    reload();
    // The new row is to be seen. A group stays closed: its rows would change the places of later
    // nodes, which count the visible rows.
    if (project.isValid()) {
        m_outlineView->expand(project);
    }
    return true;
}

std::shared_ptr<ProjectItem> ProjectNavigationController::add(const std::filesystem::path& file) {
    const std::filesystem::path path = pathText(file); // without a trailing separator
    const auto node = std::make_shared<ProjectNavigationSettingItem>(
        path.filename().string(), path.parent_path(), FileType::unknown, ProjectType::nes);
    node->setItemPathType(FilePathType::absolute);
    add(node);
    if (const std::shared_ptr<ProjectNavigationDelegate> delegate = m_delegate.lock()) {
        delegate->projectNavigation(node);
    }
    return node;
}

std::vector<RemovedItem> ProjectNavigationController::delete_(std::optional<int> row) {
    std::vector<RemovedItem> removed;
    if (m_outlineView == nullptr) {
        writeLog(NoOutlineView);
        return removed;
    }
    const QModelIndex index =
        row ? m_outlineView->indexAtRow(*row) : m_outlineView->selectedIndex();
    const std::shared_ptr<ProjectItem> item = m_model->item(index);
    if (!item) {
        writeLog("item at row is not a ProjectNavigationItem for deletion");
        return removed;
    }
    const std::shared_ptr<ProjectItem> container = m_model->item(index.parent());
    if (isProject(item)) {
        // The positions are from before any removal. With two projects of one name the second
        // removal therefore removes the one after; a position past the end removes nothing.
        const ProjectItems before = m_allItems;
        for (std::size_t place = 0; place < before.size(); ++place) {
            if (before[place]->itemName() == item->itemName() && place < m_allItems.size()) {
                removeFrom(m_allItems, nullptr, place, removed);
            }
        }
    } else if (container) {
        const std::size_t place = placeByID(container->subItems(), *item);
        if (place == container->subItems().size()) {
            programmingFault("the row to delete is no sub-item of its container");
            return removed;
        }
        removeFrom(container->subItems(), container, place, removed);
    } else {
        programmingFault("the row to delete has no container");
        return removed;
    }
    reload();
    if (!selectedItem()) {
        // If the node is restored and selected, it is to be reported again.
        m_lastReported.reset();
    }
    return removed;
}

void ProjectNavigationController::removeFrom(ProjectItems& items,
                                             const std::shared_ptr<ProjectItem>& container,
                                             std::size_t position,
                                             std::vector<RemovedItem>& removed) {
    const std::shared_ptr<ProjectItem> node = items[position];
    removed.push_back({node, container, position, expandedWithin(node)});
    items.erase(at(items, position));
}

ProjectItems
ProjectNavigationController::expandedWithin(const std::shared_ptr<ProjectItem>& item) const {
    ProjectItems expanded;
    forEachContainer(*m_model, m_model->indexOf(item), [&](const QModelIndex& index) {
        if (m_outlineView->isExpanded(index)) {
            expanded.push_back(m_model->item(index));
        }
    });
    return expanded;
}

bool ProjectNavigationController::restore(const std::vector<RemovedItem>& removed) {
    bool all = true;
    // Backwards: each position was counted after the earlier nodes had been removed.
    const std::vector<RemovedItem> backwards(removed.rbegin(), removed.rend());
    for (const RemovedItem& item : backwards) {
        if (item.container && !m_model->indexOf(item.container).isValid()) {
            all = false;
            continue;
        }
        ProjectItems& items = item.container ? item.container->subItems() : m_allItems;
        items.insert(at(items, item.position), item.node);
    }
    reload();
    if (m_outlineView == nullptr) {
        return all;
    }
    for (const RemovedItem& item : removed) {
        const std::set<std::shared_ptr<ProjectItem>> wanted(item.expanded.begin(),
                                                            item.expanded.end());
        forEachContainer(*m_model, m_model->indexOf(item.node), [&](const QModelIndex& index) {
            if (wanted.contains(m_model->item(index))) {
                m_outlineView->expand(index);
            }
        });
    }
    return all;
}

void ProjectNavigationController::reloadFileStatusForNavigationContent() {
    if (m_outlineView == nullptr) {
        writeLog("Outline view is nil");
        return;
    }
    reload();
    selectionDidChange();
}

void ProjectNavigationController::updateCurrentItemUpToDate(bool /*upToDate*/) {}

void ProjectNavigationController::requestNewProject(QObject* /*sender*/) {
    if (m_centre != nullptr) {
        m_centre->post(ProjectNavigationMenuClicked,
                       std::any(NewItemType{FileType::project, QString(), QIcon()}));
    }
}

void ProjectNavigationController::showEvent(QShowEvent* event) {
    if (!event->spontaneous() && !m_selectedProject && !m_allItems.empty() &&
        m_outlineView != nullptr) {
        m_outlineView->selectIndex(m_model->index(0, 0));
    }
    QWidget::showEvent(event);
}

/// Updates the rows to the nodes. A selection that Qt makes while rows are removed is neither kept
/// nor reported.
void ProjectNavigationController::reload() {
    if (m_outlineView == nullptr) {
        m_model->reload(m_allItems);
        return;
    }
    const bool autoScroll = m_outlineView->hasAutoScroll();
    m_outlineView->setAutoScroll(false);
    m_selectionHeld = true;
    m_selectedRow = m_outlineView->selectedIndex();
    m_model->reload(m_allItems);
    restoreSelection();
    m_selectionHeld = false;
    m_outlineView->setAutoScroll(autoScroll);
    m_outlineView->viewport()->update();
    updateMenu();
}

void ProjectNavigationController::restoreSelection() {
    const QModelIndex wanted = m_selectedRow;
    m_selectedRow = QPersistentModelIndex();
    if (m_outlineView->selectedIndex() == wanted) {
        return;
    }
    if (wanted.isValid()) {
        m_outlineView->selectIndex(wanted);
    } else {
        m_outlineView->selectionModel()->clearSelection();
    }
}

void ProjectNavigationController::rowsAboutToGo(const QModelIndex& parent, int first, int last) {
    QModelIndex going = m_selectedRow;
    while (going.isValid() && going.parent() != parent) {
        going = going.parent();
    }
    if (!going.isValid() || going.row() < first || going.row() > last) {
        return;
    }
    if (last + 1 < m_model->rowCount(parent)) {
        m_selectedRow = m_model->index(last + 1, 0, parent);
    } else {
        m_selectedRow = first > 0 ? m_model->index(first - 1, 0, parent) : parent;
    }
}

void ProjectNavigationController::reportSelection() {
    selectionDidChange();
}

void ProjectNavigationController::selectionDidChange() {
    if (m_selectionHeld || m_outlineView == nullptr) {
        return;
    }
    updateMenu();
    Q_EMIT selectedRowChanged();
    const std::shared_ptr<ProjectItem> item = selectedItem();
    if (!item) {
        return;
    }
    m_selectedItem = item;
    m_selectedProject = findParentFromItem(item);
    const std::shared_ptr<ProjectNavigationDelegate> delegate = m_delegate.lock();
    if (delegate && m_lastReported.lock() != item) {
        m_lastReported = item;
        delegate->projectNavigation(item);
    }
}

void ProjectNavigationController::showMenu(const QModelIndex& index, const QPoint& position) {
    const QPoint place = m_outlineView->viewport()->mapToGlobal(position);
    if (index.isValid() && index != m_outlineView->selectedIndex()) {
        m_outlineView->selectIndex(index);
    }
    m_menu->popupFor(index.isValid(), place);
}

void ProjectNavigationController::updateMenu() {
    if (m_menu != nullptr) {
        m_menu->setRowSelected(selectedItem() != nullptr, canDelete());
    }
}

} // namespace kestrel
