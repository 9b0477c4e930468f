#include "hosts/workspace/LoadedProject.h"

#include <algorithm>

#include "foundation/DeviceNames.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/ComponentKinds.h"
#include "hosts/workspace/Import.h"
#include "hosts/workspace/Paths.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
using ComponentPtr = std::shared_ptr<model::VBComponent>;
using FilePtr = std::shared_ptr<ComponentFile>;

[[noreturn]] void Fail(const fs::path& file, StringView why) {
  throw vb::Failure(vb::InvalidCall, TextOf(file) + u": " + String(why), u"Tessel.workspace");
}

/// A component without code stands for a file and nothing else.
class OtherFile : public model::ComponentStorage {
 public:
  explicit OtherFile(fs::path path) : path_(std::move(path)) {}
  [[nodiscard]] String FileName() const override { return TextOf(path_); }
  void SaveAs(model::VBComponent&, StringView) override {
    Fail(path_, u"a file without code is not written by the environment");
  }
  void Renamed(model::VBComponent&) override {}

 private:
  fs::path path_;
};

int GuessFor(const std::vector<FilePtr>& files, std::string_view more) {
  std::vector<std::string_view> bytes{more};
  for (const FilePtr& file : files) {
    if (!file->HasByteOrderMark()) bytes.emplace_back(file->StoredBytes());
  }
  return GuessCodePage(bytes);
}

/// The file's own name for a component without one: "Module1.bas".
fs::path PlainPath(const fs::path& folder, const model::VBComponent& component,
                   StringView more = {}) {
  const ComponentKind* const kind = KindOf(component.PlainType());
  const String ending = vb::FromUtf8(std::string(kind == nullptr ? "" : kind->Extension));
  return folder / PathOf(component.PlainName() + String(more) + ending);
}

/// Whether a file of that name lies in its folder, in any case as the other system sees it.
bool IsTaken(const fs::path& file) {
  std::error_code error;
  return fs::exists(ResolvePath(file.parent_path(), file.filename()), error);
}

/// Names that are tried before a clash of companions is left to the save.
constexpr int MostTried = 100;

bool IsForm(const model::VBComponent& component) {
  return component.PlainType() == host::vbext_ct_VBForm ||
         component.PlainType() == host::vbext_ct_VBMDIForm;
}

bool HasSubMain(const model::VBComponent& component) {
  if (component.PlainType() != host::vbext_ct_StdModule || !component.Module()) return false;
  const auto& members = component.Module()->Index().Members();
  return std::any_of(members.begin(), members.end(), [](const auto& member) {
    return member.Kind == host::vbext_pk_Proc && vb::SameText(member.Name, u"Main");
  });
}

/// The key of each kind of project, by number.
constexpr const char* ProjectTypes[] = {"Exe", "OleExe", "OleDll", "Control"};

}  // namespace

FilePtr FileOf(const model::VBComponent& component) {
  return std::dynamic_pointer_cast<ComponentFile>(component.Storage());
}

std::shared_ptr<LoadedProject> LoadedProject::Load(const std::shared_ptr<model::Vbe>& vbe,
                                                   const fs::path& path, int codePage) {
  std::shared_ptr<LoadedProject> loaded(
      new LoadedProject(path.parent_path(), codePage == 0 ? 1252 : codePage, codePage != 0));
  const std::string bytes = files::ReadFile(path);
  loaded->file_ = std::make_unique<ProjectFile>(path, bytes);
  const std::size_t nul = bytes.find('\0');
  const bool padded =
      bytes.find_first_not_of('\0', std::min(nul, bytes.size())) == std::string::npos;
  if (!padded || !loaded->file_->Value("Type")) {
    Fail(path, u"is no project file: it has no line \"Type=\"");
  }
  loaded->LoadComponents(vbe);
  return loaded;
}

