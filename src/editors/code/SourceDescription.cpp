// SPDX-License-Identifier: MIT
#include "editors/code/SourceDescription.h"

#include "editors/code/KeptBytes.h"
#include "editors/code/LineReader.h"

#include <QCoreApplication>

#include <set>

namespace kestrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kestrel::SourceDescription)
};

QString encodingOf(const SourceText& source) {
    if (!source.formerEncoding.isEmpty()) {
        return Texts::tr("%1, saved as UTF-8").arg(source.formerEncoding);
    }
    const qsizetype kept = keptByteCount(source.text);
    if (kept > 0) {
        return kept == 1 ? Texts::tr("UTF-8 with 1 byte kept as it is")
                         : Texts::tr("UTF-8 with %1 bytes kept as they are").arg(kept);
    }
    return source.byteOrderMark ? Texts::tr("UTF-8 with a byte-order mark") : Texts::tr("UTF-8");
}

/// Empty for a text without line ends.
QString lineEndsOf(const QString& text) {
    std::set<LineEnd> ends;
    LineReader reader(text);
    while (const auto line = reader.next()) {
        if (line->end) {
            ends.insert(*line->end);
        }
    }
    if (ends.empty()) {
        return {};
    }
    if (ends.size() > 1) {
        return Texts::tr("mixed line ends");
    }
    switch (*ends.begin()) {
    case LineEnd::lf:
        break;
    case LineEnd::crlf:
        return Texts::tr("CRLF");
    case LineEnd::cr:
        return Texts::tr("CR");
    }
    return Texts::tr("LF");
}

} // namespace

QString sourceDescription(const SourceText& source) {
    const QString encoding = encodingOf(source);
    const QString lineEnds = lineEndsOf(source.text);
    return lineEnds.isEmpty() ? encoding : Texts::tr("%1, %2").arg(encoding, lineEnds);
}

} // namespace kestrel
