// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SearchTerm.h"
#include "editors/code/TextSearch.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <array>
#include <optional>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace kestrel {

class CodeEditorTextView;

/// The bar below a text view that finds text in it: searches while one types, steps from match to
/// match around the whole text, and shows which of how many is selected. In a narrow window it has
/// two or three rows.
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

    /// Of the bar in three rows.
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Row = QList<QWidget*>;
    using Rows = std::array<Row, 3>;

    void nameWidgets();
    void buildRows();
    std::array<Rows, 3> arrangements() const;
    void arrange();
    void termChanged();
    void textChanged();
    void select(std::optional<int> match);
    void showCount();
    const TextSearch& search();
    SearchTerm term() const;

    CodeEditorTextView& m_view;
    QLabel* m_label;
    QLineEdit* m_termEdit;
    QLabel* m_countLabel;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_close;
    QCheckBox* m_matchCase;
    QCheckBox* m_wholeWords;
    std::array<QHBoxLayout*, 3> m_rows{};
    Rows m_arrangement;
    QTimer m_recount;
    std::optional<TextSearch> m_search;
};

} // namespace kestrel
