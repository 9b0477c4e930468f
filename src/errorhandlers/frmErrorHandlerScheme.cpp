#include "errorhandlers/frmErrorHandlerScheme.h"

#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "presentation/ViewTextRichtextbox.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

struct Placeholder {
  StringView Key, Label, Text;
};
/// What the drop-down offers; "-" is a separator.
constexpr Placeholder Placeholders[] = {{u"PROJECTNAME", u"Project Name", u"{ProjectName}"},
                                        {u"COMPONENTNAME", u"Component Name", u"{ComponentName}"},
                                        {u"MEMBERNAME", u"Member Name", u"{MemberName}"},
                                        {u"MEMBERTYPE", u"Member Type", u"{MemberType}"},
                                        {u"", u"-", u""},
                                        {u"COMPUTERNAME", u"Computer Name", u"{ComputerName}"},
                                        {u"USERNAME", u"User Name", u"{UserName}"},
                                        {u"", u"-", u""},
                                        {u"DATE", u"Date", u"{Date}"},
                                        {u"TIME", u"Time", u"{Time}"}};

/// The names stand behind a fixed column.
constexpr int NameColumn = 1;
/// In characters; the setting is in twips.
constexpr int FixedWidth = 1, UsualWidth = 20, TwipsOfCharacter = forms::Grid::TwipsOfCharacter;

constexpr StringView Section = u"Settings\\VBCode\\frmErrorHandlerScheme",
                     DividerKey = u"C1EAll_Grid_0_gsColWidth", DividerDefault = u"2400";

}  // namespace

frmErrorHandlerScheme::frmErrorHandlerScheme()
    : ToolForm("frmErrorHandlerScheme", u"Error Handler Scheme") {
  Icon = 148;
  VSFErrorHandler.Editable = true;
  Arrange();
  Wire();
}

void frmErrorHandlerScheme::Arrange() {
  using namespace forms;
  Layout list =
      Column({Item(VSFErrorHandler, 1), Row({Item(btmAdd), Item(btmDup), Item(btmDelete)})}, 1);
  Layout fields =
      Column({Row({Item(btmCut), Item(btmCopy), Item(btmPaste), Item(btmStandard), Space()}),
              Item(lblHeader), Item(RicHeader, 1), Item(lblFooter), Item(RicFooter, 2),
              Row({Item(chkInsertLine), Item(lblBaseNumber), Item(txtBaseNumber), Item(lblStep),
                   Item(txtStep), Space()}),
              Row({Item(chkChangeOn), Item(txtLabelName, 1)})},
             2);
  SetLayout(Row({list, fields}));
}

void frmErrorHandlerScheme::Wire() {
  VSFErrorHandler.AfterSelChange = [this] { ViewAllField(); };
  VSFErrorHandler.BeforeEdit = [this](int row, int col, bool&) {
    nameBefore_ = VSFErrorHandler.TextMatrix(row, col);
  };
  VSFErrorHandler.AfterEdit = [this](int row, int col) { AfterRename(row, col); };
  btmAdd.Click = [this] { AddRecord(); };
  btmDup.Click = [this] { DuplicateRecord(); };
  btmDelete.Click = [this] { DeleteRecord(); };
  for (forms::Control* control :
       std::initializer_list<forms::Control*>{&VSFErrorHandler, &chkInsertLine, &txtBaseNumber,
                                              &txtStep, &chkChangeOn, &txtLabelName}) {
    WireFocus(*control, NoEditor);
  }
  WireFocus(RicHeader, HeaderEditor);
  WireFocus(RicFooter, FooterEditor);
  WireText(RicHeader, u"frmErrorHandlerScheme.RicHeader_Change");
  WireText(RicFooter, u"frmErrorHandlerScheme.RicFooter_Change");
  for (forms::Control* control : std::initializer_list<forms::Control*>{
           &RicHeader, &RicFooter, &chkInsertLine, &chkChangeOn, &txtLabelName}) {
    control->LostFocus = [this] { UpdateRecord(); };
  }
  txtBaseNumber.LostFocus = Handler(u"frmErrorHandlerScheme.txtBaseNumber_LostFocus",
                                    [this] { LeaveNumber(txtBaseNumber); });
  txtStep.LostFocus =
      Handler(u"frmErrorHandlerScheme.txtStep_LostFocus", [this] { LeaveNumber(txtStep); });
  chkInsertLine.Click = Handler(u"frmErrorHandlerScheme.chkInsertLine_Click", [this] {
    txtBaseNumber.SetEnabled(chkInsertLine.Value() == 1);
    txtStep.SetEnabled(chkInsertLine.Value() == 1);
    UpdateRecord();
  });
  chkChangeOn.Click = Handler(u"frmErrorHandlerScheme.chkChangeOn_Click", [this] {
    txtLabelName.SetEnabled(chkChangeOn.Value() == 1);
    UpdateRecord();
  });
  WireEditing();
}

