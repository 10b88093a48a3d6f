// SPDX-License-Identifier: MIT
#include "memory/MemoryLegend.h"

#include "memory/MemoryBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <utility>

namespace kestrel {

namespace {

/// A piece of a bar.
class Swatch : public QWidget {
public:
    Swatch(MemoryArea area, const ByteRange& gap, QWidget* parent)
        : QWidget(parent)
        , m_area(std::move(area))
        , m_gap(gap) {
        const int height = fontMetrics().height();
        setFixedSize(2 * height, height);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        drawMemoryBar(painter, rect(), m_area, m_gap, MemoryBarColors(palette()));
    }

private:
    MemoryArea m_area;
    ByteRange m_gap;
};

constexpr ByteRange Whole{0, 3};
constexpr QMargins Margins(8, 4, 8, 6);
constexpr int SpaceAfterSwatch = 4;

/// A swatch with its text, in a widget of its own.
QWidget* addItem(MemoryLegend& legend, MemoryArea area, const ByteRange& gap, const QString& text) {
    auto* item = new QWidget(&legend);
    auto* row = new QHBoxLayout(item);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(SpaceAfterSwatch);
    row->addWidget(new Swatch(std::move(area), gap, item));
    row->addWidget(new QLabel(text, item));
    legend.layout()->addWidget(item);
    return item;
}

} // namespace

MemoryLegend::MemoryLegend(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("memoryLegend"));
    setAccessibleName(tr("What the bars show"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Margins);
    MemoryArea used;
    used.whole = Whole;
    used.used = {Whole};
    addItem(*this, used, {}, tr("Used"));
    MemoryArea area;
    area.whole = Whole;
    addItem(*this, area, Whole, tr("Largest gap"));
    area.named = {{1, 2}};
    m_named = addItem(*this, area, {}, tr("Named"));
    m_named->setToolTip(tr("An address that a constant has: how far it reaches is not known"));
    m_named->hide();
    row->addStretch(1);
}

void MemoryLegend::setHasNamed(bool hasNamed) {
    m_named->setVisible(hasNamed);
}

} // namespace kestrel
