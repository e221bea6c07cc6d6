#include "tests/structure/layers.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temporary_folder.hpp"

namespace {

using test::Layer;
using testing::ElementsAre;
using testing::IsEmpty;

class SmallTree : public testing::Test {
 protected:
  void write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories((folder_.path() / file).parent_path());
    std::ofstream(folder_.path() / file) << text;
  }
  std::vector<std::string> violations(const std::vector<Layer>& layers) {
    return test::violations(folder_.path(), {"code"}, layers);
  }

  test::TemporaryFolder folder_;
};

TEST(Layers, DeclarationsOfThisTreeHaveNoCycles) {
  EXPECT_THAT(test::invalidDeclarations(test::readLayers(LAYERS_FILE)), IsEmpty());
}

TEST(Layers, NoFileOfThisTreeIncludesAHeaderOfAHigherLayer) {
  const std::vector<Layer> layers = test::readLayers(LAYERS_FILE);
  ASSERT_GT(layers.size(), 20U);
  EXPECT_THAT(test::violations(SOURCE_FOLDER,
                               {"simulator", "library", "settings_pane", "platform", "objc", "device/mach_o",
                                "device/emulation", "mutation"},
                               layers),
              IsEmpty());
}

TEST_F(SmallTree, AnIncludeOfALowerLayerIsAllowed) {
  write("code/high/a.cpp", "#include \"code/low/b.hpp\"\n");
  write("code/low/b.hpp", "\n");
  EXPECT_THAT(violations({{"high", {"code/high"}, {"low"}}, {"low", {"code/low"}, {}}}), IsEmpty());
}

TEST_F(SmallTree, AnIncludeOfALayerFurtherBelowIsAllowed) {
  write("code/high/a.cpp", "#include \"code/low/b.hpp\"\n");
  EXPECT_THAT(
      violations(
          {{"high", {"code/high"}, {"middle"}}, {"middle", {"code/middle"}, {"low"}}, {"low", {"code/low"}, {}}}),
      IsEmpty());
}

TEST_F(SmallTree, AnIncludeOfAHigherLayerIsReportedWithFileAndLine) {
  write("code/low/b.hpp", "#pragma once\n\n#include \"code/high/a.hpp\"\n");
  EXPECT_THAT(violations({{"high", {"code/high"}, {"low"}}, {"low", {"code/low"}, {}}}),
              ElementsAre("code/low/b.hpp:3: includes code/high/a.hpp, but low is not above high"));
}

TEST_F(SmallTree, FoldersOfOneLayerIncludeEachOther) {
  write("code/a/a.cpp", "#include \"code/b/b.hpp\"\n");
  write("code/b/b.cpp", "#include \"code/a/a.hpp\"\n");
  EXPECT_THAT(violations({{"both", {"code/a", "code/b"}, {}}}), IsEmpty());
}

TEST_F(SmallTree, AFileInAFolderWithoutALayerIsReported) {
  write("code/new/a.cpp", "\n");
  EXPECT_THAT(violations({}), ElementsAre("code/new/a.cpp: belongs to no layer; declare its folder with brim_layer"));
}

TEST_F(SmallTree, AnIncludeOfAFolderWithoutALayerIsReported) {
  write("code/a/a.cpp", "#include \"code/other/b.hpp\"\n");
  EXPECT_THAT(violations({{"a", {"code/a"}, {}}}),
              ElementsAre("code/a/a.cpp:1: includes code/other/b.hpp, which belongs to no layer"));
}

TEST(Layers, AreInvalidIfTheyDependOnThemselves) {
  EXPECT_THAT(test::invalidDeclarations({{"a", {"a"}, {"b"}}, {"b", {"b"}, {"a"}}}),
              ElementsAre("a depends on itself", "b depends on itself"));
}

TEST(Layers, AreInvalidIfTheyDependOnAnUndeclaredLayer) {
  EXPECT_THAT(test::invalidDeclarations({{"a", {"a"}, {"b"}}}),
              ElementsAre("a depends on b, which is not declared as a layer"));
}

}  // namespace