void LoadedProject::LoadComponents(const std::shared_ptr<model::Vbe>& vbe) {
  struct Read {
    ProjectEntry Entry;
    fs::path Path;
    FilePtr File;
  };
  const std::string bytes = file_->Bytes();
  const fs::path folder = Folder();
  const int likely = isChosen_ ? page_.Current() : GuessCodePage({bytes});
  std::vector<Read> all;
  std::vector<FilePtr> files;
  std::vector<std::string> names;
  std::vector<std::pair<vb::Failure, Read>> failed;
  for (ProjectEntry& entry : file_->Entries()) {
    Read one{std::move(entry), {}, nullptr};
    one.Path = ResolveNamed(folder, one.Entry.File, likely);
    names.push_back(one.Entry.File);
    try {
      if (HoldsCode(one.Entry.Type)) {
        if (!fs::exists(one.Path)) {
          throw vb::Failure(vb::FileNotFound,
                            TextOf(file_->Path()) + u":" + vb::Str(one.Entry.Line + 1) +
                                u": the component's file does not exist: " + TextOf(one.Path),
                            u"Tessel.workspace");
        }
        one.File = std::make_shared<ComponentFile>(one.Path, files::ReadFile(one.Path));
        files.push_back(one.File);
      }
      all.push_back(std::move(one));
    } catch (const vb::Failure& failure) {
      failed.emplace_back(failure, std::move(one));
    }
  }
  if (!isChosen_) {
    const int ofNames = CodePageOfNames(folder, names, likely);
    const bool byNames = ofNames != 0 && ofNames != likely;
    page_ = ProjectPage(byNames ? ofNames : GuessFor(files, bytes), byNames);
  }
  const String name =
      Decode(file_->Value("Name").value_or(file_->Path().stem().string()), page_.Current());
  project_ = std::make_shared<model::VBProject>(vbe->OwnHook(), vbe, name, file_->Type());
  project_->File = TextOf(file_->Path());
  for (auto& [failure, read] : failed) AddProblem(failure, read.Entry, read.Path);
  for (const Read& one : all) {
    ComponentPtr component;
    if (one.File) {
      one.File->SetCodePage(page_.Current());
      try {
        component = MakeComponent(vbe->OwnHook(), project_, one.File);
      } catch (const vb::Failure& failure) {
        AddProblem(failure, one.Entry, one.Path);
        continue;
      }
    } else {
      component = std::make_shared<model::VBComponent>(vbe->OwnHook(), project_, one.Entry.Type,
                                                       TextOf(one.Path.filename()));
      component->SetStorage(std::make_shared<OtherFile>(one.Path));
    }
    project_->Components().Insert(component);
    entries_[component.get()] = {one.Entry.Id, one.Path, component->PlainName()};
  }
}

void LoadedProject::AddProblem(const vb::Failure& failure, const ProjectEntry& entry,
                               const fs::path& file) {
  Problem problem(failure, file);
  problem.Project = project_;
  problem.Type = entry.Type;
  problem.Component =
      entry.Name.empty() ? TextOf(file.stem()) : Decode(entry.Name, page_.Current());
  problems_.push_back(std::move(problem));
  named_.push_back(file);
}

std::shared_ptr<LoadedProject> LoadedProject::LoadSingle(const std::shared_ptr<model::Vbe>& vbe,
                                                         const fs::path& path, std::string bytes,
                                                         int codePage) {
  const auto file = std::make_shared<ComponentFile>(path, std::move(bytes));
  std::shared_ptr<LoadedProject> loaded(new LoadedProject(
      path.parent_path(), codePage != 0 ? codePage : GuessFor({file}, {}), codePage != 0));
  file->SetCodePage(loaded->page_.Current());
  loaded->project_ = std::make_shared<model::VBProject>(
      vbe->OwnHook(), vbe, vbe->Projects().FreeName(), host::vbext_pt_StandardExe);
  const auto component = MakeComponent(vbe->OwnHook(), loaded->project_, file);
  loaded->project_->Components().Insert(component);
  return loaded;
}

