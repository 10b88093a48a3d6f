// SPDX-License-Identifier: MIT
#include "assembler/values/Image.h"

#include "assembler/output/ImageFile.h"

#include <gtest/gtest.h>

#include <vector>

namespace nesasm {

namespace {

void put(Image& image, const std::vector<std::uint8_t>& bytes) {
    EXPECT_EQ(image.emit(bytes.data(), bytes.size()), 0U);
}

TEST(Image, BeginsInBank0AtOffset0) {
    Image image;
    EXPECT_EQ(image.bank(), 0U);
    EXPECT_EQ(image.address(), 0U);
    image.finish();
    EXPECT_EQ(image.bankCount(), 0U);
}

TEST(Image, ComingBackToABankRestoresItsPlace) {
    Image image;
    image.setAddress(0xC010);
    put(image, {1, 2, 3});
    image.selectBank(5);
    EXPECT_EQ(image.address(), 0U);
    image.selectBank(0);
    EXPECT_EQ(image.address(), 0xC013U);
    image.selectBank(0);
    EXPECT_EQ(image.address(), 0xC013U);
    image.finish();
    EXPECT_EQ(image.bankCount(), 1U);
}

TEST(Image, AFullBankHasTheAddressBehindIt) {
    Image image;
    image.setAddress(0xDFFF);
    put(image, {1});
    EXPECT_EQ(image.address(), 0xE000U);
    EXPECT_EQ(image.room(), 0U);
    const std::uint8_t byte = 2;
    EXPECT_EQ(image.emit(&byte, 1), 1U);
}

TEST(Image, DataThatRunOnKeepThePage) {
    Image image;
    image.setAddress(0xDFFE);
    const std::vector<std::uint8_t> bytes{1, 2, 3, 4};
    EXPECT_TRUE(image.emitAcrossBanks(bytes.data(), bytes.size()));
    EXPECT_EQ(image.bank(), 1U);
    EXPECT_EQ(image.address(), 0xC002U);
    image.finish();
    EXPECT_EQ(image.bytes(0)[0x1FFF], 2);
    EXPECT_EQ(image.bytes(1)[0], 3);
}

TEST(Image, DataThatEndAtTheEndOfABankLeaveThePlaceInTheNextUnused) {
    Image image;
    const std::vector<std::uint8_t> bytes(BankSize, 9);
    EXPECT_TRUE(image.emitAcrossBanks(bytes.data(), bytes.size()));
    EXPECT_EQ(image.bank(), 1U);
    EXPECT_EQ(image.offset(), 0U);
    image.finish();
    EXPECT_EQ(image.bankCount(), 1U);
}

TEST(Image, DataBeyondTheLastBankAreRefused) {
    Image image;
    image.selectBank(BankCount - 1);
    const std::vector<std::uint8_t> bytes(BankSize + 1, 9);
    EXPECT_FALSE(image.emitAcrossBanks(bytes.data(), bytes.size()));
}

TEST(Image, AValueThatComesLateDoesNotUndoWhatWasWrittenOverItsPlace) {
    Image image;
    put(image, {0, 0});
    const std::uint32_t number = image.nextPatch();
    image.setAddress(1);
    put(image, {7});
    const std::uint8_t late[]{0x34, 0x12};
    image.patch(number, 0, 0, late, 2);
    const std::uint32_t later = image.nextPatch();
    image.finish();
    EXPECT_EQ(image.bytes(0)[0], 0x34);
    EXPECT_EQ(image.bytes(0)[1], 7);
    image.patch(later, 0, 1, late, 1);
    EXPECT_EQ(image.bytes(0)[1], 0x34);
}

TEST(Image, CountsEachByteOnce) {
    Image image;
    put(image, std::vector<std::uint8_t>(100, 1));
    image.setAddress(50);
    put(image, std::vector<std::uint8_t>(100, 2));
    image.finish();
    EXPECT_EQ(image.bytesWritten(0), 150U);
}

TEST(Image, RamSectionsHaveTheirBounds) {
    Image image;
    image.selectSection(Section::bss);
    EXPECT_EQ(image.address(), 0x200U);
    EXPECT_EQ(image.reserve(0x600), 0U);
    EXPECT_EQ(image.reserve(3), 3U);
    image.selectSection(Section::zeroPage);
    EXPECT_EQ(image.address(), 0U);
    EXPECT_FALSE(image.setAddress(0x101));
    image.selectSection(Section::bss);
    EXPECT_EQ(image.address(), 0x800U);
    image.finish();
    EXPECT_EQ(image.bankCount(), 0U);
}

TEST(Image, TheFileHasTheHeaderAndEveryBankUpToTheHighestUsed) {
    Image image;
    image.header = {2, 1, 0x4A, 9, {}};
    image.selectBank(2);
    put(image, {0xAB});
    image.finish();
    const auto file = imageFile(image);
    ASSERT_EQ(file.size(), 16U + 3 * BankSize);
    const std::vector<std::uint8_t> header(file.begin(), file.begin() + 16);
    EXPECT_EQ(header, (std::vector<std::uint8_t>{'N', 'E', 'S', 0x1A, 2, 1, 0xA9, 0x40, 0, 0, 0, 0,
                                                 0, 0, 0, 0}));
    EXPECT_EQ(file[16], 0xFF);
    EXPECT_EQ(file[16 + 2 * BankSize], 0xAB);
}

} // namespace

} // namespace nesasm
