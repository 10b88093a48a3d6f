// SPDX-License-Identifier: MIT
#include "editors/settings/SettingField.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace kestrel {

SettingField::SettingField(QWidget* parent)
    : QWidget(parent) {}

QVBoxLayout* SettingField::layOut(const QString& labelText, const QString& labelName,
                                  QWidget& field, QWidget& button) {
    m_tabStops = {&field, &button};
    auto* label = new QLabel(labelText, this);
    label->setObjectName(labelName);
    label->setBuddy(&field);
    auto* row = new QHBoxLayout;
    row->addWidget(&field, 1);
    row->addWidget(&button);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(label);
    column->addLayout(row);
    return column;
}

} // namespace kestrel
