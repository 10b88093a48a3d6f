// SPDX-License-Identifier: MIT
#include "newitem/AddNewItemController.h"

#include "model/ProjectNavigationSettingItem.h"
#include "newitem/AddNewItemControllerDatasource.h"
#include "newitem/AddNewItemControllerDelegate.h"
#include "newitem/CreateNewItemAtPathController.h"
#include "newitem/CreateNewItemController.h"
#include "newitem/CreateNewItemPageController.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

AddNewItemController::AddNewItemController(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("AddNewItemController"));
    buildView();
    connect(m_cancelButton, &QPushButton::clicked, this, &AddNewItemController::dismiss);
    connect(m_backButton, &QPushButton::clicked, this,
            &AddNewItemController::backTrackToPreviousAction);
    connect(m_nextButton, &QPushButton::clicked, this, &AddNewItemController::proceedToNextAction);
    m_backButton->setEnabled(false);
}

void AddNewItemController::buildView() {
    m_pageController = new CreateNewItemPageController(this);
    const auto makeButton = [this](const QString& text, const QString& name, const QString& says) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(name);
        button->setAccessibleName(says);
        button->setAutoDefault(true); // with the focus it gets Return; without, Next does
        return button;
    };
    m_cancelButton = makeButton(QStringLiteral("Cancel"), QStringLiteral("cancelButton"),
                                QStringLiteral("Cancel"));
    m_backButton =
        makeButton(QStringLiteral("&Back"), QStringLiteral("backButton"), QStringLiteral("Back"));
    m_nextButton =
        makeButton(QStringLiteral("Ne&xt"), QStringLiteral("nextButton"), QStringLiteral("Next"));
    m_nextButton->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cancelButton);
    buttons->addStretch(1);
    buttons->addWidget(m_backButton);
    buttons->addWidget(m_nextButton);
    auto* box = new QVBoxLayout(this);
    box->addWidget(m_pageController, 1);
    box->addLayout(buttons);
}

void AddNewItemController::viewWillAppear() {
    if (!m_pageController) {
        return;
    }
    m_pageController->setNewItems(m_newItems);
    m_pageController->setBackButton(m_backButton);
    m_pageController->setNextButton(m_nextButton);
    m_pageController->viewWillAppear();
    updateButtonsForCurrentState();
    arrangeTabOrder();
}

std::string_view AddNewItemController::extensionOf(FileType type) {
    switch (type) {
    case FileType::project:
        return "kst";
    case FileType::text:
        return "asm";
    case FileType::palette:
        return "pal";
    case FileType::graphics:
        return "chr";
    case FileType::group:
    case FileType::empty:
    case FileType::unknown:
        break;
    }
    return "";
}

void AddNewItemController::proceedToNextAction() {
    if (!m_pageController || m_pageController->selectedViewController() == nullptr) {
        return;
    }
    const int index = m_pageController->selectedIndex();
    if (index + 1 >= m_pageController->arrangedObjects().size()) {
        finish();
        return;
    }
    const QWidget* left = m_pageController->selectedViewController();
    m_pageController->navigateTo(index + 1);
    if (left == m_pageController->createNewItemController() &&
        m_pageController->selectedViewController() ==
            m_pageController->createNewItemPathController()) {
        prepareSecondPage();
    }
    m_pageController->completeTransition();
    if (m_newItemControllerDatasource.expired()) {
        updateButtonsForCurrentState();
    }
    arrangeTabOrder();
}

void AddNewItemController::prepareSecondPage() {
    const int chosen = m_pageController->createNewItemController()->selectedItem();
    std::shared_ptr<ProjectItem> node;
    if (chosen >= 0 && static_cast<std::size_t>(chosen) < m_newItems.size()) {
        const FileType kind = m_newItems[static_cast<std::size_t>(chosen)].fileType;
        const std::string extension(extensionOf(kind));
        node = std::make_shared<ProjectNavigationSettingItem>(
            "InsertNameHere." + extension, std::filesystem::path(m_path),
            extension.empty() ? FileType::unknown : kind, ProjectType::nes);
        node->setItemPathType(FilePathType::relative);
    }
    m_pageController->createNewItemPathController()->setNewItem(std::move(node));
}

void AddNewItemController::finish() {
    const CreateNewItemAtPathController* page = m_pageController->createNewItemPathController();
    if (m_pageController->selectedViewController() != page) {
        return;
    }
    m_newItem = page->newItem();
    if (const auto delegate = m_addNewItemControllerDelegate.lock()) {
        delegate->didFinish();
    }
}

void AddNewItemController::backTrackToPreviousAction() {
    if (!m_pageController) {
        return;
    }
    if (m_pageController->selectedIndex() > 0) {
        m_pageController->navigateTo(m_pageController->selectedIndex() - 1);
        m_pageController->completeTransition();
    }
    updateButtonsForCurrentState();
}

void AddNewItemController::dismiss() {
    if (const auto delegate = m_addNewItemControllerDelegate.lock()) {
        delegate->didCancel();
    }
}

void AddNewItemController::updateButtonsForCurrentState() {
    if (!m_pageController || !m_backButton) {
        return;
    }
    const int index = m_pageController->selectedIndex();
    m_backButton->setEnabled(index != 0);
    if (m_nextButton) {
        const bool isLast = index + 1 >= m_pageController->arrangedObjects().size();
        m_nextButton->setText(isLast ? QStringLiteral("C&reate") : QStringLiteral("Ne&xt"));
        m_nextButton->setAccessibleName(isLast ? QStringLiteral("Create") : QStringLiteral("Next"));
    }
}

void AddNewItemController::arrangeTabOrder() {
    QWidget* last = nullptr;
    const auto append = [&last](QWidget* widget) {
        if (last != nullptr && widget != nullptr) {
            QWidget::setTabOrder(last, widget);
        }
        last = widget != nullptr ? widget : last;
    };
    if (const auto* kinds = m_pageController->createNewItemController()) {
        append(kinds->collectionView());
    }
    if (const auto* names = m_pageController->createNewItemPathController()) {
        append(names->fileNameTextField());
        append(names->filePathTextField());
    }
    append(m_cancelButton);
    append(m_backButton);
    append(m_nextButton);
}

void AddNewItemController::setAddNewItemControllerDelegate(
    std::weak_ptr<AddNewItemControllerDelegate> delegate) {
    m_addNewItemControllerDelegate = std::move(delegate);
}

void AddNewItemController::setNewItemControllerDatasource(
    std::weak_ptr<AddNewItemControllerDatasource> datasource) {
    m_newItemControllerDatasource = std::move(datasource);
}

void AddNewItemController::setPath(std::string path) {
    m_path = std::move(path);
}

void AddNewItemController::setNewItems(std::vector<NewItemType> newItems) {
    m_newItems = std::move(newItems);
}

void AddNewItemController::setProjectAbsolutePath(std::string path) {
    m_projectAbsolutePath = std::move(path);
}

CreateNewItemPageController* AddNewItemController::pageController() const {
    return m_pageController;
}

} // namespace kestrel
