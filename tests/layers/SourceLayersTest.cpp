#include <gtest/gtest.h>

#include "layers/IncludeLayers.hpp"

namespace pendulon::test {
namespace {

// The house keeps its order: every include of src/ points down the declared layers, no files
// or folders include each other round a loop, and only desktop/ includes Qt.
TEST(SourceLayers, EveryIncludeOfSrcPointsDownTheDeclaredOrder) {
    const LayerReport report = CheckIncludeLayers(PENDULON_SOURCE_DIR, DeclaredLayers());
    // The check read the real tree, not an empty or a wrong folder.
    EXPECT_GT(report.files, 200);
    EXPECT_GT(report.includes, 600);
    for (const std::string& problem : report.problems) ADD_FAILURE() << problem;
}

}  // namespace
}  // namespace pendulon::test
