// Source text: logical lines, members, key comments.

#include "scanning/mFunctions.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "foundation/CAppSettings.h"
#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel::mFunctions {
namespace {

using host::vbext_ProcKind;
using ModulePtr = std::shared_ptr<host::CodeModule>;

/// Lines that one kind of a name covers; 0 and 0 when the name has no such kind.
struct Span {
  int Start = 0, Count = 0;
  [[nodiscard]] bool Holds(int line) const { return Start <= line && line <= Start + Count; }
};

/// A kind that the name doesn't have fails at the host; that is no failure here.
Span ReadSpan(host::CodeModule& module, StringView name, vbext_ProcKind kind) {
  Span span;
  if (!module.MayHaveProc(name, kind)) return span;
  ResumeNext([&] { span.Count = module.ProcCountLines(name, kind); });
  ResumeNext([&] { span.Start = module.ProcStartLine(name, kind); });
  return span;
}

/// A kind read as the second walk reads it: start first.
Span ReadSpanFromStart(host::CodeModule& module, StringView name, vbext_ProcKind kind) {
  Span span;
  if (!module.MayHaveProc(name, kind)) return span;
  ResumeNext([&] { span.Start = module.ProcStartLine(name, kind); });
  ResumeNext([&] { span.Count = module.ProcCountLines(name, kind); });
  return span;
}

constexpr vbext_ProcKind SpanOrder[] = {host::vbext_pk_Proc, host::vbext_pk_Set, host::vbext_pk_Let,
                                        host::vbext_pk_Get};
constexpr vbext_ProcKind KindOrder[] = {host::vbext_pk_Set, host::vbext_pk_Get, host::vbext_pk_Let};

/// The part of a name ahead of its last underscore; nothing without one.
std::optional<StringView> HeadOfName(StringView name) {
  const std::size_t underscore = vb::InStrRev(name, u"_");
  if (underscore == 0) return std::nullopt;
  return vb::Left(name, underscore - 1);
}

/// Names without regard to case.
using NameSet = std::unordered_set<String>;

NameSet FoldedNames(const std::vector<String>& names) {
  NameSet folded;
  for (const String& name : names) folded.insert(vb::LCase(name));
  return folded;
}

/// Whether a name is that of a control followed by an underscore and an event.
bool IsControlEvent(StringView name, const NameSet& controls) {
  const auto head = HeadOfName(name);
  return head && controls.count(vb::LCase(*head)) > 0;
}

void MarkControlEvents(const ModulePtr& module, std::vector<Member>& members) {
  const auto controls = VBAArrayControlName(module);
  if (!controls) return;
  const NameSet folded = FoldedNames(*controls);
  for (Member& member : members) {
    if (IsControlEvent(member.Name, folded)) member.Kind = MemberKindControlEvent;
  }
}

/// The first line behind `line` that another member, or another kind of this one, holds. Members of
/// equal name and kind, as conditional compilation allows them, can't be told apart by name: the
/// later one is passed over.
int LineBehindUnknown(host::CodeModule& module, int line, StringView name) {
  const int end = module.CountOfLines();
  vbext_ProcKind kind{};
  int next = line + 1;
  while (next < end && vb::SameText(module.ProcOfLine(next, kind), name)) ++next;
  return next;
}

}  // namespace

String DeleteUnderline(StringView text) {
  String result;
  Routine(u"mFunctions.DeleteUnderline", [&] {
    constexpr StringView Mark = u" _\r\n";
    result.clear();
    result.reserve(text.size());
    StringView rest = text;
    do {
      const std::size_t at = rest.find(Mark);
      if (at == StringView::npos) {
        result += rest;
        return;
      }
      result += rest.substr(0, at);
      result += u' ';
      rest = vb::LTrim(rest.substr(at + Mark.size()));
      // Blanks at the very end are trimmed with each join; once is enough.
      rest = vb::RTrim(rest);
    } while (!rest.empty());
  });
  return result;
}

int DopLine(StringView text) {
  int count = 0;
  Routine(u"mFunctions.DopLine", [&] {
    count = 0;
    for (StringView rest = text;;) {
      const std::size_t end = rest.find(vb::CrLf);
      if (vb::Right(rest.substr(0, end), 1) != u"_") return;
      ++count;
      if (end == StringView::npos) return;
      rest.remove_prefix(end + vb::CrLf.size());
    }
  });
  return count;
}

