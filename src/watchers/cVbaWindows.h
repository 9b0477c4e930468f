// The code windows and designers that are watched.
#pragma once

#include <memory>
#include <utility>

#include "vb/Collection.h"
#include "watchers/cVbaWindow.h"

namespace tessel {

/// In the order of adding, each under its window's handle in text form.
class cVbaWindows : public vb::Collection<cVbaWindow> {
 public:
  cVbaWindows() : Collection(u"window") {}
  void SetEventCODE(std::shared_ptr<clsEventCODE> value) { eventCODE_ = std::move(value); }
  [[nodiscard]] static String KeyOf(platform::WindowHandle hWnd) { return vb::Str(hWnd); }

 private:
  std::shared_ptr<clsEventCODE> eventCODE_;
};

/// Between connection and disconnection of the add-in.
extern std::shared_ptr<cVbaWindows> gVbaWindows;

}  // namespace tessel
