// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QIcon>
#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace kestrel {

/// The view of a row of the navigation tree: its icon, its name and their appearance. The tree has
/// one, which it sets up for each row that it paints.
class ProjectNavigationItem {
public:
    /// The colours of a name; their shades depend on the theme.
    enum class TextColour { black, red, darkGrey };

    /// The row's icon.
    struct ImageView {
        std::optional<QIcon> image;
        double opacity = 1.0; ///< 0 to 1
    };

    /// The row's name.
    struct TextField {
        QString stringValue;
        TextColour textColour = TextColour::black;
    };

    /// Checks whether a file exists.
    using FileExistence = std::function<bool(const std::filesystem::path& path)>;

    std::weak_ptr<ImageView> outletIconImageView;
    std::weak_ptr<TextField> outletTextField;
    std::shared_ptr<ProjectItem> currentProjectItem; ///< the project that the node belongs to
    std::shared_ptr<ProjectItem> projectItem;        ///< the node that is shown

    /// Checks the file system when `fileExists` is empty.
    explicit ProjectNavigationItem(FileExistence fileExists = {});

    std::optional<QIcon> imageForItem() const;
    void setImageForItem(const std::optional<QIcon>& image);

    /// The name that is shown. Setting nothing shows "Nil".
    std::optional<QString> nameForItem() const;
    void setNameForItem(const std::optional<QString>& name);

    /// The path of the file of `item`, a node of `project`; for a project its project file.
    static std::filesystem::path locationOf(const ProjectItem& item, const ProjectItem& project);

    /// Checks whether the node's file exists, colours the name and returns the result. Does nothing
    /// and returns nothing unless both the node and its project are set.
    std::optional<bool> checkFile();

    /// Black when the file was found, else red.
    void fileNotFound(bool didFindFile);

    /// True: opaque icon and black name. False: half transparent icon and dark grey name.
    void isItemUpToDateWithHardDrive(bool upToDate);

private:
    void setTextColour(TextColour colour);

    FileExistence m_fileExists;
};

} // namespace kestrel
