// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

class QAction;

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

private:
    void addTools();
    void addTransformations();
    void addGrids();
    void addZoom();
    void addSeparator(QList<QAction*>& actions);

    ChrCanvas* m_canvas;
    TileCollection* m_viewer;
    QList<QAction*> m_editActions;
    QList<QAction*> m_viewActions;
};

} // namespace kestrel
