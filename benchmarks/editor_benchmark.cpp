// SPDX-License-Identifier: MIT
// The code editor beside a bare QPlainTextEdit on a source of 221,000 lines: loading it (time and
// memory), typing at its end, painting the ruler, saving, finding. Then lines of a megabyte and
// more.
#include "EditorViews.h"

#include "editors/code/LineNumberRulerView.h"
#include "editors/code/TextSearch.h"

#include <benchmark/benchmark.h>
#include <QImage>
#include <QTest>

#include <malloc.h>

namespace kestrel::benchmarks {
namespace {

double heapMegabytes() {
    return static_cast<double>(mallinfo2().uordblks) / 1e6;
}

template<typename View> void load(benchmark::State& state) {
    const std::string source = bigSource(state.range(0) == 2);
    for (auto _ : state) {
        View view;
        present(view);
        const double before = heapMegabytes();
        view.load(source);
        QApplication::processEvents();
        state.counters["MB"] = heapMegabytes() - before;
    }
}

template<typename View> void typeAtTheEnd(benchmark::State& state) {
    View view;
    present(view);
    view.load(bigSource(false));
    view.moveCursor(QTextCursor::End);
    QApplication::processEvents();
    for (auto _ : state) {
        QTest::keyClick(&view, Qt::Key_X);
        QApplication::processEvents();
    }
}

/// What a line consists of.
QString longLine(int kind, int megabytes) {
    const QString unit = kind == 0   ? QStringLiteral("x")
                         : kind == 1 ? QStringLiteral("word ")
                         : kind == 2 ? QStringLiteral(" ")
                                     : QStringLiteral("\u6f22\u5b57");
    return unit.repeated(megabytes * 1'000'000 / unit.size());
}

void loadLongLine(benchmark::State& state) {
    const std::string bytes =
        longLine(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))).toStdString();
    for (auto _ : state) {
        EditorView view;
        present(view);
        view.load(bytes);
        QApplication::processEvents();
    }
}

void typeInALongLine(benchmark::State& state) {
    EditorView view;
    present(view);
    view.source().load(
        longLine(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
    view.moveCursor(QTextCursor::Start);
    QApplication::processEvents();
    for (auto _ : state) {
        QTest::keyClick(&view, Qt::Key_X);
        QApplication::processEvents();
    }
}

void paintRuler(benchmark::State& state) {
    EditorView view;
    present(view);
    const auto lines = static_cast<std::size_t>(state.range(0));
    std::string source;
    for (std::size_t i = 0; i < lines; ++i) {
        source += state.range(1) != 0 && i % 3 == 0 ? "nop\r" : "nop\n";
    }
    view.load(source);
    view.moveCursor(QTextCursor::End);
    QApplication::processEvents();
    QImage image(view.lineNumberView()->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.lineNumberView()->render(&image);
    }
}

void save(benchmark::State& state) {
    EditorView view;
    view.load(bigSource(state.range(0) == 2));
    for (auto _ : state) {
        benchmark::DoNotOptimize(encodeSource({view.source().text(), false, {}}));
    }
}

void find(benchmark::State& state) {
    EditorView view;
    view.load(bigSource(false));
    for (auto _ : state) {
        const TextSearch search(view.source(), {QStringLiteral("NAME_5"), false, false});
        benchmark::DoNotOptimize(search.count());
    }
}

// The argument is how many kinds of line end the source has.
BENCHMARK(load<BareView>)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(load<EditorView>)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(load<BareView>)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(load<EditorView>)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(typeAtTheEnd<BareView>)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeAtTheEnd<EditorView>)->Unit(benchmark::kMicrosecond);
// The number of lines, and whether every third one ends in a lone CR.
BENCHMARK(paintRuler)
    ->ArgsProduct({{1000, 9000, 20000, 221000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
// Letters, words, blanks or ideographs; how many megabytes of them.
BENCHMARK(loadLongLine)
    ->ArgsProduct({{0, 1, 2, 3}, {1}})
    ->Args({0, 63})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(typeInALongLine)
    ->ArgsProduct({{0, 1, 2, 3}, {1}})
    ->Args({0, 63})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(find)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kestrel::benchmarks

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
