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

/// Delivers the result of one build: posts the output to the main thread, then calls the completion
/// handler on the calling thread. Only the first call of finish(), fail() and abandon() counts, on
/// whichever thread. Uses neither processes nor Qt.
template<typename Text> class BuildHandOver {
public:
    using Completion =
        std::function<void(std::optional<std::filesystem::path>, std::optional<BuildError>)>;
    using Task = std::function<void()>;
    /// Queues a task for the main thread; returns at once.
    using Post = std::function<void(Task)>;
    /// Called on the main thread; must not refer strongly to the builder.
    using Deliver = std::function<void(const Text&)>;

    BuildHandOver(Completion completion, Post post, Deliver deliver)
        : m_completion(std::move(completion))
        , m_post(std::move(post))
        , m_deliver(std::move(deliver)) {}
    BuildHandOver(const BuildHandOver&) = delete;
    BuildHandOver& operator=(const BuildHandOver&) = delete;

    /// Posts the delivery of `output`, if any, and `report`, if not empty, and then completes with
    /// `image`. True when this call was the first.
    bool finish(std::optional<Text> output, std::filesystem::path image, Task report = {}) {
        if (!claim()) {
            return false;
        }
        postAll(std::move(output), std::move(report));
        call(std::move(image), std::nullopt);
        return true;
    }

    /// Posts the same, and then completes with an error. True when this call was the first.
    bool fail(BuildError error, std::optional<Text> output = {}, Task report = {}) {
        if (!claim()) {
            return false;
        }
        postAll(std::move(output), std::move(report));
        call(std::nullopt, std::move(error));
        return true;
    }

    /// Drops the handler without calling it, for a program that is quitting. True when this call
    /// was the first.
    bool abandon() {
        if (!claim()) {
            return false;
        }
        m_completion = nullptr;
        return true;
    }

private:
    /// True for the first caller only.
    bool claim() { return !m_claimed.exchange(true, std::memory_order_acq_rel); }

    void postAll(std::optional<Text> output, Task report) {
        if (output) {
            m_post([deliver = std::exchange(m_deliver, nullptr),
                    text = std::make_shared<const Text>(*std::move(output))] { deliver(*text); });
        }
        if (report) {
            m_post(std::move(report));
        }
    }

    void call(std::optional<std::filesystem::path> image, std::optional<BuildError> error) {
        // Destroys the handler and its captures on this thread.
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
