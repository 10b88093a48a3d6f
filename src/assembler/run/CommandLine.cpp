// SPDX-License-Identifier: MIT
#include "assembler/run/CommandLine.h"

#include "assembler/text/Characters.h"
#include "assembler/text/NearNames.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace nesasm {

namespace {

std::optional<std::int64_t> numberOf(std::string_view text, int base) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

/// A value of -D: decimal, $ hexadecimal or % binary, with a sign or without.
std::optional<std::int32_t> valueOf(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.starts_with('$') || text.starts_with('%')) {
        base = text[0] == '$' ? 16 : 2;
        text.remove_prefix(1);
    }
    const auto value = numberOf(text, base);
    if (!value || *value < 0 || *value > 0xFFFFFFFF) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(isNegative ? -*value : *value));
}

bool isSymbolName(std::string_view name) {
    return !name.empty() && isWordStart(name[0]) &&
           std::all_of(name.begin(), name.end(), isWordPart);
}

Problem addDefinition(std::string_view text, Options& options) {
    const std::size_t sign = std::min(text.find('='), text.size());
    const std::string_view name = text.substr(0, sign);
    const auto value =
        sign == text.size() ? std::optional<std::int32_t>(1) : valueOf(text.substr(sign + 1));
    if (!isSymbolName(name)) {
        return "-D needs the name of a symbol, not " + quoted(name);
    }
    if (!value) {
        return "-D " + std::string(name) + " needs a number after the =, as in $20, not " +
               quoted(text.substr(sign + 1));
    }
    const bool isTaken = std::any_of(options.definitions.begin(), options.definitions.end(),
                                     [&](const auto& known) { return known.first == name; });
    if (isTaken) {
        return "-D gives " + quoted(name) + " a value twice";
    }
    options.definitions.emplace_back(name, *value);
    return {};
}

/// Reads the options that have a value.
class ValuedOptions {
public:
    explicit ValuedOptions(CommandLine& line)
        : m_line(line) {}

    static bool knows(std::string_view name) {
        return std::find(Names.begin(), Names.end(), name) != Names.end();
    }
    /// The message for an unknown option.
    static std::string unknown(std::string_view option) {
        NearNames near(option.substr(0, option.find('=')));
        for (const std::string_view name : Names) {
            near.consider(name);
        }
        for (const std::string_view name : {"--help", "--version", "--expand-macros", "-v"}) {
            near.consider(name);
        }
        return "there is no option " + quoted(option) + near.question();
    }

    Problem apply(std::string_view name, std::string_view value) {
        if (name == "-D") {
            return addDefinition(value, m_line.options);
        }
        if (value.empty()) {
            return std::string(name) + " needs a value";
        }
        if (name == "--input" || name == "--output") {
            return setOnce(name, name == "--input" ? m_line.options.input : m_line.output, value);
        }
        if (name == "-I") {
            m_line.options.includeFolders.emplace_back(value);
            return {};
        }
        if (name == "--listing") {
            return setOnce(name, m_line.listing, value);
        }
        if (name == "--source-map") {
            return setOnce(name, m_line.sourceMap, value);
        }
        if (name == "--labels") {
            return addLabels(value);
        }
        if (name == "-W") {
            return m_line.options.warnings.apply(value);
        }
        if (name == "--messages") {
            return setMessages(value);
        }
        return name == "--color" ? setColours(value) : setLimit(value);
    }

private:
    static constexpr std::array<std::string_view, 11> Names{
        "--input", "--output",   "-I",        "-D",       "-W",          "--max-errors",
        "--color", "--messages", "--listing", "--labels", "--source-map"};

    static Problem setOnce(std::string_view name, std::string& target, std::string_view value) {
        if (!target.empty()) {
            return std::string(name) + " is given twice";
        }
        target = value;
        return {};
    }
    Problem addLabels(std::string_view value) {
        const auto format = findLabelFormat(value);
        if (!format) {
            return "--labels takes mlb, nl or dbg, not " + quoted(value);
        }
        addTo(m_line.labels, *format);
        return {};
    }
    Problem setColours(std::string_view value) {
        if (value == "auto") {
            m_line.colours = CommandLine::Colours::automatic;
        } else if (value == "always") {
            m_line.colours = CommandLine::Colours::always;
        } else if (value == "never") {
            m_line.colours = CommandLine::Colours::never;
        } else {
            return "--color takes auto, always or never, not " + quoted(value);
        }
        return {};
    }
    Problem setMessages(std::string_view value) {
        if (value != "text" && value != "json") {
            return "--messages takes text or json, not " + quoted(value);
        }
        m_line.wantsJson = value == "json";
        return {};
    }
    Problem setLimit(std::string_view value) {
        const auto limit = numberOf(value, 10);
        if (!limit || *limit < 0) {
            return "--max-errors takes a number, 0 for no limit, not " + quoted(value);
        }
        m_line.options.largestErrorCount = static_cast<std::size_t>(*limit);
        return {};
    }

