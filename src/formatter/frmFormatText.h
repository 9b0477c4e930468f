// The Code Formatter dialog.
#pragma once

#include <memory>

#include "formatter/FormatRun.h"
#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"
#include "foundation/ToolForm.h"
#include "store/Recordset.h"

namespace tessel {

/// Collects options and a scope, and starts a run. It owns the recordset behind its grid.
class frmFormatText : public ToolForm {
 public:
  /// The run object goes on from one dialog to the next.
  explicit frmFormatText(
      std::shared_ptr<mFormatText::FormatRun> format = std::make_shared<mFormatText::FormatRun>());

  forms::ComboBox ComModule{this, "ComModule"};
  forms::TabControl C1TCodeObject{this,
                                  "C1TCodeObject",
                                  {{u"C1ECode", u"Indentation"},
                                   {u"C1EObject", u"Blank Lines"},
                                   {u"C1EWrapping", u"Line Wrapping"}}};
  forms::CheckBox chkIndentEntire{
      this, "chkIndentEntire", {.Caption = u"Indent entire code within procedures"}};
  forms::CheckBox chkIndentCase{
      this, "chkIndentCase", {.Caption = u"Indent 'Case' blocks within 'Select Case' structures"}};
  forms::OptionButton OptTabChfracters{
      this, "OptTabChfracters", IndentGroup, {.Caption = u"Tab Characters"}};
  forms::OptionButton OptSpaceCharacters{
      this, "OptSpaceCharacters", IndentGroup, {.Caption = u"Space Characters"}};
  forms::Label lblUse{this, "lblUse", {.Caption = u"Use"}};
  forms::TextBox txtPcs{this, "txtPcs"};
  forms::SpinButton VScrollPcs{this, "VScrollPcs", 1, 20};
  forms::RichTextBox RicCode{this, "RicCode"};
  forms::CheckBox chkInsertBlank{
      this,
      "chkInsertBlank",
      {.Caption = u"Insert blank lines before/after the following statements"}};
  forms::Grid VSFFormatLines{this, "VSFFormatLines"};
  forms::CheckBox chkEnableCodeLines{
      this,
      "chkEnableCodeLines",
      {.Caption = u"Enable code lines wrapping/compacting/at line continuation sequencec (\"_\")"}};
  forms::OptionButton OptCompactWrapped{
      this, "OptCompactWrapped", WrapGroup, {.Caption = u"Compact wrapped lines"}};
  forms::OptionButton OptWrapCode{
      this, "OptWrapCode", WrapGroup, {.Caption = u"Wrap code lines that are longer than:"}};
  forms::TextBox txtCharacrers{this, "txtCharacrers", {.ToolTipText = u"Characters"}};
  forms::SpinButton VScrollCharacters{this, "VScrollCharacters", 40, 140};
  forms::Label lblCharacters{this, "lblCharacters", {.Caption = u"characters"}};
  forms::TextBox txtAdditionalTabs{this, "txtAdditionalTabs", {.ToolTipText = u"Additional tabs"}};
  forms::SpinButton VScrollTabsAdditional{this, "VScrollTabsAdditional", 0, 10};
  forms::Label lblAdditionalTabs{
      this, "lblAdditionalTabs", {.Caption = u"additional tabs ahead of a continuation line"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmRun{this, "btmRun", {.Caption = u"Run"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  enum Groups { IndentGroup, WrapGroup };

  void Arrange();
  void Wire();
  void WireNumbers();
  void LoadParametr();
  void SaveForm();
  bool CheckField();
  [[nodiscard]] String GenerateExampleText() const;
  void ViewRTF();
  void OpenRules();
  void ShowRules();
  void StoreCell(int row, int col);
  void CloseRules(const Statements& run);
  void EnableWrapping();
  void EnableSpaces();
  void Run();
  void Cancel();

  std::shared_ptr<mFormatText::FormatRun> format_;
  store::Recordset rules_;
};

}  // namespace tessel
