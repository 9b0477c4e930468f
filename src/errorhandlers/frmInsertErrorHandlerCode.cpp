#include "errorhandlers/frmInsertErrorHandlerCode.h"

#include "errorhandlers/CSQLErrorHandler.h"
#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "presentation/ViewTextRichtextbox.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

constexpr StringView Section = u"Settings\\VBCode\\frmInsertErrorHandlerCode";

struct Choice {
  StringView Key;
  forms::ComboBox frmInsertErrorHandlerCode::*Control;
};
constexpr Choice Choices[] = {{u"ComActiveX", &frmInsertErrorHandlerCode::ComActiveX},
                              {u"ComClass", &frmInsertErrorHandlerCode::ComClass},
                              {u"ComDocument", &frmInsertErrorHandlerCode::ComDocument},
                              {u"ComForm", &frmInsertErrorHandlerCode::ComForm},
                              {u"ComModule", &frmInsertErrorHandlerCode::ComModule}};

enum Page : int { SummaryPage = 0, ModulePage = 1 };

}  // namespace

frmInsertErrorHandlerCode::frmInsertErrorHandlerCode(
    std::shared_ptr<mInsertErrorHandlerCode::RunContext> context)
    : ToolForm("frmInsertErrorHandlerCode", u"Insert Error Handler Code"),
      context_(std::move(context)) {
  using namespace forms;
  Icon = 109;
  RicPreView.Locked = true;
  btmBegin.Default = true;
  btmCancel.Cancel = true;
  const auto row = [](Label& label, ComboBox& box) { return Row({Item(label), Item(box, 1)}); };
  Layout summary =
      Column({row(lblForm, ComForm), row(lblModule, ComModule), row(lblClass, ComClass),
              row(lblDocument, ComDocument), row(lblActiveX, ComActiveX), Space()});
  Layout module = Column({row(lblDefaultScheme, ComCurrentScheme), Item(RicPreView, 1)});
  SetLayout(Column(
      {row(lblInsertIN, ComInsertIN), Tabs(C1TTab1Tab2, {summary, module}),
       Row({Item(btmHelp), Item(btmEditSchtmes), Space(), Item(btmBegin), Item(btmCancel)})}));
  ComInsertIN.Click =
      Handler(u"frmInsertErrorHandlerCode.ComInsertIN_Click", [this] { ShowPageOfScope(); });
  ComCurrentScheme.Click = [this] { ShowPreview(); };
  btmEditSchtmes.Click = [this] { EditSchemes(); };
  btmBegin.Click = [this] { Begin(); };
  btmCancel.Click = Handler(u"frmInsertErrorHandlerCode.btmCancel_Click", [this] {
    if (Connect != nullptr) Connect->HideInsertErrorHandlerCode();
  });
  btmHelp.Click = Handler(u"frmInsertErrorHandlerCode.btmHelp_Click",
                          [] { mGlobals::RunHelpFennick(u"errorhandlers.htm"); });
}

void frmInsertErrorHandlerCode::Form_Load() {
  Routine(u"frmInsertErrorHandlerCode.Form_Load", [&](const Statements& run) {
    RicPreView.RightMargin = PreviewMargin;
    RestorePlace(run);
    LoadParametr();
    scope::ActiveMember unused;
    scope::ListScopes(run, ComInsertIN, VBInstance, unused);
    C1TTab1Tab2.SetCurrTab(ModulePage);
    ShowPageOfScope();
    if (ComInsertIN.Text().empty()) btmBegin.SetEnabled(false);
  });
}

void frmInsertErrorHandlerCode::LoadParametr() {
  Routine(u"frmInsertErrorHandlerCode.LoadParametr", [&](const Statements& run) {
    const auto names = run([] { return CSQLErrorHandler().GetListNameError(); });
    if (!names) return;
    run([&] { mFunctions::AddListInCombobox(ComCurrentScheme, *names); });
    for (const Choice& choice : Choices) {
      const String stored =
          run([&] { return gAppSettings ? gAppSettings->GetText(Section, choice.Key, u"") : u""; });
      run([&] { mFunctions::AddListInCombobox(this->*choice.Control, *names, stored); });
    }
  });
}

