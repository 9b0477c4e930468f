#include "foundation/CFileOpenSaveDialog.h"

#include <filesystem>

#include "foundation/ServiceClass.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

constexpr std::uint32_t InvalidWindow = 0x80044435, ComponentFailure = 0x80044436;
constexpr ServiceClass Service{u"CFileOpenSaveDialog", InvalidWindow, ComponentFailure,
                               u"CFileOpenSaveDialog component failure"};
/// Flag of the system's dialog: several files may be chosen.
constexpr std::int32_t AllowMultiSelect = 0x200;

}  // namespace

void CFileOpenSaveDialog::Init() { *this = CFileOpenSaveDialog(); }

String CFileOpenSaveDialog::GetNextFileName() {
  return next_ < files_.size() ? files_[next_++] : String();
}

bool CFileOpenSaveDialog::Show(FileDialogKind kind) {
  return Service.Guard([&] {
    platform::Platform& services = platform::Current();
    if (HWndOwner != 0 && services.Windows().ClassName(HWndOwner).empty()) {
      throw Service.Own(InvalidWindow, u"Invalid window handle");
    }
    files_ = services.Boxes().FileDialog({.Save = kind == FileDialogKind::Save,
                                          .Title = DialogTitle,
                                          .Filter = Filter,
                                          .InitialDir = InitialDir,
                                          .FileName = FileName,
                                          .DefaultExt = DefaultExt,
                                          .MultiSelect = (Flags & AllowMultiSelect) != 0});
    next_ = 0;
    if (files_.empty()) return false;
    const std::filesystem::path first(services.App().NativePath(files_.front()));
    FileName = files_.front();
    FileTitle = first.filename().u16string();
    selectedPath_ = first.parent_path().u16string();
    return true;
  });
}

}  // namespace tessel
