#include "snippets/ObjectRecords.h"

#include <algorithm>

#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "scanning/mFunctions.h"
#include "snippets/ColumnSizes.h"
#include "snippets/ObjectFiles.h"

namespace tessel {
namespace {

constexpr ObjectClass Classes[] = {{u"BAS", u"Module", 115, u"BAS", u"", false},
                                   {u"FRM", u"Form VB", 112, u"FRM", u"FRX", false},
                                   {u"FRD", u"Form MDI", 117, u"FRM", u"", false},
                                   {u"CLS", u"Class", 114, u"CLS", u"", false},
                                   {u"CTL", u"User Control", 116, u"CTL", u"", false},
                                   {u"DOB", u"User Document", 118, u"DOB", u"DOX", true},
                                   {u"DSR", u"ActiveX Designer", 113, u"DSR", u"", false},
                                   {u"PAG", u"Property Page", 119, u"PAG", u"", false}};

constexpr StringView NameKey = u"Attribute VB_Name", NameMark = u"Attribute VB_Name = ",
                     ExposedKey = u"Attribute VB_Exposed";
/// The line break behind a key is looked for from here on: the length of the shorter one.
constexpr std::size_t KeyLength = 17;
/// What `CheckVBAorVBForm` answers for an MDI form and for a form of another editor.
constexpr int MdiForm = 2, ForeignForm = 1;

std::size_t FolderLength(StringView path) {
  return std::max(vb::InStrRev(path, u"\\"), vb::InStrRev(path, u"/"));
}

/// Name and extension of a path.
struct FileName {
  String Name, Extension;
};
FileName NameOf(StringView path) {
  const StringView name = path.substr(FolderLength(path));
  const std::size_t point = vb::InStrRev(name, u".");
  if (point == 0) return {String(name), {}};
  return {String(name.substr(0, point - 1)), vb::UCase(name.substr(point))};
}

/// Number of characters up to and with the line break behind the key line; 0 without either.
std::size_t HeadLength(StringView text, StringView key) {
  const std::size_t found = vb::InStr(text, key, vb::Compare::Text);
  if (found == 0 || found + KeyLength > text.size()) return 0;
  return vb::InStr(found + KeyLength, text, u"\n");
}

/// Without "=", quotes and the blanks around it.
String Bare(StringView value) {
  const String bare = vb::Replace(vb::Replace(value, u"=", u""), u"\"", u"");
  return String(vb::Trim(bare));
}

/// Where the line with a component's name begins; elsewhere its key is a part of some text.
std::size_t NameLine(StringView text) {
  std::size_t at = text.find(NameMark);
  while (at != StringView::npos && at > 0 && text[at - 1] != u'\n' && text[at - 1] != u'\r') {
    at = text.find(NameMark, at + 1);
  }
  return at;
}

/// The text between two marks of a head, as `Bare` gives it.
String ValueBehind(StringView text, StringView mark, StringView end) {
  const std::size_t found = vb::InStr(text, mark);
  if (found == 0) return {};
  const std::size_t start = found + mark.size();
  const std::size_t stop = start > text.size() ? 0 : vb::InStr(start, text, end);
  const StringView value = stop == 0 ? vb::Mid(text, start) : vb::Mid(text, start, stop - start);
  return Bare(value);
}

}  // namespace

const ObjectClass* ClassOfObject(StringView classObj) {
  const auto* const found =
      std::find_if(std::begin(Classes), std::end(Classes),
                   [&](const ObjectClass& one) { return one.ClassObj == classObj; });
  return found == std::end(Classes) ? nullptr : found;
}

String ObjectClassText(StringView classObj, StringView titleObj) {
  const ObjectClass* const known = ClassOfObject(classObj);
  if (known == nullptr) return {};
  if (classObj == u"FRM" && mFunctions::CheckVBAorVBForm(titleObj) == ForeignForm) {
    return u"Form VBA";
  }
  return String(known->Text);
}

namespace mFunctions {

ListFragment FragmentOfFile(StringView path, const ComponentReader& read) {
  FileName name = NameOf(path);
  ListFragment fragment;
  const String main = read(path, false);
  if (name.Extension == u"TXT") {
    fragment.Text = main;
    return fragment;
  }
  if (ClassOfObject(name.Extension) == nullptr) return fragment;
  const std::size_t head = HeadLength(main, name.Extension == u"BAS" ? NameKey : ExposedKey);
  if (head == 0) return fragment;
  if (name.Extension == u"DOB") fragment.CompObj = read(CompanionPath(path, u".dox"), true);
  if (name.Extension == u"FRM") {
    if (CheckVBAorVBForm(main) == MdiForm) {
      name.Extension = u"FRD";
    } else {
      fragment.CompObj = read(CompanionPath(path, u".frx"), true);
    }
  }
  fragment.TitleObj = main.substr(0, head);
  fragment.TextObj = main.substr(head);
  fragment.NameObj = std::move(name.Name);
  fragment.ClassObj = std::move(name.Extension);
  CheckObject(fragment);
  return fragment;
}

void ImportRecordFileObjectToTblList(const CSQLTrees& trees, StringView nameConnect,
                                     StringView path, std::int32_t id,
                                     const std::shared_ptr<host::VBProject>& project,
                                     bool needsCompanion) {
  Routine(u"mFunctions.ImportRecordFileObjectToTblList", [&](const Statements& run) {
    const ListFragment fragment = FragmentOfFile(path, [&](StringView file, bool companion) {
      return run(
          [&] { return companion ? GetCompanion(file, needsCompanion) : GetFile(file, project); });
    });
    run([&] { trees.item(nameConnect)->UpdateListFragment(id, fragment); });
  });
}

namespace {

/// Writes the component under its own name into its folder.
void WriteDropped(DroppedComponent& taken, StringView path, String text, StringView head,
                  const std::shared_ptr<host::VBProject>& project) {
  CreateFolderPath(taken.Folder);
  EmptyFolder(taken.Folder);
  const String file = taken.Folder + u"\\" + taken.Name;
  if (head.empty() || vb::InStr(head, u"CLASS", vb::Compare::Text) > 0) {
    taken.Path = file + (head.empty() ? u".Bas" : u".cls");
    CopyFileSafe(taken.Path, path);
    return;
  }
  taken.Path = file + u".frm";
  const String companion = ValueBehind(head, u"OleObjectBlob", u":");
  taken.NeedsCompanion = !companion.empty() || vb::InStr(head, u".frx\":", vb::Compare::Text) > 0;
  if (!companion.empty()) {
    const String source = String(path.substr(0, FolderLength(path))) + companion;
    ResumeNext([&] { CopyFileSafe(file + u".frx", source); });
    text = vb::Replace(text, companion, taken.Name + u".frx");
  }
  PutFile(taken.Path, text, project);
}

}  // namespace

std::optional<DroppedComponent> TakeDroppedComponent(
    StringView path, const std::shared_ptr<host::VBProject>& project) {
  if (vb::InStr(NameOf(path).Extension, u"TMP") == 0) return std::nullopt;
  const String text = GetFile(path, project);
  const std::size_t key = NameLine(text);
  if (key == String::npos) return std::nullopt;
  const StringView behind = StringView(text).substr(key + NameMark.size());
  DroppedComponent taken;
  taken.Name = Bare(behind.substr(0, behind.find_first_of(u"\r\n")));
  if (!IsFileName(taken.Name)) return std::nullopt;
  taken.Folder = GetTempFolder();
  WriteDropped(taken, path, text, StringView(text).substr(0, key), project);
  // A companion that is missing is told when the record takes it.
  taken.ClassObj = FragmentOfFile(taken.Path, [&](StringView file, bool companion) {
                     return companion ? String() : GetFile(file, project);
                   }).ClassObj;
  if (!taken.ClassObj.empty()) return taken;
  RemoveFolder(taken.Folder);
  return std::nullopt;
}

}  // namespace mFunctions
}  // namespace tessel
