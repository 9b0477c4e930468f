// Builders in projects of the world outside, where a folder with some is at hand:
// TESSEL_PROJECTS=/folder. They work on a copy.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "builders/frmClassBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmProcedureBuilder.h"
#include "builders/frmPropertyBuilder.h"
#include "forms/User.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/Workspace.h"
#include "support/ErrorDialogs.h"
#include "support/FakeConnect.h"
#include "support/MemoryPlatform.h"
#include "support/ProjectsFolder.h"
#include "support/SharedDatabase.h"
#include "support/TemporaryFolder.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
namespace user = forms::user;

/// The lines with what ends them; the last one may have a line end or not, which is passed over.
std::vector<std::string> LinesOf(const std::string& bytes) {
  std::vector<std::string> lines(1);
  for (const char unit : bytes) {
    lines.back() += unit;
    if (unit == '\n') lines.emplace_back();
  }
  if (lines.back().empty()) {
    lines.pop_back();
  } else if (lines.size() > 1) {
    lines.back() += lines.front().ends_with("\r\n") ? "\r\n" : "\n";
  }
  return lines;
}

std::vector<std::string> WithoutEnds(std::vector<std::string> lines) {
  for (std::string& line : lines) line.erase(std::min(line.find_first_of("\r\n"), line.size()));
  return lines;
}

std::vector<std::string> Filled(std::vector<std::string> lines) {
  lines = WithoutEnds(std::move(lines));
  std::erase_if(lines, [](const std::string& line) { return line.empty(); });
  std::sort(lines.begin(), lines.end());
  return lines;
}

/// `after` is `before` with one block of lines in it: those of the text, and at most one blank line
/// more than it has.
void ExpectInserted(const std::string& before, const std::string& after, const String& text,
                    const std::string& label) {
  const std::vector<std::string> was = LinesOf(before), is = LinesOf(after);
  ASSERT_GE(is.size(), was.size()) << label;
  const std::size_t head = static_cast<std::size_t>(
      std::mismatch(was.begin(), was.end(), is.begin()).first - was.begin());
  std::size_t tail = 0;
  while (tail < was.size() - head && was[was.size() - 1 - tail] == is[is.size() - 1 - tail]) ++tail;
  ASSERT_EQ(head + tail, was.size()) << label << ": other lines than the inserted ones differ";
  const std::vector<std::string> block(is.begin() + static_cast<std::ptrdiff_t>(head),
                                       is.end() - static_cast<std::ptrdiff_t>(tail));
  const std::vector<std::string> wanted = LinesOf(vb::ToUtf8(text));
  EXPECT_EQ(Filled(block), Filled(wanted)) << label;
  EXPECT_LE(block.size(), wanted.size() + 1) << label;
}

/// A copy of one repository, a project of which is open.
class Copy {
 public:
  explicit Copy(const fs::path& repository) {
    for (const auto& entry : fs::recursive_directory_iterator(repository)) {
      if (!entry.is_regular_file() || entry.path().string().find("/.git") != std::string::npos) {
        continue;
      }
      const fs::path to = folder_.Path() / fs::relative(entry.path(), repository);
      fs::create_directories(to.parent_path());
      fs::copy_file(entry.path(), to);
      fs::permissions(to, fs::perms::owner_write, fs::perm_options::add);
      if (vb::SameText(to.extension().u16string(), u".vbp")) Projects.push_back(to);
    }
  }
  std::vector<fs::path> Projects;

 private:
  test::TemporaryFolder folder_;
};

class BuildersInRealProjects : public testing::Test {
 protected:
  BuildersInRealProjects() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  }
  ~BuildersInRealProjects() override { gErrorHandler.reset(); }

  /// Opens a builder over the environment, lets `fill` type, presses OK.
  template <class Form, class Fill>
  void Use(const Workspace& environment, const Fill& fill) {
    const auto root = std::make_shared<test::FakeConnect>();
    const auto form = std::make_shared<Form>();
    form->VBInstance = environment.VBE();
    test::Attach(*form, root);
    form->Show();
    user::Check(form->Part.chkHeader, 0);
    fill(*form);
    user::Press(form->Part.btmOK);
    form->Unload();
  }

  void Procedure(const Workspace& environment, const String& module) {
    Use<frmProcedureBuilder>(environment, [&](frmProcedureBuilder& form) {
      user::Type(form.Name.txtName, u"zqProcedure");
      user::Pick(form.Module.ComModule, module);
    });
  }
  void Property(const Workspace& environment, const String& module) {
    Use<frmPropertyBuilder>(environment, [&](frmPropertyBuilder& form) {
      user::Type(form.Name.txtName, u"zqProperty");
      user::Pick(form.ComValueType, u"Long");
      user::Pick(form.Module.ComModule, module);
    });
  }
  void Enum(const Workspace& environment, const String& module) {
    services_.DesktopService.OnModal = [](forms::Form& form) {
      if (form.Name() == u"frmParameterEnum") user::Press(*form.Find(u"btmOK"));
    };
    Use<frmEnumBuilder>(environment, [&](frmEnumBuilder& form) {
      user::Type(form.Name.txtName, u"zqEnum");
      user::Press(form.ListParameters.btmAdd);
      user::Pick(form.Module.ComModule, module);
    });
  }

  void InsertIntoEach(const fs::path& project);
  void MakeClasses(const fs::path& project);

  memory::MemoryPlatform services_;
  test::ErrorDialogs errors_{services_.DesktopService};
  platform::ScopedPlatform scope_{services_};
  test::SharedDatabase database_;
  std::size_t modules_ = 0, classes_ = 0;
};