/// The row above the editors works on the one that has, or had, the focus.
void frmErrorHandlerScheme::WireEditing() {
  using Action = std::function<void(const Statements& run, forms::RichTextBox& box)>;
  const auto edit = [this](StringView routine, const Action& action) {
    Routine(routine, [&](const Statements& run) {
      forms::RichTextBox* const box = ActiveBox();
      if (box == nullptr) return;
      action(run, *box);
      box->SetFocus();
    });
  };
  const auto copy = [](const Statements& run, forms::RichTextBox& box) {
    run([&] { platform::Current().Clipboard().SetText(box.SelText()); });
  };
  btmCopy.Click = [edit, copy] { edit(u"frmErrorHandlerScheme.btmCopy_Click", copy); };
  btmCut.Click = [edit, copy] {
    edit(u"frmErrorHandlerScheme.btmCut_Click", [&](const Statements& run, auto& box) {
      copy(run, box);
      box.SetSelText(u"");
    });
  };
  btmPaste.Click = [edit] {
    edit(u"frmErrorHandlerScheme.btmPaste_Click", [](const Statements& run, auto& box) {
      run([&] { box.SetSelText(platform::Current().Clipboard().GetText()); });
    });
  };
  btmStandard.DropdownItemClick = [edit](StringView key) {
    for (const Placeholder& one : Placeholders) {
      if (one.Key.empty() || one.Key != key) continue;
      edit(u"frmErrorHandlerScheme.btmStandard_DropdownItemClick",
           [&](const Statements&, auto& box) { box.SetSelText(one.Text); });
    }
  };
}

void frmErrorHandlerScheme::WireFocus(forms::Control& control, Editor editor) {
  control.GotFocus = [this, editor] {
    ActiveEditor = editor;
    EnabledStandardMenu();
  };
}

/// Comments, markers and placeholders take their colours as the user types; the caret stays.
void frmErrorHandlerScheme::WireText(forms::RichTextBox& box, StringView routine) {
  box.Change = Handler(routine, [this, &box] {
    if (showing_) return;
    showing_ = true;
    mFunctions::ViewTextRichtextbox(box, String(box.Text()));
    showing_ = false;
  });
}

void frmErrorHandlerScheme::EnabledStandardMenu() {
  Routine(u"frmErrorHandlerScheme.EnabledStandardMenu", [&] {
    const bool on = ActiveEditor != NoEditor;
    btmCut.SetEnabled(on);
    btmCopy.SetEnabled(on);
    btmPaste.SetEnabled(on);
    btmStandard.SetEnabled(on);
  });
}

forms::RichTextBox* frmErrorHandlerScheme::ActiveBox() {
  if (ActiveEditor == HeaderEditor) return &RicHeader;
  return ActiveEditor == FooterEditor ? &RicFooter : nullptr;
}

