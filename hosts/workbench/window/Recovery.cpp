#include "hosts/workbench/window/Recovery.h"

#include <signal.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <cerrno>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/Unsaved.h"

namespace tessel::workbench {
namespace {

constexpr auto Prefix = "unsaved-";

QJsonObject ComponentJson(const model::VBComponent& component) {
  const auto& lines = component.Module()->Buffer();
  const String code = lines.Count() == 0 ? String() : lines.Text(1, lines.Count());
  const QString head =
      component.OwnDesigner() ? ToQt(component.OwnDesigner()->Tree().Text()) : QString();
  return {{"name", ToQt(component.PlainName())},
          {"type", static_cast<int>(component.PlainType())},
          {"code", ToQt(code)},
          {"head", head}};
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

RecoveredComponent ReadComponent(const QJsonObject& object) {
  return {FromQt(TextOf(object, QStringLiteral("name"))),
          static_cast<host::vbext_ComponentType>(object.value(QStringLiteral("type")).toInt()),
          FromQt(TextOf(object, QStringLiteral("code"))),
          FromQt(TextOf(object, QStringLiteral("head")))};
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

bool IsRunning(qint64 process) {
  return process > 0 && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
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

RecoveryFile::RecoveryFile(const QString& folder)
    : folder_(folder),
      file_(QDir(folder).filePath(
          QStringLiteral("%1%2.json").arg(Prefix).arg(QCoreApplication::applicationPid()))) {
  QDir().mkpath(folder);
}

void RecoveryFile::Write(const QJsonObject& work) const {
  if (work.isEmpty()) return Remove();
  QSaveFile file(file_);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(QJsonDocument(work).toJson(QJsonDocument::Compact));
  file.commit();
}

void RecoveryFile::Remove() const { QFile::remove(file_); }

std::vector<RecoveredWork> RecoveryFile::Left() const {
  std::vector<RecoveredWork> left;
  const QDir folder(folder_);
  for (const QString& name : folder.entryList({QStringLiteral("%1*.json").arg(Prefix)})) {
    const qint64 process = name.mid(static_cast<int>(qstrlen(Prefix))).chopped(5).toLongLong();
    if (IsRunning(process)) continue;
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::ReadOnly)) continue;
    try {
      left.push_back(ReadWork(QJsonDocument::fromJson(file.readAll()).object()));
      left.back().File = file.fileName();
    } catch (const vb::Failure&) {
      continue;  // half a file can only be one of another program
    }
  }
  return left;
}

void Restore(workspace::Workspace& workspace, const RecoveredWork& work) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
  for (const RecoveredProject& project : work.Projects) {
    if (!vbe->Projects().Find(project.Name)) workspace.NewProject(project.Name, project.Type);
    for (const RecoveredComponent& one : project.Components) {
      auto component = vbe->Projects().Find(project.Name)->Components().Find(one.Name);
      if (!component) {
        component = std::dynamic_pointer_cast<model::VBComponent>(
            workspace.AddComponent(project.Name, one.Type, one.Name, u""));
      }
      if (component && component->Module()) RestoreComponent(*component, one);
    }
  }
}

}  // namespace tessel::workbench
