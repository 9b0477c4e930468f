#include "snippets/ObjectFiles.h"

#include <algorithm>
#include <filesystem>

#include "foundation/CFile.h"
#include "foundation/CFileOpenSaveDialog.h"
#include "platform/Platform.h"
#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel::mFunctions {
namespace {

namespace fs = std::filesystem;

constexpr StringView KeptFile = u"pagefile.sys";
/// Companion files travel under this one, so that they come back in any project.
constexpr int ByteCodePage = 1252;

fs::path Native(StringView path) { return {platform::Current().App().NativePath(path)}; }

CFile FileOf(StringView path) {
  CFile file;
  file.Init(path);
  return file;
}

void EmptyNative(const fs::path& folder) {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    // A link to a folder is a file of this one.
    if (entry.is_directory() && !entry.is_symlink()) {
      EmptyNative(entry.path());
    } else if (!vb::SameText(entry.path().filename().u16string(), KeptFile)) {
      fs::remove(entry.path());
    }
  }
}

String TwoDigits(int number) { return (number < 10 ? u"0" : u"") + vb::Str(number); }

bool AskForFile(FileDialogKind kind, StringView filter, String& path, std::intptr_t owner) {
  CFileOpenSaveDialog dialog;
  dialog.Filter = filter;
  dialog.HWndOwner = owner;
  if (!dialog.Show(kind)) return false;
  path = dialog.FileName;
  return true;
}

}  // namespace

String GetFile(StringView path, const std::shared_ptr<host::VBProject>& project) {
  const CFile file = FileOf(path);
  if (!file.Exists()) {
    throw vb::Failure(vb::FileNotFound, u"File not found: " + String(path), u"Tessel");
  }
  const std::string bytes = file.Contents();
  return project ? project->SourceText(bytes) : vb::TextOfBytes(bytes, ByteCodePage);
}

String GetCompanion(StringView path, bool needed) {
  return needed || FileOf(path).Exists() ? GetFile(path) : String();
}

void PutFile(StringView path, StringView text, const std::shared_ptr<host::VBProject>& project,
             StringView knownAs) {
  std::size_t at = 0;
  const auto bytes =
      project ? project->SourceBytes(text, at) : vb::ExactBytesOfText(text, ByteCodePage, at);
  if (!bytes) {
    throw vb::Failure(vb::InvalidCall,
                      String(knownAs.empty() ? path : knownAs) + u": the character \"" +
                          String(text.substr(at, 1)) + u"\" isn't in the code page of the project",
                      u"Tessel");
  }
  platform::Current().Files().Write(Native(path), *bytes);
}

String CompanionPath(StringView path, StringView extension) {
  const fs::path main = Native(path);
  const String wanted = main.stem().u16string() + String(extension);
  const fs::path plain = main.parent_path() / fs::path(wanted);
  std::error_code error;
  if (fs::exists(plain, error)) return plain.u16string();
  for (const fs::directory_entry& entry : fs::directory_iterator(main.parent_path(), error)) {
    const fs::path& file = entry.path();
    if (vb::SameText(file.filename().u16string(), wanted)) return file.u16string();
  }
  return plain.u16string();
}

bool IsFileName(StringView name) {
  return !name.empty() && name != u"." && name != u".." &&
         name.find_first_of(u"\\/:\"<>|?*") == StringView::npos &&
         std::none_of(name.begin(), name.end(), [](char16_t unit) { return unit < u' '; });
}

int CheckVBAorVBForm(StringView text) {
  if (vb::InStr(text, u"Begin VB.Form ", vb::Compare::Text) > 1) return 0;
  return vb::InStr(text, u"Begin VB.MDIForm ", vb::Compare::Text) > 1 ? 2 : 1;
}

String GetTempFolder() {
  platform::App& app = platform::Current().App();
  String folder = app.TemporaryFolder();
  if (folder.empty()) folder = app.Path();
  if (folder.empty() || (folder.back() != u'\\' && folder.back() != u'/')) folder += u'\\';
  const vb::Date now = platform::Current().Clock().Now();
  return folder + u"TempVB6\\" + vb::Str(now.Year) + TwoDigits(now.Month) + TwoDigits(now.Day) +
         u"_" + vb::Str(now.Hour) + vb::Str(now.Minute) + vb::Str(now.Second);
}

void CreateFolderPath(StringView path) { fs::create_directories(Native(path)); }

void EmptyFolder(StringView path) { EmptyNative(Native(path)); }

void RemoveFolder(StringView path) {
  EmptyFolder(path);
  fs::remove_all(Native(path));
}

void CopyFileSafe(StringView target, StringView source) {
  if (target.empty()) return;
  fs::copy_file(Native(source), Native(target), fs::copy_options::overwrite_existing);
}

bool OPENFILENAME(StringView filter, String& path, std::intptr_t owner) {
  return AskForFile(FileDialogKind::Open, filter, path, owner);
}

bool SaveFileName(String& path, StringView filter, std::intptr_t owner) {
  return AskForFile(FileDialogKind::Save, filter, path, owner);
}

}  // namespace tessel::mFunctions
