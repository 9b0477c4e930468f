#include "settingsdialog/frmSettings.h"

#include "platform/Platform.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

/// The captions of the pages in their order.
constexpr StringView PageCaptions =
    u"Author|Procedure|Property|Class|Enum|Snippet Manager|Exceptions|Control Type|Explorer";

std::vector<forms::TabControl::Page> PagesOf(StringView captions) {
  std::vector<forms::TabControl::Page> pages;
  for (const String& caption : vb::Split(captions, u"|")) pages.push_back({caption, caption});
  return pages;
}

}  // namespace

frmSettings::frmSettings()
    : ToolForm("frmSettings", u"Settings"),
      VSIndexTab1(this, "VSIndexTab1", PagesOf(PageCaptions), forms::TabControl::Style::NoTabs) {
  Border = forms::BorderStyle::Sizable;
  fgTable.Editable = true;
  fgTableControl.Editable = true;
  btmSave.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmSettings::Form_Load() {
  Routine(u"frmSettings.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    LoadParametr();
  });
}

void frmSettings::Form_Activate() {
  Routine(u"frmSettings.Form_Activate", [&] {
    List1.Clear();
    int wanted = 0;
    for (const forms::TabControl::Page& page : VSIndexTab1.Pages()) {
      if (vb::SameText(page.Caption, PageName)) wanted = static_cast<int>(List1.List().size());
      List1.AddItem(page.Caption);
    }
    List1.SetListIndex(wanted);
  });
}

bool frmSettings::CheckDuplicateName(StringView name) {
  bool taken = false;
  Routine(u"frmSettings.CheckDuplicateName", [&] { taken = types_.Has(name); });
  return taken;
}

bool frmSettings::CheckDuplicateNameControls(StringView name) {
  bool taken = false;
  Routine(u"frmSettings.CheckDuplicateNameControls", [&] { taken = controlTypes_.Has(name); });
  return taken;
}

void frmSettings::AddRecord(const Table& table, const Statements& run) {
  for (;;) {
    const auto name = run([] {
      return platform::Current().Boxes().InputBox(u"Enter a name for the new Record", u"New Record",
                                                  u"");
    });
    if (!name) return;
    if ((this->*table.IsDuplicate)(*name)) {
      run([&] { mFunctions::myBreak(12, *name); });
      continue;
    }
    if (!name->empty()) run([&] { table.Records.Add(*name); });
    return;
  }
}

void frmSettings::DeleteRecord(RecordGrid& records, const Statements& run) {
  const String name = records.CurrentName();
  if (name.empty()) return;
  if (!run([&] {
        return mFunctions::Confirm(u"Are you sure that you want to delete the record '" + name +
                                   u"' ?");
      })) {
    return;
  }
  run([&] { records.DeleteCurrent(); });
}

void frmSettings::Form_Unload() {
  types_.Close();
  controlTypes_.Close();
  KeepPlace(u"frmSettings.Form_Unload");
}

}  // namespace tessel
