// SPDX-License-Identifier: MIT
#include "navigation/container/NewFileWriter.h"

#include "build/SourceLocation.h"
#include "chrcanvas/data/ConsoleDataFactory.h"
#include "model/FileProcessor.h"
#include "model/FileWriter.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/Reason.h"

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>

namespace kestrel {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t PaletteFileSize = 32;

/// `location` with "~" appended until the name is free; nothing when the name gets too long.
std::optional<fs::path> freeNameBeside(const fs::path& location) {
    fs::path name = location;
    while (true) {
        name += "~";
        std::error_code error;
        const fs::file_type type = fs::symlink_status(name, error).type();
        if (type == fs::file_type::not_found) {
            return name;
        }
        if (type == fs::file_type::none) {
            return std::nullopt;
        }
    }
}

/// A copy of the existing file, if any, at the path of a new one.
class KeptFile {
public:
    explicit KeptFile(const fs::path& location) {
        std::error_code error;
        if (!existsAt(location)) {
            m_kept = true;
            return;
        }
        const auto name = freeNameBeside(location);
        if (!name || !fs::is_regular_file(location, error)) {
            return;
        }
        m_copy = *name;
        m_kept = fs::copy_file(location, m_copy, error);
        if (!m_kept) {
            discard();
        }
    }

    /// True when a copy was made or no file existed.
    bool isKept() const { return m_kept; }

    /// The path of the copy; empty when no file existed.
    const fs::path& copy() const { return m_copy; }

    /// Removes the copy, because the file was not replaced.
    void discard() {
        std::error_code error;
        if (!m_copy.empty()) {
            fs::remove(m_copy, error);
        }
    }

private:
    bool m_kept = false;
    fs::path m_copy;
};

template<typename Save>
std::optional<WrittenFile> keepingTheOldFile(const fs::path& location, Save save) {
    if (!namesAFile(location)) {
        return std::nullopt; // saving would make the folder and then fail
    }
    KeptFile old(location);
    if (!old.isKept()) {
        return std::nullopt;
    }
    std::string reason;
    if (!save(&reason)) {
        writeLog("Could not make the new file");
        logReason(location.string(), reason);
        old.discard();
        return std::nullopt;
    }
    return WrittenFile{location, old.copy()};
}

std::optional<WrittenFile> saveData(const fs::path& location, std::string_view data) {
    return keepingTheOldFile(location, [&](std::string* reason) {
        return FileProcessor::saveDataFile(location, data, reason);
    });
}

} // namespace

std::optional<WrittenFile> writeNewFile(const std::shared_ptr<ProjectItem>& newItem,
                                        const ProjectItem& currentProject) {
    const auto folder = sourceFolder(*newItem, currentProject.itemPath());
    if (!folder) {
        return std::nullopt;
    }
    const fs::path location = joined(*folder, newItem->itemName());
    switch (newItem->itemFileType()) {
    case FileType::project:
        newItem->setItemPath(joined(newItem->itemPath(), newItem->itemName()));
        return FileProcessor::createFilesForNewProject(newItem) ? std::optional(WrittenFile{})
                                                                : std::nullopt;
    case FileType::text:
        return keepingTheOldFile(location, [&](std::string* reason) {
            return FileProcessor::saveTextFile(location, std::nullopt, reason);
        });
    case FileType::palette:
        return saveData(location, std::string(PaletteFileSize, '\0'));
    case FileType::graphics: {
        const auto tiles = ConsoleDataFactory::generate(ConsoleType::nes);
        const auto data = tiles ? tiles->toData() : std::nullopt;
        return data ? saveData(location, *data) : std::nullopt;
    }
    case FileType::group:
    case FileType::empty:
    case FileType::unknown:
        break;
    }
    std::cout << "Failed to save type" << std::endl;
    return std::nullopt;
}

void takeBack(const WrittenFile& written) {
    std::error_code error;
    if (written.file.empty()) {
        return;
    }
    if (written.formerContent.empty()) {
        fs::remove(written.file, error);
    } else {
        fs::rename(written.formerContent, written.file, error);
    }
}

} // namespace kestrel
