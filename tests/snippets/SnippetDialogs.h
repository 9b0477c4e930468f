// The dialogs of the library over real files: a project on the disk and open databases.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "hosts/workspace/Workspace.h"
#include "snippets/OpenLibraries.h"
#include "support/ErrorDialogs.h"
#include "support/FakeConnect.h"
#include "support/MemoryPlatform.h"

namespace tessel::test {

/// The root as the dialogs of the library call it back.
struct LibraryRoot : FakeConnect {
  int Hidden = 0;
  std::function<void()> OnHide;
  void HideGetFromVbCode() override { Hide(); }
  void HideStoreToVbCode() override { Hide(); }

 private:
  void Hide() {
    ++Hidden;
    if (OnHide) OnHide();
  }
};

class SnippetDialogs : public testing::Test {
 protected:
  SnippetDialogs() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    gErrorHandler->SetCallStackEnabled(true);
  }
  ~SnippetDialogs() override {
    EXPECT_EQ(Texts(), Expected) << "boxes that nobody asked for";
    gErrorHandler.reset();
  }

  /// Opens a project "P" of these components, by file.
  void OpenProject(const std::vector<std::pair<std::string, std::string>>& files) {
    std::string lines;
    for (const auto& [line, bytes] : files) {
      const std::size_t name = line.find_last_of("=; ") + 1;
      Folder.Write(line.substr(name), bytes);
      lines += line + "\r\n";
    }
    Workspace.Open(Folder.Write("P.vbp", "Type=Exe\r\n" + lines + "Name=\"P\"\r\n"));
  }
  template <class Dialog>
  std::shared_ptr<Dialog> Open() {
    auto dialog = std::make_shared<Dialog>();
    dialog->VBInstance = Workspace.VBE();
    dialog->Connect = Root;
    Root->OnHide = [dialog] {
      dialog->Hide();
      dialog->Unload();
    };
    dialog->Show();
    return dialog;
  }
  [[nodiscard]] std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (const auto& message : Services.DesktopService.Messages) {
      texts.push_back(vb::ToUtf8(message.Text));
    }
    return texts;
  }
  /// Names of the active project's components.
  [[nodiscard]] std::vector<String> Components() const {
    std::vector<String> names;
    const auto all = Workspace.VBE()->ActiveVBProject()->VBComponents();
    for (int index = 1; index <= all->Count(); ++index) names.push_back(all->Item(index)->Name());
    return names;
  }
  /// The rows of a grid: level, caption and the other cells.
  static std::string Rows(const forms::Grid& grid) {
    String text;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
      const int level = grid.RowAt(row).Level;
      text += String(static_cast<std::size_t>(2 * (level - 1)), u' ') + grid.TextMatrix(row, 0);
      for (int col = 1; col < grid.Cols(); ++col) text += u"|" + grid.TextMatrix(row, col);
      text += u"\n";
    }
    return vb::ToUtf8(text);
  }
  /// The row of that caption, the first from `from` on; -1 for none.
  static int RowNamed(const forms::Grid& grid, StringView caption, int from = 0) {
    for (int row = std::max(from, grid.FixedRows()); row < grid.Rows(); ++row) {
      if (grid.TextMatrix(row, 0) == caption) return row;
    }
    ADD_FAILURE() << "no row " << vb::ToUtf8(caption);
    return -1;
  }
  static void TickRow(forms::Grid& grid, StringView caption, bool ticked = true) {
    forms::user::Tick(grid, RowNamed(grid, caption), ticked);
  }
  /// The library as an indented tree, a record with what it stores.
  static std::string Library(StringView name) {
    const auto tree = OpenTree(OpenLibraries::At(name));
    const auto nodes = tree->GetNodesAndList();
    String text;
    for (const TreeNode& node : nodes.value_or(std::vector<TreeNode>())) {
      text += String(static_cast<std::size_t>(2 * (node.lvl - 2)), u' ') + node.Name;
      if (node.Root == FolderKind) text += u"/";
      if (!node.ClassObj.empty()) text += u" " + node.NameObj + u"." + node.ClassObj;
      text += u"\n";
    }
    return vb::ToUtf8(text);
  }
  static ListFragment Stored(StringView name, StringView caption) {
    const auto tree = OpenTree(OpenLibraries::At(name));
    for (const TreeNode& node : tree->GetNodes().value_or(std::vector<TreeNode>())) {
      if (node.Name == caption && node.Root == RecordKind) {
        return tree->GetRecordsetFromList(node.ID);
      }
    }
    ADD_FAILURE() << "no record " << vb::ToUtf8(caption);
    return {};
  }
  [[nodiscard]] static String Setting(StringView section, StringView key) {
    return gAppSettings->GetText(u"Settings\\VBCode" + String(section), key, u"(none)");
  }

  memory::MemoryPlatform Services;
  ErrorDialogs Errors{Services.DesktopService};
  platform::ScopedPlatform Scope{Services};
  OpenLibraries Libraries;
  const TemporaryFolder Folder;
  workspace::Workspace Workspace{Services};
  std::shared_ptr<LibraryRoot> Root = std::make_shared<LibraryRoot>();
  /// The boxes that the test has asked for.
  std::vector<std::string> Expected;
};

}  // namespace tessel::test
