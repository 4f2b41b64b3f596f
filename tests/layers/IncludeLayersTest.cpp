#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "layers/IncludeLayers.hpp"
#include "support/TestSupport.hpp"

namespace pendulon::test {
namespace {

namespace fs = std::filesystem;

// A made-up tree of sources in a temporary folder, which goes with the test.
class MadeUpTree : public ::testing::Test {
  protected:
    void Write(const std::string& name, const std::string& text) {
        const fs::path path = fs::path(dir_.Path()) / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }
    LayerReport Check() { return CheckIncludeLayers(dir_.Path(), order_); }
    // The one problem of the report; fails when there are more or none.
    std::string OnlyProblem() {
        const LayerReport report = Check();
        EXPECT_EQ(report.problems.size(), 1u) << ::testing::PrintToString(report.problems);
        return report.problems.empty() ? std::string() : report.problems.front();
    }

    void SetUp() override {
        // A small tree that keeps the order.
        Write("platform/Field.hpp", "#pragma once\n#include <string>\n");
        Write("core/Numbers.hpp", "#pragma once\n#include \"platform/Field.hpp\"\n");
        Write("core/Numbers.cpp", "#include \"core/Numbers.hpp\"\n#include \"Text.hpp\"\n");
        Write("core/Text.hpp", "#pragma once\n");
        Write("app/Host.hpp", "#pragma once\n#include \"core/Numbers.hpp\"\n");
        Write("desktop/View.cpp",
              "#include <QWidget>\n#include <QtCore/QObject>\n#include \"app/Host.hpp\"\n");
        Write("cli/main.cpp", "#include \"app/Host.hpp\"\n#include \"generated/ui_Missing.h\"\n");
    }

    TempDir dir_;
    LayerOrder order_ = {{"platform"}, {"core"}, {"app"}, {"desktop", "cli"}};
};

TEST_F(MadeUpTree, AnOrderedTreeHasNoProblemAndEveryFileAndIncludeIsRead) {
    const LayerReport report = Check();
    EXPECT_TRUE(report.problems.empty()) << ::testing::PrintToString(report.problems);
    EXPECT_EQ(report.files, 7);
    // The missing generated header is no file of the tree.
    EXPECT_EQ(report.includes, 6);
}

TEST_F(MadeUpTree, AFolderThatIncludesOneAboveItFails) {
    Write("core/Late.cpp", "#include <vector>\n\n#include \"app/Host.hpp\"\n");
    const LayerReport report = Check();
    ASSERT_EQ(report.problems.size(), 2u) << ::testing::PrintToString(report.problems);
    EXPECT_EQ(report.problems[0],
              "core/Late.cpp:3: core/ includes app/Host.hpp, but app/ stands above it");
    // app/ includes core/ as it should, so the two folders now include each other.
    EXPECT_EQ(report.problems[1], "folders include each other in a loop: app, core");
}

TEST_F(MadeUpTree, TheTwoFrontEndsDoNotIncludeEachOther) {
    Write("cli/Shown.cpp", "#include \"desktop/View.cpp\"\n");
    EXPECT_EQ(OnlyProblem(),
              "cli/Shown.cpp:1: cli/ includes desktop/View.cpp, but desktop/ stands beside it");
}

TEST_F(MadeUpTree, AQtHeaderOutsideDesktopFails) {
    Write("app/Strings.hpp", "#pragma once\n#include <QString>\n");
    Write("core/Widgets.hpp", "#pragma once\n  #  include <QtWidgets/QLabel>\n");
    const LayerReport report = Check();
    ASSERT_EQ(report.problems.size(), 2u) << ::testing::PrintToString(report.problems);
    EXPECT_EQ(report.problems[0], "app/Strings.hpp:2: Qt header <QString> outside desktop/");
    EXPECT_EQ(report.problems[1],
              "core/Widgets.hpp:2: Qt header <QtWidgets/QLabel> outside desktop/");
}

TEST_F(MadeUpTree, FilesThatIncludeEachOtherFail) {
    Write("core/Text.hpp", "#pragma once\n#include \"core/Numbers.hpp\"\n");
    Write("core/Numbers.hpp", "#pragma once\n#include \"Text.hpp\"\n");
    EXPECT_EQ(OnlyProblem(), "files include each other in a loop: core/Numbers.hpp, core/Text.hpp");
}

TEST_F(MadeUpTree, AFolderOutsideTheOrderFailsAndSoDoFoldersInALoop) {
    Write("extra/One.hpp", "#pragma once\n#include \"other/Two.hpp\"\n");
    Write("other/Two.hpp", "#pragma once\n");
    Write("other/Two.cpp", "#include \"other/Two.hpp\"\n#include \"extra/One.hpp\"\n");
    const LayerReport report = Check();
    ASSERT_EQ(report.problems.size(), 3u) << ::testing::PrintToString(report.problems);
    EXPECT_EQ(report.problems[0], "extra/: a folder outside the declared order");
    EXPECT_EQ(report.problems[1], "other/: a folder outside the declared order");
    EXPECT_EQ(report.problems[2], "folders include each other in a loop: extra, other");
}

TEST_F(MadeUpTree, ASourceFileOutsideEveryFolderFails) {
    Write("Loose.cpp", "#include \"core/Numbers.hpp\"\n");
    EXPECT_EQ(OnlyProblem(), "Loose.cpp: a source file outside every folder");
}

}  // namespace
}  // namespace pendulon::test
