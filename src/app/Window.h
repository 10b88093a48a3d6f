// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace kestrel {

/// The application's main window; all it does is done by its controller.
class Window : public QMainWindow {
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;
};

} // namespace kestrel
