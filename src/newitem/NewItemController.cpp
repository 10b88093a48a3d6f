// SPDX-License-Identifier: MIT
#include "newitem/NewItemController.h"

#include "model/ProjectItem.h"
#include "newitem/AddNewItemController.h"
#include "widgets/Sheet.h"

#include <utility>

namespace kestrel {

NewItemController::NewItemController(std::string path, std::vector<NewItemType> newItems)
    : m_path(std::move(path))
    , m_newItems(std::move(newItems))
    , m_self(this, [](AddNewItemControllerDelegate*) {}) {}

NewItemController::~NewItemController() {
    endSheet();
    discardWindow();
}

void NewItemController::prompt(QWidget* window, CompletionHandler completionHandler) {
    const bool shown = m_windowController && m_windowController->isVisible();
    if (shown || Sheet::isOpenOn(window)) {
        completionHandler(nullptr, std::nullopt);
        return;
    }
    discardWindow();
    m_parentWindow = window;
    instantiateWindow();
    if (m_parentWindow == nullptr) {
        return;
    }
    m_newItemController->viewWillAppear();
    m_windowController->begin([this, handler = std::move(completionHandler)] {
        const std::shared_ptr<ProjectItem> newItem =
            m_newItemController ? m_newItemController->newItem() : nullptr;
        m_newItemController.clear();
        m_windowController.clear();
        // Last: the handler may destroy this request.
        handler(newItem, std::nullopt);
    });
}

void NewItemController::instantiateWindow() {
    m_windowController = new Sheet(m_parentWindow);
    m_windowController->setObjectName(QStringLiteral("NewItemWindow"));
    m_windowController->setWindowTitle(windowTitle());
    m_windowController->setAccessibleName(windowTitle());
    m_newItemController = new AddNewItemController(m_windowController);
    m_windowController->setContent(m_newItemController);
    m_newItemController->setPath(m_path);
    m_newItemController->setAddNewItemControllerDelegate(m_self);
    m_newItemController->setNewItems(m_newItems);
}

void NewItemController::discardWindow() {
    if (m_windowController) {
        m_windowController->deleteLater();
    }
    m_windowController.clear();
    m_newItemController.clear();
}

void NewItemController::endSheet() {
    if (m_parentWindow && m_windowController) {
        m_windowController->end();
    }
}

void NewItemController::didFinish() {
    endSheet();
}

void NewItemController::didCancel() {
    endSheet();
}

AddNewItemController* NewItemController::newItemController() const {
    return m_newItemController;
}

Sheet* NewItemController::windowController() const {
    return m_windowController;
}

} // namespace kestrel
