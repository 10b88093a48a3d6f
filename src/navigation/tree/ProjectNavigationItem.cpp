// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectNavigationItem.h"

#include "model/FileProcessor.h"
#include "model/Paths.h"

#include <utility>

namespace kestrel {

ProjectNavigationItem::ProjectNavigationItem(FileExistence fileExists)
    : m_fileExists(fileExists ? std::move(fileExists) : FileExistence(existsAt)) {}

std::optional<QIcon> ProjectNavigationItem::imageForItem() const {
    const std::shared_ptr<ImageView> view = outletIconImageView.lock();
    return view ? view->image : std::nullopt;
}

void ProjectNavigationItem::setImageForItem(const std::optional<QIcon>& image) {
    if (const std::shared_ptr<ImageView> view = outletIconImageView.lock()) {
        view->image = image;
    }
}

std::optional<QString> ProjectNavigationItem::nameForItem() const {
    const std::shared_ptr<TextField> field = outletTextField.lock();
    return field ? std::optional(field->stringValue) : std::nullopt;
}

void ProjectNavigationItem::setNameForItem(const std::optional<QString>& name) {
    if (const std::shared_ptr<TextField> field = outletTextField.lock()) {
        field->stringValue = name.value_or(QStringLiteral("Nil"));
    }
}

std::filesystem::path ProjectNavigationItem::locationOf(const ProjectItem& item,
                                                        const ProjectItem& project) {
    std::filesystem::path folder = item.itemPath();
    if (item.itemPathType() != FilePathType::absolute) {
        folder = joined(project.itemPath(), pathText(folder));
    }
    std::string name = item.itemName();
    if (item.itemFileType() == FileType::project) {
        name += ProjectFileExtension;
    }
    return joined(folder, name);
}

std::optional<bool> ProjectNavigationItem::checkFile() {
    if (!currentProjectItem || !projectItem) {
        return std::nullopt;
    }
    const bool found = m_fileExists(locationOf(*projectItem, *currentProjectItem));
    fileNotFound(found);
    return found;
}

void ProjectNavigationItem::fileNotFound(bool didFindFile) {
    setTextColour(didFindFile ? TextColour::black : TextColour::red);
}

void ProjectNavigationItem::isItemUpToDateWithHardDrive(bool upToDate) {
    if (const std::shared_ptr<ImageView> view = outletIconImageView.lock()) {
        view->opacity = upToDate ? 1.0 : 0.5;
    }
    setTextColour(upToDate ? TextColour::black : TextColour::darkGrey);
}

void ProjectNavigationItem::setTextColour(TextColour colour) {
    if (const std::shared_ptr<TextField> field = outletTextField.lock()) {
        field->textColour = colour;
    }
}

} // namespace kestrel
