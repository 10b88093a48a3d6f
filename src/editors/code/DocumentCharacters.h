// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

/// Maps between a text and what stands for it in a text document. The toolkit's document takes
/// U+2028, U+2029, U+FDD0 and U+FDD1 for structure of its own; a lone low surrogate, which no valid
/// text holds, stands for each of them there.
class DocumentCharacters {
public:
    /// The form for the document. A surrogate that has no partner becomes U+FFFD: it could not be
    /// saved.
    static QString toDocument(QString text);

    /// The text that a document's characters stand for.
    static QString fromDocument(QString characters);

    /// Whether fromDocument() would change the characters.
    static bool hasStandIns(QStringView characters);
};

} // namespace kestrel
