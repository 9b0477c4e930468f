#include "snippets/TreeCheck.h"

#include <algorithm>
#include <optional>
#include <set>

#include "snippets/CSQLTree.h"
#include "store/Command.h"
#include "store/Snapshot.h"

namespace tessel {
namespace {

struct Node {
  std::int64_t ID = 0;
  String Name;
  std::optional<std::int64_t> Lft, Rgt;
  /// As it stands in the file it may be neither of the two kinds.
  std::int64_t Root = FolderKind;
  std::vector<std::size_t> Children;
  /// The numbers that it should have.
  std::int64_t NewLft = 0, NewRgt = 0;

  [[nodiscard]] bool HasSpan() const { return Lft && Rgt && *Lft < *Rgt; }
  [[nodiscard]] String Title() const { return vb::Str(ID) + u" \"" + Name + u"\""; }
};

/// What a node without a number for its kind is read as.
constexpr std::int64_t NoKind = -1;

std::optional<std::int64_t> NumberOf(const store::Value& value) {
  const auto* const number = std::get_if<std::int64_t>(&value);
  return number == nullptr ? std::nullopt : std::optional(*number);
}

class Check {
 public:
  Check(const std::shared_ptr<store::Connection>& connection, bool mend)
      : connection_(connection), mend_(mend) {}

  std::vector<String> Run() {
    // Who only looks may look at what can't be written.
    std::optional<store::Transaction> transaction;
    if (mend_) transaction.emplace(*connection_);
    CheckIndexes();
    // What is read by such an index tells nothing about the numbers.
    if (!findings_.empty() && !mend_) return std::move(findings_);
    CheckNodes();
    AddRows();
    WriteNumbers();
    if (mend_) transaction->Commit();
    return std::move(findings_);
  }

  bool AreNodesSound() {
    CheckNodes();
    return findings_.empty();
  }

 private:
  /// An index that doesn't fit its table hides rows from those who look by it, and refuses new
  /// ones.
  void CheckIndexes() {
    store::Recordset told;
    told.Open(u"PRAGMA integrity_check", connection_);
    for (std::size_t row = 0; row < told.RecordCount(); ++row) {
      if (vb::InStr(store::ToText(told.Cell(row, 0)), u"index") == 0) continue;
      findings_.push_back(u"An index didn't fit its table; all are made anew");
      Change(u"REINDEX", {});
      indexesMade_ = true;
      return;
    }
  }

  void CheckNodes() {
    ReadNodes();
    AdoptRows();
    MendKinds();
    Place();
    Number();
    CheckNumbers();
  }

  void ReadNodes() {
    store::Recordset records;
    records.Open(u"SELECT ID, Name, lft, rgt, Root FROM Tree ORDER BY lft, rgt DESC, ID",
                 connection_);
    nodes_.emplace_back();
    bool top = false;
    for (std::size_t row = 0; row < records.RecordCount(); ++row) {
      Node node;
      node.ID = NumberOf(records.Cell(row, 0)).value_or(0);
      node.Name = store::ToText(records.Cell(row, 1));
      node.Lft = NumberOf(records.Cell(row, 2));
      node.Rgt = NumberOf(records.Cell(row, 3));
      node.Root = NumberOf(records.Cell(row, 4)).value_or(NoKind);
      if (node.ID == TopID) {
        top = true;
        nodes_.front() = std::move(node);
      } else {
        nodes_.push_back(std::move(node));
      }
    }
    if (top) return;
    findings_.push_back(u"The tree had no top");
    nodes_.front().ID = TopID;
    Change(u"INSERT INTO Tree (ID, Name, Root) VALUES (@ID, @Name, 1)",
           {std::int64_t{TopID}, String(u"root")});
  }

  /// A row of List whose node is gone gets a record of its own again.
  void AdoptRows() {
    std::set<std::int64_t> known;
    for (const Node& node : nodes_) known.insert(node.ID);
    store::Recordset rows;
    rows.Open(u"SELECT Id, NameObj FROM List ORDER BY Id", connection_);
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      Node node;
      node.ID = NumberOf(rows.Cell(row, 0)).value_or(0);
      rows_.insert(node.ID);
      if (known.contains(node.ID)) continue;
      node.Name = store::ToText(rows.Cell(row, 1));
      if (node.Name.empty()) node.Name = u"Record " + vb::Str(node.ID);
      node.Root = RecordKind;
      findings_.push_back(u"The contents of record " + vb::Str(node.ID) + u" had no node");
      Change(u"INSERT INTO Tree (ID, Name, Root) VALUES (@ID, @Name, 0)", {node.ID, node.Name});
      adopted_.insert(node.ID);
      nodes_.push_back(std::move(node));
    }
  }

  /// The top is a folder, and so is what has nodes inside it or nothing to show as a record.
  void MendKinds() {
    if (nodes_.front().Root != FolderKind) {
      findings_.push_back(u"The top was no folder");
      WriteKind(nodes_.front(), FolderKind);
    }
    const std::vector<bool> holds = Holders();
    for (std::size_t at = 1; at < nodes_.size(); ++at) {
      Node& node = nodes_[at];
      if (node.Root == FolderKind || node.Root == RecordKind) continue;
      const bool record = !holds[at] && rows_.contains(node.ID);
      findings_.push_back(node.Title() + u" was neither folder nor record; it is a " +
                          (record ? u"record now" : u"folder now"));
      WriteKind(node, record ? RecordKind : FolderKind);
    }
  }

