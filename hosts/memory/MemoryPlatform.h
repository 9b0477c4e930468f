// Platforms of which nothing leaves the process.
#pragma once

#include "hosts/files/SystemFiles.h"
#include "hosts/memory/MemoryApp.h"
#include "hosts/memory/MemoryRegistry.h"
#include "hosts/memory/ScriptedDesktop.h"
#include "hosts/memory/VirtualClock.h"
#include "hosts/model/WindowTable.h"
#include "platform/Platform.h"

namespace tessel::memory {

/// All services in memory, with a desktop of one's choice.
template <class DesktopKind>
class PlatformWith : public platform::Platform {
 public:
  MemoryRegistry RegistryService;
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
/// The user is a script.
using MemoryPlatform = PlatformWith<ScriptedDesktop>;

}  // namespace tessel::memory
