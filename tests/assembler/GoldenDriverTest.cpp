// SPDX-License-Identifier: MIT
// Does the driver of the golden cases notice everything that can be wrong with a case?
#include "assembler/GoldenCase.h"
#include "assembler/GoldenFolder.h"
#include "assembler/HexImage.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

using kestrel::test::GoldenCase;
using kestrel::test::GoldenFolder;
using kestrel::test::HexImage;
using kestrel::test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::filesystem::path Assembler = KESTREL_NESASM;

/// A folder with one case in the topic "one", checked with the real assembler.
class GoldenDriver : public testing::Test {
protected:
    void givenCase(std::string_view source) { m_folder.write("one/case.asm", source); }
    void givenBeside(const std::string& ending, std::string_view content) {
        m_folder.write("one/case" + ending, content);
    }
    std::vector<std::string> problems() const {
        return GoldenCase(m_folder.path() / "one/case.asm").problemsWith(Assembler);
    }
    /// What the one problem says, empty when there is none or more than one.
    std::string problem() const {
        const std::vector<std::string> all = problems();
        return all.size() == 1 ? all[0] : std::string();
    }

    TemporaryFolder m_folder;
};

constexpr std::string_view GoodSource = "\tlda #1\n";
constexpr std::string_view GoodHex = "size 8208\n0:0000: A9 01\n";