void frmErrorHandlerScheme::Form_Load() {
  Routine(u"frmErrorHandlerScheme.Form_Load", [&](const Statements& run) {
    constexpr int EditorWidth = 600;
    RicFooter.RightMargin = RicHeader.RightMargin = 6 * EditorWidth;
    RestorePlace(run);
    table_ = run([] { return std::make_shared<CSQLErrorHandler>(); });
    LoadParametr(u"");
    btmStandard.ClearItems();
    for (const Placeholder& one : Placeholders) btmStandard.AddItem(one.Key, one.Label);
    EnabledStandardMenu();
    run([&] {
      const String width = gAppSettings ? gAppSettings->GetText(Section, DividerKey, DividerDefault)
                                        : String(DividerDefault);
      VSFErrorHandler.ColumnWidths = {FixedWidth, vb::CLng(vb::Val(width)) / TwipsOfCharacter};
    });
  });
}

void frmErrorHandlerScheme::LoadParametr(StringView name) {
  Routine(u"frmErrorHandlerScheme.LoadParametr", [&](const Statements& run) {
    VSFErrorHandler.SetCols(NameColumn + 1);
    VSFErrorHandler.SetFixedCols(NameColumn);
    VSFErrorHandler.SetRows(1);
    VSFErrorHandler.SetFixedRows(1);
    VSFErrorHandler.SetTextMatrix(0, NameColumn, u"Name Error");
    const auto schemes = run([&] { return Need(table_).GetTable(); });
    if (!schemes) return;
    int selected = 1;
    for (const ErrorHandlerScheme& scheme : *schemes) {
      const int row = VSFErrorHandler.AddItem({u"", scheme.NameError});
      if (!name.empty() && vb::SameText(scheme.NameError, name)) selected = row;
    }
    VSFErrorHandler.Select(selected, NameColumn);
    ViewAllField();
  });
}

std::optional<String> frmErrorHandlerScheme::SelectedName() const {
  const int row = VSFErrorHandler.Row();
  if (row < VSFErrorHandler.FixedRows()) return std::nullopt;
  return VSFErrorHandler.TextMatrix(row, NameColumn);
}

void frmErrorHandlerScheme::ViewAllField() {
  Routine(u"frmErrorHandlerScheme.ViewAllField", [&](const Statements& run) {
    const auto name = SelectedName();
    if (!name) return;
    if (const auto scheme = run([&] { return Need(table_).GetRecordTable(*name); })) {
      ShowScheme(*scheme);
    }
  });
}

void frmErrorHandlerScheme::ShowScheme(const ErrorHandlerScheme& scheme) {
  showing_ = true;
  RicHeader.SetTextRTF(scheme.Header);
  RicFooter.SetTextRTF(scheme.Footer);
  chkInsertLine.SetValue(scheme.InsertLine ? 1 : 0);
  txtBaseNumber.SetText(vb::Str(scheme.BaseNumber));
  txtStep.SetText(vb::Str(scheme.Step));
  chkChangeOn.SetValue(scheme.ChangeError ? 1 : 0);
  txtLabelName.SetText(scheme.LabelNameError);
  txtBaseNumber.SetEnabled(scheme.InsertLine);
  txtStep.SetEnabled(scheme.InsertLine);
  txtLabelName.SetEnabled(scheme.ChangeError);
  showing_ = false;
}

ErrorHandlerScheme frmErrorHandlerScheme::SchemeOfFields(StringView name) const {
  return {String(name),
          RicHeader.TextRTF(),
          RicFooter.TextRTF(),
          chkInsertLine.Value() == 1,
          vb::CLng(vb::Val(txtBaseNumber.Text())),
          vb::CLng(vb::Val(txtStep.Text())),
          chkChangeOn.Value() == 1,
          txtLabelName.Text()};
}

void frmErrorHandlerScheme::UpdateRecord() {
  Routine(u"frmErrorHandlerScheme.UpdateRecord", [&](const Statements& run) {
    if (showing_) return;
    const auto name = SelectedName();
    if (name) run([&] { Need(table_).UpdateRecord(SchemeOfFields(*name)); });
  });
}

