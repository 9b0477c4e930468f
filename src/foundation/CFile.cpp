#include "foundation/CFile.h"

#include <fstream>
#include <iterator>

#include "foundation/ServiceClass.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t NotInitialized = 0x8004440D, InvalidFileName = 0x8004440E,
                        FileNotFound = 0x8004440F, CopyFailed = 0x80044410, MoveFailed = 0x80044411,
                        DeleteFailed = 0x80044412, ComponentFailure = 0x80044413;
constexpr ServiceClass Service{u"CFile", NotInitialized, ComponentFailure,
                               u"CFile component failure"};

enum FileAttribute : int {
  AttributeReadOnly = 1,
  AttributeHidden = 2,
  AttributeFolder = 16,
  AttributeArchive = 32
};

fs::path Native(StringView path) { return {platform::Current().App().NativePath(path)}; }

void CheckName(StringView name) {
  if (name.empty()) throw Service.Own(InvalidFileName, u"Invalid file name");
}

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) throw vb::RuntimeFailure(vb::PathFileAccess);
  return bytes;
}

/// The name of what a path stands for, also where a separator ends it; empty for a root.
String LastName(const fs::path& path) {
  return (path.has_filename() ? path : path.parent_path()).filename().u16string();
}

bool IsWritable(const fs::path& path) {
  return (fs::status(path).permissions() & fs::perms::owner_write) != fs::perms::none;
}

}  // namespace

fs::path CFile::Path() const {
  if (pathFileName_.empty()) {
    throw Service.Own(NotInitialized,
                      u"Object not properly initialized. Set the PathFileName property to a "
                      u"non-empty value first");
  }
  return Native(pathFileName_);
}

fs::path CFile::ExistingPath() const {
  fs::path path = Path();
  if (!fs::exists(path)) throw Service.Own(FileNotFound, u"File not found");
  return path;
}

void CFile::Init(StringView pathFileName) { SetPathFileName(pathFileName); }

void CFile::SetPathFileName(StringView value) {
  CheckName(value);
  pathFileName_ = value;
}

int CFile::Attributes() const {
  return Service.Guard([&] {
    const fs::path path = ExistingPath();
    int attributes = fs::is_directory(path) ? AttributeFolder : AttributeArchive;
    if (!IsWritable(path)) attributes |= AttributeReadOnly;
    if (LastName(path).starts_with(u'.')) attributes |= AttributeHidden;
    return attributes;
  });
}

std::string CFile::Contents() const {
  return Service.Guard([&] { return ReadAll(ExistingPath()); });
}

void CFile::SetContents(const std::string& bytes) const {
  Service.Guard([&] {
    const fs::path path = Path();
    try {
      platform::Current().Files().Write(path, bytes);
    } catch (const vb::Failure&) {
      throw vb::RuntimeFailure(vb::PathFileAccess);
    }
  });
}

String CFile::FileName() const {
  return Service.Guard([&] { return Path().filename().u16string(); });
}

String CFile::FileExt() const {
  return Service.Guard([&] {
    const String extension = Path().extension().u16string();
    return extension.empty() ? extension : extension.substr(1);
  });
}

String CFile::FilePath() const {
  return Service.Guard([&] { return Path().parent_path().u16string(); });
}

bool CFile::ReadOnly() const {
  return Service.Guard([&] { return !IsWritable(ExistingPath()); });
}

String CFile::ShortFileName() const {
  return Service.Guard([&] { return ExistingPath().filename().u16string(); });
}

std::int64_t CFile::Size() const {
  return Service.Guard([&] { return static_cast<std::int64_t>(fs::file_size(ExistingPath())); });
}

void CFile::Copy(StringView target) const {
  Service.Guard([&] {
    const fs::path source = ExistingPath();
    CheckName(target);
    const fs::path to = Native(target);
    std::error_code error;
    try {
      platform::Current().Files().Write(to, ReadAll(source));
      fs::permissions(to, fs::status(source).permissions(), error);
    } catch (const vb::Failure&) {
      throw Service.Own(CopyFailed, u"File copy failed");
    }
  });
}

void CFile::Delete() const {
  Service.Guard([&] {
    std::error_code error;
    if (!fs::remove(ExistingPath(), error)) throw Service.Own(DeleteFailed, u"File delete failed");
  });
}

bool CFile::Exists() const {
  return Service.Guard([&] { return fs::exists(Path()); });
}

bool CFile::IdenticalWith(StringView other) const {
  return Service.Guard([&] {
    const fs::path mine = ExistingPath();
    CheckName(other);
    const fs::path theirs = Native(other);
    if (!fs::exists(theirs)) throw Service.Own(FileNotFound, u"File not found");
    return fs::file_size(mine) == fs::file_size(theirs) && ReadAll(mine) == ReadAll(theirs);
  });
}

void CFile::Move(StringView target) {
  Service.Guard([&] {
    const fs::path source = ExistingPath();
    CheckName(target);
    try {
      platform::Current().Files().Move(source, Native(target));
    } catch (const vb::Failure&) {
      throw Service.Own(MoveFailed, u"File move failed");
    }
    pathFileName_ = target;
  });
}

}  // namespace tessel
