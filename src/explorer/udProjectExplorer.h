// The Project Explorer: a tree of what is open, down to the members of each module.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "explorer/ExplorerMenus.h"
#include "explorer/ExplorerRows.h"
#include "explorer/TreeWords.h"
#include "forms/Controls.h"
#include "forms/Grid.h"
#include "foundation/GuardedDocument.h"
#include "foundation/Routine.h"
#include "host/IConnect.h"
#include "host/VBE.h"
#include "projectmodel/ProjectTree.h"
#include "watchers/clsEventCODE.h"

namespace tessel {

/// Keeps its rows in step with the projects, and its selection with the caret. Reads the
/// environment into a model; the tree is a view of that. Notices come from the watchers, whose
/// latches it sets again behind each.
class udProjectExplorer : public GuardedDocument {
 public:
  udProjectExplorer();

  /// Whose notices are heard from now on; null for nobody's.
  void SetTreeVBA(std::shared_ptr<clsEventCODE> source);
  std::shared_ptr<host::VBE> VBInstance;
  /// Reads all projects anew and shows them; nothing without an environment.
  void ProjectTree();
  /// Shows the model: projects and groups open, components closed. The argument has no effect.
  void LoadTree(int = 0);
  /// The root, for its dialogs and for hiding.
  ConnectReference Connect;

  /// Puts the selection on the member at the caret, whatever the setting says, and takes back what
  /// was typed above the tree.
  void SelectAtCaret();
  /// Shows a component: its object, or its code with the line (1 and up) at the top of the pane.
  /// `component` is the key of its group, `member` its name.
  void PositionProcedure(StringView project, StringView component, StringView member, int line);
  /// Whether the environment's own command of that caption can be used now.
  [[nodiscard]] bool CheckEnableButtonADD(StringView caption);
  /// Whether the selected object is a sheet of a host of documents, which has no object view.
  [[nodiscard]] bool CheckObjEnable();
  /// "Remove" and the name of the current row's component.
  [[nodiscard]] String nameRemoveComponent() const;

  forms::Button btnCollapse{this, "btnCollapse", {.Caption = u"Collapse all projects"}};
  forms::Button btnExpand{this, "btnExpand", {.Caption = u"Expand all projects"}};
  forms::ToggleButton btnProperty{this, "btnProperty", {.Caption = u"Show property procedures"}};
  forms::ToggleButton btnMethod{this, "btnMethod", {.Caption = u"Show standard procedures"}};
  forms::ToggleButton btnCtl{this, "btnCtl", {.Caption = u"Show event procedures"}};
  forms::Button btnRefresh{this, "btnRefresh", {.Caption = u"Refresh"}};
  forms::Button btmObject{this, "btmObject", {.Caption = u"View Object", .Enabled = false}};
  forms::Button btmCode{this, "btmCode", {.Caption = u"View Code", .Enabled = false}};
  /// Parts of words that narrow the tree; Escape empties it, Enter goes to the first find.
  forms::TextBox txtFind{this, "txtFind"};
  forms::Grid fgTree{this, "fgTree"};
  explorer::MenuVB6 MenuOfRows{this};
  explorer::MenuVBA MenuOfDocuments{this};
  explorer::MenuWindow MenuOfWindow{this};

 protected:
  void UserDocument_Initialize() override;
  void UserDocument_Show() override;

 private:
  /// What the tree looked like: which rows were open, by identity, the current one, the first in
  /// sight.
  struct Look {
    std::unordered_map<String, bool> Collapsed;
    String Current, Top;
  };
  enum class Conformity { Same, OtherMembers, Unknown };
  using Component = std::shared_ptr<host::VBComponent>;

  void BuildLayout();
  void WireButtons();
  void WireTree();
  void WireMenus();

  // udProjectExplorer.cpp: life, buttons, notices.
  void FilterPressed(StringView routine, StringView value, forms::ToggleButton& button,
                     bool explorer::MemberFilter::*shown);
  void btnRefresh_Click();
  void cTreeVBA_Tree(std::int32_t kind, std::int32_t argument);
  void HandleNotice(const Statements& run, std::int32_t kind, std::int32_t argument, bool anew);
  [[nodiscard]] bool ProjectsMayDiffer(const Statements& run);
  void ComponentsMayDiffer(const Statements& run);
  void CodeMayDiffer(const Statements& run);
  void CompareActive(const Statements& run, const Component& component);
  [[nodiscard]] bool WasOutrun() const;
  void Reading(const std::function<void()>& work);
  void Reload();
  void ClearMarks();
  void Position(std::int32_t argument);

