// SPDX-License-Identifier: MIT
#include "memory/MemoryReport.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <utility>

namespace kestrel {

namespace {

/// How many ranges of one row are told one by one.
constexpr std::size_t RangesTold = 12;

/// Digits in groups of three with a comma, as in the result of a build.
QString grouped(std::int64_t number) {
    return QLocale(QLocale::English).toString(static_cast<qlonglong>(number));
}

QString signedText(std::int64_t number) {
    // A minus sign is as wide as the plus sign; a hyphen may be passed over when it is read aloud.
    return (number < 0 ? QChar(0x2212) : QLatin1Char('+')) + grouped(std::abs(number));
}

QString hexadecimal(std::uint32_t number) {
    return QStringLiteral("$%1").arg(number, 4, 16, QLatin1Char('0')).toUpper();
}

const MemoryArea* areaLike(const ProgramFacts& facts, const MemoryArea& area) {
    const auto found = std::ranges::find_if(facts.areas, [&](const MemoryArea& other) {
        return other.kind == area.kind && other.number == area.number;
    });
    return found != facts.areas.end() ? &*found : nullptr;
}

bool overlap(const ByteRange& one, const ByteRange& other) {
    return one.begin < other.end && other.begin < one.end;
}

QString usageText(std::uint32_t used, std::uint32_t size, std::uint32_t free, std::uint32_t gap) {
    return MemoryReport::tr("%1 of %2 bytes used, %3 free, largest gap %4")
        .arg(grouped(used), grouped(size), grouped(free), grouped(gap));
}

QString bytesText(std::int64_t count) {
    return count == 1 ? MemoryReport::tr("1 byte")
                      : MemoryReport::tr("%1 bytes").arg(grouped(count));
}

} // namespace

MemoryReport::MemoryReport(std::shared_ptr<const ProgramFacts> facts, const ProgramFacts* before,
                           QString imageName)
    : m_facts(std::move(facts))
    , m_image(std::move(imageName))
    , m_hasBefore(before != nullptr) {
    for (const MemoryArea& area : m_facts->areas) {
        MemoryRow row;
        row.area = &area;
        row.used = area.usedBytes();
        row.gap = area.largestGap();
        if (const MemoryArea* old = before != nullptr ? areaLike(*before, area) : nullptr) {
            row.change = std::int64_t{row.used} - std::int64_t{old->usedBytes()};
        } else {
            row.isNew = before != nullptr;
        }
        m_rows.push_back(row);
    }
}

bool MemoryReport::hasRowsLike(const MemoryReport& other) const {
    return std::ranges::equal(m_rows, other.m_rows, [](const MemoryRow& a, const MemoryRow& b) {
        return a.area->kind == b.area->kind && a.area->number == b.area->number;
    });
}

QString MemoryReport::summary() const {
    QStringList parts;
    bool hasChanged = false;
    const auto add = [&](MemoryArea::Kind kind, const QString& text) {
        std::int64_t used = 0;
        std::int64_t size = 0;
        std::int64_t change = 0;
        for (const MemoryRow& row : m_rows) {
            if (row.area->kind == kind) {
                used += row.used;
                size += row.area->size();
                change += row.isNew ? row.used : row.change.value_or(0);
                hasChanged = hasChanged || row.isNew || row.change.value_or(0) != 0;
            }
        }
        if (size > 0) {
            const QString part = text.arg(grouped(used), grouped(size));
            parts += change == 0 ? part : tr("%1 (%2)").arg(part, signedText(change));
        }
    };
    add(MemoryArea::Kind::prg, tr("PRG %1 of %2 bytes used"));
    add(MemoryArea::Kind::chr, tr("CHR %1 of %2"));
    add(MemoryArea::Kind::zeroPage, tr("zero page %1 of %2"));
    add(MemoryArea::Kind::ram, tr("RAM %1 of %2"));
    const QString text = tr("%1: %2").arg(m_image, parts.join(QStringLiteral(", ")));
    return m_hasBefore && !hasChanged ? tr("%1; as full as after the build before").arg(text)
                                      : text;
}

QString MemoryReport::nameOf(const MemoryRow& row) {
    switch (row.area->kind) {
    case MemoryArea::Kind::prg:
        return tr("PRG bank %1").arg(row.area->number);
    case MemoryArea::Kind::chr:
        return tr("CHR bank %1").arg(row.area->number);
    case MemoryArea::Kind::zeroPage:
        return tr("Zero page");
    case MemoryArea::Kind::ram:
        return tr("RAM");
    }
    return {};
}

QString MemoryReport::usageOf(const MemoryRow& row) {
    return usageText(row.used, row.area->size(), row.free(), row.gap.size());
}

QString MemoryReport::widestUsage(std::uint32_t size) {
    return usageText(size, size, size, size);
}

QString MemoryReport::changeOf(const MemoryRow& row) {
    if (row.isNew) {
        return tr("new");
    }
    const std::int64_t change = row.change.value_or(0);
    if (change == 0) {
        return {};
    }
    const QString number = signedText(change);
    return std::abs(change) == 1 ? tr("%1 byte").arg(number) : tr("%1 bytes").arg(number);
}

QString MemoryReport::sentenceOf(const MemoryRow& row) {
    QString text = tr("%1: %2").arg(nameOf(row), usageOf(row));
    const std::int64_t change = row.change.value_or(0);
    if (row.isNew) {
        return tr("%1; not in the build before").arg(text);
    }
    if (change == 0) {
        return text;
    }
    const QString count = bytesText(std::abs(change));
    return change > 0 ? tr("%1; %2 more than in the build before").arg(text, count)
                      : tr("%1; %2 less than in the build before").arg(text, count);
}

QString MemoryReport::tabbed(const MemoryRow& row) {
    const auto change = row.isNew ? std::optional<std::int64_t>(row.used) : row.change;
    return QStringList{nameOf(row),
                       QString::number(row.used),
                       QString::number(row.area->size()),
                       QString::number(row.free()),
                       QString::number(row.gap.size()),
                       change ? QString::number(*change) : QString()}
        .join(QLatin1Char('\t'));
}

QString MemoryReport::tabbedHead() {
    return QStringList{tr("Area"), tr("Used"),        tr("Size"),
                       tr("Free"), tr("Largest gap"), tr("Change")}
        .join(QLatin1Char('\t'));
}

MemoryReport::BankAddresses MemoryReport::findBankAddresses() const {
    // The sizes of the banks whose addresses tell offsets.
    std::vector<std::uint32_t> sizes(m_facts->areas.size());
    for (const MemoryArea& area : m_facts->areas) {
        if (area.isBank() && area.number < sizes.size() && area.whole.begin == 0 &&
            std::has_single_bit(area.size())) {
            sizes[area.number] = area.size();
        }
    }
    BankAddresses addresses(sizes.size());
    std::vector<bool> seen(sizes.size());
    for (const FileFacts& file : m_facts->files) {
        for (const LineFacts& line : file.lines) {
            if (line.bytes == 0 || line.bank >= sizes.size() || sizes[line.bank] == 0) {
                continue;
            }
            const std::uint32_t address = line.address & ~(sizes[line.bank] - 1);
            if (!seen[line.bank]) {
                seen[line.bank] = true;
                addresses[line.bank] = address;
            } else if (addresses[line.bank] != address) {
                addresses[line.bank].reset();
            }
        }
    }
    return addresses;
}

std::optional<std::uint32_t> MemoryReport::addressOf(const MemoryRow& row) const {
    if (!m_bankAddresses) {
        m_bankAddresses = findBankAddresses();
    }
    const std::uint32_t bank = row.area->number;
    return row.area->isBank() && bank < m_bankAddresses->size() ? (*m_bankAddresses)[bank]
                                                                : std::nullopt;
}

/// "$C000-$D459", or where the bytes are in their bank when they have no address of their own.
QString MemoryReport::rangeText(const MemoryRow& row, const ByteRange& range) const {
    const auto address = addressOf(row);
    const std::uint32_t base = address.value_or(0);
    const QString first = hexadecimal(base + range.begin);
    const QString text =
        range.size() == 1 ? first : first + QLatin1Char('-') + hexadecimal(base + range.end - 1);
    return row.area->isBank() && !address ? tr("offset %1").arg(text) : text;
}

QString MemoryReport::listText(const MemoryRow& row, const std::vector<ByteRange>& ranges) const {
    QStringList texts;
    for (std::size_t i = 0; i < std::min(ranges.size(), RangesTold); ++i) {
        texts += rangeText(row, ranges[i]);
    }
    QString text = texts.join(QStringLiteral(", "));
    if (ranges.size() <= RangesTold) {
        return text;
    }
    const QString more = grouped(static_cast<std::int64_t>(ranges.size() - RangesTold));
    return tr("%1 and %2 more").arg(text, more);
}

QString MemoryReport::rangesOf(const MemoryRow& row) const {
    QStringList sentences;
    if (!row.area->used.empty()) {
        sentences += tr("Used: %1.").arg(listText(row, row.area->used));
    }
    if (row.gap.size() > 0) {
        sentences += tr("Largest gap: %1.").arg(rangeText(row, row.gap));
    }
    if (!row.area->named.empty()) {
        sentences += tr("Named by a constant: %1.").arg(listText(row, row.area->named));
    }
    return sentences.join(QLatin1Char(' '));
}

QString MemoryReport::textOf(const MemoryRow& row, const MemoryPlace& place) const {
    const QString range = rangeText(row, place.range);
    const QString count = bytesText(place.range.size());
    switch (place.state) {
    case MemoryPlace::State::used:
        return tr("%1 used, %2").arg(range, count);
    case MemoryPlace::State::named:
        return tr("%1 named by a constant; how far it reaches is not known").arg(range);
    case MemoryPlace::State::free:
        break;
    }
    return place.range == row.gap ? tr("%1 free, %2: the largest gap").arg(range, count)
                                  : tr("%1 free, %2").arg(range, count);
}

MemoryPlace MemoryReport::placeAt(const MemoryRow& row, const ByteRange& bytes) {
    const auto isThere = [&](const ByteRange& range) { return overlap(range, bytes); };
    const auto used = std::ranges::find_if(row.area->used, isThere);
    if (used != row.area->used.end()) {
        return {MemoryPlace::State::used, *used};
    }
    const auto named = std::ranges::find_if(row.area->named, isThere);
    if (named != row.area->named.end()) {
        return {MemoryPlace::State::named, *named};
    }
    ByteRange gap = row.area->whole;
    for (const ByteRange& range : row.area->used) {
        if (range.end <= bytes.begin) {
            gap.begin = range.end;
        } else {
            gap.end = range.begin;
            break;
        }
    }
    return {MemoryPlace::State::free, gap};
}

} // namespace kestrel
