// SPDX-License-Identifier: MIT
#include "editors/code/TextEditorController.h"

#include "drafts/UnsavedWork.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/FindBar.h"
#include "editors/code/GoToLineBar.h"
#include "editors/code/SourceCodec.h"
#include "editors/code/SourceDescription.h"
#include "editors/code/SourceMarks.h"
#include "editors/code/TextEditorActions.h"
#include "model/FileProcessor.h"
#include "model/FileReader.h"
#include "model/Log.h"
#include "model/Reason.h"
#include "widgets/DraftLine.h"
#include "widgets/ElidedLabel.h"
#include "widgets/SavingText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <string>
#include <utility>

namespace kestrel {

namespace {

/// No source is longer, and Qt's text view would take minutes to show it.
constexpr std::uintmax_t MaximumSourceSize = 128ULL * 1024 * 1024;

QString displayed(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

} // namespace

TextEditorController::TextEditorController(QWidget* parent)
    : QWidget(parent)
    , codeEditor(new CodeEditorTextView(this))
    , saveButton(new QPushButton(tr("Save"), this))
    , m_nameLabel(new ElidedLabel(this))
    , m_findBar(new FindBar(*codeEditor, this))
    , m_goToLineBar(new GoToLineBar(*codeEditor, this))
    , m_marks(new SourceMarks(*codeEditor, this))
    , m_actions(std::make_unique<TextEditorActions>(
          *codeEditor, *m_findBar, *m_goToLineBar, *this,
          NameWishes{[this] { Q_EMIT definitionWanted(); }, [this] { Q_EMIT usesWanted(); }}))
    , m_unsavedWork(makeUnsavedWork()) {
    setObjectName(QStringLiteral("textEditor"));
    setAccessibleName(tr("Code editor"));
    m_nameLabel->setObjectName(QStringLiteral("textFileName"));
    saveButton->setObjectName(QStringLiteral("saveButton"));
    saveButton->setAccessibleName(tr("Save"));
    saveButton->setToolTip(tr("Save this file (Ctrl+S)"));
    saveButton->setFocusPolicy(Qt::TabFocus); // clicked, it leaves the caret where it is
    buildLayout();
    setFocusProxy(codeEditor);
    viewDidLoad();
}

TextEditorController::~TextEditorController() {
    m_unsavedWork->leave();
}

UnsavedWork* TextEditorController::makeUnsavedWork() {
    const auto content = [this] {
        const auto text = codeEditor ? codeEditor->source().textLater() : [] { return QString(); };
        return [text, hasMark = m_byteOrderMark] { return encodeSource({text(), hasMark, {}}); };
    };
    auto* work = new UnsavedWork(
        DraftKind::text, {content, [this](const std::string& kept) { bringBack(kept); }}, this);
    connect(codeEditor->document(), &QTextDocument::contentsChanged, work, &UnsavedWork::edited);
    codeEditor->installEventFilter(this);
    return work;
}

void TextEditorController::buildLayout() {
    auto* header = new QHBoxLayout;
    header->setContentsMargins(8, 4, 8, 4);
    header->addWidget(m_nameLabel, 1);
    header->addWidget(saveButton);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* draftLine = new DraftLine(*m_unsavedWork, *codeEditor, this);
    layout->addLayout(header);
    layout->addWidget(draftLine);
    layout->addWidget(codeEditor, 1);
    layout->addWidget(m_findBar);
    layout->addWidget(m_goToLineBar);
    setTabOrder(saveButton, codeEditor); // no Tab goes on from the text
    draftLine->setTabOrderAfter(saveButton);
}

void TextEditorController::viewDidLoad() {
    connect(saveButton, &QPushButton::clicked, this, &TextEditorController::saveFile);
    codeEditor->lnv_setUpLineNumberView();
    connect(codeEditor, &QPlainTextEdit::cursorPositionChanged, this,
            &TextEditorController::showPlace);
    // A line end in place of a letter moves the caret's line, not its position.
    connect(codeEditor, &QPlainTextEdit::textChanged, this, &TextEditorController::showPlace);
}

void TextEditorController::loadFile(const std::filesystem::path& path) {
    std::string reason;
    std::optional<std::string> bytes = readFile(path, MaximumSourceSize, &reason);
    if (!bytes) {
        writeLog("The file " + path.string() + " could not be read: " + reason);
        return;
    }
    const std::optional<SourceText> source = decodeSource(*bytes);
    if (!source) {
        writeLog("The file " + path.string() + " is no text in a known encoding.");
        return;
    }
    m_unsavedWork->leave();
    const bool isOther = m_path != path;
    m_byteOrderMark = source->byteOrderMark;
    m_known.note(*bytes);
    m_fingerprint = fingerprintOf(*bytes);
    m_isConverted = !source->formerEncoding.isEmpty();
    setStatus(StatusField::saving, {});
    showText(path, source->text);
    m_description = sourceDescription(*source);
    showStatus();
    m_unsavedWork->shown(path, std::move(bytes), [source] { return encodeSource(*source); });
    Q_EMIT fileShown(isOther);
}

void TextEditorController::showStatus() const {
    if (isVisible()) {
        setStatus(StatusField::encoding, m_description);
        showPlace();
    }
}

void TextEditorController::showPlace() const {
    if (isVisible() && m_path && codeEditor) {
        const SourcePlace place = placeAt(*codeEditor, codeEditor->textCursor().position());
        setStatus(StatusField::place, tr("Line %1, Column %2").arg(place.line).arg(place.column));
    }
}

void TextEditorController::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    showStatus();
}

void TextEditorController::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        setStatus(StatusField::encoding, {});
        setStatus(StatusField::place, {});
    }
}

