#include "hosts/workspace/Workspace.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "hosts/files/AtomicFile.h"
#include "hosts/files/FolderLocks.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/ComponentKinds.h"
#include "hosts/workspace/Import.h"
#include "hosts/workspace/OutsideChanges.h"
#include "hosts/workspace/Paths.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

constexpr int DefaultCodePage = 1252;

[[noreturn]] void Fail(const fs::path& file, StringView why) {
  throw vb::Failure(vb::InvalidCall, TextOf(file) + u": " + String(why), u"Tessel.workspace");
}

/// The files that the projects of a folder name.
std::set<fs::path> NamedFiles(const fs::path& folder) {
  std::set<fs::path> named;
  std::error_code error;
  for (const auto& one : fs::directory_iterator(folder, error)) {
    if (Lower(one.path().extension().string()) != ".vbp" || !one.is_regular_file(error)) continue;
    const std::string bytes = files::ReadFile(one.path());
    const int codePage = GuessCodePage({bytes});
    for (const ProjectEntry& entry : ProjectFile(one.path(), bytes).Entries()) {
      const fs::path file = ResolveNamed(folder, entry.File, codePage).lexically_normal();
      named.insert(file);
      named.insert(fs::path(file).replace_extension(".frx"));
    }
  }
  return named;
}

/// The folders that nobody else may write in from the check for outside changes to the last
/// replacement: of two processes the later one is to see what the earlier one wrote.
void AddFolders(const std::vector<PendingFile>& pending, std::set<fs::path>& folders) {
  for (const PendingFile& one : pending) {
    try {
      folders.insert(files::FolderOfTarget(one.Change.File));
    } catch (const vb::Failure&) {  // told when the file is written
    }
  }
}

/// Two changes of one file can't both be kept.
void CheckTargets(const std::vector<std::pair<fs::path, std::vector<PendingFile>>>& all) {
  std::map<fs::path, const std::string*> targets;
  for (const auto& [folder, pending] : all) {
    for (const PendingFile& one : pending) {
      std::error_code error;
      const fs::path target = fs::weakly_canonical(one.Change.File, error);
      const auto [at, fresh] = targets.emplace(error ? one.Change.File : target, &one.Change.Bytes);
      if (!fresh && *at->second != one.Change.Bytes) {
        Fail(one.Change.File,
             u"the file is open twice and was changed in both places; nothing was saved");
      }
    }
  }
}

void CheckCodePage(int codePage) {
  if (codePage == 0 || IsKnownCodePage(codePage)) return;
  throw vb::Failure(vb::InvalidCall, u"There is no code page " + vb::Str(codePage) + u" here",
                    u"Tessel");
}

/// The component of the model and its file.
struct Kept {
  std::shared_ptr<model::VBComponent> Component;
  std::shared_ptr<ComponentFile> File;
};

Kept KeptOf(const host::VBComponent& component) {
  const auto* const own = dynamic_cast<const model::VBComponent*>(&component);
  auto file = own == nullptr ? nullptr : FileOf(*own);
  if (!file) {
    throw vb::Failure(vb::SubscriptOutOfRange,
                      u"There is no component \"" + (own == nullptr ? String() : own->PlainName()) +
                          u"\" with a file",
                      u"Tessel");
  }
  return {std::const_pointer_cast<model::VBComponent>(own->shared_from_this()), std::move(file)};
}

String Listed(const std::vector<fs::path>& files) {
  std::vector<String> names;
  names.reserve(files.size());
  for (const fs::path& file : files) names.push_back(TextOf(file));
  return vb::Join(names, u", ");
}

}  // namespace

Workspace::Workspace(platform::Platform& platform, Options options)
    : Environment(platform), options_(options) {
  CheckCodePage(options.CodePage);
}

Workspace::~Workspace() = default;

Workspace::ProjectPtr Workspace::Find(const model::VBProject* project) const {
  const auto found = std::find_if(projects_.begin(), projects_.end(), [&](const auto& open) {
    return open->Project().get() == project;
  });
  return found == projects_.end() ? nullptr : *found;
}

