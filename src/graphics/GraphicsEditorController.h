#pragma once

#include "model/ErrorValue.h"
#include "model/ProjectItem.h"

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

class QLabel;

namespace kestrel {

/// The pane for a tile graphics file. For now it names the file it was given.
class GraphicsEditorController : public QWidget {
    Q_OBJECT

public:
    /// Called with an error when the file could not be shown; not called on success.
    using CompletionHandler = std::function<void(const std::optional<ErrorValue>& error)>;

    explicit GraphicsEditorController(QWidget* parent = nullptr);

    /// Shows a file of a project. Both nodes are shared with their owners.
    virtual void loadFile(const std::shared_ptr<ProjectItem>& file,
                          const std::shared_ptr<ProjectItem>& project,
                          const CompletionHandler& completionHandler);

    /// Where the shown file lies; nothing when no file is shown or its project is gone.
    std::optional<std::filesystem::path> filePath() const;

private:
    std::shared_ptr<ProjectItem> m_file;
    std::shared_ptr<ProjectItem> m_project;
    QPointer<QLabel> m_nameLabel;
};

} // namespace kestrel