  // udProjectExplorerTree.cpp: model and rows.
  void ReadProjects();
  void ProjectTree_Project(const ProjectFiller& filler, const std::shared_ptr<cProjecteses>& model,
                           const std::shared_ptr<host::VBProject>& project);
  void ProjectTree_TypeComponent(const ProjectFiller& filler, cProjecteses& model,
                                 StringView caption,
                                 const std::shared_ptr<host::VBProject>& project);
  void LoadParticleTree(StringView project, const Component& component);
  void RefreshMyComponent(StringView project, const Component& component);
  void PutMembers(int row, std::vector<forms::GridRow> members);
  void ChangeColFgTree(int first, const std::vector<forms::GridRow>& members, std::size_t from,
                       std::size_t to);
  void PutRows(bool letEventsRun);
  void SaveCollapsedExpanded();
  void RestoreCollapsedExpanded();
  [[nodiscard]] bool ConformityAllProject();
  [[nodiscard]] bool ConformityComponent(StringView project, StringView component);
  [[nodiscard]] Conformity ConformityActiveComponent(StringView project,
                                                     const Component& component);

  // udProjectExplorerPlaces.cpp: what is active, and its row.
  [[nodiscard]] String GetActiveVBProjectName();
  [[nodiscard]] String GetSelectedVBComponent();
  [[nodiscard]] Component ActiveComponent();
  [[nodiscard]] String ProjectOfComponent(const Component& component);
  [[nodiscard]] bool ActedElsewhere();
  [[nodiscard]] int GetStartLine();
  [[nodiscard]] String MemberKeyAtCaret(StringView project, StringView component);
  void SelectItemTree(StringView project, StringView component, int member, std::int32_t argument);
  [[nodiscard]] int ReturnRowItemTreeProcedure(int component, StringView key) const;
  [[nodiscard]] bool CellIs(int row, int col, StringView text) const;
  [[nodiscard]] int RowOfComponent(StringView project, StringView component) const;
  void SelectRowTree(int row);
  [[nodiscard]] std::shared_ptr<host::VBProject> ProjectOfCaption(StringView caption);
  [[nodiscard]] Component FindProjectConponent(const cProjectes& project, StringView component);
  void ButtonEnabled();
  [[nodiscard]] String IdentityOf(int row) const;

  // udProjectExplorerActions.cpp: what the user does.
  void fgTree_MouseDown(int button, int row);
  void fgTree_Click();
  void fgTree_DblClick();
  void btmCode_Click();
  void btmObject_Click();
  void EnableItems(forms::MenuItem& object, forms::MenuItem& code);
  void OpenMenu(forms::MenuItem& menu);
  void AddByCommand(StringView routine, StringView caption);
  void txtFind_Change();
  void txtFind_KeyPress(int& key);
  [[nodiscard]] Look PresentLook() const;
  void PutLook(const Look& look);
  void GoToFind();

  std::shared_ptr<clsEventCODE> cTreeVBA_;
  std::shared_ptr<cProjecteses> projects_;  // null until the first reading
  explorer::MemberFilter filter_;
  std::vector<std::int32_t> collapsed_;  // of every row, between two reloads
  explorer::TreeWords words_{u""};
  std::optional<Look> before_;  // the tree ahead of what was typed
  String chosen_;               // the row that became current since
  int firstFind_ = -1;
  bool narrowed_ = false;  // the rows are those that the words leave
  bool viewObject_ = false;
  bool busy_ = false;     // a jump of our own
  bool reading_ = false;  // a reload or a notice is under way
  bool noticed_ = false;  // one more came meanwhile
  bool failed_ =
      false;  // a call of the last notice or reading did: what it was to find may be lost
  bool outrun_ = false;  // the marks of a notice that gave up were cleared ahead of the next one
};

}  // namespace tessel
