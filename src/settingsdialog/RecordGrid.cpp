#include "settingsdialog/RecordGrid.h"

#include "connections/cConnectionMDBs.h"

namespace tessel {

void RecordGrid::Open(StringView statement, std::span<const Column> columns) {
  columns_ = columns;
  const int count = static_cast<int>(columns.size());
  grid_.SetCols(NameColumn + count);
  grid_.SetFixedCols(NameColumn);
  grid_.SetRows(1);
  grid_.SetFixedRows(1);
  std::vector<int> widths{2};
  for (int at = 0; at < count; ++at) {
    const Column& column = columns[static_cast<std::size_t>(at)];
    grid_.SetTextMatrix(0, NameColumn + at, column.Field);
    grid_.SetColTicks(NameColumn + at, column.Ticks);
    widths.push_back(forms::Grid::CharactersOf(column.Width));
  }
  grid_.LastColumnStretches = true;
  grid_.ColumnWidths = widths;
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  records_.Open(statement, gConnectionMDBs->item(SharedConnection)->mConnectMDB);
  for (; !records_.Eof(); records_.MoveNext()) grid_.AddItem(CellsOfCurrent());
  if (grid_.Rows() > grid_.FixedRows()) grid_.Select(grid_.FixedRows(), NameColumn);
}

std::vector<String> RecordGrid::CellsOfCurrent() const {
  std::vector<String> cells(NameColumn);
  for (const Column& column : columns_)
    cells.push_back(store::ToText(records_.Field(column.Field)));
  return cells;
}

bool RecordGrid::Has(StringView name) const {
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    if (vb::SameText(grid_.TextMatrix(row, NameColumn), name)) return true;
  }
  return false;
}

void RecordGrid::Add(StringView name) {
  records_.AddNew();
  try {
    records_.SetField(columns_[0].Field, String(name));
    records_.Update();
  } catch (...) {
    records_.CancelUpdate();
    throw;
  }
  grid_.Select(grid_.AddItem(CellsOfCurrent()), NameColumn);
}

String RecordGrid::CurrentName() const {
  const int row = grid_.Row();
  return row < grid_.FixedRows() ? String() : grid_.TextMatrix(row, NameColumn);
}

void RecordGrid::DeleteCurrent() {
  const int row = grid_.Row();
  MoveTo(row);
  records_.Delete();
  grid_.RemoveItem(row);
}

void RecordGrid::StoreCell(int row, int col, const Statements& run) {
  const Column& column = columns_[static_cast<std::size_t>(col - NameColumn)];
  const String text = grid_.TextMatrix(row, col);
  const auto show = [&] {
    grid_.SetTextMatrix(row, col, store::ToText(records_.Field(column.Field)));
  };
  run([&] {
    MoveTo(row);
    try {
      store::Value value = text;
      if (column.Ticks) value = store::ToBoolean(value);
      records_.SetField(column.Field, value);
      records_.Update();
    } catch (...) {
      records_.CancelUpdate();
      show();
      throw;
    }
    show();
  });
}

}  // namespace tessel
