// SPDX-License-Identifier: MIT
#pragma once

#include "app/TextQueue.h"

#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace kestrel {

/// The console: shows what the tools print. Text of any length is taken at once and shown in
/// slices, so that the window never waits for it.
class ConsoleOutput : public QWidget {
    Q_OBJECT

public:
    explicit ConsoleOutput(QWidget* parent = nullptr);

    /// The view that shows the text; may be gone, then nothing is written.
    QPlainTextEdit* console() const;

    /// Appends `text` unchanged; never taken for markup.
    void append(QString text);

    /// Drops all text, what still waits to be shown included.
    void clear();

    /// Whether text still waits to be shown.
    bool isBusy() const;

private:
    void showSlices();

    QPointer<QPlainTextEdit> m_console;
    TextQueue m_waiting;
    QTimer m_timer;
    bool m_followsEnd = true; ///< the user has not scrolled up
};

} // namespace kestrel
