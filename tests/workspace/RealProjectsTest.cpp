// Projects of the world outside, where a folder with some is at hand: TESSEL_PROJECTS=/folder.

#include <gtest/gtest.h>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"
#include "scanning/mFunctions.h"
#include "support/MemoryPlatform.h"
#include "support/ProjectsFolder.h"
#include "tools/ModuleEdits.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ProjectsBelow(const fs::path& folder) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const String extension = entry.path().extension().u16string();
    if (vb::SameText(extension, u".vbp") || vb::SameText(extension, u".vbg")) {
      found.push_back(entry.path());
    }
  }
  return found;
}

/// Without blanks at the heads of lines, which a tool that sets the indent changes.
std::string WithoutIndent(const std::string& bytes) {
  std::string plain;
  bool start = true;
  for (const char unit : bytes) {
    if (start && (unit == ' ' || unit == '\t')) continue;
    start = unit == '\n' || unit == '\r';
    plain += unit;
  }
  return plain;
}

/// Runs an edit of every module below a folder and compares what would be written.
void ForEachModule(
    const char* folder,
    const std::function<void(Workspace&, host::VBComponent&, model::CodeModule&)>& check) {
  memory::MemoryPlatform services;
  const platform::ScopedPlatform scope(services);
  for (const fs::path& path : ProjectsBelow(folder)) {
    Workspace workspace(services, {});
    try {
      workspace.Open(path);
    } catch (const vb::Failure&) {
      continue;
    }
    const auto projects = workspace.VBE()->VBProjects();
    for (int p = 1; p <= projects->Count(); ++p) {
      const auto project = projects->Item(p);
      const auto components = project->VBComponents();
      for (int c = 1; c <= components->Count(); ++c) {
        const auto component = components->Item(c);
        const auto module = std::dynamic_pointer_cast<model::CodeModule>(component->CodeModule());
        if (module) check(workspace, *component, *module);
      }
    }
  }
}

TEST(RealProjects, EveryMemberWrittenAnewChangesNothingButTheLayout) {
  const char* const folder = test::ProjectsFolder();
  if (folder == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  ForEachModule(folder,
                [](Workspace& workspace, host::VBComponent& component, model::CodeModule& module) {
                  const std::string before = workspace.StoredBytes(component);
                  const auto expectSame = [&](const char* what) {
                    const std::string now = workspace.Bytes(component);
                    EXPECT_TRUE(WithoutIndent(now) == WithoutIndent(before))
                        << vb::ToUtf8(component.FileName()) << ": " << what;
                  };
                  module.InsertLines(1, u"' first");
                  module.DeleteLines(1, 1);
                  expectSame("a line inserted and deleted");
                  tools::RewriteMembers(module);
                  expectSame("each member");
                  tools::RewriteBelowDeclarations(module);
                  expectSame("all below the declarations");
                });
}

TEST(RealProjects, LoadAndSaveByteForByteAlsoWhenEveryModuleIsWrittenAnew) {
  const char* const folder = test::ProjectsFolder();
  if (folder == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  memory::MemoryPlatform services;
  const platform::ScopedPlatform scope(services);
  std::size_t modules = 0, members = 0;
  for (const fs::path& path : ProjectsBelow(folder)) {
    Workspace workspace(services, {});
    try {
      workspace.Open(path);
    } catch (const vb::Failure& failure) {
      std::cout << failure.what() << '\n';
      continue;
    }
    for (const vb::Failure& problem : workspace.Problems()) std::cout << problem.what() << '\n';
    EXPECT_TRUE(workspace.ChangedFiles().empty());
    const auto projects = workspace.VBE()->VBProjects();
    for (int p = 1; p <= projects->Count(); ++p) {
      const auto project = projects->Item(p);
      const auto components = project->VBComponents();
      for (int c = 1; c <= components->Count(); ++c) {
        const auto component = components->Item(c);
        const auto module = component->CodeModule();
        if (!module) continue;
        const auto table = mFunctions::AllNameProcedures(module, u"");
        members += table ? table->size() : 0;
        const int count = module->CountOfLines();
        const String text = module->Lines(1, count);
        auto* const own = dynamic_cast<model::CodeModule*>(module.get());
        own->SetModified(true);
        const std::string bytes = workspace.Bytes(*component);
        EXPECT_EQ(bytes == workspace.StoredBytes(*component), true)
            << vb::ToUtf8(component->FileName());
        ++modules;
      }
    }
  }
  std::cout << modules << " modules, " << members << " members\n";
}

}  // namespace
}  // namespace tessel::workspace
