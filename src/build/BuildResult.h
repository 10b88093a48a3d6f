// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/UncopiedFile.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// What became of one request to build.
struct BuildResult {
    enum class State {
        refused,    ///< it ended before the assembler was started; `error` says why
        notStarted, ///< the assembler could not be started; `error` says why
        made,       ///< this build made the image
        notMade,    ///< the assembler ended without making the image
        crashed,    ///< the same, and a signal ended it
        stopped,    ///< the assembler was ended before its time, whatever it had made by then
    };

    State state = State::refused;
    std::filesystem::path image;         ///< where it is, or would be; empty when that is not known
    std::string mainFile;                ///< as the assembler was given it; empty with `image`
    std::filesystem::path includeFolder; ///< the same: the folder with the gathered files
    std::uintmax_t bytes = 0;            ///< the size of the image that was made
    /// From the request to the end of the assembler, without the wait for an older one's end.
    std::chrono::milliseconds duration{0};
    std::size_t errors = 0; ///< counted in the assembler's output, as are warnings
    std::size_t warnings = 0;
    bool hasMoreErrors = false;          ///< the assembler gave up at a limit of errors
    bool hasOutput = false;              ///< whether the assembler said anything
    int signal = 0;                      ///< what ended a crashed assembler
    std::optional<BuildError> error;     ///< as the completion handler gets it
    std::vector<UncopiedFile> notCopied; ///< the image is not of these files as they are
    std::vector<std::string> hints;      ///< sentences that explain `error` or name `notCopied`

    bool isMade() const { return state == State::made; }

    /// Whether this build made the image, of the project's files as they are.
    bool isGood() const { return isMade() && notCopied.empty(); }

    /// The result as one sentence without a full stop: "Game.nes built in 0.04 s: 24,592 bytes, no
    /// warnings".
    std::string sentence() const;
};

/// Gets the result of a request.
using BuildObserver = std::function<void(const BuildResult&)>;

/// Works out the state of a build whose assembler ran: from the image's file before and after it,
/// and from how the assembler ended.
struct AssemblerEnd {
    bool stopped = false;
    int signal = 0;         ///< 0 when it ended by itself
    bool madeImage = false; ///< there is another one than before
    /// It told of errors and did not end as after a success: an image that is there now was made by
    /// somebody else.
    bool hasFailed = false;
};
BuildResult::State stateAfter(const AssemblerEnd& end);

} // namespace kestrel
