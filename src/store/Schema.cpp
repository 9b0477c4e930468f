#include "store/Schema.h"

#include "store/Engine.h"

namespace tessel::store {
namespace {

/// By the engine's rule a declared type with one of these holds text; one without a type may.
bool HoldsText(const String& declared) {
  if (declared.empty()) return true;
  for (const StringView word : {u"CHAR", u"CLOB", u"TEXT"}) {
    if (vb::InStr(declared, word, vb::Compare::Text) > 0) return true;
  }
  return false;
}

}  // namespace

Schema::Schema(sqlite3* db) {
  const auto columns = engine::Prepare(
      db,
      "SELECT t.name, t.wr, c.name, c.type FROM pragma_table_list AS t, pragma_table_info(t.name) "
      "AS c WHERE t.schema = 'main' AND t.type = 'table'");
  const engine::RowReader row(columns.get());
  while (engine::Step(db, columns.get())) {
    if (ToLong(row.Column(1)) == 0) tables_.insert(vb::LCase(ToText(row.Column(0))));
    if (HoldsText(ToText(row.Column(3)))) textColumns_.insert(vb::LCase(ToText(row.Column(2))));
  }
}

bool Schema::IsText(StringView column) const { return textColumns_.contains(vb::LCase(column)); }

bool Schema::HasRowNumbers(StringView table) const { return tables_.contains(vb::LCase(table)); }

}  // namespace tessel::store
