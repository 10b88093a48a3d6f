// SPDX-License-Identifier: MIT
#include "graphics/PaletteEditorView.h"

#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/GeneralColorSelector.h"
#include "chrcanvas/views/PaletteSelector.h"
#include "widgets/DraftLine.h"
#include "widgets/ElidedLabel.h"

#include <QBoxLayout>
#include <QEvent>
#include <QKeySequence>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

namespace kestrel {

namespace {

constexpr int Margin = 8;
constexpr int ColumnSpacing = 24;

} // namespace

PaletteEditorView::PaletteEditorView(QWidget* parent)
    : QWidget(parent)
    , m_fileName(new ElidedLabel(this))
    , m_saveButton(new QPushButton(tr("Save"), this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    buildHeader(*layout);
    buildSelectors(*layout);
    buildDescription(*layout);
}

void PaletteEditorView::buildHeader(QBoxLayout& layout) {
    m_fileName->setObjectName(QStringLiteral("paletteFileName"));
    m_saveButton->setObjectName(QStringLiteral("saveButton"));
    m_saveButton->setAccessibleName(tr("Save the palettes"));
    m_saveButton->setToolTip(
        tr("Save the palettes (%1)")
            .arg(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText)));
    m_saveButton->setFocusPolicy(Qt::TabFocus); // clicked, it leaves the focus where it is
    auto* header = new QHBoxLayout;
    header->setContentsMargins(Margin, Margin / 2, Margin, Margin / 2);
    header->addWidget(m_fileName, 1);
    header->addWidget(m_saveButton);
    layout.addLayout(header);
}

void PaletteEditorView::buildSelectors(QBoxLayout& layout) {
    m_scrollArea = new QScrollArea(this);
    m_scrollArea->setObjectName(QStringLiteral("paletteScrollArea"));
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_selectors = new QWidget;
    m_scrollArea->setWidget(m_selectors);
    m_selectors->installEventFilter(this);
    layout.addWidget(m_scrollArea, 1);

    m_paletteSelector = new PaletteSelector(m_selectors);
    m_colorSelector = new ColorSelector(m_selectors);
    m_generalSelectableColors = new GeneralColorSelector(m_selectors);

    m_columns = new QBoxLayout(QBoxLayout::LeftToRight, m_selectors);
    m_columns->setContentsMargins(Margin, Margin, Margin, Margin);
    m_columns->setSpacing(ColumnSpacing);
    QBoxLayout* palettes = column(m_selectors, tr("Palettes"), m_paletteSelector);
    palettes->addStretch();
    m_columns->addLayout(palettes);
    QBoxLayout* colors = column(m_selectors, tr("Colours of the palette"), m_colorSelector);
    colors->addSpacing(2 * Margin);
    colors->addLayout(column(m_selectors, tr("All colours"), m_generalSelectableColors));
    colors->addStretch();
    m_columns->addLayout(colors, 1);
}

void PaletteEditorView::buildDescription(QBoxLayout& layout) {
    auto* description = new QLabel(this);
    description->setObjectName(QStringLiteral("colorDescription"));
    description->setTextFormat(Qt::PlainText);
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    description->setContentsMargins(Margin, 0, Margin, Margin);
    // Room for two lines, so that nothing moves when the text changes.
    description->setMinimumHeight(2 * fontMetrics().lineSpacing() + Margin);
    layout.addWidget(description);
    for (const BoxSelectorView* selector : std::initializer_list<const BoxSelectorView*>{
             m_paletteSelector, m_colorSelector, m_generalSelectableColors}) {
        connect(selector, &BoxSelectorView::pointedAt, description, &QLabel::setText);
    }
}

QBoxLayout* PaletteEditorView::column(QWidget* parent, const QString& heading, QWidget* selector) {
    auto* label = new QLabel(heading, parent);
    label->setBuddy(selector);
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    column->addWidget(label);
    column->addWidget(selector);
    return column;
}

ColorSelector* PaletteEditorView::colorSelector() const {
    return m_colorSelector;
}

PaletteSelector* PaletteEditorView::paletteSelector() const {
    return m_paletteSelector;
}

GeneralColorSelector* PaletteEditorView::generalSelectableColors() const {
    return m_generalSelectableColors;
}

QPushButton* PaletteEditorView::saveButton() const {
    return m_saveButton;
}

void PaletteEditorView::addDraftLine(UnsavedWork& work) {
    auto* line = new DraftLine(work, *m_paletteSelector, this);
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, line);
    line->setTabOrderAfter(m_saveButton);
}

void PaletteEditorView::setFileName(const QString& name, bool changed) {
    const QString text = changed && !name.isEmpty() ? tr("%1 – not saved").arg(name) : name;
    m_fileName->setText(text);
    m_fileName->setAccessibleName(tr("File shown: %1").arg(text));
}

void PaletteEditorView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrangeColumns();
}

bool PaletteEditorView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        arrangeColumns(); // the selectors have other palettes and so another size
    }
    return QWidget::eventFilter(watched, event);
}

void PaletteEditorView::arrangeColumns() {
    const QSize palettes = m_columns->itemAt(0)->minimumSize();
    const QSize colors = m_columns->itemAt(1)->minimumSize();
    int sideBySide = palettes.width() + ColumnSpacing + colors.width() + 2 * Margin;
    if (std::max(palettes.height(), colors.height()) + 2 * Margin > m_scrollArea->height()) {
        sideBySide += style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    }
    m_columns->setDirection(width() < sideBySide ? QBoxLayout::TopToBottom
                                                 : QBoxLayout::LeftToRight);
}

} // namespace kestrel
