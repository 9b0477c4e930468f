// An output of which no half reaches the disk.
#pragma once

#include <streambuf>
#include <string>

namespace tessel::batch {

/// Keeps what is written until the stream is flushed, and then writes it in one piece. Where that
/// fails, the stream fails, and a regular file is cut back to what stood in it before the piece.
class OutputFile : public std::streambuf {
 public:
  /// The descriptor isn't owned.
  explicit OutputFile(int descriptor) : descriptor_(descriptor) {}
  /// The system's number of the first failure, 0 without one.
  [[nodiscard]] int Error() const { return error_; }

 protected:
  int_type overflow(int_type sign) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int sync() override;

 private:
  [[nodiscard]] bool WritePiece();

  int descriptor_, error_ = 0;
  std::string piece_;
};

}  // namespace tessel::batch
