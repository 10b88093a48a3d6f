// SPDX-License-Identifier: MIT
#include "editors/code/EncodingDetector.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <uchardet.h>
#include <utility>

namespace kestrel {

namespace {

/// The encoding that the detection library finds, if it finds one.
std::optional<std::string> detected(std::string_view bytes) {
    const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(),
                                                                         &uchardet_delete);
    if (uchardet_handle_data(detector.get(), bytes.data(), bytes.size()) != 0) {
        return std::nullopt;
    }
    uchardet_data_end(detector.get());
    std::string name = uchardet_get_charset(detector.get()); // empty where it finds none
    return name.empty() ? std::nullopt : std::optional(std::move(name));
}

/// Control characters other than white space are in no text, but in almost all other data.
bool looksLikeText(std::string_view bytes) {
    return std::ranges::none_of(bytes, [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        constexpr unsigned char Escape = 0x1b;
        constexpr unsigned char EndOfDosText = 0x1a;
        return value == 0x7f || (value < 0x20 && (value < '\t' || value > '\r') &&
                                 value != Escape && value != EndOfDosText);
    });
}

} // namespace

std::vector<std::string> encodingCandidates(std::string_view bytes) {
    if (!looksLikeText(bytes)) {
        return {};
    }
    auto name = detected(bytes);
    if (name == "UHC") {
        name = "windows-949";
    } else if (name == "ISO-8859-1") {
        name = "windows-1252"; // the same, with characters where the other has control codes
    }
    std::vector<std::string> names;
    if (name) {
        names.push_back(std::move(*name));
    }
    // A short comment may tell the library nothing. Japanese has rules that other text breaks; the
    // last one takes any bytes.
    names.emplace_back("Shift_JIS");
    names.emplace_back("windows-1252");
    return names;
}

} // namespace kestrel
