// The dialogs of the library as a script sees them.
#pragma once

#include "builders/BuilderChannel.h"

namespace tessel::test {

class SnippetChannel : public BuilderChannel {
 protected:
  void Row(int row, const std::string& control = "fgTree") {
    Ask({{"do", "row"}, {"control", control}, {"row", row}, {"col", 0}});
  }
  void Edit(int row, const std::string& text, const std::string& control = "fgTree") {
    Ask({{"do", "edit"}, {"control", control}, {"row", row}, {"col", 0}, {"text", text}});
  }
  void Item(const std::string& control, const std::string& key) {
    Ask({{"do", "press"}, {"control", control}, {"item", key}});
  }
  void Page(const std::string& control, int index) {
    Ask({{"do", "page"}, {"control", control}, {"index", index}});
  }
  void Drop(int row, const std::filesystem::path& file, const std::string& control = "fgTree") {
    Ask({{"do", "drop"}, {"control", control}, {"row", row}, {"files", {file.string()}}});
  }
  void Choose(const std::filesystem::path& file) {
    Ask({{"do", "answer"}, {"button", "OK"}, {"file", file.string()}});
  }
  void Query(const std::string& sql, const std::string& connection = "Marlow") {
    Ask({{"do", "query"}, {"connection", connection}, {"sql", sql}});
  }
  /// Answers to `query`, in order.
  [[nodiscard]] std::vector<Json> Queries() const {
    std::vector<Json> rows;
    for (const Json& reply : Replies) {
      if (reply.contains("columns")) rows.push_back(reply.at("rows"));
    }
    return rows;
  }
  /// Captions of a tree, each behind as many blanks as its level is above the first.
  static std::string Tree(const Json& form, const std::string& control = "fgTree") {
    std::string text;
    const Json grid = Control(form, control);
    for (const Json& row : grid.at("rows")) {
      text += std::string(row.at("level").get<std::size_t>() - 1, ' ') +
              row.at("cells")[0].get<std::string>() + "\n";
    }
    return text;
  }

  const TemporaryFolder Files;
};

}  // namespace tessel::test
