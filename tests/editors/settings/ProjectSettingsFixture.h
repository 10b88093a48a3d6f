// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/BuildFileList.h"
#include "editors/settings/BuildFileListModel.h"
#include "editors/settings/BuildFileTable.h"
#include "editors/settings/EmulatorField.h"
#include "editors/settings/OutputField.h"
#include "editors/settings/ProjectSettingCell.h"
#include "navigation/container/ContainerFixture.h"
#include "newitem/AddNewItemFromProjectController.h"

#include <csignal>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace kestrel::test {

/// No file can grow as long as this lives.
class FullDisk {
public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit none{0, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_former{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

/// The real settings pane in the real container, with the project "Demo": a listed
/// main.asm, an imported file without a kind, and one in a group.
class ProjectSettingsTest : public ContainerTest {
protected:
    void SetUp() override {
        demo = makeProject("Demo", children());
        NESBuildSettings settings(demo);
        settings.addNewFile(demo->subItems().front());
        start();
        demo = root();
        click(demo);
        ASSERT_EQ(shown(), &pane());
    }

    ProjectItems children() const {
        return {fileOf("Demo", "main.asm", FileType::text),
                fileOf("Demo", "tiles.bin", FileType::unknown),
                group("Group", {fileOf("Demo", "more.asm", FileType::unknown)})};
    }

    /// What the next start of the program would show.
    void restart() {
        start();
        demo = find("Demo");
        click(demo);
    }

    ProjectSettingsController& pane() const { return *panes()->projectSettings; }

    static void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    /// Adds through plus button and picker, by mouse.
    void addTo(const BuildFileList* list, const std::string& name) {
        press(list->addButton());
        AddNewItemFromProjectController* picker = pane().addNewItemFromProjectController();
        ASSERT_NE(picker, nullptr);
        OutlineView& rows = *picker->outlineView();
        const QModelIndex index = picker->model()->indexOf(find(name));
        ASSERT_TRUE(index.isValid()) << name;
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualRect(index).center());
        press(picker->addButton());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_EQ(sheet(), nullptr);
    }

    static void clickRow(const BuildFileList* list, int row) {
        BuildFileTable& table = *list->table();
        const QRect place = table.visualRect(list->model()->index(row));
        ASSERT_TRUE(place.isValid());
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place.center());
        ASSERT_EQ(table.selectedRow(), row);
    }

    /// The names in a list as they are on the screen.
    static std::vector<std::string> rows(const BuildFileList* list) {
        std::vector<std::string> result;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            result.push_back(list->model()->index(row).data().toString().toStdString());
        }
        return result;
    }

    Node demo;
};

} // namespace kestrel::test
