// The Snippet Manager by itself, used as a user does.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "snippets/OpenLibraries.h"
#include "snippets/frmFragmentBuilder.h"
#include "support/FakeConnect.h"
#include "support/Modules.h"

namespace tessel::test {

/// A fragment of a text alone.
inline ListFragment TextFragment(StringView text) {
  ListFragment fragment;
  fragment.Text = text;
  return fragment;
}

class ManagerDesk : public testing::Test {
 protected:
  ManagerDesk() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
    gErrorHandler->SetCallStackEnabled(true);
    Main = Libraries.Add(u"Marlow");
  }
  ~ManagerDesk() override {
    if (Dialog) Dialog->Unload();
    gErrorHandler.reset();
  }

  void Open() {
    Dialog = std::make_shared<frmFragmentBuilder>();
    Dialog->VBInstance = Services.Environment.VBE();
    Attach(*Dialog, Root);
    Dialog->Show();
  }
  void Reopen() {
    Dialog->Unload();
    Open();
  }

  [[nodiscard]] forms::Grid& Tree() const { return Dialog->fgTree; }
  void Row(int row) const { forms::user::SelectRow(Tree(), row, 0); }
  void Press(forms::Button frmFragmentBuilder::*button) const {
    forms::user::Press((*Dialog).*button);
  }
  void File(StringView key) const { forms::user::PressItem(Dialog->btmFile, key); }
  void Page(int page) const { forms::user::SelectPage(Dialog->C1TCodeObject, page); }
  void Edit(int row, StringView text) const { forms::user::EditCell(Tree(), row, 0, text); }
  /// Captions, each behind as many blanks as its level is above the first.
  [[nodiscard]] std::string Rows() const {
    String text;
    for (int row = 0; row < Tree().Rows(); ++row) {
      text += vb::Space(Tree().RowAt(row).Level - 1) + Tree().TextMatrix(row, 0) + u"\n";
    }
    return vb::ToUtf8(text);
  }
  [[nodiscard]] int RowOf(StringView caption) const {
    for (int row = 0; row < Tree().Rows(); ++row) {
      if (Tree().TextMatrix(row, 0) == caption) return row;
    }
    ADD_FAILURE() << "no row " << vb::ToUtf8(caption);
    return -1;
  }
  /// Makes the row of a caption current, with all rows open.
  void Go(StringView caption) const {
    Press(&frmFragmentBuilder::btmExpand);
    Row(RowOf(caption));
  }
  /// The rows of the grid must be what the tables hold.
  void ExpectGridIsTheTable() const {
    std::string rows;
    for (const auto& [name, connection] : *gConnectionMDBs) {
      const auto tree = OpenTree(connection->mConnectMDB);
      rows += vb::ToUtf8(tree->GetNameRootTree()) + "\n";
      for (const TreeNode& node : tree->GetNodes().value_or(std::vector<TreeNode>{})) {
        rows +=
            std::string(static_cast<std::size_t>(node.lvl - 1), ' ') + vb::ToUtf8(node.Name) + "\n";
      }
      EXPECT_EQ(Unsound(RowsOf(connection->mConnectMDB)), "");
    }
    EXPECT_EQ(Rows(), rows);
  }

  [[nodiscard]] memory::ScriptedDesktop& Desktop() { return Services.Services.DesktopService; }
  void Choose(const std::filesystem::path& file) { Desktop().Files.push_back({file.u16string()}); }
  void Answer(platform::MessageAnswer answer) { Desktop().Answers.push_back(answer); }
  [[nodiscard]] std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    for (const auto& message : Desktop().Messages) texts.push_back(vb::ToUtf8(message.Text));
    return texts;
  }
  [[nodiscard]] const TemporaryFolder& Folder() const { return Libraries.Folder; }
  /// Names in the registered list.
  [[nodiscard]] static std::string Registered() {
    std::string names;
    for (const auto& row :
         gConnectReestr->GetAllConnect().value_or(std::vector<RegisteredConnection>{})) {
      names += vb::ToUtf8(row.Name) + " ";
    }
    return names;
  }

  World Services;
  OpenLibraries Libraries;
  std::shared_ptr<CSQLTree> Main;
  std::shared_ptr<FakeConnect> Root = std::make_shared<FakeConnect>();
  std::shared_ptr<frmFragmentBuilder> Dialog;
};

}  // namespace tessel::test
