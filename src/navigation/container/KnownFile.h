// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"
#include "model/ProjectItem.h"

#include <QChar>

#include <filesystem>
#include <memory>

namespace kestrel {

/// What is known of the file at `path`: when the program was assembled from it, or from the copy in
/// "tmp" that a build of `project` makes of it. Of two files with one name the later one is copied;
/// nothing is known of the other. nullptr when nothing is known.
const FileFacts* knownFile(const ProgramFacts& facts, const std::filesystem::path& path,
                           const std::shared_ptr<ProjectItem>& project);

/// The file of `project` of which `file` tells; an empty path when there is none.
std::filesystem::path sourceOf(const FileFacts& file, const std::shared_ptr<ProjectItem>& project);

/// Whether a character can be in a name of a program.
inline bool isNameCharacter(QChar character) {
    const char16_t code = character.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           (code >= u'0' && code <= u'9') || code == u'_' || code == u'.';
}

} // namespace kestrel
