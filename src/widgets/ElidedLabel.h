// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kestrel {

/// One line of plain text that gives up its middle when there is no room for all of it; the tooltip
/// then has the whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// The text as it is painted at present.
    QString visibleText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The text in one line, whatever a file name may hold.
    QString line() const;
};

} // namespace kestrel
