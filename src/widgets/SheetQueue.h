// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>

class QDialog;
class QWidget;

namespace kestrel {

/// Delays actions while a sheet is open on a window.
class SheetQueue : public QObject {
public:
    /// Watches the window that contains `widget`, which must outlive this.
    explicit SheetQueue(const QWidget& widget);

    /// Calls `action` at once, or, while a sheet is open on the window, after the sheet has called
    /// back. Actions keep their order; those still delayed when the queue is destroyed are dropped.
    void carryOut(std::function<void()> action);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QDialog* openSheet() const;
    void carryOutWaiting();

    const QWidget& m_widget;
    std::deque<std::function<void()>> m_waiting;
    QTimer m_later; ///< so that a sheet's own callback comes first
};

} // namespace kestrel
