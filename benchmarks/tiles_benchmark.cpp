// SPDX-License-Identifier: MIT
// Tiles of the largest file (2040 KiB) beside those of a small one (8 KiB), and beside copying as
// many bytes as the visible picture has: opening a file in the pane, loading, repainting,
// scrolling, selecting, a stroke of 1,000 samples with both views following.
#include "chrcanvas/data/ConsoleDataFactory.h"
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/TileCollection.h"
#include "graphics/GraphicsEditorController.h"
#include "model/ProjectNavigationSettingItem.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

namespace kestrel {
namespace {

constexpr std::size_t SmallTiles = 512;
constexpr std::size_t LargestTiles = 130560;

std::string randomBytes(std::size_t tiles) {
    std::mt19937 random(1);
    std::string bytes(tiles * TileData::BytesPerTile, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

/// Both views as the pane connects them.
class Views : public TileCollectionDelegate, public ChrCanvasProtocol {
public:
    explicit Views(std::size_t tiles)
        : m_bytes(randomBytes(tiles)) {
        viewer.resize(420, 700);
        editor.resize(600, 700);
        const auto document = std::make_shared<TileDocument>();
        viewer.setDocument(document);
        editor.setDocument(document);
        viewer.setDelegate(this);
        editor.setDelegate(this);
        load();
        viewer.show();
        editor.show();
        show();
    }

    void load() {
        auto generated = ConsoleDataFactory::generate(m_bytes);
        const auto tiles = std::make_shared<TileData>(std::move(generated->second));
        viewer.setTileData(tiles);
        viewer.reloadTiles();
        editor.setTileData(tiles);
        editor.redraw();
    }

    void selected(const std::vector<std::vector<int>>& tileNumbers) override {
        std::vector<int> numbers;
        for (const std::vector<int>& row : tileNumbers) {
            numbers.insert(numbers.end(), row.begin(), row.end());
        }
        editor.setSelectedTiles(std::move(numbers));
        editor.redraw();
    }
    void pixelDataChanged(const std::vector<int>& tileNumbers) override {
        viewer.updateTiles(tileNumbers);
    }

    static void show() { QCoreApplication::processEvents(); }

    TileCollection viewer;
    ChrCanvas editor;

private:
    std::string m_bytes;
};

/// From the click in the tree to the shown picture, reading of the file included.
void open(benchmark::State& state) {
    const QTemporaryDir folder;
    const std::filesystem::path path = folder.path().toStdString();
    std::ofstream(path / "tiles.chr", std::ios::binary)
        << randomBytes(static_cast<std::size_t>(state.range(0)));
    const auto file = std::make_shared<ProjectNavigationSettingItem>(
        "tiles.chr", path, FileType::graphics, ProjectType::nes);
    file->setItemPathType(FilePathType::absolute);
    GraphicsEditorController pane;
    pane.resize(1000, 760);
    pane.show();
    Views::show();
    for ([[maybe_unused]] auto step : state) {
        pane.loadFile(file, nullptr, [&state](const std::optional<ErrorValue>&) {
            state.SkipWithError("not opened");
        });
        Views::show();
    }
}

void load(benchmark::State& state) {
    Views views(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto step : state) {
        views.load();
        Views::show();
    }
}

void repaintViewer(benchmark::State& state) {
    Views views(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto step : state) {
        views.viewer.viewport()->repaint();
    }
}

void copyVisiblePicture(benchmark::State& state) {
    const Views views(SmallTiles);
    const QSize size = views.viewer.viewport()->size();
    QImage from(size, QImage::Format_RGB32);
    QImage to(size, QImage::Format_RGB32);
    from.fill(Qt::gray);
    to.fill(Qt::white);
    for ([[maybe_unused]] auto step : state) {
        std::memcpy(to.bits(), from.constBits(), static_cast<std::size_t>(from.sizeInBytes()));
        benchmark::ClobberMemory();
    }
}

void scroll(benchmark::State& state) {
    Views views(static_cast<std::size_t>(state.range(0)));
    QScrollBar* bar = views.viewer.verticalScrollBar();
    int step = bar->singleStep();
    for ([[maybe_unused]] auto round : state) {
        if (bar->value() + step < 0 || bar->value() + step > bar->maximum()) {
            step = -step;
        }
        bar->setValue(bar->value() + step);
        Views::show();
    }
}

void select(benchmark::State& state) {
    Views views(static_cast<std::size_t>(state.range(0)));
    int number = 0;
    for ([[maybe_unused]] auto step : state) {
        number = (number + 37) % 250;
        views.viewer.document().selectBlock(number, number + 1);
        Views::show();
    }
}

void stroke(benchmark::State& state) {
    Views views(static_cast<std::size_t>(state.range(0)));
    views.viewer.document().selectBlock(0, 51);
    Views::show();
    const auto send = [&views](QEvent::Type type, const QPoint& pixel, Qt::MouseButton button) {
        const QPointF position = views.editor.pixelRect(pixel).center();
        QMouseEvent event(type, position, views.editor.viewport()->mapToGlobal(position), button,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(views.editor.viewport(), &event);
        Views::show();
    };
    int color = 0;
    for ([[maybe_unused]] auto round : state) {
        std::mt19937 random(2);
        views.editor.setCurrentColorBox(color = (color + 1) % PixelValues);
        send(QEvent::MouseButtonPress, {0, 0}, Qt::LeftButton);
        QPoint pixel(16, 16);
        for (int sample = 0; sample < 1000; ++sample) {
            pixel.rx() = std::clamp(pixel.x() + static_cast<int>(random() % 5) - 2, 0, 31);
            pixel.ry() = std::clamp(pixel.y() + static_cast<int>(random() % 5) - 2, 0, 31);
            send(QEvent::MouseMove, pixel, Qt::NoButton);
        }
        send(QEvent::MouseButtonRelease, pixel, Qt::LeftButton);
    }
}

BENCHMARK(open)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);
BENCHMARK(load)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyVisiblePicture)->Unit(benchmark::kMicrosecond);
BENCHMARK(repaintViewer)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);
BENCHMARK(scroll)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);
BENCHMARK(select)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);
BENCHMARK(stroke)->Arg(SmallTiles)->Arg(LargestTiles)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kestrel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
