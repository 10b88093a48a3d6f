// SPDX-License-Identifier: MIT
// Stands in for an emulator: writes what it was started with to the file "opened" in the folder of
// the image, which is the first of its arguments that ends in ".nes".
#include <filesystem>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path image = argv[i];
        if (image.extension() != ".nes" && image.filename() != ".nes") {
            continue;
        }
        const auto record = image.parent_path() / "opened";
        std::ofstream out(record.string() + ".new");
        for (int j = 1; j < argc; ++j) {
            out << "argument " << argv[j] << '\n';
        }
        out << "folder " << std::filesystem::current_path().string() << '\n';
        out.close();
        std::filesystem::rename(record.string() + ".new", record);
        return 0;
    }
    return 1;
}
