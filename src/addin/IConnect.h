// What the dialogs see of Connect.
#pragma once

#include "vb/Text.h"

namespace tessel {

class IConnect {
 public:
  virtual ~IConnect() = default;
  [[nodiscard]] virtual bool DialogOpen() const = 0;
  virtual void SetDialogOpen(bool value) = 0;
  virtual void RefreshTreeExplorer(bool twitchCursor) = 0;
  virtual void HideFormatText() = 0;
  virtual void HideEditErrorHandlerScheme() = 0;
  virtual void HideInsertErrorHandlerCode() = 0;
  virtual void HideRemoveErrorHandlerCode() = 0;
};

}  // namespace tessel
