// The dialog that writes a new procedure.
#pragma once

#include <memory>

#include "builders/BuilderForm.h"
#include "builders/ProcedureText.h"
#include "builders/frmArgumentBuilder.h"
#include "connections/CSQLDataType.h"

namespace tessel {

class frmProcedureBuilder : public PreviewForm {
 public:
  frmProcedureBuilder();

  builders::NameBox Name{this};
  forms::Label lblType{this, "lblType", {.Caption = u"&Type:"}};
  forms::ComboBox ComType{this, "ComType", forms::ComboBox::Style::List, {.ToolTipText = u"Type"}};
  builders::AccessBox Access{this};
  builders::StaticBox Static{this};
  forms::Label lblReturnValueType{this, "lblReturnValueType", {.Caption = u"&Return Value Type:"}};
  forms::ComboBox ComReturnValueType{this,
                                     "ComReturnValueType",
                                     forms::ComboBox::Style::List,
                                     {.ToolTipText = u"Return Value Type"}};
  builders::ModuleBox Module{this};
  builders::ItemList ListProcedureArguments{this, "ListProcedureArguments", "btmMoweDown"};
  builders::LowerPart Part{this, "RicViewProcedureBuilder"};

 protected:
  void Form_Load() override;

 private:
  static const BuilderKind Builder;
  void Arrange();
  void Wire();
  void LoadParametr();
  void EnableReturnType();
  [[nodiscard]] String Code() const override;
  void Finish(const Statements& run) override;
  [[nodiscard]] builders::ProcedureChoices Choices() const;

  std::vector<String> types_;
  std::shared_ptr<frmArgumentBuilder> argument_;
};

}  // namespace tessel