std::vector<Problem> Workspace::Problems() const {
  std::vector<Problem> all = groupProblems_;
  for (const auto& open : projects_) {
    all.insert(all.end(), open->Problems().begin(), open->Problems().end());
  }
  return all;
}

std::vector<String> Workspace::TakeNotices() { return std::exchange(notices_, {}); }

void Workspace::FinishInterrupted(const fs::path& folder) {
  if (!options_.ReadsOnly) files::RemoveStrays(folder);
  // A folder may come from anybody, and so may a journal in it: files elsewhere are written only
  // where a project of the folder names them.
  std::optional<std::set<fs::path>> named;
  const auto isOurs = [&](const fs::path& file) {
    const bool source = KindOf(file) != nullptr || Lower(file.extension().string()) == ".vbp";
    const fs::path within = file.lexically_relative(folder.lexically_normal());
    if (source && !within.empty() && *within.begin() != "..") return true;
    if (!named) named = NamedFiles(folder);
    return named->contains(file);
  };
  if (options_.ReadsOnly) {
    const auto left = files::LeftByInterrupted(folder, isOurs);
    if (!left.empty()) {
      notices_.push_back(u"A save was interrupted, and is finished when something is saved: " +
                         Listed(left));
    }
    return;
  }
  for (const files::Finished& one : files::FinishInterrupted(folder, isOurs)) {
    if (!one.Written.empty()) {
      notices_.push_back(u"A save that was interrupted was finished: " + Listed(one.Written));
    }
    for (const auto& other : one.Others) {
      notices_.push_back(u"A save was interrupted, and " + TextOf(other.File) +
                         u" was changed since; what was to be saved lies in " +
                         TextOf(other.Beside));
    }
  }
}

std::vector<Problem> Workspace::Open(const fs::path& given, int codePage) {
  CheckCodePage(codePage);
  const fs::path file = fs::absolute(given).lexically_normal();
  if (!fs::exists(file)) {
    throw vb::Failure(vb::FileNotFound, TextOf(file) + u": the file does not exist",
                      u"Tessel.workspace");
  }
  std::vector<Problem> problems;
  const auto loaded = Load(file, codePage != 0 ? codePage : options_.CodePage, problems);
  groupProblems_.insert(groupProblems_.end(), problems.begin(), problems.end());
  Show(loaded);
  for (const auto& open : loaded) {
    problems.insert(problems.end(), open->Problems().begin(), open->Problems().end());
  }
  return problems;
}

void Workspace::OpenText(const fs::path& given, std::string bytes) {
  const fs::path file = fs::absolute(given).lexically_normal();
  Show({LoadedProject::LoadSingle(vbe_, file, std::move(bytes), options_.CodePage)});
}

/// What killed saves left beside the files of a project, which may lie in other folders or be
/// reached by links.
void Workspace::RemoveStraysOf(model::VBProject& project) const {
  std::set<fs::path> folders;
  for (const auto& component : project.Components().All()) {
    const auto file = workspace::FileOf(*component);
    try {
      if (file) folders.insert(files::FolderOfTarget(file->Path()));
    } catch (const vb::Failure&) {  // told when the file is written
    }
  }
  for (const fs::path& folder : folders) files::RemoveStrays(folder);
}

/// Makes loaded projects the environment's, and tells of them.
void Workspace::Show(const std::vector<ProjectPtr>& loaded) {
  for (const auto& open : loaded) {
    open->Attach();
    projects_.push_back(open);
    vbe_->Projects().All().push_back(open->Project());
    if (!options_.ReadsOnly) RemoveStraysOf(*open->Project());
  }
  vbe_->OwnHook()->Tell(&model::Observer::ProjectsChanged);
  vbe_->Activate(loaded.front()->Project());
  for (const auto& open : loaded) vbe_->OwnEvents().ProjectAdded(open->Project());
  vbe_->OwnWindows().ShowProperties();
}

