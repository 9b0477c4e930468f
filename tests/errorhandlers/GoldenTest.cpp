// Runs every case in tests/data/errorhandlers; a new case is a new file. A case begins with lines
// "key: value" and goes on with sections: "=== input" and "=== expected", in pairs, for texts;
// "=== input NAME TYPE" and "=== expected NAME" for modules. Keys are
//   run            text, strip (takes out, with "label"), or insert or remove with a scope:
//                  project, component NAME, method NAME
//   scheme         of the folder "schemes"; module-scheme and so on choose by type
//   caret          COMPONENT LINE
// What comes out otherwise is kept below the build folder as a case with the actual texts.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "errorhandlers/HandlersWorld.h"
#include "hosts/batch/SchemeText.h"
#include "hosts/files/AtomicFile.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;
namespace insert = mInsertErrorHandlerCode;

const fs::path Folder = fs::path(TESSEL_SOURCE_DIR) / "tests/data/errorhandlers";

struct Section {
  std::vector<std::string> Title;
  String Text;
};

struct Case {
  std::vector<std::string> Head;
  std::map<std::string, std::string> Keys;
  std::vector<Section> Sections;

  [[nodiscard]] std::string Key(const std::string& name) const {
    const auto found = Keys.find(name);
    return found == Keys.end() ? std::string() : found->second;
  }
  [[nodiscard]] String Scheme(const std::string& type) const {
    return vb::FromUtf8(Key(type + "scheme"));
  }
};

std::vector<std::string> Words(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

Case ReadCase(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  Case read;
  bool first = true;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("=== ", 0) == 0) {
      read.Sections.push_back({Words(line.substr(4)), {}});
      first = true;
    } else if (read.Sections.empty()) {
      const std::size_t colon = line.find(": ");
      read.Head.push_back(line);
      read.Keys[line.substr(0, colon)] = line.substr(colon + 2);
    } else {
      String& text = read.Sections.back().Text;
      if (!std::exchange(first, false)) text += vb::CrLf;
      text += vb::FromUtf8(line);
    }
  }
  return read;
}

void WriteCase(const fs::path& file, const Case& one) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary);
  for (const std::string& line : one.Head) out << line << '\n';
  for (const Section& section : one.Sections) {
    out << "===";
    for (const std::string& word : section.Title) out << ' ' << word;
    out << '\n' << vb::ToUtf8(vb::Replace(section.Text, vb::CrLf, u"\n")) << '\n';
  }
}

host::vbext_ComponentType TypeOf(const std::string& word) {
  static const std::map<std::string, host::vbext_ComponentType> types{
      {"module", host::vbext_ct_StdModule},    {"class", host::vbext_ct_ClassModule},
      {"form", host::vbext_ct_VBForm},         {"designer", host::vbext_ct_ActiveXDesigner},
      {"control", host::vbext_ct_UserControl}, {"property-page", host::vbext_ct_PropPage},
      {"document", host::vbext_ct_DocObject}};
  return types.at(word);
}

class Golden : public test::HandlersWorld {
 protected:
  Golden() {
    NoSchemes();
    for (const auto& file : fs::directory_iterator(Folder / "schemes")) {
      const std::string name = file.path().string();
      Scheme(batch::ReadScheme(files::ReadFile(name), name));
    }
    insert::Init_mRecord_ErrorHandlerScheme();
  }

  void Play(Case& one) {
    const auto words = Words(one.Key("run"));
    if (words.at(0) == "text" || words.at(0) == "strip") {
      Texts(one, words[0] == "strip");
    } else {
      Modules(one, words);
    }
  }

 private:
  static void Texts(Case& one, bool strip) {
    insert::ProjectName = u"Project1";
    insert::ComponentName = u"Module1";
    insert::MemberName = u"Example";
    for (std::size_t at = 0; at + 1 < one.Sections.size(); at += 2) {
      const String& input = one.Sections[at].Text;
      one.Sections[at + 1].Text = strip
                                      ? vb::Join(mRemoveErrorHandlerCode::RemoveErrorHandlerScheme(
                                                     input, vb::FromUtf8(one.Key("label")))
                                                     .value_or(std::vector<String>()),
                                                 vb::CrLf)
                                      : insert::WorkTextComponentMember(input, one.Scheme(""));
    }
  }

  void Modules(Case& one, const std::vector<std::string>& words) {
    for (const Section& section : one.Sections) {
      if (section.Title[0] != "input") continue;
      Environment().AddComponent(u"", TypeOf(section.Title.at(2)), vb::FromUtf8(section.Title[1]),
                                 section.Text);
    }
    if (const auto caret = Words(one.Key("caret")); !caret.empty()) {
      Place.Caret(vb::FromUtf8(caret[0]), std::stoi(caret.at(1)));
    }
    insert::ModuleScheme = one.Scheme("module-");
    insert::ClassScheme = one.Scheme("class-");
    insert::FormScheme = one.Scheme("form-");
    insert::ActiveXScheme = one.Scheme("activex-");
    if (words[0] == "insert") {
      Insert(Scope(words), one.Scheme(""));
    } else {
      Remove(Scope(words));
    }
    for (Section& section : one.Sections) {
      if (section.Title[0] == "expected") {
        section.Text = Environment().Text(vb::FromUtf8(section.Title.at(1)));
      }
    }
  }

  static String Scope(const std::vector<std::string>& words) {
    if (words.at(1) == "project") return u"Current Project   [Project1]";
    return (words[1] == "component" ? u"Current Component [" : u"Current Method    [") +
           vb::FromUtf8(words.at(2)) + u"]";
  }
};

std::vector<fs::path> Cases() {
  std::vector<fs::path> found;
  for (const auto& file : fs::directory_iterator(Folder)) {
    if (file.path().extension() == ".golden") found.push_back(file.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

// Each case has a world of its own.
class GoldenCase : public Golden {
 public:
  void TestBody() override {}
  using Golden::Play;
};

TEST(GoldenCases, GiveTheExpectedTexts) {
  const fs::path kept = fs::path(TESSEL_BINARY_DIR) / "golden" / "errorhandlers";
  fs::remove_all(kept);
  const auto cases = Cases();
  ASSERT_GT(cases.size(), 60U);
  for (const fs::path& file : cases) {
    const Case expected = ReadCase(file);
    Case actual = expected;
    GoldenCase().Play(actual);
    bool same = true;
    for (std::size_t at = 0; at < expected.Sections.size(); ++at) {
      same &= actual.Sections[at].Text == expected.Sections[at].Text;
      EXPECT_EQ(vb::ToUtf8(actual.Sections[at].Text), vb::ToUtf8(expected.Sections[at].Text))
          << file.filename() << ", section " << at + 1;
    }
    if (!same) WriteCase(kept / file.filename(), actual);
  }
}

}  // namespace
}  // namespace tessel
