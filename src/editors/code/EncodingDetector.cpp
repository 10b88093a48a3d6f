// SPDX-License-Identifier: MIT
#include "editors/code/EncodingDetector.h"

#include "editors/code/EncodingTable.h"
#include "editors/code/KeptBytes.h"

#include <QStringDecoder>

#include <algorithm>
#include <memory>
#include <optional>
#include <uchardet.h>
#include <utility>

namespace kestrel {

namespace {

/// So much of a text is looked at: enough to be sure, and quick with the longest file.
constexpr std::size_t LongestSample = 65536;

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

bool isHigh(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// The lines that are not ASCII, as far as they are looked at. No encoding has a line end as part
/// of a character.
std::string sampleOf(std::string_view bytes) {
    std::string sample;
    std::size_t place = 0;
    while (place < bytes.size() && sample.size() < LongestSample) {
        const auto high =
            std::find_if(bytes.begin() + static_cast<std::ptrdiff_t>(place), bytes.end(), isHigh);
        if (high == bytes.end()) {
            break;
        }
        const auto found = static_cast<std::size_t>(high - bytes.begin());
        const std::size_t start = std::max(place, bytes.find_last_of("\r\n", found) + 1);
        const std::size_t end = std::min(bytes.find_first_of("\r\n", found), bytes.size());
        sample += bytes.substr(start, end - start);
        sample += '\n';
        place = end;
    }
    if (sample.size() > LongestSample) {
        // A byte below the digits is whole and ends whatever is before it.
        const std::size_t cut =
            std::string_view(sample).substr(0, LongestSample).find_last_of(" \t\n!\"#$%&'()*+,-./");
        sample.resize(cut == std::string::npos ? LongestSample : cut);
    }
    return sample;
}

/// Whether each byte that is not ASCII is a sign alone among spaces, digits and punctuation, and
/// one of Windows-1252. That says nothing of any encoding, and the usual one is taken. What is
/// above the digits and their neighbours may be the second half of a character.
bool holdsSingleSignsAlone(std::string_view sample) {
    // Unassigned ones, accents without a letter, a letter that is no word.
    constexpr std::string_view Unlikely = "\x81\x8d\x8f\x90\x9d\xa8\xaf\xb4\xb8\xf8";
    const auto isApart = [](char byte) { return !isHigh(byte) && byte < '@'; };
    for (std::size_t i = 0; i < sample.size(); ++i) {
        if (isHigh(sample[i]) && ((i > 0 && !isApart(sample[i - 1])) ||
                                  (i + 1 < sample.size() && !isApart(sample[i + 1])) ||
                                  Unlikely.find(sample[i]) != std::string_view::npos)) {
            return false;
        }
    }
    return true;
}

/// How well the text reads as UTF-8 with bytes that are none. Characters hardly come about by
/// chance, those of three bytes even less.
std::optional<double> ratedAsUtf8(std::string_view sample) {
    constexpr double Character = 4;
    constexpr double Byte = -2;
    const Utf8Content content = contentOfUtf8(sample);
    if (content.characters == 0) {
        return std::nullopt;
    }
    const auto characters = static_cast<double>(content.characters);
    const auto keptBytes = static_cast<double>(content.keptBytes);
    return (Character * characters + Byte * keptBytes) / (characters + keptBytes);
}

std::optional<double> rated(const KnownEncoding& encoding, std::string_view sample) {
    QStringDecoder decoder(encoding.name, QStringConverter::Flag::Stateless);
    // The converter works lazily, so its result must exist before it is asked for errors.
    const QString text = decoder.decode(QByteArrayView(sample.data(), std::ssize(sample)));
    if (!decoder.isValid() || decoder.hasError()) {
        return std::nullopt;
    }
    if (encoding.pairs != nullptr) {
        const QStringView view(text);
        return ratedAs(*encoding.pairs, sample,
                       {view.utf16(), static_cast<std::size_t>(view.size())});
    }
    std::optional<double> best;
    for (const Language& language : encoding.languages) {
        best = std::max(best, ratedAs(language, text));
    }
    return best;
}

struct RatedCandidate {
    EncodingCandidate candidate;
    double rating;
};

/// All encodings that the sample can be in, the likeliest first.
std::vector<RatedCandidate> ratedCandidates(std::string_view sample) {
    std::vector<RatedCandidate> rating;
    if (const auto utf8 = ratedAsUtf8(sample)) {
        rating.push_back({{"UTF-8", QStringLiteral("UTF-8")}, *utf8});
    }
    for (const KnownEncoding& encoding : knownEncodings()) {
        if (const auto found = rated(encoding, sample)) {
            rating.push_back({{encoding.name, QString::fromLatin1(encoding.title)}, *found});
        }
    }
    std::ranges::stable_sort(rating, std::greater(), &RatedCandidate::rating);
    return rating;
}

} // namespace

std::vector<EncodingCandidate> encodingCandidates(std::string_view bytes) {
    if (!looksLikeText(bytes)) {
        return {};
    }
    std::vector<EncodingCandidate> candidates;
    bool asked = false;
    // What reads badly in all known encodings may be in one that only the library knows.
    const auto askLibrary = [&] {
        const auto name = std::exchange(asked, true) ? std::nullopt : detected(bytes);
        if (name) {
            candidates.push_back({*name, QString::fromStdString(*name)});
        }
    };
    const std::string sample = sampleOf(bytes);
    if (holdsSingleSignsAlone(sample)) {
        return {{"windows-1252", QStringLiteral("Windows-1252")}};
    }
    for (RatedCandidate& known : ratedCandidates(sample)) {
        if (known.rating < 0) {
            askLibrary();
        }
        candidates.push_back(std::move(known.candidate));
    }
    askLibrary();
    candidates.push_back({"windows-1252", QStringLiteral("Windows-1252")}); // takes any bytes
    return candidates;
}

} // namespace kestrel
