// The dialog that puts error handlers in.
#pragma once

#include <memory>

#include "errorhandlers/RunContext.h"
#include "forms/Controls.h"
#include "forms/RichTextBox.h"
#include "foundation/ToolForm.h"

namespace tessel {

/// A scope, and either a scheme for each component type (page 0) or one scheme with its preview
/// (page 1).
class frmInsertErrorHandlerCode : public ToolForm {
 public:
  /// The run context goes on from one dialog to the next.
  explicit frmInsertErrorHandlerCode(std::shared_ptr<mInsertErrorHandlerCode::RunContext> context =
                                         std::make_shared<mInsertErrorHandlerCode::RunContext>());

  forms::Label lblInsertIN{this, "lblInsertIN", {.Caption = u"InsertIN"}};
  forms::ComboBox ComInsertIN{this, "ComInsertIN"};
  forms::TabControl C1TTab1Tab2{
      this, "C1TTab1Tab2", {{u"C1ESummary", u"By Component Type"}, {u"C1EModule", u"One Scheme"}}};
  forms::Label lblForm{this, "lblForm", {.Caption = u"Forms"}};
  forms::ComboBox ComForm{this, "ComForm"};
  forms::Label lblModule{this, "lblModule", {.Caption = u"Modules and class modules"}};
  forms::ComboBox ComModule{this, "ComModule"};
  forms::Label lblClass{this, "lblClass", {.Caption = u"Class modules (kept)"}};
  forms::ComboBox ComClass{this, "ComClass"};
  forms::Label lblDocument{this, "lblDocument", {.Caption = u"Documents (kept)"}};
  forms::ComboBox ComDocument{this, "ComDocument"};
  forms::Label lblActiveX{this, "lblActiveX", {.Caption = u"ActiveX designers"}};
  forms::ComboBox ComActiveX{this, "ComActiveX"};
  forms::Label lblDefaultScheme{this, "lblDefaultScheme", {.Caption = u"Default scheme:"}};
  forms::ComboBox ComCurrentScheme{this, "ComCurrentScheme"};
  forms::RichTextBox RicPreView{this, "RicPreView"};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmEditSchtmes{this, "btmEditSchtmes", {.Caption = u"Edit Schemes..."}};
  forms::Button btmBegin{this, "btmBegin", {.Caption = u"Begin"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void LoadParametr();
  void SaveForm();
  [[nodiscard]] String GeneratorText(StringView scheme) const;
  void ShowPageOfScope();
  void ShowPreview();
  void EditSchemes();
  void Begin();

  std::shared_ptr<mInsertErrorHandlerCode::RunContext> context_;
};

}  // namespace tessel
