// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// A desktop entry of an application (freedesktop "Desktop Entry Specification"), as far as it is
/// needed to find the application and to open one file with it.
class DesktopEntry {
public:
    /// How to start the application without a shell.
    struct Command {
        std::string program; ///< a path, or a name to be looked up in PATH
        std::vector<std::string> arguments;
        std::filesystem::path workingFolder; ///< inherited when empty
        bool inTerminal = false;
    };

    /// No sensible desktop entry comes near this size; a larger file is none.
    static constexpr std::uintmax_t MaximumSize = 1024ULL * 1024;

    /// The entry in a desktop file; nothing when it cannot be read or is no application's.
    static std::optional<DesktopEntry> read(const std::filesystem::path& file);

    /// The entry whose text is `text`, read from `file`; nothing when it is no application's.
    static std::optional<DesktopEntry> parse(std::string_view text,
                                             const std::filesystem::path& file);

    /// The command that opens `document`: the words of the Exec line, with file and URL codes
    /// replaced by the document's path (appended when there is no such code), icon, name and
    /// location codes replaced, obsolete ones removed. Nothing when the line is malformed.
    std::optional<Command> command(const std::filesystem::path& document) const;

    /// The application's name in the user's language.
    const std::string& name() const { return m_name; }
    /// The path of its icon, or a name in the icon theme.
    const std::string& icon() const { return m_icon; }
    /// The program whose absence says that the application is not installed; may be empty.
    const std::string& tryExec() const { return m_tryExec; }
    /// Whether the application is not to be shown in menus.
    bool isHidden() const { return m_hidden; }
    /// Whether the application says that it opens files of this MIME type.
    bool takes(std::string_view mimeType) const;

private:
    static std::optional<std::vector<std::string>> wordsOf(std::string_view exec);
    bool expand(const std::string& word, const std::string& document,
                std::vector<std::string>& into) const;

    std::string m_location;
    std::string m_exec;
    std::string m_name;
    std::string m_icon;
    std::string m_path;
    std::string m_tryExec;
    std::string m_mimeTypes; ///< each with a semicolon behind it
    bool m_terminal = false;
    bool m_hidden = false;
};

} // namespace kestrel
