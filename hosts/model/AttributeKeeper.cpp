#include "hosts/model/AttributeKeeper.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace tessel::model {
namespace {

String KeyOf(StringView name, int kind) {
  return vb::LCase(name) + static_cast<char16_t>(u'1' + kind);
}

String Squeezed(StringView line) {
  String text;
  for (const char16_t unit : line) {
    if (unit != u' ' && unit != u'\t') text += unit;
  }
  return vb::LCase(text);
}

bool SameClass(int kind, int other) { return (kind == VariableKind) == (other == VariableKind); }

/// The attribute's line for an owner of another name.
void Rename(HiddenLine& line, const String& owner) {
  if (vb::SameText(line.Owner, owner)) return;
  const std::size_t at = line.Text.find(line.Owner, StringView(u"Attribute").size());
  if (at != String::npos) line.Text.replace(at, line.Owner.size(), owner);
  line.Owner = owner;
}

void GiveTo(HiddenLine& line, const Declaration& owner) {
  line.Idle = false;
  line.Within = false;
  line.Kind = owner.Kind;
  Rename(line, owner.Name);
}

/// Pairs those of one key: by their heads, then by what stands beside them, then in order.
template <class Ghost, class Candidate>
struct Namesakes {
  struct Old {
    Ghost* One;
    StringView Before, Behind;  // keys of the neighbours
  };
  struct New {
    Candidate* One;
    StringView Before, Behind;
  };
  std::vector<Old> Gone;
  std::vector<New> Come;

  template <class Alike, class Join>
  void Pair(const Alike& alike, const Join& join) {
    for (const New& come : Come) {
      if (come.One->Taken) continue;
      for (const Old& gone : Gone) {
        if (gone.One->Gone || !alike(gone, come)) continue;
        join(*gone.One, *come.One);
        break;
      }
    }
  }
};

}  // namespace

int AttributeKeeper::Insert(int line, StringView text) {
  const int added = lines_.Insert(line, text);
  index_.Edited(line, 0, added);
  const bool follows = deletedCount_ > 0 && deletedAt_ == line;
  const int removed = follows ? deletedCount_ : -1;
  if (removed == added) lines_.SetEnds(line, deletedEnds_);
  deletedCount_ = 0;
  if (!IsWatching()) return added;
  ShiftForInsert(line, added);
  Reunite({line, removed, added, false});
  return added;
}

void AttributeKeeper::Delete(int first, int count) {
  std::vector<Ghost> gone;
  const bool watching = IsWatching();
  if (watching) gone = Collect(first, count);
  deletedEnds_ = lines_.EndsOf(first, count);
  lines_.Delete(first, count);
  index_.Edited(first, count, 0);
  deletedAt_ = first;
  deletedCount_ = count;
  if (!watching) return;
  ShiftForDelete(first, count);
  Remember(std::move(gone), first);
}

int AttributeKeeper::Replace(int line, int count, StringView text) {
  // What takes lines away and puts others in is one change, whoever does it.
  if (count == 0 && deletedCount_ > 0 && deletedAt_ == line) return Insert(line, text);
  const std::vector<StringView> pieces = CutLines(text);
  const int all = static_cast<int>(pieces.size());
  const int most = std::min(count, all);
  const auto piece = [&](int index) { return pieces[static_cast<std::size_t>(index)]; };
  int same = 0, sameEnd = 0;
  while (same < most && lines_.Line(line + same) == piece(same)) ++same;
  while (sameEnd < most - same &&
         lines_.Line(line + count - 1 - sameEnd) == piece(all - 1 - sameEnd)) {
    ++sameEnd;
  }
  const int at = line + same, removed = count - same - sameEnd, added = all - same - sameEnd;
  const bool watching = IsWatching();
  std::vector<Ghost> gone;
  if (watching && removed > 0) gone = Collect(at, removed);
  const auto ends = removed == added ? lines_.EndsOf(at, removed) : std::vector<LineEnd>();
  if (removed > 0) lines_.Delete(at, removed);
  if (added > 0) {
    const auto* const begin = piece(same).data();
    const StringView last = piece(all - 1 - sameEnd);
    lines_.Insert(at, {begin, static_cast<std::size_t>(last.data() + last.size() - begin)});
    lines_.SetEnds(at, ends);
  }
  if (removed + added > 0) index_.Edited(at, removed, added);
  deletedCount_ = 0;
  if (!watching) return all;
  ShiftForDelete(at, removed);
  Remember(std::move(gone), at);
  ShiftForInsert(at, added);
  Reunite({at, removed, added, true});
  return all;
}

