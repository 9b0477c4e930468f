// The Snippet Manager: one tree over all open snippet databases, and pages that show and edit the
// selected record.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"
#include "foundation/ToolForm.h"
#include "snippets/SnippetGrid.h"

namespace tessel {

class frmFragmentBuilder : public ToolForm {
 public:
  frmFragmentBuilder();

  forms::Grid fgTree{this, "fgTree"};
  forms::Button btmAddFolder{this, "btmAddFolder", Tool(u"Add Folder")};
  forms::Button btmEditFolder{this, "btmEditFolder", Tool(u"Edit Folder")};
  forms::Button btmDeleteFolder{this, "btmDeleteFolder", Tool(u"Delete Folder")};
  forms::Button btmAddRecord{this, "btmAddRecord", Tool(u"Add Record")};
  forms::Button btmEditRecord{this, "btmEditRecord", Tool(u"Edit Record")};
  forms::Button btmDeleteRecord{this, "btmDeleteRecord", Tool(u"Delete Record")};
  forms::Button btmMoveUp{this, "btmMoveUp", Tool(u"Move Up")};
  forms::Button btmMoveDown{this, "btmMoveDown", Tool(u"Move Down")};
  forms::Button btmMoveLeft{this, "btmMoveLeft", Tool(u"Move Left")};
  forms::Button btmMoveRight{this, "btmMoveRight", Tool(u"Move Right")};
  forms::Button btmExpand{this, "btmExpand", Tool(u"Expand all projects", true)};
  forms::Button btmCollapse{this, "btmCollapse", Tool(u"Collapse all projects", true)};

  // Of a database's top row.
  forms::Panel C1EMDB{this, "C1EMDB", {.Visible = false}};
  forms::Label lblNameTitle{this, "lblNameTitle", {.Caption = u"Name:"}};
  forms::Label lblName{this, "lblName"};
  forms::Label lblExtTitle{this, "lblExtTitle", {.Caption = u"Type:"}};
  forms::Label lblExt{this, "lblExt"};
  forms::Label lblPathTitle{this, "lblPathTitle", {.Caption = u"Folder:"}};
  forms::Label lblPath{this, "lblPath"};
  forms::Label lblSizeTitle{this, "lblSizeTitle", {.Caption = u"Size:"}};
  forms::Label lblSize{this, "lblSize"};

  // Of a record.
  forms::TabControl C1TCodeObject{
      this,
      "C1TCodeObject",
      {{u"C1EObject", u"Object"}, {u"C1ECode", u"Code"}, {u"C1EUserCode", u"Notes"}}};
  forms::Label lblNameObjectTitle{this, "lblNameObjectTitle", {.Caption = u"Name:"}};
  forms::Label lblNameObject{this, "lblNameObject"};
  forms::Label lblTypeTitle{this, "lblTypeTitle", {.Caption = u"Type:"}};
  forms::Label lblType{this, "lblType"};
  forms::Button btmInsertObject{
      this, "btmInsertObject", {.Caption = u"&Insert Object", .Enabled = false}};
  forms::RichTextBox RicCodeObjectFragmentBuilder{this, "RicCodeObjectFragmentBuilder"};
  forms::Button btmCodeSave{this, "btmCodeSave", {.Caption = u"&Save"}};
  forms::Button btmImportObject{this, "btmImportObject", {.Caption = u"Im&port..."}};
  forms::Button btmInsertSelected{this, "btmInsertSelected", {.Caption = u"Insert Se&lected"}};
  forms::Label lblListObject{this, "lblListObject", {.Caption = u"Insert in&to:"}};
  forms::ComboBox ComListObject{this, "ComListObject"};
  forms::Button btmInsert{this, "btmInsert", {.Caption = u"&Insert"}};
  forms::RichTextBox RicCodeFragmentBuilder{this, "RicCodeFragmentBuilder"};
  forms::Button btmSave{this, "btmSave", {.Caption = u"&Save"}};
  forms::Button btmImportCode{this, "btmImportCode", {.Caption = u"Im&port..."}};
  forms::Button btmInsertSelectedsExample{
      this, "btmInsertSelectedsExample", {.Caption = u"Insert Se&lected"}};
  forms::RichTextBox RicUserCode{this, "RicUserCode"};
  forms::Button btmSaveUserCode{this, "btmSaveUserCode", {.Caption = u"&Save"}};

  forms::DropDownButton btmFile{this, "btmFile", {.Caption = u"&Database"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmExit{this, "btmExit", {.Caption = u"E&xit"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  /// Pages of the record.
  enum Page : int { ObjectPage = 0, CodePage = 1, NotesPage = 2 };
  using TreeMove = void (CSQLTree::*)(std::int32_t id, std::int32_t root);

  /// A button whose caption is its tool tip as well; most wait for a row.
  [[nodiscard]] static forms::Init Tool(StringView caption, bool enabled = false) {
    return {.Caption = String(caption), .ToolTipText = String(caption), .Enabled = enabled};
  }
  void Arrange();
  void Wire();
  void WireTree();
  void WireRecord();

  // The tree.
  void RunLoadTree(const SnippetChoice& choice);
  /// Makes a row current and shows what belongs to it, also when the row has that place already.
  void MakeCurrent(int row);
  void AfterSelChange();
  void EnableCmdEditAndDelete(int row, int col, int kind);
  /// Adds a node below the current row and lets the user type its caption. Its number, 0 when it
  /// could not be added.
  std::int32_t AddFolder(StringView connection, int kind, StringView caption, StringView classObj);
  void EditFolder();
  void DeleteFolder(StringView connection);
  void MoveFolderDown(StringView connection, int kind);
  void MoveFolderUP(StringView connection, int kind);
  void MoveFolderLeft(StringView connection, int kind);
  void MoveFolderRight(StringView connection, int kind);
  void MoveFolder(const Statements& run, TreeMove move, StringView connection, int kind);
  void AfterEdit(int row, int col);
  void DropFiles(int row, const std::vector<String>& files);

  // What belongs to the current row.
  void ViewObject(StringView connection, int kind);
  void ViewParameterMDB(StringView connection);
  void ViewWindowsRichTextBox(StringView connection);
  void ViewC1TCodeObject();
  void FillComponents(const Statements& run);
  void WindowsImport(StringView routine, StringView filter);
  void ImportFileInList(StringView connection, StringView path, bool needsCompanion = true);
  /// Writes the text of one edit box into its column of the record.
  void Save(StringView routine, forms::RichTextBox& box, String ListFragment::*column);
  void InsertObject();
  void InsertCode();
  void InsertSelected(StringView routine, forms::RichTextBox& box);
  void InsertSelectedTextInComponent(StringView text);

  // The databases.
  void FileCommand(StringView key);
  void NewDataBase();
  void OpenDatabase();
  bool DynamicConnect(StringView fileName);
  void CloseDatabase(StringView nameConnect);

  [[nodiscard]] bool HasCurrentRow() const;
  /// Connection and kind of the current row; nothing without one, or without cell data.
  [[nodiscard]] std::optional<RowKey> CurrentKey() const;
  /// Number of the current row's node, 1 without a row.
  [[nodiscard]] std::int32_t CurrentID() const;
  [[nodiscard]] CSQLTree& TreeOf(StringView connection) const;

  std::shared_ptr<CSQLTrees> trees_;
  /// The record on show, so that a change of page needs no reading.
  ListFragment record_;
  /// Its connection and number.
  std::pair<String, std::int32_t> shown_;
};

}  // namespace tessel
