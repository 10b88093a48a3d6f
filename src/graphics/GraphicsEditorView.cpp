// SPDX-License-Identifier: MIT
#include "graphics/GraphicsEditorView.h"

#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/TileCollection.h"
#include "graphics/GraphicsActions.h"
#include "widgets/Announcement.h"
#include "widgets/DraftLine.h"
#include "widgets/ElidedLabel.h"
#include "widgets/ThinFrame.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include <cstddef>
#include <optional>

namespace kestrel {

namespace {

constexpr int IconSide = 16;
constexpr int SelectorWidth = 200;
/// Puts the file's name and the button where the other editors have them.
constexpr QMargins PaneMargins(8, 4, 8, 8);

void name(QWidget& widget, const char* objectName, const QString& accessibleName) {
    widget.setObjectName(QString::fromLatin1(objectName));
    widget.setAccessibleName(accessibleName);
}

QString hex(std::size_t number, int digits) {
    return QStringLiteral("$%1").arg(number, digits, 16, QLatin1Char('0')).toUpper();
}

} // namespace

GraphicsEditorView::GraphicsEditorView(QWidget* parent)
    : QWidget(parent)
    , m_tileViewer(new TileCollection(this))
    , m_pixelEditor(new ChrCanvas(this))
    , m_colorSelector(new ColorSelector(this))
    , m_saveButton(new QPushButton(tr("Save"), this))
    , m_fileName(new ElidedLabel(this))
    , m_tileInfo(new ElidedLabel(this))
    , m_message(new QLabel(this))
    , m_announcement(new Announcement(*m_message))
    , m_actions(new GraphicsActions(*m_pixelEditor, *m_tileViewer, this)) {
    nameViews();
    QToolBar* toolBar = makeToolBar();
    layOut(toolBar);
    setTabOrder(*toolBar);
    setMessage({});
    connect(m_tileViewer, &TileCollection::tileHovered, this, &GraphicsEditorView::describeTile);
    connect(m_tileViewer, &TileCollection::tilesSelected, this, [this] { describeTile(-1); });
    connect(m_tileViewer, &TileCollection::focusChanged, this, &GraphicsEditorView::describeCursor);
    connect(m_pixelEditor, &ChrCanvas::cursorMoved, this, &GraphicsEditorView::describePixel);
    connect(m_pixelEditor, &ChrCanvas::colorPicked, this, &GraphicsEditorView::showColor);
}

void GraphicsEditorView::nameViews() {
    name(*m_tileViewer, "tileViewer", tr("All tiles"));
    name(*m_pixelEditor, "pixelEditor", tr("Pixel editor"));
    name(*m_colorSelector, "colorSelector", tr("Colours to paint with"));
    name(*m_saveButton, "saveButton", tr("Save the tiles"));
    // Labels get no accessible names, which would be read out instead of their text.
    m_fileName->setObjectName(QStringLiteral("graphicsFileName"));
    m_tileInfo->setObjectName(QStringLiteral("tileInfo"));
    m_message->setObjectName(QStringLiteral("graphicsMessage"));
    m_saveButton->setToolTip(
        tr("Save the tiles (%1)")
            .arg(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText)));
    m_saveButton->setFocusPolicy(Qt::TabFocus); // clicked, it leaves the focus where it is
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
}

QToolBar* GraphicsEditorView::makeToolBar() {
    auto* toolBar = new QToolBar(this);
    name(*toolBar, "graphicsTools", tr("Tools"));
    // QToolBar's own button for the tools that a narrow row has no room for.
    for (QWidget* more : toolBar->findChildren<QWidget*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setAccessibleName(tr("More tools"));
    }
    toolBar->setIconSize(QSize(IconSide, IconSide));
    toolBar->addActions(m_actions->editActions());
    toolBar->addSeparator();
    toolBar->addActions(m_actions->viewActions());
    for (QAction* action : toolBar->actions()) {
        if (!action->isSeparator()) {
            QWidget* button = toolBar->widgetForAction(action);
            button->setObjectName(action->objectName() + QStringLiteral("Button"));
            button->setAccessibleName(action->iconText());
            button->setFocusPolicy(Qt::TabFocus);
        }
    }
    return toolBar;
}

