// Starts documents, folders, programs and addresses.
#pragma once

#include "vb/Text.h"

namespace tessel {

/// An answer of the shell of 32 or less becomes one of the failures 0x80044679 to 0x80044687.
class CShell {
 public:
  /// Opens a new message; empty parts are left out.
  void CreateNewMailMessage(StringView to, StringView subject = {}, StringView cc = {},
                            StringView body = {}) const;
  void ExploreFolder(StringView folder) const;
  /// Opens the document with the program registered for its extension.
  void LaunchProgram(StringView document, StringView parameters = {}) const;
  void OpenDocument(StringView document) const;
  void OpenFolder(StringView folder) const;
  void OpenUrl(StringView address) const;
  /// Fails with 0x80044686 when the system can't show them.
  void ShowProperties(StringView file) const;
};

}  // namespace tessel
