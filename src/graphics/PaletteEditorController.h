#pragma once

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <optional>

class QLabel;

namespace kestrel {

/// The pane for a palette file. For now it names the file it was given.
class PaletteEditorController : public QWidget {
    Q_OBJECT

public:
    explicit PaletteEditorController(QWidget* parent = nullptr);

    /// The file that the next update() shows; nothing before the first.
    const std::optional<std::filesystem::path>& filePathForPalette() const;
    void setFilePathForPalette(std::optional<std::filesystem::path> path);

    /// Shows the file at filePathForPalette.
    virtual void update();

private:
    std::optional<std::filesystem::path> m_filePathForPalette;
    QPointer<QLabel> m_nameLabel;
};

} // namespace kestrel
