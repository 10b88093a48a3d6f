// SPDX-License-Identifier: MIT
#include "graphics/PaletteEditorController.h"

#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/PaletteFactory.h"
#include "chrcanvas/views/BoxSelectorProtocol.h"
#include "drafts/UnsavedWork.h"
#include "graphics/PaletteEditorView.h"
#include "graphics/PaletteText.h"
#include "model/FileProcessor.h"
#include "model/FileReader.h"
#include "model/Log.h"
#include "model/Reason.h"
#include "widgets/LightPalette.h"
#include "widgets/SavingText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

namespace {

constexpr std::size_t PaletteCount = 8;
/// No palette file is larger; a larger one need not be read.
constexpr std::uintmax_t LargestFile = 4096;

/// Writes an entry into a palette and says what that changed.
ColorChange written(const std::shared_ptr<PaletteProtocol>& palette, int index,
                    const ColorEntry& entry) {
    const auto place = static_cast<std::size_t>(index);
    const ColorEntry before = palette->entry(place);
    palette->setEntry(place, entry);
    return {palette, place, before, palette->entry(place)};
}

void putColor(const ColorChange& change, const ColorEntry& entry) {
    change.palette->setEntry(change.index, entry);
}

std::optional<std::vector<std::uint8_t>> bytesOnClipboard() {
    // A palette is short; whatever else lies there may be huge.
    constexpr int Longest = 256;
    const QString text = QGuiApplication::clipboard()->text().left(Longest);
    return paletteBytes(text.toStdString(), NESPalette::ColorCount);
}

} // namespace

PaletteEditorController::PaletteEditorController(QWidget* parent)
    : QWidget(parent)
    , m_view(new PaletteEditorView(this))
    , m_unsavedWork(
          new UnsavedWork(DraftKind::palettes,
                          {[this] { return [content = fileContent()] { return content; }; },
                           [this](const std::string& content) { bringBack(content); }},
                          this)) {
    setObjectName(QStringLiteral("paletteEditor"));
    setAccessibleName(tr("Palettes"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    colorSelector = m_view->colorSelector();
    paletteSelector = m_view->paletteSelector();
    generalSelectableColors = m_view->generalSelectableColors();
    saveButton = m_view->saveButton();
    m_view->addDraftLine(*m_unsavedWork);
    for (std::size_t number = 0; number < PaletteCount; ++number) {
        palettes.push_back(std::make_shared<NESPalette>());
    }
    viewDidLoad();
}

PaletteEditorController::~PaletteEditorController() {
    m_unsavedWork->leave();
    for (BoxSelectorView* selector : std::initializer_list<BoxSelectorView*>{
             colorSelector, paletteSelector, generalSelectableColors}) {
        if (selector != nullptr && selector->delegate() == this) {
            selector->setDelegate(nullptr);
        }
    }
}

void PaletteEditorController::viewDidLoad() {
    if (generalSelectableColors) {
        generalSelectableColors->setStartingBox(0);
    }
    for (BoxSelectorView* selector : std::initializer_list<BoxSelectorView*>{
             colorSelector, paletteSelector, generalSelectableColors}) {
        if (selector != nullptr) {
            selector->setDelegate(this);
        }
    }
    if (generalSelectableColors) {
        generalSelectableColors->setPalettes({std::make_shared<GeneralNESColorPalette>()});
    }
    makeWhite(*this);
    if (saveButton) {
        connect(saveButton, &QPushButton::clicked, this, &PaletteEditorController::saveFile,
                Qt::UniqueConnection);
    }
}

const std::optional<std::filesystem::path>& PaletteEditorController::filePathForPalette() const {
    return m_filePathForPalette;
}

void PaletteEditorController::setFilePathForPalette(std::optional<std::filesystem::path> path) {
    if (path != m_filePathForPalette) {
        m_fileBytes.reset();
        m_known.forget();
    }
    m_filePathForPalette = std::move(path);
}

void PaletteEditorController::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        update();
    }
}

