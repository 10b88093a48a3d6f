// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace kestrel {

/// How the worker of one build hands over its outcome: the output goes to the main thread as one
/// posted task, then the completion handler is called, here and exactly once, whichever thread
/// comes first and however often. Knows nothing of processes or of the toolkit.
template<typename Text> class BuildHandOver {
public:
    using Completion =
        std::function<void(std::optional<std::filesystem::path>, std::optional<BuildError>)>;
    using Task = std::function<void()>;
    /// Queues a task for the main thread and returns at once.
    using Post = std::function<void(Task)>;
    /// Runs on the main thread; keeps nothing alive that may have gone by then.
    using Deliver = std::function<void(const Text&)>;

    BuildHandOver(Completion completion, Post post, Deliver deliver)
        : m_completion(std::move(completion))
        , m_post(std::move(post))
        , m_deliver(std::move(deliver)) {}
    BuildHandOver(const BuildHandOver&) = delete;
    BuildHandOver& operator=(const BuildHandOver&) = delete;

    /// Posts the delivery of `output` (if there is any to deliver) and then completes with `image`.
    /// True when this call completed the build.
    bool finish(std::optional<Text> output, std::filesystem::path image) {
        if (!claim()) {
            return false;
        }
        if (output) {
            m_post([deliver = std::exchange(m_deliver, nullptr),
                    text = std::make_shared<const Text>(*std::move(output))] { deliver(*text); });
        }
        call(std::move(image), std::nullopt);
        return true;
    }

    /// Completes with an error and delivers nothing. True when this call completed the build.
    bool fail(BuildError error) {
        if (!claim()) {
            return false;
        }
        call(std::nullopt, std::move(error));
        return true;
    }

    /// Drops the handler uncalled, for a program that is quitting: whom it would tell may be gone.
    bool abandon() {
        if (!claim()) {
            return false;
        }
        m_completion = nullptr;
        return true;
    }

private:
    /// True for the first caller only; what follows it belongs to that caller's thread alone.
    bool claim() { return !m_claimed.exchange(true, std::memory_order_acq_rel); }

    void call(std::optional<std::filesystem::path> image, std::optional<BuildError> error) {
        // What the handler holds is let go with it, on this thread.
        if (const Completion completion = std::exchange(m_completion, nullptr)) {
            completion(std::move(image), std::move(error));
        }
    }

    std::atomic<bool> m_claimed = false;
    Completion m_completion;
    Post m_post;
    Deliver m_deliver;
};

} // namespace kestrel
