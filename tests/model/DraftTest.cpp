// SPDX-License-Identifier: MIT
#include "model/Draft.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

using namespace std::string_literals;

const ProcessIdentity Writer{4711, 123456, "a system"};

Draft draftOf(const std::string& content) {
    return {"/home/user/Kestrel/Game/main.asm", DraftKind::text,
            Fingerprint{7, 0xFEDCBA9876543210U}, 1'700'000'000'123, content};
}

/// The draft file with one thing in its description replaced.
std::string altered(const std::string& what, const std::string& by) {
    std::string bytes = draftFileBytes(draftOf("lda #1\n"), Writer);
    const std::size_t place = bytes.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return bytes.replace(place, what.size(), by);
}

TEST(Draft, ComesBackFromItsFileWhole) {
    for (const std::string& content :
         {""s, "lda #1\r\n\rrts"s, "\0\xff\xfe\n\n\0"s, std::string(100'000, '\n')}) {
        const auto read = readDraftFile(draftFileBytes(draftOf(content), Writer));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->draft.content, content);
        EXPECT_EQ(read->draft.file, "/home/user/Kestrel/Game/main.asm");
        EXPECT_EQ(read->draft.kind, DraftKind::text);
        EXPECT_EQ(read->draft.base, (Fingerprint{7, 0xFEDCBA9876543210U}));
        EXPECT_EQ(read->draft.time, 1'700'000'000'123);
        EXPECT_EQ(read->writer, Writer);
    }
}

TEST(Draft, KeepsEachKindAndThatNoBaseIsKnown) {
    for (const DraftKind kind : {DraftKind::text, DraftKind::tiles, DraftKind::palettes}) {
        Draft draft = draftOf("x");
        draft.kind = kind;
        draft.base.reset();
        const auto read = readDraftFile(draftFileBytes(draft, Writer));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->draft.kind, kind);
        EXPECT_EQ(read->draft.base, std::nullopt);
    }
}

TEST(Draft, KeepsAPathOfAnyBytes) {
    for (const std::string& path :
         {"/a b/100%.asm"s, "/\xff\xfe\n\"\\"s, "/gr\xc3\xbcn.asm"s, "/%41"s}) {
        Draft draft = draftOf("x");
        draft.file = path;
        const auto read = readDraftFile(draftFileBytes(draft, Writer));
        ASSERT_TRUE(read) << path;
        EXPECT_EQ(read->draft.file, path);
    }
}

TEST(Draft, BeginsWithOneLineAndEndsWithTheContentAsItIs) {
    const std::string bytes = draftFileBytes(draftOf("lda #1\nrts\n"), Writer);
    EXPECT_TRUE(bytes.starts_with(R"({"format":"Kestrel draft","version":1,"kind":"text")"));
    EXPECT_EQ(bytes.substr(bytes.find('\n') + 1), "lda #1\nrts\n");
}

TEST(Draft, IsNotReadFromADamagedFile) {
    const std::string whole = draftFileBytes(draftOf("lda #1\n"), Writer);
    ASSERT_TRUE(readDraftFile(whole));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(readDraftFile(whole.substr(0, size))) << size;
    }
    EXPECT_FALSE(readDraftFile(whole + "x"));
    EXPECT_FALSE(readDraftFile("\n"));
    EXPECT_FALSE(readDraftFile("[]\n"));
    EXPECT_FALSE(readDraftFile("{}\n"));
    EXPECT_FALSE(readDraftFile(std::string(1'000'000, '[') + "\n"));
}

TEST(Draft, IsNotReadWithAnUnknownOrMistypedMember) {
    EXPECT_FALSE(readDraftFile(altered("\"version\":1", "\"version\":2")));
    EXPECT_FALSE(readDraftFile(altered("Kestrel draft", "Kestrel graft")));
    EXPECT_FALSE(readDraftFile(altered("\"text\"", "\"tape\"")));
    EXPECT_FALSE(readDraftFile(altered("/home", "%zzome")));
    EXPECT_FALSE(readDraftFile(altered("/home/user/Kestrel/Game/main.asm", "")));
    EXPECT_FALSE(readDraftFile(altered("main.asm", "main.asm%")));
    EXPECT_FALSE(readDraftFile(altered("\"process\":4711", "\"process\":-1")));
    EXPECT_FALSE(readDraftFile(altered("\"process\":4711", "\"process\":1.5")));
    EXPECT_FALSE(readDraftFile(altered("\"time\":1700000000123", "\"time\":null")));
}

TEST(Draft, WithAnUnreadableBaseHasNone) {
    const auto read = readDraftFile(altered("fedcba98", "fedcba9x"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->draft.base, std::nullopt);
}

TEST(Fingerprint, TellsContentsApart) {
    EXPECT_EQ(fingerprintOf("abc"), fingerprintOf("abc"));
    EXPECT_NE(fingerprintOf("abc"), fingerprintOf("acb"));
    EXPECT_NE(fingerprintOf(std::string_view("\0", 1)), fingerprintOf(""));
    EXPECT_EQ(fingerprintOf("a").hash, 0xAF63DC4C8601EC8CU); // the published test vector
}

} // namespace
} // namespace kestrel
