#include "hosts/model/MemberIndex.h"

#include <algorithm>

#include "hosts/model/Statements.h"

namespace tessel::model {
namespace {

String KeyOf(StringView name, host::vbext_ProcKind kind) {
  return vb::LCase(name) + static_cast<char16_t>(u'0' + kind);
}

}  // namespace

/// Reads lines [from, to] into regions.
struct MemberIndex::Scan {
  const LineBuffer& Lines;
  bool InDeclarations;
  std::vector<Region> Found;
  int RegionStart;        // first line of the region being read
  int LastDeclaring;      // last line of the declarations so far
  bool InMember = false;  // a head was read and no end yet
  bool OpenEnd = false;   // so it was at the last line
  Region Present;

  Scan(const LineBuffer& lines, int from, int to, bool inDeclarations)
      : Lines(lines), InDeclarations(inDeclarations), RegionStart(from), LastDeclaring(from - 1) {
    for (int line = from; line <= to;) line = Read(line, to);
    OpenEnd = InMember;
    if (InMember) Close(to, false);
  }

  /// Reads one logical line and answers where the next begins.
  int Read(int line, int to) {
    int last = line;
    LineFacts facts;
    if (last < to && IsContinued(Lines.Line(last))) {
      String joined;
      for (; last < to && IsContinued(Lines.Line(last)); ++last) {
        const StringView physical = Lines.Line(last);
        joined += physical.substr(0, physical.rfind(u'_'));
      }
      joined += Lines.Line(last);
      facts = ReadLine(joined);
    } else {
      facts = ReadLine(Lines.Line(line));
    }
    Apply(facts, line, last);
    return last + 1;
  }

  void Apply(LineFacts& facts, int line, int last) {
    // A line belongs to one member: one that ends and begins members is the new one's.
    if (facts.EndFirst && InMember) Close(facts.Head ? line - 1 : last, !facts.Head);
    if (facts.Head) {
      // A member that was never ended reaches to the next head.
      if (InMember) Close(line - 1, false);
      Open(facts, line);
    }
    if (facts.End && InMember) Close(last, true);
    if (facts.Declares && InDeclarations && !InMember) LastDeclaring = last;
  }

  void Open(LineFacts& facts, int line) {
    if (InDeclarations) {
      Region declarations;
      declarations.Length = LastDeclaring - RegionStart + 1;
      Found.push_back(declarations);
      RegionStart = LastDeclaring + 1;
      InDeclarations = false;
    }
    InMember = true;
    Present.Name = std::move(facts.Name);
    Present.Kind = facts.Kind;
    Present.BodyOffset = line - RegionStart;
  }

