#include "watchers/cSubclass.h"

#include <algorithm>
#include <utility>

#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

/// A slot that may be reused; no message bears this number.
constexpr std::uint32_t FreeSlot = cSubclass::ALL_MESSAGES;

platform::Windows& Windows() { return platform::Current().Windows(); }

}  // namespace

/// What the window has in front of its procedure: the owner's identity and the tables.
class cSubclass::Block : public platform::WindowHook {
 public:
  std::weak_ptr<iSubclass> Owner;

  [[nodiscard]] bool HasOwner() const override { return !Owner.expired(); }
  void OnBefore(bool& handled, std::intptr_t& result,
                const platform::WindowMessage& message) override {
    const auto owner = Owner.lock();
    if (!owner) return;
    Enter([&] {
      owner->iSubclass_Before(handled, result, message.Window, message.Number, message.WParam,
                              message.LParam);
    });
  }
  void OnAfter(std::intptr_t& result, const platform::WindowMessage& message) override {
    const auto owner = Owner.lock();
    if (!owner) return;
    Enter([&] {
      owner->iSubclass_After(result, message.Window, message.Number, message.WParam,
                             message.LParam);
    });
  }
};

cSubclass::cSubclass() : block_(std::make_shared<Block>()) {}

cSubclass::~cSubclass() { UnSubClass(); }

platform::MessageTable& cSubclass::TableOf(int When) const {
  return When == Before ? block_->Before : block_->After;
}

void cSubclass::AddMsg(std::uint32_t uMsg, int When) {
  platform::MessageTable& table = TableOf(When);
  if (uMsg == ALL_MESSAGES) table.All = true;
  if (table.All) return;
  for (std::uint32_t& slot : table.Numbers) {
    if (slot == FreeSlot) slot = uMsg;
    if (slot == uMsg) return;
  }
  table.Numbers.push_back(uMsg);
}

void cSubclass::DelMsg(std::uint32_t uMsg, int When) {
  platform::MessageTable& table = TableOf(When);
  if (uMsg == ALL_MESSAGES) {
    table = {};
    return;
  }
  const auto slot = std::find(table.Numbers.begin(), table.Numbers.end(), uMsg);
  if (slot != table.Numbers.end()) *slot = FreeSlot;
}

std::intptr_t cSubclass::CallOrigWndProc(platform::WindowHandle hWnd, std::uint32_t uMsg,
                                         std::intptr_t wParam, std::intptr_t lParam) {
  return Windows().CallPrevious(*block_, {hWnd, uMsg, wParam, lParam});
}

void cSubclass::Subclass(platform::WindowHandle hWnd, std::weak_ptr<iSubclass> Owner) {
  LetGo();
  block_->Owner = std::move(Owner);
  window_ = hWnd;
  Windows().Hook(hWnd, block_);
}

void cSubclass::UnSubClass() {
  if (window_ == 0) return;
  block_->Before = block_->After = {};  // a call that is under way passes nothing on any more
  LetGo();
}

/// A platform that is gone has taken its windows along.
void cSubclass::LetGo() {
  if (window_ == 0) return;
  if (platform::IsInstalled()) Windows().Unhook(window_, *block_);
  window_ = 0;
}

}  // namespace tessel
