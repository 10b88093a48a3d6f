// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

class QFileDialog;
class QWidget;

namespace kestrel {

/// Receives the chosen file; nothing when none was chosen.
using FilePanelHandler = std::function<void(const std::optional<std::filesystem::path>&)>;

/// Asks for one existing file in a sheet on `window`, beginning in `folder`; `prompt` is the text
/// of the button that confirms. Calls the handler exactly once, however the sheet ends.
using FilePanel = std::function<void(QWidget* window, const QString& prompt,
                                     const std::filesystem::path& folder, FilePanelHandler)>;

/// Qt's file dialog as a sheet, not opened yet, for a caller that has more to set on it. It belongs
/// to `window` and is deleted when it is closed.
QFileDialog* makeFilePanel(QWidget* window, const QString& prompt,
                           const std::filesystem::path& folder, FilePanelHandler handler);

/// Makes a file dialog of the caller's own into such a sheet.
void setUpFilePanel(QFileDialog& panel, const QString& prompt, FilePanelHandler handler);

/// A FilePanel: opens makeFilePanel()'s dialog without a nested event loop.
void openFilePanel(QWidget* window, const QString& prompt, const std::filesystem::path& folder,
                   FilePanelHandler handler);

} // namespace kestrel