std::vector<Workspace::ProjectPtr> Workspace::Load(const fs::path& file, int codePage,
                                                   std::vector<Problem>& problems) {
  const std::string extension = Lower(file.extension().string());
  if (extension == ".vbg") return LoadGroup(file, codePage, problems);
  FinishInterrupted(file.parent_path());
  return {extension == ".vbp"
              ? LoadedProject::Load(vbe_, file, codePage)
              : LoadedProject::LoadSingle(vbe_, file, files::ReadFile(file), codePage)};
}

std::vector<Workspace::ProjectPtr> Workspace::LoadGroup(const fs::path& file, int codePage,
                                                        std::vector<Problem>& problems) {
  const std::string bytes = files::ReadFile(file);
  const auto named = ReadGroup(bytes);
  if (named.empty()) Fail(file, u"is no project group: it names no project");
  std::vector<ProjectPtr> loaded;
  for (const std::string& project : named) {
    const fs::path path = ResolveNamed(file.parent_path(), project,
                                       codePage != 0 ? codePage : GuessCodePage({bytes}));
    try {
      if (!fs::exists(path)) Fail(file, u"the project does not exist: " + TextOf(path));
      FinishInterrupted(path.parent_path());
      loaded.push_back(LoadedProject::Load(vbe_, path, codePage));
    } catch (const vb::Failure& failure) {
      problems.emplace_back(failure, path);
    }
  }
  if (loaded.empty()) throw vb::Failure(problems.front());
  return loaded;
}

std::vector<fs::path> Workspace::Write(const fs::path& folder, std::vector<PendingFile>& pending) {
  std::vector<files::Change> changes;
  std::vector<fs::path> written;
  for (PendingFile& one : pending) {
    written.push_back(one.Change.File);
    changes.push_back(std::move(one.Change));
  }
  files::WriteTogether(folder, changes);
  for (std::size_t at = 0; at < pending.size(); ++at) pending[at].Written(changes[at].Bytes);
  return written;
}

std::vector<fs::path> Workspace::Save() {
  std::vector<std::pair<fs::path, std::vector<PendingFile>>> all;
  for (const auto& open : projects_) {
    FinishInterrupted(open->Folder());
    open->Collect(all.emplace_back(open->Folder(), std::vector<PendingFile>()).second);
  }
  std::set<fs::path> folders;
  for (const auto& [folder, pending] : all) AddFolders(pending, folders);
  const files::FolderLocks locks(folders);
  for (const auto& [folder, pending] : all) CheckOutside(pending);
  CheckTargets(all);
  std::vector<fs::path> written;
  for (auto& [folder, pending] : all) {
    try {
      const auto files = Write(folder, pending);
      written.insert(written.end(), files.begin(), files.end());
    } catch (const vb::Failure& failure) {
      if (written.empty()) throw;
      throw vb::Failure(failure.Number(),
                        failure.Description() + u"; these files are saved: " + Listed(written),
                        failure.Source());
    }
  }
  return written;
}

void Workspace::SaveComponent(const host::VBComponent& component) {
  const Kept kept = KeptOf(component);
  const ProjectPtr open = Find(kept.Component->Project().get());
  if (!open) return;
  std::vector<PendingFile> pending;
  open->Collect(*kept.Component, pending);
  std::set<fs::path> folders;
  AddFolders(pending, folders);
  const files::FolderLocks locks(folders);
  CheckOutside(pending);
  Write(open->Folder(), pending);
}

void Workspace::AcceptOutside(const std::shared_ptr<model::VBProject>& project) {
  if (const ProjectPtr open = Find(project.get())) open->AcceptOutside();
}

void Workspace::AcceptOutside(const host::VBComponent& component) {
  const Kept kept = KeptOf(component);
  kept.File->SetSeen(files::PresentBytes(kept.File->Path()));
}

std::optional<std::string> Workspace::KnownBytes(const model::VBProject& project) const {
  const ProjectPtr open = Find(&project);
  return open ? open->KnownBytes() : std::nullopt;
}

std::vector<fs::path> Workspace::ChangedFiles() const {
  std::vector<fs::path> changed;
  for (const auto& open : projects_) {
    const auto files = open->ChangedFiles();
    changed.insert(changed.end(), files.begin(), files.end());
  }
  return changed;
}