bool PaletteEditorController::readPalettes() {
    if (!m_filePathForPalette) {
        return false;
    }
    const std::optional<std::string> content = readFile(*m_filePathForPalette, LargestFile);
    const auto read = content ? PaletteFactory::generate(*content) : std::nullopt;
    if (!read) {
        return false;
    }
    std::vector<std::shared_ptr<NESPalette>> palettesRead;
    for (const auto& palette : read->second) {
        auto nesPalette = std::dynamic_pointer_cast<NESPalette>(palette);
        if (!nesPalette) {
            return false;
        }
        palettesRead.push_back(std::move(nesPalette));
    }
    palettes = std::move(palettesRead);
    m_known.note(*content);
    return true;
}

void PaletteEditorController::update() {
    m_unsavedWork->leave();
    m_fileBytes.reset();
    m_known.forget();
    setStatus(StatusField::saving, {});
    if (readPalettes()) {
        m_fileBytes = bytes();
        m_history.clear();
    }
    if (m_filePathForPalette) {
        m_unsavedWork->shown(*m_filePathForPalette,
                             m_fileBytes ? std::optional(fileContent()) : std::nullopt);
    }
    showFileName();
    if (palettes.size() != PaletteCount) {
        return;
    }
    if (colorSelector) {
        colorSelector->setPalettes({palettes.front()});
    }
    if (paletteSelector) {
        paletteSelector->setPalettes(Palettes(palettes.begin(), palettes.end()));
        paletteSelector->redraw();
    }
    if (colorSelector) {
        colorSelector->redraw();
    }
}

std::vector<std::uint8_t> PaletteEditorController::bytes() const {
    std::vector<std::uint8_t> bytes;
    for (const auto& palette : palettes) {
        for (std::size_t index = 0; index < palette->count(); ++index) {
            bytes.push_back(palette->entry(index).key);
        }
    }
    return bytes;
}

std::string PaletteEditorController::fileContent() const {
    return PaletteFactory::convert(bytes(), PaletteType::nes).value_or(std::string());
}

void PaletteEditorController::saveFile() {
    if (!m_filePathForPalette) {
        return;
    }
    const std::vector<std::uint8_t> array = bytes();
    const std::optional<std::string> content = PaletteFactory::convert(array, PaletteType::nes);
    if (!content) {
        return;
    }
    std::string reason;
    const auto backup = m_known.keepBeforeSaving(*m_filePathForPalette, *content,
                                                 KnownContent::Keep::other, &reason);
    const bool isSaved =
        backup && FileProcessor::saveDataFile(*m_filePathForPalette, *content, &reason);
    setStatus(StatusField::saving,
              savingText(*m_filePathForPalette, backup, isSaved,
                         m_known.isNoted() ? BackupReason::changedElsewhere : BackupReason::unread,
                         reason));
    if (!isSaved) {
        writeLog("Could not save file");
        logReason(m_filePathForPalette->string(), reason);
        return;
    }
    m_known.note(*content);
    m_fileBytes = array;
    m_unsavedWork->saved(*content);
    showFileName();
}

QWidget* PaletteEditorController::workPlace() const {
    return paletteSelector;
}

void PaletteEditorController::savePane() {
    saveFile();
}

void PaletteEditorController::showFileName() {
    const QString name = m_filePathForPalette
                             ? QString::fromStdString(m_filePathForPalette->filename().string())
                             : QString();
    m_view->setFileName(name, bytes() != m_fileBytes);
}

void PaletteEditorController::selected(BoxSelectorProtocol& boxSelector, PaletteBox palette,
                                       BoxPosition boxSelected) {
    const BoxSelectorView* owner = boxSelector.owner();
    if (owner == nullptr || !colorSelector || !paletteSelector || !generalSelectableColors) {
        writeLog("Box selector delegate was not set properly");
        return;
    }
    if (owner == colorSelector) {
        colorChosen(palette.box);
    } else if (owner == paletteSelector) {
        paletteChosen(palette.number);
    } else if (owner == generalSelectableColors) {
        masterColorChosen(*owner, boxSelected);
    }
}

void PaletteEditorController::colorChosen(int box) {
    paletteSelector->selectBoxNumber(box);
    colorSelector->selectBoxNumber(box);
}

