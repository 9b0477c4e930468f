// What a file has beside the text of its lines, attributes and line ends, stays through edits.
#pragma once

#include <unordered_map>
#include <vector>

#include "hosts/model/Declarations.h"
#include "hosts/model/LineBuffer.h"
#include "hosts/model/MemberIndex.h"

namespace tessel::model {

/// Edits the lines of a module and lets what hangs on them follow. A line that an edit leaves as it
/// is keeps what hangs on it. Declarations that are deleted are remembered with their place; one
/// that is inserted takes over from its predecessor: first from those of its name and kind that
/// stood at this place, with the same head, with the same neighbours, then in order; else from the
/// one that was changed in place, under its new name; else from one that was taken away elsewhere.
/// Where as many lines come as went, they end as those did.
class AttributeKeeper {
 public:
  /// Neither is owned; the index must be of these lines.
  AttributeKeeper(LineBuffer& lines, MemberIndex& index) : lines_(lines), index_(index) {}

  /// As LineBuffer::Insert; the index is told.
  int Insert(int line, StringView text);
  /// As LineBuffer::Delete; the index is told.
  void Delete(int first, int count);
  /// `count` lines from `line`, all of which must exist, become `text`. Answers how many those are.
  int Replace(int line, int count, StringView text);

  /// Ahead of a save: a declaration that was copied ahead of the deletion of its original takes
  /// over now. What has no owner any more is kept for an undo but hangs on no line.
  void Settle();
  /// Other lines stand in the module: nothing is remembered.
  void Forget();

 private:
  /// A declaration that was deleted.
  struct Ghost {
    Declaration Was;
    String Key;   // name and kind
    String Head;  // the line without blanks, in lower case
    int Offset;   // of its line in the deleted ones
    HiddenLines Lines;
    int Batch = 0;         // number of the edit that deleted it
    int From = 0, To = 0;  // the places ahead of these lines and between them are where it stood
    bool Gone = false;     // somebody took over
    bool Astray = false;   // its lines hung on a line that didn't declare their owner
  };
  struct Candidate {
    Declaration Is;
    String Key, Head;
    bool Taken = false;
  };
  /// An edit at a place: what went (-1 when nothing is known of that) and what came.
  struct Change {
    int At, Removed, Added;
    bool Replaced;
  };
  using Ghosts = std::vector<Ghost*>;
  using Candidates = std::vector<Candidate>;

  [[nodiscard]] bool IsWatching() const { return lines_.HasHidden() || !ghosts_.empty(); }
  [[nodiscard]] std::vector<Ghost> Collect(int first, int count);
  [[nodiscard]] static Ghost& GhostOf(std::vector<Ghost>& gone, int line, int offset,
                                      const HiddenLine& hidden);
  void Remember(std::vector<Ghost> gone, int at);
  void ShiftForDelete(int first, int count);
  void ShiftForInsert(int line, int added);
  void Reunite(const Change& change);
  [[nodiscard]] Candidates CandidatesIn(int first, int count);
  void PairByName(const Ghosts& ghosts, Candidates& candidates);
  void PairRenamed(const Change& change, Candidates& candidates);
  void KeepOnLine(const Change& change, const Candidates& candidates);
  void PairMoved(Candidates& candidates);
  void Attach(Ghost& ghost, const Declaration& to);
  void Hang(int line, HiddenLines hidden);

  LineBuffer& lines_;
  MemberIndex& index_;
  std::vector<Ghost> ghosts_;  // in the order of their places within one edit
  std::vector<Candidate> newborn_;
  int batch_ = 0;
  // The deletion that was the last edit; its count is 0 behind any other edit.
  int deletedAt_ = 0, deletedCount_ = 0;
  std::vector<LineEnd> deletedEnds_;
  // New names of those that were given one by the present edit, by their old ones in lower case.
  std::unordered_map<String, String> renamed_;
};

}  // namespace tessel::model
