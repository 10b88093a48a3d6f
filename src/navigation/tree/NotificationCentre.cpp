// SPDX-License-Identifier: MIT
#include "navigation/tree/NotificationCentre.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kestrel {

/// One registered callback.
struct NotificationCentre::Observer {
    std::string name;
    Callback callback;
    bool active = true;
};

/// The registered observers, in order.
struct NotificationCentre::State {
    std::vector<std::shared_ptr<Observer>> observers;
};

NotificationCentre::Connection::Connection(std::weak_ptr<State> state,
                                           std::shared_ptr<Observer> observer)
    : m_state(std::move(state))
    , m_observer(std::move(observer)) {}

NotificationCentre::Connection&
NotificationCentre::Connection::operator=(Connection&& other) noexcept {
    if (this != &other) {
        reset();
        m_state = std::move(other.m_state);
        m_observer = std::move(other.m_observer);
    }
    return *this;
}

NotificationCentre::Connection::~Connection() {
    reset();
}

void NotificationCentre::Connection::reset() {
    if (!m_observer) {
        return;
    }
    m_observer->active = false;
    if (const std::shared_ptr<State> state = m_state.lock()) {
        std::erase(state->observers, m_observer);
    }
    m_observer.reset();
    m_state.reset();
}

NotificationCentre::NotificationCentre()
    : m_state(std::make_shared<State>()) {}

NotificationCentre::~NotificationCentre() = default;

NotificationCentre& NotificationCentre::defaultCentre() {
    static NotificationCentre centre;
    return centre;
}

NotificationCentre::Connection NotificationCentre::observe(std::string name, Callback callback) {
    auto observer = std::make_shared<Observer>();
    observer->name = std::move(name);
    observer->callback = std::move(callback);
    m_state->observers.push_back(observer);
    return {m_state, std::move(observer)};
}

void NotificationCentre::post(std::string_view name, const std::any& object) {
    // A copy: the list may change while the observers are called.
    const std::vector<std::shared_ptr<Observer>> observers = m_state->observers;
    for (const std::shared_ptr<Observer>& observer : observers) {
        if (observer->active && observer->name == name && observer->callback) {
            observer->callback(object);
        }
    }
}

} // namespace kestrel
