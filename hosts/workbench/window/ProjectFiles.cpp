#include "hosts/workbench/window/ProjectFiles.h"

#include <QFileDialog>
#include <QInputDialog>
#include <algorithm>
#include <utility>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/Unsaved.h"

namespace tessel::workbench {
namespace {

std::filesystem::path PathOf(const QString& file) {
  return std::filesystem::path(file.toStdU16String());
}

/// What a new project begins with.
host::vbext_ComponentType FirstComponent(host::vbext_ProjectType type) {
  switch (type) {
    case host::vbext_pt_StandardExe:
      return host::vbext_ct_VBForm;
    case host::vbext_pt_ActiveXControl:
      return host::vbext_ct_UserControl;
    default:
      return host::vbext_ct_ClassModule;
  }
}

}  // namespace

ProjectFiles::ProjectFiles(workspace::Workspace& workspace, Questions& questions,
                           Settings& settings, const QString& recoveryFolder)
    : workspace_(workspace),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(workspace.VBE())),
      questions_(questions),
      settings_(settings),
      recovery_(recoveryFolder) {}

ProjectFiles::Projects ProjectFiles::All() const { return vbe_->Projects().All(); }

void ProjectFiles::Changed() {
  KeepWork();
  if (OnChanged) OnChanged();
}

// Opening

bool ProjectFiles::Open(const QString& file, int codePage) {
  if (file.isEmpty()) {
    questions_.ShowFailure(QObject::tr("There is no file to open: its name is empty."));
    return false;
  }
  std::vector<workspace::Problem> found;
  if (!questions_.Guard([&] { found = workspace_.Open(PathOf(file), codePage); })) return false;
  settings_.AddRecent(file);
  QStringList problems, notices;
  for (const workspace::Problem& one : found) problems.append(ToQt(one.Description()));
  for (const String& one : workspace_.TakeNotices()) notices.append(ToQt(one));
  if (!notices.isEmpty()) questions_.ShowFailure(Listed(notices));
  if (!problems.isEmpty()) {
    questions_.ShowFailure(
        QObject::tr("These could not be loaded. They are shown greyed and keep their place in the "
                    "project file:") +
        QStringLiteral("\n\n") + Listed(problems));
  }
  return true;
}

bool ProjectFiles::OpenAgain(const std::shared_ptr<model::VBProject>& project, int codePage) {
  const auto& all = project->Components().All();
  const QString file = !project->File.empty() ? ToQt(project->File)
                       : !all.empty() && all.front()->Storage()
                           ? ToQt(all.front()->Storage()->FileName())
                           : QString();
  return !file.isEmpty() && Replace({project}, [&] { return Open(file, codePage); });
}

bool ProjectFiles::Replace(Projects before, const std::function<bool()>& open) {
  if (!MaySaveChanges(before) || !open()) return false;
  CloseUnasked(std::move(before));
  return true;
}

void ProjectFiles::AskForFile() {
  const QString file = QFileDialog::getOpenFileName(
      &questions_.Window(), QObject::tr("Open Project"), {},
      QObject::tr("Projects (*.vbp *.vbg);;"
                  "Components (*.bas *.cls *.frm *.ctl *.pag *.dob *.dsr);;All files (*)"));
  if (!file.isEmpty()) Replace(All(), [&] { return Open(file); });
}

void ProjectFiles::OpenRecent(const QString& file) {
  Replace(All(), [&] {
    if (Open(file)) return true;
    settings_.RemoveRecent(file);
    return false;
  });
}

void ProjectFiles::NewProject(host::vbext_ProjectType type) {
  if (!CloseAll()) return;
  questions_.Guard([&] {
    workspace_.NewProject(u"Project1", type);
    const auto first = workspace_.AddComponent(u"Project1", FirstComponent(type), u"", u"");
    if (OnNew) OnNew(std::dynamic_pointer_cast<model::VBComponent>(first));
  });
}

// Saving

bool ProjectFiles::SaveUnnamed(const Projects& projects) {
  for (const auto& project : projects) {
    if (!workspace_.IsUnnamed(*project)) continue;
    const QString file = QFileDialog::getSaveFileName(
        &questions_.Window(), QObject::tr("Save Project As"),
        ToQt(project->PlainName()) + QStringLiteral(".vbp"), QObject::tr("Projects (*.vbp)"));
    if (file.isEmpty()) return false;
    if (!questions_.Guard([&] { workspace_.SaveProjectAs(project, PathOf(file)); })) return false;
    settings_.AddRecent(file);
  }
  return true;
}

bool ProjectFiles::Write(const std::function<void()>& save, const std::function<void()>& accept) {
  QString changed;
  const bool saved = questions_.Guard([&] {
    try {
      save();
    } catch (const vb::Failure& failure) {
      if (failure.Number() != workspace::ChangedOutside) throw;
      changed = ToQt(failure.Description());
    }
  });
  if (changed.isEmpty()) return saved;
  const QString question = changed + QStringLiteral("\n\n") +
                           QObject::tr("Overwrite what stands there now? It would be lost.");
  if (questions_.Ask(question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) !=
      QMessageBox::Yes) {
    return false;
  }
  accept();
  return Write(save, accept);  // the files may have changed once more while the box was open
}

bool ProjectFiles::SaveAll() {
  BeforeSaving();
  const auto accept = [this] {
    for (const auto& project : All()) workspace_.AcceptOutside(project);
  };
  const bool saved = SaveUnnamed(All()) && Write([this] { workspace_.Save(); }, accept);
  Changed();
  return saved;
}

