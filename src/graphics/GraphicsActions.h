// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TilePicture.h"
#include "widgets/CommandSet.h"

#include <QList>
#include <QObject>

namespace kestrel {

class ChrCanvas;
class TileCollection;

/// The commands of the graphics pane: tools, transformations of the selected tiles, grids, zoom.
class GraphicsActions : public QObject {
    Q_OBJECT

public:
    /// Commands for a pixel editor and the tile viewer beside it, which live as long as they do;
    /// `parent` owns them.
    GraphicsActions(ChrCanvas& canvas, TileCollection& viewer, QObject* parent);

    /// For the Edit and the View menu and the row of tools, separators included.
    const QList<QAction*>& editActions() const { return m_editActions; }
    const QList<QAction*>& viewActions() const { return m_viewActions; }

    const CommandSet& commands() const { return m_commands; }

private:
    void addTools();
    void addTransformations();
    void addTransformation(Command command, TileTransformation transformation);
    void addGrids();
    void addZoom();
    void addSeparator(QList<QAction*>& actions);

    ChrCanvas* m_canvas;
    TileCollection* m_viewer;
    CommandSet m_commands;
    QList<QAction*> m_editActions;
    QList<QAction*> m_viewActions;
};

} // namespace kestrel
