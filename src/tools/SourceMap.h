// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildSettingsConfiguration.h"

#include <QTemporaryFile>

#include <string>
#include <vector>

namespace kestrel {

/// Tells the assembler of which files of the project its sources are copies, so that debuggers show
/// those that somebody edits. The file that says it lasts as long as this.
class SourceMap {
public:
    explicit SourceMap(BuildSettingsConfiguration& settings);

    /// The assembler's arguments that name the file; none when it could not be written.
    std::vector<std::string> arguments() const;

private:
    QTemporaryFile m_file;
    bool m_isWritten = false;
};

} // namespace kestrel
