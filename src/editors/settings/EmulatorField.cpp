// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorField.h"

#include "build/NESProjectBuilder.h"
#include "editors/settings/EmulatorMenu.h"
#include "editors/settings/EmulatorProblem.h"
#include "widgets/Contrast.h"

#include <QFile>
#include <QScrollArea>
#include <QVBoxLayout>

namespace kestrel {

EmulatorField::EmulatorField(QWidget* parent)
    : SettingField(parent)
    , m_textField(new PathField(this))
    , m_chooseButton(new QPushButton(tr("&Choose..."), this))
    , m_installedButton(new QToolButton(this))
    , m_menu(new EmulatorMenu(m_installedButton))
    , m_problemLabel(new QLabel(this)) {
    m_textField->setObjectName(QStringLiteral("pathToEmulatorTextField"));
    m_textField->setAccessibleName(tr("Emulator"));
    m_chooseButton->setObjectName(QStringLiteral("chooseEmulatorButton"));
    m_chooseButton->setAccessibleName(tr("Choose emulator"));
    m_chooseButton->setAutoDefault(false);
    m_installedButton->setObjectName(QStringLiteral("installedEmulatorsButton"));
    m_installedButton->setAccessibleName(tr("Installed emulators"));
    m_installedButton->setText(tr("&Installed"));
    m_installedButton->setToolTip(tr("Choose one of the emulators that are installed"));
    m_installedButton->setFocusPolicy(Qt::StrongFocus);
    // In this mode the menu has its place among what assistive technology sees.
    m_installedButton->setPopupMode(QToolButton::MenuButtonPopup);
    m_installedButton->setMenu(m_menu);
    connect(m_installedButton, &QToolButton::clicked, this, &EmulatorField::openMenu);
    m_installedButton->setSizePolicy(m_chooseButton->sizePolicy());
    m_problemLabel->setObjectName(QStringLiteral("emulatorProblem"));
    m_problemLabel->setTextFormat(Qt::PlainText);
    m_problemLabel->setWordWrap(true);
    layOut(tr("E&mulator"), QStringLiteral("pathToEmulatorLabel"), *m_textField, *m_chooseButton)
        ->addWidget(m_problemLabel);
    addButton(*m_installedButton);
    refresh();
}

/// Opens the menu at its button, which may be scrolled away when it is reached by its key.
void EmulatorField::openMenu() {
    for (QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            area->ensureWidgetVisible(m_installedButton);
        }
    }
    m_installedButton->showMenu();
}

void EmulatorField::showSetting(const NESProjectBuilder& builder) {
    setEmulator(builder.pathToEmulator());
}

void EmulatorField::setProjectPresent(bool present) {
    m_chooseButton->setEnabled(present);
    m_installedButton->setEnabled(present);
}

void EmulatorField::setEmulator(const std::optional<std::filesystem::path>& emulator) {
    m_emulator = emulator;
    m_menu->setPresentEmulator(emulator);
    if (emulator) {
        m_textField->setPath(QFile::decodeName(QByteArray::fromStdString(emulator->string())));
    }
    refresh();
}

void EmulatorField::refresh() {
    const auto problem = m_emulator ? emulatorProblem(*m_emulator) : std::nullopt;
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, problem ? readableRed(colours.color(QPalette::Window))
                                                   : colours.color(QPalette::PlaceholderText));
    m_problemLabel->setPalette(colours);
    m_problemLabel->setText(m_emulator ? problem.value_or(QString())
                                       : tr("No emulator is set for this project yet."));
}

} // namespace kestrel
