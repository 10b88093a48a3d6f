// SPDX-License-Identifier: MIT
#include "graphics/GraphicsEditorController.h"

#include "chrcanvas/data/ConsoleDataFactory.h"
#include "chrcanvas/data/PaletteColors.h"
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/TileCollection.h"
#include "drafts/UnsavedWork.h"
#include "graphics/GraphicsActions.h"
#include "graphics/GraphicsEditorView.h"
#include "graphics/TileClipboard.h"
#include "model/FileProcessor.h"
#include "model/FileReader.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/Reason.h"
#include "widgets/LightPalette.h"
#include "widgets/SavingText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace kestrel {

namespace {

/// White, light grey, dark grey and black among the master colours.
constexpr std::string_view DrawingPalette("\x30\x3D\x00\x0D", NESPalette::ColorCount);

/// What has to be done to the tiles to make them others, of which there are as many.
std::vector<TileChange> changesTo(const TileData& other, const TileData& present) {
    std::vector<TileChange> changes;
    for (std::size_t number = 0; number < present.tileCount(); ++number) {
        if (present.tile(number) != other.tile(number)) {
            changes.push_back({number, present.tile(number), other.tile(number)});
        }
    }
    return changes;
}

} // namespace

GraphicsEditorController::GraphicsEditorController(QWidget* parent)
    : QWidget(parent)
    , m_colors(std::make_shared<NESPalette>())
    , m_document(std::make_shared<TileDocument>())
    , m_view(new GraphicsEditorView(this))
    , m_unsavedWork(new UnsavedWork(DraftKind::tiles,
                                    {[this] {
                                         return
                                             [bytes = tileData() ? tileData()->toData().value_or("")
                                                                 : std::string()] { return bytes; };
                                     },
                                     [this](const std::string& bytes) { bringBack(bytes); }},
                                    this)) {
    setObjectName(QStringLiteral("graphicsEditor"));
    setAccessibleName(tr("Tile graphics"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    pixelEditor = &m_view->pixelEditor();
    tileViewer = &m_view->tileViewer();
    colorSelector = &m_view->colorSelector();
    saveButton = &m_view->saveButton();
    m_view->addDraftLine(*m_unsavedWork);
    connect(m_view, &GraphicsEditorView::cursorDescribed, this,
            [this](const QString& text) { setStatus(StatusField::tile, text); });
    viewDidLoad();
}

void GraphicsEditorController::viewDidLoad() {
    if (colorSelector) {
        colorSelector->setDelegate(this);
    }
    if (auto palette = NESPalette::fromData(DrawingPalette)) {
        m_colors = std::move(palette);
    }
    if (colorSelector) {
        colorSelector->setPalettes({m_colors});
        colorSelector->redraw();
    }
    makeWhite(*this);
    if (saveButton) {
        connect(saveButton, &QPushButton::clicked, this, &GraphicsEditorController::saveFile,
                Qt::UniqueConnection);
    }
    if (tileViewer) {
        tileViewer->setPalette(*m_colors);
        tileViewer->setDocument(m_document);
    }
    if (pixelEditor) {
        pixelEditor->setDocument(m_document);
    }
}

GraphicsEditorController::~GraphicsEditorController() {
    m_unsavedWork->leave();
    m_view->disconnect(this); // it is still to be hidden
    if (tileViewer && tileViewer->delegate() == this) {
        tileViewer->setDelegate(nullptr);
    }
    if (pixelEditor && pixelEditor->delegate() == this) {
        pixelEditor->setDelegate(nullptr);
    }
    if (colorSelector && colorSelector->delegate() == this) {
        colorSelector->setDelegate(nullptr);
    }
}

std::optional<std::filesystem::path> GraphicsEditorController::filePath() const {
    if (!m_file) {
        return std::nullopt;
    }
    if (m_file->itemPathType() == FilePathType::absolute) {
        return joined(m_file->itemPath(), m_file->itemName());
    }
    if (!m_project) {
        return std::nullopt;
    }
    return joined(joined(m_project->itemPath(), pathText(m_file->itemPath())), m_file->itemName());
}

void GraphicsEditorController::loadFile(const std::shared_ptr<ProjectItem>& file,
                                        const std::shared_ptr<ProjectItem>& project,
                                        const CompletionHandler& completionHandler) {
    m_view->setMessage({});
    m_unsavedWork->leave();
    if (file) {
        const auto known = m_graphicFilesLoaded.find(file->itemName());
        if (known == m_graphicFilesLoaded.end()) {
            m_graphicFilesLoaded.emplace(file->itemName(), GraphicFileReference{project, file, 0});
        } else if (tileViewer) {
            // Still among the tiles of the file that is leaving, whose record follows.
            tileViewer->selectTile(known->second.currentlySelectedTile);
        }
    }
    m_file = file;
    m_project = project;
    m_view->setFileName(file ? QString::fromStdString(file->itemName()) : QString());
    if (!readTiles()) {
        if (tileViewer) {
            tileViewer->forgetWaitingTile();
        }
        if (completionHandler) {
            completionHandler(
                ErrorValue{{}, 0, "Data type is incorrect or file is corrupt at path"});
        }
        return;
    }
    showTiles();
}

void GraphicsEditorController::showTiles() {
    if (tileViewer) {
        tileViewer->setDelegate(this);
        tileViewer->setTileData(tileData());
        tileViewer->reloadTiles();
    }
    if (pixelEditor) {
        pixelEditor->setDelegate(this);
        pixelEditor->setPalette(m_colors);
        pixelEditor->setTileData(tileData());
        pixelEditor->redraw();
    }
    m_view->describeCursor();
}

bool GraphicsEditorController::readTiles() {
    m_known.forget();
    setStatus(StatusField::saving, {});
    const std::optional<std::filesystem::path> path = filePath();
    if (!path) {
        return false;
    }
    std::string reason = "its bytes are no tiles";
    auto bytes = readFile(*path, ConsoleDataFactory::MaximumSize, &reason);
    auto generated = bytes ? ConsoleDataFactory::generate(*bytes) : std::nullopt;
    if (!generated) {
        writeLog("The file " + path->string() + " could not be read: " + reason);
        return false;
    }
    m_known.note(*bytes);
    m_document->setTileData(std::make_shared<TileData>(std::move(generated->second)));
    m_unsavedWork->shown(*path, std::move(bytes));
    return true;
}

void GraphicsEditorController::bringBack(const std::string& bytes) {
    auto generated = ConsoleDataFactory::generate(bytes);
    if (!generated || !tileData()) {
        return;
    }
    m_document->endStroke();
    if (generated->second.tileCount() == tileData()->tileCount()) {
        m_document->carryOut(changesTo(generated->second, *tileData()));
        return;
    }
    // A step holds tiles and not their number, so this one cannot be undone: showing the file again
    // does it.
    m_document->setTileData(std::make_shared<TileData>(std::move(generated->second)));
    showTiles();
    m_unsavedWork->edited();
}

void GraphicsEditorController::saveFile() {
    const std::optional<std::filesystem::path> path = filePath();
    if (!path || !tileData()) {
        return;
    }
    const std::optional<std::string> bytes = tileData()->toData();
    if (!bytes) {
        return;
    }
    std::string reason;
    const auto backup = m_known.keepBeforeSaving(*path, *bytes, KnownContent::Keep::other, &reason);
    const bool isSaved = backup && FileProcessor::saveDataFile(*path, *bytes, &reason);
    setStatus(StatusField::saving,
              savingText(*path, backup, isSaved,
                         m_known.isNoted() ? BackupReason::changedElsewhere : BackupReason::unread,
                         reason));
    if (isSaved) {
        m_known.note(*bytes);
        m_unsavedWork->saved(*bytes);
    } else {
        writeLog("Could not save file");
        logReason(path->string(), reason);
    }
}

std::optional<int> GraphicsEditorController::rememberedTile(const std::string& fileName) const {
    const auto known = m_graphicFilesLoaded.find(fileName);
    return known == m_graphicFilesLoaded.end() ? std::nullopt
                                               : std::optional(known->second.currentlySelectedTile);
}

void GraphicsEditorController::pixelDataChanged(const std::vector<int>& tileNumbers) {
    m_view->setMessage({});
    m_unsavedWork->edited();
    if (tileViewer) {
        tileViewer->updateTiles(tileNumbers);
    }
    m_view->describeCursor();
}

void GraphicsEditorController::selected(const std::vector<std::vector<int>>& tileNumbers) {
    if (!m_file) {
        return;
    }
    std::vector<int> numbers;
    for (const std::vector<int>& row : tileNumbers) {
        numbers.insert(numbers.end(), row.begin(), row.end());
    }
    const auto known = m_graphicFilesLoaded.find(m_file->itemName());
    if (known != m_graphicFilesLoaded.end() && !tileNumbers.empty() &&
        !tileNumbers.front().empty()) {
        known->second.currentlySelectedTile = tileNumbers.front().front();
    }
    if (pixelEditor) {
        pixelEditor->setSelectedTiles(std::move(numbers));
        pixelEditor->redraw();
    }
}

void GraphicsEditorController::selected(BoxSelectorProtocol& /*boxSelector*/, PaletteBox palette,
                                        BoxPosition /*boxSelected*/) {
    if (pixelEditor) {
        pixelEditor->setCurrentColorBox(palette.box);
    }
}

QWidget* GraphicsEditorController::workPlace() const {
    return pixelEditor;
}

void GraphicsEditorController::savePane() {
    if (isVisible()) {
        saveFile();
    }
}

const CommandSet* GraphicsEditorController::commands() const {
    return &m_view->actions().commands();
}

QList<QAction*> GraphicsEditorController::editActions() const {
    return m_view->actions().editActions();
}

QList<QAction*> GraphicsEditorController::viewActions() const {
    return m_view->actions().viewActions();
}

bool GraphicsEditorController::canPerform(EditCommand command) const {
    if (!pixelEditor || !tileViewer || !tileData()) {
        return false;
    }
    switch (command) {
    case EditCommand::undo:
        return m_document->canUndo();
    case EditCommand::redo:
        return m_document->canRedo();
    case EditCommand::cut:
    case EditCommand::copy:
        return m_document->canCopy();
    case EditCommand::paste:
        return m_document->canCopy() && mayHoldTiles(QGuiApplication::clipboard()->mimeData());
    case EditCommand::selectAll:
        return true;
    }
    return false;
}

void GraphicsEditorController::perform(EditCommand command) {
    if (!canPerform(command)) {
        return;
    }
    m_view->setMessage({});
    switch (command) {
    case EditCommand::undo:
        m_document->undo();
        break;
    case EditCommand::redo:
        m_document->redo();
        break;
    case EditCommand::cut:
        copyTiles();
        m_document->transform(TileTransformation::clear);
        break;
    case EditCommand::copy:
        copyTiles();
        break;
    case EditCommand::paste:
        pasteTiles();
        break;
    case EditCommand::selectAll:
        tileViewer->selectAll();
        break;
    }
}

void GraphicsEditorController::copyTiles() const {
    // The clipboard takes the content over.
    QGuiApplication::clipboard()->setMimeData(
        clipboardContent(m_document->copy(), paletteColors(*m_colors)).release());
}

void GraphicsEditorController::pasteTiles() {
    const PastedTiles pasted =
        tilesOf(QGuiApplication::clipboard()->mimeData(), paletteColors(*m_colors));
    if (pasted.clip) {
        m_document->paste(*pasted.clip);
    } else {
        m_view->setMessage(pasted.refusal);
    }
}

} // namespace kestrel
