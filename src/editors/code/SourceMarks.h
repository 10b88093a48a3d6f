// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SourcePlace.h"

#include <QObject>
#include <QString>
#include <QTextCursor>

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrel {

class CodeEditorTextView;

/// Something that is said of a place in the text.
struct SourceMark {
    enum class Kind { error, warning, note };

    std::size_t id = 0; ///< the caller's
    SourcePlace place;
    Kind kind = Kind::error;
    QString text;
};

/// Underlines the words at places of a text: errors with a wave, warnings with dashes, notes with
/// dots. What is said of them is their tool tip, and the view's accessible description while the
/// caret is in their line. A mark moves along with edits, and goes when its line is edited.
class SourceMarks : public QObject {
    Q_OBJECT

public:
    /// Of more marks only so many are shown.
    static constexpr std::size_t Limit = 1000;

    /// Marks the text of `view`, which must outlive this.
    explicit SourceMarks(CodeEditorTextView& view, QObject* parent = nullptr);

    void add(const std::vector<SourceMark>& marks);
    void clear();

    /// The marks that are left, each at its present place.
    std::vector<SourceMark> marks() const;

    /// Where a mark is now; nothing when it is gone.
    std::optional<SourcePlace> placeOf(std::size_t id) const;

    /// What is said of a position in the document, one line for each mark; of a marked line when
    /// `wholeLine` is set.
    QString textAt(int position, bool wholeLine) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Shown {
        SourceMark mark;
        QTextCursor word;
        QString line; ///< the text of the line that it was put into
    };

    void followChange(int position, int added);
    void show();
    void describe();

    CodeEditorTextView& m_view;
    QWidget* m_viewport; ///< of the view; events come also while the view is destroyed
    std::vector<Shown> m_marks;
};

} // namespace kestrel
