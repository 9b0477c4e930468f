// A stored object on its way into the user's project.

#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "scanning/mFunctions.h"
#include "snippets/ObjectFiles.h"
#include "snippets/ObjectRecords.h"

namespace tessel::mFunctions {
namespace {

constexpr int ForeignForm = 1, ForeignFormMessage = 17;

bool AgreesToRename(StringView name, StringView fresh) {
  const String question = u"Name \"" + String(name) +
                          u"\" is already used in the project.\r\nIt will be replaced with the "
                          u"name \"" +
                          String(fresh) + u"\".\r\nDo you agree ?";
  return platform::Current().Boxes().ShowMessage(
             question, u"Tessel",
             platform::YesNo | platform::Question | platform::DefaultButton2) ==
         platform::MessageAnswer::Yes;
}

/// The first free name: the plain one, then with 1, 2 ... behind it.
String FreeName(const std::shared_ptr<host::VBE>& vbe, const String& name) {
  String fresh = name;
  for (int number = 1; FindComponentName(vbe, fresh); ++number) fresh = name + vb::Str(number);
  return fresh;
}

/// Writes the files of an object and answers the path of the main one.
String WriteObject(const ListFragment& object, const ObjectClass& known, const String& base,
                   const std::shared_ptr<host::VBProject>& project) {
  if (!known.Companion.empty() && (known.AlwaysCompanion || !object.CompObj.empty())) {
    PutFile(base + u"." + String(known.Companion), object.CompObj);
  }
  String path = base + u"." + String(known.Extension);
  // The file goes again, so its name tells nobody anything.
  PutFile(path, object.TitleObj + object.TextObj, project,
          u"the component \"" + object.NameObj + u"\"");
  return path;
}

void Insert(const ListFragment& object, const String& name, const std::shared_ptr<host::VBE>& vbe) {
  const String folder = GetTempFolder();
  CreateFolderPath(folder);
  EmptyFolder(folder);
  const auto project = vbe->ActiveVBProject();
  if (const ObjectClass* const known = ClassOfObject(object.ClassObj)) {
    const String path = WriteObject(object, *known, folder + u"\\" + name, project);
    const auto components = project->VBComponents();
    // A file may bear another name than the component in it.
    auto component = components->Import(path);
    if (!component) component = components->Item(name);
    component->Activate();
    component->CodeModule()->CodePane()->Show();
  }
  RemoveFolder(folder);
}

String Describe(StringView name, const vb::Failure& failure) {
  return u"Object : " + String(name) + u"\r\n" + failure.Description() + u"\r\nNumber : " +
         vb::Str(failure.Number());
}

}  // namespace

String InsertObjectInUserProject(const CSQLTrees& trees, StringView nameConnect,
                                 const std::shared_ptr<host::VBE>& vbe, std::int32_t id, bool ask) {
  String name;
  try {
    if (!vbe || !vbe->ActiveVBProject()) return {};
    ListFragment object = trees.item(nameConnect)->GetRecordsetFromList(id);
    name = object.NameObj;
    if (ClassOfObject(object.ClassObj) != nullptr && !IsFileName(name)) {
      throw vb::Failure(vb::InvalidCall, u"This is no name for a component's file", u"Tessel");
    }
    if (object.ClassObj.starts_with(u"FRM") && CheckVBAorVBForm(object.TitleObj) == ForeignForm) {
      if (ask) return {};
      myBreak(ForeignFormMessage, name);
      return u"Click Yes to continue";
    }
    const String fresh = FreeName(vbe, name);
    if (fresh != name) {
      if (ask && !AgreesToRename(name, fresh)) return {};
      object.TitleObj = vb::Replace(object.TitleObj, name, fresh);
    }
    Insert(object, fresh, vbe);
    return {};
  } catch (...) {
    return Describe(name, vb::CurrentFailure());
  }
}

}  // namespace tessel::mFunctions
