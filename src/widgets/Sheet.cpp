// SPDX-License-Identifier: MIT
#include "widgets/Sheet.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestrel {

Sheet::Sheet(QWidget* parent)
    : QDialog(parent) {
    setWindowModality(Qt::WindowModal);
    connect(this, &QDialog::finished, this, [this] {
        deleteLater();
        tell();
    });
}

Sheet::~Sheet() {
    tell();
}

void Sheet::setContent(QWidget* content) {
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(content);
}

void Sheet::begin(std::function<void()> ended) {
    m_ended = std::move(ended);
    open();
}

void Sheet::end(int response) {
    if (m_ended) {
        done(response);
    }
}

bool Sheet::isOpenOn(const QWidget* window) {
    if (window == nullptr) {
        return false;
    }
    const auto dialogs = window->findChildren<QDialog*>();
    return std::any_of(dialogs.begin(), dialogs.end(), [](const QDialog* dialog) {
        return dialog->isVisible() && dialog->isModal();
    });
}

void Sheet::tell() {
    // Taken out first: whoever is told may begin another sheet or let go of this one.
    if (const auto ended = std::exchange(m_ended, nullptr)) {
        ended();
    }
}

} // namespace kestrel