std::shared_ptr<LoadedProject> LoadedProject::Found(
    const std::shared_ptr<model::VBProject>& project, const fs::path& path, int codePage) {
  std::shared_ptr<LoadedProject> loaded(
      new LoadedProject(path.parent_path(), codePage != 0 ? codePage : 1252, codePage != 0));
  loaded->project_ = project;
  loaded->page_.Fit(*project);
  const std::string text = std::string("Type=") + ProjectTypes[project->ProjectType] +
                           "\r\nStartup=\"(None)\"\r\nName=\"" +
                           loaded->InCodePage(project->PlainName()) +
                           "\"\r\nMajorVer=1\r\nMinorVer=0\r\nRevisionVer=0\r\n"
                           "CompilationType=0\r\n";
  loaded->file_ = std::make_unique<ProjectFile>(path, text);
  loaded->file_->Stored({});
  const auto& components = project->Components().All();
  const auto isHomeless = [](const ComponentPtr& component) {
    const FilePtr file = FileOf(*component);
    return !component->Storage() || (file && file->IsNew());
  };
  for (const auto& component : components) {
    if (!isHomeless(component)) continue;
    const fs::path file = PlainPath(path.parent_path(), *component);
    if (IsTaken(file)) Fail(file, u"the file exists already");
    if (IsDeviceName(TextOf(file.stem()))) Fail(file, u"Windows keeps the name for a device");
  }
  for (const auto& component : components) {
    if (!isHomeless(component)) continue;
    fs::path file = PlainPath(path.parent_path(), *component);
    if (const FilePtr imported = FileOf(*component)) {
      imported->SetPath(*component, std::move(file));
    } else {
      component->SetStorage(
          std::make_shared<ComponentFile>(std::move(file), *component, loaded->page_.Current()));
    }
  }
  return loaded;
}

void LoadedProject::Attach() {
  const std::weak_ptr<LoadedProject> weak = weak_from_this();
  project_->OnAdded = [weak](const ComponentPtr& component) {
    if (const auto self = weak.lock()) self->Added(component);
  };
  project_->OnRemoved = [weak](const ComponentPtr& component) {
    if (const auto self = weak.lock()) self->Removed(*component);
  };
  project_->Decoder = [weak](std::string_view bytes) {
    const auto self = weak.lock();
    return self ? self->page_.TextOf(bytes, *self->project_) : Decode(bytes, Utf8CodePage);
  };
  project_->Encoder = [weak](StringView text, std::size_t& at) {
    const auto self = weak.lock();
    return self ? self->page_.BytesOf(text, at, *self->project_) : Encode(text, Utf8CodePage, at);
  };
  page_.OwnBytes = [weak] {
    const auto self = weak.lock();
    return self && self->file_ ? self->file_->Bytes() : std::string();
  };
  project_->Importer = [weak](StringView fileName) {
    const auto self = weak.lock();
    return self ? self->Import(fileName) : nullptr;
  };
}

/// A new component, or one of another name that isn't written yet.
void LoadedProject::Added(const ComponentPtr& component) {
  if (!component->Storage()) {
    component->SetStorage(
        std::make_shared<ComponentFile>(FreePath(*component, {}), *component, page_.Current()));
  } else if (const FilePtr file = FileOf(*component); file && file->IsNew()) {
    file->SetPath(*component, FreePath(*component, {}));
  }
}

void LoadedProject::Removed(const model::VBComponent& component) {
  const auto entry = entries_.find(&component);
  if (entry == entries_.end()) return;
  if (file_) {
    file_->RemoveEntry(entry->second.Id);
    FollowRemoved(component, entry->second.Name);
  }
  entries_.erase(entry);
}

