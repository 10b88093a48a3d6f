// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/data/TileDocument.h"
#include "chrcanvas/views/BoxSelectorDelegate.h"
#include "chrcanvas/views/ChrCanvasProtocol.h"
#include "chrcanvas/views/TileCollectionDelegate.h"
#include "model/ErrorValue.h"
#include "model/KnownContent.h"
#include "model/ProjectItem.h"
#include "widgets/EditorPane.h"
#include "widgets/EditTarget.h"

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

class QPushButton;

namespace kestrel {

class ChrCanvas;
class ColorSelector;
class GraphicsEditorView;
class TileCollection;
class UnsavedWork;

/// The pane for a tile graphics file: all tiles on the left, the selected ones enlarged on the
/// right, below them the colours to paint with.
class GraphicsEditorController : public QWidget,
                                 public EditorPane,
                                 public EditTarget,
                                 public BoxSelectorDelegate,
                                 public TileCollectionDelegate,
                                 public ChrCanvasProtocol {
    Q_OBJECT

public:
    /// Called with an error when the file could not be shown; not called on success.
    using CompletionHandler = std::function<void(const std::optional<ErrorValue>& error)>;

    explicit GraphicsEditorController(QWidget* parent = nullptr);
    ~GraphicsEditorController() override;

    /// The views of the pane. The pane makes its own; whoever puts others in their places calls
    /// viewDidLoad() afterwards.
    QPointer<ChrCanvas> pixelEditor;
    QPointer<TileCollection> tileViewer;
    QPointer<ColorSelector> colorSelector;
    QPointer<QPushButton> saveButton;

    /// Gives the views the drawing palette and itself as the one they report to.
    void viewDidLoad();

    /// Shows a file of a project, whose tiles take the place of those shown; those are not saved.
    /// Both nodes are shared with their owners. When the file cannot be read or holds no tiles the
    /// handler gets an error and the views stay, but saving writes to the new file.
    virtual void loadFile(const std::shared_ptr<ProjectItem>& file,
                          const std::shared_ptr<ProjectItem>& project,
                          const CompletionHandler& completionHandler);

    /// The path of the file that is shown; nothing when no file is shown or its project is gone.
    std::optional<std::filesystem::path> filePath() const;

    /// Writes the tiles to the file. A failure is logged and loses nothing.
    void saveFile();

    /// The tile that will be selected when a file of this name is shown again.
    std::optional<int> rememberedTile(const std::string& fileName) const;

    /// The palette to draw with, shared with the views, and the tiles; null before the first file.
    const std::shared_ptr<NESPalette>& colors() const { return m_colors; }
    const std::shared_ptr<TileData>& tileData() const { return m_document->tileData(); }

    void pixelDataChanged(const std::vector<int>& tileNumbers) override;
    void selected(const std::vector<std::vector<int>>& tileNumbers) override;
    void selected(BoxSelectorProtocol& boxSelector, PaletteBox palette,
                  BoxPosition boxSelected) override;

    void savePane() override;
    QWidget* workPlace() const override;
    UnsavedWork* unsavedWork() override { return m_unsavedWork; }
    const CommandSet* commands() const override;
    QList<QAction*> editActions() const override;
    QList<QAction*> viewActions() const override;

    bool canPerform(EditCommand command) const override;
    void perform(EditCommand command) override;

private:
    /// What is remembered of a file that was shown.
    struct GraphicFileReference {
        std::shared_ptr<ProjectItem> project;
        std::shared_ptr<ProjectItem> file;
        int currentlySelectedTile = 0;
    };

    bool readTiles();
    void showTiles();
    void bringBack(const std::string& bytes);
    void copyTiles() const;
    void pasteTiles();

    /// By the file's name alone, so that files of one name share a record wherever they are.
    std::map<std::string, GraphicFileReference> m_graphicFilesLoaded;
    std::shared_ptr<ProjectItem> m_project;
    std::shared_ptr<ProjectItem> m_file;
    std::shared_ptr<NESPalette> m_colors;
    std::shared_ptr<TileDocument> m_document;
    KnownContent m_known;
    GraphicsEditorView* m_view;
    UnsavedWork* m_unsavedWork;
};

} // namespace kestrel
