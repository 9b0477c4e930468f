// The places that a search found, each a jump.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/editing/TextSearch.h"
#include "hosts/model/CodeModule.h"

namespace tessel::workbench {

/// A place in a module.
struct ModuleHit {
  std::weak_ptr<model::CodeModule> Module;
  editing::SearchHit Place;
};

class HitList : public QTreeWidget {
 public:
  /// More than so many are not listed.
  static constexpr std::size_t MostListed = 10'000;

  explicit HitList(QWidget* parent);

  /// A place was chosen with the mouse or with Return.
  std::function<void(const ModuleHit&)> OnChosen;
  void Show(std::vector<ModuleHit> hits);

 private:
  void Choose(const QTreeWidgetItem& item);
  std::vector<ModuleHit> hits_;
};

}  // namespace tessel::workbench
