// The dialog that takes error handlers out.
#pragma once

#include <memory>

#include "errorhandlers/RunContext.h"
#include "forms/Controls.h"
#include "foundation/ToolForm.h"

namespace tessel {

class frmRemoveErrorHandlerCode : public ToolForm {
 public:
  /// The run context goes on from one dialog to the next.
  explicit frmRemoveErrorHandlerCode(std::shared_ptr<mInsertErrorHandlerCode::RunContext> context =
                                         std::make_shared<mInsertErrorHandlerCode::RunContext>());

  forms::Label lblRemoveFrom{this, "lblRemoveFrom", {.Caption = u"Remove From"}};
  forms::ComboBox ComRemoveFrom{this, "ComRemoveFrom"};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmBegin{this, "btmBegin", {.Caption = u"Begin"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Begin();

  std::shared_ptr<mInsertErrorHandlerCode::RunContext> context_;
};

}  // namespace tessel