/// The one that a hidden line belongs to; a new one when its line declares its owner no more.
AttributeKeeper::Ghost& AttributeKeeper::GhostOf(std::vector<Ghost>& gone, int line, int offset,
                                                 const HiddenLine& hidden) {
  auto at = std::lower_bound(gone.begin(), gone.end(), offset,
                             [](const Ghost& one, int wanted) { return one.Offset < wanted; });
  for (; at != gone.end() && at->Offset == offset; ++at) {
    if (vb::SameText(at->Was.Name, hidden.Owner)) return *at;
  }
  Ghost ghost{{line, hidden.Owner, hidden.Kind}, KeyOf(hidden.Owner, hidden.Kind), {}, offset, {}};
  ghost.Astray = !hidden.Idle;
  return *gone.insert(at, std::move(ghost));
}

/// The declarations on lines that are to go, with what hangs on them.
std::vector<AttributeKeeper::Ghost> AttributeKeeper::Collect(int first, int count) {
  std::vector<Ghost> gone;
  for (Declaration& one : DeclarationsIn(lines_, first, count, index_.CountOfDeclarationLines())) {
    const int line = one.Line;
    String key = KeyOf(one.Name, one.Kind);
    gone.push_back({std::move(one), std::move(key), Squeezed(lines_.Line(line)), line - first, {}});
  }
  for (const int line : lines_.LinesWithHidden(std::max(first, 1), first + count - 1)) {
    for (const HiddenLine& hidden : lines_.HiddenAt(line)) {
      GhostOf(gone, line, line - first, hidden).Lines.push_back(hidden);
    }
  }
  return gone;
}

void AttributeKeeper::Remember(std::vector<Ghost> gone, int at) {
  ++batch_;
  for (Ghost& ghost : gone) {
    ghost.Batch = batch_;
    ghost.From = ghost.To = at;
  }
  ghosts_.insert(ghosts_.end(), std::make_move_iterator(gone.begin()),
                 std::make_move_iterator(gone.end()));
}

void AttributeKeeper::ShiftForDelete(int first, int count) {
  const auto moved = [&](int line) { return line <= first ? line : std::max(first, line - count); };
  for (Ghost& ghost : ghosts_) {
    ghost.From = moved(ghost.From);
    ghost.To = moved(ghost.To);
  }
  std::erase_if(newborn_, [&](const Candidate& one) {
    return one.Is.Line >= first && one.Is.Line < first + count;
  });
  for (Candidate& one : newborn_) one.Is.Line = moved(one.Is.Line);
}

void AttributeKeeper::ShiftForInsert(int line, int added) {
  for (Ghost& ghost : ghosts_) {
    if (ghost.To >= line) ghost.To += added;
    if (ghost.From > line) ghost.From += added;
  }
  for (Candidate& one : newborn_) {
    if (one.Is.Line >= line) one.Is.Line += added;
  }
}

AttributeKeeper::Candidates AttributeKeeper::CandidatesIn(int first, int count) {
  Candidates candidates;
  for (Declaration& one : DeclarationsIn(lines_, first, count, index_.CountOfDeclarationLines())) {
    const int line = one.Line;
    String key = KeyOf(one.Name, one.Kind);
    candidates.push_back({std::move(one), std::move(key), Squeezed(lines_.Line(line))});
  }
  return candidates;
}