/// A project that began with a form that is gone begins with Sub Main where it has one, else with
/// nothing; its icon is that of the first form that is left.
void LoadedProject::FollowRemoved(const model::VBComponent& component, const String& name) {
  const auto names = [&](const char* key) {
    const auto value = file_->Value(key);
    return value && vb::SameText(Decode(*value, page_.Current()), name);
  };
  const auto& all = project_->Components().All();
  const auto find = [&](const auto& accept) {
    return std::find_if(all.begin(), all.end(), [&](const ComponentPtr& one) {
      return one.get() != &component && accept(*one);
    });
  };
  if (names("Startup")) {
    const bool main = find(HasSubMain) != all.end();
    file_->SetValue("Startup", main ? "Sub Main" : "(None)");
  }
  if (!names("IconForm")) return;
  const auto form = find(IsForm);
  if (form == all.end()) {
    file_->RemoveValue("IconForm");
  } else {
    file_->SetValue("IconForm", InCodePage((*form)->PlainName()));
  }
}

ComponentPtr LoadedProject::Import(StringView fileName) {
  auto component = ImportComponent(*project_, fileName, page_);
  const FilePtr file = FileOf(*component);
  if (file->IsNew()) {
    file->SetPath(*component, FreePath(*component, {}));
  } else if (file_) {
    Follow(*component, *file_, entries_);
  }
  return component;
}

/// A place beside the project that no file has and no component is to get: "Module1.bas",
/// "Module1_2.bas" ... No file is named like a device. Companions that wait with the component find
/// room beside it.
fs::path LoadedProject::FreePath(const model::VBComponent& component,
                                 const std::vector<PendingFile>& pending) const {
  const auto isMeant = [&](const fs::path& path) {
    const auto& all = project_->Components().All();
    return std::any_of(named_.begin(), named_.end(),
                       [&](const fs::path& one) { return SamePath(one, path); }) ||
           std::any_of(pending.begin(), pending.end(),
                       [&](const PendingFile& one) { return SamePath(one.Change.File, path); }) ||
           std::any_of(all.begin(), all.end(), [&](const ComponentPtr& other) {
             const FilePtr file = FileOf(*other);
             return other.get() != &component && file && SamePath(file->Path(), path);
           });
  };
  const FilePtr own = FileOf(component);
  const auto companionsFit = [&](const fs::path& path) {
    if (!own) return true;
    const auto names =
        NamesBeside(path, own->Path(), own->Carried(), own->CodePage(), Following::AndLoneOnes);
    for (std::size_t at = 0; at < names.size(); ++at) {
      const auto there = files::PresentBytes(ResolveNamed(Folder(), names[at], own->CodePage()));
      if (there && *there != own->Carried()[at].Bytes) return false;
    }
    return true;
  };
  for (int number = 1;; ++number) {
    fs::path path = PlainPath(Folder(), component, number == 1 ? String() : u"_" + vb::Str(number));
    // What can't be renamed is told by the save.
    const bool isLast = number > MostTried;
    if (!IsDeviceName(TextOf(path.stem())) && !IsTaken(path) && !isMeant(path) &&
        (isLast || companionsFit(path)))
      return path;
  }
}

std::string LoadedProject::InCodePage(StringView text) const {
  std::size_t at = 0;
  auto bytes = Encode(text, page_.Current(), at);
  if (bytes) return *std::move(bytes);
  Fail(file_ ? file_->Path() : fs::path(),
       u"the character \"" + String(text.substr(at, 1)) + u"\" of \"" + String(text) +
           u"\" is not in code page " + vb::Str(page_.Current()) + u"; nothing was written");
}

/// The component's own line, and those that name it, say what it is called and where it is kept.
void LoadedProject::Follow(const model::VBComponent& component, ProjectFile& project,
                           Entries& entries) const {
  const FilePtr file = FileOf(component);
  if (!file) return;
  const String& name = component.PlainName();
  const auto written = [&] { return InCodePage(WrittenPath(file->Path(), project.Path())); };
  const auto known = entries.find(&component);
  if (known == entries.end()) {
    const int id = project.AddEntry(component.PlainType(), InCodePage(name), written());
    entries[&component] = {id, file->Path(), name};
    return;
  }
  Entry& entry = known->second;
  if (entry.File != file->Path()) project.SetEntryFile(entry.Id, written());
  if (entry.Name != name) {
    project.SetEntryName(entry.Id, InCodePage(name));
    for (const char* key : {"Startup", "IconForm"}) {
      const auto value = project.Value(key);
      if (value && vb::SameText(Decode(*value, page_.Current()), entry.Name)) {
        project.SetValue(key, InCodePage(name));
      }
    }
  }
  entry.File = file->Path();
  entry.Name = name;
}

