#include "formatter/frmFormatText.h"

#include <algorithm>

#include "connections/cConnectionMDBs.h"
#include "formatter/mFormatText.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "presentation/mCodeConverter.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr StringView Section = u"Settings\\VBCode\\frmFormatText";
constexpr StringView HelpTopic = u"formatter.htm";

/// Columns of the grid behind the fixed one, and the fields that they show.
enum RuleColumn : int { WordsColumn = 1, EnabledColumn, BeforeColumn, AfterColumn };
struct ColumnOf {
  RuleColumn Column;
  StringView Field, Heading;
};
constexpr ColumnOf Columns[] = {{WordsColumn, u"KeyWords", u"Statement"},
                                {EnabledColumn, u"Enabled", u"Enabled"},
                                {BeforeColumn, u"Before", u"Before"},
                                {AfterColumn, u"After", u"After"}};

/// The options by their values in the settings, in the order of storing.
struct CheckSetting {
  StringView Key;
  forms::CheckBox frmFormatText::*Control;
};
constexpr CheckSetting CheckSettings[] = {
    {u"chkIndentEntire", &frmFormatText::chkIndentEntire},
    {u"chkIndentCase", &frmFormatText::chkIndentCase},
    {u"chkInsertBlank", &frmFormatText::chkInsertBlank},
    {u"chkEnableCodeLines", &frmFormatText::chkEnableCodeLines}};

struct OptionSetting {
  StringView Key, Default;
  forms::OptionButton frmFormatText::*Control;
};
constexpr OptionSetting OptionSettings[] = {
    {u"OptCompactWrapped", u"1", &frmFormatText::OptCompactWrapped},
    {u"OptWrapCode", u"0", &frmFormatText::OptWrapCode},
    {u"OptTabChfracters", u"1", &frmFormatText::OptTabChfracters},
    {u"OptSpaceCharacters", u"0", &frmFormatText::OptSpaceCharacters}};

struct NumberSetting {
  StringView Key, Default;
  forms::TextBox frmFormatText::*Control;
  forms::SpinButton frmFormatText::*Spin;
  StringView BoxRoutine, SpinRoutine;
};
constexpr NumberSetting NumberSettings[] = {
    {u"txtCharacrers", u"90", &frmFormatText::txtCharacrers, &frmFormatText::VScrollCharacters,
     u"frmFormatText.txtCharacrers_Change", u"frmFormatText.VScrollCharacters_Change"},
    {u"txtAdditionalTabs", u"1", &frmFormatText::txtAdditionalTabs,
     &frmFormatText::VScrollTabsAdditional, u"frmFormatText.txtAdditionalTabs_Change",
     u"frmFormatText.VScrollTabsAdditional_Change"},
    {u"txtPcs", u"4", &frmFormatText::txtPcs, &frmFormatText::VScrollPcs,
     u"frmFormatText.txtPcs_Change", u"frmFormatText.VScrollPcs_Change"}};

String ReadSetting(StringView key, StringView byDefault) {
  return gAppSettings ? gAppSettings->GetText(Section, key, byDefault) : String(byDefault);
}

String Flag(bool value) { return value ? u"1" : u"0"; }

/// The field's text pulled into the bounds of its spin control; the lowest value for a text that is
/// no number.
int Bounded(StringView text, const forms::SpinButton& spin) {
  if (!vb::IsNumeric(text)) return spin.Min();
  int value = spin.Max();
  if (!ResumeNext([&] { value = vb::CLng(text); })) return spin.Max();
  return std::min(std::max(value, spin.Min()), spin.Max());
}

/// A cell's text as the field's value; fails with 13 or 6 when it is none.
store::Value ValueOfCell(int col, StringView text) {
  if (col == EnabledColumn) return store::ToBoolean(store::Value(String(vb::Trim(text))));
  return std::int64_t{vb::CLng(text)};
}

}  // namespace

