// What dialogs see of the root, for tests of a dialog by itself.
#pragma once

#include "host/IConnect.h"

namespace tessel::test {

/// Keeps the guard. The Hide operations do nothing.
struct FakeConnect : IConnect {
  bool Open = true;
  [[nodiscard]] bool DialogOpen() const override { return Open; }
  void SetDialogOpen(bool value) override { Open = value; }
  void RefreshTreeExplorer(bool) override {}
  void HideProcedureBuilder() override {}
  void HidePropertyBuilder() override {}
  void HideClassBuilder() override {}
  void HideEnum() override {}
  void HideFormatText() override {}
  void HideInsertErrorHandlerCode() override {}
  void HideRemoveErrorHandlerCode() override {}
};

}  // namespace tessel::test
