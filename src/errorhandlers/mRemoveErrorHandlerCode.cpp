#include "errorhandlers/mRemoveErrorHandlerCode.h"

#include <algorithm>

#include "errorhandlers/HandlersScope.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel::mRemoveErrorHandlerCode {
namespace {

namespace insert = mInsertErrorHandlerCode;

/// Above every margin that a line can have.
constexpr int NoMargin = 9999;

using insert::ContainsText;

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

class Removal : public HandlersScope {
 public:
  explicit Removal(insert::RunContext& context)
      : HandlersScope(context, u"mRemoveErrorHandlerCode.RunRemoveErrorHandlerCode",
                      u"Remove Error Handler Code") {}

 private:
  void InProject(const Statements&, host::VBComponent&, const ModulePtr& module) override {
    if (module) RunRemoveComponentModule(context_, module);
  }
  std::optional<int> InComponent(const Statements&, const ModulePtr& module) override {
    RunRemoveComponentModule(context_, module);
    return 1;
  }
  void Member(const ModulePtr& module, StringView name) override {
    RunRemoveMemberProcedure(context_, module, name, u"", insert::MethodMode);
  }
};

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

void RunRemoveMemberProcedure(insert::RunContext& context,
                              const std::shared_ptr<host::CodeModule>& codeModule,
                              StringView memberName, StringView schemeName, int mode) {
  Routine(u"mRemoveErrorHandlerCode.RunRemoveMemberProcedure", [&](const Statements& run) {
    const MemberText member = ReadMember(run, codeModule, memberName, context.CurrentMemberKind);
    if (member.Body < 1) return;
    String memberKey;
    static_cast<void>(mFunctions::GetKEYDeclare(codeModule, member.Body, memberKey));
    context.MemberName = memberName;
    const String effective = EffectiveScheme(mode, memberKey, schemeName);
    if (effective == insert::SkipScheme) return;
    const ErrorHandlerScheme* const scheme = insert::FindScheme(context, effective);
    const String label = scheme == nullptr ? String() : insert::LabelOf(context, *scheme);
    if (const auto lines = RemoveErrorHandlerScheme(member.Text, label)) {
      ReplaceMember(run, context, codeModule, member, memberName, vb::Join(*lines, vb::CrLf));
    }
  });
}

void RunRemoveComponentModule(insert::RunContext& context,
                              const std::shared_ptr<host::CodeModule>& codeModule) {
  Routine(u"mRemoveErrorHandlerCode.RunRemoveComponentModule", [&](const Statements& run) {
    String moduleKey;
    static_cast<void>(mFunctions::GetKEYDeclare(codeModule, 2, moduleKey));
    // A module once begun is finished.
    ForEachMember(run, context, codeModule, [&](StringView name) {
      RunRemoveMemberProcedure(context, codeModule, name, moduleKey, insert::ComponentMode);
      return true;
    });
  });
}

RunResult RunRemoveErrorHandlerCode(insert::RunContext& context,
                                    const std::shared_ptr<host::VBComponents>& components,
                                    StringView scope) {
  return Removal(context).Over(components, scope);
}

}  // namespace tessel::mRemoveErrorHandlerCode