builders::ProcedureChoices ProcedureText() {
  builders::ProcedureChoices choices;
  choices.Name = u"zqProcedure";
  choices.Comment.Full = false;
  return choices;
}

builders::PropertyChoices PropertyText() {
  builders::PropertyChoices choices;
  choices.Name = u"zqProperty";
  choices.ValueType = u"Long";
  choices.Prefix = choices.MemberVariable = u"l";
  choices.Accessibility = u"Public";
  choices.Get = choices.LetSet = true;
  choices.Comment.Full = false;
  return choices;
}

builders::EnumChoices EnumText() {
  builders::EnumChoices choices;
  choices.Name = u"zqEnum";
  choices.Parameters = {u"nn_N"};
  choices.Comment.Full = false;
  return choices;
}

void BuildersInRealProjects::InsertIntoEach(const fs::path& project) {
  Workspace environment(services_, {});
  try {
    environment.Open(project);
  } catch (const vb::Failure&) {
    return;  // told by the tests of the workspace
  }
  const builders::PropertyText property = builders::GeneratorTextProperty(PropertyText());
  struct Step {
    void (BuildersInRealProjects::*Insert)(const Workspace& environment, const String& module);
    String Text;
  };
  const Step steps[] = {
      {&BuildersInRealProjects::Procedure, builders::GeneratorTextMethod(ProcedureText())},
      {&BuildersInRealProjects::Property, property.Declaration + property.Body},
      {&BuildersInRealProjects::Enum, builders::GeneratorText(EnumText())}};
  const auto components = environment.VBE()->ActiveVBProject()->VBComponents();
  std::set<String> names;
  std::vector<std::pair<fs::path, std::string>> expected;
  for (int index = 1; index <= components->Count(); ++index) {
    const auto component = components->Item(index);
    // The builders know a component by its name.
    if (!component->CodeModule() || !names.insert(vb::UCase(component->Name())).second) continue;
    std::string before = environment.StoredBytes(*component);
    for (const Step& step : steps) {
      (this->*step.Insert)(environment, component->Name());
      std::string after = environment.Bytes(*component);
      ExpectInserted(before, after, step.Text, vb::ToUtf8(component->FileName()));
      before = std::move(after);
    }
    expected.emplace_back(environment.FileOf(*component), std::move(before));
  }
  environment.Save();
  for (const auto& [file, bytes] : expected) {
    EXPECT_TRUE(files::ReadFile(file) == bytes) << file;
  }
  modules_ += expected.size();
}

void BuildersInRealProjects::MakeClasses(const fs::path& project) {
  Workspace environment(services_, {});
  try {
    environment.Open(project);
  } catch (const vb::Failure&) {
    return;
  }
  const std::string before = files::ReadFile(project);
  // Several projects may lie in one folder.
  const String base = u"zqItem" + vb::Str(static_cast<int>(classes_));
  Use<frmClassBuilder>(environment, [&](frmClassBuilder& form) {
    user::Type(form.ComBaseClass, base);
    user::Type(form.Part.txtDescription, u"");
  });
  const auto written = environment.Save();
  EXPECT_EQ(written.size(), 3U) << project << ": the project and two classes";
  const auto entry = [](const String& name) {
    return u"Class=" + name + u"; " + name + u".cls\r\n";
  };
  ExpectInserted(before, files::ReadFile(project), entry(base + u"S") + entry(base),
                 project.string());
  ++classes_;
}

TEST_F(BuildersInRealProjects, AComponentWithoutCodeIsReportedAndKeepsTheDialogOpen) {
  const test::TemporaryFolder folder;
  folder.Write("notes.txt", "text");
  folder.Write("M.bas", "Attribute VB_Name = \"M\"\r\n");
  Workspace environment(services_, {});
  environment.Open(
      folder.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nRelatedDoc=notes.txt\r\n"));
  const auto components = environment.VBE()->ActiveVBProject()->VBComponents();
  String document;
  for (int index = 1; index <= components->Count(); ++index) {
    if (!components->Item(index)->CodeModule()) document = components->Item(index)->Name();
  }
  ASSERT_NE(document, u"");
  services_.DesktopService.OnModal = [](forms::Form& form) {
    user::Press(*form.Find(u"btnAbort"));
  };
  Procedure(environment, document);
  EXPECT_EQ(errors_.Take().size(), 1U);
  EXPECT_TRUE(environment.ChangedFiles().empty());
}

TEST_F(BuildersInRealProjects, NothingButTheInsertedLinesDiffersBehindASave) {
  const char* const folder = test::ProjectsFolder();
  if (folder == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  for (const auto& repository : fs::directory_iterator(folder)) {
    const Copy copy(repository.path());
    for (const fs::path& project : copy.Projects) InsertIntoEach(project);
    for (const fs::path& project : copy.Projects) MakeClasses(project);
  }
  EXPECT_GT(modules_, 0U);
  std::cout << modules_ << " modules, " << classes_ << " projects with a new class\n";
}

}  // namespace
}  // namespace tessel::workspace
