#include "hosts/batch/LineDiff.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <vector>

namespace tessel::batch {
namespace {

TEST(UnifiedDiff, IsEmptyForEqualTexts) {
  EXPECT_EQ(UnifiedDiff("a\nb\n", "a\nb\n", "x", "y"), "");
}

TEST(UnifiedDiff, TellsAChangedLineWithItsSurroundings) {
  EXPECT_EQ(UnifiedDiff("1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n", "x", "y"),
            "--- x\n+++ y\n@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(UnifiedDiff, MarksAMissingLastLineEnd) {
  EXPECT_EQ(UnifiedDiff("a\n", "a", "x", "y"),
            "--- x\n+++ y\n@@ -1 +1 @@\n-a\n+a\n\\ No newline at end of file\n");
}

TEST(UnifiedDiff, StartsAnEmptyFileAtLineZero) {
  EXPECT_EQ(UnifiedDiff("", "a\n", "x", "y"), "--- x\n+++ y\n@@ -0,0 +1 @@\n+a\n");
}

/// Carries a difference out, as the patch command does it.
std::string Patched(const std::string& before, const std::string& diff) {
  std::vector<std::string> lines;
  std::istringstream in(before);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  std::string after;
  std::size_t at = 0;
  std::istringstream patch(diff);
  std::string line;
  std::getline(patch, line);
  std::getline(patch, line);
  while (std::getline(patch, line)) {
    if (line[0] == '@') {
      std::size_t start = std::stoul(line.substr(4));
      if (line.substr(4, line.find(' ', 4) - 4).find(",0") == std::string::npos) --start;
      while (at < start) after += lines[at++] + "\n";
    } else if (line[0] == '+') {
      after += line.substr(1) + "\n";
    } else {
      EXPECT_EQ(lines.at(at), line.substr(1));
      if (line[0] == ' ') after += lines[at] + "\n";
      ++at;
    }
  }
  while (at < lines.size()) after += lines[at++] + "\n";
  return after;
}

TEST(UnifiedDiff, LeadsFromTheOneTextToTheOtherWhateverTheyAre) {
  std::mt19937 random(7);
  const auto text = [&](std::uint32_t most) {
    std::string lines;
    for (auto count = random() % most; count > 0; --count) {
      lines += std::string(1, static_cast<char>('a' + random() % 4)) + "\n";
    }
    return lines;
  };
  for (int round = 0; round < 400; ++round) {
    const std::string before = text(40), after = text(40);
    if (before == after) continue;
    EXPECT_EQ(Patched(before, UnifiedDiff(before, after, "x", "y")), after);
  }
}

TEST(UnifiedDiff, GivesUpOnTextsThatShareNothingAndReplacesThem) {
  std::string before, after;
  for (int line = 0; line < 3000; ++line) {
    before += "a" + std::to_string(line) + "\n";
    after += "b" + std::to_string(line) + "\n";
  }
  EXPECT_EQ(Patched(before, UnifiedDiff(before, after, "x", "y")), after);
}

TEST(UnifiedDiff, NamesFilesAsPatchReadsThem) {
  EXPECT_EQ(UnifiedDiff("a\n", "b\n", "my file", "say \"x\"\\").substr(0, 31),
            "--- my file\t\n+++ \"say \\\"x\\\"\\\\\"\n");
}

}  // namespace
}  // namespace tessel::batch
