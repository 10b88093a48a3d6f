// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

class QTextLayout;

namespace kestrel {

/// A label with plain text that is wrapped between words, and within a word that is wider than the
/// label, as paths are. So it may be as narrow as its parent likes, and nothing is cut off.
class WrappedLabel : public QLabel {
    Q_OBJECT

public:
    explicit WrappedLabel(QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Lays the text out in this width; gives its height.
    qreal layOut(QTextLayout& layout, int width) const;
};

} // namespace kestrel
