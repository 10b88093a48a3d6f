// SPDX-License-Identifier: MIT
#include "model/BuildSettingsFile.h"

#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"
#include "model/ProjectItemFactory.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kestrel {

namespace {

constexpr int Indent = 4;
constexpr const char* Version = "1";
constexpr const char* AssemblyFilesKey = "code_assembly_files";
constexpr const char* GraphicFilesKey = "graphic_files";
constexpr const char* PaletteFilesKey = "palette_files";

ProjectItems listMember(const Dictionary& settings, const char* key) {
    const Dictionary* const list = member(settings, key);
    return list != nullptr ? ProjectItemFactory::processList(*list) : ProjectItems();
}

Dictionary storedList(const ProjectItems& items) {
    Dictionary list = Dictionary::array();
    for (const auto& item : items) {
        if (item) {
            list.push_back(item->toDictionary());
        }
    }
    return list;
}

Dictionary storedForm(const ProjectItem& project, const BuildSettingsContents& contents) {
    Dictionary settings = Dictionary::object();
    appendMember(settings, "Version", Version);
    appendMember(settings, "output_folder", pathText(joined(project.itemPath(), "output")));
    appendMember(settings, "emulator",
                 contents.pathToEmulator ? pathText(*contents.pathToEmulator) : std::string());
    appendMember(settings, AssemblyFilesKey, storedList(contents.assemblyFiles));
    appendMember(settings, GraphicFilesKey, storedList(contents.graphicFiles));
    appendMember(settings, PaletteFilesKey, storedList(contents.paletteFiles));
    return settings;
}

bool understandsList(const Dictionary& list) {
    return isArrayOfObjects(list) &&
           std::all_of(list.begin(), list.end(), ProjectItemFactory::understandsWhole);
}

bool understandsMember(const std::string& key, const Dictionary& value) {
    if (key == "Version") {
        return value == Version;
    }
    if (key == "output_folder" || key == "emulator") {
        return value.is_string();
    }
    static constexpr std::array<std::string_view, 3> Lists = {AssemblyFilesKey, GraphicFilesKey,
                                                              PaletteFilesKey};
    return std::find(Lists.begin(), Lists.end(), key) != Lists.end() && understandsList(value);
}

} // namespace

std::filesystem::path BuildSettingsFile::location(const ProjectItem& project) {
    return joined(project.itemPath(),
                  settingsFilePath(project.itemName(), BuildSettingsConfigurationExtension));
}

std::optional<Dictionary> BuildSettingsFile::fetch(const ProjectItem& project) {
    return readJsonObject(location(project));
}

std::optional<BuildSettingsContents> BuildSettingsFile::read(const Dictionary& dictionary) {
    auto outputFolder = stringMember(dictionary, "output_folder");
    auto emulator = stringMember(dictionary, "emulator");
    if (!outputFolder || !emulator) {
        return std::nullopt;
    }
    BuildSettingsContents contents;
    contents.assemblyFiles = listMember(dictionary, AssemblyFilesKey);
    contents.graphicFiles = listMember(dictionary, GraphicFilesKey);
    contents.paletteFiles = listMember(dictionary, PaletteFilesKey);
    contents.outputFilePath = std::filesystem::path(std::move(*outputFolder));
    if (!emulator->empty()) {
        contents.pathToEmulator = std::filesystem::path(std::move(*emulator));
    }
    return contents;
}

bool BuildSettingsFile::understoodWhole(const std::filesystem::path& path) {
    if (!existsAt(path)) {
        return true;
    }
    bool repeatedMembers = false;
    const auto settings = readJsonFile(path, &repeatedMembers);
    if (!settings || repeatedMembers || !stringMember(*settings, "output_folder") ||
        !stringMember(*settings, "emulator")) {
        return false;
    }
    const auto& members = settings->get_ref<const Dictionary::object_t&>();
    return std::all_of(members.begin(), members.end(), [](const auto& entry) {
        return understandsMember(entry.first, entry.second);
    });
}

bool BuildSettingsFile::save(const ProjectItem& project, const BuildSettingsContents& contents) {
    const std::filesystem::path path = location(project);
    const auto text = serialiseJson(storedForm(project, contents), Indent);
    const bool isSaved =
        text && (understoodWhole(path) || keepBackup(path)) && saveBytes(path, *text);
    writeLog(isSaved ? "Did save build settings" : "Could not save build settings");
    return isSaved;
}

} // namespace kestrel