void frmErrorHandlerScheme::LeaveNumber(forms::TextBox& box) {
  if (mFunctions::ControlDigit(box.Text())) {
    UpdateRecord();
  } else {
    box.SetFocus();
  }
}

bool frmErrorHandlerScheme::CheckDuplicateName(StringView name, int exceptRow) const {
  for (int row = VSFErrorHandler.FixedRows(); row < VSFErrorHandler.Rows(); ++row) {
    if (row != exceptRow && vb::SameText(VSFErrorHandler.TextMatrix(row, NameColumn), name))
      return true;
  }
  return false;
}

void frmErrorHandlerScheme::AddRecord() {
  Routine(u"frmErrorHandlerScheme.AddRecord", [&](const Statements& run) {
    for (;;) {
      const auto name = run([] {
        return platform::Current().Boxes().InputBox(u"Specify below the new scheme name:",
                                                    u"New Scheme", u"");
      });
      if (!name || name->empty()) return;
      if (CheckDuplicateName(*name, -1)) {
        mFunctions::myBreak(12, *name);
        continue;
      }
      run([&] { Need(table_).InsertRecord(*name); });
      showing_ = true;
      VSFErrorHandler.Select(VSFErrorHandler.AddItem({u"", *name}), NameColumn);
      showing_ = false;
      ErrorHandlerScheme empty;
      ShowScheme(empty);
      txtBaseNumber.SetText(u"");
      txtStep.SetText(u"");
      return;
    }
  });
}

void frmErrorHandlerScheme::DuplicateRecord() {
  Routine(u"frmErrorHandlerScheme.DuplicateRecord", [&](const Statements& run) {
    const auto name = SelectedName();
    if (!name) return;
    if (!run([&] {
          return mFunctions::Confirm(u"Are you sure that you want to copy the record '" + *name + u"' ?");
        })) {
      return;
    }
    const ErrorHandlerScheme copy = SchemeOfFields(u"Copy " + *name);
    run([&] { Need(table_).InsertRecord(copy.NameError); });
    VSFErrorHandler.Select(VSFErrorHandler.AddItem({u"", copy.NameError}), NameColumn);
    ShowScheme(copy);
    UpdateRecord();
  });
}

void frmErrorHandlerScheme::DeleteRecord() {
  Routine(u"frmErrorHandlerScheme.DeleteRecord", [&](const Statements& run) {
    const auto name = SelectedName();
    if (!name) return;
    if (!run([&] {
          return mFunctions::Confirm(u"Are you sure that you want to delete the record '" + *name + u"' ?");
        })) {
      return;
    }
    run([&] { Need(table_).DeleteRecord(*name); });
    VSFErrorHandler.RemoveItem(VSFErrorHandler.Row());
    ViewAllField();
  });
}

void frmErrorHandlerScheme::AfterRename(int row, int col) {
  Routine(u"frmErrorHandlerScheme.VSFErrorHandler_AfterEdit", [&](const Statements& run) {
    if (row < 1 || col < NameColumn) return;
    const String name = VSFErrorHandler.TextMatrix(row, col);
    if (CheckDuplicateName(name, row)) {
      mFunctions::myBreak(12, name);
      VSFErrorHandler.SetTextMatrix(row, col, nameBefore_);
      return;
    }
    run([&] { Need(table_).UpdateRecordKey(name, nameBefore_); });
  });
}

void frmErrorHandlerScheme::Form_Unload() {
  Leave(u"frmErrorHandlerScheme.Form_Unload", [&](const Statements& run) {
    UpdateRecord();
    run([&] {
      if (!gAppSettings) return;
      const std::vector<int>& widths = VSFErrorHandler.ColumnWidths;
      const int width = widths.size() > NameColumn ? widths[NameColumn] : UsualWidth;
      gAppSettings->SaveSetting(Section, DividerKey, vb::Str(width * TwipsOfCharacter));
    });
    table_.reset();
  });
}

}  // namespace tessel
