// SPDX-License-Identifier: MIT
#include "build/MainAssemblyFile.h"

#include "model/ProjectNavigationSettingItem.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QString>

#include <sys/stat.h>

namespace kestrel {
namespace {

std::shared_ptr<ProjectItem> source(const std::string& name, const std::filesystem::path& path,
                                    FilePathType pathType = FilePathType::absolute) {
    auto item = std::make_shared<ProjectNavigationSettingItem>(name, path, FileType::text,
                                                               ProjectType::nes);
    item->setItemPathType(pathType);
    return item;
}

TEST(PlacesVectors, InAnyLetterCaseAndWithAnyWhiteSpace) {
    for (const char16_t* text :
         {u".org $FFFA", u".ORG\t$fffa", u".Org \t \n $FffA", u"; see .org $FFFA", u"x.org $FFFA0",
          u".org\r\n$FFFA and more", u".org\u00a0$FFFA", u".org $1.org $FFFA"}) {
        EXPECT_TRUE(placesVectors(text)) << QString::fromUtf16(text).toStdString();
    }
}

TEST(PlacesVectors, NotWithAnythingElse) {
    for (const char16_t* text :
         {u"", u".", u".org", u".org$FFFA", u"org $FFFA", u".org $FFF", u".org $FFFB", u".org FFFA",
          u".org  x $FFFA", u".or g $FFFA", u".org $FF FA", u".\u043erg $FFFA"}) {
        EXPECT_FALSE(placesVectors(text)) << QString::fromUtf16(text).toStdString();
    }
}

TEST(PlacesVectors, NotFoundInTheTailOfATextWithCrLfLines) {
    // 20 line ends are 20 characters of two units each: the last 20 units are not searched.
    const QString lines = QStringLiteral("lda #1\r\n").repeated(20);
    const QString vectors = QStringLiteral(".org $FFFA");
    EXPECT_FALSE(placesVectors(QString(lines + vectors)));
    EXPECT_TRUE(placesVectors(QString(vectors + lines)));
    EXPECT_TRUE(placesVectors(QString(lines + vectors).remove(u'\r')));
}

TEST(PlacesVectors, FoundOnlyWhenTheWholeOfItIsWithinTheSearchedUnits) {
    const QString start = QStringLiteral("\r\n\r\n.org $FFFA"); // ends at unit 14
    EXPECT_FALSE(placesVectors(start)) << "12 units are searched";
    EXPECT_FALSE(placesVectors(QString(start + u'x'))) << "13 units";
    EXPECT_TRUE(placesVectors(QString(start + QStringLiteral("xy"))));
}

TEST(PlacesVectors, ACrLfBeforeTheMatchNeedsACharacterMoreBehindIt) {
    const QString match = QStringLiteral(".org $FFFA");
    EXPECT_FALSE(placesVectors(QString(QStringLiteral("\r\n") + match)));
    EXPECT_TRUE(placesVectors(QString(QStringLiteral("\r\n") + match + u'\n')));
    EXPECT_FALSE(placesVectors(QString(QStringLiteral("\r\n") + match).append(u'\u0301')));
}

TEST(PlacesVectors, CombinedCharactersShortenWhatIsSearched) {
    const QString match = QStringLiteral(".org $FFFA");
    const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467"); // 8 units
    const QString accents = QStringLiteral("e\u0301e\u0301");
    EXPECT_FALSE(placesVectors(QString(family + match)));
    EXPECT_FALSE(placesVectors(QString(family + match + QStringLiteral("123456"))));
    EXPECT_TRUE(placesVectors(QString(family + match + QStringLiteral("1234567"))));
    EXPECT_FALSE(placesVectors(QString(accents + match + u'1')));
    EXPECT_TRUE(placesVectors(QString(accents + match + QStringLiteral("12"))));
}

TEST(PlacesVectors, CharactersAreCountedAcrossLinesOfAllKinds) {
    // One unit is lost by the CR LF, one by the accent; CR alone and LF alone lose none.
    const QString start = QStringLiteral("a\rb\nc\r\ne\u0301\n.org $FFFA");
    EXPECT_FALSE(placesVectors(QString(start + QStringLiteral("1"))));
    EXPECT_TRUE(placesVectors(QString(start + QStringLiteral("12"))));
}

TEST(PlacesVectors, MegabytesOfWhiteSpaceAreNoTrouble) {
    const QString blank(8 * 1024 * 1024, u' ');
    EXPECT_TRUE(placesVectors(QString(QStringLiteral(".org") + blank + QStringLiteral("$FFFA"))));
    EXPECT_FALSE(placesVectors(QString(QStringLiteral(".org") + blank + QStringLiteral("$FFF"))));
    EXPECT_TRUE(
        placesVectors(QString(QString(4 * 1024 * 1024, u'.') + QStringLiteral(".org $FFFA"))));
}

class MainAssemblyFileTest : public ::testing::Test {
protected:
    std::optional<std::string> find(const ProjectItems& files) const {
        return mainAssemblyFileIn(files, m_folder.path());
    }
    const char* m_vectors = ".org $FFFA\n";
    test::TemporaryFolder m_folder;
};

TEST_F(MainAssemblyFileTest, IsTheFirstOfTheListThatPlacesVectors) {
    m_folder.write("none.asm", "nop\n");
    m_folder.write("one.asm", m_vectors);
    m_folder.write("two.asm", m_vectors);
    EXPECT_EQ(find({source("none.asm", m_folder.path()), source("two.asm", m_folder.path()),
                    source("one.asm", m_folder.path())}),
              "two.asm");
}

TEST_F(MainAssemblyFileTest, IsNothingWhenNoFilePlacesVectors) {
    m_folder.write("none.asm", "nop\n");
    EXPECT_FALSE(find({}));
    EXPECT_FALSE(find({source("none.asm", m_folder.path())}));
}

TEST_F(MainAssemblyFileTest, OfARelativeEntryIsBelowTheProjectByPathAndName) {
    m_folder.write("src/deep/main.asm", m_vectors);
    m_folder.write("top.asm", m_vectors);
    const auto relative = FilePathType::relative;
    EXPECT_EQ(find({source("main.asm", "src/deep", relative)}), "main.asm");
    EXPECT_EQ(find({source("main.asm", "/src/deep/", relative)}), "main.asm");
    EXPECT_EQ(find({source("top.asm", "", relative)}), "top.asm");
    EXPECT_FALSE(find({source("main.asm", "src/deep/main.asm", relative)}));
}

TEST_F(MainAssemblyFileTest, IsNeverAnEntryWithoutAFile) {
    m_folder.write("main.asm", m_vectors);
    EXPECT_FALSE(find({source("main.asm", m_folder.path(), FilePathType::noPath)}));
}

TEST_F(MainAssemblyFileTest, NamesThatAreNoPlainNameArePassedOver) {
    m_folder.write("main.asm", m_vectors);
    std::filesystem::create_directories(m_folder.path() / "sub");
    for (const std::string& name :
         {std::string("../main.asm"), std::string("sub/../main.asm"), std::string("."),
          std::string(".."), std::string(), std::string("main.asm\0x", 10)}) {
        EXPECT_FALSE(find({source(name, m_folder.path() / "sub"), source(name, m_folder.path())}))
            << name;
    }
}

TEST_F(MainAssemblyFileTest, UnreadableFilesArePassedOver) {
    std::filesystem::create_directories(m_folder.path() / "folder.asm");
    std::filesystem::create_symlink("nowhere", m_folder.path() / "dangling.asm");
    ASSERT_EQ(::mkfifo((m_folder.path() / "fifo.asm").c_str(), 0600), 0);
    m_folder.write("main.asm", m_vectors);
    EXPECT_EQ(find({source("missing.asm", m_folder.path()), source("folder.asm", m_folder.path()),
                    source("dangling.asm", m_folder.path()), source("fifo.asm", m_folder.path()),
                    source("main.asm", m_folder.path())}),
              "main.asm");
}

TEST_F(MainAssemblyFileTest, FilesWithoutReadPermissionArePassedOver) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    const auto closed = m_folder.write("closed.asm", m_vectors);
    m_folder.write("main.asm", m_vectors);
    const ProjectItems files{source("closed.asm", m_folder.path()),
                             source("main.asm", m_folder.path())};
    EXPECT_EQ(find(files), "closed.asm");
    std::filesystem::permissions(closed, std::filesystem::perms::owner_write);
    EXPECT_EQ(find(files), "main.asm");
}

TEST_F(MainAssemblyFileTest, AFileBeyondAllSenseIsPassedOverUnread) {
    const auto huge = m_folder.write("huge.asm", m_vectors);
    m_folder.write("main.asm", m_vectors);
    const ProjectItems files{source("huge.asm", m_folder.path()),
                             source("main.asm", m_folder.path())};
    EXPECT_EQ(find(files), "huge.asm");
    // Files with a hole: they take no room on the disk, but would in memory.
    for (const std::uintmax_t size : {MaximumSourceSize + 1, std::uintmax_t{1} << 40}) {
        std::filesystem::resize_file(huge, size);
        EXPECT_EQ(find(files), "main.asm") << size;
    }
}

TEST_F(MainAssemblyFileTest, FilesThatAreNotUtf8ArePassedOver) {
    m_folder.write("latin.asm", std::string("; caf\xe9\n") + m_vectors);
    m_folder.write("marked.asm", std::string("\xef\xbb\xbf") + m_vectors);
    EXPECT_EQ(find({source("latin.asm", m_folder.path()), source("marked.asm", m_folder.path())}),
              "marked.asm");
}

} // namespace
} // namespace kestrel
