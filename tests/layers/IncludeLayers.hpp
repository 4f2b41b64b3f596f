#pragma once
#include <filesystem>
#include <string>
#include <vector>

namespace pendulon::test {

// The folders of src/ from the bottom up. A folder includes only itself and folders of lower
// ranks; the folders of one rank (the two front ends) do not include each other.
using LayerOrder = std::vector<std::vector<std::string>>;

// The house as it is declared: platform at the bottom, the front ends on top.
const LayerOrder& DeclaredLayers();

struct LayerReport {
    // One line per broken rule, with the file and line where it is broken.
    std::vector<std::string> problems;
    int files = 0;     // source files read
    int includes = 0;  // include lines of files of the tree among them
};

// Reads the include lines of every source file under root and checks them against the order:
// no folder includes one above it or beside it, no folder outside the order, no include loop
// (of files, or of folders), and no Qt header outside desktop/.
LayerReport CheckIncludeLayers(const std::filesystem::path& root, const LayerOrder& order);

}  // namespace pendulon::test