void TextEditorController::showText(const std::filesystem::path& path, const QString& text) {
    const bool shownAlready = m_path == path;
    m_path = path;
    m_nameLabel->setText(displayed(path.filename()));
    m_nameLabel->setToolTip(QStringLiteral("<qt>%1</qt>").arg(displayed(path).toHtmlEscaped()));
    if (!codeEditor) {
        return;
    }
    if (shownAlready) {
        codeEditor->source().update(text);
    } else {
        m_marks->clear();
        codeEditor->source().load(text);
        codeEditor->moveCursor(QTextCursor::Start);
        codeEditor->verticalScrollBar()->setValue(0);
        m_goToLineBar->hide(); // it shows the number of lines of the former file
    }
    codeEditor->document()->setModified(false);
    codeEditor->reload();
}

QAbstractScrollArea* TextEditorController::codeEditorScrollView() const {
    return codeEditor;
}

void TextEditorController::saveFile() {
    if (!m_path) {
        return;
    }
    std::optional<std::string> contents;
    SourceText source;
    if (codeEditor) {
        source = {codeEditor->source().text(), m_byteOrderMark, {}};
        contents = encodeSource(source);
    }
    std::string reason;
    const std::string bytes = contents.value_or(std::string());
    const auto backup = m_known.keepBeforeSaving(
        *m_path, bytes, m_isConverted ? KnownContent::Keep::any : KnownContent::Keep::other,
        &reason);
    const bool isSaved = backup && FileProcessor::saveTextFile(*m_path, contents, &reason);
    setStatus(StatusField::saving,
              savingText(*m_path, backup, isSaved,
                         m_isConverted ? BackupReason::converted : BackupReason::changedElsewhere,
                         reason));
    if (!isSaved) {
        writeLog("Could not save file");
        logReason(m_path->string(), reason);
        return;
    }
    if (codeEditor) {
        codeEditor->document()->setModified(false);
    }
    m_known.note(bytes);
    m_fingerprint = fingerprintOf(bytes);
    m_isConverted = false;
    m_description = sourceDescription(source);
    showStatus();
    if (contents) {
        m_unsavedWork->saved(*std::move(contents));
    }
    Q_EMIT fileSaved();
}

void TextEditorController::bringBack(const std::string& content) {
    if (codeEditor) {
        codeEditor->source().update(decodeSavedSource(content).text);
        codeEditor->reload();
    }
}

const std::optional<std::filesystem::path>& TextEditorController::path() const {
    return m_path;
}

bool TextEditorController::eventFilter(QObject* watched, QEvent* event) {
    // The text view takes the key of Undo for itself also when it has nothing to undo. Then the
    // Edit menu shall have it, which brings back what was kept.
    if (event->type() == QEvent::ShortcutOverride && codeEditor &&
        m_unsavedWork->undoBringsBack() && !codeEditor->document()->isUndoAvailable() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void TextEditorController::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_findBar->isVisible()) {
        m_findBar->closeBar();
    } else if (event->key() == Qt::Key_Escape && m_goToLineBar->isVisible()) {
        m_goToLineBar->closeBar();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TextEditorController::savePane() {
    saveFile();
}

const CommandSet* TextEditorController::commands() const {
    return &m_actions->commands;
}

QList<QAction*> TextEditorController::editActions() const {
    return m_actions->edit;
}

QList<QAction*> TextEditorController::viewActions() const {
    return m_actions->view;
}

} // namespace kestrel
