#include "hosts/drive/PaneKeys.h"

#include <algorithm>

#include "hosts/model/UserInput.h"
#include "hosts/model/Vbe.h"

namespace tessel::drive {
namespace {

using model::CodePane;

constexpr int TabWidth = 4;
constexpr StringView LineEnd = u"\r\n";
constexpr char16_t Delete = 0x7F;

int LengthOf(CodePane& pane, int line) {
  const auto& lines = pane.Module()->Buffer();
  return line > lines.Count() ? 0 : static_cast<int>(lines.Line(line).size());
}

void PutCaret(CodePane& pane, int line, int column) {
  pane.SetSelection({line, column, line, column});
}

void MoveRight(CodePane& pane) {
  const host::Selection at = pane.GetSelection();
  if (at.EndColumn <= LengthOf(pane, at.EndLine)) {
    PutCaret(pane, at.EndLine, at.EndColumn + 1);
  } else if (at.EndLine < pane.Module()->Buffer().Count()) {
    PutCaret(pane, at.EndLine + 1, 1);
  } else {
    PutCaret(pane, at.EndLine, at.EndColumn);
  }
}

void MoveLeft(CodePane& pane) {
  const host::Selection at = pane.GetSelection();
  if (at.StartColumn > 1) {
    PutCaret(pane, at.StartLine, at.StartColumn - 1);
  } else if (at.StartLine > 1) {
    PutCaret(pane, at.StartLine - 1, LengthOf(pane, at.StartLine - 1) + 1);
  } else {
    PutCaret(pane, at.StartLine, at.StartColumn);
  }
}

/// Puts a text in place of what is selected.
void Type(CodePane& pane, const String& text) {
  model::CodeModule& module = *pane.Module();
  const host::Selection at = pane.GetSelection();
  if (module.Buffer().Count() == 0) {
    module.InsertLines(1, text);
  } else {
    const auto column = [](int value) { return static_cast<std::size_t>(value - 1); };
    const String head =
        String(module.Buffer().Line(at.StartLine)).substr(0, column(at.StartColumn));
    const String tail = String(module.Buffer().Line(at.EndLine)).substr(column(at.EndColumn));
    module.Edit(at.StartLine, at.EndLine - at.StartLine + 1, head + text + tail);
  }
  if (text == LineEnd) {
    PutCaret(pane, at.StartLine + 1, 1);
  } else {
    PutCaret(pane, at.StartLine, at.StartColumn + static_cast<int>(text.size()));
  }
}

/// Takes away what is selected, else what stands ahead of the caret.
void TakeBack(CodePane& pane) {
  if (pane.Module()->Buffer().Count() == 0) return;
  const host::Selection at = pane.GetSelection();
  if (at.StartLine == at.EndLine && at.StartColumn == at.EndColumn) {
    MoveLeft(pane);
    const host::Selection start = pane.GetSelection();
    pane.SetSelection({start.StartLine, start.StartColumn, at.EndLine, at.EndColumn});
  }
  Type(pane, {});
}

/// Up to the next stop.
String TabAt(CodePane& pane) {
  const int column = pane.GetSelection().StartColumn - 1;
  return String(static_cast<std::size_t>(TabWidth - column % TabWidth), u' ');
}

void Press(CodePane& pane, StringView key) {
  const auto is = [key](StringView name) { return vb::SameText(key, name); };
  if (is(u"RIGHT")) {
    MoveRight(pane);
  } else if (is(u"LEFT")) {
    MoveLeft(pane);
  } else if (is(u"ENTER")) {
    Type(pane, String(LineEnd));
  } else if (is(u"TAB")) {
    Type(pane, TabAt(pane));
  } else if (is(u"BACKSPACE")) {
    TakeBack(pane);
  } else if (key.size() == 1 && key.front() >= u' ' && key.front() != Delete) {
    Type(pane, String(key));
  }
}

/// Takes the first key from the notation.
StringView TakeKey(StringView& keys) {
  // The first unit inside belongs to the name even when it is a bracket.
  const std::size_t end = keys.front() == u'{' ? keys.find(u'}', 2) : StringView::npos;
  const bool named = end != StringView::npos;
  const StringView key = named ? keys.substr(1, end - 1) : keys.substr(0, 1);
  keys.remove_prefix(named ? end + 1 : 1);
  return key;
}

}  // namespace

void TypeInPane(model::Environment& environment, StringView keys) {
  const auto byHand = environment.WhoseCalls(model::CallsOf::Environment);
  while (!keys.empty()) {
    const StringView key = TakeKey(keys);
    // Whoever hears the key may open another pane.
    const auto front = environment.VBE()->ActiveCodePane();
    const auto pane = std::dynamic_pointer_cast<CodePane>(front);
    if (!pane || !pane->Module()) return;
    Press(*pane, key);
    model::Key(environment.OwnWindows(), pane->OwnWindow().Handle());
  }
}

}  // namespace tessel::drive
