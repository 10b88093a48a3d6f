// SPDX-License-Identifier: MIT
#include "build/AssemblerLocation.h"

#include "model/Paths.h"

#include <QCoreApplication>

#include <system_error>

namespace kestrel {

std::optional<std::filesystem::path> findAssembler() {
    return findAssembler(
        std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()));
}

std::optional<std::filesystem::path> findAssembler(const std::filesystem::path& programFolder) {
    for (const char* place : {"NESasm", "../libexec/kestrel/NESasm"}) {
        auto candidate = joined(programFolder, place);
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    return std::nullopt;
}

} // namespace kestrel
