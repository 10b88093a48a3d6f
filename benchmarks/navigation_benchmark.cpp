// SPDX-License-Identifier: MIT
// The navigation tree with 100,000 nodes beside a bare QTreeView on a model of the same rows that
// only keeps and hands out names: load, expand all, insert, delete, refresh. Each step ends with
// the window painted.
#include "model/ProjectNavigationSettingItem.h"
#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "navigation/tree/ProjectNavigationModel.h"

#include <benchmark/benchmark.h>
#include <QAbstractItemModel>
#include <QApplication>
#include <QTreeView>

#include <memory>
#include <vector>

namespace kestrel {
namespace {

constexpr int Groups = 1000;
constexpr int FilesInGroup = 99;

std::shared_ptr<ProjectItem> node(const std::string& name, FileType type) {
    auto item =
        std::make_shared<ProjectNavigationSettingItem>(name, "/nowhere", type, ProjectType::nes);
    item->setItemPathType(FilePathType::absolute);
    return item;
}

std::shared_ptr<ProjectItem> bigProject() {
    auto project = node("Project", FileType::project);
    for (int i = 0; i < Groups; ++i) {
        auto group = node("group" + std::to_string(i), FileType::group);
        group->setParent(project);
        for (int j = 0; j < FilesInGroup; ++j) {
            auto file = node("file" + std::to_string(j), FileType::text);
            file->setParent(group);
            group->subItems().push_back(file);
        }
        project->subItems().push_back(group);
    }
    return project;
}

/// The same rows with nothing but names.
class BareModel : public QAbstractItemModel {
public:
    struct Row {
        QString name;
        Row* parent = nullptr;
        int number = 0;
        std::vector<std::unique_ptr<Row>> children;

        Row& add(const QString& childName) {
            auto child = std::make_unique<Row>();
            child->name = childName;
            child->parent = this;
            child->number = static_cast<int>(children.size());
            children.push_back(std::move(child));
            return *children.back();
        }
    };

    BareModel() {
        Row& project = m_root.add(QStringLiteral("Project"));
        for (int i = 0; i < Groups; ++i) {
            Row& group = project.add(QStringLiteral("group%1").arg(i));
            for (int j = 0; j < FilesInGroup; ++j) {
                group.add(QStringLiteral("file%1").arg(j));
            }
        }
    }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        const Row& container = rowAt(parent);
        if (column != 0 || row < 0 || row >= static_cast<int>(container.children.size())) {
            return {};
        }
        return createIndex(row, 0, container.children[static_cast<std::size_t>(row)].get());
    }
    QModelIndex parent(const QModelIndex& child) const override {
        const Row* container = rowAt(child).parent;
        return container == nullptr || container == &m_root
                   ? QModelIndex()
                   : createIndex(container->number, 0, container);
    }
    int rowCount(const QModelIndex& parent) const override {
        return static_cast<int>(rowAt(parent).children.size());
    }
    int columnCount(const QModelIndex& /*parent*/) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(rowAt(index).name) : QVariant();
    }

    void insertTop(const QModelIndex& parent) {
        Row& container = writable(parent);
        beginInsertRows(parent, 0, 0);
        auto row = std::make_unique<Row>();
        row->name = QStringLiteral("new");
        row->parent = &container;
        container.children.insert(container.children.begin(), std::move(row));
        renumber(container);
        endInsertRows();
    }
    void removeTop(const QModelIndex& parent) {
        Row& container = writable(parent);
        beginRemoveRows(parent, 0, 0);
        container.children.erase(container.children.begin());
        renumber(container);
        endRemoveRows();
    }

private:
    static void renumber(Row& container) {
        for (std::size_t i = 0; i < container.children.size(); ++i) {
            container.children[i]->number = static_cast<int>(i);
        }
    }
    Row& writable(const QModelIndex& index) {
        return index.isValid() ? *static_cast<Row*>(index.internalPointer()) : m_root;
    }
    const Row& rowAt(const QModelIndex& index) const {
        return index.isValid() ? *static_cast<const Row*>(index.constInternalPointer()) : m_root;
    }

    Row m_root;
};

void showAndPaint(QWidget& widget) {
    widget.resize(240, 600);
    widget.show();
    QApplication::processEvents();
    widget.grab();
}

void paint(QWidget& widget) {
    QApplication::processEvents();
    widget.grab();
}

struct BareWindow {
    BareModel model;
    QTreeView view;
    BareWindow() {
        view.setModel(&model);
        showAndPaint(view);
    }
};

struct TreeWindow {
    NotificationCentre centre;
    ProjectNavigationController tree{&centre};
    std::shared_ptr<ProjectItem> project;
    explicit TreeWindow(const std::shared_ptr<ProjectItem>& root)
        : project(root) {
        tree.setAllItems({root});
        showAndPaint(tree);
    }
};

void loadBare(benchmark::State& state) {
    for (auto _ : state) {
        const BareWindow window;
    }
}
void loadTree(benchmark::State& state) {
    // The nodes are there before, as the store made them; the mirror and the window are measured.
    const auto project = bigProject();
    for (auto _ : state) {
        const TreeWindow window(project);
    }
}

void expandBare(benchmark::State& state) {
    BareWindow window;
    for (auto _ : state) {
        window.view.expandAll();
        paint(window.view);
        state.PauseTiming();
        window.view.collapseAll();
        paint(window.view);
        state.ResumeTiming();
    }
}
void expandTree(benchmark::State& state) {
    TreeWindow window(bigProject());
    for (auto _ : state) {
        window.tree.outlineView()->expandAll();
        paint(window.tree);
        state.PauseTiming();
        window.tree.outlineView()->collapseAll();
        paint(window.tree);
        state.ResumeTiming();
    }
}

void insertAndDeleteBare(benchmark::State& state) {
    BareWindow window;
    window.view.expandAll();
    paint(window.view);
    const QModelIndex project = window.model.index(0, 0, {});
    for (auto _ : state) {
        window.model.insertTop(project);
        paint(window.view);
        window.model.removeTop(project);
        paint(window.view);
    }
}
void insertAndDeleteTree(benchmark::State& state) {
    TreeWindow window(bigProject());
    window.tree.outlineView()->expandAll();
    paint(window.tree);
    for (auto _ : state) {
        window.tree.add(node("new", FileType::text)); // the project is selected: on top of it
        paint(window.tree);
        window.tree.delete_(1);
        window.tree.reportSelection();
        paint(window.tree);
    }
}

void refreshTree(benchmark::State& state) {
    TreeWindow window(bigProject());
    window.tree.outlineView()->expandAll();
    paint(window.tree);
    for (auto _ : state) {
        window.tree.reloadFileStatusForNavigationContent();
        QApplication::processEvents();
    }
}

BENCHMARK(loadBare)->Unit(benchmark::kMillisecond);
BENCHMARK(loadTree)->Unit(benchmark::kMillisecond);
BENCHMARK(expandBare)->Unit(benchmark::kMillisecond);
BENCHMARK(expandTree)->Unit(benchmark::kMillisecond);
BENCHMARK(insertAndDeleteBare)->Unit(benchmark::kMillisecond);
BENCHMARK(insertAndDeleteTree)->Unit(benchmark::kMillisecond);
BENCHMARK(refreshTree)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kestrel

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
