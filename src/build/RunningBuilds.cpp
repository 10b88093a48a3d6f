// SPDX-License-Identifier: MIT
#include "build/RunningBuilds.h"

#include "build/BackgroundWork.h"

#include <utility>

namespace kestrel {

std::shared_ptr<StopFlag> StopSwitch::next() {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_flags, [](const auto& flag) { return flag.expired(); });
    auto flag = std::make_shared<StopFlag>();
    m_flags.push_back(flag);
    return flag;
}

void StopSwitch::stop() {
    const std::lock_guard lock(m_mutex);
    m_stops.fetch_add(1, std::memory_order_acq_rel);
    for (const auto& weak : m_flags) {
        if (const auto flag = weak.lock()) {
            flag->request();
        }
    }
}

void RunningBuilds::start(const std::filesystem::path& image, std::shared_ptr<StopFlag> stop,
                          Task task) {
    const std::lock_guard lock(m_mutex);
    const auto [found, isFirst] = m_turns.try_emplace(image, Turn{stop, {}});
    if (isFirst) {
        startInBackground(std::move(task));
        return;
    }
    Turn& turn = found->second;
    turn.running->overtake();
    Build overtaken = std::exchange(turn.waiting, Build{std::move(stop), std::move(task)});
    if (overtaken.stop) {
        overtaken.stop->overtake();
        startInBackground(std::move(overtaken.task));
    }
}

void RunningBuilds::ended(const std::filesystem::path& image,
                          const std::shared_ptr<StopFlag>& stop) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_turns.find(image);
    if (found == m_turns.end() || found->second.running != stop) {
        return; // it was overtaken while it waited
    }
    Build next = std::exchange(found->second.waiting, {});
    if (next.stop) {
        found->second.running = std::move(next.stop);
        startInBackground(std::move(next.task));
    } else {
        m_turns.erase(found);
    }
}

} // namespace kestrel
