// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/SourceCodec.h"

#include <QApplication>
#include <QPlainTextEdit>

#include <string>

namespace kestrel::benchmarks {

inline constexpr int Lines = 221000;

/// A source of 3.5 MB. With two kinds of line end, every other line has the second kind.
inline std::string bigSource(bool twoKinds) {
    std::string source;
    for (int i = 0; i < Lines; ++i) {
        source += i % 7 == 0 ? "name_" + std::to_string(i % 1000) + ": nop  ; x"
                             : "\tlda #$" + std::to_string(10 + i % 90) + "  ; xy";
        source += twoKinds && i % 2 == 1 ? "\r\n" : "\n";
    }
    return source;
}

/// Shows `view` and paints it once.
inline void present(QPlainTextEdit& view) {
    view.resize(800, 600);
    view.show();
    QApplication::processEvents();
}

/// Qt's view as it comes, in the editor's font.
class BareView : public QPlainTextEdit {
public:
    BareView() { setFont(CodeEditorTextView().font()); }
    void load(const std::string& bytes) { setPlainText(QString::fromStdString(bytes)); }
};

/// The code editor's view, loading what the pane loads.
class EditorView : public CodeEditorTextView {
public:
    EditorView() { lnv_setUpLineNumberView(); }
    void load(const std::string& bytes) { source().load(decodeSource(bytes)->text); }
};

} // namespace kestrel::benchmarks
