#include "hosts/batch/JetImport.h"

#include "hosts/batch/JetFile.h"
#include "snippets/TreeCheck.h"
#include "snippets/TreeGraft.h"
#include "store/Command.h"
#include "store/Seeds.h"

namespace tessel::batch {
namespace {

enum class Kind { Number, Text };

store::Value ValueOf(const std::optional<String>& field, Kind kind) {
  if (!field) return store::Null{};
  if (kind == Kind::Text) return *field;
  return std::int64_t{store::ToLong(*field)};
}

/// Copies a table into the database of the same tables.
void Copy(const JetFile& file, const std::string& table, const std::vector<String>& columns,
          const std::vector<Kind>& kinds, const std::shared_ptr<store::Connection>& copy,
          std::vector<String>& findings) {
  const JetTable read = file.Read(table, columns);
  const String name = vb::FromUtf8(table);
  std::vector<String> values;
  for (const String& column : columns) values.push_back(u"@" + column);
  store::Command insert(copy, u"INSERT INTO " + name + u" (" + vb::Join(columns, u", ") +
                                  u") VALUES (" + vb::Join(values, u", ") + u")");
  for (const auto& row : read.Rows) {
    std::vector<store::Value> fields;
    for (std::size_t at = 0; at < row.size(); ++at) fields.push_back(ValueOf(row[at], kinds[at]));
    insert.Execute(fields);
  }
  if (read.Declared != read.Rows.size()) {
    findings.push_back(u"The table " + name + u" has " + vb::Str(read.Declared) + u" rows, " +
                       vb::Str(read.Rows.size()) + u" could be read");
  }
}

}  // namespace

JetImportResult ImportJet(CSQLTree& tree, const std::filesystem::path& path, std::int32_t parent) {
  const JetFile file(path);
  const auto copy = store::OpenEmptySnippets();
  // Rows without a node are found by the check.
  copy->Execute(u"PRAGMA foreign_keys = 0");
  copy->Execute(u"DELETE FROM Tree");
  JetImportResult result;
  try {
    using enum Kind;
    Copy(file, "Tree", {u"ID", u"Name", u"lft", u"rgt", u"Root"},
         {Number, Text, Number, Number, Number}, copy, result.Findings);
    Copy(file, "List",
         {u"Id", u"Text", u"TitleObj", u"TextObj", u"CompObj", u"NameObj", u"ClassObj",
          u"TextUserNotes"},
         {Number, Text, Text, Text, Text, Text, Text, Text}, copy, result.Findings);
    // Its caption has no place below a folder, but a library has one.
    static_cast<void>(file.Read("NameMDB", {u"Name"}));
    for (String& one : CheckTree(copy, true)) result.Findings.push_back(std::move(one));
  } catch (const vb::Failure& failure) {
    const String name = path.u16string();
    if (failure.Description().starts_with(name)) throw;
    throw vb::Failure(failure.Number(), name + u": " + failure.Description(), failure.Source());
  }
  result.Records = GraftTree(tree.Connection(), parent, copy);
  return result;
}

}  // namespace tessel::batch
