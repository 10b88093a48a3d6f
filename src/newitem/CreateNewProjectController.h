// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/NewItemController.h"

namespace kestrel {

/// Asks for a new project in a folder of projects.
class CreateNewProjectController final : public NewItemController {
public:
    /// `path`: the folder in which the project's own folder will lie.
    explicit CreateNewProjectController(std::string path);

protected:
    QString windowTitle() const override;
};

} // namespace kestrel
