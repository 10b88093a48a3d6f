#include "assembler/SideFiles.h"

#include "assembler/DbgFile.h"
#include "assembler/Listing.h"

#include <algorithm>
#include <iterator>

namespace nesasm {

std::vector<SideFile> sideFiles(const Assembly& assembly, const CommandLine& line) {
    std::vector<SideFile> files;
    for (const CommandLine::Labels format : line.labels) {
        switch (format) {
        case CommandLine::Labels::Mlb:
            files.push_back(mlbFile(assembly, line.output));
            break;
        case CommandLine::Labels::Nl: {
            std::vector<SideFile> several = nlFiles(assembly, line.output);
            std::move(several.begin(), several.end(), std::back_inserter(files));
            break;
        }
        case CommandLine::Labels::Dbg:
            files.push_back(dbgFile(assembly, line.output));
            break;
        }
    }
    if (!line.listing.empty())
        files.push_back({line.listing, listingText(assembly, line.listsExpansions)});
    return files;
}

} // namespace nesasm