void LoadedProject::CollectComponent(const ComponentPtr& component,
                                     std::vector<PendingFile>& pending) {
  const FilePtr file = FileOf(*component);
  if (!file) return;
  if (file->IsNew() && !file_) {
    Fail(file->Path(), u"the project was never saved, so the component has no place");
  }
  if (file->IsNew()) file->SetPath(*component, FreePath(*component, pending));
  if (file_) Follow(*component, *file_, entries_);
  if (!file->IsModified(*component)) return;
  std::string bytes = file->Compose(*component);
  const bool isNew = file->IsNew();
  if (bytes == file->StoredBytes() && !isNew) return;
  CollectCarried(*file, pending);
  auto before = isNew ? std::nullopt : file->KnownBytes();
  pending.push_back(
      {{file->Path(), std::move(before), std::move(bytes)},
       [file, component](const std::string& stored) { file->Stored(*component, stored); }});
}

/// The companions that wait with an imported component.
void LoadedProject::CollectCarried(const ComponentFile& file, std::vector<PendingFile>& pending) {
  for (const Companion& one : file.Carried()) {
    const auto there = files::PresentBytes(one.File);
    if (there && *there != one.Bytes) {
      Fail(one.File,
           u"another file of this name is there already, and the component's pictures "
           u"would have to stand in it; nothing was written");
    }
    if (!there) pending.push_back({{one.File, std::nullopt, one.Bytes}, [](const auto&) {}});
  }
}

std::optional<std::string> LoadedProject::KnownBytes() const {
  if (seen_) return *seen_;
  if (!file_ || file_->StoredBytes().empty()) return std::nullopt;
  return file_->StoredBytes();
}

void LoadedProject::CollectFile(std::vector<PendingFile>& pending) {
  if (!file_ || !file_->IsModified()) return;
  const auto self = shared_from_this();
  pending.push_back(
      {{file_->Path(), KnownBytes(), file_->Bytes()}, [self](const std::string& bytes) {
         self->file_->Stored(bytes);
         self->seen_.reset();
       }});
}

void LoadedProject::Collect(std::vector<PendingFile>& pending) {
  for (const auto& component : project_->Components().All()) CollectComponent(component, pending);
  CollectFile(pending);
}

void LoadedProject::Collect(model::VBComponent& component, std::vector<PendingFile>& pending) {
  CollectComponent(component.shared_from_this(), pending);
  CollectFile(pending);
}

std::vector<fs::path> LoadedProject::ChangedFiles() const {
  std::vector<fs::path> changed;
  std::optional<ProjectFile> project;
  Entries entries = entries_;
  if (file_) project = *file_;
  bool follows = true;
  for (const auto& component : project_->Components().All()) {
    const FilePtr file = FileOf(*component);
    if (!file) continue;
    if (file->IsModified(*component)) changed.push_back(file->Path());
    try {
      if (project) Follow(*component, *project, entries);
    } catch (const vb::Failure&) {
      follows = false;  // the save will say so
    }
  }
  if (project && (!follows || project->IsModified())) changed.push_back(file_->Path());
  return changed;
}

void LoadedProject::AcceptOutside() {
  for (const auto& component : project_->Components().All()) {
    const FilePtr file = FileOf(*component);
    if (!file || file->IsNew()) continue;
    file->SetSeen(files::PresentBytes(file->Path()));
  }
  if (file_) seen_ = files::PresentBytes(file_->Path());
}

}  // namespace tessel::workspace
