#include "hosts/workbench/window/Recovery.h"

#include <QDateTime>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QUuid>
#include <algorithm>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/Unsaved.h"

namespace tessel::workbench {
namespace {

constexpr auto Pattern = "unsaved-*.json";

/// Bytes that are no text of their code page travel as lone surrogates, which JSON can't hold: a
/// text with one is kept as its units.
QJsonValue TextJson(StringView text) {
  const QString shown = ToQt(text);
  if (QString::fromUtf8(shown.toUtf8()) == shown) return shown;
  const QByteArray units(reinterpret_cast<const char*>(text.data()),
                         static_cast<qsizetype>(text.size() * sizeof(char16_t)));
  return QJsonObject{{"units", QString::fromLatin1(units.toBase64())}};
}

QJsonObject ComponentJson(const model::VBComponent& component) {
  const auto& lines = component.Module()->Buffer();
  const String code = lines.Count() == 0 ? String() : lines.Text(1, lines.Count());
  const String head = component.OwnDesigner() ? component.OwnDesigner()->Tree().Text() : String();
  return {{"name", ToQt(component.PlainName())},
          {"file", component.Storage() ? ToQt(component.Storage()->FileName()) : QString()},
          {"type", static_cast<int>(component.PlainType())},
          {"code", TextJson(code)},
          {"head", TextJson(head)}};
}

QJsonObject ProjectJson(model::VBProject& project) {
  QJsonArray components;
  for (const auto& component : project.Components().All()) {
    if (IsUnsaved(*component)) components.append(ComponentJson(*component));
  }
  if (components.isEmpty()) return {};
  return {{"name", ToQt(project.PlainName())},
          {"file", ToQt(project.File)},
          {"type", static_cast<int>(project.ProjectType)},
          {"components", components}};
}

[[noreturn]] void Damaged(const QString& what) {
  throw vb::Failure(vb::InvalidCall,
                    FromQt(QStringLiteral("The recovery file is damaged: ") + what), u"Tessel");
}

QString TextOf(const QJsonObject& object, const QString& key) {
  const QJsonValue value = object.value(key);
  if (!value.isString()) Damaged(key);
  return value.toString();
}

String ReadText(const QJsonObject& object, const QString& key) {
  const QJsonValue units = object.value(key).toObject().value(QStringLiteral("units"));
  if (!units.isString()) return FromQt(TextOf(object, key));
  const QByteArray bytes = QByteArray::fromBase64(units.toString().toLatin1());
  if (bytes.size() % 2 != 0) Damaged(key);
  String text(static_cast<std::size_t>(bytes.size()) / sizeof(char16_t), u'\0');
  std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(text.data()));
  return text;
}

RecoveredComponent ReadComponent(const QJsonObject& object) {
  return {FromQt(TextOf(object, QStringLiteral("name"))),
          FromQt(object.value(QStringLiteral("file")).toString()),
          static_cast<host::vbext_ComponentType>(object.value(QStringLiteral("type")).toInt()),
          ReadText(object, QStringLiteral("code")), ReadText(object, QStringLiteral("head"))};
}

RecoveredProject ReadProject(const QJsonObject& object) {
  RecoveredProject project;
  project.Name = FromQt(TextOf(object, QStringLiteral("name")));
  project.File = TextOf(object, QStringLiteral("file"));
  project.Type = static_cast<host::vbext_ProjectType>(object.value(QStringLiteral("type")).toInt());
  for (const auto& one : object.value(QStringLiteral("components")).toArray()) {
    project.Components.push_back(ReadComponent(one.toObject()));
  }
  return project;
}

void RestoreComponent(model::VBComponent& component, const RecoveredComponent& work) {
  auto& module = *component.Module();
  const int count = module.Buffer().Count();
  const String before = count == 0 ? String() : module.Buffer().Text(1, count);
  if (before != work.Code) {
    if (count > 0) module.DeleteLines(1, count);
    if (!work.Code.empty()) module.InsertLines(1, work.Code);
  }
  if (work.Head.empty() || !component.OwnDesigner()) return;
  if (component.OwnDesigner()->Tree().Text() == work.Head) return;
  component.AddDesigner(std::make_shared<model::DesignerTree>(work.Head));
  component.OwnDesigner()->Tree().SetModified(true);
}

using ComponentPtr = std::shared_ptr<model::VBComponent>;

/// The component of a file, or of a name when its file is another one now; null for none.
ComponentPtr FindIn(model::VBProject& project, const RecoveredComponent& work) {
  const auto& all = project.Components().All();
  const auto kept = std::find_if(all.begin(), all.end(), [&](const ComponentPtr& one) {
    return !work.File.empty() && one->Storage() && one->Storage()->FileName() == work.File;
  });
  return kept != all.end() ? *kept : project.Components().Find(work.Name);
}

std::shared_ptr<model::VBProject> FindProject(model::Vbe& vbe, const QString& file) {
  const auto& all = vbe.Projects().All();
  const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) {
    return !one->File.empty() && ToQt(one->File) == file;
  });
  return found == all.end() ? nullptr : *found;
}