bool ProjectFiles::Save(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->Storage() || workspace_.StoredBytes(*component).empty()) {
    return SaveAll();  // the project must name a new file
  }
  BeforeSaving();
  const bool saved = Write([&] { workspace_.SaveComponent(*component); },
                           [&] { workspace_.AcceptOutside(*component); });
  Changed();
  return saved;
}

void ProjectFiles::SaveAs(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->Storage() || component->Storage()->FileName().empty()) {
    SaveAll();
    return;
  }
  const QString file =
      QFileDialog::getSaveFileName(&questions_.Window(), QObject::tr("Save Component As"),
                                   ToQt(component->Storage()->FileName()));
  if (file.isEmpty()) return;
  BeforeSaving();
  questions_.Guard([&] { workspace_.SaveComponentAs(*component, PathOf(file)); });
  Changed();
}

bool ProjectFiles::IsUnsaved() const {
  const Projects projects = All();
  return std::any_of(projects.begin(), projects.end(), [this](const auto& project) {
    return workbench::IsUnsaved(workspace_, *project);
  });
}

/// Others that are open stay as they are.
bool ProjectFiles::SaveThese(const Projects& projects) {
  if (projects.size() == All().size()) return SaveAll();
  for (const auto& project : projects) {
    for (const auto& component : std::vector(project->Components().All())) {
      if (workbench::IsUnsaved(*component) && !Save(component)) return false;
    }
    // What a component's line doesn't tell is written with everything else.
    if (workbench::IsUnsaved(workspace_, *project) && !SaveAll()) return false;
  }
  return true;
}

bool ProjectFiles::MaySaveChanges(const Projects& projects) {
  BeforeSaving();
  QStringList unsaved;
  for (const auto& project : projects) unsaved.append(UnsavedOf(workspace_, *project));
  if (unsaved.isEmpty()) return true;
  switch (questions_.Ask(
      QObject::tr("Save the changes to these files?") + QStringLiteral("\n\n") + Listed(unsaved),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save)) {
    case QMessageBox::Save:
      return SaveThese(projects);
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

// Closing

void ProjectFiles::CloseUnasked(Projects projects) {
  questions_.Guard([&] {
    const model::Windows::OneTurn once(vbe_->OwnWindows());
    for (const auto& project : projects) workspace_.Close(project);
  });
  projects.clear();  // windows of theirs see that they are gone
  Changed();
}

bool ProjectFiles::CloseAll() {
  Projects projects = All();
  if (!MaySaveChanges(projects)) return false;
  CloseUnasked(std::move(projects));
  return true;
}

bool ProjectFiles::Close(const std::shared_ptr<model::VBProject>& project) {
  if (!MaySaveChanges({project})) return false;
  CloseUnasked({project});
  return true;
}

void ProjectFiles::Remove(const std::shared_ptr<model::VBComponent>& component) {
  const QString question = QObject::tr("Take %1 out of the project? Its file stays where it is.")
                               .arg(ToQt(component->PlainName()));
  if (questions_.Ask(question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) !=
      QMessageBox::Yes) {
    return;
  }
  questions_.Guard([&] { workspace_.RemoveComponent(component); });
}

void ProjectFiles::Rename(const std::shared_ptr<model::VBComponent>& component) {
  bool accepted = false;
  const QString name = QInputDialog::getText(
      &questions_.Window(), QObject::tr("Rename"), QObject::tr("Name of the component:"),
      QLineEdit::Normal, ToQt(component->PlainName()), &accepted);
  if (!accepted || name.isEmpty()) return;
  questions_.Guard([&] { component->SetName(FromQt(name)); });
}

// Recovery

void ProjectFiles::KeepWork() {
  const bool kept = recovery_.Write(UnsavedWork(workspace_));
  if (std::exchange(isKept_, kept) && !kept && OnNotKept) OnNotKept();
}

void ProjectFiles::OfferRecovery() {
  for (const RecoveredWork& work : recovery_.Left()) {
    QStringList parts;
    for (const RecoveredProject& project : work.Projects) {
      for (const RecoveredComponent& component : project.Components) {
        parts.append(ToQt(project.Name + u" - " + component.Name));
      }
    }
    const QString question =
        QObject::tr("The workbench ended without closing. Unsaved work of %1 can be brought back:")
            .arg(work.Time) +
        QStringLiteral("\n\n") + Listed(parts);
    switch (questions_.Choose(
        question, {QObject::tr("Bring it &back"), QObject::tr("&Discard"), QObject::tr("&Later")},
        0)) {
      case 0:
        Restore(work);
        break;
      case 1:
        work.Discard();
        break;
      default:
        break;
    }
  }
}

void ProjectFiles::Restore(const RecoveredWork& work) {
  for (const QString& file : FilesOf(work)) {
    if (!IsOpen(file) && !Open(file)) return;
  }
  QStringList homeless;
  if (!questions_.Guard(
          [&] { RunTool([&] { homeless = workbench::Restore(workspace_, work); }); })) {
    return;
  }
  KeepWork();  // the work is in this run's own file before the old one goes
  if (homeless.isEmpty()) return work.Discard();
  questions_.ShowFailure(
      QObject::tr("These components are not what they were, so their work could not be brought "
                  "back. It is kept for the next start in %1:")
          .arg(work.File) +
      QStringLiteral("\n\n") + Listed(homeless));
}

bool ProjectFiles::IsOpen(const QString& file) const {
  const Projects projects = All();
  return std::any_of(projects.begin(), projects.end(), [&](const auto& project) {
    if (!project->File.empty()) return ToQt(project->File) == file;
    const auto& all = project->Components().All();
    return std::any_of(all.begin(), all.end(), [&](const auto& one) {
      return one->Storage() && ToQt(one->Storage()->FileName()) == file;
    });
  });
}

}  // namespace tessel::workbench
