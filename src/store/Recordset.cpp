#include "store/Recordset.h"

#include <algorithm>
#include <numeric>

#include "store/Criterion.h"
#include "store/OpenSpans.h"
#include "store/PreparedCommand.h"
#include "store/RecordsetSource.h"

namespace tessel::store {

Recordset::Recordset() = default;
Recordset::~Recordset() = default;

void Recordset::Open(StringView statement, const std::shared_ptr<Connection>& connection) {
  Close();
  sqlite3* const db = engine::Need(connection.get());
  auto source = std::make_unique<Source>(Source{connection, connection->Translate(statement), {}});
  const auto prepared = engine::Prepare(db, source->Translation.Sql);
  Load(std::move(source), prepared.get());
}

void Recordset::Open(Command& command, const std::vector<Value>& values) {
  Close();
  const Command::Prepared& prepared = command.Prepare();
  auto source =
      std::make_unique<Source>(Source{command.ActiveConnection, prepared.Translation, values});
  const engine::Resetting resetting(prepared.Statement.get());
  prepared.Bind(source->Db(), values);
  Load(std::move(source), prepared.Statement.get());
}

void Recordset::Requery() {
  if (!source_) FailRecordset(NoCurrentRow, u"The recordset is not open");
  const auto prepared = engine::Prepare(source_->Db(), source_->Translation.Sql);
  int parameter = 1;
  for (const Value& value : source_->Values) {
    engine::Bind(source_->Db(), prepared.get(), parameter++, value);
  }
  Clear();
  Load(std::move(source_), prepared.get());
}

void Recordset::Load(std::unique_ptr<Source> source, sqlite3_stmt* statement) {
  source_ = std::move(source);
  ++opening_;
  sqlite3* const db = source_->Db();
  // The first step may find that another writer changed the tables, and with them the columns.
  bool more = engine::Step(db, statement);
  ReadColumns(statement);
  const engine::RowReader row(statement);
  const auto columns = static_cast<int>(names_.size());
  const bool numbered = row.Count() > columns;
  for (; more; more = engine::Step(db, statement)) {
    row.AddTo(cells_, columns);
    rowIds_.push_back(numbered ? sqlite3_column_int64(statement, columns) : 0);
  }
  deleted_.assign(rowIds_.size(), false);
  if (source_->Translation.SpanCount) CountSpans(*source_->Translation.SpanCount);
  open_ = true;
  ShowRows();
}

/// The last column of rows that can be written back, and of those that have spans, is the row's
/// number and is not shown.
void Recordset::ReadColumns(sqlite3_stmt* statement) {
  const bool writable = !source_->Translation.Table.empty();
  const bool numbered = writable || source_->Translation.SpanCount;
  const int columns = sqlite3_column_count(statement) - (numbered ? 1 : 0);
  for (int column = 0; column < columns; ++column) {
    names_.push_back(vb::FromUtf8(sqlite3_column_name(statement, column)));
    if (!writable) continue;
    const char* const origin = sqlite3_column_origin_name(statement, column);
    origins_.emplace_back(origin == nullptr ? "" : origin);
  }
}

/// The rows stand in the order of their left numbers, and `column` has the right ones. Rows of one
/// left number cover each other; what nothing covers, not even itself, is no row.
void Recordset::CountSpans(std::size_t column) {
  OpenSpans open;
  for (std::size_t row = 0; row < rowIds_.size();) {
    const std::int64_t left = rowIds_[row];
    std::size_t end = row;
    for (; end < rowIds_.size() && rowIds_[end] == left; ++end) {
      const Value right = CellOf(end, column);
      const auto* const number = std::get_if<std::int64_t>(&right);
      open.Step(left, number != nullptr, number == nullptr ? 0 : *number);
    }
    for (; row < end; ++row) {
      cells_.SetWhole(PlaceOf(row, column), static_cast<std::int64_t>(open.Count()));
      deleted_[row] = open.Count() == 0;
    }
  }
}

void Recordset::Clear() {
  open_ = false;
  names_.clear();
  origins_.clear();
  cells_.Clear();
  rowIds_.clear();
  deleted_.clear();
  shown_.clear();
  pending_.clear();
  position_ = 0;
  before_ = gone_ = adding_ = false;
}

void Recordset::Close() {
  Clear();
  source_.reset();
  filter_.clear();
}

void Recordset::ShowRows() {
  shown_.clear();
  position_ = 0;
  before_ = gone_ = false;
  const auto show = [&](auto&& fits) {
    for (std::size_t row = 0; row < rowIds_.size(); ++row) {
      if (!deleted_[row] && fits(row)) shown_.push_back(row);
    }
  };
  if (filter_.empty()) {
    show([](std::size_t) { return true; });
  } else {
    const Criterion criterion(filter_, [&](StringView name) { return ColumnOf(name); });
    show([&](std::size_t row) {
      return criterion.Fits([&](std::size_t column) { return CellOf(row, column); });
    });
  }
}

void Recordset::SetFilter(StringView criterion) {
  Leave();
  // A criterion that can't be read leaves everything as it is.
  if (!criterion.empty()) Criterion(criterion, [&](StringView name) { return ColumnOf(name); });
  filter_ = criterion;
  ShowRows();
}

void Recordset::Leave() {
  if (IsPending()) Update();
}

void Recordset::MoveFirst() {
  if (shown_.empty()) FailRecordset(NoCurrentRow, u"There are no records");
  MoveTo(0);
}

void Recordset::MoveLast() {
  if (shown_.empty()) FailRecordset(NoCurrentRow, u"There are no records");
  MoveTo(shown_.size() - 1);
}

void Recordset::MoveNext() {
  if (Eof() && !gone_) FailRecordset(NoCurrentRow, u"There is no record behind the last one");
  // Where a row was deleted, the next one stands in its place already.
  MoveTo(before_ ? 0 : position_ + (gone_ ? 0 : 1));
}

void Recordset::MovePrevious() {
  if (Bof() && !gone_) FailRecordset(NoCurrentRow, u"There is no record ahead of the first one");
  if (position_ > 0) return MoveTo(position_ - 1);
  Leave();
  gone_ = false;
  before_ = true;
}

void Recordset::MoveTo(std::size_t index) {
  if (index == position_ && !before_ && !gone_) return;
  Leave();
  before_ = gone_ = false;
  position_ = std::min(index, shown_.size());
}

Recordset::Bookmark Recordset::Mark() const { return {CurrentRow(), opening_}; }

void Recordset::MoveTo(const Bookmark& bookmark) {
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), bookmark.Row);
  if (bookmark.Opening != opening_ || found == shown_.end() || *found != bookmark.Row) {
    FailRecordset(NoCurrentRow, u"There is no record at that bookmark");
  }
  MoveTo(static_cast<std::size_t>(found - shown_.begin()));
}

