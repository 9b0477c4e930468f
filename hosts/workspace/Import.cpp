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
  if (!IsTemporary(path)) page.Welcome(bytes, project);
  const auto file = std::make_shared<ComponentFile>(path, std::move(bytes));
  file->SetCodePage(page.Current());
  auto component = MakeComponent(project.OwnHook(), project.shared_from_this(), file);
  if (IsTemporary(path)) file->TakeOver();
  auto& components = project.Components();
  if (components.Find(component->PlainName())) {
    component->PutName(components.FreeName(component->PlainName()));
    file->Renamed(*component);
  }
  components.Insert(component);
  return component;
}

}  // namespace tessel::workspace
