// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

// A QTextDocument uses U+2028, U+2029, U+FDD0 and U+FDD1 for its own structure. In the document
// each of them is represented by a lone low surrogate below U+DC80, which no text contains; those
// from there on stand for bytes of the file (see KeptBytes).

/// The characters that represent `text` in a document. A surrogate without its partner
/// that stands for no byte of a file becomes U+FFFD: it could not be saved.
QString toDocumentCharacters(QString text);

/// The text that a document's characters represent.
QString fromDocumentCharacters(QString characters);

/// Whether fromDocumentCharacters() would change the characters.
bool hasStandIns(QStringView characters);

} // namespace kestrel
