// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/SettingField.h"
#include "widgets/PathField.h"

#include <QPushButton>

namespace kestrel {

/// Shows where a build writes the image, and opens that folder.
class OutputField final : public SettingField {
    Q_OBJECT

public:
    explicit OutputField(QWidget* parent = nullptr);

    PathField* textField() const { return m_textField; }
    QPushButton* openButton() const { return m_openButton; }

    void setFolder(const QString& folder);

    void showSetting(const NESProjectBuilder& builder) override;

    /// Looks whether there is a folder to open; before the first build there is none.
    void refresh() override;

private:
    void openFolder() const;

    PathField* m_textField;
    QPushButton* m_openButton;
};

} // namespace kestrel