  void Close(int last, bool ended) {
    Present.Ended = ended;
    Present.Length = last - RegionStart + 1;
    Found.push_back(Present);
    RegionStart = last + 1;
    InMember = false;
  }
};

MemberIndex::MemberIndex(const LineBuffer& lines) : lines_(lines) {
  regions_.emplace_back();
  BuildSums();
  Edited(1, 0, lines.Count());
}

void MemberIndex::Edited(int first, int removed, int added) {
  const int grown = added - removed;
  lastFound_ = false;
  if (!dirty_) {
    dirtyFrom_ = first;
    dirtyTo_ = first + added;
    growth_ = grown;
    dirty_ = true;
    return;
  }
  dirtyTo_ = std::max(dirtyTo_, first + removed) + grown;
  dirtyFrom_ = std::min(dirtyFrom_, first);
  growth_ += grown;
}

void MemberIndex::Refresh() {
  if (!dirty_) return;
  dirty_ = false;
  // What was touched, in the old numbers. The region ahead counts too when a statement may join it,
  // and the line behind when it may go on what was touched.
  std::size_t first = RegionOfLine(dirtyFrom_);
  const bool closed = first > 1 && regions_[first - 1].Ended && !IsContinuedAt(LinesAhead(first));
  if (first > 0 && !closed) --first;
  const int behind = dirtyTo_ - growth_ - (IsContinuedAt(dirtyTo_ - 1) ? 0 : 1);
  const std::size_t last = std::max(first, RegionOfLine(behind));
  const int firstLine = LinesAhead(first) + 1;
  const int lastLine = LinesAhead(last) + regions_[last].Length + growth_;
  Rescan(first, last, firstLine, lastLine);
}

bool MemberIndex::IsContinuedAt(int line) const {
  return line >= 1 && line <= lines_.Count() && IsContinued(lines_.Line(line));
}

/// Reads the lines of regions [first, last] again, and of more where their ends have moved.
void MemberIndex::Rescan(std::size_t first, std::size_t last, int firstLine, int lastLine) {
  for (;;) {
    const bool atEnd = last + 1 == regions_.size();
    Scan scan(lines_, firstLine, atEnd ? lines_.Count() : lastLine, first == 0);
    const int end = atEnd ? lines_.Count() : lastLine;
    if (!atEnd && (scan.OpenEnd || scan.RegionStart <= end || scan.Found.empty())) {
      // A member lost its end or is gone, or lines stand between: they belong to what follows.
      ++last;
      lastLine += regions_[last].Length;
      continue;
    }
    if (atEnd && scan.Found.empty() && first > 0) {
      // No member is left here: the lines are the rest of the one ahead.
      --first;
      firstLine -= regions_[first].Length;
      continue;
    }
    if (scan.Found.empty()) scan.Found.emplace_back();
    // The last region holds the rest; without members all lines are declarations.
    if (scan.RegionStart <= end) scan.Found.back().Length += end - scan.RegionStart + 1;
    Replace(first, last, std::move(scan.Found));
    return;
  }
}

void MemberIndex::Replace(std::size_t first, std::size_t last, std::vector<Region> regions) {
  const bool sameMembers =
      regions.size() == last - first + 1 &&
      std::equal(regions.begin(), regions.end(),
                 regions_.begin() + static_cast<std::ptrdiff_t>(first),
                 [](const Region& a, const Region& b) { return a.SameMember(b); });
  if (sameMembers) {
    for (std::size_t at = 0; at < regions.size(); ++at) {
      AddToSum(first + at, regions[at].Length - regions_[first + at].Length);
      regions_[first + at] = std::move(regions[at]);
    }
    return;
  }
  const auto begin = regions_.begin() + static_cast<std::ptrdiff_t>(first);
  const auto next = regions_.erase(begin, begin + static_cast<std::ptrdiff_t>(last - first + 1));
  regions_.insert(next, std::make_move_iterator(regions.begin()),
                  std::make_move_iterator(regions.end()));
  BuildSums();
  namesBuilt_ = false;
}

void MemberIndex::BuildSums() {
  sums_.assign(regions_.size() + 1, 0);
  for (std::size_t at = 1; at < sums_.size(); ++at) {
    sums_[at] += regions_[at - 1].Length;
    const std::size_t parent = at + (at & (~at + 1));
    if (parent < sums_.size()) sums_[parent] += sums_[at];
  }
}

void MemberIndex::AddToSum(std::size_t region, int by) {
  if (by == 0) return;
  for (std::size_t at = region + 1; at < sums_.size(); at += at & (~at + 1)) sums_[at] += by;
}

int MemberIndex::LinesAhead(std::size_t region) const {
  int sum = 0;
  for (std::size_t at = region; at > 0; at &= at - 1) sum += sums_[at];
  return sum;
}

/// The region that holds a line; the last one for a line past the end.
std::size_t MemberIndex::RegionOfLine(int line) const {
  std::size_t region = 0, step = 1;
  while (step * 2 < sums_.size()) step *= 2;
  int left = line - 1;
  for (; step > 0; step /= 2) {
    if (region + step < sums_.size() && sums_[region + step] <= left) {
      region += step;
      left -= sums_[region];
    }
  }
  return std::min(region, regions_.size() - 1);
}

void MemberIndex::BuildNames() {
  if (namesBuilt_) return;
  names_.clear();
  for (std::size_t region = 1; region < regions_.size(); ++region) {
    names_.try_emplace(KeyOf(regions_[region].Name, regions_[region].Kind), region);
  }
  namesBuilt_ = true;
}

int MemberIndex::CountOfDeclarationLines() {
  Refresh();
  return regions_.front().Length;
}

String MemberIndex::ProcOfLine(int line, host::vbext_ProcKind& kind) {
  Refresh();
  if (line < 1 || line > lines_.Count()) return {};
  const std::size_t region = RegionOfLine(line);
  if (region == 0) return {};
  kind = regions_[region].Kind;
  return regions_[region].Name;
}

std::vector<MemberIndex::Member> MemberIndex::Members() {
  Refresh();
  std::vector<Member> members;
  members.reserve(regions_.size() - 1);
  int start = regions_.front().Length + 1;
  for (std::size_t at = 1; at < regions_.size(); ++at) {
    const Region& region = regions_[at];
    members.push_back(
        {region.Name, region.Kind, {start, region.Length, start + region.BodyOffset}});
    start += region.Length;
  }
  return members;
}

const MemberIndex::Span* MemberIndex::Find(StringView name, host::vbext_ProcKind kind) {
  // The same member is mostly asked for several times.
  const bool again = !dirty_ && lastFound_ && kind == lastKind_ && name == lastName_;
  if (again) return &found_;
  Refresh();
  BuildNames();
  const auto found = names_.find(KeyOf(name, kind));
  if (found == names_.end()) return nullptr;
  const Region& region = regions_[found->second];
  const int start = LinesAhead(found->second) + 1;
  found_ = {start, region.Length, start + region.BodyOffset};
  lastFound_ = true;
  lastKind_ = kind;
  lastName_ = name;
  return &found_;
}

}  // namespace tessel::model
