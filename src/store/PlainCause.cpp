#include "store/PlainCause.h"

#include <algorithm>

namespace tessel::store {
namespace {

/// What the engine says at the head of a failure, and what it means.
struct Cause {
  StringView Engine, Plain;
};
constexpr Cause Causes[] = {{u"attempt to write a readonly database", ReadOnly},
                            {u"database disk image is malformed", Damaged},
                            {u"malformed database schema", Damaged},
                            {u"file is not a database", Damaged},
                            {u"database or disk is full", NoRoom},
                            {u"database is locked", u"another program has locked the file"},
                            {u"database schema is locked", u"another program has locked the file"},
                            {u"unable to open database file", CannotOpen},
                            {u"disk I/O error", u"the disk can't be read or written"}};
/// What a statement names and the database lacks; the name follows, up to the next colon.
constexpr Cause Missing[] = {{u"no such column: ", u"there is no column "},
                             {u"no such table: ", u"there is no table "}};

template <std::size_t Count>
const Cause* Find(const Cause (&causes)[Count], StringView description) {
  const auto* const found =
      std::find_if(std::begin(causes), std::end(causes),
                   [&](const Cause& one) { return description.starts_with(one.Engine); });
  return found == std::end(causes) ? nullptr : found;
}

}  // namespace

String PlainCause(StringView description) {
  if (const Cause* const known = Find(Causes, description)) return String(known->Plain);
  const Cause* const missing = Find(Missing, description);
  if (missing == nullptr) return {};
  const StringView named = description.substr(missing->Engine.size());
  return String(missing->Plain) + String(named.substr(0, named.find(u':')));
}

}  // namespace tessel::store
