// SPDX-License-Identifier: MIT
#pragma once

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

/// The wizard's second page: asks for the name of the new item and shows where it will lie.
class CreateNewItemAtPathController : public QWidget {
    Q_OBJECT

public:
    explicit CreateNewItemAtPathController(QWidget* parent = nullptr);

    /// To be called when the page is shown: begins afresh with the node's location and an empty
    /// name, and takes the keyboard focus to the name.
    void viewDidAppear();

    void setBackButton(QPushButton* button) { m_backButton = button; }
    void setNextButton(QPushButton* button) { m_nextButton = button; }

    /// The node that is named here, edited in place with every keystroke.
    const std::shared_ptr<ProjectItem>& newItem() const { return m_newItem; }
    void setNewItem(std::shared_ptr<ProjectItem> newItem);

    /// The folder in which the item starts; nothing before the page has been shown with a node.
    const std::optional<std::filesystem::path>& rootPath() const { return m_rootPath; }

    /// `sender`, a text field, holds another text. Logs "Errrrr" when it is none, or when the
    /// location or its field is missing; the node stays as it is then.
    void controlTextDidChange(QObject* sender);

    /// Next is possible when the name has at least one character.
    void updatedButtons();

    QLineEdit* fileNameTextField() const { return m_fileNameTextField; }
    QLineEdit* filePathTextField() const { return m_filePathTextField; }
    /// Says that nothing can be made under this name, or what becomes of a file or folder of this
    /// name that is there already; else empty.
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
    QPointer<QLineEdit> m_filePathTextField;
    QPointer<QLabel> m_existingItemLabel;
};

} // namespace kestrel
