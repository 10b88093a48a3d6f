// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <QLineEdit>
#include <QPushButton>

#include <functional>

namespace kestrel {

class Sheet;

/// Lets the user pick one file of one project: a navigation tree with that project as its only
/// root, sharing its nodes, without context menu, Delete key and notifications. selectedFiles() has
/// the picked file when the sheet has closed.
class AddNewItemFromProjectController final : public ProjectNavigationController {
    Q_OBJECT

public:
    /// Gets the picked file; an empty list when the picker was cancelled.
    using CompletionHandler = std::function<void(const ProjectItems&)>;

    explicit AddNewItemFromProjectController(QWidget* parent = nullptr);

    /// Opens a new picker of `project` as a sheet on `window` and calls `completionHandler` exactly
    /// once when it closes. The sheet owns the picker. While another sheet is open on the window,
    /// calls the handler at once and returns nullptr.
    static AddNewItemFromProjectController* openSheet(std::shared_ptr<ProjectItem> project,
                                                      QWidget* window,
                                                      CompletionHandler completionHandler);

    /// Shows only this project, fully expanded.
    void setProject(std::shared_ptr<ProjectItem> project);

    /// The picker's sheet, and the window on which it is shown.
    Sheet* currentWindow() const;
    void setCurrentWindow(Sheet* window);
    QWidget* parentWindow() const { return m_parentWindow; }
    void setParentWindow(QWidget* window) { m_parentWindow = window; }

    /// The picked file; empty until addNewItem().
    const ProjectItems& selectedFiles() const { return m_selectedFiles; }

    /// Picks the selected file and closes the sheet; does nothing when no file is selected.
    void addNewItem();
    /// Closes the sheet and picks nothing.
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