/// Lets those that came take over from those that went.
void AttributeKeeper::Reunite(const Change& change) {
  Candidates candidates = CandidatesIn(change.At, change.Added);
  Ghosts justNow, here;
  for (Ghost& ghost : ghosts_) {
    const bool atPlace = ghost.From <= change.At && ghost.To >= change.At + change.Added;
    if (!atPlace) continue;
    (change.Removed >= 0 && ghost.Batch == batch_ ? justNow : here).push_back(&ghost);
  }
  renamed_.clear();
  PairByName(justNow, candidates);
  PairByName(here, candidates);
  if (change.Removed >= 0) {
    PairRenamed(change, candidates);
    if (change.Removed == change.Added) KeepOnLine(change, candidates);
  }
  PairMoved(candidates);
  std::erase_if(ghosts_, [&](const Ghost& ghost) {
    return ghost.Gone || (change.Replaced && ghost.Batch == batch_ && ghost.Lines.empty());
  });
  for (Candidate& one : candidates) {
    if (!one.Taken) newborn_.push_back(std::move(one));
  }
}

void AttributeKeeper::PairByName(const Ghosts& ghosts, Candidates& candidates) {
  if (ghosts.empty() || candidates.empty()) return;
  using Group = Namesakes<Ghost, Candidate>;
  std::vector<Group> groups;
  std::unordered_map<StringView, std::size_t> byKey;
  const auto keyAt = [](const auto& all, std::size_t at) {
    return at < all.size() ? StringView(all[at]->Key) : StringView();
  };
  std::vector<Candidate*> come;
  for (Candidate& one : candidates) come.push_back(&one);
  for (std::size_t at = 0; at < ghosts.size(); ++at) {
    const auto [known, isNew] = byKey.try_emplace(ghosts[at]->Key, groups.size());
    if (isNew) groups.emplace_back();
    groups[known->second].Gone.push_back(
        {ghosts[at], keyAt(ghosts, at - 1), keyAt(ghosts, at + 1)});
  }
  for (std::size_t at = 0; at < come.size(); ++at) {
    const auto known = byKey.find(come[at]->Key);
    if (known == byKey.end() || come[at]->Taken) continue;
    groups[known->second].Come.push_back({come[at], keyAt(come, at - 1), keyAt(come, at + 1)});
  }
  const auto join = [&](Ghost& ghost, Candidate& candidate) {
    candidate.Taken = true;
    Attach(ghost, candidate.Is);
  };
  for (Group& group : groups) {
    group.Pair([](const auto& gone, const auto& one) { return gone.One->Head == one.One->Head; },
               join);
    if (group.Gone.size() != group.Come.size()) {
      group.Pair(
          [](const auto& gone, const auto& one) {
            return gone.Before == one.Before && gone.Behind == one.Behind;
          },
          join);
    }
    group.Pair([](const auto&, const auto&) { return true; }, join);
  }
}

/// A declaration that was changed in its place bears another name now.
void AttributeKeeper::PairRenamed(const Change& change, Candidates& candidates) {
  std::vector<Ghost*> left;
  for (Ghost& ghost : ghosts_) {
    if (ghost.Batch == batch_ && !ghost.Gone && !ghost.Astray) left.push_back(&ghost);
  }
  std::vector<Candidate*> free;
  for (Candidate& one : candidates) {
    if (!one.Taken) free.push_back(&one);
  }
  const auto join = [&](Ghost& ghost, Candidate& candidate) {
    candidate.Taken = true;
    Attach(ghost, candidate.Is);
  };
  const bool one = left.size() == 1 && free.size() == 1;
  if (one && (change.Replaced || change.Removed == change.Added)) {
    if (SameClass(left.front()->Was.Kind, free.front()->Is.Kind))
      join(*left.front(), *free.front());
    return;
  }
  if (change.Removed != change.Added) return;
  auto next = left.begin();
  for (Candidate* candidate : free) {
    const int offset = candidate->Is.Line - change.At;
    while (next != left.end() && (*next)->Offset < offset) ++next;
    for (auto at = next; at != left.end() && (*at)->Offset == offset; ++at) {
      if ((*at)->Gone || !SameClass((*at)->Was.Kind, candidate->Is.Kind)) continue;
      join(**at, *candidate);
      break;
    }
  }
}

