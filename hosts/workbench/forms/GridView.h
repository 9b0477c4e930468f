#pragma once

#include "forms/Grid.h"
#include "hosts/workbench/forms/ControlView.h"
#include "hosts/workbench/forms/GridTable.h"

namespace tessel::workbench {

class GridModel;

class GridView : public ControlView {
 public:
  GridView(forms::Grid& grid, ViewHost& host);
  [[nodiscard]] GridTable* Widget() const override { return table_; }
  void Settle() override;

 protected:
  void Update() override;
  void Released() override;

 private:
  void Wire();
  void WireOutline();
  void WireEdits();
  void Choose(int row, int col);
  [[nodiscard]] bool MayEdit(int row, int col);
  void Edit(int row, int col, const QString& text);
  void ShowRows(const forms::GridChanges& changes);
  void ShowOutline(const forms::GridChanges& changes, bool anew);
  void ShowCurrent();
  void ShowPlace(const forms::GridChanges& changes);
  void ShowEdit(const forms::GridChanges& changes);
  [[nodiscard]] std::vector<bool> HiddenColumns() const;

  forms::Grid& grid_;
  GridModel* model_;
  GridTable* table_;
  std::vector<int> shownWidths_;
};

}  // namespace tessel::workbench
