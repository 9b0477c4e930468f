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
String IdentityOf(const forms::GridRow& row) {
  return String(row.CellData) + u"#" + vb::Str(row.Data);
}

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

  /// What the grid will show of a library, read while it still shows what it did.
  void Read(StringView connection, CSQLTree& tree) {
    Library one{String(connection), u"", std::nullopt, {}};
    Routine(u"SnippetGrid.LoadTree", [&](const Statements& run) {
      one.Caption = run([&] { return tree.GetNameRootTree(); });
      one.Nodes = run(
          [&] { return std::optional(shape_.Objects ? tree.GetNodesAndList() : tree.GetNodes()); });
    });
    // One that can't be read now keeps its rows.
    if (!one.Nodes) one.Kept = RowsOf(connection);
    libraries_.push_back(std::move(one));
  }

  void ShowAll() {
    grid_.ClearRows();
    for (Library& one : libraries_) {
      Routine(u"SnippetGrid.LoadTree", [&](const Statements& run) {
        const Undrawn undrawn(grid_);
        const bool had = chosen_ >= 0;
        run([&] { one.Kept.empty() ? AddRows(one) : AddKept(one); });
        if (!had && chosen_ >= 0) {
          run([&] { Show(chosen_); });
        } else if (grid_.Row() < grid_.FixedRows() && grid_.Rows() > grid_.FixedRows()) {
          run([&] { grid_.Select(grid_.FixedRows(), 0); });
        }
      });
    }
  }

 private:
  struct Library {
    String Name, Caption;
    /// None when it can't be read.
    std::optional<TreeNodes> Nodes;
    std::vector<forms::GridRow> Kept;
  };

  [[nodiscard]] std::vector<forms::GridRow> RowsOf(StringView connection) const {
    const String prefix = String(connection) + u".";
    std::vector<forms::GridRow> rows;
    for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
      if (String(grid_.RowAt(row).CellData).starts_with(prefix)) {
        rows.push_back(grid_.RowAt(row));
      }
    }
    return rows;
  }

  [[nodiscard]] bool IsChosen(const Library& library, std::int64_t id) const {
    const bool here = choice_.Connection.empty() || choice_.Connection == library.Name;
    return here && chosen_ < 0 && id == choice_.Node && id != TopID;
  }

  void AddKept(Library& library) {
    for (std::size_t at = 0; at < library.Kept.size(); ++at) {
      if (IsChosen(library, library.Kept[at].Data)) chosen_ = grid_.Rows() + static_cast<int>(at);
    }
    grid_.AddRows(std::move(library.Kept));
  }

  void AddRows(const Library& library) {
    const TreeNodes nodes = library.Nodes.value_or(std::nullopt);
    std::vector<forms::GridRow> rows;
    rows.reserve(nodes ? nodes->size() + 1 : 1);
    const TreeNode top{TopID, library.Caption, TopLevel, FolderKind, {}, {}};
    rows.push_back(RowOf({library.Name, top, true}));
    if (nodes) {
      for (const TreeNode& node : *nodes) {
        if (IsChosen(library, node.ID)) chosen_ = grid_.Rows() + static_cast<int>(rows.size());
        rows.push_back(RowOf({library.Name, node, false}));
      }
    }
    grid_.AddRows(std::move(rows));
  }

  forms::GridRow RowOf(const SnippetRow& row) {
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
    return entry;
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
  std::vector<Library> libraries_;
  int chosen_ = -1;
};

}  // namespace

std::int32_t PictureOf(const TreeNode& node) {
  if (node.Root == FolderKind) return FolderPicture;
  const ObjectClass* const object = ClassOfObject(node.ClassObj);
  return object == nullptr ? 0 : object->Picture;
}

String JoinRowKey(StringView connection, std::initializer_list<int> flags) {
  String key;
  key.reserve(connection.size() + 2 * flags.size());
  key += connection;
  for (const int flag : flags) {
    key += u'.';
    key += vb::Str(flag);
  }
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
    for (const auto& entry : Need(gConnectionMDBs)) {
      const String& name = entry.first;
      if (name == SharedConnection) continue;
      const auto tree = run([&] { return SnippetTreeOf(*trees, name); });
      if (tree) loader.Read(name, *tree);
    }
    loader.ShowAll();
  });
}

}  // namespace tessel
