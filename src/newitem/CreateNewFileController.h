// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/NewItemController.h"

namespace kestrel {

/// Asks for a new assembly, palette or graphics file in a folder.
class CreateNewFileController final : public NewItemController {
public:
    /// `path` is the folder of the new file.
    explicit CreateNewFileController(std::string path);

protected:
    QString windowTitle() const override;
};

} // namespace kestrel
