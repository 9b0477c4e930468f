#include "errorhandlers/mRemoveErrorHandlerCode.h"

#include <algorithm>

#include "errorhandlers/HandlerRun.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/ReplaceLines.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel::mRemoveErrorHandlerCode {
namespace {

namespace insert = mInsertErrorHandlerCode;

/// Above every margin that a line can have.
constexpr int NoMargin = 9999;

bool ContainsText(StringView text, StringView what) {
  return vb::InStr(text, what, vb::Compare::Text) > 0;
}

/// What a line holds of the markers.
struct Marks {
  bool HeaderStarts = false, HeaderEnds = false, FooterStarts = false, FooterEnds = false;
};

Marks MarksOf(StringView line) {
  // Hardly a line holds the sign that all of them hold.
  if (vb::FindUnit(line, u'<') == StringView::npos) return {};
  return {ContainsText(line, insert::HeaderStart), ContainsText(line, insert::HeaderEnd),
          ContainsText(line, insert::FooterStart), ContainsText(line, insert::FooterEnd)};
}

/// The scheme whose label is turned back.
String EffectiveScheme(int mode, const String& memberKey, StringView schemeName) {
  if (mode == insert::MethodMode) return memberKey;
  if (mode != insert::ComponentMode) return {};
  return memberKey.empty() ? String(schemeName) : memberKey;
}

}  // namespace

String ModifyWorkString(String line, int& leftMost) {
  const std::size_t blank = line.find(u' ');
  if (blank == String::npos || blank == 0) {
    if (!line.empty() && vb::FindUnit(line, u':') == String::npos) {
      const auto margin = static_cast<int>(std::min(line.size(), line.find_first_not_of(u' ')));
      leftMost = std::min(margin, leftMost);
    }
    return line;
  }
  if (!vb::IsNumeric(StringView(line).substr(0, blank))) return line;
  leftMost = std::min(static_cast<int>(blank), leftMost);
  line.replace(0, blank, blank, u' ');
  return line;
}

std::optional<std::vector<String>> DeleteNullLinesAndMoveText(std::vector<String> lines,
                                                              int leftMost) {
  const auto pad = static_cast<std::size_t>(std::max(0, leftMost));
  std::erase_if(lines,
                [](const String& line) { return line.find_first_not_of(u' ') == String::npos; });
  for (String& line : lines) {
    if (line.find_first_not_of(u' ') >= pad) line.erase(0, pad);
  }
  if (lines.empty()) return std::nullopt;
  return lines;
}

std::optional<std::vector<String>> RemoveErrorHandlerScheme(StringView text, StringView labelName) {
  int leftMost = NoMargin;
  bool inFooter = false, inHeader = false;
  std::vector<String> lines = vb::Split(text, vb::CrLf);
  const String jump = u"On Error GoTo " + String(labelName);
  for (String& line : lines) {
    const Marks marks = MarksOf(line);
    inFooter |= marks.FooterStarts;
    inHeader |= marks.HeaderStarts;
    if (inFooter || inHeader) line.clear();
    if (!labelName.empty() && line.find(jump) != String::npos) {
      line = vb::Replace(line, jump, u"On Error GoTo 0");
    }
    line = ModifyWorkString(std::move(line), leftMost);
    if (marks.FooterEnds) inFooter = false;
    if (marks.HeaderEnds) inHeader = false;
  }
  return DeleteNullLinesAndMoveText(std::move(lines), leftMost);
}

void RunRemoveMemberProcedure(const std::shared_ptr<host::CodeModule>& codeModule,
                              StringView memberName, StringView schemeName, int mode) {
  Routine(u"mRemoveErrorHandlerCode.RunRemoveMemberProcedure", [&](const Statements& run) {
    const MemberLines member =
        run([&] { return ReadMember(Need(codeModule), memberName, insert::CurrentMemberKind); });
    if (member.Body < 1) return;
    String memberKey;
    static_cast<void>(mFunctions::GetKEYDeclare(codeModule, member.Body, memberKey));
    insert::MemberName = memberName;
    const String effective = EffectiveScheme(mode, memberKey, schemeName);
    if (effective == insert::SkipScheme) return;
    const int index = insert::ReturnIndexErrorHandlerScheme(effective);
    const String label =
        index == insert::NoScheme
            ? String()
            : insert::LabelOf(insert::mRecord_ErrorHandlerScheme[static_cast<std::size_t>(index)]);
    const auto lines = RemoveErrorHandlerScheme(member.Text, label);
    if (!lines) return;
    run([&] {
      ReplaceLines(*codeModule, member.Body, member.Length, member.Body,
                   vb::Join(*lines, vb::CrLf));
    });
  });
}

void RunRemoveComponentModule(const std::shared_ptr<host::CodeModule>& codeModule) {
  Routine(u"mRemoveErrorHandlerCode.RunRemoveComponentModule", [&](const Statements& run) {
    String moduleKey;
    static_cast<void>(mFunctions::GetKEYDeclare(codeModule, 2, moduleKey));
    const MemberTable members = mFunctions::AllNameProcedures(codeModule, u"");
    if (!members) return;
    if (HandlerProgress() != nullptr) {
      HandlerProgress()->SetPRBCount2(static_cast<double>(members->size()));
    }
    int index = 0;
    // A module once begun is finished.
    for (const Member& member : *members) {
      run([&] { ShowHandlerMember(member.Name, index++); });
      insert::CurrentMemberKind = member.Kind == MemberKindControlEvent ? 0 : member.Kind;
      RunRemoveMemberProcedure(codeModule, member.Name, moduleKey, insert::ComponentMode);
    }
  });
}

void RunRemoveErrorHandlerCode(const std::shared_ptr<host::VBComponents>& components,
                               StringView scope) {
  HandlerRun steps;
  steps.Title = u"Remove Error Handler Code";
  steps.InProject = [](host::VBComponent& component) {
    if (const auto module = component.CodeModule()) RunRemoveComponentModule(module);
  };
  steps.Component = [](const auto& module) { RunRemoveComponentModule(module); };
  steps.Member = [](const auto& module, StringView member) {
    RunRemoveMemberProcedure(module, member, u"", insert::MethodMode);
  };
  RunHandlers(u"mRemoveErrorHandlerCode.RunRemoveErrorHandlerCode", steps, components, scope);
}

}  // namespace tessel::mRemoveErrorHandlerCode
