// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>

namespace kestrel {

/// A window-modal dialog without a nested event loop that calls back exactly once when it is over:
/// ended, rejected (Escape), closed by its window's button or by quitting, or destroyed with its
/// parent. It deletes itself afterwards.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// The response with which a sheet's own buttons end it; neither "accepted" nor "rejected".
    static constexpr int EndResponse = 1000;

    /// A sheet for `parent`, which also owns it. Without a parent it must not be begun.
    explicit Sheet(QWidget* parent = nullptr);
    ~Sheet() override;

    /// Puts `content` into the sheet, which owns it from now on.
    void setContent(QWidget* content);

    /// Opens the sheet. `ended` is called once, on the user-interface thread, when it is over,
    /// while its content still lives.
    void begin(std::function<void()> ended);

    /// Closes the sheet with `response`; nothing when it is not open.
    void end(int response = EndResponse);

    /// Whether any window-modal dialog (a sheet, a file panel) is open on `window`.
    static bool isOpenOn(const QWidget* window);

private:
    void tell();

    std::function<void()> m_ended;
};

} // namespace kestrel
