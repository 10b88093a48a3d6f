#pragma once

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <optional>

class QLabel;

namespace kestrel {

/// The pane for an assembly source file. For now it names the file it was given.
class TextEditorController : public QWidget {
    Q_OBJECT

public:
    explicit TextEditorController(QWidget* parent = nullptr);

    /// Shows the file at `path`.
    virtual void loadFile(const std::filesystem::path& path);

    /// The file shown; nothing before the first.
    const std::optional<std::filesystem::path>& path() const;

private:
    std::optional<std::filesystem::path> m_path;
    QPointer<QLabel> m_nameLabel;
};

} // namespace kestrel
