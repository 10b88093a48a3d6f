// SPDX-License-Identifier: MIT
#include "model/BuildSettingsFile.h"

#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"
#include "model/ProjectItemFactory.h"
#include "model/Reason.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kestrel {

namespace {

constexpr int Indent = 4;
constexpr const char* Version = "1";

using Contents = BuildSettingsContents;

void readNothing(const Dictionary& /*value*/, Contents& /*contents*/) {}

Dictionary storedVersion(const Contents& /*contents*/, const ProjectItem& /*project*/) {
    return Version;
}

void readOutputFolder(const Dictionary& value, Contents& contents) {
    contents.outputFilePath = std::filesystem::path(value.get<std::string>());
}

/// Always the project's own output folder.
Dictionary storedOutputFolder(const Contents& /*contents*/, const ProjectItem& project) {
    return pathText(joined(project.itemPath(), "output"));
}

void readEmulator(const Dictionary& value, Contents& contents) {
    if (auto path = value.get<std::string>(); !path.empty()) {
        contents.pathToEmulator = std::filesystem::path(std::move(path));
    }
}

Dictionary storedEmulator(const Contents& contents, const ProjectItem& /*project*/) {
    return contents.pathToEmulator ? pathText(*contents.pathToEmulator) : std::string();
}

template<ProjectItems Contents::*List> void readList(const Dictionary& value, Contents& contents) {
    contents.*List = ProjectItemFactory::processList(value);
}

template<ProjectItems Contents::*List>
Dictionary storedList(const Contents& contents, const ProjectItem& /*project*/) {
    Dictionary stored = Dictionary::array();
    for (const auto& item : contents.*List) {
        if (item) {
            stored.push_back(item->toDictionary());
        }
    }
    return stored;
}

/// One member of the settings file.
struct Setting {
    std::string_view key;
    BuildSettingForm form;
    bool isRequired; ///< a file without it is not read at all
    void (*read)(const Dictionary& value, Contents& contents);
    Dictionary (*stored)(const Contents& contents, const ProjectItem& project);
};

/// All members in the order in which they are written.
constexpr std::array Settings = {
    Setting{"Version", BuildSettingForm::version, false, readNothing, storedVersion},
    Setting{"output_folder", BuildSettingForm::path, true, readOutputFolder, storedOutputFolder},
    Setting{"emulator", BuildSettingForm::path, true, readEmulator, storedEmulator},
    Setting{"code_assembly_files", BuildSettingForm::fileList, false,
            readList<&Contents::assemblyFiles>, storedList<&Contents::assemblyFiles>},
    Setting{"graphic_files", BuildSettingForm::fileList, false, readList<&Contents::graphicFiles>,
            storedList<&Contents::graphicFiles>},
    Setting{"palette_files", BuildSettingForm::fileList, false, readList<&Contents::paletteFiles>,
            storedList<&Contents::paletteFiles>},
};

/// Whether `value` is valid for this form.
bool hasForm(BuildSettingForm form, const Dictionary& value) {
    switch (form) {
    case BuildSettingForm::version:
        return value == Version;
    case BuildSettingForm::path:
        return value.is_string();
    case BuildSettingForm::fileList:
        return isArrayOfObjects(value);
    }
    return false;
}

/// Whether reading `value` and writing it again would lose nothing.
bool understandsWhole(BuildSettingForm form, const Dictionary& value) {
    return hasForm(form, value) &&
           (form != BuildSettingForm::fileList ||
            std::all_of(value.begin(), value.end(), ProjectItemFactory::understandsWhole));
}

/// Whether every required member, of which all are texts, is present and valid.
bool hasRequiredMembers(const Dictionary& settings, std::string* reason = nullptr) {
    return std::all_of(Settings.begin(), Settings.end(), [&](const Setting& setting) {
        const Dictionary* const value = member(settings, setting.key);
        const bool isFine =
            !setting.isRequired || (value != nullptr && hasForm(setting.form, *value));
        if (!isFine) {
            giveReason(reason, "its member \"" + std::string(setting.key) + "\" is " +
                                   (value == nullptr ? "missing" : "no text"));
        }
        return isFine;
    });
}

} // namespace

ProjectItems* BuildSettingsContents::listFor(FileType type) {
    switch (type) {
    case FileType::text:
        return &assemblyFiles;
    case FileType::graphics:
        return &graphicFiles;
    case FileType::palette:
        return &paletteFiles;
    case FileType::project:
    case FileType::group:
    case FileType::empty:
    case FileType::unknown:
        break;
    }
    return nullptr;
}

std::filesystem::path buildSettingsLocation(const ProjectItem& project) {
    return buildSettingsLocation(project.itemPath(), project.itemName());
}

std::filesystem::path buildSettingsLocation(const std::filesystem::path& projectFolder,
                                            std::string_view projectName) {
    return joined(projectFolder,
                  settingsFilePath(projectName, BuildSettingsConfigurationExtension));
}

std::optional<Dictionary> fetchBuildSettings(const ProjectItem& project, std::string* reason) {
    return readJsonObject(buildSettingsLocation(project), nullptr, reason);
}

std::optional<BuildSettingsContents> readBuildSettings(const Dictionary& dictionary,
                                                       std::string* reason) {
    if (!hasRequiredMembers(dictionary, reason)) {
        return std::nullopt;
    }
    BuildSettingsContents contents;
    for (const Setting& setting : Settings) {
        const Dictionary* const value = member(dictionary, setting.key);
        if (value != nullptr && hasForm(setting.form, *value)) {
            setting.read(*value, contents);
        }
    }
    return contents;
}

std::vector<std::string_view> buildSettingMembers(BuildSettingForm form) {
    std::vector<std::string_view> keys;
    for (const Setting& setting : Settings) {
        if (setting.form == form) {
            keys.push_back(setting.key);
        }
    }
    return keys;
}

std::optional<std::string> buildSettingsText(const Dictionary& settings) {
    return serialiseJson(settings, Indent);
}

bool understandsBuildSettingsFile(const std::filesystem::path& path) {
    if (!existsAt(path)) {
        return true;
    }
    bool repeatedMembers = false;
    const auto settings = readJsonFile(path, &repeatedMembers);
    if (!settings || repeatedMembers || !hasRequiredMembers(*settings)) {
        return false;
    }
    const auto& members = settings->get_ref<const Dictionary::object_t&>();
    return std::all_of(members.begin(), members.end(), [](const auto& entry) {
        const auto* const setting =
            std::find_if(Settings.begin(), Settings.end(),
                         [&](const Setting& known) { return known.key == entry.first; });
        return setting != Settings.end() && understandsWhole(setting->form, entry.second);
    });
}

bool writeBuildSettings(const ProjectItem& project, const BuildSettingsContents& contents) {
    const std::filesystem::path path = buildSettingsLocation(project);
    Dictionary settings = Dictionary::object();
    for (const Setting& setting : Settings) {
        appendMember(settings, setting.key, setting.stored(contents, project));
    }
    const auto text = buildSettingsText(settings);
    std::string reason = "a text in it is not UTF-8, or it is nested too deep";
    const bool isSaved = text &&
                         (understandsBuildSettingsFile(path) || keepBackup(path, &reason)) &&
                         saveBytes(path, *text, &reason);
    writeLog(isSaved ? "Did save build settings" : "Could not save build settings");
    if (!isSaved) {
        logReason(path.string(), reason);
    }
    return isSaved;
}

} // namespace kestrel
