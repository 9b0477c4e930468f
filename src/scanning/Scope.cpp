#include "scanning/Scope.h"

#include "scanning/mFunctions.h"

namespace tessel::scope {

String Text(StringView word, StringView name) { return String(word) + u" [" + String(name) + u"]"; }

bool Is(StringView scope, StringView word) {
  return vb::SameText(vb::Left(scope, word.size()), word);
}

StringView Target(StringView scope) {
  const std::size_t open = scope.find(u'[');
  if (open == StringView::npos || open + 2 > scope.size()) return {};
  return scope.substr(open + 1, scope.size() - open - 2);
}

String GetProjectForFormated(const std::shared_ptr<host::VBE>& vbe, ActiveMember& active) {
  String list;
  Routine(u"mFormatText.GetProjectForFormated", [&](const Statements& run) {
    list.clear();
    active.ActiveMemberName.clear();
    const auto project = run([&] { return Need(vbe).ActiveVBProject(); });
    if (!project) return;
    if (const auto pane = run([&] { return Need(vbe).ActiveCodePane(); })) {
      const host::Selection selection = run([&] { return Need(pane).GetSelection(); });
      active.SelStartLine = selection.StartLine;
      active.SelStartColumn = selection.StartColumn;
      const auto module = run([&] { return Need(pane).CodeModule(); });
      host::vbext_ProcKind kind{};
      String& name = active.ActiveMemberName;
      name = run([&] { return Need(module).ProcOfLine(active.SelStartLine, kind); });
      if (!name.empty()) list += Text(Method, name) + u"|";
      list += Text(Component, run([&] { return Need(module).Name(); })) + u"|";
      if (!name.empty()) {
        active.ActiveMemberKind =
            mFunctions::MemberKindAtLine(module, name, active.SelStartLine, false);
      }
    }
    list += Text(Project, run([&] { return Need(project).Name(); }));
  });
  return list;
}

void ListScopes(const Statements& run, forms::ComboBox& combo,
                const std::shared_ptr<host::VBE>& vbe, ActiveMember& active) {
  const String scopes = GetProjectForFormated(vbe, active);
  run([&] { mFunctions::AddListInCombobox(combo, vb::Split(scopes, u"|")); });
}

void ShowLine(const Statements& run, const std::shared_ptr<host::CodeModule>& module, int line) {
  const auto pane = run([&] { return Need(module).CodePane(); });
  if (!pane) return;
  run([&] { pane->SetTopLine(line); });
  run([&] { pane->SetSelection({line, 1, line, 1}); });
}

}  // namespace tessel::scope
