#include "controlnaming/mControlName.h"

#include <algorithm>
#include <optional>

#include "insertion/ReplaceLines.h"
#include "scanning/mFunctions.h"

namespace tessel::mControlName {
namespace {

/// What encloses a name that is replaced.
struct Delimiters {
  StringView Left, Right;
};
constexpr StringView LineEnd = u"\r\n";
/// In this order: an occurrence that shares its delimiter with the one ahead of it is passed over.
constexpr Delimiters Table[] = {{u".", u"."},       {u" ", u" "},    {u".", u" "},   {u" ", u"."},
                                {LineEnd, LineEnd}, {u" ", LineEnd}, {u".", LineEnd}};

String Enclosed(const Delimiters& by, StringView name) {
  return String(by.Left) + String(name) + String(by.Right);
}

/// Whether a member's name is a control's followed by the name of an event.
bool IsEventOf(StringView member, StringView control) {
  const std::size_t tail = member.rfind(u'_');
  return tail != StringView::npos && vb::SameText(member.substr(0, tail), control);
}

std::vector<String> EventProcedures(const std::vector<Member>& members, StringView oldName) {
  std::vector<String> names;
  for (const Member& member : members) {
    if (member.Kind == MemberKindControlEvent || IsEventOf(member.Name, oldName)) {
      names.push_back(member.Name);
    }
  }
  return names;
}

/// A text in which nothing is found again where something was put in: the new name often ends in
/// the old one, and one procedure's name may be the start of another's.
class OnceReplaced {
 public:
  explicit OnceReplaced(StringView text) : text_(text) {}

  void Replace(StringView from, StringView to) {
    String result;
    std::vector<Range> written;
    std::size_t copied = 0;
    auto kept = written_.begin();
    const auto copyUpTo = [&](std::size_t end) {
      for (; kept != written_.end() && kept->End <= end; ++kept) {
        written.push_back(
            {kept->Begin - copied + result.size(), kept->End - copied + result.size()});
      }
      result.append(text_, copied, end - copied);
    };
    for (std::size_t at = text_.find(from); at != String::npos;) {
      const auto near =
          std::find_if(kept, written_.end(), [&](const Range& range) { return range.End > at; });
      if (near != written_.end() && near->Begin < at + from.size()) {
        at = text_.find(from, near->End);
        continue;
      }
      copyUpTo(at);
      written.push_back({result.size(), result.size() + to.size()});
      result += to;
      copied = at + from.size();
      at = text_.find(from, copied);
    }
    if (copied == 0) return;
    copyUpTo(text_.size());
    text_ = std::move(result);
    written_ = std::move(written);
  }
  [[nodiscard]] String Take() { return std::move(text_); }

 private:
  struct Range {
    std::size_t Begin, End;
  };
  String text_;
  std::vector<Range> written_;  // in order, apart
};

}  // namespace

String NamesUpdated(StringView text, const std::vector<String>& eventProcedures, StringView oldName,
                    StringView newName) {
  OnceReplaced procedures(text);
  for (const String& procedure : eventProcedures) {
    const String renamed = vb::Replace(procedure, oldName, newName);
    if (renamed != procedure) procedures.Replace(procedure, renamed);
  }
  String updated = procedures.Take();
  for (const Delimiters& by : Table) {
    updated = vb::Replace(updated, Enclosed(by, oldName), Enclosed(by, newName));
  }
  return updated;
}

void RunUpdateCodeName(const std::shared_ptr<host::CodeModule>& codeModule, StringView oldName,
                       StringView newName) {
  Routine(u"mControlName.RunUpdateCodeName", [&](const Statements& run) {
    // A control of a damaged form may lack a name: blanks that stand together enclose none.
    if (!codeModule || oldName.empty() || oldName == newName) return;
    const int count = run([&] { return codeModule->CountOfLines(); });
    if (count < 1) return;
    // A module that could not be read must not be written back empty.
    const auto text = run([&] { return std::optional(codeModule->Lines(1, count)); });
    if (!text) return;
    const MemberTable members = mFunctions::AllNameProcedures(codeModule, u"");
    if (!members) return;
    const String updated =
        NamesUpdated(*text, EventProcedures(*members, oldName), oldName, newName);
    if (updated != *text) ReplaceLines(run, codeModule, {1, count, *text}, 1, updated);
  });
}

}  // namespace tessel::mControlName
