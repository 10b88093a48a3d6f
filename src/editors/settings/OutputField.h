// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/PathField.h"

#include <QPushButton>
#include <QWidget>

namespace kestrel {

/// Shows where a build writes the image, and opens that folder.
class OutputField : public QWidget {
    Q_OBJECT

public:
    explicit OutputField(QWidget* parent = nullptr);

    PathField* textField() const { return m_textField; }
    QPushButton* openButton() const { return m_openButton; }

    void setFolder(const QString& folder);

    /// Looks whether there is a folder to open; before the first build there is none.
    void refresh();

private:
    void openFolder() const;

    PathField* m_textField;
    QPushButton* m_openButton;
};

} // namespace kestrel
