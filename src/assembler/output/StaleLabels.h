// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/LabelFiles.h"

#include <functional>
#include <string>
#include <vector>

namespace nesasm {

/// Removes the label files that an earlier run wrote beside the image at `output`, but for those
/// that this run has `written` and those that it has read. Debuggers load them unasked, and would
/// show the names of an older program. Only files that carry the mark of NESasm are removed.
void removeStaleLabels(const std::string& output, const std::vector<SideFile>& written,
                       const std::function<bool(const std::string&)>& isRead);

} // namespace nesasm
