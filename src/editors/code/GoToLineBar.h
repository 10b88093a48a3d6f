// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace kestrel {

class CodeEditorTextView;

/// The bar below a text view that asks for a line number and moves the caret to that line.
class GoToLineBar : public QWidget {
    Q_OBJECT

public:
    /// A hidden bar for `view`, which must outlive it.
    GoToLineBar(CodeEditorTextView& view, QWidget* parent);

    /// Shows the bar with the caret's line.
    void open();

    /// Hides the bar and returns to the text.
    void closeBar();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void go();

    CodeEditorTextView& m_view;
    QLineEdit* m_lineEdit;
    QLabel* m_countLabel;
};

} // namespace kestrel
