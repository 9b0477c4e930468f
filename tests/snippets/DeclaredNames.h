// A reader of hand-written code under Option Explicit: which names does nothing declare?
#pragma once

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::test {

/// Reads one module, its designer part included. A name counts as declared when the module, the
/// member, the language or one of its libraries knows it; what stands behind a point, as a type or
/// as the name of an argument is not looked at.
class DeclaredNames {
 public:
  explicit DeclaredNames(StringView source) {
    const auto lines = Statements(source);
    for (const auto& words : lines) Declare(words);
    for (const auto& words : lines) Read(words);
  }
  [[nodiscard]] const std::set<String>& Undeclared() const { return undeclared_; }

 private:
  using Words = std::vector<String>;

  static bool IsNameSign(char16_t sign) {
    return sign == u'_' || (sign >= u'0' && sign <= u'9') || (sign >= u'a' && sign <= u'z') ||
           (sign >= u'A' && sign <= u'Z') || sign >= 128;
  }

  /// The words and signs of each line; texts, dates and numbers are left out, but a text leaves "".
  static std::vector<Words> Statements(StringView source) {
    std::vector<Words> all;
    for (const StringView line : vb::SplitViews(source, vb::CrLf)) {
      Words words;
      for (std::size_t at = 0; at < line.size();) {
        const char16_t sign = line[at];
        if (sign == u'\'') break;
        if (sign == u'"') {
          at = std::min(line.find(u'"', at + 1), line.size() - 1) + 1;
          words.emplace_back(u"\"");
        } else if (sign == u'&' && at + 1 < line.size() && (line[at + 1] | 32) == u'h') {
          at += 2;
          while (at < line.size() && (IsNameSign(line[at]) || line[at] == u'&')) ++at;
        } else if (sign == u'[') {
          at = line.find(u']', at) + 1;
          words.emplace_back(u"bracketed");
        } else if (IsNameSign(sign)) {
          const std::size_t start = at;
          while (at < line.size() && IsNameSign(line[at])) ++at;
          if (sign < u'0' || sign > u'9') words.emplace_back(line.substr(start, at - start));
          if (at < line.size() && line[at] == u'$') ++at;
        } else {
          if (sign != u' ') words.emplace_back(1, sign);
          ++at;
        }
      }
      all.push_back(std::move(words));
    }
    return all;
  }

  static bool Is(const Words& words, std::size_t at, StringView word) {
    return at < words.size() && vb::SameText(words[at], word);
  }
  static bool IsAny(const Words& words, std::size_t at, const std::set<String>& any) {
    return at < words.size() && any.contains(vb::UCase(words[at]));
  }
  /// Behind "Public", "Private" and their like.
  static std::size_t BehindModifiers(const Words& words) {
    static const std::set<String> modifiers{u"PUBLIC", u"PRIVATE", u"FRIEND", u"STATIC",
                                            u"GLOBAL", u"DECLARE", u"DIM",    u"WITHEVENTS"};
    std::size_t at = 0;
    while (IsAny(words, at, modifiers)) ++at;
    return at;
  }
  static bool EndsMember(const Words& words) {
    static const std::set<String> kinds{u"SUB", u"FUNCTION", u"PROPERTY"};
    return Is(words, 0, u"End") && IsAny(words, 1, kinds);
  }
  static bool BeginsMember(const Words& words) {
    static const std::set<String> kinds{u"SUB", u"FUNCTION", u"PROPERTY"};
    for (std::size_t at = 0; at < BehindModifiers(words); ++at) {
      if (Is(words, at, u"Declare")) return false;
    }
    return IsAny(words, BehindModifiers(words), kinds);
  }

  static void Add(std::set<String>& names, const Words& words, std::size_t at) {
    if (at < words.size()) names.insert(vb::UCase(words[at]));
  }

  /// Names that the whole module sees.
  void Declare(const Words& words) {
    static const std::set<String> kinds{u"SUB", u"FUNCTION", u"EVENT", u"CONST"};
    const std::size_t at = BehindModifiers(words);
    // A control of the designer: Begin VB.Label lblName
    if (Is(words, 0, u"Begin") && words.size() == 5) Add(module_, words, 4);
    if (BeginsMember(words)) {
      inside_ = true;
      Add(module_, words, at + (Is(words, at, u"Property") ? 2 : 1));
    } else if (EndsMember(words)) {
      inside_ = false;
    } else if (!inside_ && (Is(words, at, u"Enum") || Is(words, at, u"Type"))) {
      inEnum_ = Is(words, at, u"Enum");
      inType_ = !inEnum_;
    } else if (!inside_ && Is(words, 0, u"End")) {
      inEnum_ = inType_ = false;
    } else if (inEnum_) {
      Add(module_, words, 0);
    } else if (!inside_ && !inType_ && at > 0) {
      Add(module_, words, at + (IsAny(words, at, kinds) ? 1 : 0));
    }
  }

  void Read(const Words& words) {
    if (BeginsMember(words)) {
      local_.emplace();
      DeclareAll(words, BehindModifiers(words) + 2);
    } else if (EndsMember(words)) {
      local_.reset();
    } else if (!local_ || Is(words, 0, u"Attribute") || words.empty()) {
      return;
    } else if (words.size() == 2 && words[1] == u":") {
      return;  // a label
    } else if (Is(words, 0, u"Dim") || Is(words, 0, u"Static") || Is(words, 0, u"Const")) {
      DeclareAll(words, 1);
    } else {
      Statement(words);
    }
  }

  /// Parameters or variables: each name ahead of an As.
  void DeclareAll(const Words& words, std::size_t at) {
    for (; at + 1 < words.size(); ++at) {
      if (!Is(words, at + 1, u"As") && !(words[at + 1] == u"(" && Is(words, at + 3, u"As"))) {
        continue;
      }
      Add(*local_, words, at);
    }
  }

  void Statement(const Words& words) {
    const bool jumps = Is(words, 0, u"On") || Is(words, 0, u"Resume");
    for (std::size_t at = 0; at < words.size(); ++at) {
      if (!IsNameSign(words[at].front())) continue;
      const bool part = at > 0 && (words[at - 1] == u"." || words[at - 1] == u"!");
      const bool type = at > 0 && (Is(words, at - 1, u"As") || Is(words, at - 1, u"New") ||
                                   (Is(words, at - 1, u"Is") && Is(words, at - 3, u"TypeOf")));
      const bool argument = at + 2 < words.size() && words[at + 1] == u":" && words[at + 2] == u"=";
      const bool target = at + 1 == words.size() && (jumps || Is(words, at - 1, u"Resume"));
      if (part || type || argument || target) continue;
      const String name = vb::UCase(words[at]);
      if (!local_->contains(name) && !module_.contains(name) && !Language().contains(name)) {
        undeclared_.insert(words[at]);
      }
    }
  }

  /// Keywords, run-time routines and objects, and the constants that the library uses.
  static const std::set<String>& Language() {
    static const std::set<String> names = [] {
      constexpr StringView All =
          u"And Or Not Xor Mod Is Like If Then Else ElseIf End Select Case To For Each In Next "
          u"Step "
          u"Do Loop While Until With Exit Sub Function Property Set Let Call ReDim Preserve As "
          u"Nothing "
          u"Empty Null True False Me On Error Resume GoTo Raise RaiseEvent TypeOf New Open Close "
          u"Get Put "
          u"Print Line Input Output Append Binary Access Read Write Len ByVal Name AddressOf Stop "
          u"bracketed "
          u"Abs AppActivate Array Asc AscW Beep CBool CByte CCur CDate CDbl CInt CLng CStr Chr "
          u"Choose "
          u"Command CreateObject CVar Date DateAdd DateSerial Day DeleteSetting Dir DoEvents "
          u"Environ EOF "
          u"Erl FileCopy FileLen Filter Fix Format FreeFile GetAttr GetSetting Hex IIf InStr "
          u"InStrRev Int "
          u"IsArray IsEmpty IsMissing IsNull IsNumeric IsObject Join Kill LBound LCase Left LenB "
          u"LOF LTrim "
          u"Mid MkDir Month MsgBox Now Randomize Replace Right Rnd Round RTrim SaveSetting "
          u"SendKeys SetAttr "
          u"Sgn Shell Space Split Str StrComp StrConv String Timer TimeSerial Trim UBound Unload "
          u"Load Val "
          u"VarType Weekday Year App Debug Err Forms Printer Printers Screen Clipboard LoadPicture "
          u"Collection ADODB vbNullString vbNullChar vbCr vbLf vbCrLf vbTab vbObjectError "
          u"vbTextCompare "
          u"vbBinaryCompare vbDirectory vbHidden vbSystem vbReadOnly vbNormal vbMinimized "
          u"vbNormalFocus "
          u"vbMonday vbFromUnicode vbHourglass vbDefault vbExclamation vbInformation vbCritical "
          u"vbQuestion "
          u"vbYesNoCancel vbYes vbNo vbCancel vbRetry vbRetryCancel vbKeyReturn "
          u"vbComboDropdownList "
          u"vbUnchecked "
          u"vbCopyPen vbNotXorPen vbHighlight vbHimetric vbTwips vbPRORLandscape vbModal "
          u"vbFormControlMenu "
          u"vbCascade vbTileHorizontal BF adUseClient adOpenForwardOnly adLockReadOnly adCmdText "
          u"adVarWChar adParamInput adDate adInteger adFldIsNullable adExecuteNoRecords "
          u"adSchemaTables "
          u"lvwAscending tvwChild TextBox ComboBox CheckBox Frame PictureBox "
          // What a form, an MDI form and a user control know of themselves.
          u"Caption Show Hide WindowState ScaleWidth ScaleHeight Arrange ActiveForm UserControl "
          u"Ambient "
          u"PropertyChanged";
      std::set<String> set;
      for (const StringView name : vb::SplitViews(All, u" ")) set.insert(vb::UCase(name));
      return set;
    }();
    return names;
  }

  std::set<String> module_;
  std::optional<std::set<String>> local_;
  std::set<String> undeclared_;
  bool inside_ = false, inEnum_ = false, inType_ = false;
};

}  // namespace tessel::test
