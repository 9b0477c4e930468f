// The dialog that writes a member variable with its Property procedures.
#pragma once

#include "builders/BuilderForm.h"
#include "builders/PropertyText.h"
#include "connections/CSQLDataType.h"

namespace tessel {

class frmPropertyBuilder : public PreviewForm {
 public:
  frmPropertyBuilder();

  builders::NameBox Name{this};
  forms::Label lblValueType{this, "lblValueType", {.Caption = u"&Value Type:"}};
  forms::ComboBox ComValueType{
      this, "ComValueType", forms::ComboBox::Style::List, {.ToolTipText = u"Value Type"}};
  forms::Label lblMemberVariable{this, "lblMemberVariable", {.Caption = u"M&ember Variable:"}};
  forms::TextBox txtMemberVariable{
      this, "txtMemberVariable", {.Text = u"MemberVariable", .ToolTipText = u"Member Variable"}};
  builders::AccessBox Access{this};
  builders::StaticBox Static{this};
  builders::ModuleBox Module{this};
  forms::CheckBox chkGet{this, "chkGet", {.Caption = u"&Get"}};
  forms::CheckBox chkLetSet{this, "chkLetSet", {.Caption = u"&Let/Set"}};
  builders::LowerPart Part{this, "RicViewPropertyBuilder"};

 protected:
  void Form_Load() override;

 private:
  static const BuilderKind Builder;
  void Arrange();
  void Wire();
  void LoadParametr();
  /// The handler of that name: the prefix of the chosen type takes its place.
  void TakePrefix(StringView routine);
  [[nodiscard]] String Code() const override;
  void Finish(const Statements& run) override;
  /// Prefix of the chosen type; empty when there is none.
  [[nodiscard]] String PrefixOfType() const;
  [[nodiscard]] builders::PropertyChoices Choices() const;

  std::vector<CSQLDataType::Row> types_;
};

}  // namespace tessel
