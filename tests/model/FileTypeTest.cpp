// SPDX-License-Identifier: MIT
#include "model/FileType.h"

#include <gtest/gtest.h>

#include <array>

namespace kestrel {
namespace {

TEST(FileType, EachKindHasItsTextAndItsNumber) {
    constexpr std::array<std::string_view, 7> texts = {
        "project", "group", "empty", "unknown_file_type", "text", "palette", "graphics"};
    constexpr std::array<FileType, 7> kinds = {
        FileType::project, FileType::group,   FileType::empty,   FileType::unknown,
        FileType::text,    FileType::palette, FileType::graphics};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(kinds[i]), i);
        EXPECT_EQ(rawValue(kinds[i]), texts[i]);
        EXPECT_EQ(fileTypeFrom(texts[i]), kinds[i]);
    }
}

TEST(FileType, AnyOtherTextIsNoKindAndDoesNotBecomeUnknown) {
    for (const std::string_view text : {"Text", "TEXT", "asm", "", "unknown", " text", "text "}) {
        EXPECT_EQ(fileTypeFrom(text), std::nullopt) << text;
    }
}

TEST(FilePathType, EachKindHasItsText) {
    EXPECT_EQ(rawValue(FilePathType::noPath), "no_path");
    EXPECT_EQ(rawValue(FilePathType::absolute), "absolute_path");
    EXPECT_EQ(rawValue(FilePathType::relative), "relative_path_from_project");
    EXPECT_EQ(filePathTypeFrom("no_path"), FilePathType::noPath);
    EXPECT_EQ(filePathTypeFrom("absolute_path"), FilePathType::absolute);
    EXPECT_EQ(filePathTypeFrom("relative_path_from_project"), FilePathType::relative);
}

TEST(FilePathType, AnyOtherTextIsNoKind) {
    for (const std::string_view text : {"absolute", "No_Path", "", "relative"}) {
        EXPECT_EQ(filePathTypeFrom(text), std::nullopt) << text;
    }
}

TEST(ProjectType, IsAlwaysNes) {
    EXPECT_EQ(rawValue(ProjectType::nes), "nes");
}

} // namespace
} // namespace kestrel
