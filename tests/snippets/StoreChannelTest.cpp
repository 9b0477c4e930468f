// The dialogs that carry components into a library and back, as a script uses them.

#include "snippets/SnippetChannel.h"

namespace tessel {
namespace {

class StoreChannel : public test::SnippetChannel {
 protected:
  void Tick(const std::string& grid, int row) {
    Ask({{"do", "edit"}, {"control", grid}, {"row", row}, {"col", 1}, {"text", "True"}});
  }
  void Stored(const std::string& name) {
    Query("SELECT TitleObj, TextObj, NameObj, ClassObj FROM List WHERE NameObj = '" + name + "'");
  }
  /// Stores a module at the top of the main library.
  void StoreModule() {
    Connect();
    Project();
    Component(1, "KeptModule", "Sub Kept()\nEnd Sub");
    Open("Store to Snippets");
    Press("btmSelectAll");
    Press("btmNext");
    Row(0, "fgTreeNext");
    Press("btmNext");
  }
  /// The row whose first cell is `caption` in the reply to `form`.
  static int RowOf(const Json& reply, const std::string& grid, const std::string& caption) {
    const Json rows = Control(reply, grid).at("rows");
    for (std::size_t at = 0; at < rows.size(); ++at) {
      if (rows[at].at("cells")[0] == caption) return static_cast<int>(at);
    }
    ADD_FAILURE() << "no row " << caption;
    return 0;
  }
};

TEST_F(StoreChannel, AComponentGoesIntoTheLibraryAndComesBackUnderAnotherName) {
  StoreModule();
  Stored("KeptModule");
  const Json stored = Play();
  EXPECT_EQ(FormOf(stored), "") << "the wizard is gone";
  ASSERT_EQ(stored.at("rows").size(), 1U);
  EXPECT_EQ(stored.at("rows")[0][0], "Attribute VB_Name = \"KeptModule\"\r\n");
  EXPECT_EQ(stored.at("rows")[0][1], "Sub Kept()\r\nEnd Sub\r\n");
  EXPECT_EQ(stored.at("rows")[0][3], "BAS");
  Open("Insert Snippet");
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmGetFromVbCode");
  EXPECT_EQ(Control(form, "btmRun").at("enabled"), false);
  Tick("fgTree", RowOf(form, "fgTree", "KeptModule"));
  Press("btmRun");
  Press("btmCancel");
  Text("KeptModule1");
  const Json text = Play();
  EXPECT_EQ(FormOf(text), "");
  EXPECT_EQ(text.at("text"), "Sub Kept()\r\nEnd Sub");
}

TEST_F(StoreChannel, TheWizardAsksForAFolder) {
  Connect();
  Project();
  Component(1, "KeptModule", "");
  Open("Store to Snippets");
  Press("btmSelectAll");
  Press("btmNext");
  Press("btmNext");
  const Json asked = Play();
  EXPECT_EQ(MessageOf(asked), "It is necessary to choose the node to add objects");
  Answer("OK");
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmStoreToVbCode");
  EXPECT_EQ(Control(form, "C1TFirstNext").at("index"), 1);
}

TEST_F(StoreChannel, AFailedExportIsReportedAndTheRestIsStored) {
  Connect();
  Project();
  Component(1, "First", "");
  Component(1, "Second", "");
  Open("Store to Snippets");
  Press("btmSelectAll");
  Press("btmNext");
  Row(0, "fgTreeNext");
  Fail("VBComponent.SaveAs");
  Press("btmNext");
  const Json report = Play(1);
  EXPECT_EQ(FormOf(report), "frmErrorMessage");
  Press("btnIgnore");
  Stored("Second");
  const Json stored = Play(1);
  EXPECT_EQ(FormOf(stored), "");
  EXPECT_EQ(stored.at("rows").size(), 1U);
}

TEST_F(StoreChannel, OnlyOneOfTheDialogsOpens) {
  Connect();
  Project();
  Open("Insert Snippet");
  Open("Store to Snippets");
  EXPECT_EQ(FormOf(Play()), "frmGetFromVbCode");
}

}  // namespace
}  // namespace tessel
