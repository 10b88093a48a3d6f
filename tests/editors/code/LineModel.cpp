// SPDX-License-Identifier: MIT
#include "editors/code/LineModel.h"

#include <algorithm>
#include <array>

namespace kestrel::test {

namespace {

QString endText(LineEnd end) {
    switch (end) {
    case LineEnd::lf:
        return QStringLiteral("\n");
    case LineEnd::crlf:
        return QStringLiteral("\r\n");
    case LineEnd::cr:
        return QStringLiteral("\r");
    }
    return {};
}

int randomBelow(std::mt19937& random, int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
}

} // namespace

LineModel::LineModel(const QString& text)
    : m_lines(1) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n') {
            m_lines.back().end = LineEnd::lf;
            m_lines.emplace_back();
        } else if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            m_lines.back().end = LineEnd::crlf;
            m_lines.emplace_back();
            ++i;
        } else if (text[i] == u'\r') {
            m_lines.back().end = LineEnd::cr;
            m_lines.emplace_back();
        } else {
            m_lines.back().text += text[i];
        }
    }
    m_usual = mostFrequentEnd();
}

LineEnd LineModel::mostFrequentEnd() const {
    const auto count = [this](LineEnd end) {
        return std::ranges::count(m_lines, std::optional(end), &Line::end);
    };
    const auto returns = std::max(count(LineEnd::crlf), count(LineEnd::cr));
    if (count(LineEnd::lf) >= returns) {
        return LineEnd::lf;
    }
    return count(LineEnd::crlf) == returns ? LineEnd::crlf : LineEnd::cr;
}

QString LineModel::text() const {
    QString text;
    for (const Line& line : m_lines) {
        text += line.text;
        if (line.end) {
            text += endText(*line.end);
        }
    }
    return text;
}

int LineModel::length() const {
    qsizetype length = -1;
    for (const Line& line : m_lines) {
        length += line.text.size() + 1;
    }
    return static_cast<int>(length);
}

LineModel::Place LineModel::placeOf(int position) const {
    qsizetype column = position;
    std::size_t line = 0;
    while (column > m_lines[line].text.size()) {
        column -= m_lines[line].text.size() + 1;
        ++line;
    }
    return {line, column};
}

void LineModel::replace(int from, int to, const QString& text) {
    const Place start = placeOf(from);
    const Place end = placeOf(to);
    Line& line = m_lines[start.line];
    const QString rest = m_lines[end.line].text.sliced(end.column);
    const std::optional<LineEnd> lastEnd = m_lines[end.line].end;
    line.text.truncate(start.column);
    line.end = lastEnd;
    const auto first = m_lines.begin() + static_cast<std::ptrdiff_t>(start.line);
    m_lines.erase(first + 1, m_lines.begin() + static_cast<std::ptrdiff_t>(end.line) + 1);

    LineEnd newEnd = m_usual;
    if (lastEnd) {
        newEnd = *lastEnd;
    } else if (start.line > 0) {
        newEnd = *m_lines[start.line - 1].end;
    }
    LineModel inserted(text);
    inserted.m_lines.back().text += rest;
    for (Line& added : inserted.m_lines) {
        added.end = newEnd;
    }
    inserted.m_lines.back().end = lastEnd;
    m_lines[start.line].text += inserted.m_lines.front().text;
    m_lines[start.line].end = inserted.m_lines.front().end;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(start.line) + 1,
                   inserted.m_lines.begin() + 1, inserted.m_lines.end());
}

int LineModel::startOfCharacterBefore(int position) const {
    if (position == 0) {
        return 0;
    }
    return insidePair(position - 1) ? position - 2 : position - 1;
}

bool LineModel::insidePair(int position) const {
    const Place place = placeOf(position);
    const QString& text = m_lines[place.line].text;
    return place.column > 0 && place.column < text.size() &&
           text[place.column - 1].isHighSurrogate() && text[place.column].isLowSurrogate();
}

int LineModel::randomPosition(std::mt19937& random) const {
    const int position = randomBelow(random, length() + 1);
    return insidePair(position) ? position - 1 : position;
}

QString randomText(std::mt19937& random, int pieces) {
    static const std::array<QString, 24> Pieces{
        QStringLiteral("\n"),         QStringLiteral("\n"),
        QStringLiteral("\r\n"),       QStringLiteral("\r\n"),
        QStringLiteral("\r"),         QStringLiteral("\r"),
        QStringLiteral("\n\r"),       QStringLiteral("\tlda #$00"),
        QStringLiteral("x"),          QStringLiteral("\t\t"),
        QString(QChar(u'\0')),        QString(QChar(0x00a0)),
        QString(QChar(0x2028)),       QString(QChar(0x2029)),
        QString(QChar(0xfdd0)),       QString(QChar(0xfdd1)),
        QString(QChar(0x0301)),       QString(QChar(0xfeff)),
        QString(QChar(0xfffc)),       QString(QChar(0x0085)),
        QStringLiteral("\v\f\x1a"),   QStringLiteral("\u00e9\u8868"),
        QStringLiteral("\U0001F600"), QStringLiteral("\U0010FFFF\uFFFF"),
    };
    // Few kinds in a text, so that all relations between the frequencies of line ends come up.
    const int kinds = 1 + randomBelow(random, static_cast<int>(Pieces.size()));
    const int firstKind = randomBelow(random, static_cast<int>(Pieces.size()));
    QString text;
    for (int i = 0; i < pieces; ++i) {
        const auto kind = static_cast<std::size_t>(firstKind + randomBelow(random, kinds));
        text += Pieces.at(kind % Pieces.size());
    }
    return text;
}

} // namespace kestrel::test