void Recordset::Find(StringView criterion, std::size_t skip, bool forward) {
  const Criterion wanted(criterion, [&](StringView name) { return ColumnOf(name); });
  static_cast<void>(CurrentRow());
  Leave();
  const std::size_t count = shown_.size();
  // Beyond the first row lies the number behind all others.
  std::size_t at = forward ? position_ + skip : position_ - skip;
  const auto fits = [&](std::size_t row) {
    return wanted.Fits([&](std::size_t column) { return CellOf(row, column); });
  };
  while (at < count && !fits(shown_[at])) at += forward ? 1 : std::size_t{0} - 1;
  before_ = !forward && at >= count;
  position_ = before_ ? 0 : std::min(at, count);
}

std::size_t Recordset::ColumnOf(StringView name) const {
  const auto found = std::find_if(names_.begin(), names_.end(),
                                  [&](const String& one) { return vb::SameText(one, name); });
  if (found == names_.end()) FailRecordset(NoSuchField, u"There is no field " + String(name));
  return static_cast<std::size_t>(found - names_.begin());
}

std::size_t Recordset::CurrentRow() const {
  if (before_ || gone_ || position_ >= shown_.size()) {
    FailRecordset(NoCurrentRow, u"There is no current record");
  }
  return shown_[position_];
}

Value Recordset::Field(StringView name) const {
  const std::size_t column = ColumnOf(name);
  return CellOf(CurrentRow(), column);
}

std::size_t Recordset::ShownPlace(std::size_t row, std::size_t column) const {
  if (row >= shown_.size() || column >= names_.size()) {
    FailRecordset(NoCurrentRow, u"There is no such record or field");
  }
  return PlaceOf(shown_[row], column);
}

Value Recordset::Cell(std::size_t row, std::size_t column) const {
  return cells_.At(ShownPlace(row, column));
}

std::string_view Recordset::StoredText(std::size_t row, std::size_t column) const {
  return cells_.StoredText(ShownPlace(row, column));
}

}  // namespace tessel::store
