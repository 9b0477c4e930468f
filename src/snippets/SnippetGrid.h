// A tree over all open snippet databases in a grid: what the dialogs of the library have in common.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

#include "forms/Grid.h"
#include "snippets/CSQLTrees.h"

namespace tessel {

/// Picture of a folder and of a database's top row.
inline constexpr std::int32_t FolderPicture = 135;
/// That of a folder, of a record's object, or 0 for a text.
[[nodiscard]] std::int32_t PictureOf(const TreeNode& node);

/// What a row's cell data say: the connection's name and, behind points, the row's flags.
struct RowKey {
  String Connection;
  std::vector<int> Flags;
  bool operator==(const RowKey&) const = default;
};
/// "Connection.flag.flag".
[[nodiscard]] String JoinRowKey(StringView connection, std::initializer_list<int> flags);
/// Takes so many flags off the end, since a connection's name may hold points as well; a missing
/// flag reads as 0.
[[nodiscard]] RowKey SplitRowKey(const String& cellData, std::size_t flags);

/// One row ahead of its entry into the grid: the top row of a database (its node has the number 1,
/// the database's caption, level 1 and is a folder), or a node.
struct SnippetRow {
  StringView Connection;
  const TreeNode& Node;
  bool Top;
};

/// How a dialog wants its rows.
struct SnippetGridShape {
  /// Whether the objects of the records are read as well.
  bool Objects = false;
  /// Sets the cell data and further cells of a row. Column 0 (the caption), row data (the node's
  /// number), level, picture and bold are set ahead of it.
  std::function<void(const SnippetRow& row, forms::GridRow& entry)> Fill;
};

/// The node that becomes current: in the database of that name, or in the first that has it where
/// the name is empty. 0: none.
struct SnippetChoice {
  String Connection;
  std::int32_t Node = 0;
};
/// The node that the setting "SelectedFolder" names, in whatever database.
[[nodiscard]] SnippetChoice SelectedFolder();

/// The tree of an open snippet database, made and added to `trees` when it is missing there. Fails
/// with 5 when no connection has that name.
std::shared_ptr<CSQLTree> SnippetTreeOf(CSQLTrees& trees, StringView connection);

/// Replaces `trees` by a new collection, and the rows behind the grid's fixed ones by the top row
/// and the nodes of each open snippet database, in the order of the connections. The chosen node
/// becomes current and the first row in sight, else the first row becomes current. What was
/// collapsed stays so. Columns and fixed rows are the caller's. A database that can't be read goes
/// to the failure service; the others are loaded.
void LoadSnippetGrid(forms::Grid& grid, std::shared_ptr<CSQLTrees>& trees,
                     const SnippetGridShape& shape, const SnippetChoice& choice);

}  // namespace tessel