TEST_F(GoldenDriver, PassesACaseThatHolds) {
    givenCase(GoodSource);
    givenBeside(".hex", GoodHex);
    EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(GoldenDriver, NoticesAWrongByte) {
    givenCase(GoodSource);
    givenBeside(".hex", "size 8208\n0:0000: A9 02\n");
    EXPECT_THAT(problem(), HasSubstr("0:0000: A9 01"));
}

TEST_F(GoldenDriver, NoticesAByteThatIsNotExpected) {
    givenCase(GoodSource);
    givenBeside(".hex", "size 8208\n0:0000: A9\n");
    EXPECT_THAT(problem(), HasSubstr("the image differs"));
}

TEST_F(GoldenDriver, NoticesAWrongSize) {
    givenCase(GoodSource);
    givenBeside(".hex", "size 16400\n0:0000: A9 01\n");
    EXPECT_THAT(problem(), HasSubstr("the image differs"));
}

TEST_F(GoldenDriver, NoticesAWrongHeader) {
    givenCase(GoodSource);
    givenBeside(".hex", "size 8208\nheader: 01 00 00 00\n0:0000: A9 01\n");
    EXPECT_THAT(problem(), HasSubstr("the image differs"));
}

TEST_F(GoldenDriver, NoticesAnImageWhereNoneIsExpected) {
    givenCase(GoodSource);
    givenBeside(".status", "0\n");
    EXPECT_THAT(problem(), HasSubstr("an image came out where none is expected"));
}

TEST_F(GoldenDriver, NoticesAMissingImageAndTheStatus) {
    givenCase("\tbogus 1\n");
    givenBeside(".hex", GoodHex);
    EXPECT_THAT(problems(), testing::IsSupersetOf(
                                {HasSubstr("exit status 1, expected 0"), HasSubstr("no image")}));
}

TEST_F(GoldenDriver, NoticesAWrongStatusAlone) {
    givenCase(GoodSource);
    givenBeside(".hex", GoodHex);
    givenBeside(".status", "1\n");
    EXPECT_THAT(problem(), HasSubstr("exit status 0, expected 1"));
}

TEST_F(GoldenDriver, NoticesAMessageThatIsNotExpected) {
    givenCase("\tbogus 1\n");
    EXPECT_THAT(problem(), HasSubstr("messages where none are expected:\ncase.asm:1:"));
}

TEST_F(GoldenDriver, NoticesAWrongMessage) {
    givenCase(GoodSource);
    givenBeside(".hex", GoodHex);
    givenBeside(".out", "case.nes: all is well\n");
    EXPECT_THAT(problem(), HasSubstr("the messages differ: line 1"));
}

TEST_F(GoldenDriver, NoticesAWarningWhenOnlyTheClosingLineIsExpected) {
    givenCase("\t.warning \"careful\"\n\tlda #1\n");
    givenBeside(".hex", GoodHex);
    EXPECT_THAT(problem(), HasSubstr("expected is one line"));
}

TEST_F(GoldenDriver, NoticesARunFileThatItDoesNotUnderstand) {
    givenCase(GoodSource);
    givenBeside(".hex", GoodHex);
    givenBeside(".run", "inptu: case.asm\n");
    EXPECT_THAT(problem(), HasSubstr("inptu"));
}

TEST_F(GoldenDriver, NoticesAHexFileThatItDoesNotUnderstand) {
    givenCase(GoodSource);
    givenBeside(".hex", "size 8208\n0:0000: A9 1\n");
    EXPECT_THAT(problem(), HasSubstr("line 2 is not understood"));
}

TEST_F(GoldenDriver, AssemblesASharedSourceUnderTheNameOfTheCase) {
    m_folder.write("shared/one.asm", "\t.include \"more/two.asm\"\n");
    m_folder.write("shared/two.asm", GoodSource);
    givenBeside(".run", "source: one.asm\nfile: more/two.asm = two.asm\n");
    givenBeside(".hex", GoodHex);
    EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(GoldenDriver, NoticesThatASharedSourceDiffers) {
    m_folder.write("shared/one.asm", "\tlda #2\n");
    givenBeside(".run", "source: one.asm\n");
    givenBeside(".hex", GoodHex);
    EXPECT_THAT(problem(), HasSubstr("0:0000: A9 02"));
}

TEST_F(GoldenDriver, NoticesThatThereIsNoSource) {
    givenBeside(".run", "argument: -v\n");
    EXPECT_THAT(problem(), HasSubstr("there is no source"));
}

TEST_F(GoldenDriver, NoticesASourceBesideTheSharedOne) {
    givenCase(GoodSource);
    m_folder.write("shared/one.asm", GoodSource);
    givenBeside(".run", "source: one.asm\n");
    EXPECT_THAT(problem(), HasSubstr("a source beside the shared one"));
}

TEST_F(GoldenDriver, NoticesASharedFileThatIsMissing) {
    givenCase(GoodSource);
    givenBeside(".run", "file: two.asm = two.asm\n");
    EXPECT_THAT(problem(), HasSubstr("there is no shared file two.asm"));
}

TEST_F(GoldenDriver, NoticesASharedFileInPlaceOfAnother) {
    givenCase(GoodSource);
    m_folder.write("one/case/two.asm", GoodSource);
    m_folder.write("shared/two.asm", GoodSource);
    givenBeside(".run", "file: two.asm = two.asm\n");
    EXPECT_THAT(problem(), HasSubstr("another file in its place"));
}

TEST_F(GoldenDriver, NoticesExpectationsWithoutACase) {
    givenCase(GoodSource);
    givenBeside(".hex", GoodHex);
    m_folder.write("one/lost.hex", GoodHex);
    m_folder.write("one/lost.out", "");
    m_folder.write("one/gone/data.bin", "");
    m_folder.write("one/case.txt", "");
    m_folder.write("alone/lost.status", "1\n");
    m_folder.write("notopic/Some.cpp", "");
    EXPECT_THAT(GoldenFolder(m_folder.path()).orphans(),
                ElementsAre("alone/lost.status", "one/case.txt", "one/gone", "one/lost.hex",
                            "one/lost.out"));
}

TEST_F(GoldenDriver, ListsEveryCaseOfEveryTopic) {
    givenCase(GoodSource);
    m_folder.write("two/b.asm", "");
    m_folder.write("two/a.asm", "");
    m_folder.write("two/a/data.asm", "");
    std::vector<std::string> names;
    for (const GoldenCase& golden : GoldenFolder(m_folder.path()).cases()) {
        names.push_back(golden.name());
    }
    EXPECT_THAT(names, ElementsAre("one/case", "two/a", "two/b"));
}

TEST_F(GoldenDriver, ListsACaseWithASharedSource) {
    givenCase(GoodSource);
    m_folder.write("shared/one.asm", GoodSource);
    m_folder.write("two/b.run", "source: one.asm\n");
    m_folder.write("two/b.out", "");
    std::vector<std::string> names;
    for (const GoldenCase& golden : GoldenFolder(m_folder.path()).cases()) {
        names.push_back(golden.name());
    }
    EXPECT_THAT(names, ElementsAre("one/case", "two/b"));
}

TEST_F(GoldenDriver, NoticesASharedFileThatIsNotShared) {
    m_folder.write("shared/both.asm", GoodSource);
    m_folder.write("shared/once.bin", "1");
    m_folder.write("shared/never.bin", "2");
    m_folder.write("two/a.run", "source: both.asm\nfile: data.bin = once.bin\n");
    m_folder.write("two/b.run", "source: both.asm\n");
    EXPECT_THAT(GoldenFolder(m_folder.path()).orphans(),
                ElementsAre("shared/never.bin", "shared/once.bin"));
}

TEST_F(GoldenDriver, NoticesEqualInputs) {
    const std::string picture(64, 'p');
    m_folder.write("one/case.asm", "");
    m_folder.write("one/case/picture.pcx", picture);
    m_folder.write("one/case/short.bin", "1");
    m_folder.write("one/case.files/case.lst", picture);
    m_folder.write("two/a.asm", GoodSource);
    m_folder.write("two/a/gfx/other.pcx", picture);
    m_folder.write("two/a/short.bin", "1");
    m_folder.write("two/b.asm", GoodSource);
    EXPECT_THAT(GoldenFolder(m_folder.path()).equalInputs(),
                testing::UnorderedElementsAre("two/a.asm = two/b.asm",
                                              "one/case/picture.pcx = two/a/gfx/other.pcx"));
}

TEST(HexImages, ReadWhatTheyDescribe) {
    std::string fault;
    const auto image =
        HexImage::parse("size 16400\nheader: 01 00 10 00 ; one\n1:1FFA: 00*4 01 80\n", fault);
    ASSERT_TRUE(image) << fault;
    EXPECT_EQ(image->size(), 16400U);
    EXPECT_EQ(image->substr(0, 16), std::string("NES\x1A\x01\0\x10\0\0\0\0\0\0\0\0\0", 16));
    EXPECT_EQ(image->substr(16394), std::string("\0\0\0\0\x01\x80", 6));
    EXPECT_EQ(image->find_first_not_of('\xFF', 16), 16394U);
    EXPECT_EQ(HexImage::describe(*image),
              "size 16400\nheader: 01 00 10 00\n1:1FFA: 00 00 00 00 01 80\n");
    EXPECT_EQ(HexImage::parse(HexImage::describe(*image), fault), image);
}

TEST(HexImages, RefuseWhatLiesOutsideTheImageOrABank) {
    std::string fault;
    EXPECT_FALSE(HexImage::parse("", fault));
    EXPECT_FALSE(HexImage::parse("0:0000: 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 15\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\n1:0000: 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 16400\n0:1FFF: 00 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\n0:2000: 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\n0:00: 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\n0:0000: 000\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\nheader: 00\n", fault));
    EXPECT_FALSE(HexImage::parse("size 8208\n0:0000:\n", fault));
}

} // namespace
