// SPDX-License-Identifier: MIT
#include "model/FileType.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrel {

namespace {

constexpr std::array<std::string_view, 7> FileTypeTexts = {
    "project", "group", "empty", "unknown_file_type", "text", "palette", "graphics"};

constexpr std::array<std::string_view, 3> FilePathTypeTexts = {"no_path", "absolute_path",
                                                               "relative_path_from_project"};

template<typename Kind, std::size_t Count>
std::optional<Kind> kindFrom(const std::array<std::string_view, Count>& texts,
                             std::string_view raw) {
    const auto* const found = std::find(texts.begin(), texts.end(), raw);
    if (found == texts.end()) {
        return std::nullopt;
    }
    return static_cast<Kind>(found - texts.begin());
}

} // namespace

std::string_view rawValue(FileType type) {
    return FileTypeTexts.at(static_cast<std::size_t>(type));
}

std::string_view rawValue(FilePathType type) {
    return FilePathTypeTexts.at(static_cast<std::size_t>(type));
}

std::string_view rawValue(ProjectType /*type*/) {
    return "nes";
}

std::optional<FileType> fileTypeFrom(std::string_view raw) {
    return kindFrom<FileType>(FileTypeTexts, raw);
}

std::optional<FilePathType> filePathTypeFrom(std::string_view raw) {
    return kindFrom<FilePathType>(FilePathTypeTexts, raw);
}

} // namespace kestrel
