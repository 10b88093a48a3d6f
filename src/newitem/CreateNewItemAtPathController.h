// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/PathField.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <filesystem>
#include <memory>
#include <optional>

namespace kestrel {

class ProjectItem;

/// The wizard's second page: asks for the name of the new item and shows its path.
class CreateNewItemAtPathController : public QWidget {
    Q_OBJECT

public:
    explicit CreateNewItemAtPathController(QWidget* parent = nullptr);

    /// To be called when the page is shown: resets it to the node's path and an empty name, and
    /// gives the name the keyboard focus.
    void viewDidAppear();

    void setBackButton(QPushButton* button) { m_backButton = button; }
    void setNextButton(QPushButton* button) { m_nextButton = button; }

    /// The node that gets the name, with every keystroke.
    const std::shared_ptr<ProjectItem>& newItem() const { return m_newItem; }
    void setNewItem(std::shared_ptr<ProjectItem> newItem);

    /// The folder that was offered; nothing before the page has been shown with a node.
    const std::optional<std::filesystem::path>& rootPath() const { return m_rootPath; }

    /// Takes over the text of `sender`, one of the two fields. Logs "Errrrr" and changes nothing
    /// when it is not a text field, or when rootPath() or the path field is missing.
    void controlTextDidChange(QObject* sender);

    /// Enables Next if the name is not empty.
    void updatedButtons();

    QLineEdit* fileNameTextField() const { return m_fileNameTextField; }
    QLineEdit* filePathTextField() const { return m_filePathTextField; }
    /// Tells why the name is impossible, or what will happen to an existing file or folder with
    /// this name; else empty.
    QLabel* existingItemLabel() const { return m_existingItemLabel; }

private:
    void buildView();
    void show(const std::filesystem::path& location);
    void updateExistingItemLabel();
    QString textOnExistingItem() const;

    std::optional<std::filesystem::path> m_rootPath;
    std::shared_ptr<ProjectItem> m_newItem;
    QPointer<QPushButton> m_backButton;
    QPointer<QPushButton> m_nextButton;
    QPointer<QLineEdit> m_fileNameTextField;
    QPointer<PathField> m_filePathTextField;
    QPointer<QLabel> m_existingItemLabel;
};

} // namespace kestrel