void GraphicsEditorView::layOut(QToolBar* toolBar) {
    auto* right = new QWidget(this);
    auto* rightColumn = new QVBoxLayout(right);
    rightColumn->setContentsMargins(0, 0, 0, 0);
    rightColumn->addWidget(new ThinFrame(*m_pixelEditor, right), 1);
    m_colorSelector->setMaximumWidth(SelectorWidth);
    m_colorSelector->setShowsNumbers(true);
    rightColumn->addWidget(m_colorSelector);
    auto* splitter = new QSplitter(this);
    splitter->setObjectName(QStringLiteral("graphicsSplitter"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(new ThinFrame(*m_tileViewer, splitter));
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    auto* top = new QHBoxLayout;
    top->addWidget(m_fileName, 1);
    top->addWidget(m_saveButton);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PaneMargins);
    column->addLayout(top);
    column->addWidget(toolBar);
    column->addWidget(splitter, 1);
    column->addWidget(m_tileInfo);
    column->addWidget(m_message);
}

void GraphicsEditorView::setTabOrder(const QToolBar& toolBar) {
    QWidget* former = m_saveButton;
    for (QAction* action : toolBar.actions()) {
        if (!action->isSeparator()) {
            QWidget* button = toolBar.widgetForAction(action);
            QWidget::setTabOrder(former, button);
            former = button;
        }
    }
    for (QWidget* view : {static_cast<QWidget*>(m_tileViewer), static_cast<QWidget*>(m_pixelEditor),
                          static_cast<QWidget*>(m_colorSelector)}) {
        QWidget::setTabOrder(former, view);
        former = view;
    }
}

void GraphicsEditorView::keyPressEvent(QKeyEvent* event) {
    const int box = event->key() - Qt::Key_0;
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier || box < 0 || box >= PixelValues) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_pixelEditor->setCurrentColorBox(box);
    showColor(box);
}

void GraphicsEditorView::showColor(int box) {
    m_colorSelector->selectBoxNumber(box);
    m_colorSelector->redraw();
}

void GraphicsEditorView::addDraftLine(UnsavedWork& work) {
    auto* line = new DraftLine(work, *m_pixelEditor, this);
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, line);
    line->setTabOrderAfter(m_saveButton);
}

void GraphicsEditorView::setFileName(const QString& name) {
    m_fileName->setText(name);
}

void GraphicsEditorView::setMessage(const QString& message) {
    m_message->setText(message);
    if (!message.isEmpty()) {
        m_announcement->say(message);
    }
    m_message->setVisible(!message.isEmpty());
}

/// The text for a tile; empty for none.
QString GraphicsEditorView::tileText(int number) const {
    if (number < 0) {
        return {};
    }
    const auto tile = static_cast<std::size_t>(number);
    return tr("Tile %1 (%2), offset %3")
        .arg(number)
        .arg(hex(tile, 2), hex(tile * TileData::BytesPerTile, 4));
}

int GraphicsEditorView::selectedTile() const {
    const auto selected = m_tileViewer->document().selectedRows();
    return selected.empty() ? TileSelection::None : selected.front().front();
}

void GraphicsEditorView::describeTile(int number) {
    m_tileInfo->setText(tileText(number < 0 ? selectedTile() : number));
    describeCursor();
}

void GraphicsEditorView::describePixel() {
    const QPoint pixel = m_pixelEditor->cursorPixel();
    const int tile = m_pixelEditor->document().tileAt(pixel.x(), pixel.y());
    describeTile(tile);
    if (tile >= 0) {
        m_tileInfo->setText(tr("%1, pixel %2, %3")
                                .arg(m_tileInfo->text())
                                .arg(pixel.x() % TileSide)
                                .arg(pixel.y() % TileSide));
    }
}

void GraphicsEditorView::describeCursor() {
    Q_EMIT cursorDescribed(isVisible() ? cursorText() : QString());
}

/// What is under the pointer, or else under the keyboard's cursor, if it is in one of the views.
QString GraphicsEditorView::cursorText() const {
    if (m_tileViewer->hoveredTile() >= 0) {
        return tileText(m_tileViewer->hoveredTile());
    }
    if (!m_pixelEditor->isCursorShown()) {
        return m_tileViewer->hasFocus() ? tileText(selectedTile()) : QString();
    }
    const QPoint pixel = m_pixelEditor->cursorPixel();
    const TileDocument& document = m_pixelEditor->document();
    const int tile = document.tileAt(pixel.x(), pixel.y());
    const std::optional<int> value = document.valueAt(pixel.x(), pixel.y());
    return value ? tr("Tile %1 (%2), pixel %3, %4: colour %5")
                       .arg(tile)
                       .arg(hex(static_cast<std::size_t>(tile), 2))
                       .arg(pixel.x() % TileSide)
                       .arg(pixel.y() % TileSide)
                       .arg(*value)
                 : QString();
}

void GraphicsEditorView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    describeCursor();
}

void GraphicsEditorView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    describeCursor();
}

} // namespace kestrel
