// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/SettingField.h"
#include "widgets/PathField.h"

#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <filesystem>
#include <optional>

namespace kestrel {

class EmulatorMenu;

/// Shows which emulator runs the project, what is wrong with it, and two buttons to choose another:
/// any file, or one of those that are installed.
class EmulatorField final : public SettingField {
    Q_OBJECT

public:
    explicit EmulatorField(QWidget* parent = nullptr);

    PathField* textField() const { return m_textField; }
    QPushButton* chooseButton() const { return m_chooseButton; }
    QToolButton* installedButton() const { return m_installedButton; }
    /// The menu of the second button.
    EmulatorMenu* menu() const { return m_menu; }
    /// The line below the field: why the emulator cannot be started, or that there is none.
    QLabel* problemLabel() const { return m_problemLabel; }

    /// Shows this emulator. Without one the path shown before stays in the field; the line below
    /// says that none is set.
    void setEmulator(const std::optional<std::filesystem::path>& emulator);

    void showSetting(const NESProjectBuilder& builder) override;

    /// Looks again whether the emulator can be started.
    void refresh() override;

    void setProjectPresent(bool present) override;

private:
    void openMenu();

    PathField* m_textField;
    QPushButton* m_chooseButton;
    QToolButton* m_installedButton;
    EmulatorMenu* m_menu;
    QLabel* m_problemLabel;
    std::optional<std::filesystem::path> m_emulator;
};

} // namespace kestrel