void MemberSpanAtLine(const ModulePtr& codeModule, StringView name, int line, int& kind,
                      int& bodyLine, int& countLines, int& startLine) {
  Routine(u"mFunctions.MemberSpanAtLine", [&](const Statements& run) {
    Span spans[std::size(SpanOrder)];
    for (std::size_t at = 0; at < std::size(SpanOrder); ++at) {
      spans[at] = ReadSpan(Need(codeModule), name, SpanOrder[at]);
    }
    for (std::size_t at = 0; at < std::size(SpanOrder); ++at) {
      if (!spans[at].Holds(line)) continue;
      kind = SpanOrder[at];
      startLine = spans[at].Start;
      countLines = spans[at].Count;
      bodyLine = run([&] { return Need(codeModule).ProcBodyLine(name, SpanOrder[at]); });
      return;
    }
  });
}

MemberTable AllNameProcedures(const ModulePtr& codeModule, StringView) {
  MemberTable result;
  Routine(u"mFunctions.AllNameProcedures", [&](const Statements& run) {
    if (!codeModule) return;
    std::vector<Member> members;
    int line = run([&] { return Need(codeModule).CountOfDeclarationLines(); }) + 1;
    while (line < run([&] { return Need(codeModule).CountOfLines(); })) {
      Member member;
      vbext_ProcKind unused{};
      member.Name = run([&] { return Need(codeModule).ProcOfLine(line, unused); });
      MemberSpanAtLine(codeModule, member.Name, line, member.Kind, member.BodyLine,
                       member.CountLines, member.StartLine);
      if (member.CountLines <= 0) {
        line = run([&] { return LineBehindUnknown(Need(codeModule), line, member.Name); });
        if (line == 0) return;
        continue;
      }
      line += member.CountLines;
      members.push_back(std::move(member));
    }
    if (members.empty()) return;
    MarkControlEvents(codeModule, members);
    result = std::move(members);
  });
  return result;
}

int MemberKindAtLine(const ModulePtr& codeModule, StringView name, int line,
                     bool detectControlEvents) {
  int result = 0;
  Routine(u"mFunctions.MemberKindAtLine", [&] {
    result = 0;
    if (ReadSpanFromStart(Need(codeModule), name, host::vbext_pk_Proc).Holds(line)) {
      if (!detectControlEvents || !HeadOfName(name)) return;
      const auto controls = VBAArrayControlName(codeModule);
      if (controls && IsControlEvent(name, FoldedNames(*controls))) result = MemberKindControlEvent;
      return;
    }
    for (const vbext_ProcKind kind : KindOrder) {
      if (ReadSpanFromStart(Need(codeModule), name, kind).Holds(line)) {
        result = kind;
        return;
      }
    }
  });
  return result;
}

StringView MemberKindToken(int kind) {
  switch (kind) {
    case host::vbext_pk_Let:
      return u" [Let]";
    case host::vbext_pk_Set:
      return u" [Set]";
    case host::vbext_pk_Get:
      return u" [Get]";
    case MemberKindControlEvent:
      return u" [Ctl]";
    default:
      return u" [Proc]";
  }
}

std::optional<std::vector<String>> VBAArrayControlName(const ModulePtr& codeModule) {
  std::optional<std::vector<String>> names;
  ResumeNext([&] {
    if (!codeModule) return;
    const auto designer = Need(codeModule).Parent()->Designer();
    if (!designer) return;
    const auto controls = designer->VBControls();
    if (!controls || controls->Count() <= 0) return;
    names.emplace();
    for (int index = 1; index <= controls->Count(); ++index) {
      names->push_back(controls->Item(index)->Properties()->Item(u"Name")->Value());
    }
  });
  return names;
}

namespace {

/// The key behind the head of a key comment; nothing when the line is none.
std::optional<String> KeyOf(StringView line) {
  const StringView text = vb::Trim(line);
  if (!vb::StartsWithText(text, KeyCommentHead)) return std::nullopt;
  return String(vb::Trim(text.substr(KeyCommentHead.size())));
}

}  // namespace