    CommandLine& m_line;
};

/// Reads the first of `arguments`, with its value, and drops it.
Problem readArgument(std::span<const std::string_view>& arguments, CommandLine& line,
                     ValuedOptions& options) {
    const std::string_view argument = arguments.front();
    arguments = arguments.subspan(1);
    if (argument == "--help" || argument == "--version") {
        line.wish = argument == "--help" ? CommandLine::Wish::help : CommandLine::Wish::version;
        return {};
    }
    if (argument == "-v" || argument == "--expand-macros") {
        (argument == "-v" ? line.isVerbose : line.listsExpansions) = true;
        return {};
    }
    // The value is the next argument; "--option=value" and "-Ifolder" are understood too.
    std::string_view name = argument;
    std::optional<std::string_view> value;
    const std::size_t length = name.starts_with("--") ? name.find('=') : 2;
    if (!ValuedOptions::knows(name) && name.starts_with('-') && length < name.size()) {
        value = name.substr(name.starts_with("--") ? length + 1 : length);
        name = name.substr(0, length);
    }
    if (!ValuedOptions::knows(name)) {
        return ValuedOptions::unknown(argument);
    }
    if (!value) {
        if (arguments.empty()) {
            return std::string(name) + " needs a value";
        }
        value = arguments.front();
        arguments = arguments.subspan(1);
    }
    return options.apply(name, *value);
}

} // namespace

Problem readCommandLine(std::span<const std::string_view> arguments, CommandLine& line) {
    ValuedOptions options(line);
    line.wish = CommandLine::Wish::assemble;
    // What follows a mistake is read too: the output should be known.
    Problem problem;
    while (!arguments.empty() && line.wish == CommandLine::Wish::assemble) {
        Problem another = readArgument(arguments, line, options);
        if (!problem) {
            problem = std::move(another);
        }
    }
    if (problem || line.wish != CommandLine::Wish::assemble) {
        return problem;
    }
    line.options.recordsLines = !line.listing.empty() || holds(line.labels, LabelFormat::dbg);
    if (line.options.input.empty()) {
        return "the file to assemble is missing: --input FILE";
    }
    if (line.output.empty()) {
        return "the image to write is missing: --output FILE";
    }
    return {};
}

std::string helpText() {
    std::string text = R"(Usage: NESasm --input FILE --output FILE [OPTION...]
Assembles a program for the NES into an iNES image.

  --input FILE            the source to assemble
  --output FILE           the image to write
  -I FOLDER               search this folder for included files (may be repeated)
  -D NAME[=VALUE]         define a symbol; without a value it is 1
  -W NAME, -Wno-NAME      turn a warning on or off
  -Werror, -Werror=NAME   all warnings, or this one, count as errors
  --max-errors NUMBER     stop after so many errors (20; 0: never)
  --color WHEN            auto, always or never; never when the output is no terminal
  --messages FORM         text, or json for programs: one JSON object a line
  --listing FILE          write a listing: addresses, bytes, cycles, symbols
  --expand-macros         list the lines of macros and repetitions, too
  --labels FORMAT         write labels for a debugger beside the image: mlb, nl or dbg
                          (may be repeated)
  --source-map FILE       of which files the sources are copies, for the labels in dbg:
                          lines with a copy, a tab and the file that was copied
  -v                      say how full each bank is
  --help, --version       say this, or the version, and stop

NES_INCLUDE in the environment lists further folders for included files.
Exit status: 0 built, 1 the source has errors, 2 wrong usage or a file that cannot be read or written.

Warnings:
)";
    constexpr std::size_t NameWidth = 24;
    for (const WarningRow& row : WarningTable) {
        text.append("  ").append(row.name).append(NameWidth - row.name.size(), ' ');
        text.append(row.text).append(row.onByDefault ? "\n" : " (off by default)\n");
    }
    return text;
}

} // namespace nesasm
