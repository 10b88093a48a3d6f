// SPDX-License-Identifier: MIT
#include "editors/CommonEditorControllers.h"

#include "drafts/UnsavedWork.h"
#include "editors/PaneKind.h"
#include "widgets/EditorPane.h"
#include "widgets/StatusBoard.h"

namespace kestrel {

CommonEditorControllers::CommonEditorControllers(QWidget* parent)
    : QStackedWidget(parent)
    , m_statusBoard(new StatusBoard(this)) {
    setObjectName(QStringLiteral("commonEditorControllers"));
    setAccessibleName(tr("Editor"));
    connect(this, &QStackedWidget::currentChanged, m_statusBoard, [this] {
        m_statusBoard->clear(StatusField::saving);
        m_statusBoard->clear(StatusField::notice);
    });
}

void CommonEditorControllers::addPanes() {
    for (const PaneKind& kind : paneKinds()) {
        addWidget(kind.make(this));
    }
}

void CommonEditorControllers::viewDidLoad() {
    QList<QWidget*> panes;
    for (int index = 0; index < count(); ++index) {
        panes.append(widget(index));
    }
    for (EditorPane* pane : editorPanes()) {
        pane->setStatusBoard(m_statusBoard);
    }
    initiateViewControllers(panes);
    displayError(QString::fromLatin1(PleaseSelectProject));
    if (projectSettings) {
        projectSettings->setDatasource(this);
    }
}

void CommonEditorControllers::updatedFileType() {
    if (projectSettingsDatasource != nullptr) {
        projectSettingsDatasource->updatedFileType();
    }
}

std::vector<EditorPane*> CommonEditorControllers::editorPanes() const {
    std::vector<EditorPane*> found;
    for (int index = 0; index < count(); ++index) {
        if (auto* pane = dynamic_cast<EditorPane*>(widget(index))) {
            found.push_back(pane);
        }
    }
    return found;
}

void CommonEditorControllers::setDraftKeeper(const std::shared_ptr<DraftKeeper>& keeper) {
    for (EditorPane* pane : editorPanes()) {
        if (UnsavedWork* work = pane->unsavedWork()) {
            work->setKeeper(keeper);
        }
    }
}

EditorPane* CommonEditorControllers::shownEditorPane() const {
    return dynamic_cast<EditorPane*>(currentWidget());
}

void CommonEditorControllers::recordTab(const QWidget* pane, int tabIndex) {
    tabItemsIndex.insert(pane, tabIndex);
}

std::optional<int> CommonEditorControllers::tabIndexOf(const QWidget* pane) const {
    const auto found = tabItemsIndex.constFind(pane);
    if (pane == nullptr || found == tabItemsIndex.cend()) {
        return std::nullopt;
    }
    return *found;
}

void CommonEditorControllers::selectTab(int tabIndex) {
    setCurrentIndex(tabIndex);
}

} // namespace kestrel
