// The dialog that writes a collection class.
#pragma once

#include <vector>

#include "builders/BuilderForm.h"
#include "builders/CollectionText.h"

namespace tessel {

class frmClassBuilder : public PreviewForm {
 public:
  frmClassBuilder();

  forms::Label lblBaseClass{this, "lblBaseClass", {.Caption = u"&Base Class:"}};
  forms::ComboBox ComBaseClass{this,
                               "ComBaseClass",
                               forms::ComboBox::Style::Editable,
                               {.Text = u"ComBaseClass", .ToolTipText = u"Base Class"}};
  forms::Label lblCollectionClassName{
      this, "lblCollectionClassName", {.Caption = u"Collection Class &Name:"}};
  forms::TextBox txtCollectionClassName{
      this, "txtCollectionClassName", {.Text = u"Name", .ToolTipText = u"Collection Class Name"}};
  forms::CheckBox chkImplementsPublic{
      this,
      "chkImplementsPublic",
      {.Caption = u"&Implements public item existence checker (the 'Exists' function)"}};
  builders::LowerPart Part{this, "RicViewClassBuilder"};

 protected:
  void Form_Load() override;

 private:
  static const BuilderKind Builder;
  void Arrange();
  void Wire();
  void LoadParametr();
  void ComBaseClass_Click_Change();
  [[nodiscard]] String Code() const override;
  void Finish(const Statements& run) override;
  using Components = std::vector<std::shared_ptr<host::VBComponent>>;
  bool MakeClass(StringView name, StringView text, Components& made);
  [[nodiscard]] builders::CollectionChoices Choices() const;
};

}  // namespace tessel
