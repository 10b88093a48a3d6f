// SPDX-License-Identifier: MIT
#include "build/AssemblerLocation.h"

#include "model/Paths.h"

#include <QCoreApplication>

#include <string>
#include <system_error>

namespace kestrel {

namespace {

std::filesystem::path ownFolder() {
    return QCoreApplication::applicationDirPath().toStdString();
}

std::optional<std::filesystem::path> find(const std::string& program,
                                          const std::filesystem::path& programFolder) {
    for (const std::string& place : {program, "../libexec/kestrel/" + program}) {
        auto candidate = joined(programFolder, place);
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::filesystem::path> findAssembler() {
    return findAssembler(ownFolder());
}

std::optional<std::filesystem::path> findAssembler(const std::filesystem::path& programFolder) {
    return find("NESasm", programFolder);
}

std::optional<std::filesystem::path> findFactsProgram() {
    return find("kestrel-facts", ownFolder());
}

} // namespace kestrel
