// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/NewItemController.h"

namespace kestrel {

/// Asks for a new project.
class CreateNewProjectController final : public NewItemController {
public:
    /// The project's own folder will be created in the folder `path`.
    explicit CreateNewProjectController(std::string path);

protected:
    QString windowTitle() const override;
};

} // namespace kestrel
