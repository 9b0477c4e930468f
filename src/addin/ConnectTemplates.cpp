// Statement templates and scheme markers at the caret.

#include "addin/Connect.h"
#include "foundation/Routine.h"
#include "scanning/MemberText.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

using ModulePtr = std::shared_ptr<host::CodeModule>;

/// The member at a line.
MemberText FindMember(const Statements& run, const ModulePtr& module, int line) {
  host::vbext_ProcKind ignored{};
  const String name = run([&] { return Need(module).ProcOfLine(line, ignored); });
  if (name.empty()) return {};
  return ReadMember(run, module, name, mFunctions::MemberKindAtLine(module, name, line, false));
}

bool IsMarker(StringView line) { return vb::StartsWithText(line, mFunctions::KeyCommentHead); }

/// Puts the marker above the member that holds the line; true when a line was added.
bool MarkMember(const Statements& run, const ModulePtr& module, int line, const String& marker) {
  const int body = FindMember(run, module, line).Body;
  if (body < 1) return false;
  if (body > 1 && IsMarker(run([&] { return Need(module).Lines(body - 1, 1); }))) {
    run([&] { Need(module).ReplaceLine(body - 1, marker); });
    return false;
  }
  run([&] { Need(module).InsertLines(body, marker); });
  return true;
}

/// Puts the marker into the declarations; true when a line was added.
bool MarkModule(const Statements& run, const ModulePtr& module, int declarations,
                const String& marker) {
  for (int line = 1; line <= declarations; ++line) {
    if (!IsMarker(run([&] { return Need(module).Lines(line, 1); }))) continue;
    run([&] { Need(module).ReplaceLine(line, marker); });
    return false;
  }
  run([&] { Need(module).InsertLines(1, marker); });
  return true;
}

}  // namespace

String Connect::ReturnInsertStr(const std::vector<String>& lines, int indent) {
  String text;
  Routine(u"Connect.ReturnInsertStr", [&] {
    text.clear();
    for (const String& line : lines) text += vb::Space(indent) + line + String(vb::CrLf);
  });
  return text;
}

namespace {

/// Inserts a template into the pane's module, where it stands inside a member.
void InsertTemplate(const Statements& run, host::CodePane& pane, const std::vector<String>& lines,
                    int column, int lineOffset, int length) {
  // The end of the selection does not count: the template goes ahead of its first line.
  const host::Selection at = run([&] { return pane.GetSelection(); });
  const auto module = run([&] { return pane.CodeModule(); });
  const int declarations = run([&] { return Need(module).CountOfDeclarationLines(); });
  const MemberText member = FindMember(run, module, at.StartLine);
  const bool inside = at.StartLine > declarations && at.StartLine > member.Body && member.Body >= 1;
  if (!inside) return;
  // The head's continuation lines push the template down, wherever in the member the caret stands.
  const int line = at.StartLine + mFunctions::DopLine(member.Text);
  run([&] { Need(module).InsertLines(line, Connect::ReturnInsertStr(lines, at.StartColumn)); });
  const int first = at.StartColumn + column;
  run([&] { pane.SetSelection({line + lineOffset, first, line + lineOffset, first + length}); });
}

}  // namespace

void Connect::InsertTextInComponent(const std::vector<String>& lines, int column, int lineOffset,
                                    int length) {
  Run(u"Connect.InsertTextInComponent", [&](const Statements& run) {
    const auto project = run([&] { return Need(vbInstance_).ActiveVBProject(); });
    const auto pane =
        project ? run([&] { return Need(Need(project).VBE()).ActiveCodePane(); }) : nullptr;
    if (pane) InsertTemplate(run, Need(pane), lines, column, lineOffset, length);
    RefreshTreeExplorer(false);
  });
}

void Connect::InsertErrStrInComponent(StringView text) {
  Run(u"Connect.InsertErrStrInComponent", [&](const Statements& run) {
    const auto projects = run([&] { return Need(vbInstance_).VBProjects(); });
    const auto project = run([&] { return Need(Need(projects).VBE()).ActiveVBProject(); });
    const auto pane = run([&] { return Need(vbInstance_).ActiveCodePane(); });
    if (!project || !pane) return;
    host::Selection at = run([&] { return Need(pane).GetSelection(); });
    const auto module = run([&] { return Need(pane).CodeModule(); });
    const int declarations = run([&] { return Need(module).CountOfDeclarationLines(); });
    const int total = run([&] { return Need(module).CountOfLines(); });
    const String marker = String(mFunctions::KeyCommentHead) + String(text);
    const bool inMember = at.StartLine > declarations && total != declarations;
    const bool added = inMember ? MarkMember(run, module, at.StartLine, marker)
                                : MarkModule(run, module, declarations, marker);
    if (added) {
      ++at.StartLine;
      ++at.EndLine;
    }
    run([&] { Need(pane).SetSelection(at); });
    RefreshTreeExplorer(true);
  });
}

}  // namespace tessel
