// What dialogs see of the root, for tests of a dialog by itself.
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "host/IConnect.h"
#include "scanning/RunResult.h"

namespace tessel::test {

/// Keeps the guard, the accounts of runs, and what the Explorer asked for. The other Hide
/// operations do nothing.
struct FakeConnect : IConnect {
  bool Open = true;
  std::vector<RunResult> Ended;
  std::vector<std::string> Asked;
  std::vector<String> SettingsShown;  ///< the pages that were asked for
  [[nodiscard]] bool DialogOpen() const override { return Open; }
  void SetDialogOpen(bool value) override { Open = value; }
  void RefreshTreeExplorer(bool) override {}
  void HideProjectFragment() override {}
  void HideProjectExplorer() override { Asked.emplace_back("HideProjectExplorer"); }
  void ShowProcedureBuilder() override { Asked.emplace_back("ShowProcedureBuilder"); }
  void ShowPropertyBuilder() override { Asked.emplace_back("ShowPropertyBuilder"); }
  void ShowClassBuilder() override { Asked.emplace_back("ShowClassBuilder"); }
  void ShowEnum() override { Asked.emplace_back("ShowEnum"); }
  void HideProcedureBuilder() override {}
  void HidePropertyBuilder() override {}
  void HideClassBuilder() override {}
  void HideEnum() override {}
  int Answer = 0;
  String AddedName, AddedText;
  void SetReturnOkCancel(int value) override { Answer = value; }
  [[nodiscard]] const String& ItemAddedName() const override { return AddedName; }
  void SetItemAddedName(StringView value) override { AddedName = value; }
  void SetItemAddedText(StringView value) override { AddedText = value; }
  void RunEnded(const RunResult& result) override { Ended.push_back(result); }
  void HideFormatText() override {}
  void ShowSettings(StringView pageName) override { SettingsShown.emplace_back(pageName); }
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
