// What the dialogs see of Connect.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "vb/Failure.h"
#include "vb/Text.h"

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
  virtual void HideProjectFragment() = 0;
  virtual void HideProjectExplorer() = 0;
  virtual void ShowProcedureBuilder() = 0;
  virtual void HideProcedureBuilder() = 0;
  virtual void ShowPropertyBuilder() = 0;
  virtual void HidePropertyBuilder() = 0;
  virtual void ShowClassBuilder() = 0;
  virtual void HideClassBuilder() = 0;
  virtual void ShowEnum() = 0;
  virtual void HideEnum() = 0;
  // The mailbox of the dialog that names an added control: 1 after OK, 2 after Cancel; the prefix
  // on the way in and the name on the way out; the value of the control's caption or text.
  virtual void SetReturnOkCancel(int value) = 0;
  [[nodiscard]] virtual const String& ItemAddedName() const = 0;
  virtual void SetItemAddedName(StringView value) = 0;
  virtual void SetItemAddedText(StringView value) = 0;
  /// Takes the account of a run that a dialog has started, as it ends.
  virtual void RunEnded(const RunResult& result) = 0;
  virtual void HideFormatText() = 0;
  /// Opens the Settings dialog on the page of that caption, the first for any other text; comes
  /// back when it is closed. The guard against a second dialog doesn't hold it off.
  virtual void ShowSettings(StringView pageName) = 0;
  virtual void HideInsertErrorHandlerCode() = 0;
  virtual void HideGetFromVbCode() = 0;
  virtual void HideStoreToVbCode() = 0;
  virtual void HideRemoveErrorHandlerCode() = 0;
};

/// A dialog's hold on the root, which doesn't keep it alive: the host may drop the root while the
/// dialog stands. The root keeps itself for as long as a routine of it runs, and takes its dialogs
/// along when it goes. Equal to null without a root, and once it is gone.
class ConnectReference {
 public:
  ConnectReference() = default;
  ConnectReference& operator=(std::weak_ptr<IConnect> root) {
    root_ = std::move(root);
    return *this;
  }
  [[nodiscard]] bool operator==(std::nullptr_t) const { return root_.expired(); }
  /// The root, alive to the end of the expression; fails with 91 when there is none.
  [[nodiscard]] std::shared_ptr<IConnect> operator->() const {
    auto root = root_.lock();
    if (!root) throw vb::RuntimeFailure(vb::ObjectNotSet);
    return root;
  }

 private:
  std::weak_ptr<IConnect> root_;
};

}  // namespace tessel