std::vector<fs::path> Workspace::SaveProjectAs(const std::shared_ptr<model::VBProject>& project,
                                               const fs::path& given) {
  const fs::path file = fs::absolute(given).lexically_normal();
  const ProjectPtr known = Find(project.get());
  if (known && known->File()) Fail(file, u"the project is kept in " + project->File);
  std::vector<std::shared_ptr<model::ComponentStorage>> before;
  for (const auto& one : project->Components().All()) before.push_back(one->Storage());
  const ProjectPtr open = LoadedProject::Found(project, file, options_.CodePage);
  std::vector<fs::path> written;
  try {
    std::vector<PendingFile> pending;
    open->Collect(pending);
    // The dialog has asked about the project's own file.
    pending.back().Change.Before = files::PresentBytes(file);
    written = Write(file.parent_path(), pending);
  } catch (...) {
    auto next = before.begin();
    for (const auto& one : project->Components().All()) one->SetStorage(*next++);
    throw;
  }
  open->Attach();
  project->File = TextOf(file);
  std::erase(projects_, known);
  projects_.push_back(open);
  vbe_->OwnWindows().ShowProperties();
  return written;
}

bool Workspace::IsUnnamed(const model::VBProject& project) const { return !Find(&project); }

void Workspace::SaveComponentAs(const host::VBComponent& component, const fs::path& file) {
  const Kept kept = KeptOf(component);
  kept.File->MoveTo(*kept.Component, fs::absolute(file).lexically_normal());
}

/// A project that was never saved takes components in and gives them out, too.
void Workspace::ProjectMade(model::VBProject& project) {
  const bool isChosen = options_.CodePage != 0;
  const auto page =
      std::make_shared<ProjectPage>(isChosen ? options_.CodePage : DefaultCodePage, isChosen);
  // The project holds these, so it is alive when they run.
  project.Decoder = [&project, page](std::string_view bytes) {
    return page->TextOf(bytes, project);
  };
  project.Encoder = [&project, page](StringView text, std::size_t& at) {
    return page->BytesOf(text, at, project);
  };
  project.Importer = [&project, page](StringView fileName) {
    return ImportComponent(project, fileName, *page);
  };
  project.Exporter = [&project, page](model::VBComponent& component, StringView fileName) {
    page->Fit(project);
    ComponentFile({}, component, page->Current()).SaveAs(component, fileName);
  };
}

void Workspace::Close(const std::shared_ptr<model::VBProject>& project) {
  RemoveProject(project);
  std::erase(projects_, Find(project.get()));
  if (projects_.empty()) groupProblems_.clear();
}

void Workspace::Reload(const host::VBComponent& given) {
  const auto [component, before] = KeptOf(given);
  const auto fresh =
      std::make_shared<ComponentFile>(before->Path(), files::ReadFile(before->Path()));
  fresh->SetCodePage(before->CodePage());
  auto tree = fresh->LoadDesigner();
  component->Module()->Reload(fresh->LoadCode());
  component->SetStorage(fresh);
  if (tree) component->AddDesigner(std::move(tree));
  vbe_->OwnHook()->Tell(&model::Observer::DesignerChanged, *component);
  vbe_->OwnWindows().ShowProperties();
}

fs::path Workspace::FileOf(const host::VBComponent& component) const {
  return KeptOf(component).File->Path();
}

int Workspace::CodePageOf(const host::VBComponent& component) const {
  return KeptOf(component).File->CodePage();
}

bool Workspace::IsModified(const host::VBComponent& component) const {
  const Kept kept = KeptOf(component);
  return kept.File->IsModified(*kept.Component);
}

std::string Workspace::Bytes(const host::VBComponent& component) const {
  const Kept kept = KeptOf(component);
  return kept.File->Compose(*kept.Component);
}

std::string Workspace::StoredBytes(const host::VBComponent& component) const {
  return KeptOf(component).File->StoredBytes();
}

int Workspace::FileLine(const host::VBComponent& component, int codeLine) const {
  return KeptOf(component).File->FileLine(codeLine);
}

}  // namespace tessel::workspace
