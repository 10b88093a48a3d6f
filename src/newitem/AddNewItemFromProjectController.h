// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <QLineEdit>
#include <QPushButton>

#include <functional>

namespace kestrel {

class Sheet;

/// Lets a person pick one file of one project: a navigation tree whose only root is that project,
/// with the same shared nodes, but without context menu, Delete key and notifications. What it
/// picked is in selectedFiles() when its sheet is over.
class AddNewItemFromProjectController final : public ProjectNavigationController {
    Q_OBJECT

public:
    /// Gets the picked file; an empty list when none was picked.
    using CompletionHandler = std::function<void(const ProjectItems&)>;

    explicit AddNewItemFromProjectController(QWidget* parent = nullptr);

    /// Opens a fresh picker of `project` as a sheet on `window` and calls `completionHandler`
    /// exactly once when it is over, however it ends. The picker goes with its sheet. Gives
    /// nothing, and calls the handler at once, while another sheet is open on the window.
    static AddNewItemFromProjectController* openSheet(std::shared_ptr<ProjectItem> project,
                                                      QWidget* window,
                                                      CompletionHandler completionHandler);

    /// Makes this the one project that is shown, expanded whole.
    void setProject(std::shared_ptr<ProjectItem> project);

    /// The sheet that the picker stands in, and the window that the sheet is shown on.
    Sheet* currentWindow() const;
    void setCurrentWindow(Sheet* window);
    QWidget* parentWindow() const { return m_parentWindow; }
    void setParentWindow(QWidget* window) { m_parentWindow = window; }

    /// The one picked file, empty before; set by addNewItem() alone.
    const ProjectItems& selectedFiles() const { return m_selectedFiles; }

    /// Picks the selected file and ends the sheet; nothing when no file is selected.
    void addNewItem();
    /// Ends the sheet and picks nothing.
    void cancel();

    QLineEdit* filterTextField() const { return m_filterTextField; }
    QPushButton* addButton() const { return m_addButton; }
    QPushButton* cancelButton() const { return m_cancelButton; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildView();
    void applyFilter(const QString& text);
    void updateButtons();
    void endSheet();

    QPointer<Sheet> m_currentWindow;
    QPointer<QWidget> m_parentWindow;
    ProjectItems m_selectedFiles;
    QLineEdit* m_filterTextField;
    QPushButton* m_addButton;
    QPushButton* m_cancelButton;
};

} // namespace kestrel
