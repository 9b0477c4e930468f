// What the Snippet Manager shows of the current row, and what the user does with it.

#include <utility>

#include "connections/cConnectionMDBs.h"
#include "forms/Pointer.h"
#include "foundation/CFile.h"
#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "snippets/CodeBox.h"
#include "snippets/ObjectFiles.h"
#include "snippets/ObjectRecords.h"
#include "snippets/frmFragmentBuilder.h"

namespace tessel {
namespace {

/// Digits in groups of three.
String Grouped(std::int64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, ",");
  return {digits.begin(), digits.end()};
}

/// "12.50KB (12,800 bytes)".
String SizeText(std::int64_t bytes) {
  constexpr std::int64_t Kilo = 1024, Hundred = 100;
  const std::int64_t hundredths = (bytes * Hundred + Kilo / 2) / Kilo;
  const std::string rest = std::to_string(hundredths % Hundred);
  const String whole = vb::Str(hundredths / Hundred) + (rest.size() == 1 ? u".0" : u".");
  return whole + String(rest.begin(), rest.end()) + u"KB (" + Grouped(bytes) + u" bytes)";
}

String ExtensionOf(StringView path) {
  const std::size_t point = vb::InStrRev(path, u".");
  return point == 0 ? String() : vb::UCase(path.substr(point));
}

}  // namespace

void frmFragmentBuilder::ViewObject(StringView connection, int kind) {
  Routine(u"frmFragmentBuilder.ViewObject", [&] {
    const bool top = CurrentID() == TopID, record = !top && kind != FolderKind;
    C1EMDB.SetVisible(top);
    C1TCodeObject.SetVisible(record);
    if (top) ViewParameterMDB(connection);
    if (record) ViewWindowsRichTextBox(connection);
  });
}

void frmFragmentBuilder::ViewParameterMDB(StringView connection) {
  Routine(u"frmFragmentBuilder.ViewParameterMDB", [&](const Statements& run) {
    for (forms::Label* const label : {&lblName, &lblExt, &lblPath, &lblSize}) {
      label->SetCaption(u"");
    }
    if (connection.empty()) return;
    const String path = run([&] { return Need(Need(gConnectionMDBs).item(connection)).FileName; });
    const StringView trimmed = vb::Trim(path);
    if (trimmed.empty()) return;
    CFile file;
    run([&] { file.Init(trimmed); });
    run([&] { lblName.SetCaption(file.FileName()); });
    run([&] { lblExt.SetCaption(file.FileExt()); });
    run([&] { lblPath.SetCaption(file.FilePath()); });
    run([&] { lblSize.SetCaption(SizeText(file.Size())); });
  });
}

void frmFragmentBuilder::ViewWindowsRichTextBox(StringView connection) {
  Routine(u"frmFragmentBuilder.ViewWindowsRichTextBox", [&](const Statements& run) {
    auto read =
        run([&] { return std::optional(TreeOf(connection).GetRecordsetFromList(CurrentID())); });
    const std::pair row(String(connection), CurrentID());
    // What the user has typed into a record that can't be read now stays.
    if (!read && std::exchange(shown_, row) == row) return;
    shown_ = row;
    record_ = std::move(read).value_or(ListFragment());
    lblNameObject.SetCaption(record_.NameObj);
    lblType.SetCaption(ObjectClassText(record_.ClassObj, record_.TitleObj));
    btmInsertObject.SetEnabled(!lblType.Caption().empty());
    ViewC1TCodeObject();
  });
}

void frmFragmentBuilder::ViewC1TCodeObject() {
  Routine(u"frmFragmentBuilder.ViewC1TCodeObject", [&] {
    switch (C1TCodeObject.CurrTab()) {
      case ObjectPage:
        return ShowCode(RicCodeObjectFragmentBuilder, record_.TextObj);
      case CodePage:
        return ShowCode(RicCodeFragmentBuilder, record_.Text);
      default:
        return ShowCode(RicUserCode, record_.TextUserNotes);
    }
  });
}

