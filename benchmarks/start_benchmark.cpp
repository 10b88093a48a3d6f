// SPDX-License-Identifier: MIT
// One start, from main() to the first paint, of Kestrel's window or of a bare one with a tree and a
// text view; prints CPU seconds and the most memory used (KiB). benchmarks/start.py runs it.
//   start_benchmark kestrel|bare
#include "app/AppDelegate.h"
#include "app/MainWindow.h"
#include "app/MainWindowController.h"
#include "app/Window.h"

#include <QApplication>
#include <QEvent>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstring>
#include <sys/resource.h>

namespace {

/// Ends the event loop once the window that it is installed on was painted for the first time and
/// everything that was due by then is done.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_seen = false;
};

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

int report(int status) {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("%.6f %ld\n", seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss);
    return status;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    FirstPaint firstPaint;
    if (argc == 2 && std::strcmp(argv[1], "kestrel") == 0) {
        kestrel::AppDelegate delegate;
        delegate.applicationDidFinishLaunching(kestrel::makeMainWindow(delegate));
        QWidget* window = delegate.windowController()->window();
        window->installEventFilter(&firstPaint);
        window->show();
        return report(QApplication::exec());
    }
    QSplitter window;
    QStandardItemModel model;
    QTreeView tree;
    tree.setModel(&model);
    QPlainTextEdit text;
    window.addWidget(&tree);
    window.addWidget(&text);
    window.resize(1000, 680);
    window.installEventFilter(&firstPaint);
    window.show();
    return report(QApplication::exec());
}