/// The component of a file that is open in a project of its own.
ComponentPtr FindSingle(model::Vbe& vbe, const RecoveredComponent& work) {
  for (const auto& project : vbe.Projects().All()) {
    const ComponentPtr found = project->File.empty() ? FindIn(*project, work) : nullptr;
    if (found && found->Storage() && found->Storage()->FileName() == work.File) return found;
  }
  return nullptr;
}

std::shared_ptr<model::VBProject> NewProjectFor(workspace::Workspace& workspace,
                                                const RecoveredProject& work) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
  String name = work.Name;
  for (int number = 2; vbe->Projects().Find(name); ++number) name = work.Name + vb::Str(number);
  return std::dynamic_pointer_cast<model::VBProject>(workspace.NewProject(name, work.Type));
}

/// Null when the component can't be had.
ComponentPtr AddIn(workspace::Workspace& workspace,
                   const std::shared_ptr<model::VBProject>& project,
                   const RecoveredComponent& work) {
  return std::dynamic_pointer_cast<model::VBComponent>(
      workspace.AddComponent(project, work.Type, work.Name, u""));
}

}  // namespace

QJsonObject UnsavedWork(const workspace::Workspace& workspace) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
  QJsonArray projects;
  for (const auto& project : vbe->Projects().All()) {
    const QJsonObject work = ProjectJson(*project);
    if (!work.isEmpty()) projects.append(work);
  }
  if (projects.isEmpty()) return {};
  return {{"time", QDateTime::currentDateTime().toString(Qt::ISODate)}, {"projects", projects}};
}

RecoveredWork ReadWork(const QJsonObject& work) {
  RecoveredWork read;
  read.Time = TextOf(work, QStringLiteral("time"));
  for (const auto& project : work.value(QStringLiteral("projects")).toArray()) {
    read.Projects.push_back(ReadProject(project.toObject()));
  }
  if (read.Projects.empty()) Damaged(QStringLiteral("projects"));
  return read;
}

void RecoveredWork::Discard() const {
  QFile::remove(File);
  if (Lock) Lock->Remove();
}

namespace {

QString LockOf(const QString& file) { return file.chopped(5) + QStringLiteral(".lock"); }

}  // namespace

RecoveryFile::RecoveryFile(const QString& folder)
    : folder_(folder),
      name_(QDir(folder).filePath(QStringLiteral("unsaved-%1.json")
                                      .arg(QUuid::createUuid().toString(QUuid::WithoutBraces)))) {
  QDir().mkpath(folder);
}

bool RecoveryFile::Write(const QJsonObject& work) {
  if (work.isEmpty()) {
    Remove();
    return true;
  }
  if (!lock_) lock_ = LockFile::Take(LockOf(name_));
  QSaveFile file(name_);
  return file.open(QIODevice::WriteOnly) &&
         file.write(QJsonDocument(work).toJson(QJsonDocument::Compact)) >= 0 && file.commit();
}

void RecoveryFile::Remove() {
  QFile::remove(name_);
  if (lock_) lock_->Remove();
  lock_.reset();
}

std::vector<RecoveredWork> RecoveryFile::Left() const {
  std::vector<RecoveredWork> left;
  const QDir folder(folder_);
  for (const QString& name : folder.entryList({QString::fromLatin1(Pattern)})) {
    QFile file(folder.filePath(name));
    const auto lock = LockFile::Take(LockOf(file.fileName()));
    // Its owner may have taken it away until the lock was had.
    if (!lock || !file.open(QIODevice::ReadOnly)) continue;
    try {
      left.push_back(ReadWork(QJsonDocument::fromJson(file.readAll()).object()));
      left.back().File = file.fileName();
      left.back().Lock = lock;
    } catch (const vb::Failure&) {
      lock->Remove();  // half a file can only be one of another program
    }
  }
  return left;
}

QStringList FilesOf(const RecoveredWork& work) {
  QStringList files;
  for (const RecoveredProject& project : work.Projects) {
    if (!project.File.isEmpty()) {
      files.append(project.File);
      continue;
    }
    for (const RecoveredComponent& one : project.Components) {
      if (!one.File.empty()) files.append(ToQt(one.File));
    }
  }
  return files;
}

QStringList Restore(workspace::Workspace& workspace, const RecoveredWork& work) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
  QStringList homeless;
  for (const RecoveredProject& project : work.Projects) {
    std::shared_ptr<model::VBProject> owner = FindProject(*vbe, project.File);
    for (const RecoveredComponent& one : project.Components) {
      ComponentPtr component = owner ? FindIn(*owner, one) : FindSingle(*vbe, one);
      if (!component && !owner) owner = NewProjectFor(workspace, project);
      if (!component) component = AddIn(workspace, owner, one);
      if (component && component->Module()) {
        RestoreComponent(*component, one);
      } else {
        homeless.append(ToQt(project.Name + u" - " + one.Name));
      }
    }
  }
  return homeless;
}

}  // namespace tessel::workbench
