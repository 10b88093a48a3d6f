// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace kestrel {

class BuildStrip;

/// The place of the build's strip above the console's text: as high as the strip needs, but it
/// leaves some lines of a low window to the text. What does not fit is scrolled.
class BuildStripArea : public QScrollArea {
    Q_OBJECT

public:
    /// `parent` is what the strip and the console's text share.
    explicit BuildStripArea(QWidget* parent);

    BuildStrip* strip() const { return m_strip; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    BuildStrip* m_strip;
};

} // namespace kestrel
