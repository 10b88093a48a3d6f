// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kestrel {

/// A label with one line of plain text that is elided in the middle when it does not fit; its
/// tooltip then shows the whole text.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// The text as it is painted now, elided if need be.
    QString visibleText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The text with control characters, which a file name may hold, replaced.
    QString line() const;
};

} // namespace kestrel