bool GetKEYDeclare(const ModulePtr& codeModule, int line, String& key) {
  bool found = false;
  Routine(u"mFunctions.GetKEYDeclare", [&](const Statements& run) {
    key.clear();
    if (line - 1 <= 0) return;
    const String above = run([&] { return Need(codeModule).Lines(line - 1, 1); });
    if (auto scheme = KeyOf(above)) {
      key = *std::move(scheme);
      found = true;
    }
  });
  return found;
}

String GetKEYDeclareComponent(const ModulePtr& codeModule) {
  String key;
  Routine(u"mFunctions.GetKEYDeclareComponent", [&](const Statements& run) {
    if (run([&] { return Need(codeModule).CountOfDeclarationLines(); }) <= 0) return;
    const String first = run([&] { return Need(codeModule).Lines(1, 1); });
    key = KeyOf(first).value_or(String());
  });
  return key;
}

namespace {

struct NamedValue {
  StringView Placeholder, Value;
};
using NamedValues = std::array<NamedValue, 5>;

/// Fills placeholders from left to right. Nothing where a value, or what stands around a
/// placeholder, could make another one.
std::optional<String> FillInOnePass(StringView text, const NamedValues& values) {
  for (const NamedValue& one : values) {
    if (one.Value.find_first_of(u"{}") != StringView::npos) return std::nullopt;
  }
  String result;
  for (std::size_t from = 0;;) {
    const std::size_t at = vb::FindUnit(text, u'{', from);
    result += text.substr(from, at - from);
    if (at == StringView::npos) return result;
    const StringView rest = text.substr(at);
    const auto* const found =
        std::find_if(values.begin(), values.end(),
                     [&](const NamedValue& one) { return rest.starts_with(one.Placeholder); });
    if (found != values.end()) {
      result += found->Value;
      from = at + found->Placeholder.size();
      continue;
    }
    const std::size_t next = text.find_first_of(u"{}", at + 1);
    if (next != StringView::npos && text[next] == u'{') return std::nullopt;
    result += u'{';
    from = at + 1;
  }
}

/// The order counts: what one value brings in, the later ones fill.
String FillNames(StringView text, const NamedValues& values) {
  if (auto filled = FillInOnePass(text, values)) return *std::move(filled);
  String result(text);
  for (const NamedValue& one : values) result = vb::Replace(result, one.Placeholder, one.Value);
  return result;
}

}  // namespace

String DekodeKeyWord(StringView text, StringView projectName, StringView componentName,
                     StringView memberName, StringView memberType, StringView controlName) {
  String result(text);
  Routine(u"mFunctions.DekodeKeyWord", [&](const Statements& run) {
    result = FillNames(text, {{{u"{ProjectName}", projectName},
                               {u"{ComponentName}", componentName},
                               {u"{MemberName}", memberName},
                               {u"{MemberType}", memberType},
                               {u"{ControlName}", controlName}}});
    std::size_t brace = vb::FindUnit(result, u'{');
    const auto fill = [&](StringView placeholder, const auto& value) {
      if (brace == String::npos || result.find(placeholder, brace) == String::npos) return;
      result = vb::Replace(result, placeholder, run([&] { return String(value()); }));
      brace = result.find(u'{');
    };
    const auto now = [] { return platform::Current().Clock().Now(); };
    fill(u"{ComputerName}", GetComputerName);
    fill(u"{UserName}", GetUserName);
    fill(u"{Date}", [&] { return vb::FormatDateTime(vb::DatePart(now())); });
    fill(u"{Time}",
         [&] { return vb::FormatDateTime(vb::TimePart(now()), vb::DateFormat::LongTime); });
  });
  return result;
}

void PicoutStartEnd(forms::RichTextBox& richText, StringView startText, StringView endText,
                    forms::Color color) {
  Routine(u"mFunctions.PicoutStartEnd", [&] {
    constexpr int NoHighlight = 8;
    int position = richText.Find(startText, 0, -1, NoHighlight);
    while (position >= 0) {
      const int end = richText.Find(endText, position, -1, NoHighlight);
      const int length = end - position + 1;
      richText.SetSelStart(position);
      if (length < 1) return;
      richText.SetSelLength(length);
      richText.SetSelColor(color);
      position = richText.Find(startText, position + length, -1, NoHighlight);
    }
  });
}

}  // namespace tessel::mFunctions