void frmInsertErrorHandlerCode::SaveForm() {
  Routine(u"frmInsertErrorHandlerCode.SaveForm", [&](const Statements& run) {
    if (!gAppSettings) return;
    for (const Choice& choice : Choices) {
      run([&] { gAppSettings->SaveSetting(Section, choice.Key, (this->*choice.Control).Text()); });
    }
  });
}

void frmInsertErrorHandlerCode::ShowPageOfScope() {
  const String chosen = ComInsertIN.Text();
  const bool project = scope::Is(chosen, scope::Project);
  C1TTab1Tab2.SetCurrTab(project ? SummaryPage : ModulePage);
}

String frmInsertErrorHandlerCode::GeneratorText(StringView scheme) const {
  namespace insert = mInsertErrorHandlerCode;
  const auto record = CSQLErrorHandler().GetRecordTable(scheme);
  const auto expand = [](StringView document) {
    return mFunctions::DekodeKeyWord(forms::ReadRichText(document).Text, u"Project1", u"Module1",
                                     u"Example", u"Sub", u"");
  };
  const String margin = vb::Space(4);
  return vb::Join(
      std::vector<String>{
          u"Public Sub Example(Param1 As Long, Param2 As String)",
          margin + String(insert::HeaderStart), record ? expand(record->Header) : String(),
          margin + String(insert::HeaderEnd), u"    ' Your procedure code comes here, for example:",
          u"100 If MsgBox(\"Say hello?\", vbYesNo) = vbYes Then", u"110      MsgBox \"Thank you!\"",
          u"    End If", margin + String(insert::FooterStart),
          record ? expand(record->Footer) : String(), margin + String(insert::FooterEnd),
          u"End Sub"},
      vb::CrLf);
}

void frmInsertErrorHandlerCode::ShowPreview() {
  Routine(u"frmInsertErrorHandlerCode.ComCurrentScheme_Click", [&](const Statements& run) {
    const String text = run([&] { return GeneratorText(ComCurrentScheme.Text()); });
    mFunctions::ViewTextRichtextbox(RicPreView, text);
  });
}

void frmInsertErrorHandlerCode::EditSchemes() {
  Routine(u"frmInsertErrorHandlerCode.btmEditSchtmes_Click", [&](const Statements& run) {
    const auto editor = std::make_shared<frmErrorHandlerScheme>();
    editor->VBInstance = VBInstance;
    run([&] { editor->Show(platform::ShowStyle::Modal); });
    LoadParametr();
    ShowPreview();
  });
}

void frmInsertErrorHandlerCode::Begin() {
  RunAndLeave(u"frmInsertErrorHandlerCode.btmBegin_Click", [&](const Statements& run) {
    mInsertErrorHandlerCode::RunContext& context = *context_;
    FillNames(run, context, VBInstance);
    context.ActiveXScheme = ComActiveX.Text();
    context.DocumentScheme = ComDocument.Text();
    context.ClassScheme = ComClass.Text();
    context.FormScheme = ComForm.Text();
    context.ModuleScheme = ComModule.Text();
    context.PreviewRichText = &RicPreView;
    run([&] { Hide(); });
    const String scope = ComInsertIN.Text();
    String scheme = C1TTab1Tab2.CurrTab() == SummaryPage ? String() : ComCurrentScheme.Text();
    if (const auto components = ActiveComponents(run)) {
      Tell(run,
           mInsertErrorHandlerCode::RunInsertErrorHandlerCode(context, components, scope, scheme));
    }
    SaveForm();
    if (Connect != nullptr) Connect->HideInsertErrorHandlerCode();
  });
}

void frmInsertErrorHandlerCode::Form_Unload() {
  context_->PreviewRichText = nullptr;
  Leave(u"frmInsertErrorHandlerCode.Form_Unload");
}

}  // namespace tessel
