// SPDX-License-Identifier: MIT
#include "build/DesktopEntry.h"

#include "model/FileReader.h"
#include "model/Paths.h"

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace kestrel {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const auto first = text.find_first_not_of(Blanks);
    if (first == text.npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

/// A value of type string with its escapes resolved: \s \n \t \r and a doubled backslash.
std::string unescaped(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            result += value[i];
            continue;
        }
        switch (value[++i]) {
        case 's':
            result += ' ';
            break;
        case 'n':
            result += '\n';
            break;
        case 't':
            result += '\t';
            break;
        case 'r':
            result += '\r';
            break;
        case '\\':
            result += '\\';
            break;
        default: // no escape of this level
            result += '\\';
            result += value[i];
        }
    }
    return result;
}

using Keys = std::map<std::string, std::string, std::less<>>;

/// The keys of the group "Desktop Entry"; the first of a repeated key counts.
Keys mainGroupOf(std::string_view text) {
    Keys keys;
    bool inGroup = false;
    while (!text.empty()) {
        const auto feed = text.find('\n');
        const auto line = trimmed(text.substr(0, feed));
        text = feed == text.npos ? std::string_view{} : text.substr(feed + 1);
        if (line.empty() || line.front() == '#') {
            continue;
        }
        if (line.front() == '[') {
            inGroup = line == "[Desktop Entry]";
            continue;
        }
        const auto equals = line.find('=');
        if (inGroup && equals != line.npos) {
            keys.emplace(trimmed(line.substr(0, equals)),
                         unescaped(trimmed(line.substr(equals + 1))));
        }
    }
    return keys;
}

/// The parts of `list` between these characters, without the empty ones.
std::vector<std::string> partsOf(std::string_view list, char separator) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const auto end = std::min(list.find(separator), list.size());
        if (end > 0) {
            parts.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

/// The locales of the user's messages, the best first, as gettext takes them from the environment.
std::vector<std::string> messageLocales() {
    std::string locale;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale = qgetenv(variable).toStdString(); !locale.empty()) {
            break;
        }
    }
    const bool isPlain =
        locale.empty() || locale == "POSIX" || locale == "C" || locale.starts_with("C.");
    if (isPlain) {
        return {};
    }
    auto preferred = partsOf(qgetenv("LANGUAGE").toStdString(), ':');
    return preferred.empty() ? std::vector{locale} : preferred;
}

/// The suffixes under which an entry may have a value for `locale`, the best first: of
/// "lang_COUNTRY.ENCODING@MODIFIER" all but the encoding, then with less and less of the rest.
std::vector<std::string> suffixesFor(std::string_view locale) {
    const auto at = std::min(locale.find('@'), locale.size());
    const std::string modifier(locale.substr(at));
    const std::string_view place = locale.substr(0, std::min(at, locale.find('.')));
    const std::string territory(place);
    const std::string language(place.substr(0, place.find('_')));
    return {territory + modifier, territory, language + modifier, language};
}

/// The value of `key` in the user's language.
std::string localised(const Keys& keys, std::string_view key) {
    for (const std::string& locale : messageLocales()) {
        for (const std::string& suffix : suffixesFor(locale)) {
            const auto found = keys.find(std::string(key).append("[").append(suffix).append("]"));
            if (found != keys.end()) {
                return found->second;
            }
        }
    }
    const auto found = keys.find(key);
    return found == keys.end() ? std::string() : found->second;
}

/// Whether a backslash before `character` in a quoted word stands for the character alone.
bool isEscapable(char character) {
    return character == '"' || character == '`' || character == '$' || character == '\\';
}

