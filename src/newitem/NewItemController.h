// SPDX-License-Identifier: MIT
#pragma once

#include "model/ErrorValue.h"
#include "newitem/AddNewItemControllerDelegate.h"
#include "newitem/types/NewItemType.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

class AddNewItemController;
class ProjectItem;
class Sheet;

/// A request for a new item: the kinds that are offered and the folder in which the item starts.
/// It shows the wizard as a sheet and hands on the node that the wizard built.
class NewItemController : public AddNewItemControllerDelegate {
public:
    /// Gets the new node, or nothing when the wizard was given up; the error is always absent.
    using CompletionHandler =
        std::function<void(std::shared_ptr<ProjectItem>, std::optional<ErrorValue>)>;

    /// Ends the sheet if it is still open; its handler is called, without a node.
    ~NewItemController() override;

    /// Shows a fresh wizard as a sheet on `window` and calls `completionHandler` exactly once when
    /// the sheet is over, however it ends. Without a window the wizard is made but not shown, and
    /// nothing is ever reported. While another sheet is open on the window, or this request's own
    /// one is, nothing is shown and the handler is called at once, without a node.
    void prompt(QWidget* window, CompletionHandler completionHandler);

    void didFinish() override;
    void didCancel() override;

    /// The wizard and the window it stands in, while they are shown.
    AddNewItemController* newItemController() const;
    Sheet* windowController() const;
    /// The window that the sheet was last shown on.
    QWidget* parentWindow() const { return m_parentWindow; }
    /// The folder that is offered as starting location.
    const std::string& path() const { return m_path; }
    /// The kinds that are offered, in this order; the first is chosen to begin with.
    const std::vector<NewItemType>& newItems() const { return m_newItems; }

protected:
    NewItemController(std::string path, std::vector<NewItemType> newItems);

    /// What the sheet's window is called.
    virtual QString windowTitle() const = 0;

private:
    void instantiateWindow();
    void discardWindow();
    void endSheet();

    QPointer<AddNewItemController> m_newItemController;
    QPointer<Sheet> m_windowController;
    QPointer<QWidget> m_parentWindow;
    std::string m_path;
    std::vector<NewItemType> m_newItems;
    /// Lets the wizard refer to this request without keeping it alive, whoever owns the request.
    std::shared_ptr<AddNewItemControllerDelegate> m_self;
};

} // namespace kestrel
