// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/types/NewItemType.h"

#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

class AddNewItemControllerDatasource;
class AddNewItemControllerDelegate;
class CreateNewItemPageController;
class ProjectItem;

/// The new-item wizard: a page for the kind, a page for the name, and the buttons below them. It
/// makes a node and writes no files.
class AddNewItemController : public QWidget {
    Q_OBJECT

public:
    explicit AddNewItemController(QWidget* parent = nullptr);

    /// To be called once before the wizard is shown, after its fields are set: passes the kinds and
    /// the buttons to the pages and shows the first page.
    void viewWillAppear();

    /// Is told how the wizard was closed; referred to weakly.
    void setAddNewItemControllerDelegate(std::weak_ptr<AddNewItemControllerDelegate> delegate);
    void setNewItemControllerDatasource(std::weak_ptr<AddNewItemControllerDatasource> datasource);

    /// The folder to offer; empty at first.
    const std::string& path() const { return m_path; }
    void setPath(std::string path);

    /// The kinds to offer.
    const std::vector<NewItemType>& newItems() const { return m_newItems; }
    void setNewItems(std::vector<NewItemType> newItems);

    /// The result; nullptr until the last page is confirmed.
    const std::shared_ptr<ProjectItem>& newItem() const { return m_newItem; }

    const std::string& projectAbsolutePath() const { return m_projectAbsolutePath; }
    void setProjectAbsolutePath(std::string path);

    CreateNewItemPageController* pageController() const;
    QPushButton* backButton() const { return m_backButton; }
    QPushButton* nextButton() const { return m_nextButton; }
    QPushButton* cancelButton() const { return m_cancelButton; }

    /// The file name extension of a kind, without the dot; empty for a kind that has none.
    static std::string_view extensionOf(FileType type);

    /// What the Next, Back and Cancel buttons do.
    void proceedToNextAction();
    void backTrackToPreviousAction();
    void dismiss();

private:
    void buildView();
    void prepareSecondPage();
    void finish();
    void updateButtonsForCurrentState();
    void arrangeTabOrder();

    std::weak_ptr<AddNewItemControllerDelegate> m_addNewItemControllerDelegate;
    QPointer<CreateNewItemPageController> m_pageController;
    std::weak_ptr<AddNewItemControllerDatasource> m_newItemControllerDatasource;
    QPointer<QPushButton> m_backButton;
    QPointer<QPushButton> m_nextButton;
    QPointer<QPushButton> m_cancelButton;
    std::shared_ptr<ProjectItem> m_newItem;
    std::string m_path;
    std::vector<NewItemType> m_newItems;
    std::string m_projectAbsolutePath;
};

} // namespace kestrel
