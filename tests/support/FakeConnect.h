// What dialogs see of the root, for tests of a dialog by itself.
#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "host/IConnect.h"
#include "scanning/RunResult.h"

namespace tessel::test {

/// Keeps the guard and the accounts of runs. The Hide operations do nothing.
struct FakeConnect : IConnect {
  bool Open = true;
  std::vector<RunResult> Ended;
  [[nodiscard]] bool DialogOpen() const override { return Open; }
  void SetDialogOpen(bool value) override { Open = value; }
  void RefreshTreeExplorer(bool) override {}
  void HideProjectFragment() override {}
  void HideProcedureBuilder() override {}
  void HidePropertyBuilder() override {}
  void HideClassBuilder() override {}
  void HideEnum() override {}
  void RunEnded(const RunResult& result) override { Ended.push_back(result); }
  void HideFormatText() override {}
  void HideInsertErrorHandlerCode() override {}
  void HideGetFromVbCode() override {}
  void HideStoreToVbCode() override {}
  void HideRemoveErrorHandlerCode() override {}
};

/// Makes the root that of a dialog, however the dialog holds it.
template <class Dialog>
void Attach(Dialog& dialog, const std::shared_ptr<FakeConnect>& root) {
  if constexpr (std::is_pointer_v<decltype(dialog.Connect)>) {
    dialog.Connect = root.get();
  } else {
    dialog.Connect = root;
  }
}

}  // namespace tessel::test
