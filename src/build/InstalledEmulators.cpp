// SPDX-License-Identifier: MIT
#include "build/InstalledEmulators.h"

#include "build/DesktopEntry.h"
#include "build/ProgramSearch.h"
#include "build/QtText.h"
#include "model/FileReader.h"

#include <QFile>
#include <QMimeDatabase>
#include <QStandardPaths>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

namespace {

/// The names of the file type of ROM images: the usual one, and those that this system has for it.
std::vector<std::string> imageTypes() {
    std::vector<std::string> types{"application/x-nes-rom"};
    for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(QStringLiteral("game.nes"))) {
        types.push_back(type.name().toStdString());
        for (const QString& alias : type.aliases()) {
            types.push_back(alias.toStdString());
        }
    }
    return types;
}

/// The desktop entry in `file`, if it is one for files of these types. There may be thousands of
/// entries, so only those that hold the name of such a type are parsed.
std::optional<DesktopEntry> entryFor(const std::vector<std::string>& types, const fs::path& file) {
    const auto text = readFile(file, DesktopEntry::MaximumSize);
    const bool isLikely = text && std::any_of(types.begin(), types.end(), [&](const auto& type) {
                              return text->find(type) != text->npos;
                          });
    auto entry = isLikely ? DesktopEntry::parse(*text, file) : std::nullopt;
    const bool takesThem = entry && std::any_of(types.begin(), types.end(), [&](const auto& type) {
                               return entry->takes(type);
                           });
    return takesThem ? std::move(entry) : std::nullopt;
}

bool isThere(const std::string& program) {
    return !findProgram(QFile::decodeName(QByteArray::fromStdString(program))).isEmpty();
}

bool canBeStarted(const DesktopEntry& entry) {
    const auto command = entry.command("game.nes");
    return command && isThere(command->program) &&
           (entry.tryExec().empty() || isThere(entry.tryExec()));
}

/// The emulator that the desktop entry `file` describes; nothing when it is not to be offered.
std::optional<InstalledEmulator> emulatorIn(const fs::path& file,
                                            const std::vector<std::string>& types) {
    const auto entry = entryFor(types, file);
    if (!entry || entry->isHidden() || !canBeStarted(*entry)) {
        return std::nullopt;
    }
    const auto name = textFromUtf8(std::string_view(entry->name()));
    if (!name || name->trimmed().isEmpty()) {
        return std::nullopt;
    }
    const auto icon = textFromUtf8(std::string_view(entry->icon()));
    return InstalledEmulator{file, name->simplified(), icon.value_or(QString())};
}

/// The identifier of a desktop entry, by which one overrides another.
std::string identifier(const fs::path& file, const fs::path& folder) {
    std::string text = file.lexically_relative(folder).string();
    std::replace(text.begin(), text.end(), '/', '-');
    return text;
}

/// The desktop entries in `folder` and below. Links to folders are not followed: they may lead
/// round in a ring.
std::vector<fs::path> entriesIn(const fs::path& folder) {
    constexpr auto Options = fs::directory_options::skip_permission_denied;
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::recursive_directory_iterator place(folder, Options, error);
         !error && place != fs::recursive_directory_iterator(); place.increment(error)) {
        if (place->path().extension() == ".desktop") {
            files.push_back(place->path());
        }
    }
    return files;
}

} // namespace

std::vector<InstalledEmulator> installedEmulators() {
    const auto types = imageTypes();
    std::vector<InstalledEmulator> found;
    std::set<std::string> seen;
    // The user's own folder comes first.
    for (const QString& place :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
        const fs::path folder = QFile::encodeName(place).toStdString();
        for (const fs::path& file : entriesIn(folder)) {
            if (!seen.insert(identifier(file, folder)).second) {
                continue;
            }
            if (auto emulator = emulatorIn(file, types)) {
                found.push_back(std::move(*emulator));
            }
        }
    }
    std::sort(found.begin(), found.end(), [](const auto& left, const auto& right) {
        const int order = QString::localeAwareCompare(left.name, right.name);
        return order != 0 ? order < 0 : left.file < right.file;
    });
    return found;
}

bool isEmulatorEntry(const fs::path& file) {
    return entryFor(imageTypes(), file).has_value();
}

} // namespace kestrel
