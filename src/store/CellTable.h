// The cells of many rows, close together.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/Value.h"

namespace tessel::store {

/// Cells one behind the other, sixteen bytes each; their texts stand in one piece of memory in the
/// form in which they are stored, and become text when they are asked for. A text that is replaced
/// keeps its room until `Clear`.
class CellTable {
 public:
  [[nodiscard]] std::size_t Size() const { return cells_.size(); }
  /// Drops all cells and keeps the room, for other rows.
  void Clear();

  /// Each of these adds one cell at the end.
  void AddNull() { cells_.push_back({}); }
  void AddTruth(bool value) { AddPlain(Kind::Truth, value ? 1 : 0); }
  void AddWhole(std::int64_t value) { AddPlain(Kind::Whole, static_cast<std::uint64_t>(value)); }
  void AddNumber(double value);
  void AddText(std::string_view stored);
  void Add(const Value& value);

  /// Cells count from 0.
  [[nodiscard]] Value At(std::size_t cell) const;
  void Set(std::size_t cell, const Value& value);
  void SetWhole(std::size_t cell, std::int64_t value);
  /// A text as it is stored; empty for any other cell. Holds until the next change.
  [[nodiscard]] std::string_view StoredText(std::size_t cell) const;

 private:
  enum class Kind : std::uint32_t { Nothing, Truth, Whole, Number, Text };
  struct Cell {
    /// The value, or where the text begins.
    std::uint64_t Bits = 0;
    std::uint32_t Length = 0;
    Kind Is = Kind::Nothing;
  };

  void AddPlain(Kind kind, std::uint64_t bits) { cells_.push_back({bits, 0, kind}); }

  std::vector<Cell> cells_;
  std::string texts_;
};

}  // namespace tessel::store
