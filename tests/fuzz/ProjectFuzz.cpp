#include <fstream>

#include "fuzz/FuzzDriver.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/ProjectFile.h"
#include "hosts/workspace/Workspace.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

using namespace tessel;

namespace {

/// A component file: its designer and its code are read, and written again unchanged.
void ReadComponent(const std::string& bytes) {
  static const test::TemporaryFolder folder;
  static memory::MemoryPlatform services;
  static const platform::ScopedPlatform scope(services);
  const auto path = folder.Write("F.frm", bytes);
  try {
    workspace::Workspace workspace(services);
    workspace.Open(path);
    const auto project = workspace.VBE()->ActiveVBProject();
    const auto component = project->VBComponents()->Item(1);
    const auto module = component->CodeModule();
    module->InsertLines(1, u"x");
    module->DeleteLines(1, 1);
    if (workspace.Bytes(*component) != workspace.StoredBytes(*component)) {
      std::abort();
    }
    if (const auto designer = component->Designer()) {
      for (int index = 1; index <= designer->VBControls()->Count(); ++index) {
        static_cast<void>(designer->VBControls()->Item(index)->Properties()->Count());
      }
    }
  } catch (const vb::Failure&) {
    // Refused with a message.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  const workspace::ProjectFile project("P.vbp", bytes);
  if (project.Bytes() != bytes) std::abort();
  static_cast<void>(project.Entries());
  static_cast<void>(project.Type());
  static_cast<void>(workspace::ReadGroup(bytes));
  ReadComponent(bytes);
  return 0;
}

std::vector<std::string> FuzzSeeds() {
  return {
      "VERSION 5.00\r\nObject = \"{0}#1.0#0\"; \"a.ocx\"\r\nBegin VB.Form F \r\n   Caption = \"a "
      "\"\"b\"\r\n"
      "   BeginProperty Font\r\n      Name = \"x\"\r\n   EndProperty\r\n   Begin VB.Label L \r\n   "
      "   Index "
      "= 0\r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\nSub A()\r\nAttribute A.VB_UserMemId = "
      "0\r\nEnd Sub\r\n",
      "Type=Exe\r\nModule=M; M.bas\r\nForm=F.frm\nName=\"P\"\r\n[Section]\r\nx=y\r\n",
      "VBGROUP 5.0\r\nStartupProject=a\\b.vbp\r\n"};
}
