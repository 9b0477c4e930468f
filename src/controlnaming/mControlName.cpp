#include "controlnaming/mControlName.h"

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

}  // namespace

String NamesUpdated(StringView text, const std::vector<String>& eventProcedures, StringView oldName,
                    StringView newName) {
  String updated(text);
  for (const String& procedure : eventProcedures) {
    const String renamed = vb::Replace(procedure, oldName, newName);
    if (renamed != procedure) updated = vb::Replace(updated, procedure, renamed);
  }
  for (const Delimiters& by : Table) {
    updated = vb::Replace(updated, Enclosed(by, oldName), Enclosed(by, newName));
  }
  return updated;
}

void RunUpdateCodeName(const std::shared_ptr<host::CodeModule>& codeModule, StringView oldName,
                       StringView newName) {
  Routine(u"mControlName.RunUpdateCodeName", [&](const Statements& run) {
    if (!codeModule) return;
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
