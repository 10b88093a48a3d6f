// SPDX-License-Identifier: MIT
#pragma once

#include "model/Fingerprint.h"
#include "model/KnownContent.h"
#include "widgets/EditorPane.h"

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

class QAbstractScrollArea;
class QPushButton;

namespace kestrel {

class CodeEditorTextView;
class ElidedLabel;
class FindBar;
class GoToLineBar;
class SourceMarks;
class UnsavedWork;
struct TextEditorActions;

/// The pane for an assembly source file.
class TextEditorController : public QWidget, public EditorPane {
    Q_OBJECT

public:
    explicit TextEditorController(QWidget* parent = nullptr);
    ~TextEditorController() override;

    /// The scroll view of the code editor: Qt's text view is its own scroll view.
    QAbstractScrollArea* codeEditorScrollView() const;
    QPointer<CodeEditorTextView> codeEditor;
    QPointer<QPushButton> saveButton;

    /// Shows the file at `path`; unsaved edits are dropped. A file that is shown already is read
    /// again, and Undo brings back what that changed. One that cannot be read is logged, and
    /// everything stays as it is.
    virtual void loadFile(const std::filesystem::path& path);

    /// Writes the text to the file, as it is and in UTF-8. A file in another encoding, or one that
    /// another program changed since it was read, is kept as a backup first. Without a file nothing
    /// happens; a failure is logged and told in the status bar.
    void saveFile();

    /// The file shown; nothing before the first.
    const std::optional<std::filesystem::path>& path() const;

    /// The marks in the text. Another file begins without any.
    SourceMarks& marks() const { return *m_marks; }

    /// Of the file's bytes as they were read or saved last; nothing before the first file.
    const std::optional<Fingerprint>& fingerprint() const { return m_fingerprint; }

    void savePane() override;
    UnsavedWork* unsavedWork() override { return m_unsavedWork; }
    const CommandSet* commands() const override;
    QList<QAction*> editActions() const override;
    QList<QAction*> viewActions() const override;

Q_SIGNALS:
    /// The definition, or all uses, of the name at the caret are asked for.
    void definitionWanted();
    void usesWanted();
    /// A file has been read and is shown, whether it is another one or the same again.
    void fileShown(bool isOther);
    /// The text has been written to the file.
    void fileSaved();

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLayout();
    void viewDidLoad();
    void showStatus() const;
    void showPlace() const;
    UnsavedWork* makeUnsavedWork();
    void bringBack(const std::string& content);
    void showText(const std::filesystem::path& path, const QString& text);

    std::optional<std::filesystem::path> m_path;
    bool m_byteOrderMark = false;
    KnownContent m_known;
    std::optional<Fingerprint> m_fingerprint;
    bool m_isConverted = false; ///< the file on the disk is in another encoding than it is saved in
    QString m_description;      ///< of the file, as it was read or saved last
    ElidedLabel* m_nameLabel;
    FindBar* m_findBar;
    GoToLineBar* m_goToLineBar;
    SourceMarks* m_marks;
    std::unique_ptr<TextEditorActions> m_actions;
    UnsavedWork* m_unsavedWork;
};

} // namespace kestrel
