// SPDX-License-Identifier: MIT
#pragma once

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel {

/// Delivers named notifications from parts of the window that do not know each other to whoever
/// observes the name: at once, on the posting thread, in the order of registration. To be used on
/// the user-interface thread only.
class NotificationCentre {
    struct Observer;
    struct State;

public:
    /// What an observer is called with: whatever the sender attached.
    using Callback = std::function<void(const std::any& object)>;

    /// Keeps a registration alive; the callback is never called again once this is gone or reset.
    /// May outlive the centre.
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

    /// The application's own centre.
    static NotificationCentre& defaultCentre();

    /// Calls `callback` for each notification posted as `name` until the connection goes.
    [[nodiscard]] Connection observe(std::string name, Callback callback);

    /// Calls every observer of `name`. Observers may post, register and unregister meanwhile: one
    /// that is registered during a delivery does not get that delivery, one that is unregistered
    /// before its turn is left out.
    void post(std::string_view name, const std::any& object);

private:
    std::shared_ptr<State> m_state;
};

/// Posted when an entry of the navigation tree's context menu is chosen; the object is a
/// ProjectNavigationMenuClickedOptions.
inline constexpr std::string_view ProjectNavigationMenuClicked = "ProjectNavigationMenuClicked";

} // namespace kestrel
