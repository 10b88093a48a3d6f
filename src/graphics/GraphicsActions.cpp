// SPDX-License-Identifier: MIT
#include "graphics/GraphicsActions.h"

#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/TileCollection.h"
#include "icons/Icons.h"

#include <QActionGroup>
#include <QPointer>

#include <functional>
#include <utility>

namespace kestrel {

namespace {

/// A row without its handler, which the groups below have each in a way of their own.
Command row(const char* id, QStringView icon, const QKeySequence& shortcut, const char* title,
            const char* toolTip) {
    return {.id = id,
            .title = title,
            .shortcuts = {shortcut},
            .icon = iconNamed(icon),
            .toolTip = toolTip};
}

QKeySequence withShift(Qt::Key key) {
    return {Qt::CTRL | Qt::SHIFT | key};
}

/// A handler that does nothing once the view is gone.
template<typename View, typename Operation> auto on(View* view, Operation operation) {
    return [view = QPointer<View>(view), operation](auto... arguments) {
        if (view) {
            std::invoke(operation, *view, arguments...);
        }
    };
}

} // namespace

GraphicsActions::GraphicsActions(ChrCanvas& canvas, TileCollection& viewer, QObject* parent)
    : QObject(parent)
    , m_canvas(&canvas)
    , m_viewer(&viewer)
    , m_commands(*this) {
    addTools();
    addSeparator(m_editActions);
    addTransformations();
    addGrids();
    addSeparator(m_viewActions);
    addZoom();
}

void GraphicsActions::addSeparator(QList<QAction*>& actions) {
    auto* separator = new QAction(this);
    separator->setSeparator(true);
    actions.append(separator);
}

void GraphicsActions::addTools() {
    struct Tool {
        Command command;
        DrawingTool tool;
    };
    Tool tools[] = {
        {row("pencilAction", u"pencil", withShift(Qt::Key_P),
             QT_TRANSLATE_NOOP("Command", "&Pencil"),
             QT_TRANSLATE_NOOP("Command",
                               "Pencil: paint pixels; the right button picks a pixel's colour")),
         DrawingTool::pencil},
        {row("fillAreaAction", u"fillArea", withShift(Qt::Key_F),
             QT_TRANSLATE_NOOP("Command", "&Fill Area"),
             QT_TRANSLATE_NOOP("Command", "Fill: give an area of one colour another one")),
         DrawingTool::fill},
    };
    auto* group = new QActionGroup(this);
    for (auto& [command, tool] : tools) {
        command.checked = tool == m_canvas->tool();
        command.handler = on(m_canvas, [tool = tool](ChrCanvas& canvas) { canvas.setTool(tool); });
        QAction* action = m_commands.add(std::move(command));
        group->addAction(action);
        m_editActions.append(action);
    }
}

void GraphicsActions::addTransformations() {
    struct Entry {
        Command command;
        TileTransformation transformation;
    };
    Entry entries[] = {
        {row("flipHorizontallyAction", u"flipHorizontally", withShift(Qt::Key_H),
             QT_TRANSLATE_NOOP("Command", "Flip &Horizontally"),
             QT_TRANSLATE_NOOP("Command", "Flip the selected tiles horizontally")),
         TileTransformation::flipHorizontally},
        {row("flipVerticallyAction", u"flipVertically", withShift(Qt::Key_V),
             QT_TRANSLATE_NOOP("Command", "Flip &Vertically"),
             QT_TRANSLATE_NOOP("Command", "Flip the selected tiles vertically")),
         TileTransformation::flipVertically},
        {row("rotateAction", u"rotate", withShift(Qt::Key_R),
             QT_TRANSLATE_NOOP("Command", "&Rotate"),
             QT_TRANSLATE_NOOP("Command", "Rotate a square of tiles by 90 degrees clockwise")),
         TileTransformation::rotate},
        {row("shiftLeftAction", u"shiftLeft", withShift(Qt::Key_Left),
             QT_TRANSLATE_NOOP("Command", "Shift &Left"),
             QT_TRANSLATE_NOOP("Command", "Shift the selected tiles left by one pixel, with wrap")),
         TileTransformation::shiftLeft},
        {row("shiftRightAction", u"shiftRight", withShift(Qt::Key_Right),
             QT_TRANSLATE_NOOP("Command", "Shift Ri&ght"),
             QT_TRANSLATE_NOOP("Command",
                               "Shift the selected tiles right by one pixel, with wrap")),
         TileTransformation::shiftRight},
        {row("shiftUpAction", u"shiftUp", withShift(Qt::Key_Up),
             QT_TRANSLATE_NOOP("Command", "Shift &Up"),
             QT_TRANSLATE_NOOP("Command", "Shift the selected tiles up by one pixel, with wrap")),
         TileTransformation::shiftUp},
        {row("shiftDownAction", u"shiftDown", withShift(Qt::Key_Down),
             QT_TRANSLATE_NOOP("Command", "Shift &Down"),
             QT_TRANSLATE_NOOP("Command", "Shift the selected tiles down by one pixel, with wrap")),
         TileTransformation::shiftDown},
        {row("clearTilesAction", u"clearTiles", Qt::CTRL | Qt::Key_Delete,
             QT_TRANSLATE_NOOP("Command", "Cl&ear Tiles"),
             QT_TRANSLATE_NOOP("Command", "Clear the selected tiles")),
         TileTransformation::clear},
    };
    for (auto& [command, transformation] : entries) {
        addTransformation(std::move(command), transformation);
    }
}

void GraphicsActions::addTransformation(Command command, TileTransformation transformation) {
    command.handler = on(m_canvas, [transformation](ChrCanvas& canvas) {
        canvas.document().transform(transformation);
    });
    QAction* action = m_commands.add(std::move(command));
    const auto enable = [canvas = m_canvas, action, transformation] {
        action->setEnabled(isPossible(transformation, canvas->document().shape()));
    };
    enable();
    connect(m_canvas, &ChrCanvas::shapeChanged, action, enable);
    m_editActions.append(action);
}

void GraphicsActions::addGrids() {
    Command pixels = row("pixelGridAction", u"pixelGrid", Qt::CTRL | Qt::Key_G,
                         QT_TRANSLATE_NOOP("Command", "&Pixel Grid"),
                         QT_TRANSLATE_NOOP("Command", "Lines between the pixels"));
    pixels.checked = true;
    pixels.toggled = on(m_canvas, &ChrCanvas::setPixelGridShown);
    Command tiles = row("tileGridAction", u"tileGrid", Qt::CTRL | Qt::ALT | Qt::Key_G,
                        QT_TRANSLATE_NOOP("Command", "&Tile Grid"),
                        QT_TRANSLATE_NOOP("Command", "Lines between the tiles"));
    tiles.checked = true;
    tiles.toggled = [inCanvas = on(m_canvas, &ChrCanvas::setTileGridShown),
                     inViewer = on(m_viewer, &TileCollection::setGridShown)](bool shown) {
        inCanvas(shown);
        inViewer(shown);
    };
    m_viewActions.append(m_commands.add(std::move(pixels)));
    m_viewActions.append(m_commands.add(std::move(tiles)));
}

void GraphicsActions::addZoom() {
    struct Zoom {
        Command command;
        void (ChrCanvas::*change)();
    };
    Zoom zooms[] = {
        {row("zoomInAction", u"zoomIn", Qt::CTRL | Qt::Key_Plus,
             QT_TRANSLATE_NOOP("Command", "Zoom &In"),
             QT_TRANSLATE_NOOP("Command", "Show the selected tiles larger")),
         &ChrCanvas::zoomIn},
        {row("zoomOutAction", u"zoomOut", Qt::CTRL | Qt::Key_Minus,
             QT_TRANSLATE_NOOP("Command", "Zoom &Out"),
             QT_TRANSLATE_NOOP("Command", "Show the selected tiles smaller")),
         &ChrCanvas::zoomOut},
        {row("zoomToFitAction", u"zoomToFit", Qt::CTRL | Qt::Key_0,
             QT_TRANSLATE_NOOP("Command", "Zoom to &Fit"),
             QT_TRANSLATE_NOOP("Command", "Show the selected tiles as large as they fit")),
         &ChrCanvas::zoomToFit},
    };
    for (auto& [command, change] : zooms) {
        command.handler = on(m_canvas, change);
        m_viewActions.append(m_commands.add(std::move(command)));
    }
}

} // namespace kestrel