/// Reads a quoted part of a word after its opening quote and leaves `position` at the closing one;
/// nothing when it is not closed.
std::optional<std::string> readQuoted(std::string_view exec, std::size_t& position) {
    std::string word;
    for (; position < exec.size(); ++position) {
        if (exec[position] == '"') {
            return word;
        }
        if (exec[position] == '\\' && position + 1 < exec.size() &&
            isEscapable(exec[position + 1])) {
            ++position;
        }
        word += exec[position];
    }
    return std::nullopt;
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::read(const std::filesystem::path& file) {
    const auto text = readFile(file, MaximumSize);
    return text ? parse(*text, file) : std::nullopt;
}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text,
                                                const std::filesystem::path& file) {
    const auto keys = mainGroupOf(text);
    const auto value = [&](std::string_view key) {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string() : found->second;
    };
    if (value("Exec").empty() || value("Type") != "Application") {
        return std::nullopt;
    }
    DesktopEntry entry;
    entry.m_location = pathText(file);
    entry.m_exec = value("Exec");
    entry.m_name = localised(keys, "Name");
    entry.m_icon = value("Icon");
    entry.m_path = value("Path");
    entry.m_tryExec = value("TryExec");
    entry.m_mimeTypes = value("MimeType");
    entry.m_terminal = value("Terminal") == "true";
    entry.m_hidden = value("Hidden") == "true" || value("NoDisplay") == "true";
    return entry;
}

bool DesktopEntry::takes(std::string_view mimeType) const {
    const auto types = partsOf(m_mimeTypes, ';');
    return std::any_of(types.begin(), types.end(),
                       [&](const std::string& type) { return trimmed(type) == mimeType; });
}

std::optional<DesktopEntry::Command>
DesktopEntry::command(const std::filesystem::path& document) const {
    const auto words = wordsOf(m_exec);
    if (!words || words->empty() || words->front().empty()) {
        return std::nullopt;
    }
    const std::string text = pathText(document);
    std::vector<std::string> expanded;
    if (expand(words->front(), text, expanded) || expanded.empty()) {
        return std::nullopt; // the program would be the document itself
    }
    bool named = false;
    for (auto word = std::next(words->begin()); word != words->end(); ++word) {
        named = expand(*word, text, expanded) || named;
    }
    if (!named) {
        expanded.push_back(text);
    }
    Command command;
    command.program = std::move(expanded.front());
    command.arguments.assign(std::next(expanded.begin()), expanded.end());
    command.workingFolder = m_path;
    command.inTerminal = m_terminal;
    return command;
}

std::optional<std::vector<std::string>> DesktopEntry::wordsOf(std::string_view exec) {
    std::vector<std::string> words;
    std::string word;
    bool started = false;
    for (std::size_t i = 0; i < exec.size(); ++i) {
        if (exec[i] == ' ' || exec[i] == '\t') {
            if (started) {
                words.push_back(std::exchange(word, {}));
            }
            started = false;
            continue;
        }
        started = true;
        if (exec[i] == '"') {
            const auto quoted = readQuoted(exec, ++i);
            if (!quoted) {
                return std::nullopt;
            }
            word += *quoted;
        } else {
            // Not allowed outside quotes, but found in entries.
            i += exec[i] == '\\' && i + 1 < exec.size() ? 1 : 0;
            word += exec[i];
        }
    }
    if (started) {
        words.push_back(std::move(word));
    }
    return words;
}

bool DesktopEntry::expand(const std::string& word, const std::string& document,
                          std::vector<std::string>& into) const {
    if (word == "%i") {
        if (!m_icon.empty()) {
            into.insert(into.end(), {"--icon", m_icon});
        }
        return false;
    }
    bool named = false;
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%') {
            result += word[i];
            continue;
        }
        switch (++i < word.size() ? word[i] : '\0') {
        case '%':
            result += '%';
            break;
        case 'f':
        case 'F':
        case 'u': // a local file may be given as a path wherever a URL is expected
        case 'U':
            result += document;
            named = true;
            break;
        case 'c':
            result += m_name;
            break;
        case 'k':
            result += m_location;
            break;
        default: // obsolete, unknown or cut short
            break;
        }
    }
    // A word of codes that all expand to nothing is left out.
    if (!result.empty() || word.empty()) {
        into.push_back(std::move(result));
    }
    return named;
}

} // namespace kestrel
