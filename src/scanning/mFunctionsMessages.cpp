// Input checks, messages and what the settings say of author and date.

#include <array>

#include "foundation/CAppSettings.h"
#include "foundation/Defaults.h"
#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel::mFunctions {
namespace {

/// Message texts by code, from 1. Spelling and blanks are as users know them.
constexpr std::array<StringView, 19> Messages{
    u"The meaning can not be a number",
    u"Number can not be the first symbol in the name, field: \"AdditionalInformation1\"",
    u"Impossible symbols in the field: \"AdditionalInformation1\"  \"AdditionalInformation2\"",
    u"It is required to fill in the filed: \"AdditionalInformation1\"",
    u"It is not possible to increase the quantity of Arguments,\r\ni.e.in "
    u"\"AdditionalInformation1\" in the field: in \"AdditionalInformation2\" meaning = "
    u"\"AdditionalInformation3\"",
    u"Argument must have the meaning \"AdditionalInformation1\"",
    u"The meaning \"ParamArray\" must be the last in the list of parameters",
    u"The \"AdditionalInformation1\" component already exits in this project.",
    u"It is necessary to have at least one meaning for  Enum parameter",
    u"The meaning must be >= 0",
    u"The name of the record must not be empty",
    u"Duplicating the names in the table. Name \"AdditionalInformation1\"",
    u"Form: \"AdditionalInformation1\" is created not in the VBA format",
    u"It is necessary to choose the node to add objects",
    u"File with the name: \"AdditionalInformation1\" is already opened, choose another file",
    u"It is not possible to close Data Base: \"AdditionalInformation1\"",
    u"Form: \"AdditionalInformation1\" is created not in the VB format",
    u"Form: \"AdditionalInformation1\" is created not in the MDI format",
    u"The name of the control: \"AdditionalInformation1\" is already in use on the form",
};

/// The host's buffers end at the first NUL and hold 255 characters.
String CutName(const String& name) { return name.substr(0, 255).substr(0, name.find(u'\0')); }

bool SettingIsOn(StringView key) { return gAppSettings && DefaultFlag(key, true); }

}  // namespace

String MessageText(int code, StringView info1, StringView info2, StringView info3) {
  if (code < 1 || code > static_cast<int>(Messages.size())) return {};
  String text(Messages[static_cast<std::size_t>(code) - 1]);
  text = vb::Replace(text, u"AdditionalInformation1", info1);
  text = vb::Replace(text, u"AdditionalInformation2", info2);
  return vb::Replace(text, u"AdditionalInformation3", info3);
}

bool myBreak(int code, StringView info1, StringView info2, StringView info3) {
  Routine(u"mFunctions.myBreak", [&](const Statements& run) {
    const String text = MessageText(code, info1, info2, info3);
    run([&] { platform::Current().Boxes().ShowMessage(text, u"Tessel", platform::Exclamation); });
  });
  return false;
}

bool Confirm(StringView question) {
  constexpr int Style = platform::YesNo | platform::Question | platform::DefaultButton2;
  return platform::Current().Boxes().ShowMessage(question, u"Tessel", Style) ==
         platform::MessageAnswer::Yes;
}

bool GetBadSymbols(StringView text, StringView badSymbols) {
  return text.find_first_of(badSymbols) != StringView::npos;
}

bool ControlDigit(StringView value) { return value.empty() || vb::IsNumeric(value) || myBreak(1); }

void AddListInCombobox(forms::ComboBox& combo, const ComboList& list,
                       const std::optional<String>& defaultText) {
  Routine(u"mFunctions.AddListInCombobox", [&](const Statements& run) {
    run([&] { combo.Clear(); });
    if (const auto* text = std::get_if<String>(&list)) {
      run([&] { combo.AddItem(*text); });
      run([&] { combo.SetListIndex(0); });
      return;
    }
    int selected = defaultText ? -1 : 0;
    for (const String& text : std::get<std::vector<String>>(list)) {
      run([&] { combo.AddItem(text); });
      if (defaultText && selected < 0 && vb::SameText(text, *defaultText)) {
        selected = static_cast<int>(combo.List().size()) - 1;
      }
    }
    if (selected >= 0 && !combo.List().empty()) run([&] { combo.SetListIndex(selected); });
  });
}

bool FindComponentName(const std::shared_ptr<host::VBE>& vbe, StringView name) {
  bool found = false;
  ResumeNext(
      [&] { found = Need(Need(vbe).ActiveVBProject()).VBComponents()->Item(name) != nullptr; });
  return found;
}

String GetComputerName() {
  String name;
  Routine(u"mFunctions.GetComputerName",
          [&] { name = CutName(platform::Current().Identity().ComputerName()); });
  return name;
}

String GetUserName() {
  String name;
  Routine(u"mFunctions.GetUserName",
          [&] { name = CutName(platform::Current().Identity().UserName()); });
  return name;
}

String IncludeAuthor() {
  String author;
  Routine(u"mFunctions.IncludeAuthor", [&] {
    // The misspelt name is the value's true name.
    if (SettingIsOn(u"IncludeAutor")) author = DefaultText(u"Author", u"");
  });
  return author;
}

String IncludeDate() {
  String date;
  Routine(u"mFunctions.IncludeDate", [&] {
    if (SettingIsOn(u"IncludeDateTime")) {
      date = vb::FormatDateTime(platform::Current().Clock().Now());
    }
  });
  return date;
}

bool IncludeAutoPosition() {
  bool result = false;
  Routine(u"mFunctions.IncludeAutoPosition", [&] { result = SettingIsOn(u"AutoPosition"); });
  return result;
}

}  // namespace tessel::mFunctions
