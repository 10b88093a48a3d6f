// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildMarkKind.h"
#include "widgets/StatusBoard.h"

#include <QStatusBar>

#include <array>
#include <vector>

namespace kestrel {

class Announcement;
class BuildMark;
class ElidedLabel;

/// The status bar of the main window: the fields of a board that have a text, in one line. Where
/// they do not all fit, what stands on the left is elided, the urgent field last, and never hidden.
/// Of what stands on the right, the last field that has room is elided and those after it are
/// hidden.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    /// `board` must outlive the bar or go together with it.
    explicit StatusBar(const StatusBoard& board, QWidget* parent = nullptr);

    /// Shows this mark before the result of the build, as long as that has a text.
    void setBuildMark(BuildMarkKind kind);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText(const StatusRow& row, const QString& text, StatusTone tone);
    void dimPastTexts();
    void placeLabels();
    int wantedWidth(const StatusRow& row) const;
    int leastWidth(const StatusRow& row) const; ///< in which something can still be read
    std::array<int, StatusFieldCount> widthsFor(int room) const;

    BuildMark* m_buildMark;
    std::vector<ElidedLabel*> m_labels;         ///< in the order of statusRows()
    std::vector<Announcement*> m_announcements; ///< in the same order; null where there is none
};

} // namespace kestrel
