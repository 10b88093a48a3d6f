// SPDX-License-Identifier: MIT
// Types at the end of a source of 221,000 lines, in a bare QPlainTextEdit and in the code editor,
// for callgrind to count the instructions from each keystroke to the painted window. Run by
// benchmarks/count-keystrokes.
#include "EditorViews.h"

#include <QTest>

#include <valgrind/callgrind.h>

namespace kestrel::benchmarks {
namespace {

constexpr int WarmUp = 30;
constexpr int Keystrokes = 100;

void type(QPlainTextEdit& view, int count) {
    for (int i = 0; i < count; ++i) {
        QTest::keyClick(&view, i % 20 == 19 ? Qt::Key_Return : Qt::Key_X);
        QApplication::processEvents();
    }
}

template<typename View> void measure(const char* name, const std::string& source) {
    View view;
    present(view);
    view.load(source);
    view.moveCursor(QTextCursor::End);
    QApplication::processEvents();
    type(view, WarmUp);
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    type(view, Keystrokes);
    CALLGRIND_DUMP_STATS_AT(name);
    CALLGRIND_STOP_INSTRUMENTATION;
}

} // namespace
} // namespace kestrel::benchmarks

int main(int argc, char** argv) {
    using namespace kestrel::benchmarks;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    measure<BareView>("bare", bigSource(false));
    measure<EditorView>("editor", bigSource(false));
    measure<EditorView>("editor, two kinds of line end", bigSource(true));
    return 0;
}
