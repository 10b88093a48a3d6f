// SPDX-License-Identifier: MIT
#include "build/ImageStamp.h"

#include "model/FileReader.h"

#include <sys/stat.h>

namespace kestrel {

namespace {

/// Four times the largest image that the iNES format can describe
/// (nesdev wiki, "INES": 255 PRG units of 16 KiB and 255 CHR units of 8 KiB).
constexpr std::uintmax_t LargestPlausibleImage = 4ULL * 255 * (16 + 8) * 1024;

} // namespace

ImageStamp ImageStamp::of(const std::filesystem::path& image) {
    ImageStamp stamp;
    struct stat status {};
    if (::stat(image.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return stamp;
    }
    stamp.present = true;
    stamp.size = static_cast<std::uintmax_t>(status.st_size);
    stamp.device = static_cast<std::uint64_t>(status.st_dev);
    stamp.file = static_cast<std::uint64_t>(status.st_ino);
#ifdef __APPLE__
    const timespec& changed = status.st_mtimespec;
#else
    const timespec& changed = status.st_mtim;
#endif
    stamp.changedSeconds = changed.tv_sec;
    stamp.changedNanoseconds = changed.tv_nsec;
    stamp.content = readFile(image, LargestPlausibleImage).value_or(std::string());
    return stamp;
}

} // namespace kestrel
