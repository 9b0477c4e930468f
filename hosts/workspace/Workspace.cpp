#include "hosts/workspace/Workspace.h"

#include <algorithm>
#include <functional>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/AtomicFile.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/ProjectFile.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
using FilePtr = std::shared_ptr<ComponentFile>;

[[noreturn]] void Fail(const fs::path& file, StringView why) {
  throw vb::Failure(vb::InvalidCall, file.u16string() + u": " + String(why), u"Tessel.workspace");
}

FilePtr StorageOf(const model::VBComponent& component) {
  return std::dynamic_pointer_cast<ComponentFile>(component.Storage());
}

std::string LowerExtension(const fs::path& file) {
  std::string extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(), [](char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + 32) : unit;
  });
  return extension;
}

struct TypeExtension {
  host::vbext_ComponentType Type;
  const char* Extension;
};
constexpr TypeExtension Extensions[] = {
    {host::vbext_ct_StdModule, ".bas"}, {host::vbext_ct_ClassModule, ".cls"},
    {host::vbext_ct_VBForm, ".frm"},    {host::vbext_ct_VBMDIForm, ".frm"},
    {host::vbext_ct_PropPage, ".pag"},  {host::vbext_ct_UserControl, ".ctl"},
    {host::vbext_ct_DocObject, ".dob"}, {host::vbext_ct_ActiveXDesigner, ".dsr"}};

const char* ExtensionOf(host::vbext_ComponentType type) {
  for (const TypeExtension& one : Extensions) {
    if (one.Type == type) return one.Extension;
  }
  return ".bas";
}

bool HoldsCode(host::vbext_ComponentType type) {
  return type != host::vbext_ct_ResFile && type != host::vbext_ct_RelatedDocument;
}

/// A component without code stands for a file and nothing else.
class OtherFile : public model::ComponentStorage {
 public:
  explicit OtherFile(fs::path path) : path_(std::move(path)) {}
  [[nodiscard]] String FileName() const override { return path_.u16string(); }
  void SaveAs(model::VBComponent&, StringView) override {
    Fail(path_, u"a file without code is not written by the environment");
  }
  void Renamed(model::VBComponent&) override {}

 private:
  fs::path path_;
};

}  // namespace

struct Workspace::Impl {
  struct OpenProject {
    std::shared_ptr<model::VBProject> Project;
    std::unique_ptr<ProjectFile> File;  // null for a project that is never written
    int CodePage = 1252;
    bool Loading = true;
  };

  explicit Impl(Options chosen) : Choice(chosen) {}

  Options Choice;
  std::vector<std::shared_ptr<OpenProject>> Projects;
  std::vector<vb::Failure> Problems;

  [[nodiscard]] std::shared_ptr<OpenProject> Find(const model::VBProject* project) const {
    for (const auto& open : Projects) {
      if (open->Project.get() == project) return open;
    }
    return nullptr;
  }

  /// Reads one file; where bad components are left out, notes the failure and answers null.
  FilePtr Load(const fs::path& path) {
    if (!Choice.SkipBadComponents) return std::make_shared<ComponentFile>(path, ReadFile(path));
    try {
      return std::make_shared<ComponentFile>(path, ReadFile(path));
    } catch (const vb::Failure& failure) {
      Problems.push_back(failure);
      return nullptr;
    }
  }

  [[nodiscard]] int CodePageOf(const std::vector<FilePtr>& files, std::string_view more) const {
    if (Choice.CodePage != 0) return Choice.CodePage;
    std::vector<std::string_view> bytes{more};
    for (const FilePtr& file : files) {
      if (!file->HasByteOrderMark()) bytes.emplace_back(file->StoredBytes());
    }
    return GuessCodePage(bytes);
  }
};

