// SPDX-License-Identifier: MIT
#include "tools/SourceMap.h"

#include "build/SourceLocation.h"
#include "model/Paths.h"

#include <filesystem>
#include <system_error>

namespace kestrel {

namespace {

/// A line for each file that the build copies. Those whose path does not fit into a line keep the
/// name of their copy.
std::string linesOf(BuildSettingsConfiguration& settings) {
    std::string lines;
    const auto& named = settings.projectPath();
    std::error_code error;
    const auto base = std::filesystem::absolute(named.value_or(""), error);
    if (error || !named) {
        return lines;
    }
    for (const ProjectItems* list : settings.contents().fileLists()) {
        for (const auto& entry : *list) {
            const auto source = sourceFile(*entry, base);
            if (!source) {
                continue;
            }
            const std::string copy = pathText(joined(joined(base, "tmp"), entry->itemName()));
            const std::string original = pathText(*source);
            if ((copy + original).find_first_of("\t\n") == std::string::npos) {
                lines.append(copy).append("\t").append(original).append("\n");
            }
        }
    }
    return lines;
}

} // namespace

SourceMap::SourceMap(BuildSettingsConfiguration& settings) {
    const std::string lines = linesOf(settings);
    const auto size = static_cast<qint64>(lines.size());
    m_isWritten = m_file.open() && m_file.write(lines.data(), size) == size && m_file.flush();
}

std::vector<std::string> SourceMap::arguments() const {
    if (!m_isWritten) {
        return {};
    }
    return {"--source-map", m_file.fileName().toStdString()};
}

} // namespace kestrel
