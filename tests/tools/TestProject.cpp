// SPDX-License-Identifier: MIT
#include "tools/TestProject.h"

#include "model/Json.h"

#include <gtest/gtest.h>

#include <fstream>
#include <utility>

namespace kestrel::test {

namespace fs = std::filesystem;

namespace {

Dictionary node(const std::string& name, const fs::path& path, const char* pathType,
                const char* type, Dictionary children) {
    return {{"name", name}, {"path", path.string()}, {"path_type", pathType},
            {"type", type}, {"project_type", "nes"}, {"sub_items", std::move(children)}};
}

} // namespace

TestProject::TestProject(fs::path folder, std::string name, fs::path named)
    : m_folder(std::move(folder))
    , m_name(std::move(name)) {
    const Dictionary none = Dictionary::array();
    const Dictionary main = node("main.asm", named / "src", "absolute_path", "text", none);
    const Dictionary code = node("Code", named, "no_path", "group", Dictionary::array({main}));
    writeFile(file(),
              Dictionary{{"BuildSettings", ".project/" + m_name + "-BuildSettings.cfg"},
                         {"ProjectStructure", ".project/" + m_name + "-ProjectStructure.cfg"}}
                  .dump());
    writeFile(structureFile(),
              node(m_name, named, "absolute_path", "project", Dictionary::array({code})).dump());
    writeFile(settingsFile(), Dictionary{{"Version", "1"},
                                         {"output_folder", (named / "output").string()},
                                         {"emulator", ""},
                                         {"code_assembly_files", Dictionary::array({main})},
                                         {"graphic_files", none},
                                         {"palette_files", none}}
                                  .dump(4));
    setMain(goodSource());
}

TestProject::TestProject(const fs::path& folder, const std::string& name)
    : TestProject(folder, name, folder) {}

fs::path TestProject::structureFile() const {
    return m_folder / ".project" / (m_name + "-ProjectStructure.cfg");
}

fs::path TestProject::settingsFile() const {
    return m_folder / ".project" / (m_name + "-BuildSettings.cfg");
}

void TestProject::setMain(std::string_view source) const {
    writeFile(mainFile(), source);
}

std::string TestProject::goodSource(int value) {
    return "  .inesprg 1\n  .ineschr 0\n  .inesmap 0\n  .inesmir 1\n"
           "  .bank 0\n  .org $C000\nreset:\n  lda #" +
           std::to_string(value) +
           "\n  jmp reset\nnothing:\n  rti\n"
           "  .bank 1\n  .org $FFFA\n  .dw nothing, reset, nothing\n";
}

void writeFile(const fs::path& path, std::string_view content) {
    fs::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    EXPECT_TRUE(stream.good()) << "cannot write " << path;
}

} // namespace kestrel::test
