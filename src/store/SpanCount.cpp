#include "store/SpanCount.h"

#include <new>

#include "store/Engine.h"
#include "store/OpenSpans.h"

namespace tessel::store {
namespace {

/// The engine keeps a pointer for each run of the function.
OpenSpans*& SpansOf(sqlite3_context* context) {
  return *static_cast<OpenSpans**>(sqlite3_aggregate_context(context, sizeof(void*)));
}

void Step(sqlite3_context* context, int, sqlite3_value** values) noexcept {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  try {
    OpenSpans*& spans = SpansOf(context);
    if (spans == nullptr) spans = new OpenSpans;
    spans->Step(sqlite3_value_int64(values[0]), sqlite3_value_type(values[1]) != SQLITE_NULL,
                sqlite3_value_int64(values[1]));
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

/// Rows only ever enter the frame.
void Inverse(sqlite3_context* context, int, sqlite3_value**) noexcept {
  sqlite3_result_error(context, "SpanCount takes no frame but its own", -1);
}

void Answer(sqlite3_context* context) noexcept {
  const OpenSpans* const spans = SpansOf(context);
  sqlite3_result_int64(context, spans == nullptr ? 0 : static_cast<std::int64_t>(spans->Count()));
}

void Final(sqlite3_context* context) noexcept {
  Answer(context);
  delete SpansOf(context);
}

}  // namespace

void RegisterSpanCount(sqlite3* db) {
  if (sqlite3_create_window_function(db, "SpanCount", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                     nullptr, Step, Final, Answer, Inverse, nullptr) != SQLITE_OK) {
    throw engine::Error(db, "SpanCount");
  }
}

}  // namespace tessel::store
