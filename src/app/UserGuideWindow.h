#pragma once

#include <QMainWindow>

namespace kestrel {

/// Shows the user guide, which the program carries with it.
class UserGuideWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit UserGuideWindow(QWidget* parent = nullptr);

    /// Shows the window before all others.
    void comeToFront();
};

} // namespace kestrel
