// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/ColorChange.h"
#include "chrcanvas/data/History.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/views/BoxSelectorDelegate.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/GeneralColorSelector.h"
#include "chrcanvas/views/PaletteSelector.h"
#include "model/KnownContent.h"
#include "widgets/EditorPane.h"
#include "widgets/EditTarget.h"

#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

class PaletteEditorView;
class UnsavedWork;

/// The pane for a palette file: pick one of its eight palettes, one of the four colours in it, and
/// give that a colour of the console.
class PaletteEditorController : public QWidget,
                                public BoxSelectorDelegate,
                                public EditorPane,
                                public EditTarget {
    Q_OBJECT

public:
    explicit PaletteEditorController(QWidget* parent = nullptr);
    ~PaletteEditorController() override;

    QPointer<ColorSelector> colorSelector;
    QPointer<PaletteSelector> paletteSelector;
    QPointer<GeneralColorSelector> generalSelectableColors;
    QPointer<QPushButton> saveButton;

    /// What is edited; shared with the selectors.
    std::vector<std::shared_ptr<NESPalette>> palettes;
    /// The number of the palette last copied into colorSelector; stays when another file is shown.
    int previouslySetSelectablePalette = 0;
    /// Set by the first choice of a master colour, which changes nothing else.
    bool initializedGeneralColors = false;

    /// Connects the views that the references name; done once by the constructor.
    void viewDidLoad();

    /// The file that the next update() shows; nothing before the first.
    const std::optional<std::filesystem::path>& filePathForPalette() const;
    void setFilePathForPalette(std::optional<std::filesystem::path> path);

    /// Reads the file at filePathForPalette and shows its palettes. A file that is no palette file
    /// leaves the palettes as they were. Also done each time the pane is about to be shown, but not
    /// when its window comes back from the task bar.
    virtual void update();

    /// Writes the palettes to filePathForPalette; without one it does nothing. A file that could
    /// not be read as palettes before is kept as a backup.
    void saveFile();

    void selected(BoxSelectorProtocol& boxSelector, PaletteBox palette,
                  BoxPosition boxSelected) override;

    void savePane() override;
    QWidget* workPlace() const override;
    UnsavedWork* unsavedWork() override { return m_unsavedWork; }
    bool canPerform(EditCommand command) const override;
    void perform(EditCommand command) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    bool readPalettes();
    void colorChosen(int box);
    void paletteChosen(int number);
    void masterColorChosen(const BoxSelectorView& grid, BoxPosition boxSelected);
    void copyPalette() const;
    void pastePalette();
    /// The bytes of the palettes as they are now.
    std::vector<std::uint8_t> bytes() const;
    /// The same as a file holds them.
    std::string fileContent() const;
    void bringBack(const std::string& content);
    void afterChange();
    /// Names the file, and says whether the palettes differ from it.
    void showFileName();

    QPointer<PaletteEditorView> m_view;
    UnsavedWork* m_unsavedWork;
    std::optional<std::filesystem::path> m_filePathForPalette;
    KnownContent m_known;
    /// The colours of the file as far as this pane knows; nothing when it was not read.
    std::optional<std::vector<std::uint8_t>> m_fileBytes;
    History<ColorChange> m_history;
};

} // namespace kestrel
