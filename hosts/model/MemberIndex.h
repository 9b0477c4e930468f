// Which lines of a module belong to which member.
#pragma once

#include <unordered_map>
#include <vector>

#include "host/Types.h"
#include "hosts/model/LineBuffer.h"

namespace tessel::model {

/// Divides a module into its declarations and one region for each member: from the line behind the
/// End of the member before to its own End; the last one holds the rest of the module. An edit only
/// notes which lines it touched; the next question reads those regions again and no others. Lines
/// count from 1.
class MemberIndex {
 public:
  struct Span {
    int Start, Count, Body;
  };

  struct Member {
    String Name;
    host::vbext_ProcKind Kind;
    Span Lines;
  };

  /// The lines are not owned; they must be told of every edit with `Edited`.
  explicit MemberIndex(const LineBuffer& lines);

  /// `removed` lines from `first` gave way to `added` ones.
  void Edited(int first, int removed, int added);

  [[nodiscard]] int CountOfDeclarationLines();
  /// The name of the member that holds a line, empty for none; sets `kind` when there is one.
  [[nodiscard]] String ProcOfLine(int line, host::vbext_ProcKind& kind);
  /// Null when there is no such member. Of several, the first.
  [[nodiscard]] const Span* Find(StringView name, host::vbext_ProcKind kind);
  /// In the order of the module.
  [[nodiscard]] std::vector<Member> Members();

 private:
  struct Region {
    String Name;
    host::vbext_ProcKind Kind = host::vbext_pk_Proc;
    int Length = 0;
    int BodyOffset = 0;
    bool Ended = false;  ///< its End statement is its own, so what follows can't join it
    [[nodiscard]] bool SameMember(const Region& other) const {
      return Kind == other.Kind && Name == other.Name;
    }
  };
  struct Scan;

  void Refresh();
  [[nodiscard]] bool IsContinuedAt(int line) const;
  void Rescan(std::size_t first, std::size_t last, int firstLine, int lastLine);
  void Replace(std::size_t first, std::size_t last, std::vector<Region> regions);
  void BuildSums();
  void BuildNames();
  void AddToSum(std::size_t region, int by);
  [[nodiscard]] int LinesAhead(std::size_t region) const;
  [[nodiscard]] std::size_t RegionOfLine(int line) const;

  const LineBuffer& lines_;
  std::vector<Region> regions_;  // the declarations first
  std::vector<int> sums_;        // Fenwick tree over the lengths
  std::unordered_map<String, std::size_t> names_;
  bool namesBuilt_ = false;
  Span found_{};
  // Whom `found_` is of, when `lastFound_`.
  bool lastFound_ = false;
  host::vbext_ProcKind lastKind_ = host::vbext_pk_Proc;
  String lastName_;
  // The touched lines [dirtyFrom_, dirtyTo_) as they are now, and how many more there are than
  // before.
  bool dirty_ = false;
  int dirtyFrom_ = 0, dirtyTo_ = 0, growth_ = 0;
};

}  // namespace tessel::model
