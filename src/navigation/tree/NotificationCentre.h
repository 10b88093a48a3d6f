// SPDX-License-Identifier: MIT
#pragma once

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel {

/// Delivers a posted notification to all observers of its name, synchronously and in the order of
/// registration. For parts of the window that do not know each other; user-interface thread only.
class NotificationCentre {
    struct Observer;
    struct State;

public:
    /// Called with the object that was posted.
    using Callback = std::function<void(const std::any& object)>;

    /// A registration, which ends when this is destroyed or reset. May outlive the centre.
    class Connection {
    public:
        Connection() = default;
        Connection(Connection&& other) noexcept = default;
        Connection& operator=(Connection&& other) noexcept;
        Connection(const Connection&) = delete;
        Connection& operator=(const Connection&) = delete;
        ~Connection();
        void reset();

    private:
        friend class NotificationCentre;
        Connection(std::weak_ptr<State> state, std::shared_ptr<Observer> observer);
        std::weak_ptr<State> m_state;
        std::shared_ptr<Observer> m_observer;
    };

    NotificationCentre();
    ~NotificationCentre();
    NotificationCentre(const NotificationCentre&) = delete;
    NotificationCentre& operator=(const NotificationCentre&) = delete;

    /// The application's default centre.
    static NotificationCentre& defaultCentre();

    /// Calls `callback` for each notification with this name until the connection ends.
    [[nodiscard]] Connection observe(std::string name, Callback callback);

    /// Calls every observer of `name`. Observers may post, register and unregister while they are
    /// called: a new one does not get this notification, nor does one that was unregistered.
    void post(std::string_view name, const std::any& object);

private:
    std::shared_ptr<State> m_state;
};

/// Posted when an entry of the navigation tree's context menu is chosen, with a
/// ProjectNavigationMenuClickedOptions as the object.
inline constexpr std::string_view ProjectNavigationMenuClicked = "ProjectNavigationMenuClicked";

} // namespace kestrel
