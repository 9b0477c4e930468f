// Reads the modules of the open projects while the user does nothing.
#pragma once

#include <QTimer>
#include <memory>
#include <set>

#include "hosts/model/Vbe.h"

namespace tessel::workbench {

/// What names mean is known only of modules that were read. Reading all of a large project would be
/// felt by whoever waits for it, so it is done a few milliseconds at a time, and not beyond
/// `MostLines`, which take some ten megabytes.
class QuietReader {
 public:
  static constexpr int MostLines = 400'000;

  explicit QuietReader(std::shared_ptr<model::Vbe> vbe);

  /// Goes on until all modules are read. Cheap when they are.
  void Begin();

 private:
  void ReadSome();
  [[nodiscard]] std::shared_ptr<model::CodeModule> NextUnread();

  std::shared_ptr<model::Vbe> vbe_;
  QTimer timer_;
  /// Modules whose files can't be read; saving and opening them tell why.
  std::set<const model::CodeModule*> failed_;
  int lines_ = 0;
};

}  // namespace tessel::workbench
