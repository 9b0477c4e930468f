#include "hosts/batch/LibraryFailure.h"

#include <algorithm>
#include <filesystem>

#include "snippets/TreeCheck.h"
#include "store/PlainCause.h"
#include "store/Recordset.h"

namespace tessel::batch {
namespace {

/// Texts that tell of a failure and not of its cause.
constexpr StringView Causeless[] = {u"CSQLTree component failure",
                                    u"can't be added to the library"};

bool IsFileSound(CSQLTree& tree) {
  store::Recordset found;
  found.Open(u"PRAGMA quick_check(1)", tree.Connection());
  return found.RecordCount() == 0 || store::ToText(found.Cell(0, 0)) == u"ok";
}

/// Looks for a cause that the operation passed over.
String CauseNow(CSQLTree& tree) {
  // The file as a whole has no smaller unit than a page.
  constexpr std::uintmax_t Page = 4096;
  std::error_code error;
  const auto room = std::filesystem::space(tree.Connection()->DataSource, error);
  if (!error && room.available < Page) return String(store::NoRoom);
  try {
    return IsFileSound(tree) ? String() : String(store::Damaged);
  } catch (const vb::Failure& failure) {
    return store::PlainCause(failure.Description());
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
  if (!IsFileSound(tree)) fail(store::Damaged);
  if (!IsTreeSound(tree.Connection())) fail(DamagedTree);
}

vb::Failure Explained(const vb::Failure& failure, CSQLTree& tree) {
  const String& description = failure.Description();
  const String file = tree.Connection()->DataSource;
  const auto with = [&](StringView text) {
    return vb::Failure(failure.Number(), file + u": " + String(text), failure.Source());
  };
  if (const String cause = store::PlainCause(description); !cause.empty()) return with(cause);
  if (failure.Number() == vb::TypeMismatch || failure.Number() == vb::Overflow) {
    return with(IsTreeSound(tree.Connection()) ? StringView(u"a number in it is too large or none")
                                               : DamagedTree);
  }
  const bool hidden = std::any_of(std::begin(Causeless), std::end(Causeless),
                                  [&](StringView one) { return description.ends_with(one); });
  if (!hidden) return failure;
  const String cause = CauseNow(tree);
  return with(cause.empty() ? description : cause);
}

}  // namespace tessel::batch
