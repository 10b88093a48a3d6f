// SPDX-License-Identifier: MIT
#include "model/Draft.h"

#include "model/Json.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace kestrel {

namespace {

constexpr std::string_view Format = "Kestrel draft";
constexpr int Version = 1;
/// No description is longer: a path has at most 4096 bytes, each written as three characters.
constexpr std::size_t LongestDescription = 16384;
constexpr std::array<std::string_view, 3> KindNames = {"text", "tiles", "palettes"};

std::optional<DraftKind> kindNamed(std::string_view name) {
    for (std::size_t kind = 0; kind < KindNames.size(); ++kind) {
        if (KindNames.at(kind) == name) {
            return static_cast<DraftKind>(kind);
        }
    }
    return std::nullopt;
}

std::string hexText(std::uint64_t number) {
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return text.data();
}

template<typename Number> std::optional<Number> hexNumber(std::string_view text) {
    Number number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return whole && !text.empty() ? std::optional(number) : std::nullopt;
}

/// A path may hold bytes that are no UTF-8, which JSON cannot: they are escaped as in a URL.
std::string escaped(const std::string& path) {
    std::string text;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > ' ' && byte < 0x7F && character != '%') {
            text += character;
        } else {
            text += '%' + hexText(byte).substr(14);
        }
    }
    return text;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string path;
    while (!text.empty()) {
        if (text.front() != '%') {
            path += text.front();
            text.remove_prefix(1);
            continue;
        }
        const auto byte = hexNumber<unsigned>(text.substr(1, 2));
        if (text.size() < 3 || !byte) {
            return std::nullopt;
        }
        path += static_cast<char>(*byte);
        text.remove_prefix(3);
    }
    return path;
}

/// A member that is a number, not negative.
std::optional<std::uint64_t> numberMember(const Dictionary& object, std::string_view key) {
    const Dictionary* value = member(object, key);
    if (value == nullptr || !value->is_number_integer() ||
        (!value->is_number_unsigned() && value->get<std::int64_t>() < 0)) {
        return std::nullopt;
    }
    return value->get<std::uint64_t>();
}

std::optional<Fingerprint> baseOf(const Dictionary& description) {
    const auto size = numberMember(description, "baseSize");
    const auto hash = hexNumber<std::uint64_t>(stringMember(description, "baseHash").value_or(""));
    return size && hash ? std::optional(Fingerprint{*size, *hash}) : std::nullopt;
}

std::optional<WrittenDraft> described(const Dictionary& description) {
    const auto kind = kindNamed(stringMember(description, "kind").value_or(""));
    const auto file = unescaped(stringMember(description, "file").value_or(""));
    const auto time = numberMember(description, "time");
    const auto process = numberMember(description, "process");
    const auto start = numberMember(description, "processStart");
    const auto system = stringMember(description, "system");
    if (stringMember(description, "format") != Format ||
        numberMember(description, "version") != std::uint64_t{Version} || !kind || !file ||
        file->empty() || !time || !process || !start || !system) {
        return std::nullopt;
    }
    return WrittenDraft{
        Draft{*file, *kind, baseOf(description), static_cast<std::int64_t>(*time), {}},
        ProcessIdentity{static_cast<std::int64_t>(*process), *start, *system}};
}

} // namespace

std::string draftFileBytes(const Draft& draft, const ProcessIdentity& writer) {
    Dictionary description = Dictionary::object();
    description["format"] = Format;
    description["version"] = Version;
    description["kind"] = KindNames.at(static_cast<std::size_t>(draft.kind));
    description["file"] = escaped(draft.file.native());
    if (draft.base) {
        description["baseSize"] = draft.base->size;
        description["baseHash"] = hexText(draft.base->hash);
    }
    description["time"] = draft.time;
    description["process"] = writer.number;
    description["processStart"] = writer.start;
    description["system"] = writer.system;
    description["size"] = draft.content.size();
    std::string bytes = serialiseJson(description).value_or(std::string());
    bytes.reserve(bytes.size() + 1 + draft.content.size());
    bytes += '\n';
    bytes += draft.content;
    return bytes;
}

std::optional<WrittenDraft> readDraftFile(std::string_view bytes) {
    const std::size_t end = bytes.substr(0, LongestDescription).find('\n');
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const auto description = parseJson(bytes.substr(0, end));
    auto written = description ? described(*description) : std::nullopt;
    const std::string_view content = bytes.substr(end + 1);
    if (!written || numberMember(*description, "size") != content.size()) {
        return std::nullopt;
    }
    written->draft.content = content;
    return written;
}

std::int64_t presentTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

} // namespace kestrel
