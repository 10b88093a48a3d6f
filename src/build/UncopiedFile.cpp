// SPDX-License-Identifier: MIT
#include "build/UncopiedFile.h"

#include "build/ShownPath.h"

#include <cstddef>

namespace kestrel {

namespace {

constexpr std::size_t MostSentences = 3;

} // namespace

std::vector<std::string> sentencesAbout(const std::vector<UncopiedFile>& files,
                                        const std::filesystem::path& includeFolder) {
    std::vector<std::string> sentences;
    for (const UncopiedFile& file : files) {
        if (sentences.size() == MostSentences) {
            sentences.push_back("... and " + std::to_string(files.size() - MostSentences) +
                                " more.");
            break;
        }
        sentences.push_back(shown(file.name) + " could not be copied to " + shown(includeFolder) +
                            ": " + file.reason +
                            (file.olderCopy ? "; an older copy was built." : "."));
    }
    return sentences;
}

} // namespace kestrel
