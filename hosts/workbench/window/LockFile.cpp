#include "hosts/workbench/window/LockFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

namespace tessel::workbench {
namespace {

/// Whether the open file still is the one of that name.
bool IsNamed(int handle, const QByteArray& name) {
  struct stat open {};
  struct stat named {};
  return ::fstat(handle, &open) == 0 && ::stat(name.constData(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

}  // namespace

std::shared_ptr<LockFile> LockFile::Take(const QString& file) {
  const QByteArray name = QFile::encodeName(file);
  for (;;) {
    const int handle = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (handle >= 0 && ::flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      ::close(handle);
      return nullptr;
    }
    // Whoever held it until now may have taken the file away.
    if (handle < 0 || IsNamed(handle, name)) {
      return std::shared_ptr<LockFile>(new LockFile(file, handle));
    }
    ::close(handle);
  }
}

LockFile::~LockFile() {
  if (handle_ >= 0) ::close(handle_);
}

void LockFile::Remove() const { QFile::remove(file_); }

}  // namespace tessel::workbench
