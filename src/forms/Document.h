// A surface that a dockable window of the environment holds.
#pragma once

#include "forms/Surface.h"

namespace tessel::forms {

/// Base of the documents. The environment makes one for its window, initializes it once and tells
/// it when the window is opened and closed; a document has no frame and is never modal.
class Document : public Surface {
 public:
  Document(std::string_view name, StringView caption) : Surface(name, caption) {}

  [[nodiscard]] bool Visible() const override { return visible_; }

  /// The window was made around the document. Later calls do nothing.
  void Initialize();
  /// The window was opened. A failure of the document's own work leaves it shown.
  void Show();
  /// The window was closed.
  void Hide();

 protected:
  virtual void UserDocument_Initialize() {}
  virtual void UserDocument_Show() {}
  virtual void UserDocument_Hide() {}

 private:
  bool initialized_ = false, visible_ = false;
};

}  // namespace tessel::forms
