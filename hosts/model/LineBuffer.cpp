#include "hosts/model/LineBuffer.h"

#include <algorithm>

namespace tessel::model {
namespace {

constexpr int MostLines = 128;

/// Index of the first CR or LF, or the size. Looks at many units at a time.
std::size_t FindLineEnd(StringView text) {
  constexpr std::size_t Block = 16;
  const auto isEnd = [](char16_t unit) { return unit == u'\r' || unit == u'\n'; };
  std::size_t at = 0;
  for (; at + Block <= text.size(); at += Block) {
    unsigned found = 0;
    for (std::size_t next = 0; next < Block; ++next) found |= isEnd(text[at + next]) ? 1U : 0U;
    if (found != 0) break;
  }
  while (at < text.size() && !isEnd(text[at])) ++at;
  return at;
}

/// The first line of `text` and its end; `text` goes on behind them. False without a line end.
bool TakeLine(StringView& text, StringView& line, LineEnd& end) {
  const std::size_t at = FindLineEnd(text);
  line = text.substr(0, at);
  if (at == text.size()) {
    text = {};
    return false;
  }
  const bool both = text.substr(at, 2) == vb::CrLf;
  end = both ? LineEnd::CrLf : text[at] == u'\n' ? LineEnd::Lf : LineEnd::Cr;
  text.remove_prefix(at + (both ? 2 : 1));
  return true;
}

}  // namespace

std::vector<StringView> CutLines(StringView text) {
  std::vector<StringView> lines;
  StringView line;
  LineEnd end{};
  while (TakeLine(text, line, end)) lines.push_back(line);
  lines.push_back(line);
  return lines;
}

/// Copies lines; room for growth is not wanted in a big module.
void LineBuffer::Block::Hold(std::span<const StringView> lines) {
  std::size_t units = 0;
  for (const StringView line : lines) units += line.size();
  Text.reserve(units);
  Ends.reserve(lines.size());
  for (const StringView line : lines) {
    Text += line;
    Ends.push_back(static_cast<std::uint32_t>(Text.size()));
  }
}

LineBuffer::Block LineBuffer::Block::Part(int first, int count) const {
  const std::size_t start = StartOf(first);
  Block part;
  part.Text = Text.substr(start, StartOf(first + count) - start);
  part.LineEnds.assign(LineEnds.begin() + first, LineEnds.begin() + first + count);
  part.Ends.assign(Ends.begin() + first, Ends.begin() + first + count);
  for (std::uint32_t& end : part.Ends) end -= static_cast<std::uint32_t>(start);
  part.Hidden.assign(HungFrom(first), HungFrom(first + count));
  part.MoveHung(0, -first);
  return part;
}

std::vector<LineBuffer::Hung>::const_iterator LineBuffer::Block::HungFrom(int index) const {
  return std::lower_bound(Hidden.begin(), Hidden.end(), index,
                          [](const Hung& one, int wanted) { return one.Index < wanted; });
}

std::vector<LineBuffer::Hung>::iterator LineBuffer::Block::HungFrom(int index) {
  const auto found = static_cast<const Block*>(this)->HungFrom(index);
  return Hidden.begin() + (found - Hidden.cbegin());
}

/// The lines from index `from` on have moved.
void LineBuffer::Block::MoveHung(int from, int by) {
  for (auto one = HungFrom(from); one != Hidden.end(); ++one) one->Index += by;
}

LineBuffer::LineBuffer(StringView text) {
  LineEnd end = LineEnd::CrLf;
  std::size_t seen[3] = {};
  std::vector<StringView> lines;
  while (!text.empty()) {
    Block& block = blocks_.emplace_back();
    block.LineEnds.reserve(MostLines);
    lines.clear();
    while (lines.size() < MostLines && !text.empty()) {
      endsLast_ = TakeLine(text, lines.emplace_back(), end);
      if (endsLast_) ++seen[static_cast<std::size_t>(end)];
      block.LineEnds.push_back(end);
    }
    block.Hold(lines);
    count_ += block.Count();
  }
  const auto* const most = std::max_element(std::begin(seen), std::end(seen));
  defaultEnd_ = static_cast<LineEnd>(most - std::begin(seen));
}

LineBuffer::Place LineBuffer::Find(int line) const {
  const int wanted = line - 1;
  while (nearBlock_ > 0 && nearAhead_ > wanted) nearAhead_ -= blocks_[--nearBlock_].Count();
  while (nearBlock_ + 1 < blocks_.size() && nearAhead_ + blocks_[nearBlock_].Count() <= wanted) {
    nearAhead_ += blocks_[nearBlock_++].Count();
  }
  return {nearBlock_, wanted - nearAhead_};
}

StringView LineBuffer::Line(int line) const {
  const Place place = Find(line);
  const Block& block = blocks_[place.Block];
  const std::size_t start = block.StartOf(place.Index);
  return StringView(block.Text)
      .substr(start, block.Ends[static_cast<std::size_t>(place.Index)] - start);
}

LineEnd LineBuffer::EndOf(int line) const {
  const Place place = Find(line);
  return blocks_[place.Block].LineEnds[static_cast<std::size_t>(place.Index)];
}

std::vector<LineEnd> LineBuffer::EndsOf(int first, int count) const {
  std::vector<LineEnd> ends;
  if (count < 1) return ends;
  Place place = Find(first);
  while (count > 0) {
    const Block& block = blocks_[place.Block];
    const int here = std::min(count, block.Count() - place.Index);
    const auto begin = block.LineEnds.begin() + place.Index;
    ends.insert(ends.end(), begin, begin + here);
    count -= here;
    place = {place.Block + 1, 0};
  }
  const bool plain =
      std::all_of(ends.begin(), ends.end(), [&](LineEnd end) { return end == defaultEnd_; });
  return plain ? std::vector<LineEnd>() : ends;
}

void LineBuffer::SetEnds(int first, const std::vector<LineEnd>& ends) {
  if (ends.empty()) return;
  Place place = Find(first);
  for (std::size_t at = 0; at < ends.size(); place = {place.Block + 1, 0}) {
    Block& block = blocks_[place.Block];
    for (auto end = block.LineEnds.begin() + place.Index;
         end != block.LineEnds.end() && at < ends.size(); ++end) {
      *end = ends[at++];
    }
  }
}

String LineBuffer::Text(int first, int count) const {
  String text;
  for (int line = first; line < first + count; ++line) {
    if (line > first) text += vb::CrLf;
    text += Line(line);
  }
  return text;
}

std::size_t LineBuffer::CountOfUnits() const {
  std::size_t units = 0;
  for (const Block& block : blocks_) units += block.Text.size();
  return units;
}

const HiddenLines& LineBuffer::HiddenAt(int line) const {
  static const HiddenLines None;
  if (line == 0) return lead_;
  const Place place = Find(line);
  const Block& block = blocks_[place.Block];
  const auto found = block.HungFrom(place.Index);
  return found != block.Hidden.end() && found->Index == place.Index ? found->Lines : None;
}

void LineBuffer::SetHidden(int line, HiddenLines lines) {
  hidden_ += (lines.empty() ? 0 : 1) - (HiddenAt(line).empty() ? 0 : 1);
  if (line == 0) {
    lead_ = std::move(lines);
    return;
  }
  const Place place = Find(line);
  Block& block = blocks_[place.Block];
  auto found = block.HungFrom(place.Index);
  if (found == block.Hidden.end() || found->Index != place.Index) {
    found = block.Hidden.insert(found, {place.Index, {}});
  }
  found->Lines = std::move(lines);
  if (found->Lines.empty()) block.Hidden.erase(found);
}

std::vector<int> LineBuffer::LinesWithHidden(int first, int last) const {
  std::vector<int> found;
  if (first <= 0 && !lead_.empty()) found.push_back(0);
  if (blocks_.empty() || last < std::max(first, 1)) return found;
  Place place = Find(std::max(first, 1));
  for (int ahead = std::max(first, 1) - 1 - place.Index; place.Block < blocks_.size();
       ahead += blocks_[place.Block++].Count()) {
    if (ahead >= last) break;
    for (const Hung& one : blocks_[place.Block].Hidden) {
      const int line = ahead + one.Index + 1;
      if (line >= first && line <= last) found.push_back(line);
    }
  }
  return found;
}

int LineBuffer::Insert(int line, StringView text) {
  const std::vector<StringView> lines = CutLines(text);
  if (blocks_.empty()) blocks_.emplace_back();
  Place place{};
  if (line > count_) {
    place = {blocks_.size() - 1, blocks_.back().Count()};
  } else {
    place = Find(line);
  }
  count_ += static_cast<int>(lines.size());
  if (lines.size() > MostLines) {
    InsertBlocks(place, lines);
  } else {
    InsertPieces(place, lines);
  }
  return static_cast<int>(lines.size());
}

void LineBuffer::InsertPieces(Place place, const std::vector<StringView>& lines) {
  Block& block = blocks_[place.Block];
  String text;
  std::vector<std::uint32_t> ends;
  std::size_t units = 0;
  for (const StringView line : lines) units += line.size();
  text.reserve(units);
  ends.reserve(lines.size());
  const std::size_t start = block.StartOf(place.Index);
  for (const StringView line : lines) {
    text += line;
    ends.push_back(static_cast<std::uint32_t>(start + text.size()));
  }
  const auto index = static_cast<std::ptrdiff_t>(place.Index);
  for (auto end = block.Ends.begin() + index; end != block.Ends.end(); ++end) {
    *end += static_cast<std::uint32_t>(text.size());
  }
  block.Text.insert(start, text);
  block.Ends.insert(block.Ends.begin() + index, ends.begin(), ends.end());
  block.LineEnds.insert(block.LineEnds.begin() + index, lines.size(), defaultEnd_);
  block.MoveHung(place.Index, static_cast<int>(lines.size()));
  if (block.Count() > 2 * MostLines) SplitBlock(place.Block);
}

/// Many lines are copied once, into blocks of their own.
void LineBuffer::InsertBlocks(Place place, std::span<const StringView> lines) {
  const Block whole = std::move(blocks_[place.Block]);
  std::vector<Block> parts;
  if (place.Index > 0) parts.push_back(whole.Part(0, place.Index));
  while (!lines.empty()) {
    const auto pieces = lines.first(std::min<std::size_t>(MostLines, lines.size()));
    Block& part = parts.emplace_back();
    part.Hold(pieces);
    part.LineEnds.assign(pieces.size(), defaultEnd_);
    lines = lines.subspan(pieces.size());
  }
  const int behind = whole.Count() - place.Index;
  if (behind > 0) parts.push_back(whole.Part(place.Index, behind));
  ReplaceBlock(place.Block, std::move(parts));
}

void LineBuffer::SplitBlock(std::size_t at) {
  const Block whole = std::move(blocks_[at]);
  std::vector<Block> parts;
  for (int first = 0; first < whole.Count(); first += MostLines) {
    parts.push_back(whole.Part(first, std::min(MostLines, whole.Count() - first)));
  }
  ReplaceBlock(at, std::move(parts));
}

void LineBuffer::ReplaceBlock(std::size_t at, std::vector<Block> parts) {
  blocks_[at] = std::move(parts.front());
  blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                 std::make_move_iterator(parts.begin() + 1), std::make_move_iterator(parts.end()));
}

