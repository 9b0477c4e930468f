#include "snippets/SnippetGrid.h"

#include <algorithm>
#include <unordered_set>

#include "connections/cConnectionMDBs.h"
#include "foundation/CAppSettings.h"
#include "foundation/Routine.h"
#include "snippets/ObjectRecords.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr std::int32_t TopLevel = 1;

/// Holds the drawing of a grid back, also when a failure passes through.
class Undrawn {
 public:
  explicit Undrawn(forms::Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  ~Undrawn() { grid_.SetRedraw(true); }
  Undrawn(const Undrawn&) = delete;
  Undrawn& operator=(const Undrawn&) = delete;

 private:
  forms::Grid& grid_;
};

/// Tells the rows of all databases apart.
String IdentityOf(const forms::GridRow& row) { return String(row.CellData) + u"#" + vb::Str(row.Data); }

std::unordered_set<String> CollapsedRows(const forms::Grid& grid) {
  std::unordered_set<String> collapsed;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (grid.RowAt(row).Collapsed) collapsed.insert(IdentityOf(grid.RowAt(row)));
  }
  return collapsed;
}

/// One load of a grid.
class Loader {
 public:
  Loader(forms::Grid& grid, const SnippetGridShape& shape, const SnippetChoice& choice)
      : grid_(grid), shape_(shape), choice_(choice), collapsed_(CollapsedRows(grid)) {}

  void LoadTree(StringView connection, CSQLTree& tree, const String& caption) {
    Routine(u"SnippetGrid.LoadTree", [&](const Statements& run) {
      const TreeNodes nodes =
          run([&] { return shape_.Objects ? tree.GetNodesAndList() : tree.GetNodes(); });
      const Undrawn undrawn(grid_);
      const bool had = chosen_ >= 0;
      run([&] { AddRows(connection, caption, nodes); });
      if (!had && chosen_ >= 0) {
        run([&] { Show(chosen_); });
      } else if (grid_.Row() < grid_.FixedRows() && grid_.Rows() > grid_.FixedRows()) {
        run([&] { grid_.Select(grid_.FixedRows(), 0); });
      }
    });
  }

 private:
  void AddRows(StringView connection, const String& caption, const TreeNodes& nodes) {
    Add({connection, {TopID, caption, TopLevel, FolderKind, {}, {}}, true});
    if (!nodes) return;
    const bool here = choice_.Connection.empty() || choice_.Connection == connection;
    for (const TreeNode& node : *nodes) {
      const int row = Add({connection, node, false});
      if (here && chosen_ < 0 && node.ID == choice_.Node) chosen_ = row;
    }
  }

  int Add(const SnippetRow& row) {
    forms::GridRow entry;
    entry.Cells.reserve(static_cast<std::size_t>(std::max(1, grid_.Cols())));
    entry.Cells.push_back(row.Node.Name);
    entry.Cells.resize(static_cast<std::size_t>(std::max(1, grid_.Cols())));
    entry.Level = row.Node.lvl;
    entry.Data = row.Node.ID;
    entry.Picture = PictureOf(row.Node);
    entry.Bold = row.Top;
    if (shape_.Fill) shape_.Fill(row, entry);
    entry.Collapsed = !collapsed_.empty() && collapsed_.contains(IdentityOf(entry));
    return grid_.AddRow(std::move(entry));
  }

  void Show(int row) {
    grid_.Select(row, 0);
    grid_.ShowCell(row, 0);
    grid_.SetTopRow(row);
  }

  forms::Grid& grid_;
  const SnippetGridShape& shape_;
  const SnippetChoice& choice_;
  std::unordered_set<String> collapsed_;
  int chosen_ = -1;
};

}  // namespace

std::int32_t PictureOf(const TreeNode& node) {
  if (node.Root == FolderKind) return FolderPicture;
  const ObjectClass* const object = ClassOfObject(node.ClassObj);
  return object == nullptr ? 0 : object->Picture;
}

String JoinRowKey(StringView connection, std::initializer_list<int> flags) {
  String key(connection);
  for (const int flag : flags) key += u"." + vb::Str(flag);
  return key;
}

RowKey SplitRowKey(const String& cellData, std::size_t flags) {
  RowKey key{{}, std::vector<int>(flags, 0)};
  StringView rest = cellData;
  for (std::size_t at = flags; at-- > 0;) {
    const std::size_t point = rest.rfind(u'.');
    if (point == StringView::npos) continue;
    key.Flags[at] = vb::CLng(vb::Val(rest.substr(point + 1)));
    rest = rest.substr(0, point);
  }
  key.Connection = rest;
  return key;
}

SnippetChoice SelectedFolder() {
  if (!gAppSettings) return {};
  const String kept = gAppSettings->GetText(u"Settings\\VBCode", u"SelectedFolder", u"");
  return {{}, vb::CLng(vb::Val(kept))};
}

std::shared_ptr<CSQLTree> SnippetTreeOf(CSQLTrees& trees, StringView connection) {
  if (auto known = trees.Find(connection)) return known;
  const auto& opened = Need(gConnectionMDBs).item(connection);
  auto tree = std::make_shared<CSQLTree>();
  trees.Add(tree, connection);
  tree->SetConnection(opened->mConnectMDB);
  tree->SetTableName(u"Tree");
  return tree;
}

void LoadSnippetGrid(forms::Grid& grid, std::shared_ptr<CSQLTrees>& trees,
                     const SnippetGridShape& shape, const SnippetChoice& choice) {
  Routine(u"SnippetGrid.RunLoadTree", [&](const Statements& run) {
    const Undrawn undrawn(grid);
    Loader loader(grid, shape, choice);
    trees = std::make_shared<CSQLTrees>();
    grid.ClearRows();
    for (const auto& entry : Need(gConnectionMDBs)) {
      const String& name = entry.first;
      if (name == SharedConnection) continue;
      const auto tree = run([&] { return SnippetTreeOf(*trees, name); });
      if (!tree) continue;
      const String caption = run([&] { return tree->GetNameRootTree(); });
      loader.LoadTree(name, *tree, caption);
    }
  });
}

}  // namespace tessel
