// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>

class QDialog;
class QWidget;

namespace kestrel {

/// Lets actions wait for the end of the sheets that are open on a window.
class SheetQueue : public QObject {
public:
    /// For the window in which `widget`, which must outlive the queue, stands at the time.
    explicit SheetQueue(const QWidget& widget);

    /// Calls `action` at once, or, while any sheet is open on the window, after it has ended and
    /// told so. Actions keep their order; those that still wait when the queue goes are dropped.
    void carryOut(std::function<void()> action);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QDialog* openSheet() const;
    void carryOutWaiting();

    const QWidget& m_widget;
    std::deque<std::function<void()>> m_waiting;
    QTimer m_later; ///< so that a sheet's end is told to whoever opened it first
};

} // namespace kestrel
