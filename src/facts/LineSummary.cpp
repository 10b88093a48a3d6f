// SPDX-License-Identifier: MIT
#include "facts/LineSummary.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace kestrel {

namespace {

QString addressText(std::uint32_t address) {
    return QStringLiteral("$%1").arg(QString::number(address, 16).toUpper(), 4, QLatin1Char('0'));
}

QString numberText(std::uint64_t number) {
    return QLocale(QLocale::English).toString(static_cast<qulonglong>(number));
}

QString bytesText(std::uint64_t bytes) {
    return bytes == 1 ? LineSummary::tr("1 byte")
                      : LineSummary::tr("%1 bytes").arg(numberText(bytes));
}

QString cyclesText(std::uint64_t least, std::uint64_t most) {
    return least == most
               ? LineSummary::tr("%1 cycles").arg(numberText(least))
               : LineSummary::tr("%1 to %2 cycles").arg(numberText(least), numberText(most));
}

/// Of a line that made no bytes.
QString labelText(const ProgramFacts& facts, const LineFacts& line, std::string_view label) {
    const SymbolFacts* const symbol = facts.symbol(label);
    if (label.starts_with('.') || (symbol != nullptr && symbol->kind == SymbolFacts::Kind::label)) {
        return addressText(line.address);
    }
    if (symbol != nullptr && symbol->kind == SymbolFacts::Kind::variable) {
        return LineSummary::tr("%1, %2 of memory")
            .arg(addressText(static_cast<std::uint32_t>(symbol->value)), bytesText(symbol->bytes));
    }
    return {};
}

} // namespace

QString LineSummary::ofLine(const ProgramFacts& facts, const FileFacts& file, std::uint32_t number,
                            std::string_view label) {
    const LineFacts* const line = file.line(number);
    if (line == nullptr) {
        return {};
    }
    if (line->bytes == 0) {
        return label.empty() ? QString() : labelText(facts, *line, label);
    }
    QStringList parts{addressText(line->address)};
    if (line->times > 1) {
        parts[0] = tr("%1 and %2 more").arg(parts[0], numberText(line->times - 1));
    }
    const QString bytes = bytesText(line->bytes);
    parts.append(line->isInMemory() ? tr("%1 of memory").arg(bytes) : bytes);
    if (line->mostCycles != 0) {
        parts.append(cyclesText(line->leastCycles, line->mostCycles));
        if (line->times > 1) {
            parts.back() = tr("%1 each").arg(parts.back());
        }
    }
    return parts.join(QStringLiteral(", "));
}

QString LineSummary::ofLines(const FileFacts& file, std::uint32_t first, std::uint32_t last) {
    std::uint64_t bytes = 0;
    std::uint64_t least = 0;
    std::uint64_t most = 0;
    auto line = std::ranges::lower_bound(file.lines, first, {}, &LineFacts::line);
    const bool isAny = line != file.lines.end() && line->line <= last;
    for (; line != file.lines.end() && line->line <= last; ++line) {
        bytes += line->bytes;
        // Bytes are those of all places that the line was assembled at, cycles those of one.
        const std::uint64_t places = std::max<std::uint64_t>(line->times, 1);
        least += places * line->leastCycles;
        most += places * line->mostCycles;
    }
    if (!isAny) {
        return {};
    }
    const QString text = tr("%1 lines: %2").arg(numberText(last - first + 1), bytesText(bytes));
    return most == 0 ? text : text + QStringLiteral(", ") + cyclesText(least, most);
}

} // namespace kestrel
