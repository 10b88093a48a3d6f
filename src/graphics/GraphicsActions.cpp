// SPDX-License-Identifier: MIT
#include "graphics/GraphicsActions.h"

#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/TileCollection.h"
#include "icons/Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>

namespace kestrel {

namespace {

/// The looks of one command. The icon has the name of the action without "Action".
struct Command {
    const char* name;
    const char* text;
    const char* help;
    QKeySequence shortcut;
};

QAction* makeAction(const Command& command, QObject* parent) {
    auto* action = new QAction(parent);
    const QString name = QString::fromLatin1(command.name);
    const QString text = GraphicsActions::tr(command.text);
    action->setObjectName(name + QStringLiteral("Action"));
    action->setText(text);
    action->setIcon(iconNamed(name));
    action->setShortcut(command.shortcut);
    const QString keys = command.shortcut.toString(QKeySequence::NativeText);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(GraphicsActions::tr(command.help), keys));
    return action;
}

QKeySequence withShift(Qt::Key key) {
    return {Qt::CTRL | Qt::SHIFT | key};
}

} // namespace

GraphicsActions::GraphicsActions(ChrCanvas& canvas, TileCollection& viewer, QObject* parent)
    : QObject(parent)
    , m_canvas(&canvas)
    , m_viewer(&viewer) {
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
    const Tool tools[] = {
        {{"pencil", QT_TR_NOOP("&Pencil"),
          QT_TR_NOOP("Pencil: paint pixels; the right button picks a pixel's colour"),
          withShift(Qt::Key_P)},
         DrawingTool::pencil},
        {{"fillArea", QT_TR_NOOP("&Fill Area"),
          QT_TR_NOOP("Fill: give an area of one colour another one"), withShift(Qt::Key_F)},
         DrawingTool::fill},
    };
    auto* group = new QActionGroup(this);
    for (const Tool& tool : tools) {
        QAction* action = makeAction(tool.command, this);
        action->setCheckable(true);
        action->setChecked(tool.tool == m_canvas->tool());
        group->addAction(action);
        connect(action, &QAction::triggered, m_canvas,
                [canvas = m_canvas, tool = tool.tool] { canvas->setTool(tool); });
        m_editActions.append(action);
    }
}

void GraphicsActions::addTransformations() {
    struct Entry {
        Command command;
        TileTransformation transformation;
    };
    const Entry entries[] = {
        {{"flipHorizontally", QT_TR_NOOP("Flip &Horizontally"),
          QT_TR_NOOP("Flip the selected tiles horizontally"), withShift(Qt::Key_H)},
         TileTransformation::flipHorizontally},
        {{"flipVertically", QT_TR_NOOP("Flip &Vertically"),
          QT_TR_NOOP("Flip the selected tiles vertically"), withShift(Qt::Key_V)},
         TileTransformation::flipVertically},
        {{"rotate", QT_TR_NOOP("&Rotate"),
          QT_TR_NOOP("Rotate a square of tiles by 90 degrees clockwise"), withShift(Qt::Key_R)},
         TileTransformation::rotate},
        {{"shiftLeft", QT_TR_NOOP("Shift &Left"),
          QT_TR_NOOP("Shift the selected tiles left by one pixel, with wrap"),
          withShift(Qt::Key_Left)},
         TileTransformation::shiftLeft},
        {{"shiftRight", QT_TR_NOOP("Shift Ri&ght"),
          QT_TR_NOOP("Shift the selected tiles right by one pixel, with wrap"),
          withShift(Qt::Key_Right)},
         TileTransformation::shiftRight},
        {{"shiftUp", QT_TR_NOOP("Shift &Up"),
          QT_TR_NOOP("Shift the selected tiles up by one pixel, with wrap"), withShift(Qt::Key_Up)},
         TileTransformation::shiftUp},
        {{"shiftDown", QT_TR_NOOP("Shift &Down"),
          QT_TR_NOOP("Shift the selected tiles down by one pixel, with wrap"),
          withShift(Qt::Key_Down)},
         TileTransformation::shiftDown},
        {{"clearTiles", QT_TR_NOOP("Cl&ear Tiles"), QT_TR_NOOP("Clear the selected tiles"),
          QKeySequence(Qt::CTRL | Qt::Key_Delete)},
         TileTransformation::clear},
    };
    for (const Entry& entry : entries) {
        QAction* action = makeAction(entry.command, this);
        const TileTransformation transformation = entry.transformation;
        const auto enable = [canvas = m_canvas, action, transformation] {
            action->setEnabled(isPossible(transformation, canvas->document().shape()));
        };
        enable();
        connect(m_canvas, &ChrCanvas::shapeChanged, action, enable);
        connect(action, &QAction::triggered, m_canvas, [canvas = m_canvas, transformation] {
            canvas->document().transform(transformation);
        });
        m_editActions.append(action);
    }
}

void GraphicsActions::addGrids() {
    const auto add = [this](const Command& command) {
        QAction* action = makeAction(command, this);
        action->setCheckable(true);
        action->setChecked(true);
        m_viewActions.append(action);
        return action;
    };
    const QAction* pixels =
        add({"pixelGrid", QT_TR_NOOP("&Pixel Grid"), QT_TR_NOOP("Lines between the pixels"),
             QKeySequence(Qt::CTRL | Qt::Key_G)});
    connect(pixels, &QAction::toggled, m_canvas, &ChrCanvas::setPixelGridShown);
    const QAction* tiles =
        add({"tileGrid", QT_TR_NOOP("&Tile Grid"), QT_TR_NOOP("Lines between the tiles"),
             QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_G)});
    connect(tiles, &QAction::toggled, m_canvas, &ChrCanvas::setTileGridShown);
    connect(tiles, &QAction::toggled, m_viewer, &TileCollection::setGridShown);
}

void GraphicsActions::addZoom() {
    struct Zoom {
        Command command;
        void (ChrCanvas::*change)();
    };
    const Zoom zooms[] = {
        {{"zoomIn", QT_TR_NOOP("Zoom &In"), QT_TR_NOOP("Show the selected tiles larger"),
          QKeySequence(Qt::CTRL | Qt::Key_Plus)},
         &ChrCanvas::zoomIn},
        {{"zoomOut", QT_TR_NOOP("Zoom &Out"), QT_TR_NOOP("Show the selected tiles smaller"),
          QKeySequence(Qt::CTRL | Qt::Key_Minus)},
         &ChrCanvas::zoomOut},
        {{"zoomToFit", QT_TR_NOOP("Zoom to &Fit"),
          QT_TR_NOOP("Show the selected tiles as large as they fit"),
          QKeySequence(Qt::CTRL | Qt::Key_0)},
         &ChrCanvas::zoomToFit},
    };
    for (const Zoom& zoom : zooms) {
        QAction* action = makeAction(zoom.command, this);
        connect(action, &QAction::triggered, m_canvas, zoom.change);
        m_viewActions.append(action);
    }
}

} // namespace kestrel
