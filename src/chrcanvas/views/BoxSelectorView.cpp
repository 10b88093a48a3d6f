// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxSelectorView.h"

#include "chrcanvas/views/ColorWords.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

constexpr int SmallestBox = 18;
/// The room after a palette's label.
constexpr int LabelEnd = 6;

std::vector<int> countsOf(const std::vector<std::vector<ColorEntry>>& shown) {
    std::vector<int> counts;
    counts.reserve(shown.size());
    for (const auto& palette : shown) {
        counts.push_back(static_cast<int>(palette.size()));
    }
    return counts;
}

} // namespace

BoxSelectorView::BoxSelectorView(int boxesPerRow, int largestBox, QWidget* parent)
    : QWidget(parent)
    , m_boxesPerRow(boxesPerRow)
    , m_largestBox(largestBox)
    , m_grid({}, boxesPerRow, 0, largestBox) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void BoxSelectorView::setStartingBox(int box) {
    m_startingBox = box;
}

void BoxSelectorView::setDelegate(BoxSelectorDelegate* delegate) {
    m_delegate = delegate;
}

void BoxSelectorView::setPalettes(Palettes palettes) {
    std::erase(palettes, nullptr);
    m_palettes = std::move(palettes);
    refresh();
    const PaletteBox start{0, m_startingBox};
    movePicked(holds(start) ? start : PaletteBox{});
    moveCursor(m_picked);
}

bool BoxSelectorView::setPalette(int number, std::shared_ptr<PaletteProtocol> palette) {
    if (number < 0 || static_cast<std::size_t>(number) >= m_palettes.size() || !palette) {
        return false;
    }
    m_palettes[static_cast<std::size_t>(number)] = std::move(palette);
    return true;
}

void BoxSelectorView::redraw() {
    refresh();
    // The box pointed at may have another colour now.
    if (m_hovered) {
        Q_EMIT pointedAt(boxDescription(*m_hovered));
    } else if (hasFocus()) {
        Q_EMIT pointedAt(boxDescription(m_cursor));
    }
}

bool BoxSelectorView::selectPaletteNumber(int paletteNumber) {
    if (paletteNumber < 0 || paletteNumber >= grid().paletteCount()) {
        return false;
    }
    const int last = std::max(0, grid().boxCount(paletteNumber) - 1);
    movePicked({paletteNumber, std::min(m_picked.box, last)});
    return true;
}

bool BoxSelectorView::selectBoxNumber(int boxNumber) {
    const PaletteBox box{m_picked.number, boxNumber};
    if (!holds(box)) {
        return false;
    }
    movePicked(box);
    return true;
}

bool BoxSelectorView::update(int paletteNumber, std::shared_ptr<PaletteProtocol> withPalette) {
    if (!setPalette(paletteNumber, std::move(withPalette))) {
        return false;
    }
    refresh();
    return true;
}

std::shared_ptr<PaletteProtocol> BoxSelectorView::paletteSelected() const {
    const auto number = static_cast<std::size_t>(m_picked.number);
    return number < m_palettes.size() ? m_palettes[number] : nullptr;
}

QRect BoxSelectorView::boxRect(PaletteBox box) const {
    return holds(box) ? grid().rect(box) : QRect();
}

ColorEntry BoxSelectorView::shownEntry(PaletteBox box) const {
    return holds(box)
               ? m_shown[static_cast<std::size_t>(box.number)][static_cast<std::size_t>(box.box)]
               : ColorEntry{};
}

bool BoxSelectorView::holds(PaletteBox box) const {
    return box.box >= 0 && box.box < grid().boxCount(box.number);
}

void BoxSelectorView::refresh() {
    std::vector<std::vector<ColorEntry>> now;
    now.reserve(m_palettes.size());
    for (const auto& palette : m_palettes) {
        std::vector<ColorEntry>& entries = now.emplace_back();
        for (std::size_t index = 0; index < palette->count(); ++index) {
            entries.push_back(palette->entry(index));
        }
    }
    std::swap(m_shown, now);
    if (countsOf(m_shown) != countsOf(now)) {
        layOut();
        if (!holds(m_picked)) {
            movePicked({});
        }
        if (!holds(m_cursor)) {
            moveCursor(m_picked);
        }
        return;
    }
    for (std::size_t number = 0; number < m_shown.size(); ++number) {
        for (std::size_t box = 0; box < m_shown[number].size(); ++box) {
            if (m_shown[number][box] != now[number][box]) {
                const PaletteBox place{static_cast<int>(number), static_cast<int>(box)};
                repaintBox(place);
                tellAssistants(QAccessible::NameChanged, place);
                if (place == m_picked) {
                    tellValue();
                }
            }
        }
    }
}