void frmFragmentBuilder::WindowsImport(StringView routine, StringView filter) {
  Routine(routine, [&](const Statements& run) {
    String path;
    if (!run([&] { return mFunctions::OPENFILENAME(filter, path); })) return;
    const auto key = CurrentKey();
    if (!key) return;
    ImportFileInList(key->Connection, path);
    const ObjectClass* const object = ClassOfObject(ExtensionOf(path));
    if (object != nullptr) fgTree.SetRowPicture(fgTree.Row(), object->Picture);
    ViewWindowsRichTextBox(key->Connection);
  });
}

void frmFragmentBuilder::ImportFileInList(StringView connection, StringView path,
                                          bool needsCompanion) {
  Routine(u"frmFragmentBuilder.ImportFileInList", [&](const Statements& run) {
    const auto project = run([&] { return VBInstance ? VBInstance->ActiveVBProject() : nullptr; });
    mFunctions::ImportRecordFileObjectToTblList(Need(trees_), connection, path, CurrentID(),
                                                project, needsCompanion);
  });
}

/// An empty column is passed over by the table, so what an emptied box held comes back. A text that
/// could not be written stays in its box, for the user to save or copy.
void frmFragmentBuilder::Save(StringView routine, forms::RichTextBox& box,
                              String ListFragment::*column) {
  Routine(routine, [&](const Statements& run) {
    const forms::PointerShape hourglass(platform::Pointer::Hourglass);
    const auto key = CurrentKey();
    if (!key) return;
    ListFragment change;
    change.*column = box.Text();
    auto stored = run([&] {
      CSQLTree& tree = TreeOf(key->Connection);
      tree.UpdateListFragment(CurrentID(), change);
      return std::optional(tree.GetRecordsetFromList(CurrentID()).*column);
    });
    if (!stored) return;
    record_.*column = *std::move(stored);
    run([&] { ViewC1TCodeObject(); });
  });
}

void frmFragmentBuilder::InsertObject() {
  Routine(u"frmFragmentBuilder.btmInsertObject_Click", [&](const Statements& run) {
    const auto key = CurrentKey();
    if (!key) return;
    const String trouble = run([&] {
      return mFunctions::InsertObjectInUserProject(Need(trees_), key->Connection, VBInstance,
                                                   CurrentID(), true);
    });
    if (!trouble.empty()) {
      run([&] { platform::Current().Boxes().ShowMessage(trouble, u"Tessel", platform::Critical); });
    }
    FillComponents(run);
  });
}

void frmFragmentBuilder::InsertCode() {
  Routine(u"frmFragmentBuilder.btmInsert_Click", [&](const Statements& run) {
    mGlobals::InsertTextActiveVbComponent(VBInstance, ComListObject.Text(),
                                          RicCodeFragmentBuilder.Text(), mGlobals::EndOfModule, u"",
                                          host::vbext_ct_StdModule, 0);
    FillComponents(run);
  });
}

void frmFragmentBuilder::InsertSelected(StringView routine, forms::RichTextBox& box) {
  Routine(routine, [&] {
    const String selected = box.SelText();
    if (selected.empty()) return;
    InsertSelectedTextInComponent(selected);
    box.SetFocus();
  });
}

void frmFragmentBuilder::InsertSelectedTextInComponent(StringView text) {
  Routine(u"frmFragmentBuilder.InsertSelectedTextInComponent", [&](const Statements& run) {
    if (!VBInstance || !run([&] { return VBInstance->ActiveVBProject(); })) return;
    const auto pane = run([&] { return VBInstance->ActiveCodePane(); });
    if (!pane) return;
    const int line = run([&] { return pane->GetSelection().StartLine; });
    const auto module = run([&] { return pane->CodeModule(); });
    if (line > 0 && module) run([&] { module->InsertLines(line, text); });
    const auto window = run([&] { return VBInstance->MainWindow(); });
    const platform::WindowHandle main = run([&] { return window ? window->HWnd() : 0; });
    if (main != 0) run([&] { platform::Current().Windows().SetFocus(main); });
  });
}

}  // namespace tessel
