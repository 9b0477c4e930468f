#include "hosts/batch/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tessel::batch {
namespace {

/// Where the next piece will stand in a regular file; -1 for pipes, terminals and devices.
off_t PlaceIn(int descriptor) {
  struct stat info {};
  if (fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode)) return -1;
  const bool appends = (fcntl(descriptor, F_GETFL) & O_APPEND) != 0;
  return appends ? info.st_size : lseek(descriptor, 0, SEEK_CUR);
}

}  // namespace

OutputFile::int_type OutputFile::overflow(int_type sign) {
  if (!traits_type::eq_int_type(sign, traits_type::eof())) {
    piece_ += traits_type::to_char_type(sign);
  }
  return traits_type::not_eof(sign);
}

std::streamsize OutputFile::xsputn(const char* text, std::streamsize count) {
  piece_.append(text, static_cast<std::size_t>(count));
  return count;
}

bool OutputFile::WritePiece() {
  for (std::size_t at = 0; at < piece_.size();) {
    const ssize_t written = write(descriptor_, piece_.data() + at, piece_.size() - at);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    at += static_cast<std::size_t>(written);
  }
  return true;
}

int OutputFile::sync() {
  if (error_ != 0) return -1;
  const off_t place = PlaceIn(descriptor_);
  const bool written = WritePiece();
  piece_.clear();
  if (written) return 0;
  error_ = errno;
  if (place >= 0 && ftruncate(descriptor_, place) == 0) lseek(descriptor_, place, SEEK_SET);
  return -1;
}

}  // namespace tessel::batch