/// While its line is being written anew a declaration may be none for a moment. What hung on a
/// line that didn't declare its owner goes on doing so.
void AttributeKeeper::KeepOnLine(const Change& change, const Candidates& candidates) {
  for (Ghost& ghost : ghosts_) {
    if (ghost.Batch != batch_ || ghost.Gone || ghost.Lines.empty()) continue;
    const int line = change.At + ghost.Offset;
    const bool declares = std::any_of(candidates.begin(), candidates.end(), [&](const auto& one) {
      return one.Is.Line == line && SameClass(one.Is.Kind, ghost.Was.Kind);
    });
    if (declares && !ghost.Astray) continue;
    const auto renamed = renamed_.find(vb::LCase(ghost.Was.Name));
    HiddenLines hidden = lines_.HiddenAt(line);
    for (HiddenLine& one : ghost.Lines) {
      if (!ghost.Astray) one.Idle = true;
      if (renamed != renamed_.end()) Rename(one, renamed->second);
      hidden.push_back(std::move(one));
    }
    Hang(line, std::move(hidden));
    ghost.Gone = true;
  }
}

/// What was taken away elsewhere is here now.
void AttributeKeeper::PairMoved(Candidates& candidates) {
  for (Candidate& candidate : candidates) {
    if (candidate.Taken) continue;
    const auto found = std::find_if(ghosts_.begin(), ghosts_.end(), [&](const Ghost& ghost) {
      return !ghost.Gone && !ghost.Lines.empty() && ghost.Key == candidate.Key;
    });
    if (found == ghosts_.end()) continue;
    candidate.Taken = true;
    Attach(*found, candidate.Is);
  }
}

void AttributeKeeper::Attach(Ghost& ghost, const Declaration& to) {
  ghost.Gone = true;
  if (!vb::SameText(ghost.Was.Name, to.Name))
    renamed_.insert_or_assign(vb::LCase(ghost.Was.Name), to.Name);
  if (ghost.Lines.empty()) return;
  HiddenLines hidden = lines_.HiddenAt(to.Line);
  for (HiddenLine& one : ghost.Lines) {
    GiveTo(one, to);
    hidden.push_back(std::move(one));
  }
  Hang(to.Line, std::move(hidden));
}

void AttributeKeeper::Hang(int line, HiddenLines hidden) {
  std::stable_sort(hidden.begin(), hidden.end(),
                   [](const HiddenLine& a, const HiddenLine& b) { return a.Order < b.Order; });
  lines_.SetHidden(line, std::move(hidden));
}

void AttributeKeeper::Settle() {
  if (!IsWatching()) {
    newborn_.clear();
    return;
  }
  deletedCount_ = 0;
  PairMoved(newborn_);
  std::erase_if(ghosts_, [](const Ghost& ghost) { return ghost.Gone || ghost.Lines.empty(); });
  // Only the twin of a declaration with something on it may have to take over yet.
  std::unordered_set<String> owners;
  for (const int line : lines_.LinesWithHidden(0, lines_.Count())) {
    for (const HiddenLine& one : lines_.HiddenAt(line)) owners.insert(KeyOf(one.Owner, one.Kind));
  }
  std::erase_if(newborn_,
                [&](const Candidate& one) { return one.Taken || owners.count(one.Key) == 0; });
}

void AttributeKeeper::Forget() {
  ghosts_.clear();
  newborn_.clear();
  deletedCount_ = 0;
}

}  // namespace tessel::model
