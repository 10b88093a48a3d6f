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

/// A request for a new item, with the kinds and the folder to offer. Shows the wizard as a sheet
/// and passes on the node that it makes.
class NewItemController : public AddNewItemControllerDelegate {
public:
    /// Gets the new node, or nullptr when the wizard was cancelled; never an error.
    using CompletionHandler =
        std::function<void(std::shared_ptr<ProjectItem>, std::optional<ErrorValue>)>;

    /// Closes an open sheet, so that the handler is called without a node.
    ~NewItemController() override;

    /// Shows a new wizard as a sheet on `window` and calls `completionHandler` exactly once when
    /// the sheet closes. While a sheet is open on the window, or that of this request elsewhere,
    /// shows nothing and calls the handler at once, without a node. Without a window the wizard is
    /// created but not shown, and the handler is never called.
    void prompt(QWidget* window, CompletionHandler completionHandler);

    void didFinish() override;
    void didCancel() override;

    /// The wizard and its window, while they are shown.
    AddNewItemController* newItemController() const;
    Sheet* windowController() const;
    /// The window on which the sheet was last shown.
    QWidget* parentWindow() const { return m_parentWindow; }
    /// The folder to offer.
    const std::string& path() const { return m_path; }
    /// The kinds to offer, in this order; the first is preselected.
    const std::vector<NewItemType>& newItems() const { return m_newItems; }

protected:
    NewItemController(std::string path, std::vector<NewItemType> newItems);

    /// The title of the sheet's window.
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
    /// Owns nothing; lets the wizard refer to this request weakly.
    std::shared_ptr<AddNewItemControllerDelegate> m_self;
};

} // namespace kestrel
