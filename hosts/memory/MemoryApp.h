// A program and a machine that are what somebody says.
#pragma once

#include <vector>

#include "hosts/files/TemporaryFolder.h"
#include "platform/App.h"
#include "platform/Identity.h"

namespace tessel::memory {

class MemoryIdentity : public platform::Identity {
 public:
  String Computer, User;
  [[nodiscard]] String ComputerName() override { return Computer; }
  [[nodiscard]] String UserName() override { return User; }
  /// Counts up from 1.
  [[nodiscard]] String NewGuid() override;

 private:
  unsigned guids_ = 0;
};

class MemoryApp : public platform::App {
 public:
  String Folder = u"/program";
  String Executable = u"Tessel", Caption = u"Tessel";
  std::vector<String> EventLog;
  std::optional<int> Platform = std::nullopt;
  [[nodiscard]] String Path() override { return Folder; }
  [[nodiscard]] String EXEName() override { return Executable; }
  [[nodiscard]] String Title() override { return Caption; }
  [[nodiscard]] platform::Version ProgramVersion() override { return {}; }
  void LogEvent(StringView text, platform::LogEventType) override { EventLog.emplace_back(text); }
  [[nodiscard]] std::optional<int> PlatformId(int) override { return Platform; }
  [[nodiscard]] String NativePath(StringView path) override;
  [[nodiscard]] String TemporaryFolder() override;

 private:
  files::TemporaryFolder temporary_;
};

}  // namespace tessel::memory
