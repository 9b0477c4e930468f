// The editor of the error-handler schemes. An edit reaches the database as soon as its field loses
// the focus.
#pragma once

#include <memory>
#include <optional>

#include "errorhandlers/CSQLErrorHandler.h"
#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"
#include "foundation/ToolForm.h"

namespace tessel {

class frmErrorHandlerScheme : public ToolForm {
 public:
  frmErrorHandlerScheme();

  forms::Grid VSFErrorHandler{this, "VSFErrorHandler"};
  forms::Button btmAdd{this, "btmAdd", {.Caption = u"Add"}};
  forms::Button btmDup{this, "btmDup", {.Caption = u"Duplicate"}};
  forms::Button btmDelete{this, "btmDelete", {.Caption = u"Delete"}};
  forms::Button btmCut{this, "btmCut", {.Caption = u"Cut"}};
  forms::Button btmCopy{this, "btmCopy", {.Caption = u"Copy"}};
  forms::Button btmPaste{this, "btmPaste", {.Caption = u"Paste"}};
  forms::DropDownButton btmStandard{this, "btmStandard", {.Caption = u"Standard"}};
  forms::Label lblHeader{this, "lblHeader", {.Caption = u"Header"}};
  forms::RichTextBox RicHeader{this, "RicHeader"};
  forms::Label lblFooter{this, "lblFooter", {.Caption = u"Footer"}};
  forms::RichTextBox RicFooter{this, "RicFooter"};
  forms::CheckBox chkInsertLine{this, "chkInsertLine", {.Caption = u"Insert line numbers"}};
  forms::Label lblBaseNumber{this, "lblBaseNumber", {.Caption = u"Base number"}};
  forms::TextBox txtBaseNumber{this, "txtBaseNumber"};
  forms::Label lblStep{this, "lblStep", {.Caption = u"Step"}};
  forms::TextBox txtStep{this, "txtStep"};
  forms::CheckBox chkChangeOn{
      this,
      "chkChangeOn",
      {.Caption = u"Change \"On Error Goto 0\" statements to \"On error Goto <Label>\""}};
  forms::TextBox txtLabelName{this, "txtLabelName"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  enum Editor { NoEditor = 0, FooterEditor = 1, HeaderEditor = 2 };

  void Arrange();
  void Wire();
  void WireEditing();
  void WireFocus(forms::Control& control, Editor editor);
  void WireText(forms::RichTextBox& box, StringView routine);
  void LoadParametr(StringView name);
  void ViewAllField();
  void ShowScheme(const ErrorHandlerScheme& scheme);
  [[nodiscard]] ErrorHandlerScheme SchemeOfFields(StringView name) const;
  [[nodiscard]] std::optional<String> SelectedName() const;
  void UpdateRecord();
  void EnabledStandardMenu();
  void LeaveNumber(forms::TextBox& box);
  [[nodiscard]] forms::RichTextBox* ActiveBox();
  void AddRecord();
  void DuplicateRecord();
  void DeleteRecord();
  [[nodiscard]] bool CheckDuplicateName(StringView name, int exceptRow) const;
  void AfterRename(int row, int col);

  int ActiveEditor = NoEditor;
  bool showing_ = false;  // fields follow the record, so they don't write it
  String nameBefore_;
  std::shared_ptr<CSQLErrorHandler> table_;
};

}  // namespace tessel
