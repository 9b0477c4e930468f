#include "store/CellTable.h"

#include <bit>

#include "store/StoredText.h"

namespace tessel::store {
namespace {

struct Adder {
  CellTable& To;

  void operator()(Null) const { To.AddNull(); }
  void operator()(bool value) const { To.AddTruth(value); }
  void operator()(std::int64_t value) const { To.AddWhole(value); }
  void operator()(double value) const { To.AddNumber(value); }
  void operator()(const String& value) const { To.AddText(ToStored(value)); }
};

}  // namespace

void CellTable::Clear() {
  cells_.clear();
  texts_.clear();
}

void CellTable::AddNumber(double value) {
  AddPlain(Kind::Number, std::bit_cast<std::uint64_t>(value));
}

void CellTable::AddText(std::string_view stored) {
  cells_.push_back({texts_.size(), static_cast<std::uint32_t>(stored.size()), Kind::Text});
  texts_ += stored;
}

void CellTable::Add(const Value& value) { std::visit(Adder{*this}, value); }

Value CellTable::At(std::size_t cell) const {
  const Cell& one = cells_[cell];
  switch (one.Is) {
    case Kind::Nothing:
      return Null{};
    case Kind::Truth:
      return one.Bits != 0;
    case Kind::Whole:
      return static_cast<std::int64_t>(one.Bits);
    case Kind::Number:
      return std::bit_cast<double>(one.Bits);
    default:
      return FromStored(StoredText(cell));
  }
}

void CellTable::Set(std::size_t cell, const Value& value) {
  Add(value);
  cells_[cell] = cells_.back();
  cells_.pop_back();
}

void CellTable::SetWhole(std::size_t cell, std::int64_t value) {
  cells_[cell] = {static_cast<std::uint64_t>(value), 0, Kind::Whole};
}

std::string_view CellTable::StoredText(std::size_t cell) const {
  const Cell& one = cells_[cell];
  if (one.Is != Kind::Text) return {};
  return std::string_view(texts_).substr(static_cast<std::size_t>(one.Bits), one.Length);
}

}  // namespace tessel::store
