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
    m_row = new QHBoxLayout;
    m_row->addWidget(&field, 1);
    m_row->addWidget(&button);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(label);
    column->addLayout(m_row);
    return column;
}

void SettingField::addButton(QWidget& button) {
    m_row->addWidget(&button);
    m_tabStops.push_back(&button);
}

} // namespace kestrel
