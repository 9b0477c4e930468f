#include "hosts/model/Words.h"

#include <algorithm>

namespace tessel::model {
namespace {

using W = Word;
constexpr WordKind R = WordKind::Reserved, C = WordKind::Common, L = WordKind::Library;

constexpr Word Table[] = {
    // clang-format off
    W{u"Abs", L}, W{u"Access", C}, W{u"AddressOf", R}, W{u"Alias", C}, W{u"And", R}, W{u"Any", R},
    W{u"App", L}, W{u"AppActivate", L}, W{u"Append", C}, W{u"Array", L}, W{u"As", R}, W{u"Asc", L},
    W{u"AscB", L}, W{u"AscW", L}, W{u"Atn", L}, W{u"Attribute", R}, W{u"Base", C}, W{u"Beep", L},
    W{u"BF", C}, W{u"Binary", C}, W{u"Boolean", R}, W{u"ByRef", R}, W{u"Byte", R}, W{u"ByVal", R},
    W{u"Call", R}, W{u"CallByName", L}, W{u"Case", R}, W{u"CBool", R}, W{u"CByte", R},
    W{u"CCur", R}, W{u"CDate", R}, W{u"CDbl", R}, W{u"CDec", R}, W{u"ChDir", L}, W{u"ChDrive", L},
    W{u"Choose", L}, W{u"Chr", L}, W{u"ChrB", L}, W{u"ChrW", L}, W{u"CInt", R}, W{u"Circle", C},
    W{u"Clipboard", L}, W{u"CLng", R}, W{u"Close", R}, W{u"Collection", L}, W{u"Command", L},
    W{u"Compare", C}, W{u"Const", R}, W{u"Cos", L}, W{u"CreateObject", L}, W{u"CSng", R},
    W{u"CStr", R}, W{u"CurDir", L}, W{u"Currency", R}, W{u"CVar", R}, W{u"CVDate", L},
    W{u"CVErr", R}, W{u"Date", C}, W{u"DateAdd", L}, W{u"DateDiff", L}, W{u"DatePart", L},
    W{u"DateSerial", L}, W{u"DateValue", L}, W{u"Day", L}, W{u"DDB", L}, W{u"Debug", C},
    W{u"Decimal", C}, W{u"Declare", R}, W{u"DefBool", R}, W{u"DefByte", R}, W{u"DefCur", R},
    W{u"DefDate", R}, W{u"DefDbl", R}, W{u"DefDec", R}, W{u"DefInt", R}, W{u"DefLng", R},
    W{u"DefObj", R}, W{u"DefSng", R}, W{u"DefStr", R}, W{u"DefVar", R}, W{u"DeleteSetting", L},
    W{u"Dim", R}, W{u"Dir", L}, W{u"Do", R}, W{u"DoEvents", L}, W{u"Double", R}, W{u"Each", R},
    W{u"Else", R}, W{u"ElseIf", R}, W{u"Empty", R}, W{u"End", R}, W{u"EndIf", R}, W{u"Enum", R},
    W{u"Environ", L}, W{u"EOF", L}, W{u"Eqv", R}, W{u"Erase", R}, W{u"Err", L}, W{u"Error", C},
    W{u"Event", R}, W{u"Exit", R}, W{u"Exp", L}, W{u"Explicit", C}, W{u"False", R},
    W{u"FileAttr", L}, W{u"FileCopy", L}, W{u"FileDateTime", L}, W{u"FileLen", L}, W{u"Filter", L},
    W{u"Fix", L}, W{u"For", R}, W{u"Forms", L}, W{u"FreeFile", L}, W{u"Friend", R},
    W{u"Function", R}, W{u"FV", L}, W{u"Get", R}, W{u"GetAllSettings", L}, W{u"GetAttr", L},
    W{u"GetObject", L}, W{u"GetSetting", L}, W{u"Global", R}, W{u"GoSub", R}, W{u"GoTo", R},
    W{u"Hex", L}, W{u"Hour", L}, W{u"If", R}, W{u"IIf", L}, W{u"IMEStatus", L}, W{u"Imp", R},
    W{u"Implements", R}, W{u"In", R}, W{u"Input", C}, W{u"InputB", L}, W{u"InputBox", L},
    W{u"InStr", L}, W{u"InStrB", L}, W{u"InStrRev", L}, W{u"Int", L}, W{u"Integer", R},
    W{u"IPmt", L}, W{u"IRR", L}, W{u"Is", R}, W{u"IsArray", L}, W{u"IsDate", L}, W{u"IsEmpty", L},
    W{u"IsError", L}, W{u"IsMissing", L}, W{u"IsNull", L}, W{u"IsNumeric", L}, W{u"IsObject", L},
    W{u"Join", L}, W{u"Kill", L}, W{u"LBound", R}, W{u"LCase", L}, W{u"Left", L}, W{u"LeftB", L},
    W{u"Len", C}, W{u"LenB", L}, W{u"Let", R}, W{u"Lib", C}, W{u"Like", R}, W{u"Line", C},
    W{u"Load", L}, W{u"LoadPicture", L}, W{u"LoadResData", L}, W{u"LoadResPicture", L},
    W{u"LoadResString", L}, W{u"Loc", L}, W{u"Lock", R}, W{u"LOF", L}, W{u"Log", L}, W{u"Long", R},
    W{u"Loop", R}, W{u"LSet", R}, W{u"LTrim", L}, W{u"Me", R}, W{u"Mid", L}, W{u"MidB", L},
    W{u"Minute", L}, W{u"MIRR", L}, W{u"MkDir", L}, W{u"Mod", R}, W{u"Module", C}, W{u"Month", L},
    W{u"MonthName", L}, W{u"MsgBox", L}, W{u"Name", C}, W{u"New", R}, W{u"Next", R}, W{u"Not", R},
    W{u"Nothing", R}, W{u"Now", L}, W{u"NPer", L}, W{u"NPV", L}, W{u"Null", R}, W{u"Object", C},
    W{u"ObjPtr", L}, W{u"Oct", L}, W{u"On", R}, W{u"Open", C}, W{u"Option", R}, W{u"Optional", R},
    W{u"Or", R}, W{u"Output", C}, W{u"ParamArray", R}, W{u"Partition", L}, W{u"Pmt", L},
    W{u"PPmt", L}, W{u"Preserve", R}, W{u"Print", C}, W{u"Printer", L}, W{u"Private", R},
    W{u"Property", C}, W{u"PSet", C}, W{u"Public", R}, W{u"Put", R}, W{u"PV", L}, W{u"QBColor", L},
    W{u"RaiseEvent", R}, W{u"Random", C}, W{u"Randomize", L}, W{u"Rate", L}, W{u"Read", C},
    W{u"ReDim", R}, W{u"Rem", R}, W{u"Replace", L}, W{u"Reset", L}, W{u"Resume", R},
    W{u"Return", R}, W{u"RGB", L}, W{u"Right", L}, W{u"RightB", L}, W{u"RmDir", L}, W{u"Rnd", L},
    W{u"Round", L}, W{u"RSet", R}, W{u"RTrim", L}, W{u"SavePicture", L}, W{u"SaveSetting", L},
    W{u"Scale", C}, W{u"Screen", L}, W{u"Second", L}, W{u"Seek", C}, W{u"Select", R},
    W{u"SendKeys", L}, W{u"Set", R}, W{u"SetAttr", L}, W{u"Sgn", L}, W{u"Shared", R},
    W{u"Shell", L}, W{u"Sin", L}, W{u"Single", R}, W{u"SLN", L}, W{u"Space", L}, W{u"Spc", C},
    W{u"Split", L}, W{u"Sqr", L}, W{u"Static", R}, W{u"Step", C}, W{u"Stop", R}, W{u"Str", L},
    W{u"StrComp", L}, W{u"StrConv", L}, W{u"String", C}, W{u"StrPtr", L}, W{u"StrReverse", L},
    W{u"Sub", R}, W{u"Switch", L}, W{u"SYD", L}, W{u"Tab", C}, W{u"Tan", L}, W{u"Text", C},
    W{u"Then", R}, W{u"Time", L}, W{u"Timer", L}, W{u"TimeSerial", L}, W{u"TimeValue", L},
    W{u"To", R}, W{u"Trim", L}, W{u"True", R}, W{u"Type", R}, W{u"TypeName", L}, W{u"TypeOf", R},
    W{u"UBound", R}, W{u"UCase", L}, W{u"Unload", L}, W{u"Unlock", R}, W{u"Until", R}, W{u"Val", L},
    W{u"Variant", R}, W{u"VarPtr", L}, W{u"VarType", L}, W{u"vbAbort", L},
    W{u"vbAbortRetryIgnore", L}, W{u"vbAlias", L}, W{u"vbApplicationModal", L}, W{u"vbArray", L},
    W{u"vbBack", L}, W{u"vbBinaryCompare", L}, W{u"vbBlack", L}, W{u"vbBlue", L},
    W{u"vbBoolean", L}, W{u"vbByte", L}, W{u"vbCancel", L}, W{u"vbCr", L}, W{u"vbCritical", L},
    W{u"vbCrLf", L}, W{u"vbCurrency", L}, W{u"vbCyan", L}, W{u"vbDataObject", L}, W{u"vbDate", L},
    W{u"vbDecimal", L}, W{u"vbDefaultButton1", L}, W{u"vbDefaultButton2", L},
    W{u"vbDefaultButton3", L}, W{u"vbDirectory", L}, W{u"vbDouble", L}, W{u"vbEmpty", L},
    W{u"vbError", L}, W{u"vbExclamation", L}, W{u"vbFormFeed", L}, W{u"vbFriday", L},
    W{u"vbFromUnicode", L}, W{u"vbGreen", L}, W{u"vbHidden", L}, W{u"vbIgnore", L},
    W{u"vbInformation", L}, W{u"vbInteger", L}, W{u"vbLf", L}, W{u"vbLong", L},
    W{u"vbLowerCase", L}, W{u"vbMagenta", L}, W{u"vbMonday", L}, W{u"vbMsgBoxHelpButton", L},
    W{u"vbNarrow", L}, W{u"vbNewLine", L}, W{u"vbNo", L}, W{u"vbNormal", L}, W{u"vbNull", L},
    W{u"vbNullChar", L}, W{u"vbNullString", L}, W{u"vbObject", L}, W{u"vbObjectError", L},
    W{u"vbOK", L}, W{u"vbOKCancel", L}, W{u"vbOKOnly", L}, W{u"vbProperCase", L},
    W{u"vbQuestion", L}, W{u"vbReadOnly", L}, W{u"vbRed", L}, W{u"vbRetry", L},
    W{u"vbRetryCancel", L}, W{u"vbSaturday", L}, W{u"vbSingle", L}, W{u"vbString", L},
    W{u"vbSunday", L}, W{u"vbSystem", L}, W{u"vbSystemModal", L}, W{u"vbTab", L},
    W{u"vbTextCompare", L}, W{u"vbThursday", L}, W{u"vbTuesday", L}, W{u"vbUnicode", L},
    W{u"vbUpperCase", L}, W{u"vbUseSystem", L}, W{u"vbVariant", L}, W{u"vbVerticalTab", L},
    W{u"vbVolume", L}, W{u"vbWednesday", L}, W{u"vbWhite", L}, W{u"vbWide", L}, W{u"vbYellow", L},
    W{u"vbYes", L}, W{u"vbYesNo", L}, W{u"vbYesNoCancel", L}, W{u"Weekday", L},
    W{u"WeekdayName", L}, W{u"Wend", R}, W{u"While", R}, W{u"Width", L}, W{u"With", R},
    W{u"WithEvents", R}, W{u"Write", C}, W{u"Xor", R}, W{u"Year", L},
    // clang-format on
};

bool Less(const Word& word, StringView text) {
  return vb::StrComp(word.Text, text, vb::Compare::Text) < 0;
}

}  // namespace

std::span<const Word> Words() { return Table; }

Word FindWord(StringView text) {
  const auto* const found = std::lower_bound(std::begin(Table), std::end(Table), text, Less);
  return found != std::end(Table) && vb::SameText(found->Text, text) ? *found : Word{};
}

bool IsKeyword(StringView text) {
  const WordKind kind = FindWord(text).Kind;
  return kind == WordKind::Reserved || kind == WordKind::Common;
}

}  // namespace tessel::model
