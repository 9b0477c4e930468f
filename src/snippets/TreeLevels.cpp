// What a tree answers about single nodes.

#include "snippets/TreeCommands.h"

namespace tessel {

std::int32_t CSQLTree::LevelNode(std::int32_t id) {
  return TreeService.Guard([&] {
    store::Recordset records;
    records.Open(commands_->cmdLevel, {std::int64_t{id}});
    return records.Eof() ? 0 : store::ToLong(records.Field(u"indentation"));
  });
}

NodeLevel CSQLTree::ReadNeighbour(StringView statement, StringView level, StringView id) {
  return TreeService.Guard([&]() -> NodeLevel {
    store::Recordset records;
    if (Open(records, statement).Eof()) return {};
    return {store::ToLong(records.Field(id)), store::ToLong(records.Field(level))};
  });
}

NodeLevel CSQLTree::LevelNodeDown(std::int32_t id, std::int32_t root) {
  const String node = vb::Str(id), kind = vb::Str(root);
  return ReadNeighbour(
      u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 WHERE "
      u"(P1.lft Between P2.lft And P2.rgt) GROUP BY P1.ID HAVING ((P1.ID=( SELECT P3.ID FROM Tree "
      u"As P3 Where (P3.lft = (SELECT P5.rgt+1 FROM Tree as P5  WHERE (P5.ID= " +
          node + u" And P5.Root= " + kind + u" ))  And P3.Root= " + kind +
          u"  ) ))) ORDER BY P1.ID",
      u"LevelOut", u"ReturnID");
}

NodeLevel CSQLTree::LevelNodeUp(std::int32_t id, std::int32_t root) {
  return ReadNeighbour(
      u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 WHERE "
      u"(((P1.lft) Between [P2].[lft] And [P2].[rgt])) GROUP BY P1.ID HAVING (((P1.ID)=(SELECT "
      u"P3.ID FROM Tree As P3 Where (P3.rgt = (SELECT P5.lft-1 FROM Tree as P5  WHERE (P5.ID= " +
          vb::Str(id) + u" )) And P3.Root=" + vb::Str(root) + u" ) ))) ORDER BY P1.ID",
      u"LevelOut", u"ReturnID");
}

NodeLevel CSQLTree::LevelNodeUpRight(std::int32_t level, std::int32_t root) {
  return ReadNeighbour(
      u"SELECT TOP 1 Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 WHERE "
      u"(((P1.lft) Between P2.lft And P2.rgt) AND (P1.Root=" +
          vb::Str(root) + u")) GROUP BY P1.ID Having (((Count(P2.Id)) = " + vb::Str(level) +
          u")) ORDER BY P1.ID",
      u"indentation", u"tmpID");
}

NodeSpan CSQLTree::GetNodeID(std::int32_t id) {
  return TreeService.Guard([&]() -> NodeSpan {
    store::Recordset records;
    if (Open(records, u"SELECT ID, lft, rgt FROM Tree WHERE (ID=" + vb::Str(id) + u")").Eof()) {
      return {};
    }
    return {store::ToLong(records.Field(u"lft")), store::ToLong(records.Field(u"rgt"))};
  });
}

/// The first row is the node that was asked about, as a rule.
std::int32_t CSQLTree::SecondRow(StringView statement) {
  return TreeService.Guard([&] {
    store::Recordset records;
    return Open(records, statement).RecordCount() < 2 ? 0 : store::ToLong(records.Cell(1, 0));
  });
}

std::int32_t CSQLTree::GetParentID(std::int32_t id) {
  return SecondRow(
      u"SELECT P2.ID AS ReturnID FROM Tree AS P1, Tree AS P2 WHERE ((P1.lft Between P2.lft And "
      u"P2.rgt) AND P1.ID=" +
      vb::Str(id) + u" ) ORDER BY P2.ID DESC , P2.lft");
}

/// The nearest of the ancestors, whatever their numbers.
std::int32_t CSQLTree::TrueParentID(std::int32_t id) {
  return SecondRow(
      u"SELECT P2.ID AS ReturnID FROM Tree AS P1, Tree AS P2 WHERE ((P1.lft Between P2.lft And "
      u"P2.rgt) AND P1.ID=" +
      vb::Str(id) + u" ) ORDER BY P2.lft DESC");
}

std::int32_t CSQLTree::GetChildrenID(std::int32_t id) {
  return SecondRow(
      u"SELECT P2.ID AS ReturnID FROM Tree AS P1, Tree AS P2 WHERE ((P2.lft Between P1.lft And "
      u"P1.rgt) AND (P1.ID=" +
      vb::Str(id) + u") AND (P2.Root=1)) ORDER BY P2.lft");
}

std::int32_t CSQLTree::GetParentIDRoot(std::int32_t id) {
  return TreeService.Guard([&] {
    store::Recordset records;
    const bool none =
        Open(records,
             u"SELECT Top 1  K2.ID FROM Tree AS K1, Tree AS K2 WHERE (((K2.lft) Between "
             u"[K1].[lft] And [K1].[rgt])) GROUP BY K2.ID, K2.Name, K2.Root, K2.lft HAVING "
             u"(((K2.Root)=1) AND (((Count(*))+1)=(SELECT Count(P2.ID) AS LvlID FROM Tree AS P1, "
             u"tree AS P2 WHERE (((P1.lft) Between P2.lft And P2.rgt)) GROUP BY P1.ID Having "
             u"(P1.Id = " +
                 vb::Str(id) + u") ORDER BY P1.ID    ))) ORDER BY K2.ID DESC , K2.lft")
            .Eof();
    return none ? 0 : store::ToLong(records.Cell(0, 0));
  });
}

}  // namespace tessel
