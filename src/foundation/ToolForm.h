// What the dialogs of the tools have in common.
#pragma once

#include <functional>
#include <memory>

#include "foundation/CFontRestore.h"
#include "foundation/CFormRestore.h"
#include "foundation/GuardedForm.h"
#include "foundation/Routine.h"
#include "host/IConnect.h"
#include "host/VBE.h"

namespace tessel {

/// Base of the dialogs. `VBInstance` and `Connect` are set before it is shown.
class ToolForm : public GuardedForm {
 public:
  std::shared_ptr<host::VBE> VBInstance;
  /// Told when the form goes, so that other dialogs can open; null for one that another dialog
  /// opened.
  ConnectReference Connect;

 protected:
  using GuardedForm::GuardedForm;
  using Steps = std::function<void(const Statements& run)>;

  /// A statement of Form_Load: puts the form where the user left it, or in the middle.
  void RestorePlace(const Statements& run);
  /// The same for the font of a text box, which is kept under the owner's name.
  void RestoreFont(const Statements& run, StringView owner, forms::Designed<forms::Font>& font);
  /// A statement: keeps a font for `RestoreFont`.
  void KeepFont(const Statements& run, StringView owner, const forms::Font& font);
  /// Form_Unload as the routine of that name: the form's own steps are taken and its place is kept.
  void KeepPlace(StringView routine, const Steps& steps = {});
  /// The same for a dialog that the guard counts: ahead of all that can fail, others can open
  /// again.
  void Leave(StringView routine, const Steps& steps = {});
  /// A statement of Form_Unload: keeps the place for the next time.
  void KeepPlace(const Statements& run);
  /// The components of the active project; nothing without one.
  [[nodiscard]] std::shared_ptr<host::VBComponents> ActiveComponents(const Statements& run) const;
  /// Hands the account of a run to the root; a statement of the caller.
  void Tell(const Statements& run, const RunResult& result);
  /// A handler whose steps hide the form for a run. However they end, a form that is hidden behind
  /// them is unloaded.
  void RunAndLeave(StringView routine, const Steps& steps);

  /// A handler of an event: the body as the routine of that name, a literal. A body that makes
  /// statements of its own takes them ahead of the event's values.
  template <class Body>
  [[nodiscard]] static auto Handler(StringView routine, Body body) {
    return [routine, body](const auto&... event) {
      if constexpr (std::is_invocable_v<Body, const Statements&, decltype(event)...>) {
        Routine(routine, [&](const Statements& run) { body(run, event...); });
      } else {
        Routine(routine, [&] { body(event...); });
      }
    };
  }

 private:
  CFormRestore place_;
  CFontRestore fonts_;
};

}  // namespace tessel
