// A clipboard that nobody else sees.
#pragma once

#include "platform/Clipboard.h"

namespace tessel::memory {

class MemoryClipboard : public platform::Clipboard {
 public:
  [[nodiscard]] String GetText() override { return text_; }
  void SetText(StringView text) override {
    text_ = text;
    picture_ = 0;
  }
  void SetPicture(int picture) override {
    text_.clear();
    picture_ = picture;
  }
  [[nodiscard]] int GetPicture() override { return picture_; }
  void Clear() override { SetPicture(0); }

 private:
  String text_;
  int picture_ = 0;
};

}  // namespace tessel::memory
