// SPDX-License-Identifier: MIT
#include "build/BuildResult.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace kestrel {

namespace {

/// A number with a comma before each group of three digits.
std::string grouped(std::uintmax_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3;) {
        place -= 3;
        text.insert(place, 1, ',');
    }
    return text;
}

/// "no warnings", "1 warning", "2 warnings".
std::string counted(std::uintmax_t number, std::string_view noun) {
    std::string text = number == 0 ? "no" : grouped(number);
    text += ' ';
    text += noun;
    return number == 1 ? text : text + 's';
}

/// What the two places behind the point can tell.
constexpr std::chrono::milliseconds ShortestTold(10);

/// `less` is the word for less than what can be told.
std::string seconds(std::chrono::milliseconds duration, std::string_view less) {
    if (duration < ShortestTold) {
        return std::string(less) + " 0.01 s";
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f s",
                  static_cast<double>(duration.count()) / 1000.0);
    return text.data();
}

/// "1 error", "20 errors or more".
std::string errorsOf(const BuildResult& result) {
    return counted(result.errors, "error") + (result.hasMoreErrors ? " or more" : "");
}

/// What the assembler complained of, without "no errors".
std::string messages(const BuildResult& result) {
    const std::string warnings = counted(result.warnings, "warning");
    return result.errors == 0 ? warnings : errorsOf(result) + ", " + warnings;
}

std::string sentenceWithoutImage(const BuildResult& result) {
    if (result.errors > 0) {
        return errorsOf(result) +
               (result.warnings > 0 ? ", " + counted(result.warnings, "warning") : "") +
               ": no image";
    }
    if (!result.hasOutput) {
        return "No image was made, and the assembler said nothing";
    }
    return "No image was made" +
           (result.warnings > 0 ? ", " + counted(result.warnings, "warning") : "") +
           "; see what the assembler says";
}

} // namespace

std::string BuildResult::sentence() const {
    switch (state) {
    case State::refused:
    case State::notStarted:
        return error ? error->localizedDescription() : "Nothing was built";
    case State::made:
        return image.filename().string() + " built in " + seconds(duration, "under") + ": " +
               (bytes == 1 ? "1 byte" : grouped(bytes) + " bytes") + ", " + messages(*this) +
               (isGood() ? "" : ", but not of your files as they are");
    case State::notMade:
        return sentenceWithoutImage(*this);
    case State::crashed:
        return "The assembler crashed (" + std::string(::strsignal(signal)) + "): no image";
    case State::stopped:
        return "The build was stopped after " + seconds(duration, "less than");
    }
    return {};
}

BuildResult::State stateAfter(const AssemblerEnd& end) {
    if (end.stopped) {
        return BuildResult::State::stopped;
    }
    if (end.madeImage && !end.hasFailed) {
        return BuildResult::State::made;
    }
    return end.signal == 0 ? BuildResult::State::notMade : BuildResult::State::crashed;
}

} // namespace kestrel