void PaletteEditorController::paletteChosen(int number) {
    const Palettes& shown = paletteSelector->palettes();
    if (number < 0 || static_cast<std::size_t>(number) >= shown.size()) {
        return;
    }
    if (number != previouslySetSelectablePalette) {
        colorSelector->setPalette(0, shown[static_cast<std::size_t>(number)]);
        previouslySetSelectablePalette = number;
    }
    paletteSelector->selectPaletteNumber(number);
    colorSelector->redraw();
}

void PaletteEditorController::masterColorChosen(const BoxSelectorView& grid,
                                                BoxPosition boxSelected) {
    const int index = grid.boxesPerRow() * boxSelected.y + boxSelected.x;
    const auto master = generalSelectableColors->paletteSelected();
    const auto pickedPalette = paletteSelector->paletteSelected();
    const auto pickedColors = colorSelector->paletteSelected();
    if (!master || index < 0 || static_cast<std::size_t>(index) >= master->count() ||
        !pickedPalette || !pickedColors) {
        writeLog("Failed: selectedBoxSelectablePalette");
        return;
    }
    const ColorEntry entry = master->entry(static_cast<std::size_t>(index));
    std::vector<ColorChange> step;
    if (initializedGeneralColors) {
        step.push_back(written(pickedPalette, colorSelector->selectedBox(), entry));
    }
    paletteSelector->update(paletteSelector->selectedPaletteNumber(), pickedPalette);
    if (initializedGeneralColors) {
        step.push_back(written(pickedColors, colorSelector->selectedBox(), entry));
    }
    colorSelector->update(0, pickedColors);
    if (initializedGeneralColors) {
        m_unsavedWork->edited();
    }
    initializedGeneralColors = true;
    paletteSelector->redraw();
    m_history.record(std::move(step));
    showFileName();
}

bool PaletteEditorController::canPerform(EditCommand command) const {
    switch (command) {
    case EditCommand::undo:
        return m_history.canUndo();
    case EditCommand::redo:
        return m_history.canRedo();
    case EditCommand::copy:
        return paletteSelector && paletteSelector->paletteSelected() != nullptr;
    case EditCommand::paste:
        return paletteSelector && paletteSelector->paletteSelected() != nullptr &&
               bytesOnClipboard().has_value();
    case EditCommand::cut:
    case EditCommand::selectAll:
        break;
    }
    return false;
}

void PaletteEditorController::perform(EditCommand command) {
    if (!canPerform(command)) {
        return;
    }
    switch (command) {
    case EditCommand::undo:
        m_history.undo(putColor);
        afterChange();
        break;
    case EditCommand::redo:
        m_history.redo(putColor);
        afterChange();
        break;
    case EditCommand::copy:
        copyPalette();
        break;
    case EditCommand::paste:
        pastePalette();
        break;
    case EditCommand::cut:
    case EditCommand::selectAll:
        break;
    }
}

void PaletteEditorController::copyPalette() const {
    const auto palette = paletteSelector->paletteSelected();
    QGuiApplication::clipboard()->setText(QString::fromStdString(paletteText(*palette)));
}

void PaletteEditorController::pastePalette() {
    const auto palette = paletteSelector->paletteSelected();
    const auto pasted = bytesOnClipboard();
    if (!pasted) {
        return;
    }
    std::vector<ColorChange> step;
    int index = 0;
    for (const std::uint8_t key : *pasted) {
        step.push_back(written(palette, index++, masterColor(key)));
    }
    m_history.record(std::move(step));
    afterChange();
}

void PaletteEditorController::bringBack(const std::string& content) {
    const auto kept = PaletteFactory::generate(content);
    if (!kept || kept->second.size() != palettes.size()) {
        return;
    }
    std::vector<ColorChange> step;
    for (std::size_t number = 0; number < palettes.size(); ++number) {
        for (std::size_t index = 0; index < NESPalette::ColorCount; ++index) {
            step.push_back(written(palettes[number], static_cast<int>(index),
                                   kept->second[number]->entry(index)));
        }
    }
    m_history.record(std::move(step));
    afterChange();
}

void PaletteEditorController::afterChange() {
    m_unsavedWork->edited();
    if (paletteSelector) {
        paletteSelector->redraw();
    }
    if (colorSelector) {
        colorSelector->redraw();
    }
    showFileName();
}

} // namespace kestrel
