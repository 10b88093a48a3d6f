// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/StatusBoard.h"

#include <QStatusBar>

#include <vector>

namespace kestrel {

class ElidedLabel;

/// The status bar of the main window: the fields of a board that have a text, in one line. Where
/// they do not all fit, the last one that has room is elided and those after it are hidden.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    /// `board` must outlive the bar or go together with it.
    explicit StatusBar(const StatusBoard& board, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText(const StatusRow& row, const QString& text);
    void placeLabels();

    std::vector<ElidedLabel*> m_labels; ///< in the order of statusRows()
};

} // namespace kestrel
