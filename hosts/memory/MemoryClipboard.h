// A clipboard that nobody else sees.
#pragma once

#include <optional>

#include "platform/Clipboard.h"
#include "vb/Failure.h"

namespace tessel::memory {

class MemoryClipboard : public platform::Clipboard {
 public:
  [[nodiscard]] String GetText() override { return text_; }
  void SetText(StringView text) override {
    if (FailClipboard) throw *FailClipboard;
    text_ = text;
    picture_ = 0;
  }
  void SetPicture(int picture) override {
    text_.clear();
    picture_ = picture;
  }
  [[nodiscard]] int GetPicture() override { return picture_; }
  void Clear() override { SetPicture(0); }
  /// When set, each text that is put in fails with this.
  std::optional<vb::Failure> FailClipboard;

 private:
  String text_;
  int picture_ = 0;
};

}  // namespace tessel::memory
