#include "hosts/batch/LibraryFailure.h"

#include <algorithm>
#include <filesystem>

#include "snippets/TreeCheck.h"
#include "store/Recordset.h"

namespace tessel::batch {
namespace {

/// What the engine says at the head of a failure, and what it means.
struct Cause {
  StringView Engine, Plain;
};
constexpr StringView Damaged = u"the file is damaged; take it from a copy",
                     NoRoom = u"there is no room left on the disk";
constexpr Cause Causes[] = {
    {u"attempt to write a readonly database", u"the file can't be written, it is read-only"},
    {u"database disk image is malformed", Damaged},
    {u"file is not a database", Damaged},
    {u"database or disk is full", NoRoom},
    {u"database is locked", u"another program has locked the file"},
    {u"database schema is locked", u"another program has locked the file"},
    {u"unable to open database file", u"the file or its folder can't be opened"},
    {u"disk I/O error", u"the disk can't be read or written"}};
/// Texts that tell of a failure and not of its cause.
constexpr StringView Causeless[] = {u"CSQLTree component failure",
                                    u"can't be added to the library"};

StringView PlainCause(StringView description) {
  const auto* const found =
      std::find_if(std::begin(Causes), std::end(Causes),
                   [&](const Cause& one) { return description.starts_with(one.Engine); });
  return found == std::end(Causes) ? StringView() : found->Plain;
}

bool IsFileSound(CSQLTree& tree) {
  store::Recordset found;
  found.Open(u"PRAGMA quick_check(1)", tree.Connection());
  return found.RecordCount() == 0 || store::ToText(found.Cell(0, 0)) == u"ok";
}

/// Looks for a cause that the operation passed over.
StringView CauseNow(CSQLTree& tree) {
  // The file as a whole has no smaller unit than a page.
  constexpr std::uintmax_t Page = 4096;
  std::error_code error;
  const auto room = std::filesystem::space(tree.Connection()->DataSource, error);
  if (!error && room.available < Page) return NoRoom;
  try {
    return IsFileSound(tree) ? StringView() : Damaged;
  } catch (const vb::Failure& failure) {
    return PlainCause(failure.Description());
  }
}

}  // namespace

void CheckLibraryWritable(CSQLTree& tree) {
  tree.Connection()->Execute(u"UPDATE Tree SET Root = Root WHERE ID = 1");
}

void CheckLibrarySound(CSQLTree& tree) {
  const auto fail = [&](StringView why) {
    throw vb::Failure(vb::InvalidCall, tree.Connection()->DataSource + u": " + String(why),
                      u"Tessel");
  };
  if (!IsFileSound(tree)) fail(Damaged);
  if (!CheckTree(tree.Connection(), false).empty()) fail(DamagedTree);
}

vb::Failure Explained(const vb::Failure& failure, CSQLTree& tree) {
  const String& description = failure.Description();
  const String file = tree.Connection()->DataSource;
  const auto with = [&](StringView text) {
    return vb::Failure(failure.Number(), file + u": " + String(text), failure.Source());
  };
  if (const StringView cause = PlainCause(description); !cause.empty()) return with(cause);
  const bool hidden = std::any_of(std::begin(Causeless), std::end(Causeless),
                                  [&](StringView one) { return description.ends_with(one); });
  if (!hidden) return failure;
  const StringView cause = CauseNow(tree);
  return with(cause.empty() ? StringView(description) : cause);
}

}  // namespace tessel::batch
