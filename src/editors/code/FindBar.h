// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SearchTerm.h"
#include "editors/code/TextSearch.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace kestrel {

class CodeEditorTextView;

/// The bar below a text view that finds text in it: searches while one types, steps from match to
/// match around the whole text, and shows which of how many is selected.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// A hidden bar for `view`, which must outlive it.
    FindBar(CodeEditorTextView& view, QWidget* parent);

    /// Shows the bar with the selected text, if that is within a line, as the term.
    void open();

    /// Hides the bar and returns to the text, where the match stays selected.
    void closeBar();

    /// Selects the match after or before the selection, the bar shown or not. Without a term the
    /// bar is opened.
    void findNext();
    void findPrevious();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildRow();
    void termChanged();
    void textChanged();
    void select(std::optional<int> match);
    void showCount();
    const TextSearch& search();
    SearchTerm term() const;

    CodeEditorTextView& m_view;
    QLineEdit* m_termEdit;
    QLabel* m_countLabel;
    QCheckBox* m_matchCase;
    QCheckBox* m_wholeWords;
    QTimer m_recount;
    std::optional<TextSearch> m_search;
};

} // namespace kestrel
