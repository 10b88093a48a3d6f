// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPointer>
#include <QString>
#include <QWidget>

namespace kestrel {

/// The pane that shows a message where there is nothing to edit.
class EmptyController : public QWidget {
    Q_OBJECT

public:
    explicit EmptyController(QWidget* parent = nullptr);

    /// The label that holds the message; may be gone.
    QLabel* messageLabel() const;

    /// The label's text; empty, and not to be written, when there is no label.
    QString message() const;
    void setMessage(const QString& message);

private:
    QPointer<QLabel> m_messageLabel;
};

} // namespace kestrel
