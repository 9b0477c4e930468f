// What the dialogs see of Connect.
#pragma once

namespace tessel {

struct RunResult;

class IConnect {
 public:
  virtual ~IConnect() = default;
  /// The single guard against a second dialog: True from a dialog's showing to its Form_Unload.
  [[nodiscard]] virtual bool DialogOpen() const = 0;
  virtual void SetDialogOpen(bool value) = 0;
  /// Lets events run, and the Explorer follow.
  virtual void RefreshTreeExplorer(bool twitchCursor) = 0;
  /// Takes the account of a run that a dialog has started, as it ends.
  virtual void RunEnded(const RunResult& result) = 0;
  virtual void HideFormatText() = 0;
  virtual void HideInsertErrorHandlerCode() = 0;
  virtual void HideRemoveErrorHandlerCode() = 0;
};

}  // namespace tessel