void LineBuffer::Delete(int first, int count) {
  count_ -= count;
  std::size_t emptied = 0, firstEmptied = 0;
  Place place = Find(first);
  while (count > 0) {
    Block& block = blocks_[place.Block];
    const int here = std::min(count, block.Count() - place.Index);
    const std::size_t start = block.StartOf(place.Index);
    const std::size_t end = block.StartOf(place.Index + here);
    block.Text.erase(start, end - start);
    const auto hung = block.HungFrom(place.Index), behind = block.HungFrom(place.Index + here);
    hidden_ -= static_cast<int>(behind - hung);
    block.Hidden.erase(hung, behind);
    block.MoveHung(place.Index, -here);
    const auto from = static_cast<std::ptrdiff_t>(place.Index);
    block.Ends.erase(block.Ends.begin() + from, block.Ends.begin() + from + here);
    block.LineEnds.erase(block.LineEnds.begin() + from, block.LineEnds.begin() + from + here);
    for (auto one = block.Ends.begin() + from; one != block.Ends.end(); ++one) {
      *one -= static_cast<std::uint32_t>(end - start);
    }
    if (block.Count() == 0) {
      if (emptied++ == 0) firstEmptied = place.Block;
    }
    count -= here;
    place = {place.Block + 1, 0};
  }
  // Emptied blocks lie side by side.
  const auto begin = blocks_.begin() + static_cast<std::ptrdiff_t>(firstEmptied);
  blocks_.erase(begin, begin + static_cast<std::ptrdiff_t>(emptied));
  // The place of the last look-up stands as long as a block is there: nothing ahead of it changed.
  if (nearBlock_ >= blocks_.size()) {
    nearBlock_ = 0;
    nearAhead_ = 0;
  }
}

CommonLines CompareEnds(const LineBuffer& one, const LineBuffer& other) {
  CommonLines common;
  const int least = std::min(one.Count(), other.Count());
  while (common.Ahead < least && one.Line(common.Ahead + 1) == other.Line(common.Ahead + 1)) {
    ++common.Ahead;
  }
  while (common.Behind < least - common.Ahead &&
         one.Line(one.Count() - common.Behind) == other.Line(other.Count() - common.Behind)) {
    ++common.Behind;
  }
  return common;
}

}  // namespace tessel::model
