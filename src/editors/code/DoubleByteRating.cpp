// SPDX-License-Identifier: MIT
#include "editors/code/DoubleByteRating.h"

#include <algorithm>

namespace kestrel {

namespace {

constexpr double Unknown = -3;
constexpr double LoneKana = -1;
constexpr double KanaInRun = 2;
constexpr double MarkFits = 3;
constexpr double Repeated = -2;  ///< as the bytes of rules and frames are
constexpr double Between = -3;   ///< between two ASCII letters
constexpr double Beside = -1;    ///< beside one
constexpr double Frequent = 1.5; ///< for each character that is frequent

constexpr unsigned char VoicedMark = 0xde;
constexpr unsigned char SemiVoicedMark = 0xdf;

bool isHigh(unsigned char byte) {
    return byte >= 0x80;
}

bool isLetter(unsigned char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

bool isSingleKana(unsigned char byte) {
    return byte >= 0xa1 && byte <= 0xdf;
}

/// Whether this kana can take the mark: KA to TO and HA to HO, the latter alone the half-voiced.
bool takesMark(unsigned char kana, unsigned char mark) {
    const bool isHaToHo = kana >= 0xca && kana <= 0xce;
    return isHaToHo || (mark == VoicedMark && (kana == 0xb3 || (kana >= 0xb6 && kana <= 0xc4)));
}

/// Whether this small kana can follow: YA, YU and YO a kana in I, TSU any, the vowels hardly one.
bool takesSmall(unsigned char kana, unsigned char small) {
    constexpr std::string_view InI = "\xb7\xbc\xc1\xc6\xcb\xd0\xd8\xde\xdf";
    constexpr std::string_view BeforeVowels = "\xb3\xcc\xc3\xde";
    const char before = static_cast<char>(kana);
    if (small >= 0xac && small <= 0xae) {
        return InI.find(before) != std::string_view::npos;
    }
    return small == 0xaf || BeforeVowels.find(before) != std::string_view::npos;
}

bool isSmallKana(unsigned char kana) {
    return kana >= 0xa7 && kana <= 0xaf;
}

/// Walks the bytes of a text and sums up what its characters are worth.
class Walk {
public:
    Walk(const DoubleByteSet& set, std::string_view bytes)
        : m_set(set)
        , m_bytes(bytes) {}

    /// False when the bytes break the rules.
    bool run() {
        while (m_place < m_bytes.size()) {
            if (!isHigh(at(m_place))) {
                ++m_place;
            } else if (m_set.hasSingleKana && isSingleKana(at(m_place))) {
                takeKana();
            } else if (!takePair()) {
                return false;
            }
        }
        return true;
    }

    double sum() const { return m_sum; }
    int count() const { return m_count; }

private:
    /// A byte of the text; a space beyond its ends.
    unsigned char at(std::size_t place) const {
        return place < m_bytes.size() ? static_cast<unsigned char>(m_bytes[place]) : ' ';
    }

    unsigned char before() const { return m_place == 0 ? ' ' : at(m_place - 1); }

    void takeKana() {
        const unsigned char kana = at(m_place);
        const bool followsKana = m_place == m_afterKana && m_place > 0;
        if (kana == VoicedMark || kana == SemiVoicedMark) {
            m_sum += followsKana && takesMark(before(), kana) ? MarkFits : Unknown;
        } else if (isSmallKana(kana)) {
            m_sum += followsKana && takesSmall(before(), kana) ? KanaInRun : Unknown;
        } else if (followsKana && before() == kana) {
            m_sum += Repeated;
        } else {
            m_sum += followsKana || isSingleKana(at(m_place + 1)) ? KanaInRun : LoneKana;
            m_sum += isLetter(before()) && !followsKana ? Beside : 0;
        }
        ++m_count;
        m_afterKana = ++m_place;
    }

    bool takePair() {
        const unsigned char lead = at(m_place);
        const unsigned char trail = at(m_place + 1);
        if (m_place + 1 >= m_bytes.size() || trail < (m_set.takesAsciiTrail ? 0x40 : 0x80)) {
            return false;
        }
        const unsigned code = lead * 0x100U + trail;
        const auto found = std::ranges::find_if(m_set.ranges, [code](const CodeRange& range) {
            return code >= range.first && code <= range.last;
        });
        if (lead == trail && (before() == lead || at(m_place + 2) == lead)) {
            m_sum += Repeated;
        } else {
            m_sum += found == m_set.ranges.end() ? Unknown : found->rating;
        }
        const bool afterPair = m_place == m_afterPair && m_place > 0;
        const bool letterBefore = !afterPair && isLetter(before());
        const bool letterAfter = isLetter(at(m_place + 2));
        if (letterBefore && letterAfter) {
            m_sum += Between;
        } else if (letterBefore || letterAfter) {
            m_sum += Beside;
        }
        ++m_count;
        m_afterPair = m_place += 2;
        return true;
    }

    const DoubleByteSet& m_set;
    std::string_view m_bytes;
    std::size_t m_place = 0;
    std::size_t m_afterKana = 0; ///< the place after the last kana of one byte
    std::size_t m_afterPair = 0; ///< the place after the last pair
    double m_sum = 0;
    int m_count = 0;
};

} // namespace

std::optional<double> ratedAs(const DoubleByteSet& set, std::string_view bytes,
                              std::u16string_view text) {
    Walk walk(set, bytes);
    if (!walk.run() || walk.count() == 0) {
        return std::nullopt;
    }
    const auto frequent = std::ranges::count_if(text, [&set](char16_t character) {
        return set.frequent.find(character) != std::u16string_view::npos;
    });
    return (walk.sum() + Frequent * static_cast<double>(frequent)) / walk.count();
}

} // namespace kestrel
