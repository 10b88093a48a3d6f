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

/// The view of one row of the navigation tree: what its icon and its name look like. The tree uses
/// one for whichever row it is painting.
class ProjectNavigationItem {
public:
    /// The colours that a name can have; which shade they are follows the theme.
    enum class TextColour { black, red, darkGrey };

    /// The place of the row's icon.
    struct ImageView {
        std::optional<QIcon> image;
        double opacity = 1.0; ///< 0 to 1
    };

    /// The place of the row's name.
    struct TextField {
        QString stringValue;
        TextColour textColour = TextColour::black;
    };

    /// Asks the file system whether there is a file at a path.
    using FileExistence = std::function<bool(const std::filesystem::path& path)>;

    std::weak_ptr<ImageView> outletIconImageView;
    std::weak_ptr<TextField> outletTextField;
    std::shared_ptr<ProjectItem> currentProjectItem; ///< the project that the node belongs to
    std::shared_ptr<ProjectItem> projectItem;        ///< the node that is shown

    /// Without a query, the file system itself is asked.
    explicit ProjectNavigationItem(FileExistence fileExists = {});

    std::optional<QIcon> imageForItem() const;
    void setImageForItem(const std::optional<QIcon>& image);

    /// The name shown. Setting no name shows "Nil".
    std::optional<QString> nameForItem() const;
    void setNameForItem(const std::optional<QString>& name);

    /// Where the file of `item`, a node of `project`, lies; for a project its project file.
    static std::filesystem::path locationOf(const ProjectItem& item, const ProjectItem& project);

    /// Asks whether the node's file exists and colours the name accordingly. Nothing happens unless
    /// both the node and its project are set. Gives the answer, if one was asked for.
    std::optional<bool> checkFile();

    /// Black when the file was found, else red.
    void fileNotFound(bool didFindFile);

    /// Full icon and black name, or half faded icon and dark grey name.
    void isItemUpToDateWithHardDrive(bool upToDate);

private:
    void setTextColour(TextColour colour);

    FileExistence m_fileExists;
};

} // namespace kestrel
