// SPDX-License-Identifier: MIT
#include "newitem/AddNewItemFromProjectController.h"

#include "navigation/tree/ProjectNavigationModel.h"
#include "widgets/Sheet.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>
#include <vector>

namespace kestrel {

namespace {

constexpr int PreferredWidth = 420;
constexpr int PreferredHeight = 380;

bool isFile(const std::shared_ptr<ProjectItem>& item) {
    return item && item->itemFileType() != FileType::project &&
           item->itemFileType() != FileType::group;
}

} // namespace

AddNewItemFromProjectController::AddNewItemFromProjectController(QWidget* parent)
    : ProjectNavigationController(nullptr, parent)
    , m_filterTextField(new QLineEdit(this))
    , m_addButton(new QPushButton(QStringLiteral("&Add"), this))
    , m_cancelButton(new QPushButton(QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("AddNewItemFromProjectController"));
    buildView();
    connect(m_filterTextField, &QLineEdit::textChanged, this,
            &AddNewItemFromProjectController::applyFilter);
    connect(m_addButton, &QPushButton::clicked, this, &AddNewItemFromProjectController::addNewItem);
    connect(m_cancelButton, &QPushButton::clicked, this, &AddNewItemFromProjectController::cancel);
    connect(outlineView(), &QTreeView::doubleClicked, this,
            &AddNewItemFromProjectController::addNewItem);
    connect(this, &ProjectNavigationController::selectedRowChanged, this,
            &AddNewItemFromProjectController::updateButtons);
    updateButtons();
}

void AddNewItemFromProjectController::buildView() {
    m_filterTextField->setObjectName(QStringLiteral("filterTextField"));
    m_filterTextField->setAccessibleName(QStringLiteral("Filter"));
    m_filterTextField->setClearButtonEnabled(true);
    m_filterTextField->installEventFilter(this);
    auto* label = new QLabel(QStringLiteral("&Filter:"), this);
    label->setObjectName(QStringLiteral("filterLabel"));
    label->setBuddy(m_filterTextField);
    outlineView()->setFrameShape(QFrame::StyledPanel);
    outlineView()->setAccessibleName(QStringLiteral("Files of the project"));
    m_cancelButton->setObjectName(QStringLiteral("cancelButton"));
    m_cancelButton->setAccessibleName(QStringLiteral("Cancel"));
    m_cancelButton->setAutoDefault(true); // with the focus it gets Return; without, Add does
    m_addButton->setObjectName(QStringLiteral("addButton"));
    m_addButton->setAccessibleName(QStringLiteral("Add"));
    m_addButton->setAutoDefault(true);
    m_addButton->setDefault(true);

    auto* filter = new QHBoxLayout;
    filter->addWidget(label);
    filter->addWidget(m_filterTextField, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cancelButton);
    buttons->addStretch(1);
    buttons->addWidget(m_addButton);
    if (auto* column = qobject_cast<QVBoxLayout*>(layout())) {
        const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
        column->setContentsMargins(margin, margin, margin, margin);
        column->insertLayout(0, filter);
        column->addLayout(buttons);
    }
    setFocusProxy(m_filterTextField);
    setTabOrder(m_filterTextField, outlineView());
    setTabOrder(outlineView(), m_cancelButton);
    setTabOrder(m_cancelButton, m_addButton);
}

AddNewItemFromProjectController*
AddNewItemFromProjectController::openSheet(std::shared_ptr<ProjectItem> project, QWidget* window,
                                           CompletionHandler completionHandler) {
    if (window == nullptr || Sheet::isOpenOn(window)) {
        completionHandler({});
        return nullptr;
    }
    auto* sheet = new Sheet(window);
    sheet->setObjectName(QStringLiteral("AddNewItemFromProject"));
    sheet->setWindowTitle(QStringLiteral("Add File"));
    auto* picker = new AddNewItemFromProjectController(sheet);
    sheet->setContent(picker);
    sheet->resize(PreferredWidth, PreferredHeight);
    picker->setCurrentWindow(sheet);
    picker->setParentWindow(window);
    picker->setProject(std::move(project));
    sheet->begin([picker, handler = std::move(completionHandler)] {
        const ProjectItems files = picker->selectedFiles();
        handler(files);
    });
    return picker;
}

void AddNewItemFromProjectController::setProject(std::shared_ptr<ProjectItem> project) {
    setAllItems({std::move(project)});
    outlineView()->expandWhole(model()->index(0, 0));
    updateButtons();
}

Sheet* AddNewItemFromProjectController::currentWindow() const {
    return m_currentWindow;
}

void AddNewItemFromProjectController::setCurrentWindow(Sheet* window) {
    m_currentWindow = window;
}

void AddNewItemFromProjectController::addNewItem() {
    const std::shared_ptr<ProjectItem> item = selectedItem();
    if (!isFile(item)) {
        return;
    }
    m_selectedFiles = {item};
    endSheet();
}

void AddNewItemFromProjectController::cancel() {
    endSheet();
}

void AddNewItemFromProjectController::endSheet() {
    if (m_parentWindow && m_currentWindow) {
        m_currentWindow->end();
    }
}

void AddNewItemFromProjectController::updateButtons() {
    m_addButton->setEnabled(isFile(selectedItem()));
}

/// Hides files whose names do not contain `text`, and groups without other files.
void AddNewItemFromProjectController::applyFilter(const QString& text) {
    struct Row {
        QModelIndex index;
        std::size_t container;
        bool kept;
    };
    std::vector<Row> rows{{model()->index(0, 0), 0, true}};
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const QModelIndex container = rows[at].index;
        for (int i = 0; i < model()->rowCount(container); ++i) {
            const QModelIndex index = model()->index(i, 0, container);
            const bool kept =
                text.isEmpty() || (isFile(model()->item(index)) &&
                                   index.data().toString().contains(text, Qt::CaseInsensitive));
            rows.push_back({index, at, kept});
        }
    }
    for (std::size_t at = rows.size(); --at > 0;) {
        rows[rows[at].container].kept |= rows[at].kept;
    }
    for (std::size_t at = 1; at < rows.size(); ++at) {
        const QModelIndex& index = rows[at].index;
        outlineView()->setRowHidden(index.row(), index.parent(), !rows[at].kept);
    }
    outlineView()->expandWhole(rows.front().index);
    if (text.isEmpty()) {
        return;
    }
    const std::shared_ptr<ProjectItem> selected = selectedItem();
    std::shared_ptr<ProjectItem> next;
    // Keeps the selection while it is visible; else selects the topmost visible file.
    for (QModelIndex index = rows.front().index; index.isValid();
         index = outlineView()->indexBelow(index)) {
        const std::shared_ptr<ProjectItem> item = model()->item(index);
        if (isFile(item) && (!next || item == selected)) {
            next = item;
        }
    }
    if (!next) {
        outlineView()->selectionModel()->clear();
    } else if (next != selected) {
        select(next);
    }
}

bool AddNewItemFromProjectController::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_filterTextField && event->type() == QEvent::KeyPress) {
        switch (static_cast<const QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(outlineView(), event);
            return true;
        default:
            break;
        }
    }
    return ProjectNavigationController::eventFilter(watched, event);
}

void AddNewItemFromProjectController::showEvent(QShowEvent* event) {
    ProjectNavigationController::showEvent(event);
    if (!event->spontaneous()) {
        m_filterTextField->setFocus();
    }
}

} // namespace kestrel