namespace {

/// Makes the component of a file. Its head is read now, its code when somebody asks for it.
std::shared_ptr<model::VBComponent> MakeComponent(const model::Hook& hook,
                                                  const std::shared_ptr<model::VBProject>& project,
                                                  const FilePtr& file) {
  auto component = std::make_shared<model::VBComponent>(hook, project, file->Type(), file->Name());
  component->AddModule([file] { return file->LoadCode(); });
  try {
    if (auto tree = file->LoadDesigner()) component->AddDesigner(std::move(tree));
  } catch (const vb::Failure& failure) {
    Fail(file->Path(), failure.Description());
  }
  component->SetStorage(file);
  return component;
}

/// How a project names a file: relative to its own folder, with the other system's separators.
std::string WrittenPath(const fs::path& file, const fs::path& project) {
  std::string text =
      fs::absolute(file).lexically_relative(fs::absolute(project).parent_path()).string();
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

}  // namespace

Workspace::Workspace(platform::Platform& platform, Options options)
    : Environment(platform), impl_(std::make_unique<Impl>(options)) {
  if (options.CodePage != 0 && !IsKnownCodePage(options.CodePage)) {
    throw vb::Failure(vb::InvalidCall,
                      u"There is no code page " + vb::Str(options.CodePage) + u" here", u"Tessel");
  }
}

Workspace::~Workspace() = default;

const std::vector<vb::Failure>& Workspace::Problems() const { return impl_->Problems; }

namespace {

/// A file named in some code page: the one that leads to a file that exists is right.
fs::path ResolveNamed(const fs::path& folder, const std::string& written, int likely) {
  fs::path path = ResolvePath(folder, fs::path(vb::ToUtf8(Decode(written, likely))));
  if (fs::exists(path)) return path;
  for (const int codePage :
       {Utf8CodePage, 932, 1252, 1251, 1250, 936, 949, 950, 1253, 1254, 1257}) {
    fs::path other = ResolvePath(folder, fs::path(vb::ToUtf8(Decode(written, codePage))));
    if (fs::exists(other)) return other;
  }
  return path;
}

/// Reads a project and everything that it names, without telling anybody yet.
template <class Impl, class OpenProject>
std::shared_ptr<OpenProject> LoadProject(Impl& impl, const std::shared_ptr<model::Vbe>& vbe,
                                         const fs::path& path) {
  auto open = std::make_shared<OpenProject>();
  open->File = std::make_unique<ProjectFile>(path, ReadFile(path));
  const std::string projectBytes = open->File->Bytes();
  if (projectBytes.find('\0') != std::string::npos || !open->File->Value("Type")) {
    Fail(path, u"is no project file: it has no line \"Type=\"");
  }
  const int pathPage = impl.CodePageOf({}, projectBytes);
  struct Loaded {
    FilePtr File;
    fs::path Path;
    ProjectEntry Entry;
  };
  std::vector<Loaded> loaded;
  std::vector<FilePtr> files;
  for (ProjectEntry& entry : open->File->Entries()) {
    const fs::path file = ResolveNamed(path.parent_path(), entry.File, pathPage);
    FilePtr component;
    if (HoldsCode(entry.Type)) {
      if (!fs::exists(file)) {
        const vb::Failure missing(vb::FileNotFound,
                                  path.u16string() + u":" + vb::Str(entry.Line + 1) +
                                      u": the component's file does not exist: " + file.u16string(),
                                  u"Tessel.workspace");
        if (!impl.Choice.SkipBadComponents) throw missing;
        impl.Problems.push_back(missing);
        continue;
      }
      component = impl.Load(file);
      if (!component) continue;
      files.push_back(component);
    }
    loaded.push_back({component, file, std::move(entry)});
  }
  open->CodePage = impl.CodePageOf(files, projectBytes);
  const String name =
      Decode(open->File->Value("Name").value_or(path.stem().string()), open->CodePage);
  open->Project = std::make_shared<model::VBProject>(vbe->OwnHook(), vbe, name, open->File->Type());
  open->Project->File = path.u16string();
  for (const Loaded& one : loaded) {
    if (one.File) {
      one.File->SetCodePage(open->CodePage);
      open->Project->Components().Insert(MakeComponent(vbe->OwnHook(), open->Project, one.File));
    } else {
      auto other = std::make_shared<model::VBComponent>(
          vbe->OwnHook(), open->Project, one.Entry.Type, one.Path.filename().u16string());
      other->SetStorage(std::make_shared<OtherFile>(one.Path));
      open->Project->Components().Insert(other);
    }
  }
  return open;
}

/// A project around one component file.
template <class Impl, class OpenProject>
std::shared_ptr<OpenProject> LoadSingle(Impl& impl, const std::shared_ptr<model::Vbe>& vbe,
                                        const fs::path& path, std::string bytes) {
  auto open = std::make_shared<OpenProject>();
  const auto file = std::make_shared<ComponentFile>(path, std::move(bytes));
  open->CodePage = impl.CodePageOf({file}, {});
  file->SetCodePage(open->CodePage);
  String name = u"Project1";
  for (int number = 2; vbe->Projects().Find(name); ++number) name = u"Project" + vb::Str(number);
  open->Project =
      std::make_shared<model::VBProject>(vbe->OwnHook(), vbe, name, host::vbext_pt_StandardExe);
  open->Project->Components().Insert(MakeComponent(vbe->OwnHook(), open->Project, file));
  return open;
}

/// Ties a loaded project to its files: new components get one, the project's own lines follow.
template <class Impl, class OpenProject>
void Attach(Impl& impl, const std::shared_ptr<model::Vbe>& vbe,
            const std::shared_ptr<OpenProject>& open) {
  const std::weak_ptr<OpenProject> weak = open;
  const fs::path folder = open->File ? open->File->Path().parent_path() : fs::path();
  open->Project->OnAdded = [weak, folder](const std::shared_ptr<model::VBComponent>& component) {
    const auto owner = weak.lock();
    if (!owner) return;
    if (!component->Storage()) {
      component->SetStorage(std::make_shared<ComponentFile>(
          folder /
              fs::path(component->PlainName() + vb::FromUtf8(ExtensionOf(component->PlainType()))),
          *component, owner->CodePage));
    }
    const FilePtr file = StorageOf(*component);
    if (file && file->IsNew()) {
      file->SetPath(folder / fs::path(component->PlainName() +
                                      vb::FromUtf8(ExtensionOf(component->PlainType()))));
    }
  };
  open->Project->OnRemoved = [weak](const std::shared_ptr<model::VBComponent>& component) {
    const auto owner = weak.lock();
    const FilePtr file = StorageOf(*component);
    if (!owner || !owner->File || !file || file->IsNew()) return;
    for (const ProjectEntry& entry : owner->File->Entries()) {
      const fs::path named =
          ResolveNamed(owner->File->Path().parent_path(), entry.File, owner->CodePage);
      if (named == file->Path()) owner->File->RemoveEntry(entry.File);
    }
  };
  open->Project->Importer = [weak, &impl, vbePointer = vbe.get()](StringView fileName) {
    const auto owner = weak.lock();
    const fs::path path(vb::Replace(fileName, u"\\", u"/"));
    const auto file = std::make_shared<ComponentFile>(path, ReadFile(path));
    file->SetCodePage(impl.CodePageOf({file}, {}));
    auto component = MakeComponent(vbePointer->OwnHook(), owner->Project, file);
    auto& components = owner->Project->Components();
    if (components.Find(component->PlainName())) {
      component->PutName(components.FreeName(component->PlainName()));
      file->Renamed(*component);
    }
    components.Insert(component);
    if (owner->File) {
      owner->File->AddEntry(component->PlainType(), vb::ToUtf8(component->PlainName()),
                            WrittenPath(path, owner->File->Path()));
    }
    return component;
  };
}

/// Makes loaded projects the environment's, and tells of them.
template <class Impl, class OpenProject>
void Show(Impl& impl, const std::shared_ptr<model::Vbe>& vbe,
          const std::vector<std::shared_ptr<OpenProject>>& loaded) {
  for (const auto& open : loaded) {
    Attach(impl, vbe, open);
    impl.Projects.push_back(open);
    vbe->Projects().All().push_back(open->Project);
  }
  vbe->OwnHook()->Tell(&model::Observer::ProjectsChanged);
  vbe->Activate(loaded.front()->Project);
  for (const auto& open : loaded) vbe->OwnEvents().ProjectAdded(open->Project);
}

}  // namespace

void Workspace::Open(const fs::path& given) {
  using OpenProject = Impl::OpenProject;
  const fs::path file = fs::absolute(given).lexically_normal();
  if (!fs::exists(file)) {
    throw vb::Failure(vb::FileNotFound, file.u16string() + u": the file does not exist",
                      u"Tessel.workspace");
  }
  std::vector<std::shared_ptr<OpenProject>> loaded;
  const std::string extension = LowerExtension(file);
  if (extension == ".vbg") {
    const std::string bytes = ReadFile(file);
    const auto projects = ReadGroup(bytes);
    if (projects.empty()) Fail(file, u"is no project group: it names no project");
    for (const std::string& project : projects) {
      const fs::path path = ResolveNamed(file.parent_path(), project, GuessCodePage({bytes}));
      if (!fs::exists(path)) Fail(file, u"the project does not exist: " + path.u16string());
      loaded.push_back(LoadProject<Impl, OpenProject>(*impl_, vbe_, path));
    }
  } else if (extension == ".vbp") {
    loaded.push_back(LoadProject<Impl, OpenProject>(*impl_, vbe_, file));
  } else {
    loaded.push_back(LoadSingle<Impl, OpenProject>(*impl_, vbe_, file, ReadFile(file)));
  }
  Show(*impl_, vbe_, loaded);
}

void Workspace::OpenText(const fs::path& given, std::string bytes) {
  using OpenProject = Impl::OpenProject;
  const fs::path file = fs::absolute(given).lexically_normal();
  Show<Impl, OpenProject>(*impl_, vbe_,
                          {LoadSingle<Impl, OpenProject>(*impl_, vbe_, file, std::move(bytes))});
}

namespace {

/// A file to be written, and what is to be told once it is.
struct Pending {
  FileContent Content;
  std::function<void(const std::string&)> Written;
};

template <class OpenProject>
void CollectProject(OpenProject& open, std::vector<Pending>& pending) {
  for (const auto& component : open.Project->Components().All()) {
    const FilePtr file = StorageOf(*component);
    if (!file || !file->IsModified(*component)) continue;
    if (file->IsNew() && !open.File) {
      Fail(file->Path(), u"the project was never saved, so the component has no place");
    }
    std::string bytes = file->Compose(*component);
    if (open.File && (file->IsNew() || file->IsRenamed())) {
      const std::string written = WrittenPath(file->Path(), open.File->Path());
      const std::string name = vb::ToUtf8(component->PlainName());
      if (file->IsNew()) open.File->AddEntry(component->PlainType(), name, written);
      open.File->RenameEntry(written, name);
    }
    if (bytes == file->StoredBytes() && !file->IsNew()) continue;
    pending.push_back(
        {{file->Path(), std::move(bytes)},
         [file, component](const std::string& stored) { file->Stored(*component, stored); }});
  }
  if (open.File && open.File->IsModified()) {
    ProjectFile* const project = open.File.get();
    pending.push_back({{project->Path(), project->Bytes()},
                       [project](const std::string&) { project->Stored(); }});
  }
}

}  // namespace

namespace {

/// Writes all files, or none.
std::vector<fs::path> Write(std::vector<Pending>& pending) {
  std::vector<FileContent> contents;
  std::vector<fs::path> written;
  for (Pending& one : pending) {
    written.push_back(one.Content.Path);
    contents.push_back(std::move(one.Content));
  }
  WriteFiles(contents);
  for (std::size_t at = 0; at < pending.size(); ++at) {
    pending[at].Written(contents[at].Bytes);
  }
  return written;
}

}  // namespace

std::vector<fs::path> Workspace::Save() {
  std::vector<Pending> pending;
  for (const auto& open : impl_->Projects) CollectProject(*open, pending);
  return Write(pending);
}

namespace {

std::shared_ptr<model::VBComponent> ComponentIn(model::Vbe& vbe, StringView project,
                                                StringView name) {
  const auto owner = vbe.Projects().Find(project);
  auto component = owner ? owner->Components().Find(name) : nullptr;
  if (!component || !StorageOf(*component)) {
    throw vb::Failure(vb::SubscriptOutOfRange,
                      u"There is no component \"" + String(name) + u"\" with a file", u"Tessel");
  }
  return component;
}

}  // namespace

namespace {

/// The key of each kind of project, by number.
constexpr const char* ProjectTypes[] = {"Exe", "OleExe", "OleDll", "Control"};

/// What the file of a new project begins with.
std::string NewProjectText(const model::VBProject& project) {
  const std::string name = vb::ToUtf8(project.PlainName());
  return std::string("Type=") + ProjectTypes[project.ProjectType] + "\r\nStartup=\"(None)\"\r\n" +
         "Name=\"" + name + "\"\r\nMajorVer=1\r\nMinorVer=0\r\nRevisionVer=0\r\n" +
         "CompilationType=0\r\n";
}

}  // namespace

std::vector<fs::path> Workspace::SaveProjectAs(StringView name, const fs::path& given) {
  const fs::path file = fs::absolute(given).lexically_normal();
  const auto project = vbe_->Projects().Find(name);
  if (!project) Fail(file, u"there is no project \"" + String(name) + u'"');
  const auto known = impl_->Find(project.get());
  if (known && known->File) Fail(file, u"the project is kept in " + project->File);
  const auto pathOf = [&](const model::VBComponent& component) {
    return file.parent_path() /
           fs::path(component.PlainName() + vb::FromUtf8(ExtensionOf(component.PlainType())));
  };
  for (const auto& component : project->Components().All()) {
    if (fs::exists(pathOf(*component))) Fail(pathOf(*component), u"the file exists already");
  }
  auto open = std::make_shared<Impl::OpenProject>();
  open->Project = project;
  open->File = std::make_unique<ProjectFile>(file, NewProjectText(*project));
  open->CodePage = impl_->Choice.CodePage != 0 ? impl_->Choice.CodePage : 1252;
  for (const auto& component : project->Components().All()) {
    component->SetStorage(
        std::make_shared<ComponentFile>(pathOf(*component), *component, open->CodePage));
  }
  std::vector<Pending> pending;
  CollectProject(*open, pending);
  if (!open->File->IsModified()) {  // a project without components
    pending.push_back({{file, open->File->Bytes()}, [](const std::string&) {}});
  }
  auto written = Write(pending);
  Attach(*impl_, vbe_, open);
  project->File = file.u16string();
  std::erase(impl_->Projects, known);
  impl_->Projects.push_back(open);
  return written;
}

void Workspace::Close(StringView name) {
  const auto project = vbe_->Projects().Find(name);
  RemoveProject(name);
  std::erase(impl_->Projects, impl_->Find(project.get()));
}

void Workspace::Reload(StringView project, StringView name) {
  const auto component = ComponentIn(*vbe_, project, name);
  const FilePtr before = StorageOf(*component);
  const auto fresh = std::make_shared<ComponentFile>(before->Path(), ReadFile(before->Path()));
  fresh->SetCodePage(before->CodePage());
  auto tree = fresh->LoadDesigner();
  component->Module()->Reload(fresh->LoadCode());
  component->SetStorage(fresh);
  if (tree) component->AddDesigner(std::move(tree));
  vbe_->OwnHook()->Tell(&model::Observer::DesignerChanged, *component);
}

fs::path Workspace::FileOf(StringView project, StringView name) const {
  const FilePtr file = StorageOf(*ComponentIn(*vbe_, project, name));
  return file->Path();
}

int Workspace::CodePageOf(StringView project, StringView name) const {
  return StorageOf(*ComponentIn(*vbe_, project, name))->CodePage();
}

bool Workspace::IsModified(StringView project, StringView name) const {
  const auto component = ComponentIn(*vbe_, project, name);
  return StorageOf(*component)->IsModified(*component);
}

std::vector<fs::path> Workspace::ChangedFiles() const {
  std::vector<fs::path> changed;
  for (const auto& open : impl_->Projects) {
    for (const auto& component : open->Project->Components().All()) {
      const FilePtr file = StorageOf(*component);
      if (file && file->IsModified(*component)) changed.push_back(file->Path());
    }
    if (open->File && open->File->IsModified()) changed.push_back(open->File->Path());
  }
  return changed;
}

void Workspace::SaveComponent(StringView project, StringView name) {
  const auto component = ComponentIn(*vbe_, project, name);
  const FilePtr file = StorageOf(*component);
  std::string bytes = file->Compose(*component);
  if (bytes == file->StoredBytes()) return;
  WriteFiles({{file->Path(), bytes}});
  file->Stored(*component, std::move(bytes));
}

std::string Workspace::Bytes(StringView project, StringView name) const {
  const auto component = ComponentIn(*vbe_, project, name);
  return StorageOf(*component)->Compose(*component);
}

std::string Workspace::StoredBytes(StringView project, StringView name) const {
  return StorageOf(*ComponentIn(*vbe_, project, name))->StoredBytes();
}

int Workspace::FileLine(StringView project, StringView name, int codeLine) const {
  return StorageOf(*ComponentIn(*vbe_, project, name))->FileLine(codeLine);
}

}  // namespace tessel::workspace
