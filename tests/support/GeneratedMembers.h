// Valid members from a seed: the same seed gives the same code everywhere.
#pragma once

#include <cstdint>
#include <string>

#include "vb/Text.h"

namespace tessel::test {

/// Writes modules of valid code with nested blocks, labels, jumps, continuation lines, comments,
/// Select Case, colons, declarations and property triples.
class MemberGenerator {
 public:
  explicit MemberGenerator(std::uint64_t seed) : state_(seed * 2 + 1) {}

  /// A module of so many members; a property with its two or three kinds counts as one. With
  /// `flat` no block is opened and every line of a body stands in column 1.
  String Module(int members, bool flat = false) {
    flat_ = flat;
    text_ = u"Option Explicit\r\nPrivate mValue As Long, Items() As Long\r\n";
    for (int number = 0; number < members; ++number) Member(number);
    return text_;
  }

  /// A number from 0 to `below` - 1.
  unsigned Draw(unsigned below) {
    // splitmix64
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return static_cast<unsigned>((mixed ^ (mixed >> 31U)) % below);
  }

 private:
  void Line(StringView text) {
    text_ += margin_;
    text_ += text;
    text_ += vb::CrLf;
  }

  void Member(int number) {
    const String name = u"Member" + vb::Str(number);
    if (Draw(2) == 0) text_ += u"\r\n";
    if (Draw(3) == 0) text_ += u"' About " + name + u".\r\n";
    switch (Draw(4)) {
      case 0:
        Body(Modifier() + u"Sub " + name + Parameters(), u"Sub");
        break;
      case 1:
        Body(Modifier() + u"Function " + name + Parameters() + u" As Long", u"Function");
        break;
      case 2:
        // The order in which the member table holds all of them.
        Body(u"Public Property Get " + name + u"() As Object", u"Property");
        Body(u"Public Property Let " + name + u"(ByVal Value As Variant)", u"Property");
        Body(u"Public Property Set " + name + u"(ByVal Value As Object)", u"Property");
        break;
      default:
        Body(u"Property Get " + name + u"() As Long", u"Property");
        Body(u"Friend Property Let " + name + u"(ByVal Value As Long)", u"Property");
    }
  }

  String Modifier() {
    constexpr StringView Modifiers[] = {u"",        u"Public ", u"Private ",
                                        u"Friend ", u"Static ", u"Private Static "};
    return String(Modifiers[Draw(6)]);
  }

  String Parameters() {
    constexpr StringView Lists[] = {u"()", u"(ByVal a As Long)", u"(a, Optional b = 1)",
                                    u"(ByVal a As String, _\r\n    ByVal b As Long)",
                                    u"( _\r\n  a)"};
    return String(Lists[Draw(5)]);
  }

  void Body(const String& head, StringView kind) {
    labels_ = 0;
    margin_.clear();
    Line(head);
    margin_ = vb::Space(flat_ ? 0 : static_cast<std::ptrdiff_t>(Draw(3)) * 2);
    Block(0, kind);
    margin_.clear();
    Line(u"End " + String(kind));
  }

  void Block(int depth, StringView kind) {
    const unsigned statements = 1 + Draw(5);
    for (unsigned at = 0; at < statements; ++at) {
      if (!flat_ && depth < 4 && Draw(3) == 0) {
        Nested(depth, kind);
      } else {
        Statement(kind);
      }
    }
  }

  void Inner(int depth, StringView kind) {
    const String outer = margin_;
    margin_ += vb::Space(static_cast<std::ptrdiff_t>(Draw(5)));
    Block(depth + 1, kind);
    margin_ = outer;
  }

  void Nested(int depth, StringView kind) {
    struct Pair {
      String Open, Close;
    };
    const String level = vb::Str(depth);  // a loop's variable is its own
    const Pair Pairs[] = {{u"If mValue > 1 Then", u"End If"},
                          {u"If mValue > 1 _\r\nAnd mValue < 9 Then ' why", u"End If"},
                          {u"For i" + level + u" = 1 To 10", u"Next"},
                          {u"For Each Item" + level + u" In Items", u"Next Item" + level},
                          {u"Do While mValue < 10", u"Loop"},
                          {u"Do", u"Loop Until mValue > 10"},
                          {u"While mValue", u"Wend"},
                          {u"With Me", u"End With"}};
    const unsigned which = Draw(10);
    if (which < 8) {
      Line(Pairs[which].Open);
      Inner(depth, kind);
      if (which < 2 && Draw(2) == 0) {
        Line(u"ElseIf mValue Then");
        Inner(depth, kind);
      }
      if (which < 2 && Draw(2) == 0) {
        Line(u"Else");
        Inner(depth, kind);
      }
      Line(Pairs[which].Close);
      return;
    }
    Line(u"Select Case mValue");
    if (Draw(2) == 0) Line(u"    ' a comment may stand here");
    for (unsigned at = 0; at <= Draw(3); ++at) {
      Line(u"Case " + vb::Str(at) + (Draw(3) == 0 ? u": mValue = 1: mValue = 2" : u""));
      Inner(depth, kind);
    }
    if (Draw(2) == 0) Line(u"Case Else");
    Line(u"End Select");
  }

  void Statement(StringView kind) {
    const String own = vb::Str(names_++), further = flat_ ? u"" : u"   ";
    const String Plain[] = {
        u"mValue = mValue + 1",
        u"Dim q" + own + u" As Long, r" + own + u" As String",
        u"Const c" + own + u" = 1",
        u"Debug.Print \"a ' b: c\"; mValue ' a note: here",
        u"' a comment, If it matters",
        u"Rem another one: End Sub",
        u"mValue = 1: mValue = 2: Debug.Print mValue",
        u"If mValue Then mValue = 0 Else mValue = 1",
        u"If mValue = 1 Then Debug.Print: mValue = 3",
        u"mValue = mValue + _\r\n" + further + u"mValue + _\r\n" + further + u"2",
        u"On Error Resume Next",
        u"On Error GoTo 0",
        u"Call Work(1, _\r\n2)",
        u"ReDim Items(1 To 3)",
        u"Debug.Print #1/2/2003#",
        u"Work",
        u""};
    const unsigned which = Draw(20);
    if (which < 17) {
      Line(Plain[which]);
    } else if (which == 17) {
      Line(u"Exit " + String(kind));
    } else {
      // A label stands in column 1.
      const String label = u"Label" + vb::Str(labels_++);
      Line(u"If mValue = 7 Then GoTo " + label);
      text_ += label + u":\r\n";
    }
  }

  std::uint64_t state_;
  String text_, margin_;
  int labels_ = 0, names_ = 0;
  bool flat_ = false;
};

}  // namespace tessel::test
