// SPDX-License-Identifier: MIT
#include "editors/settings/OutputField.h"

#include "build/NESProjectBuilder.h"
#include "model/Paths.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace kestrel {

OutputField::OutputField(QWidget* parent)
    : SettingField(parent)
    , m_textField(new PathField(this))
    , m_openButton(new QPushButton(tr("Open Fo&lder"), this)) {
    m_textField->setObjectName(QStringLiteral("outputTextField"));
    m_textField->setAccessibleName(tr("Output folder"));
    m_openButton->setObjectName(QStringLiteral("openOutputFolderButton"));
    m_openButton->setAccessibleName(tr("Open output folder"));
    m_openButton->setAutoDefault(false);
    layOut(tr("&Output folder"), QStringLiteral("outputLabel"), *m_textField, *m_openButton);
    connect(m_openButton, &QPushButton::clicked, this, &OutputField::openFolder);
    refresh();
}

void OutputField::setFolder(const QString& folder) {
    m_textField->setPath(folder);
    refresh();
}

void OutputField::showSetting(const NESProjectBuilder& builder) {
    if (const auto folder = builder.outputPath()) {
        setFolder(QString::fromStdString(pathText(*folder)));
    }
}

void OutputField::refresh() {
    const QString folder = m_textField->text();
    const bool isThere = !folder.isEmpty() && QFileInfo(folder).isDir();
    m_openButton->setEnabled(isThere);
    m_openButton->setToolTip(isThere ? QString() : tr("The first build makes this folder"));
}

void OutputField::openFolder() const {
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_textField->text()));
}

} // namespace kestrel