void BoxSelectorView::choose(PaletteBox box) {
    if (!holds(box)) {
        return;
    }
    moveCursor(box);
    movePicked(markFor(box));
    if (m_delegate != nullptr) {
        m_delegate->selected(*this, box, grid().position(box));
    }
}

void BoxSelectorView::movePicked(PaletteBox box) {
    const PaletteBox former = std::exchange(m_picked, box);
    if (former == box) {
        return;
    }
    if (former.number == box.number) {
        repaintBox(former);
        repaintBox(box);
    } else {
        repaintPalette(former.number);
        repaintPalette(box.number);
    }
    tellAssistants(QAccessible::Selection, box);
    tellValue();
    if (!hasFocus()) {
        moveCursor(box);
    }
}

void BoxSelectorView::tellAssistants(QAccessible::Event type, PaletteBox box) {
    if (holds(box)) {
        QAccessibleEvent event(this, type);
        event.setChild(grid().indexOf(box));
        report(event);
    }
}

void BoxSelectorView::tellValue() {
    QAccessibleValueChangeEvent event(this, boxDescription(m_picked));
    report(event);
}

void BoxSelectorView::report(QAccessibleEvent& event) {
    QAccessible::updateAccessibility(&event);
}

QString BoxSelectorView::paletteLabel(int /*paletteNumber*/) const {
    return {};
}

bool BoxSelectorView::isCrossedOut(const ColorEntry& entry) const {
    return isToBeAvoided(entry.key);
}

QString BoxSelectorView::boxText(PaletteBox /*box*/, const ColorEntry& entry) const {
    return indexDigits(entry.key);
}

QString BoxSelectorView::placeAndIndex(PaletteBox box, const QString& index) const {
    return tr("Colour %1 of %2, index %3")
        .arg(QString::number(box.box), QString::number(grid().boxCount(box.number)), index);
}

QString BoxSelectorView::boxDescription(PaletteBox box) const {
    if (!holds(box)) {
        return {};
    }
    const std::uint8_t key = shownEntry(box).key;
    const QString place = placeAndIndex(box, indexText(key));
    const QString note = colorNote(key);
    return note.isEmpty() ? place : tr("%1 – %2", "a colour and a note on it").arg(place, note);
}

int BoxSelectorView::labelWidth() const {
    int width = 0;
    for (int number = 0; number < grid().paletteCount(); ++number) {
        const QString label = paletteLabel(number);
        width = std::max(width, label.isEmpty() ? 0
                                                : fontMetrics().horizontalAdvance(label) +
                                                      LabelStart + LabelEnd);
    }
    return width;
}

BoxGrid BoxSelectorView::gridFor(int width) const {
    const int left = labelWidth();
    const int room = (width - left - BoxGrid::Gap) / m_boxesPerRow - BoxGrid::Gap;
    const int box = std::clamp(room, SmallestBox, m_largestBox);
    return {countsOf(m_shown), m_boxesPerRow, left, box};
}

void BoxSelectorView::layOut() {
    // The label's width depends on which palettes there are.
    m_grid = BoxGrid(countsOf(m_shown), m_boxesPerRow, 0, m_largestBox);
    m_grid = gridFor(width());
    setHovered(std::nullopt);
    updateGeometry();
    update();
}

QSize BoxSelectorView::sizeHint() const {
    return BoxGrid(countsOf(m_shown), m_boxesPerRow, labelWidth(), m_largestBox).size();
}

QSize BoxSelectorView::minimumSizeHint() const {
    return BoxGrid(countsOf(m_shown), m_boxesPerRow, labelWidth(), SmallestBox).size();
}

int BoxSelectorView::heightForWidth(int width) const {
    return gridFor(width).size().height();
}

void BoxSelectorView::resizeEvent(QResizeEvent* /*event*/) {
    m_grid = gridFor(width());
}

void BoxSelectorView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        layOut();
    }
    QWidget::changeEvent(event);
}

} // namespace kestrel
