#include "hosts/workbench/window/BasicWords.h"

#include <algorithm>
#include <array>

namespace tessel::workbench {
namespace {

constexpr std::array Words{
    StringView(u"Access"),   StringView(u"AddressOf"),  StringView(u"Alias"),
    StringView(u"And"),      StringView(u"Any"),        StringView(u"Append"),
    StringView(u"As"),       StringView(u"Attribute"),  StringView(u"Base"),
    StringView(u"BF"),       StringView(u"Binary"),     StringView(u"Boolean"),
    StringView(u"ByRef"),    StringView(u"Byte"),       StringView(u"ByVal"),
    StringView(u"Call"),     StringView(u"Case"),       StringView(u"CBool"),
    StringView(u"CByte"),    StringView(u"CCur"),       StringView(u"CDate"),
    StringView(u"CDbl"),     StringView(u"CDec"),       StringView(u"CInt"),
    StringView(u"Circle"),   StringView(u"CLng"),       StringView(u"Close"),
    StringView(u"Compare"),  StringView(u"Const"),      StringView(u"CSng"),
    StringView(u"CStr"),     StringView(u"Currency"),   StringView(u"CVar"),
    StringView(u"CVErr"),    StringView(u"Date"),       StringView(u"Debug"),
    StringView(u"Decimal"),  StringView(u"Declare"),    StringView(u"DefBool"),
    StringView(u"DefByte"),  StringView(u"DefCur"),     StringView(u"DefDate"),
    StringView(u"DefDbl"),   StringView(u"DefDec"),     StringView(u"DefInt"),
    StringView(u"DefLng"),   StringView(u"DefObj"),     StringView(u"DefSng"),
    StringView(u"DefStr"),   StringView(u"DefVar"),     StringView(u"Dim"),
    StringView(u"Do"),       StringView(u"Double"),     StringView(u"Each"),
    StringView(u"Else"),     StringView(u"ElseIf"),     StringView(u"Empty"),
    StringView(u"End"),      StringView(u"EndIf"),      StringView(u"Enum"),
    StringView(u"Eqv"),      StringView(u"Erase"),      StringView(u"Error"),
    StringView(u"Event"),    StringView(u"Exit"),       StringView(u"Explicit"),
    StringView(u"False"),    StringView(u"For"),        StringView(u"Friend"),
    StringView(u"Function"), StringView(u"Get"),        StringView(u"Global"),
    StringView(u"GoSub"),    StringView(u"GoTo"),       StringView(u"If"),
    StringView(u"Imp"),      StringView(u"Implements"), StringView(u"In"),
    StringView(u"Input"),    StringView(u"Integer"),    StringView(u"Is"),
    StringView(u"LBound"),   StringView(u"Len"),        StringView(u"Let"),
    StringView(u"Lib"),      StringView(u"Like"),       StringView(u"Line"),
    StringView(u"Lock"),     StringView(u"Long"),       StringView(u"Loop"),
    StringView(u"LSet"),     StringView(u"Me"),         StringView(u"Mod"),
    StringView(u"Module"),   StringView(u"Name"),       StringView(u"New"),
    StringView(u"Next"),     StringView(u"Not"),        StringView(u"Nothing"),
    StringView(u"Null"),     StringView(u"Object"),     StringView(u"On"),
    StringView(u"Open"),     StringView(u"Option"),     StringView(u"Optional"),
    StringView(u"Or"),       StringView(u"Output"),     StringView(u"ParamArray"),
    StringView(u"Preserve"), StringView(u"Print"),      StringView(u"Private"),
    StringView(u"Property"), StringView(u"PSet"),       StringView(u"Public"),
    StringView(u"Put"),      StringView(u"RaiseEvent"), StringView(u"Random"),
    StringView(u"Read"),     StringView(u"ReDim"),      StringView(u"Rem"),
    StringView(u"Resume"),   StringView(u"Return"),     StringView(u"RSet"),
    StringView(u"Scale"),    StringView(u"Seek"),       StringView(u"Select"),
    StringView(u"Set"),      StringView(u"Shared"),     StringView(u"Single"),
    StringView(u"Spc"),      StringView(u"Static"),     StringView(u"Step"),
    StringView(u"Stop"),     StringView(u"String"),     StringView(u"Sub"),
    StringView(u"Tab"),      StringView(u"Text"),       StringView(u"Then"),
    StringView(u"To"),       StringView(u"True"),       StringView(u"Type"),
    StringView(u"TypeOf"),   StringView(u"UBound"),     StringView(u"Unlock"),
    StringView(u"Until"),    StringView(u"Variant"),    StringView(u"Wend"),
    StringView(u"While"),    StringView(u"With"),       StringView(u"WithEvents"),
    StringView(u"Write"),    StringView(u"Xor")};

bool Less(StringView a, StringView b) { return vb::StrComp(a, b, vb::Compare::Text) < 0; }

}  // namespace

std::span<const StringView> BasicWords() { return Words; }

StringView CanonicalWord(StringView word) {
  const auto found = std::lower_bound(Words.begin(), Words.end(), word, Less);
  return found != Words.end() && vb::SameText(*found, word) ? *found : StringView();
}

}  // namespace tessel::workbench
