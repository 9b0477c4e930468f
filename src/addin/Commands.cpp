#include "addin/Commands.h"

#include <array>

#include "addin/Connect.h"

namespace tessel {
namespace {

constexpr StringView If = u"IF", SelectWith = u"Select / With", ForDo = u"For / Do",
                     OnError = u"On Error";

}  // namespace

std::span<const CommandRow> CommandTable() {
  static constexpr std::array<CommandRow, 12> table{{
      {u"Project Explorer", 105, 2557, false, false, true, true, u"MenuFastProjectExplorer_Click",
       u"MenuHandlerProjectExplorer_Click", u"ProjectExplorer", nullptr, nullptr},
      {u"Snippet Manager", 106, 3415, true, true, true, false, u"MenuFastFragmentBuilder_Click",
       u"MenuHandlerFragmentBuilder_Click", u"FragmentBuilder", &Connect::ShowProjectFragment,
       &Connect::ShowProjectFragment},
      {u"Insert Snippet", 107, 3415, false, false, true, false, u"MenuFastGetFromVbCode_Click",
       u"MenuHandlerGetFromVbCode_Click", u"GetFromVbCode", &Connect::MenuFastGetFromVbCode_Click,
       &Connect::ShowGetFromVbCode},
      {u"Store to Snippets", 108, 3415, false, false, true, false, u"MenuFastStoreToVbCode_Click",
       u"MenuHandlerStoreToVbCode_Click", u"StoreToVbCode", &Connect::ShowStoreToVbCode,
       &Connect::ShowStoreToVbCode},
      {u"Procedure Builder", 104, 7, true, true, true, false, u"MenuFastProcedureBuilder_Click",
       u"MenuHandlerProcedureBuilder_Click", u"ProcedureBuilder", &Connect::ShowProcedureBuilder,
       &Connect::ShowProcedureBuilder},
      {u"Property Builder", 103, 222, false, false, true, false, u"MenuFastPropertyBuilder_Click",
       u"MenuHandlerPropertyBuilder_Click", u"PropertyBuilder", &Connect::ShowPropertyBuilder,
       &Connect::ShowPropertyBuilder},
      {u"Collection Builder", 102, 190, false, false, true, false, u"MenuFastClassBuilder_Click",
       u"MenuHandlerClassBuilder_Click", u"CollectionBuilder", &Connect::ShowClassBuilder,
       &Connect::ShowClassBuilder},
      {u"Enum Builder", 0, 3253, false, false, true, false, u"MenuFastCreadeDeclareEnum_Click",
       u"MenuHandlerCreadeDeclareEnum_Click", u"EnumBuilder",
       &Connect::MenuFastCreadeDeclareEnum_Click, &Connect::ShowEnum},
      {u"Setttings", 0, 1714, true, true, false, false, u"", u"MenuHandlerSetttings_Click",
       u"Setttings", nullptr, nullptr},
      {u"Code Formatter", 111, 2564, true, false, true, false, u"MenuFastFormatText_Click",
       u"MenuHandlerFormatText_Click", u"Code Formatter", &Connect::ShowFormatText,
       &Connect::ShowFormatText},
      {u"Insert Error Handler Code", 109, 3361, false, false, true, false,
       u"MenuFastInsertErrorHandlerCode_Click", u"MenuHandlerInsertErrorHandlerCode_Click",
       u"Insert Error Handler Code", &Connect::ShowInsertErrorHandlerCode,
       &Connect::ShowInsertErrorHandlerCode},
      {u"Remove Error Handler Code", 110, 3362, false, false, true, false,
       u"MenuFastRemoveErrorHandlerCode_Click", u"MenuHandlerRemoveErrorHandlerCode_Click",
       u"Remove Error Handler Code", &Connect::ShowRemoveErrorHandlerCode,
       &Connect::ShowRemoveErrorHandlerCode},
  }};
  return table;
}

std::span<const UnhookedRow> UnhookedTable() {
  static constexpr std::array<UnhookedRow, 1> table{
      {{u"MenuFastEditErrorHandkerScheme_Click", &Connect::ShowEditErrorHandlerScheme}}};
  return table;
}

std::span<const StringView> TemplatePopups() {
  static constexpr std::array<StringView, 4> popups{If, SelectWith, ForDo, OnError};
  return popups;
}

const std::vector<TemplateRow>& TemplateTable() {
  static const std::vector<TemplateRow> table{
      {If, u"If ... Then", u"MenuComBarIf_Click", {u"If Condition Then"}, 4, 0, 9, true},
      {If,
       u"If ... Then Else ... End If",
       u"MenuComBarIfElse_Click",
       {u"If Condition Then", u"", u"Else", u"", u"End If"},
       4,
       0,
       9,
       true},
      {If,
       u"If ... Then ElseIF ... Then ... End If",
       u"MenuComBarIfElseIf_Click",
       {u"If Condition Then", u"", u"ElseIf Condition Then", u"", u"End If"},
       4,
       0,
       9,
       true},
      {If,
       u"If ... Then ElseIF ... Then ... Else ... End If",
       u"MenuComBarIfElseIfElse_Click",
       {u"If Condition Then", u"", u"ElseIf Condition Then", u"", u"Else", u"", u"End If"},
       4,
       0,
       9,
       true},
      {SelectWith,
       u"Select Case ... End Select",
       u"MenuComBarSelect_Click",
       {u"Select Case testexpression", u"", u"Case ?", u"", u"Case Else", u"", u"End Select"},
       13,
       0,
       14,
       true},
      {SelectWith,
       u"With ... End With",
       u"MenuComBarWith_Click",
       {u"With object", u"", u"End With"},
       6,
       0,
       6,
       true},
      {ForDo,
       u"For ... Next",
       u"MenuComBarFor_Click",
       {u"For counter = start_ To end_", u"", u"Next"},
       5,
       0,
       16,
       true},
      {ForDo,
       u"For Each {E} In ... Next",
       u"MenuComBarForEach_Click",
       {u"For Each element In", u"", u"Next"},
       10,
       0,
       7,
       false},
      {ForDo,
       u"Do ... Loop Until",
       u"MenuComBarDoLoopUntil_Click",
       {u"Do", u"", u"", u"Loop Until Condition"},
       12,
       3,
       9,
       false},
      {ForDo,
       u"Do ... Loop While",
       u"MenuComBarDoLoopWhile_Click",
       {u"Do", u"", u"", u"Loop While Condition"},
       12,
       3,
       9,
       true},
      {ForDo,
       u"Do While ... Loop",
       u"MenuComBarDoWhileLoop_Click",
       {u"Do While Condition", u"", u"", u"Loop"},
       10,
       0,
       9,
       true},
      {ForDo,
       u"Do Until ... Loop",
       u"MenuComBarDoUntilLoop_Click",
       {u"Do Until Condition", u"", u"", u"Loop"},
       10,
       0,
       9,
       true},
      {ForDo, u"Do ... Loop", u"MenuComBarDoLoop_Click", {u"Do", u"", u"", u"Loop"}, 1, 1, 1, true},
      {OnError,
       u"On Error Goto ...",
       u"MenuComBarOnErrLabel_Click",
       {u"On Error Goto Label"},
       15,
       0,
       5,
       true},
      {OnError,
       u"On Error GoTo 0",
       u"MenuComBarOnErr0_Click",
       {u"On Error GoTo 0"},
       15,
       0,
       1,
       true},
      {OnError,
       u"On Error Resume Next",
       u"MenuComBarOnErrResumeNext_Click",
       {u"On Error Resume Next"},
       1,
       0,
       0,
       true}};
  return table;
}

}  // namespace tessel
