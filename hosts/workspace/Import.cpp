#include "hosts/workspace/Import.h"

#include <algorithm>

#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/Paths.h"
#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

bool IsTemporary(const fs::path& file) {
  platform::App& app = platform::Current().App();
  // Without a folder for temporary files they lie in the program's own.
  String folder = app.TemporaryFolder();
  if (folder.empty()) folder = app.Path();
  std::error_code error;
  const fs::path within =
      fs::weakly_canonical(file, error).lexically_relative(fs::weakly_canonical(PathOf(folder)));
  return !error && !within.empty() && *within.begin() != "..";
}

/// What the project has already, or is itself, would be written over by what came in from there.
void CheckIsNew(model::VBProject& project, const fs::path& file) {
  const auto fail = [&](StringView why) {
    throw vb::Failure(vb::PathFileAccess, TextOf(file) + u": " + String(why), u"Tessel.workspace");
  };
  const String extension = TextOf(file.extension());
  for (const StringView one : {u".vbp", u".vbg", u".mak"}) {
    if (vb::SameText(extension, one)) fail(u"is a project and no component");
  }
  std::error_code error;
  for (const auto& component : project.Components().All()) {
    const String kept = component->Storage() ? component->Storage()->FileName() : String();
    if (kept.empty() || !fs::equivalent(PathOf(kept), file, error)) continue;
    fail(u"the project has it already, as the component \"" + component->PlainName() + u"\"");
  }
}

}  // namespace

std::shared_ptr<model::VBComponent> MakeComponent(const model::Hook& hook,
                                                  const std::shared_ptr<model::VBProject>& project,
                                                  const std::shared_ptr<ComponentFile>& file) {
  auto component = std::make_shared<model::VBComponent>(hook, project, file->Type(), file->Name());
  component->AddModule([file] { return file->LoadCode(); });
  try {
    if (auto tree = file->LoadDesigner()) component->AddDesigner(std::move(tree));
  } catch (const vb::Failure& failure) {
    throw vb::Failure(vb::InvalidCall, TextOf(file->Path()) + u": " + failure.Description(),
                      u"Tessel.workspace");
  }
  component->SetStorage(file);
  return component;
}

std::shared_ptr<model::VBComponent> ImportComponent(model::VBProject& project, StringView fileName,
                                                    ProjectPage& page) {
  const fs::path path = fs::absolute(PathOf(vb::Replace(fileName, u"\\", u"/"))).lexically_normal();
  std::string bytes = files::ReadFile(path);
  // What lies in the temporary folder was written for this project, in its page.
  const bool isTemporary = IsTemporary(path);
  if (!isTemporary) {
    CheckIsNew(project, path);
    page.Welcome(bytes, project);
  }
  const auto file = std::make_shared<ComponentFile>(path, std::move(bytes));
  file->SetCodePage(page.Current());
  auto component = MakeComponent(project.OwnHook(), project.shared_from_this(), file);
  if (isTemporary) file->TakeOver();
  auto& components = project.Components();
  if (components.Find(component->PlainName())) {
    component->PutName(components.FreeName(component->PlainName()));
    file->Renamed(*component);
  }
  components.Insert(component);
  return component;
}

}  // namespace tessel::workspace
