// Tidies every line of the modules below $TESSEL_PROJECTS and tells how many of them change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "hosts/editing/LineTidy.h"
#include "hosts/editing/Names.h"
#include "support/Modules.h"
#include "support/ProjectsFolder.h"

namespace tessel::editing {
namespace {

namespace fs = std::filesystem;

/// The code of a component file, one unit for each byte: neither tokens nor blanks are other bytes.
std::vector<String> CodeOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::vector<String> lines(1);
  for (const char byte : bytes) {
    if (byte == '\n') {
      if (!lines.back().empty() && lines.back().back() == u'\r') lines.back().pop_back();
      lines.emplace_back();
    } else {
      lines.back() += static_cast<unsigned char>(byte);
    }
  }
  const auto isAttribute = [](const String& line) {
    return vb::StartsWithText(line, u"Attribute VB_");
  };
  const auto first = std::find_if(lines.begin(), lines.end(), isAttribute);
  if (first == lines.end()) return lines;
  lines.erase(lines.begin(), std::find_if_not(first, lines.end(), isAttribute));
  return lines;
}

/// A line without blanks and case, but for what stands in texts and comments.
String Essence(StringView line) {
  String essence;
  bool text = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char16_t unit = line[at];
    if (unit == u'"') text = !text;
    if (!text && unit == u'\'') return essence + String(line.substr(at));
    if (text) {
      essence += unit;
    } else if (!IsBlank(unit)) {
      essence += vb::LCase(StringView(&unit, 1));
    }
  }
  return essence;
}

bool IsModule(const fs::path& file) {
  const String ending = vb::LCase(file.extension().u16string());
  return ending == u".bas" || ending == u".cls" || ending == u".frm" || ending == u".ctl" ||
         ending == u".pag" || ending == u".dob" || ending == u".dsr";
}

TEST(RealModules, KeepTheMeaningOfEveryLine) {
  const char* const root = test::ProjectsFolder();
  if (root == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  const char* const shown = std::getenv("TESSEL_SHOW_CHANGED");
  long lines = 0, code = 0, same = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file() || !IsModule(entry.path())) continue;
    SCOPED_TRACE(entry.path());
    const auto text = CodeOf(entry.path());
    test::World world;
    world.Module(u"M", vb::Join(text, vb::CrLf));
    const auto component =
        std::dynamic_pointer_cast<model::VBComponent>(world.Environment.Component(u"M"));
    Names names;
    std::vector<StringView> ahead;
    int number = 0;
    for (const String& line : text) {
      ++number;
      const NameCase known = [&](StringView name, bool member, std::size_t) {
        const auto found = names.Find(*component, number, name, member);
        return found ? found->What.Name : String();
      };
      const String tidy = TidyLine(line, ahead, known);
      ++lines;
      const bool blank = vb::Trim(line).empty();
      if (!blank) ++code;
      if (!blank && tidy == line) ++same;
      if (tidy != line && shown != nullptr) {
        std::printf("%s\n- %s\n+ %s\n", entry.path().filename().c_str(), vb::ToUtf8(line).c_str(),
                    vb::ToUtf8(tidy).c_str());
      }
      ASSERT_EQ(Essence(tidy), Essence(line));
      ASSERT_EQ(TidyLine(tidy, ahead, known), tidy) << "twice";
      // What the line behind begins with depends on the whole statement.
      LineStart start = LineStart::Statement;
      for (const StringView one : ahead) start = Cut(one, start).Next;
      if (Cut(line, start).Next == LineStart::Statement) {
        ahead.clear();
      } else {
        ahead.emplace_back(line);
      }
    }
  }
  std::printf("%ld lines, %ld of them not blank, %ld of these unchanged\n", lines, code, same);
  EXPECT_GT(same, 0);
}

}  // namespace
}  // namespace tessel::editing
