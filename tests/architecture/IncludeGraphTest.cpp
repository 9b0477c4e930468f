// Reads every #include below src/ and hosts/ and fails on one that points up or sideways.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Height of each folder; a folder may include itself and what stands lower.
const std::map<std::string, int> Levels{{"vb", 0},
                                        {"platform", 1},
                                        {"store", 2},
                                        {"host", 1},
                                        {"forms", 2},
                                        {"foundation", 3},
                                        {"scanning", 4},
                                        {"connections", 4},
                                        {"projectmodel", 5},
                                        {"presentation", 5},
                                        {"insertion", 4},
                                        {"watchers", 5},
                                        // The tools, equals.
                                        {"formatter", 6},
                                        {"errorhandlers", 6},
                                        {"snippets", 6},
                                        {"builders", 6},
                                        {"explorer", 6},
                                        {"controlnaming", 6},
                                        {"contextmenu", 6},
                                        {"settingsdialog", 6},
                                        {"addin", 8},
                                        {"hosts/model", 9},
                                        {"hosts/files", 8},
                                        {"hosts/linux", 9},
                                        {"hosts/memory", 10},
                                        {"hosts/review", 10},
                                        {"hosts/workspace", 10},
                                        {"hosts/editing", 10},
                                        {"hosts/drive", 11},
                                        {"hosts/batch", 12},
                                        {"hosts/workbench/platform", 11},
                                        {"hosts/workbench/forms", 12},
                                        {"hosts/workbench/designer", 12},
                                        {"hosts/workbench/window", 13},
                                        {"hosts/workbench", 14}};

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::vector<std::string> IncludesOf(const fs::path& file) {
  std::vector<std::string> includes;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("#include", 0) == 0) includes.push_back(line.substr(9));
  }
  return includes;
}

template <class F>
void ForEachSource(F&& visit) {
  const fs::path root = TESSEL_SOURCE_DIR;
  for (const char* top : {"src", "hosts"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / top)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      const std::string base = top == std::string("src") ? "src" : "";
      visit(entry.path(), fs::relative(entry.path(), root / base).string());
    }
  }
}

TEST(IncludeGraph, PointsDownOnly) {
  ForEachSource([](const fs::path& file, const std::string& name) {
    const std::string own = FolderOf(name);
    ASSERT_TRUE(Levels.count(own)) << "a folder without a place: " << own;
    for (const std::string& include : IncludesOf(file)) {
      if (include.front() != '"') continue;
      const std::string target = include.substr(1, include.rfind('"') - 1);
      const std::string folder = FolderOf(target);
      // Texts generated for the store.
      if (folder.empty()) continue;
      ASSERT_TRUE(Levels.count(folder)) << name << " includes " << target;
      EXPECT_TRUE(folder == own || Levels.at(folder) < Levels.at(own))
          << name << " includes " << target;
    }
  });
}

TEST(IncludeGraph, HoldsNoToolkitOrSystemHeaderBelowSrc) {
  ForEachSource([](const fs::path& file, const std::string& name) {
    if (name.rfind("hosts/", 0) == 0) return;
    for (const std::string& include : IncludesOf(file)) {
      for (const char* foreign : {"<Q", "<windows.h", "<unistd.h", "<sys/", "<fcntl.h"}) {
        EXPECT_NE(include.rfind(foreign, 0), 0U) << name << " includes " << include;
      }
    }
  });
}

}  // namespace
