// Components of the world outside on their way through a library, where a folder with projects is
// at hand: TESSEL_PROJECTS=/folder.

#include <algorithm>
#include <iostream>

#include "hosts/files/AtomicFile.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/LoadedProject.h"
#include "snippets/ComponentGroups.h"
#include "snippets/ObjectFiles.h"
#include "snippets/SnippetDialogs.h"
#include "snippets/frmGetFromVbCode.h"
#include "snippets/frmStoreToVbCode.h"
#include "support/ProjectsFolder.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;
namespace user = forms::user;
using platform::MessageAnswer;

std::vector<fs::path> ProjectsBelow(const fs::path& folder) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (vb::SameText(entry.path().extension().u16string(), u".vbp")) found.push_back(entry.path());
  }
  return found;
}

/// Without the names of binary files, which follow that of the component's file.
std::string WithoutCompanions(const std::string& bytes) {
  std::string plain;
  bool head = true;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', at), bytes.size() - 1) + 1;
    std::string line = bytes.substr(at, end - at);
    at = end;
    if (line.starts_with("Attribute VB_")) head = false;
    const std::size_t mark = head ? line.rfind("\":") : std::string::npos;
    const std::size_t quote =
        mark == std::string::npos || mark == 0 ? std::string::npos : line.rfind('"', mark - 1);
    if (quote != std::string::npos) line.erase(quote, mark - quote);
    plain += line;
  }
  return plain;
}

/// What a component consists of on the disk.
struct Original {
  String Name;
  int Type = 0;
  std::string Bytes;
  std::optional<std::string> Pictures;
};

class RealComponents : public test::SnippetDialogs {
 protected:
  RealComponents() {
    Libraries.Add(u"Marlow");
    test::OpenLibraries::At(u"Marlow")->Execute(u"PRAGMA synchronous = 0");
  }
  void Empty() {
    const auto connection = test::OpenLibraries::At(u"Marlow");
    connection->Execute(u"DELETE FROM Tree WHERE ID > 1");
    connection->Execute(u"UPDATE Tree SET lft = 1, rgt = 2");
  }

  /// Stores everything of a project that the first workspace holds.
  void Store(workspace::Workspace& from) {
    const auto dialog = std::make_shared<frmStoreToVbCode>();
    dialog->VBInstance = from.VBE();
    dialog->Connect = Root;
    dialog->Show();
    user::Press(dialog->btmSelectAll);
    if (dialog->btmNext.Enabled()) {
      user::Press(dialog->btmNext);
      user::SelectRow(dialog->fgTreeNext, 0, 0);
      // A form without binary values has no binary file, which is a failure to be ignored.
      Services.DesktopService.Answers.assign(5000, MessageAnswer::Ignore);
      user::Press(dialog->btmNext);
    }
    dialog->Unload();
    Services.DesktopService.Answers.clear();
  }
  void Insert(workspace::Workspace& into) {
    const auto dialog = std::make_shared<frmGetFromVbCode>();
    dialog->VBInstance = into.VBE();
    dialog->Connect = Root;
    dialog->Show();
    user::Press(dialog->btmSelectAll);
    if (dialog->btmRun.Enabled()) {
      Services.DesktopService.Answers.assign(5000, MessageAnswer::Yes);
      user::Press(dialog->btmRun);
      Services.DesktopService.Answers.clear();
    }
    dialog->Unload();
  }
  /// In the order in which the wizard stores them.
  static std::vector<Original> OriginalsOf(workspace::Workspace& workspace) {
    std::vector<Original> all;
    const auto& project =
        *std::dynamic_pointer_cast<model::VBProject>(workspace.VBE()->VBProjects()->Item(1));
    for (const ComponentGroup& group : ComponentGroups()) {
      for (const auto& component : const_cast<model::VBProject&>(project).Components().All()) {
        if (component->PlainType() != group.Type || !component->Module()) continue;
        const auto file = workspace::FileOf(*component);
        Original one{component->PlainName(), static_cast<int>(group.Type), file->StoredBytes(), {}};
        const auto companions =
            workspace::CompanionsOf(file->StoredBytes(), file->Path(), file->CodePage());
        if (companions.size() == 1) one.Pictures = companions.front().Bytes;
        all.push_back(std::move(one));
      }
    }
    return all;
  }
};

bool HasKeyLine(const Original& one) {
  const String text = vb::FromUtf8(one.Bytes);
  return vb::InStr(text, one.Type == 1 ? u"Attribute VB_Name" : u"Attribute VB_Exposed",
                   vb::Compare::Text) > 0;
}

TEST_F(RealComponents, StoredAndInsertedIntoANewProjectTheyAreTheSame) {
  const char* const folder = test::ProjectsFolder();
  if (folder == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  std::size_t same = 0, pictures = 0, keyless = 0, clashes = 0;
  for (const fs::path& path : ProjectsBelow(folder)) {
    Empty();
    workspace::Workspace from(Services, {});
    try {
      from.Open(path);
    } catch (const vb::Failure& failure) {
      std::cout << failure.what() << '\n';
      continue;
    }
    const std::vector<Original> originals = OriginalsOf(from);
    if (originals.empty()) continue;
    Store(from);
    const test::TemporaryFolder target;
    workspace::Workspace into(Services, {});
    const auto fresh = into.NewProject(u"N", host::vbext_pt_StandardExe);
    Insert(into);
    into.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(fresh), target.Path() / "N.vbp");
    const auto components = into.VBE()->ActiveVBProject()->VBComponents();
    int index = 0;
    for (const Original& one : originals) {
      if (!HasKeyLine(one)) {
        ++keyless;
        continue;
      }
      ASSERT_LT(index, components->Count()) << path << ' ' << vb::ToUtf8(one.Name);
      const auto component = components->Item(++index);
      if (component->Name() != one.Name) {
        ++clashes;
        EXPECT_TRUE(component->Name().starts_with(one.Name)) << path << vb::ToUtf8(one.Name);
        continue;
      }
      EXPECT_TRUE(WithoutCompanions(into.StoredBytes(*component)) == WithoutCompanions(one.Bytes))
          << path << ' ' << vb::ToUtf8(one.Name);
      ++same;
      if (one.Type != host::vbext_ct_VBForm || !one.Pictures) continue;
      const fs::path frx(mFunctions::CompanionPath(component->FileName(), u".frx"));
      EXPECT_TRUE(files::PresentBytes(frx) == one.Pictures) << path << ' ' << frx;
      ++pictures;
    }
    EXPECT_EQ(index, components->Count()) << path;
    EXPECT_TRUE(from.ChangedFiles().empty()) << path;
  }
  std::cout << same << " components, " << pictures << " with pictures the same; " << clashes
            << " got another name, " << keyless << " hold no key line\n";
  std::vector<std::string> unexpected;
  for (const std::string& text : Texts()) {
    // Forms without a binary file.
    if (text.find("File not found") == std::string::npos) unexpected.push_back(text);
  }
  EXPECT_EQ(unexpected, std::vector<std::string>());
  Expected = Texts();
}

}  // namespace
}  // namespace tessel