frmFormatText::frmFormatText(std::shared_ptr<mFormatText::FormatRun> format)
    : ToolForm("frmFormatText", u"Code Formatter"), format_(std::move(format)) {
  Icon = 111;
  RicCode.Locked = true;
  VSFFormatLines.Editable = true;
  btmRun.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmFormatText::Arrange() {
  using namespace forms;
  Layout indentation =
      Column({Item(chkIndentEntire), Item(chkIndentCase),
              Group(u"Width of a level", {Row({Item(OptTabChfracters), Space()}),
                                          Row({Item(OptSpaceCharacters), Item(lblUse), Item(txtPcs),
                                               Item(VScrollPcs), Space()})}),
              Item(RicCode, 1)});
  Layout blankLines = Column({Item(chkInsertBlank), Item(VSFFormatLines, 1)});
  Layout wrapping = Column({Item(chkEnableCodeLines), Item(OptCompactWrapped),
                            Row({Item(OptWrapCode), Item(txtCharacrers), Item(VScrollCharacters),
                                 Item(lblCharacters), Space()}),
                            Row({Item(txtAdditionalTabs), Item(VScrollTabsAdditional),
                                 Item(lblAdditionalTabs), Space()}),
                            Space()});
  SetLayout(Column({Item(ComModule), Tabs(C1TCodeObject, {indentation, blankLines, wrapping}),
                    Row({Item(btmHelp), Space(), Item(btmRun), Item(btmCancel)})}));
}

void frmFormatText::Wire() {
  const auto preview = [this] { ViewRTF(); };
  const auto spaces = [this] { EnableSpaces(); };
  const auto wrapping = [this] { EnableWrapping(); };
  chkIndentEntire.Click = Handler(u"frmFormatText.chkIndentEntire_Click", preview);
  chkIndentCase.Click = Handler(u"frmFormatText.chkIndentCase_Click", preview);
  OptTabChfracters.Click = Handler(u"frmFormatText.OptTabChfracters_Click", spaces);
  OptSpaceCharacters.Click = Handler(u"frmFormatText.OptSpaceCharacters_Click", spaces);
  OptCompactWrapped.Click = Handler(u"frmFormatText.OptCompactWrapped_Click", wrapping);
  OptWrapCode.Click = Handler(u"frmFormatText.OptWrapCode_Click", wrapping);
  chkEnableCodeLines.Click = Handler(u"frmFormatText.chkEnableCodeLines_Click", wrapping);
  chkInsertBlank.Click = Handler(u"frmFormatText.chkInsertBlank_Click", [this] {
    VSFFormatLines.SetEnabled(chkInsertBlank.Value() == 1);
  });
  WireNumbers();
  VSFFormatLines.BeforeEdit = [](int, int col, bool& cancel) { cancel = col == WordsColumn; };
  VSFFormatLines.AfterEdit = [this](int row, int col) { StoreCell(row, col); };
  // Leaving a row writes what was changed in it.
  VSFFormatLines.AfterSelChange = Handler(u"frmFormatText.VSFFormatLines_AfterSelChange", [this] {
    const int row = VSFFormatLines.Row() - VSFFormatLines.FixedRows();
    if (rules_.IsOpen() && row >= 0) rules_.MoveTo(static_cast<std::size_t>(row));
  });
  btmRun.Click = [this] { Run(); };
  btmCancel.Click = [this] { Cancel(); };
  btmHelp.Click =
      Handler(u"frmFormatText.btmHelp_Click", [] { mGlobals::RunHelpFennick(HelpTopic); });
}

/// Each field and its spin control follow each other inside the bounds.
void frmFormatText::WireNumbers() {
  for (const NumberSetting& number : NumberSettings) {
    forms::TextBox& box = this->*number.Control;
    forms::SpinButton& spin = this->*number.Spin;
    box.Change = Handler(number.BoxRoutine, [&box, &spin] {
      const int value = Bounded(box.Text(), spin);
      box.SetText(vb::Str(value));
      spin.SetValue(value);
    });
    spin.Change =
        Handler(number.SpinRoutine, [&box, &spin] { box.SetText(vb::Str(spin.Value())); });
  }
}

void frmFormatText::Form_Load() {
  Routine(u"frmFormatText.Form_Load", [&](const Statements& run) {
    RicCode.RightMargin = PreviewMargin;
    RestorePlace(run);
    LoadParametr();
    scope::ListScopes(run, ComModule, VBInstance, *format_);
    for (const NumberSetting& number : NumberSettings) {
      (this->*number.Spin).SetValue(Bounded((this->*number.Control).Text(), this->*number.Spin));
    }
    ViewRTF();
    EnableSpaces();
    EnableWrapping();
    VSFFormatLines.SetEnabled(chkInsertBlank.Value() == 1);
    if (ComModule.Text().empty()) btmRun.SetEnabled(false);
  });
}

void frmFormatText::LoadParametr() {
  Routine(u"frmFormatText.LoadParametr", [&](const Statements& run) {
    for (const CheckSetting& one : CheckSettings) {
      run([&] { (this->*one.Control).SetValue(ReadSetting(one.Key, u"1") == u"1" ? 1 : 0); });
    }
    // Read into the same option just below; the older value does no harm.
    run([&] { OptCompactWrapped.SetValue(ReadSetting(u"chkHeaderEnum", u"1") == u"1"); });
    for (const OptionSetting& one : OptionSettings) {
      run([&] { (this->*one.Control).SetValue(ReadSetting(one.Key, one.Default) == u"1"); });
    }
    for (const NumberSetting& one : NumberSettings) {
      run([&] { (this->*one.Control).SetText(ReadSetting(one.Key, one.Default)); });
    }
    run([&] { OpenRules(); });
    ShowRules();
    C1TCodeObject.SetCurrTab(0);
  });
}

void frmFormatText::OpenRules() {
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  rules_.Open(u"SELECT FormatText.* FROM FormatText",
              gConnectionMDBs->item(SharedConnection)->mConnectMDB);
}

void frmFormatText::ShowRules() {
  VSFFormatLines.SetCols(1 + static_cast<int>(std::size(Columns)));
  VSFFormatLines.SetFixedCols(1);
  VSFFormatLines.SetRows(1);
  VSFFormatLines.SetFixedRows(1);
  VSFFormatLines.ColumnWidths = {2, 20, 9, 8, 8};
  for (const ColumnOf& one : Columns) {
    VSFFormatLines.SetTextMatrix(0, one.Column, one.Heading);
    VSFFormatLines.SetColTicks(one.Column, one.Column == EnabledColumn);
  }
  if (!rules_.IsOpen()) return;
  for (std::size_t row = 0; row < rules_.RecordCount(); ++row) {
    std::vector<String> cells(1 + std::size(Columns));
    rules_.MoveTo(row);
    for (const ColumnOf& one : Columns) {
      cells[static_cast<std::size_t>(one.Column)] = store::ToText(rules_.Field(one.Field));
    }
    VSFFormatLines.AddItem(std::move(cells));
  }
  if (rules_.RecordCount() == 0) return;
  rules_.MoveFirst();
  VSFFormatLines.Select(1, EnabledColumn);
}

/// Puts an edited cell into the record, where it is pending; a text that is no value is taken back.
void frmFormatText::StoreCell(int row, int col) {
  Routine(u"frmFormatText.VSFFormatLines_AfterEdit", [&](const Statements& run) {
    for (const ColumnOf& one : Columns) {
      if (one.Column != col || !rules_.IsOpen()) continue;
      rules_.MoveTo(static_cast<std::size_t>(row - VSFFormatLines.FixedRows()));
      const String text = VSFFormatLines.TextMatrix(row, col);
      ResumeNext([&] { rules_.SetField(one.Field, ValueOfCell(col, text)); });
      run([&] { VSFFormatLines.SetTextMatrix(row, col, store::ToText(rules_.Field(one.Field))); });
    }
  });
}

void frmFormatText::CloseRules(const Statements& run) {
  if (!rules_.IsOpen()) return;
  run([&] { rules_.Update(); });
  run([&] { rules_.Close(); });
}

void frmFormatText::EnableSpaces() {
  const bool on = OptSpaceCharacters.Value();
  txtPcs.SetEnabled(on);
  VScrollPcs.SetEnabled(on);
}

void frmFormatText::EnableWrapping() {
  const bool lines = chkEnableCodeLines.Value() == 1;
  OptCompactWrapped.SetEnabled(lines);
  OptWrapCode.SetEnabled(lines);
  const bool wrap = lines && OptWrapCode.Value();
  txtCharacrers.SetEnabled(wrap);
  VScrollCharacters.SetEnabled(wrap);
  txtAdditionalTabs.SetEnabled(wrap);
  VScrollTabsAdditional.SetEnabled(wrap);
}

String frmFormatText::GenerateExampleText() const {
  const String pad = chkIndentEntire.Value() == 1 ? vb::Space(4) : String();
  const String deeper = chkIndentCase.Value() == 1 ? vb::Space(4) : String();
  const std::vector<String> lines{
      u"Private Function SampleCode(bFlag As Boolean, iIndex As Integer _",
      u"        Optional Default As String = \") As Long",
      pad + u"' Comment",
      pad + u"If Flag Then",
      pad + u"    ' Comment that can be aligned or not",
      pad + u"    Select Case Index",
      pad + deeper + u"    Case 0",
      pad + deeper + u"        ' Comment that can be aligned or not",
      pad + deeper + u"        Call SomeCodeHere",
      pad + u"    End Select",
      pad + u"End If",
      u"End Function"};
  return vb::Join(lines, vb::CrLf);
}

void frmFormatText::ViewRTF() {
  Routine(u"frmFormatText.ViewRTF", [&] {
    RicCode.SetTextRTF(mCodeConverter::MakeRTF(GenerateExampleText(), RicCode.Font->Charset));
  });
}

bool frmFormatText::CheckField() {
  bool result = false;
  Routine(u"frmFormatText.CheckField", [&] {
    mFormatText::FormatRun& format = *format_;
    format.IndentEntire = chkIndentEntire.Value() == 1;
    format.IndentCase = chkIndentCase.Value() == 1;
    format.InsertBlank = chkInsertBlank.Value() == 1;
    format.EnableCodeLines = chkEnableCodeLines.Value() == 1;
    format.CompactWrapped = OptCompactWrapped.Value();
    format.LineCharacters = static_cast<std::int16_t>(vb::CLng(txtCharacrers.Text()));
    format.AdditionalTabs = static_cast<std::int16_t>(vb::CLng(txtAdditionalTabs.Text()));
    format.UseTabCharacters = OptTabChfracters.Value();
    format.UseSpaceCharacters = OptSpaceCharacters.Value();
    format.SpacesPerLevel = vb::CLng(txtPcs.Text());
    result = true;
  });
  return result;
}

void frmFormatText::SaveForm() {
  Routine(u"frmFormatText.SaveForm", [&](const Statements& run) {
    if (!gAppSettings) return;
    const auto save = [&](StringView key, const String& value) {
      run([&] { gAppSettings->SaveSetting(Section, key, value); });
    };
    for (const CheckSetting& one : CheckSettings) {
      save(one.Key, Flag((this->*one.Control).Value() == 1));
    }
    for (const OptionSetting& one : OptionSettings) {
      save(one.Key, Flag((this->*one.Control).Value()));
    }
    for (const NumberSetting& one : NumberSettings) save(one.Key, (this->*one.Control).Text());
  });
}

void frmFormatText::Run() {
  RunAndLeave(u"frmFormatText.btmRun_Click", [&](const Statements& run) {
    if (!CheckField()) return;
    const String scope = ComModule.Text();
    run([&] { Hide(); });
    run([] { platform::Current().Clock().DoEvents(); });
    if (const auto components = ActiveComponents(run)) {
      Tell(run, mFormatText::RunFormatText(*format_, components, scope));
    }
    CloseRules(run);
    SaveForm();
    if (Connect != nullptr) Connect->HideFormatText();
  });
}

void frmFormatText::Cancel() {
  Routine(u"frmFormatText.btmCancel_Click", [&](const Statements& run) {
    CloseRules(run);
    if (Connect != nullptr) Connect->HideFormatText();
  });
}

void frmFormatText::Form_Unload() {
  Leave(u"frmFormatText.Form_Unload", [&](const Statements& run) { CloseRules(run); });
}

}  // namespace tessel
