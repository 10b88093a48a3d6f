// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// An application as its desktop entry describes it (freedesktop "Desktop Entry Specification"):
/// what is needed of it to open one file with the application.
class DesktopEntry {
public:
    /// How to start the application, ready for an exec without a shell.
    struct Command {
        std::string program; ///< a path, or a name to be looked up in PATH
        std::vector<std::string> arguments;
        std::filesystem::path workingFolder; ///< empty: the starter's
        bool inTerminal = false;
    };

    /// The entry in a desktop file; nothing when it is unreadable or describes no application.
    static std::optional<DesktopEntry> read(const std::filesystem::path& file);

    /// The command that opens `document`: the fixed words of the Exec line as they are, the file
    /// and URL codes replaced by the document's path (appended when there is none), icon, name and
    /// location codes filled in, obsolete ones left out. Nothing when the line is malformed.
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
