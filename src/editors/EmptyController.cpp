// SPDX-License-Identifier: MIT
#include "editors/EmptyController.h"

#include "widgets/LightPalette.h"

#include <QFont>
#include <QVBoxLayout>

namespace kestrel {

EmptyController::EmptyController(QWidget* parent)
    : QWidget(parent)
    , m_messageLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("emptyController"));
    setAccessibleName(tr("Message"));
    makeWhite(*this);
    m_messageLabel->setObjectName(QStringLiteral("messageLabel"));
    m_messageLabel->setTextFormat(Qt::PlainText);
    m_messageLabel->setAlignment(Qt::AlignCenter);
    m_messageLabel->setWordWrap(true);
    m_messageLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = m_messageLabel->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    m_messageLabel->setFont(font);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(m_messageLabel);
}

QLabel* EmptyController::messageLabel() const {
    return m_messageLabel;
}

QString EmptyController::message() const {
    return m_messageLabel ? m_messageLabel->text() : QString();
}

void EmptyController::setMessage(const QString& message) {
    if (m_messageLabel) {
        m_messageLabel->setText(message);
    }
}

} // namespace kestrel
