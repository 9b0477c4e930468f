#include "contextmenu/mMenuList.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "contextmenu/frmContextMenu.h"
#include "scanning/mFunctions.h"

namespace tessel::mMenuList {
namespace {

/// Puts a word in at the caret, which stands behind it then. What is selected stays.
void InsertAtCaret(const Statements& run, host::CodePane& pane, StringView word) {
  const auto module = run([&] { return pane.CodeModule(); });
  if (!module) return;
  // Where the caret isn't known, nothing goes in.
  const auto selection = run([&] { return std::optional(pane.GetSelection()); });
  if (!selection) return;
  const int line = selection->EndLine;
  const auto lines = run([&] { return std::optional(module->CountOfLines()); });
  if (!lines) return;
  const auto ahead = static_cast<std::size_t>(std::max(1, selection->EndColumn) - 1);
  const bool inserted = run([&] {
    if (line > *lines) {
      module->InsertLines(line, word);
    } else {
      String text = module->Lines(line, 1);
      text.insert(std::min(ahead, text.size()), word);
      module->ReplaceLine(line, text);
    }
    return true;
  });
  if (!inserted) return;
  const int behind = static_cast<int>(ahead + word.size()) + 1;
  run([&] { pane.SetSelection({line, behind, line, behind}); });
}

}  // namespace

std::vector<String> MemberNames(const std::shared_ptr<host::CodeModule>& codeModule) {
  std::vector<String> names;
  std::unordered_set<String> known;
  const MemberTable members = mFunctions::AllNameProcedures(codeModule, u"");
  if (!members) return names;
  for (const Member& member : *members) {
    if (known.insert(vb::UCase(member.Name)).second) names.push_back(member.Name);
  }
  return names;
}

String ShowMembers(const std::shared_ptr<host::VBE>& vbe, int codeX, int codeY) {
  String chosen;
  Routine(u"mMenuList.ShowMembers", [&](const Statements& run) {
    const auto pane = run([&] { return Need(vbe).ActiveCodePane(); });
    if (!pane) return;
    const auto form = std::make_shared<frmContextMenu>();
    form->ArrayMenu = MemberNames(run([&] { return pane->CodeModule(); }));
    if (form->ArrayMenu.empty()) return;
    form->hwndCODE = run([&] { return Need(pane->Window()).HWnd(); });
    form->CodeX = codeX;
    form->CodeY = codeY;
    run([&] { form->Show(platform::ShowStyle::Modal); });
    chosen = form->ItemMenu;
    run([&] { form->Unload(); });
    if (!chosen.empty()) InsertAtCaret(run, *pane, chosen);
  });
  return chosen;
}

}  // namespace tessel::mMenuList
