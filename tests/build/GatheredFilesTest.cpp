// SPDX-License-Identifier: MIT
#include "build/GatheredFiles.h"

#include "model/ProjectNavigationSettingItem.h"

#include <gtest/gtest.h>

namespace kestrel::test {
namespace {

const std::filesystem::path Project = "/home/me/Game";

std::shared_ptr<ProjectItem> file(const std::string& folder, const std::string& name,
                                  FilePathType type = FilePathType::relative) {
    auto item = std::make_shared<ProjectNavigationSettingItem>(name, folder, FileType::text,
                                                               ProjectType::nes);
    item->setItemPathType(type);
    return item;
}

std::string found(const ProjectItems& files, const char* name) {
    return GatheredFiles({&files}, Project).find(QString::fromUtf8(name)).value_or("-").string();
}

TEST(GatheredFilesTest, TheLastPartOfTheNameCountsWithBothSeparators) {
    const ProjectItems files{file("", "main.asm"), file("code", "inc.asm")};
    EXPECT_EQ(found(files, "main.asm"), "/home/me/Game/main.asm");
    EXPECT_EQ(found(files, "inc.asm"), "/home/me/Game/code/inc.asm");
    EXPECT_EQ(found(files, "elsewhere/inc.asm"), "/home/me/Game/code/inc.asm");
    EXPECT_EQ(found(files, "code\\inc.asm"), "/home/me/Game/code/inc.asm");
    EXPECT_EQ(found(files, "nc.asm"), "-");
    EXPECT_EQ(found(files, ""), "-");
}

TEST(GatheredFilesTest, TheSuffixIsAddedAndLetterCaseIgnoredWhereTheExactNameIsMissing) {
    const ProjectItems files{file("", "INC.asm"), file("", "other"), file("", "other.asm"),
                             file("", "Two.asm"), file("", "two.ASM")};
    EXPECT_EQ(found(files, "code/inc"), "/home/me/Game/INC.asm");
    EXPECT_EQ(found(files, "inc.ASM"), "/home/me/Game/INC.asm");
    EXPECT_EQ(found(files, "other"), "/home/me/Game/other");
    EXPECT_EQ(found(files, "Other"), "/home/me/Game/other");
    EXPECT_EQ(found(files, "Two.asm"), "/home/me/Game/Two.asm");
    EXPECT_EQ(found(files, "Two"), "/home/me/Game/Two.asm");
    EXPECT_EQ(found({file("", "\xC3\x84.asm")}, "\xC3\xA4.asm"), "-"); // not a letter of ASCII
}

TEST(GatheredFilesTest, OfTwoOfOneNameTheLaterOneStaysWhicheverListItIsIn) {
    const ProjectItems sources{file("a", "same.asm"), file("b", "same.asm")};
    const ProjectItems graphics{file("c", "same.asm")};
    EXPECT_EQ(found(sources, "same.asm"), "/home/me/Game/b/same.asm");
    EXPECT_EQ(GatheredFiles({&sources, &graphics}, Project).find(QStringLiteral("same.asm")),
              Project / "c/same.asm");
}

TEST(GatheredFilesTest, AFileInTheFolderOfTheCopiesIsReplacedByNoOther) {
    EXPECT_EQ(found({file("tmp", "same.asm"), file("b", "same.asm")}, "same.asm"),
              "/home/me/Game/tmp/same.asm");
}

TEST(GatheredFilesTest, AnEntryWithoutAFileIsNotGathered) {
    EXPECT_EQ(found({file("", "a.asm", FilePathType::noPath)}, "a.asm"), "-");
    EXPECT_EQ(found({file("/opt/lib", "a.asm", FilePathType::absolute)}, "a.asm"),
              "/opt/lib/a.asm");
}

TEST(GatheredFilesTest, AnAbsoluteNameIsThatFile) {
    EXPECT_EQ(found({file("", "a.asm")}, "/opt/lib/a.asm"), "/opt/lib/a.asm");
}

TEST(GatheredFilesTest, NamesAreComparedAsMessagesShowThem) {
    EXPECT_EQ(nameInMessages("a b\"c:.asm"), u"a b\"c:.asm");
    EXPECT_EQ(nameInMessages("\xC3\xA4\xF0\x9F\x8E\xAE"),
              QString::fromUtf8("\xC3\xA4\xF0\x9F\x8E\xAE"));
    EXPECT_EQ(nameInMessages("a\tb\x7F\xC2\x85"), u"a\uFFFDb\uFFFD\uFFFD");
    EXPECT_EQ(nameInMessages("\xE4\xF6\xC3"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(found({file("", "a\nb.asm")}, "a\xEF\xBF\xBD"
                                            "b.asm"),
              "/home/me/Game/a\nb.asm");
}

} // namespace
} // namespace kestrel::test
