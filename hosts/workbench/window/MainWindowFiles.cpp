// Opening, saving and closing in the main window.

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/MainWindow.h"

namespace tessel::workbench {
namespace {

QString PathText(const std::filesystem::path& path) {
  return QString::fromStdU16String(path.u16string());
}

std::filesystem::path PathOf(const QString& file) {
  return std::filesystem::path(file.toStdU16String());
}

/// As many lines of a list as a message box can show.
QString Listed(const QStringList& lines) {
  constexpr int Most = 12;
  QStringList shown = lines.mid(0, Most);
  if (lines.size() > Most) shown.append(QObject::tr("... and %1 more").arg(lines.size() - Most));
  return shown.join(u'\n');
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

bool MainWindow::Guard(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const vb::Failure& failure) {
    ShowFailure(ToQt(failure.Description()));
  } catch (const std::exception& failure) {
    ShowFailure(QString::fromUtf8(failure.what()));
  }
  return false;
}

void MainWindow::ShowFailure(const QString& text) {
  QMessageBox box(QMessageBox::Warning, tr("Tessel"), text, QMessageBox::Ok, this);
  box.exec();
}

void MainWindow::AskForFile() {
  const QString file = QFileDialog::getOpenFileName(
      this, tr("Open Project"), {},
      tr("Projects (*.vbp *.vbg);;Components (*.bas *.cls *.frm *.ctl *.pag *.dob *.dsr);;"
         "All files (*)"));
  if (file.isEmpty() || !CloseProjects()) return;
  OpenFile(file);
}

bool MainWindow::OpenFile(const QString& file) {
  const std::size_t before = workspace_.Problems().size();
  if (!Guard([&] { workspace_.Open(PathOf(file)); })) return false;
  settings_.AddRecent(file);
  QStringList problems;
  for (std::size_t at = before; at < workspace_.Problems().size(); ++at) {
    problems.append(ToQt(workspace_.Problems()[at].Description()));
  }
  if (!problems.isEmpty()) {
    ShowFailure(tr("Some components could not be loaded and are left out:") +
                QStringLiteral("\n\n") + Listed(problems));
  }
  return true;
}

void MainWindow::NewProject(host::vbext_ProjectType type) {
  if (!CloseProjects()) return;
  Guard([&] {
    workspace_.NewProject(u"Project1", type);
    workspace_.AddComponent(u"Project1", FirstComponent(type), u"", u"");
  });
}

bool MainWindow::SaveUnnamedProjects() {
  for (const auto& project : std::vector(vbe_->Projects().All())) {
    const auto& all = project->Components().All();
    const bool kept = !project->File.empty() ||
                      (!all.empty() && std::all_of(all.begin(), all.end(), [](const auto& one) {
                        return one->Storage() != nullptr;
                      }));
    if (kept) continue;
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Save Project As"), ToQt(project->PlainName()) + QStringLiteral(".vbp"),
        tr("Projects (*.vbp)"));
    if (file.isEmpty()) return false;
    if (!Guard([&] { workspace_.SaveProjectAs(project->PlainName(), PathOf(file)); })) return false;
    settings_.AddRecent(file);
  }
  return true;
}

bool MainWindow::SaveAll() {
  for (const auto& [module, code] : codes_) code->Editor().TidyEntered();
  if (!SaveUnnamedProjects() || !Guard([&] { workspace_.Save(); })) return false;
  KeepWork();
  ProjectsChanged();
  return true;
}

bool MainWindow::SaveCurrent() {
  const auto component = CurrentComponent();
  if (!component) return false;
  if (!component->Storage() ||
      workspace_.StoredBytes(component->Project()->PlainName(), component->PlainName()).empty()) {
    return SaveAll();  // the project must name a new file
  }
  if (CodeWindow* const code = CurrentCode()) code->Editor().TidyEntered();
  const bool saved = Guard(
      [&] { workspace_.SaveComponent(component->Project()->PlainName(), component->PlainName()); });
  KeepWork();
  ShowState();
  return saved;
}

bool MainWindow::MaySaveChanges(const QString& question) {
  QStringList changed;
  for (const auto& file : workspace_.ChangedFiles()) changed.append(PathText(file));
  for (const auto& project : vbe_->Projects().All()) {
    if (!project->File.empty()) continue;
    for (const auto& component : project->Components().All()) {
      if (!component->Storage()) changed.append(ToQt(component->PlainName()));
    }
  }
  if (changed.isEmpty()) return true;
  changed.removeDuplicates();
  QMessageBox box(QMessageBox::Question, tr("Tessel"),
                  question + QStringLiteral("\n\n") + Listed(changed),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
    case QMessageBox::Save:
      return SaveAll();
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

bool MainWindow::CloseProjects() {
  if (!MaySaveChanges(tr("Save the changes to these files?"))) return false;
  Guard([&] {
    for (const auto& project : std::vector(vbe_->Projects().All())) {
      workspace_.Close(project->PlainName());
    }
  });
  CloseDesignersOfGoneComponents();
  recovery_.Remove();
  return true;
}

void MainWindow::CloseProject(const std::shared_ptr<model::VBProject>& project) {
  if (!MaySaveChanges(tr("Save the changes to these files?"))) return;
  Guard([&] { workspace_.Close(project->PlainName()); });
}

void MainWindow::SaveComponentAs(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->Storage()) {
    SaveAll();
    return;
  }
  const QString file = QFileDialog::getSaveFileName(this, tr("Save Component As"),
                                                    ToQt(component->Storage()->FileName()));
  if (file.isEmpty()) return;
  Guard([&] { component->SaveAs(FromQt(file)); });
  ProjectsChanged();
}

void MainWindow::RemoveComponent(const std::shared_ptr<model::VBComponent>& component) {
  QMessageBox box(QMessageBox::Question, tr("Tessel"),
                  tr("Take %1 out of the project? Its file stays where it is.")
                      .arg(ToQt(component->PlainName())),
                  QMessageBox::Yes | QMessageBox::No, this);
  if (box.exec() != QMessageBox::Yes) return;
  Guard([&] {
    workspace_.RemoveComponent(component->Project()->PlainName(), component->PlainName());
  });
}

void MainWindow::RenameComponent(const std::shared_ptr<model::VBComponent>& component) {
  bool accepted = false;
  const QString name =
      QInputDialog::getText(this, tr("Rename"), tr("Name of the component:"), QLineEdit::Normal,
                            ToQt(component->PlainName()), &accepted);
  if (!accepted || name.isEmpty()) return;
  Guard([&] {
    workspace_.RenameComponent(component->Project()->PlainName(), component->PlainName(),
                               FromQt(name));
  });
}

void MainWindow::AskToReload(const std::vector<ChangedOutside>& changed) {
  QStringList files, gone;
  for (const ChangedOutside& one : changed) (one.Gone ? gone : files).append(one.File);
  if (!gone.isEmpty()) {
    ShowFailure(tr("These files are no longer there. Saving writes them anew:") +
                QStringLiteral("\n\n") + Listed(gone));
  }
  if (files.isEmpty()) return;
  QMessageBox box(QMessageBox::Question, tr("Tessel"),
                  tr("These files were changed outside. Load them again? Changes made here to them "
                     "are lost then.") +
                      QStringLiteral("\n\n") + Listed(files),
                  QMessageBox::Yes | QMessageBox::No, this);
  if (box.exec() != QMessageBox::Yes) return;
  for (const ChangedOutside& one : changed) {
    const auto project = one.Gone ? nullptr : one.Component->Project();
    if (!project) continue;
    Guard([&] { workspace_.Reload(project->PlainName(), one.Component->PlainName()); });
  }
}

void MainWindow::OfferRecovery() {
  for (const RecoveredWork& work : recovery_.Left()) {
    QStringList parts;
    for (const RecoveredProject& project : work.Projects) {
      for (const RecoveredComponent& component : project.Components) {
        parts.append(ToQt(project.Name + u" - " + component.Name));
      }
    }
    QMessageBox box(QMessageBox::Question, tr("Tessel"),
                    tr("The workbench ended without closing. Unsaved work of %1 can be brought "
                       "back:")
                            .arg(work.Time) +
                        QStringLiteral("\n\n") + Listed(parts),
                    QMessageBox::NoButton, this);
    QPushButton* const restore = box.addButton(tr("Bring it &back"), QMessageBox::AcceptRole);
    QPushButton* const discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
    box.addButton(tr("&Later"), QMessageBox::RejectRole);
    box.setDefaultButton(restore);
    box.exec();
    if (box.clickedButton() == restore) {
      RestoreWork(work);
    } else if (box.clickedButton() == discard) {
      QFile::remove(work.File);
    }
  }
}

void MainWindow::RestoreWork(const RecoveredWork& work) {
  for (const RecoveredProject& project : work.Projects) {
    if (project.File.isEmpty() || vbe_->Projects().Find(project.Name)) continue;
    if (!OpenFile(project.File)) return;
  }
  if (!Guard([&] { RunTool([&] { Restore(workspace_, work); }); })) return;
  KeepWork();  // the work is in this run's own file before the old one goes
  QFile::remove(work.File);
}

}  // namespace tessel::workbench
