// Stands at the environment's properties window.
#pragma once

#include <memory>
#include <utility>

#include "host/VBE.h"
#include "watchers/cSubclass.h"
#include "watchers/clsEventCODE.h"

namespace tessel {

/// A point of observation: it is there, and does nothing with what it hears.
class cWinProperties : public iSubclass, public std::enable_shared_from_this<cWinProperties> {
 public:
  void SetEventCODE(std::shared_ptr<clsEventCODE> value) { eventCODE_ = std::move(value); }
  /// Kept for whoever asks.
  [[nodiscard]] const String& PrevProperties() const { return prevProperties_; }
  void SetPrevProperties(StringView value) { prevProperties_ = value; }
  void Start(const std::shared_ptr<host::VBE>& VBInstance);
  void UnSubClass();

  void iSubclass_After(std::intptr_t&, platform::WindowHandle, std::uint32_t, std::intptr_t,
                       std::intptr_t) override {}
  void iSubclass_Before(bool&, std::intptr_t&, platform::WindowHandle, std::uint32_t, std::intptr_t,
                        std::intptr_t) override {}

 private:
  std::shared_ptr<clsEventCODE> eventCODE_;
  String prevProperties_;
  cSubclass subclass_;
};

}  // namespace tessel
