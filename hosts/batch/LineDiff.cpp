#include "hosts/batch/LineDiff.h"

#include <algorithm>
#include <vector>

namespace tessel::batch {
namespace {

using Lines = std::vector<std::string_view>;

Lines LinesOf(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::size_t length = end == std::string_view::npos ? text.size() : end + 1;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

/// Lines [Before, Before + Removed) give way to lines [After, After + Added).
struct Edit {
  std::size_t Before, Removed, After, Added;
};

/// How many edits are searched for before a stretch is taken as replaced as a whole.
constexpr std::ptrdiff_t MostEdits = 1500;

/// Myers' search: the furthest place on each diagonal for each number of edits.
class Search {
 public:
  Search(const Lines& before, const Lines& after) : a_(before), b_(after) {}

  /// The edits one line each, in order; one replaced block when the search was given up.
  std::vector<Edit> Run() {
    const auto n = static_cast<std::ptrdiff_t>(a_.size());
    const auto m = static_cast<std::ptrdiff_t>(b_.size());
    const std::ptrdiff_t most = std::min(n + m, MostEdits);
    furthest_.assign(static_cast<std::size_t>(2 * most + 3), 0);
    offset_ = most + 1;
    for (std::ptrdiff_t edits = 0; edits <= most; ++edits) {
      trail_.push_back(furthest_);
      for (std::ptrdiff_t diagonal = -edits; diagonal <= edits; diagonal += 2) {
        if (Extend(diagonal, edits) >= n && furthest_[Slot(diagonal)] - diagonal >= m) {
          return Backtrack(edits, n, m);
        }
      }
    }
    return {{0, a_.size(), 0, b_.size()}};
  }

 private:
  [[nodiscard]] std::size_t Slot(std::ptrdiff_t diagonal) const {
    return static_cast<std::size_t>(diagonal + offset_);
  }

  [[nodiscard]] static bool FromAbove(const std::vector<std::ptrdiff_t>& row, std::size_t slot,
                                      std::ptrdiff_t diagonal, std::ptrdiff_t edits) {
    return diagonal == -edits || (diagonal != edits && row[slot - 1] < row[slot + 1]);
  }

  std::ptrdiff_t Extend(std::ptrdiff_t diagonal, std::ptrdiff_t edits) {
    const std::size_t slot = Slot(diagonal);
    std::ptrdiff_t x =
        FromAbove(furthest_, slot, diagonal, edits) ? furthest_[slot + 1] : furthest_[slot - 1] + 1;
    std::ptrdiff_t y = x - diagonal;
    const auto n = static_cast<std::ptrdiff_t>(a_.size());
    const auto m = static_cast<std::ptrdiff_t>(b_.size());
    while (x < n && y < m && x >= 0 && y >= 0 &&
           a_[static_cast<std::size_t>(x)] == b_[static_cast<std::size_t>(y)]) {
      ++x, ++y;
    }
    return furthest_[slot] = x;
  }

  [[nodiscard]] std::vector<Edit> Backtrack(std::ptrdiff_t edits, std::ptrdiff_t x,
                                            std::ptrdiff_t y) const {
    std::vector<Edit> found;
    for (; edits > 0; --edits) {
      const auto& row = trail_[static_cast<std::size_t>(edits)];
      const std::ptrdiff_t diagonal = x - y;
      const bool above = FromAbove(row, Slot(diagonal), diagonal, edits);
      const std::ptrdiff_t previous = diagonal + (above ? 1 : -1);
      x = row[Slot(previous)];
      y = x - previous;
      found.push_back({static_cast<std::size_t>(x), above ? 0U : 1U, static_cast<std::size_t>(y),
                       above ? 1U : 0U});
    }
    std::reverse(found.begin(), found.end());
    return found;
  }

  const Lines& a_;
  const Lines& b_;
  std::vector<std::ptrdiff_t> furthest_;
  std::vector<std::vector<std::ptrdiff_t>> trail_;
  std::ptrdiff_t offset_ = 0;
};

/// The edits between two texts whose equal head and tail have been taken off.
std::vector<Edit> EditsOf(const Lines& before, const Lines& after) {
  std::size_t head = 0;
  const std::size_t shorter = std::min(before.size(), after.size());
  while (head < shorter && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < shorter - head &&
         before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
    ++tail;
  }
  const auto middle = [&](const Lines& all) {
    return Lines(all.begin() + static_cast<std::ptrdiff_t>(head),
                 all.end() - static_cast<std::ptrdiff_t>(tail));
  };
  const Lines left = middle(before), right = middle(after);
  if (left.empty() && right.empty()) return {};
  std::vector<Edit> edits = Search(left, right).Run();
  for (Edit& edit : edits) edit.Before += head, edit.After += head;
  return edits;
}

constexpr std::size_t Context = 3;

/// Edits so near to each other that they share a hunk.
std::vector<std::vector<Edit>> HunksOf(const std::vector<Edit>& edits) {
  std::vector<std::vector<Edit>> hunks;
  std::size_t end = 0;
  for (const Edit& edit : edits) {
    if (hunks.empty() || edit.Before > end + 2 * Context) hunks.emplace_back();
    hunks.back().push_back(edit);
    end = edit.Before + edit.Removed;
  }
  return hunks;
}

void WriteLine(std::string& out, char mark, std::string_view line) {
  out += mark;
  out += line;
  if (line.empty() || line.back() != '\n') out += "\n\\ No newline at end of file\n";
}

std::string Range(std::size_t first, std::size_t count) {
  std::string text = std::to_string(count == 0 ? first : first + 1);
  if (count != 1) text += "," + std::to_string(count);
  return text;
}

/// Removed lines of neighbouring edits come ahead of the added ones, as readers expect it.
std::vector<Edit> Merged(const std::vector<Edit>& hunk) {
  std::vector<Edit> merged;
  for (const Edit& edit : hunk) {
    Edit* last = merged.empty() ? nullptr : &merged.back();
    if (last != nullptr && last->Before + last->Removed == edit.Before &&
        last->After + last->Added == edit.After) {
      last->Removed += edit.Removed;
      last->Added += edit.Added;
    } else {
      merged.push_back(edit);
    }
  }
  return merged;
}

void WriteHunk(std::string& out, const std::vector<Edit>& hunk, const Lines& before,
               const Lines& after) {
  const Edit& first = hunk.front();
  const Edit& last = hunk.back();
  const std::size_t lead = std::min(Context, first.Before);
  const std::size_t start = first.Before - lead, startAfter = first.After - lead;
  const std::size_t end = std::min(before.size(), last.Before + last.Removed + Context);
  const std::size_t tail = end - last.Before - last.Removed;
  const std::size_t endAfter = last.After + last.Added + tail;
  out += "@@ -" + Range(start, end - start) + " +" + Range(startAfter, endAfter - startAfter) +
         " @@\n";
  std::size_t at = start;
  for (const Edit& edit : Merged(hunk)) {
    for (; at < edit.Before; ++at) WriteLine(out, ' ', before[at]);
    for (; at < edit.Before + edit.Removed; ++at) WriteLine(out, '-', before[at]);
    for (std::size_t line = 0; line < edit.Added; ++line) {
      WriteLine(out, '+', after[edit.After + line]);
    }
  }
  for (; at < end; ++at) WriteLine(out, ' ', before[at]);
}

/// A file name as `patch` reads it: in quotes where it holds what would end it, and followed by a
/// tab where it holds a blank.
std::string HeadName(const std::string& name) {
  std::string quoted = "\"";
  bool needsQuotes = false;
  for (const char sign : name) {
    constexpr std::string_view Plain = "\"\\\n\t", Escaped = "\"\\nt";
    const std::size_t at = Plain.find(sign);
    needsQuotes |= at != std::string_view::npos;
    quoted += at == std::string_view::npos ? std::string(1, sign) : std::string{'\\', Escaped[at]};
  }
  if (needsQuotes) return quoted + '"';
  return name.find(' ') == std::string::npos ? name : name + '\t';
}

}  // namespace

std::string UnifiedDiff(std::string_view before, std::string_view after,
                        const std::string& nameBefore, const std::string& nameAfter) {
  const Lines left = LinesOf(before), right = LinesOf(after);
  const std::vector<Edit> edits = EditsOf(left, right);
  if (edits.empty()) return {};
  std::string out = "--- " + HeadName(nameBefore) + "\n+++ " + HeadName(nameAfter) + "\n";
  for (const auto& hunk : HunksOf(edits)) WriteHunk(out, hunk, left, right);
  return out;
}

}  // namespace tessel::batch
