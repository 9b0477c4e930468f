// A snippet database with many nodes.
#pragma once

#include "snippets/SnippetDatabase.h"

namespace tessel::bench {

/// A database, made once: four levels of folders with ten children each, then records, until there
/// are so many nodes; a smaller one is deep at its front alone.
class Library {
 public:
  enum class Age { New, Older };
  explicit Library(int nodes, Age age = Age::New) : nodes_(nodes) {
    const auto file = folder_.Path() / "large.mdb";
    test::WriteEmptyDatabase(file);
    Connection = test::OpenDatabase(file);
    Connection->Execute(u"PRAGMA synchronous = 0");
    if (age == Age::Older) Connection->Execute(u"DROP INDEX ListObjects");
    insert_.ActiveConnection = list_.ActiveConnection = Connection;
    Connection->Execute(u"DELETE FROM Tree");
    store::Transaction transaction(*Connection);
    Add(1);
    transaction.Commit();
    Tree = test::OpenTree(Connection);
  }
  std::shared_ptr<store::Connection> Connection;
  std::shared_ptr<CSQLTree> Tree;
  /// Somewhere in the front of the tree.
  int Record = 0, Folder = 0;

 private:
  static constexpr int Levels = 5, Fan = 10, Records = 9;

  void Add(int level) {
    const int id = ++count_;
    const bool record = level > Levels;
    if (record && Record == 0) Record = id;
    if (level == 4 && Folder == 0) Folder = id;
    const int left = ++number_;
    const int children = record ? 0 : level < Levels ? Fan : Records;
    for (int at = 0; at < children && count_ < nodes_; ++at) Add(level + 1);
    insert_.Execute({std::int64_t{id}, String(u"Node ") + vb::Str(id), std::int64_t{left},
                     std::int64_t{++number_}, std::int64_t{record ? RecordKind : FolderKind}});
    if (record) AddRecord(id);
  }

  /// One in ten stores an object.
  void AddRecord(int id) {
    const bool object = id % 10 == 0;
    const auto text = [&](StringView value) {
      return object ? store::Value(String(value)) : store::Value(store::Null{});
    };
    list_.Execute(
        {std::int64_t{id}, String(1000, u'x'), text(u"Module" + vb::Str(id)), text(u"BAS")});
  }

  test::TemporaryFolder folder_;
  int nodes_, count_ = 0, number_ = 0;
  store::Command insert_{
      nullptr, u"INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (@a, @b, @c, @d, @e)"};
  store::Command list_{nullptr,
                       u"INSERT INTO List (Id, Text, NameObj, ClassObj) VALUES (@a, @b, @c, @d)"};
};

}  // namespace tessel::bench
