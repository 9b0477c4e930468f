// The environment's windows, without a screen.
#pragma once

#include <memory>
#include <vector>

#include "host/VBE.h"
#include "hosts/model/Environment.h"
#include "hosts/model/OperationHook.h"

namespace tessel::model {

class Window : public host::Window {
 public:
  Window(Hook hook, std::intptr_t handle, StringView className, StringView caption);
  [[nodiscard]] bool Visible() override;
  void SetVisible(bool value) override;
  [[nodiscard]] String Caption() override;
  [[nodiscard]] std::intptr_t HWnd() override;
  void SetCaption(StringView caption) { info_.Caption = caption; }
  [[nodiscard]] const WindowInfo& Info() const { return info_; }

 private:
  Hook hook_;
  WindowInfo info_;
};

/// Makes windows and knows those that are still held.
class Windows : public host::Windows {
 public:
  explicit Windows(Hook hook);
  std::shared_ptr<host::Window> CreateToolWindow(StringView progId, StringView caption,
                                                 StringView guidPosition) override;
  std::shared_ptr<Window> Create(StringView className, StringView caption);
  [[nodiscard]] std::shared_ptr<Window> Main() const { return main_; }
  [[nodiscard]] std::vector<WindowInfo> All() const;

 private:
  Hook hook_;
  std::intptr_t next_ = 0x10010;
  std::vector<std::weak_ptr<Window>> windows_;
  std::shared_ptr<Window> main_, client_, project_, properties_;
};

}  // namespace tessel::model