  /// For each node whether another begins inside it.
  [[nodiscard]] std::vector<bool> Holders() const {
    std::vector<bool> holds(nodes_.size());
    std::optional<std::int64_t> next;
    for (std::size_t at = nodes_.size(); at-- > 1;) {
      const Node& node = nodes_[at];
      if (!node.HasSpan()) continue;
      holds[at] = next && *next < *node.Rgt;
      next = node.Lft;
    }
    return holds;
  }

  void WriteKind(Node& node, std::int64_t kind) {
    node.Root = kind;
    Change(u"UPDATE Tree SET Root = @Root WHERE ID = @Id", {kind, node.ID});
  }

  /// Gives each node its folder: the innermost one whose span reaches it.
  void Place() {
    std::vector<std::size_t> open;
    std::vector<std::size_t> lost;
    for (std::size_t at = 1; at < nodes_.size(); ++at) {
      Node& node = nodes_[at];
      if (!node.HasSpan()) {
        if (!adopted_.contains(node.ID)) findings_.push_back(node.Title() + u" had no place");
        lost.push_back(at);
        continue;
      }
      while (!open.empty() && *nodes_[open.back()].Rgt < *node.Lft) open.pop_back();
      Enter(open, at);
      open.push_back(at);
    }
    for (const std::size_t at : lost) nodes_.front().Children.push_back(at);
  }

  void Enter(const std::vector<std::size_t>& open, std::size_t at) {
    Node& node = nodes_[at];
    const Node& top = nodes_.front();
    if (top.HasSpan() && (*node.Lft < *top.Lft || *node.Rgt > *top.Rgt)) {
      findings_.push_back(node.Title() + u" stood outside the top");
    }
    if (!open.empty() && *node.Rgt > *nodes_[open.back()].Rgt) {
      findings_.push_back(node.Title() + u" overlapped " + nodes_[open.back()].Title());
      // What reaches into both belongs to the node that began first.
      node.Rgt = nodes_[open.back()].Rgt;
    }
    const auto folder = std::find_if(open.rbegin(), open.rend(), [&](std::size_t one) {
      return nodes_[one].Root == FolderKind;
    });
    if (!open.empty() && nodes_[open.back()].Root != FolderKind) {
      findings_.push_back(node.Title() + u" stood below the record " + nodes_[open.back()].Title());
    }
    nodes_[folder == open.rend() ? 0 : *folder].Children.push_back(at);
  }

  void Number() {
    std::vector<std::pair<std::size_t, std::size_t>> open{{0, 0}};
    std::int64_t number = 0;
    nodes_.front().NewLft = ++number;
    while (!open.empty()) {
      auto& [at, next] = open.back();
      Node& node = nodes_[at];
      if (next == node.Children.size()) {
        node.NewRgt = ++number;
        open.pop_back();
        continue;
      }
      const std::size_t child = node.Children[next++];
      nodes_[child].NewLft = ++number;
      open.emplace_back(child, 0);
    }
  }

  void CheckNumbers() {
    if (findings_.size() > (indexesMade_ ? 1U : 0U)) return;
    const auto moved = std::count_if(nodes_.begin(), nodes_.end(), [](const Node& node) {
      return node.Lft != node.NewLft || node.Rgt != node.NewRgt;
    });
    if (moved > 0) {
      findings_.push_back(u"The numbers had gaps or were used twice; " + vb::Str(moved) +
                          u" nodes are numbered anew");
    }
  }

  void AddRows() {
    for (const Node& node : nodes_) {
      if (node.ID == TopID || node.Root == FolderKind || rows_.contains(node.ID)) continue;
      findings_.push_back(u"The record " + node.Title() + u" had no contents");
      Change(u"INSERT INTO List (Id) VALUES (@Id)", {node.ID});
    }
  }

  /// All of them: a span that was cut for the reckoning is still as it was in the file.
  void WriteNumbers() {
    if (findings_.empty() || !mend_) return;
    store::Command write(connection_, u"UPDATE Tree SET lft = @lft , rgt=@rgt WHERE id = @Id");
    for (const Node& node : nodes_) write.Execute({node.NewLft, node.NewRgt, node.ID});
  }

  void Change(StringView statement, const std::vector<store::Value>& values) {
    if (mend_) store::Command(connection_, String(statement)).Execute(values);
  }

  std::shared_ptr<store::Connection> connection_;
  bool mend_;
  std::vector<String> findings_;
  bool indexesMade_ = false;
  /// The top comes first, the others in the order of their left numbers.
  std::vector<Node> nodes_;
  std::set<std::int64_t> rows_, adopted_;
};

}  // namespace

std::vector<String> CheckTree(const std::shared_ptr<store::Connection>& connection, bool mend) {
  std::optional<store::Snapshot> snapshot;
  // A mend begins a transaction of its own.
  if (!mend) snapshot.emplace(*connection);
  return Check(connection, mend).Run();
}

bool IsTreeSound(const std::shared_ptr<store::Connection>& connection) {
  const store::Snapshot snapshot(*connection);
  return Check(connection, false).AreNodesSound();
}

}  // namespace tessel
