// SPDX-License-Identifier: MIT
// What the memory window says of the examples, against their listings and images.
#include "assembler/ProgramRun.h"
#include "facts/FactsText.h"
#include "facts/ListingLines.h"
#include "memory/MemoryReport.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

namespace kestrel {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t HeaderSize = 16;
constexpr std::size_t BankSize = 0x2000;
constexpr char Fill = '\xFF'; // of bytes that the source did not write

struct Example {
    const char* name;
    const char* main;
    std::size_t programBanks;
};

class ExampleMemory : public testing::TestWithParam<Example> {
protected:
    ExampleMemory() {
        const fs::path from = fs::path(KESTREL_EXAMPLES) / GetParam().name;
        for (const auto& entry : fs::recursive_directory_iterator(from)) {
            if (entry.is_regular_file()) {
                fs::copy_file(entry.path(), folder.path() / entry.path().filename());
            }
        }
    }

    test::ProgramRun run(const char* program, std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--input", (folder.path() / GetParam().main).string()});
        return test::ProgramRun::of(program, arguments, {"NES_INCLUDE=" + folder.path().string()},
                                    folder.path());
    }

    test::TemporaryFolder folder;
};

std::size_t longestRunOf(char byte, const std::string& bytes) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (const char found : bytes) {
        run = found == byte ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

/// A number as the window writes it, which has at most one comma in a bank.
std::string grouped(std::size_t number) {
    std::string text = std::to_string(number);
    return text.size() > 3 ? text.insert(text.size() - 3, ",") : text;
}

} // namespace

TEST_P(ExampleMemory, TellsOfEachBankWhatListingAndImageTell) {
    const test::ProgramRun built =
        run(KESTREL_NESASM, {"--output", "game.nes", "--listing", "game.lst"});
    ASSERT_EQ(built.status, 0) << built.output;
    const std::string image = test::contentOf(folder.path() / "game.nes");
    const auto facts = readFacts(run(KESTREL_FACTS, {}).output);
    ASSERT_TRUE(facts.has_value());
    const MemoryReport report(std::make_shared<const ProgramFacts>(*facts), nullptr,
                              QStringLiteral("game.nes"));

    std::map<std::size_t, std::size_t> listed;
    for (const auto& [place, line] :
         test::readListing(test::contentOf(folder.path() / "game.lst"))) {
        listed[line.bank] += line.bytes;
    }
    const std::size_t banks = (image.size() - HeaderSize) / BankSize;
    ASSERT_EQ(report.rows().size(), banks + 2) << "and the zero page and RAM";
    for (std::size_t bank = 0; bank < banks; ++bank) {
        const std::size_t used = listed[bank];
        const std::size_t gap =
            used == BankSize
                ? 0
                : longestRunOf(Fill, image.substr(HeaderSize + bank * BankSize, BankSize));
        const std::string kind = bank < GetParam().programBanks ? "PRG" : "CHR";
        EXPECT_EQ(MemoryReport::sentenceOf(report.rows()[bank]).toStdString(),
                  kind + " bank " + std::to_string(bank) + ": " + grouped(used) + " of " +
                      grouped(BankSize) + " bytes used, " + grouped(BankSize - used) +
                      " free, largest gap " + grouped(gap));
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleMemory,
                         testing::Values(Example{"Lanternfall", "lanternfall.asm", 2},
                                         Example{"Skylark", "skylark.asm", 2}),
                         [](const auto& of) { return std::string(of.param.name); });

} // namespace kestrel
