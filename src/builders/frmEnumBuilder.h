// The dialog that writes an enum.
#pragma once

#include <memory>

#include "builders/BuilderForm.h"
#include "builders/EnumText.h"
#include "builders/frmParameterEnum.h"

namespace tessel {

class frmEnumBuilder : public PreviewForm {
 public:
  frmEnumBuilder();

  builders::NameBox Name{this};
  builders::AccessBox Access{this};
  builders::ModuleBox Module{this};
  builders::ItemList ListParameters{this, "ListParameters", "btmMoveDown"};
  builders::LowerPart Part{this, "RicViewEnumBuilder"};

 protected:
  void Form_Load() override;

 private:
  static const BuilderKind Builder;
  void Arrange();
  void Wire();
  void LoadParametr();
  [[nodiscard]] String Code() const override;
  void ShowCode(StringView code) override;
  void Finish(const Statements& run) override;
  [[nodiscard]] builders::EnumChoices Choices() const;

  std::shared_ptr<frmParameterEnum> parameter_;
};

}  // namespace tessel
