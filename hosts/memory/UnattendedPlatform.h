// A platform of which nothing leaves the process but files.
#pragma once

#include "hosts/files/SystemFiles.h"
#include "hosts/memory/MemoryApp.h"
#include "hosts/memory/MemoryRegistry.h"
#include "hosts/memory/UnattendedDesktop.h"
#include "hosts/memory/VirtualClock.h"
#include "hosts/model/WindowTable.h"
#include "platform/Platform.h"

namespace tessel::memory {

/// All services in memory, with a desktop and a registry of one's choice.
template <class DesktopKind, class RegistryKind = MemoryRegistry>
class PlatformWith : public platform::Platform {
 public:
  RegistryKind RegistryService;
  DesktopKind DesktopService;
  VirtualClock ClockService;
  model::WindowService WindowsService;
  MemoryIdentity IdentityService;
  MemoryApp AppService;
  files::SystemFiles FilesService;
  [[nodiscard]] platform::Registry& Registry() override { return RegistryService; }
  [[nodiscard]] platform::Boxes& Boxes() override { return DesktopService; }
  [[nodiscard]] platform::Screen& Screen() override { return DesktopService; }
  [[nodiscard]] platform::Clipboard& Clipboard() override { return DesktopService; }
  [[nodiscard]] platform::Shell& Shell() override { return DesktopService; }
  [[nodiscard]] platform::Clock& Clock() override { return ClockService; }
  [[nodiscard]] platform::Windows& Windows() override { return WindowsService.Get(); }
  [[nodiscard]] platform::Identity& Identity() override { return IdentityService; }
  [[nodiscard]] platform::App& App() override { return AppService; }
  [[nodiscard]] platform::Files& Files() override { return FilesService; }
};

/// Nobody is there to be asked.
using UnattendedPlatform = PlatformWith<UnattendedDesktop>;

}  // namespace tessel::memory
