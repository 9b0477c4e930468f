#include "foundation/ToolForm.h"

namespace tessel {
namespace {

/// Unloads a form that was left hidden; also when a failure passes through.
class UnloadHidden {
 public:
  explicit UnloadHidden(forms::Form& form) : form_(form) {}
  ~UnloadHidden() {
    if (!form_.Visible()) ResumeNext([&] { form_.Unload(); });
  }
  UnloadHidden(const UnloadHidden&) = delete;
  UnloadHidden& operator=(const UnloadHidden&) = delete;

 private:
  forms::Form& form_;
};

}  // namespace

void ToolForm::RestorePlace(const Statements& run) {
  run([&] {
    if (!gAppSettings) return;
    place_.Init(gAppSettings, u"Windows settings");
    place_.GetPosition(*this);
  });
}

void ToolForm::RestoreFont(const Statements& run, StringView owner,
                           forms::Designed<forms::Font>& font) {
  run([&] {
    if (!gAppSettings) return;
    fonts_.Init(gAppSettings, u"Font settings");
    forms::Font kept = font;
    fonts_.GetFont(owner, kept);
    font = kept;
  });
}

void ToolForm::KeepFont(const Statements& run, StringView owner, const forms::Font& font) {
  run([&] {
    if (!gAppSettings) return;
    fonts_.Init(gAppSettings, u"Font settings");
    fonts_.SaveFont(owner, font);
  });
}

void ToolForm::KeepPlace(StringView routine, const Steps& steps) {
  Routine(routine, [&](const Statements& run) {
    if (steps) steps(run);
    KeepPlace(run);
  });
}

void ToolForm::KeepPlace(const Statements& run) {
  run([&] {
    if (gAppSettings && place_.AppSettings()) place_.SavePosition(*this);
  });
}

void ToolForm::Leave(StringView routine, const Steps& steps) {
  if (Connect != nullptr) Connect->SetDialogOpen(false);
  KeepPlace(routine, steps);
}

std::shared_ptr<host::VBComponents> ToolForm::ActiveComponents(const Statements& run) const {
  return run([&] {
    const auto project = Need(VBInstance).ActiveVBProject();
    return project ? project->VBComponents() : nullptr;
  });
}

void ToolForm::Tell(const Statements& run, const RunResult& result) {
  run([&] {
    if (Connect != nullptr) Connect->RunEnded(result);
  });
}

void ToolForm::RunAndLeave(StringView routine, const Steps& steps) {
  const auto self = weak_from_this().lock();  // the steps may drop the last other reference
  const UnloadHidden unload(*this);
  Routine(routine, steps);
}

}  // namespace tessel
