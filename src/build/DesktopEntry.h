// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// A desktop entry of an application (freedesktop "Desktop Entry Specification"), as far as it is
/// needed to open one file with the application.
class DesktopEntry {
public:
    /// How to start the application without a shell.
    struct Command {
        std::string program; ///< a path, or a name to be looked up in PATH
        std::vector<std::string> arguments;
        std::filesystem::path workingFolder; ///< inherited when empty
        bool inTerminal = false;
    };

    /// The entry in a desktop file; nothing when it cannot be read or is no application's.
    static std::optional<DesktopEntry> read(const std::filesystem::path& file);

    /// The command that opens `document`: the words of the Exec line, with file and URL codes
    /// replaced by the document's path (appended when there is no such code), icon, name and
    /// location codes replaced, obsolete ones removed. Nothing when the line is malformed.
    std::optional<Command> command(const std::filesystem::path& document) const;

private:
    static std::optional<std::vector<std::string>> wordsOf(std::string_view exec);
    bool expand(const std::string& word, const std::string& document,
                std::vector<std::string>& into) const;

    std::string m_location;
    std::string m_exec;
    std::string m_name;
    std::string m_icon;
    std::string m_path;
    bool m_terminal = false;
};

} // namespace kestrel
