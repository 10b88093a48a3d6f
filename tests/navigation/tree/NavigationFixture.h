// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectNavigationSettingItem.h"
#include "navigation/tree/Menu.h"
#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "navigation/tree/ProjectNavigationModel.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLayout>
#include <QScrollBar>
#include <QTest>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {

using Node = std::shared_ptr<ProjectItem>;

inline Node makeNode(std::string name, FileType type, const ProjectItems& children = {},
                     std::filesystem::path path = "/nowhere") {
    auto node = std::make_shared<ProjectNavigationSettingItem>(std::move(name), std::move(path),
                                                               type, ProjectType::nes);
    node->setItemPathType(type == FileType::group ? FilePathType::noPath : FilePathType::absolute);
    node->subItems() = children;
    for (const Node& child : children) {
        if (child) {
            child->setParent(node);
        }
    }
    return node;
}

inline Node project(std::string name, const ProjectItems& children = {}) {
    return makeNode(std::move(name), FileType::project, children);
}

inline Node group(std::string name, const ProjectItems& children = {}) {
    return makeNode(std::move(name), FileType::group, children);
}

inline Node text(std::string name) {
    return makeNode(std::move(name), FileType::text);
}

inline std::vector<std::string> names(const ProjectItems& items) {
    std::vector<std::string> result;
    for (const Node& item : items) {
        result.push_back(item->itemName());
    }
    return result;
}

/// Remembers what it was told, and which project was the current one at that moment.
struct RecordingDelegate final : ProjectNavigationDelegate {
    const ProjectNavigationController* tree = nullptr;
    ProjectItems told;
    ProjectItems projects;
    ProjectItems items;

    void projectNavigation(const Node& itemSelected) override {
        told.push_back(itemSelected);
        if (tree != nullptr) {
            projects.push_back(tree->currentlySelectedProject());
            items.push_back(tree->currentlySelectedItem());
        }
    }
};

/// The real tree in a window that nobody sees, driven by clicks and keys.
class NavigationTest : public testing::Test {
protected:
    NavigationTest() {
        delegate.tree = tree.get();
        tree->setProjectNavigationDelegate(&delegate);
        // The model must keep to Qt's rules in every test.
        tester = std::make_unique<QAbstractItemModelTester>(
            tree->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    void show(const ProjectItems& roots) {
        tree->setAllItems(roots);
        tree->resize(240, 400);
        tree->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(tree.get()));
        view().setFocus();
        QApplication::processEvents();
    }

    OutlineView& view() const { return *tree->outlineView(); }
    ProjectNavigationModel& model() const { return *tree->model(); }
    QModelIndex index(const Node& node) const { return model().indexOf(node); }

    QPoint centre(const Node& node) const { return view().visualRect(index(node)).center(); }

    /// The middle of the row's disclosure triangle, or of where it would be.
    QPoint triangle(const Node& node) const {
        const QRect row = view().visualRect(index(node));
        return {row.left() - view().indentation() / 2, row.center().y()};
    }

    void click(const QPoint& position, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier) const {
        QTest::mouseClick(view().viewport(), button, keys, position);
    }

    void click(const Node& node) const {
        ASSERT_TRUE(view().visualRect(index(node)).isValid()) << node->itemName();
        click(centre(node));
    }

    void expand(const Node& node) const {
        view().expand(index(node));
        ASSERT_TRUE(view().isExpanded(index(node)));
    }

    /// The names of the visible rows from the top, indented by two spaces a level.
    std::vector<std::string> shown() const {
        std::vector<std::string> rows;
        for (QModelIndex at = model().index(0, 0); at.isValid(); at = view().indexBelow(at)) {
            std::string row;
            for (QModelIndex above = at.parent(); above.isValid(); above = above.parent()) {
                row += "  ";
            }
            rows.push_back(row + at.data().toString().toStdString());
        }
        return rows;
    }

    NotificationCentre centreOfNotifications;
    std::unique_ptr<ProjectNavigationController> tree =
        std::make_unique<ProjectNavigationController>(&centreOfNotifications);
    RecordingDelegate delegate;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

} // namespace kestrel::test
