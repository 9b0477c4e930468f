#include "builders/CollectionText.h"

#include "builders/LineLimits.h"

namespace tessel::builders {
namespace {

constexpr HeaderWords Words{u"Class Module", 13, 11};

// The class in pieces: {C} is its name, {B} that of the base class, {V} that of the variable.

constexpr StringView Head =
    u"Option Explicit\r\n"
    u"\r\n"
    u"' The private collection object\r\n"
    u"Private {V} As Collection\r\n"
    u"\r\n"
    u"Private Sub Class_Initialize()\r\n"
    u"    Set {V} = New Collection\r\n"
    u"End Sub\r\n"
    u"\r\n"
    u"' This sub adds a new {B} item to the collection.\r\n"
    u"Sub Add({B}Item As {B}, Optional VarKey As Variant)\r\n"
    u"    'TODO: Initialize the new {B} item's properties here\r\n"
    u"    {V}.Add {B}Item, VarKey\r\n"
    u"End Sub\r\n"
    u"\r\n"
    u"' This sub remove an item from the collection.\r\n"
    u"Sub Remove(VarIndex As Variant)\r\n"
    u"    {V}.Remove VarIndex\r\n"
    u"End Sub\r\n"
    u"\r\n"
    u"' This function returns a {B} item from the collection.\r\n"
    u"' It's the default method.\r\n"
    u"Function Item(VarIndex As Variant) As {B}\r\n";

constexpr StringView PlainItem =
    u"    Set Item = {V}.Item(VarIndex)\r\n"
    u"End Function\r\n"
    u"\r\n";

constexpr StringView SafeItem =
    u"    Set Item = Nothing\r\n"
    u"    On Error Resume Next\r\n"
    u"    Set Item = {V}.Item(VarIndex)\r\n"
    u"    On Error GoTo 0\r\n"
    u"End Function\r\n"
    u"\r\n"
    u"' This function returns a boolean value indicating whether \r\n"
    u"'  the item exists in the collection or not.\r\n"
    u"Function Exists(VarIndex As Variant) As Boolean\r\n"
    u"    Dim objTest As {B}\r\n"
    u"    Set objTest = Nothing\r\n"
    u"    If Count > 0 Then\r\n"
    u"        On Error Resume Next\r\n"
    u"        Set objTest = Item(VarIndex)\r\n"
    u"        On Error GoTo 0\r\n"
    u"    End If\r\n"
    u"    Exists = Not (objTest Is Nothing)\r\n"
    u"End Function\r\n"
    u"\r\n";

constexpr StringView Tail =
    u"' This property returns the number of items in the collection.\r\n"
    u"Property Get Count() As Long\r\n"
    u"    Count = {V}.Count\r\n"
    u"End Property\r\n"
    u"\r\n"
    u"' This sub remove all items from the collection.\r\n"
    u"Sub Clear()\r\n"
    u"    Set {V} = New Collection\r\n"
    u"End Sub\r\n"
    u"\r\n"
    u"' This function {C}\"For Each\" enumeration support.\r\n"
    u"' Must have a -4 DispID.\r\n"
    u"Function NewEnum() As IUnknown\r\n"
    u"    Set NewEnum = {V}.[_NewEnum]\r\n"
    u"End Function";

String VariableOf(const CollectionChoices& choices) {
  return choices.VariablePrefix + choices.ClassName;
}

/// The names that come of several fields, one of which the dialog lacks.
std::optional<Complaint> CheckMadeNames(const CollectionChoices& choices) {
  constexpr StringView Class = u"txtCollectionClassName", ClassLabel = u"Collection Class Name";
  const String variable = VariableOf(choices), item = choices.BaseClass + u"Item";
  if (auto complaint = CheckMadeName({{}, u"Prefix text Class", variable})) return complaint;
  return CheckNameLengths({{Class, ClassLabel, choices.ClassName},
                           {Class, ClassLabel, variable},
                           {u"ComBaseClass", u"Base Class", item}});
}

/// `text` with its three placeholders filled in, in one pass: names may hold braces.
String Fill(StringView text, const CollectionChoices& choices) {
  const String variable = VariableOf(choices);
  String filled;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const StringView mark = text.substr(at, 3);
    const bool place = mark.size() == 3 && mark.front() == u'{' && mark.back() == u'}';
    if (!place) {
      filled += text[at];
      continue;
    }
    filled += mark[1] == u'C' ? choices.ClassName : mark[1] == u'B' ? choices.BaseClass : variable;
    at += 2;
  }
  return filled;
}

}  // namespace

String GeneratorTextClass(const CollectionChoices& choices) {
  return Header(Words, choices.ClassName, choices.Comment) + Fill(Head, choices) +
         Fill(choices.Exists ? SafeItem : PlainItem, choices) + Fill(Tail, choices);
}

std::optional<Complaint> CheckField(const CollectionChoices& choices) {
  if (auto complaint =
          CheckName({u"txtCollectionClassName", u"Collection Class Name"}, choices.ClassName)) {
    return complaint;
  }
  if (auto complaint = CheckName({u"ComBaseClass", u"Base Class"}, choices.BaseClass)) {
    return complaint;
  }
  if (auto complaint = CheckMadeNames(choices)) return complaint;
  FieldTexts fields{{u"txtCollectionClassName", u"Collection Class Name", choices.ClassName},
                    {u"ComBaseClass", u"Base Class", choices.BaseClass},
                    {{}, u"Prefix text Class", choices.VariablePrefix}};
  AddComment(fields, choices.Comment);
  return CheckLimitsOf(fields, [&] { return GeneratorTextClass(choices); });
}

String BaseClassText() { return u"Option Explicit" + String(vb::CrLf); }

}  // namespace tessel::builders
