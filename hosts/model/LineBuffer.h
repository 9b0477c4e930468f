// The text of a module as lines, for modules of a million lines as well as for small ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "vb/Text.h"

namespace tessel::model {

/// How a line ends in its file.
enum class LineEnd : std::uint8_t { CrLf, Lf, Cr };

/// A line of the file that the environment does not show: "Attribute Foo.VB_Description = ...". It
/// hangs on the visible line that declares its owner.
struct HiddenLine {
  String Owner;  ///< the member or variable that it belongs to
  String Text;   ///< the whole line without its end
  LineEnd End = LineEnd::CrLf;
  int Kind = -1;  ///< of the owner: the host's number of a procedure kind, -1 for other names
  int Order = 0;  ///< among those of the file
  /// It stands right behind its line though the statement goes on, as the file had it.
  bool Within = false;
  /// Its line declares its owner no more: not written until it does again.
  bool Idle = false;
};
using HiddenLines = std::vector<HiddenLine>;

/// Lines count from 1. Texts lie in blocks of some hundred lines, so that an edit moves little and
/// a walk from line to line costs nothing. Each line keeps the line end that it came with.
class LineBuffer {
 public:
  LineBuffer() = default;
  /// Takes the lines of a text; CR LF, CR and LF end lines, and what follows the last of them is a
  /// line only when it isn't empty.
  explicit LineBuffer(StringView text);

  [[nodiscard]] int Count() const { return count_; }
  /// Line `line`, which must exist; valid until the next edit.
  [[nodiscard]] StringView Line(int line) const;
  [[nodiscard]] LineEnd EndOf(int line) const;
  /// `count` lines from `first`, all of which must exist, separated by CR LF.
  [[nodiscard]] String Text(int first, int count) const;

  /// Units in all lines, their ends not counted.
  [[nodiscard]] std::size_t CountOfUnits() const;

  /// Inserts ahead of `line` (1 to Count() + 1). What stands behind the last line end of `text` is
  /// one more line, even when it is empty. Answers the number of lines.
  int Insert(int line, StringView text);
  /// The ends of `count` lines from `first`, all of which must exist; nothing when all end as new
  /// lines do.
  [[nodiscard]] std::vector<LineEnd> EndsOf(int first, int count) const;
  /// Lets the lines from `first` on, all of which must exist, end so.
  void SetEnds(int first, const std::vector<LineEnd>& ends);
  /// Deletes lines, all of which must exist, with what hangs on them.
  void Delete(int first, int count);

  /// What hangs on a line, which must exist; line 0 stands for the place ahead of the first. Valid
  /// until the next edit.
  [[nodiscard]] const HiddenLines& HiddenAt(int line) const;
  void SetHidden(int line, HiddenLines lines);
  [[nodiscard]] bool HasHidden() const { return hidden_ > 0; }
  /// The lines (0 among them) within [first, last] that something hangs on.
  [[nodiscard]] std::vector<int> LinesWithHidden(int first, int last) const;

  /// Line end of new lines.
  void SetDefaultEnd(LineEnd end) { defaultEnd_ = end; }
  [[nodiscard]] LineEnd DefaultEnd() const { return defaultEnd_; }
  /// Whether the last line has a line end in the file.
  [[nodiscard]] bool EndsLast() const { return endsLast_; }

 private:
  /// What hangs on a line of a block, by its index.
  struct Hung {
    int Index;
    HiddenLines Lines;
  };
  struct Block {
    std::vector<Hung> Hidden;         // few lines have any; in order
    String Text;                      // the lines without their ends
    std::vector<std::uint32_t> Ends;  // end of each line in Text
    std::vector<LineEnd> LineEnds;
    [[nodiscard]] int Count() const { return static_cast<int>(Ends.size()); }
    [[nodiscard]] std::size_t StartOf(int index) const {
      return index == 0 ? 0 : Ends[static_cast<std::size_t>(index) - 1];
    }
    void Hold(std::span<const StringView> lines);
    /// `count` lines from index `first` as a block of their own.
    [[nodiscard]] Block Part(int first, int count) const;
    /// The first that hangs on line `index` or one behind it.
    [[nodiscard]] std::vector<Hung>::iterator HungFrom(int index);
    [[nodiscard]] std::vector<Hung>::const_iterator HungFrom(int index) const;
    void MoveHung(int from, int by);
  };
  struct Place {
    std::size_t Block;
    int Index;
  };

  [[nodiscard]] Place Find(int line) const;
  void InsertPieces(Place place, const std::vector<StringView>& lines);
  void InsertBlocks(Place place, std::span<const StringView> lines);
  void SplitBlock(std::size_t block);
  void ReplaceBlock(std::size_t block, std::vector<Block> parts);

  std::vector<Block> blocks_;
  HiddenLines lead_;  // ahead of the first line
  int count_ = 0;
  int hidden_ = 0;  // lines that something hangs on
  LineEnd defaultEnd_ = LineEnd::CrLf;
  bool endsLast_ = true;
  // Where the last look-up was: the block and the number of lines ahead of it.
  mutable std::size_t nearBlock_ = 0;
  mutable int nearAhead_ = 0;
};

/// How many lines two texts share at their start, and how many of the others at their end.
struct CommonLines {
  int Ahead = 0, Behind = 0;
};
[[nodiscard]] CommonLines CompareEnds(const LineBuffer& one, const LineBuffer& other);

/// The lines of a text as `Insert` takes them.
[[nodiscard]] std::vector<StringView> CutLines(StringView text);

}  // namespace tessel::model
