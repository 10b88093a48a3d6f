// SPDX-License-Identifier: MIT
#pragma once

#include "build/PlaceText.h"

#include <QObject>
#include <QTextCursor>

#include <cstddef>
#include <optional>
#include <vector>

class QPlainTextEdit;
class QTextBlock;

namespace kestrel {

/// The places that the console's lines name. Reads the problems while the text comes in, each line
/// once; shows under the pointer that a line leads to a place; and tells when a line is chosen, by
/// a double click or by Return where the caret is.
class ConsolePlaces : public QObject {
    Q_OBJECT

public:
    /// So many problems are read; lines of later ones can be chosen all the same.
    static constexpr std::size_t Limit = 10'000;

    /// `view` must outlive this or go together with it.
    explicit ConsolePlaces(QPlainTextEdit& view, QObject* parent = nullptr);

    /// Reads the last line, too, which may be without an end.
    void readLastLine();

    /// Brings the line of a problem, numbered in the order of found(), into sight and marks it.
    void showProblem(std::size_t number);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The console was emptied.
    void cleared();
    /// More problems were read.
    void found(const std::vector<Place>& problems);
    /// The user wants to go to a place; `problem` is its number if it is one of those found.
    void chosen(const Place& place, std::optional<std::size_t> problem);

private:
    void followChange();
    void readLines(int end);
    bool choose(const QTextBlock& line);
    void hoverAt(const QPoint& position);
    QTextBlock lineAt(const QPoint& position) const;
    void setHovered(const QTextCursor& place);
    void showSelections();

    QPlainTextEdit& m_view;
    QWidget* m_viewport;      ///< of the view; events come also while the view is destroyed
    int m_nextLine = 0;       ///< the first one that has not been read
    std::vector<int> m_lines; ///< the line of each problem found
    std::optional<std::size_t> m_shown;
    QTextCursor m_hovered; ///< the text of the place under the pointer
};

} // namespace kestrel
