// A lock between programs that ends with the process that holds it.
#pragma once

#include <QString>
#include <memory>

namespace tessel::workbench {

/// Held by an open file, so that the system gives it up however the process ends. Processes that
/// this one starts don't inherit it.
class LockFile {
 public:
  /// Null when another holds it, in this process or any other. A file that can't be made or locked
  /// for other reasons counts as free: there is nobody who could hold it.
  [[nodiscard]] static std::shared_ptr<LockFile> Take(const QString& file);
  ~LockFile();
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;

  /// Takes the file away; the lock itself is held until the end.
  void Remove() const;

 private:
  LockFile(QString file, int handle) : file_(std::move(file)), handle_(handle) {}
  QString file_;
  int handle_;
};

}  // namespace tessel::workbench
