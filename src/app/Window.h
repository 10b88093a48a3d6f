// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace kestrel {

/// The main window; its controller does all the work.
class Window : public QMainWindow {
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;
};

} // namespace kestrel
