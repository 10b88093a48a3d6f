// SPDX-License-Identifier: MIT
#include "editors/settings/OutputField.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QUrl>
#include <QVBoxLayout>

namespace kestrel {

OutputField::OutputField(QWidget* parent)
    : QWidget(parent)
    , m_textField(new PathField(this))
    , m_openButton(new QPushButton(tr("Open Fo&lder"), this)) {
    m_textField->setObjectName(QStringLiteral("outputTextField"));
    m_textField->setAccessibleName(tr("Output folder"));
    m_openButton->setObjectName(QStringLiteral("openOutputFolderButton"));
    m_openButton->setAccessibleName(tr("Open output folder"));
    m_openButton->setAutoDefault(false);
    auto* label = new QLabel(tr("&Output folder"), this);
    label->setObjectName(QStringLiteral("outputLabel"));
    label->setBuddy(m_textField);
    auto* row = new QHBoxLayout;
    row->addWidget(m_textField, 1);
    row->addWidget(m_openButton);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(label);
    column->addLayout(row);
    connect(m_openButton, &QPushButton::clicked, this, &OutputField::openFolder);
    refresh();
}

void OutputField::setFolder(const QString& folder) {
    m_textField->setPath(folder);
    refresh();
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
