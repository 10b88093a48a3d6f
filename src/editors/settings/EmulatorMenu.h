// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

#include <filesystem>
#include <optional>

namespace kestrel {

/// A menu of the emulators that are installed. It looks for them each time that it opens.
class EmulatorMenu final : public QMenu {
    Q_OBJECT

public:
    explicit EmulatorMenu(QWidget* parent = nullptr);

    /// Which emulator has the mark.
    void setPresentEmulator(const std::optional<std::filesystem::path>& emulator);

Q_SIGNALS:
    /// The user chose the emulator with this desktop entry.
    void emulatorChosen(const std::filesystem::path& file);

    /// The user wants to choose a program that is not in the menu.
    void otherProgramWanted();

private:
    void fill();

    std::optional<std::filesystem::path> m_presentEmulator;
};

} // namespace kestrel
