// The wizard that stores components of the open projects as records of a snippet library: one page
// chooses the components, the other the folder.
#pragma once

#include <memory>
#include <vector>

#include "forms/Controls.h"
#include "forms/Grid.h"
#include "foundation/ToolForm.h"
#include "snippets/CSQLTrees.h"
#include "snippets/ComponentGroups.h"

namespace tessel {

class frmStoreToVbCode : public ToolForm {
 public:
  frmStoreToVbCode();

  forms::TabControl C1TFirstNext{
      this, "C1TFirstNext", {{u"C1EFirst", u"Components"}, {u"C1ENext", u"Folder"}}};
  forms::Grid fgTreeBack{this, "fgTreeBack"};
  forms::Button btmSelectAll{this, "btmSelectAll", {.Caption = u"Select &All"}};
  forms::Button btmSelectNone{this, "btmSelectNone", {.Caption = u"Select N&one"}};
  forms::Grid fgTreeNext{this, "fgTreeNext"};
  forms::Button btmAddFolder{this, "btmAddFolder", {.Caption = u"Add Folder"}};
  forms::Button btmEditFolder{this, "btmEditFolder", {.Caption = u"Edit Folder"}};
  forms::Button btmDeleteFolder{this, "btmDeleteFolder", {.Caption = u"Delete Folder"}};
  forms::CheckBox chkCreateClasses{
      this,
      "chkCreateClasses",
      {.Caption = u"Create Classes/Folders/Modules etc. Folders structure to mimic the project's "
                  u"components organization"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmBask{this, "btmBask", {.Caption = u"<< &Back", .Enabled = false}};
  forms::Button btmNext{this, "btmNext", {.Caption = u"Next >>"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  /// A component of a project, as its row shows it.
  struct OpenComponent {
    int Position, Type;
    String Name;
  };

  void Arrange();
  void Wire();
  void WireFolders();
  void RunLoadTreeBack();
  void LoadTreeBack();
  void AddProject(const Statements& run, int position);
  [[nodiscard]] static std::vector<OpenComponent> ComponentsOf(
      const Statements& run, const std::shared_ptr<host::VBProject>& project);
  void RunLoadNext();
  void EnablebtmNext();
  void EnableBtmEditAndDelete();
  void TickAll(StringView routine, bool ticked);
  void ShowPage();
  void Next();
  void RunStoreToVbCode(const String& connection, std::int32_t parentID, bool createFolders);
  void AddNewPointInTree(const String& connection, const String& caption, std::int32_t parentID,
                         const ComponentKey& key);
  void StoreComponent(const Statements& run, const String& connection, const String& folder,
                      const String& caption, std::int32_t record, const ComponentKey& key);
  void AddFolder();
  void EditFolder();
  void DeleteFolder();
  void RenameNode(int row);
  [[nodiscard]] std::vector<int> TickedRows() const;
  [[nodiscard]] CSQLTree& TreeOf(StringView connection) const;

  std::shared_ptr<CSQLTrees> trees_;
};

}  // namespace tessel
