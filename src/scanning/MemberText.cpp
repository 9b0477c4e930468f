#include "scanning/MemberText.h"

#include <optional>

namespace tessel {

MemberText ReadMember(const Statements& run, const std::shared_ptr<host::CodeModule>& module,
                      StringView name, int kind) {
  const auto procKind = static_cast<host::vbext_ProcKind>(kind);
  using Answer = std::optional<int>;
  const Answer body = run([&] { return Answer(Need(module).ProcBodyLine(name, procKind)); });
  const Answer count = run([&] { return Answer(Need(module).ProcCountLines(name, procKind)); });
  const Answer start = run([&] { return Answer(Need(module).ProcStartLine(name, procKind)); });
  MemberText member;
  if (!body || !count || !start) return member;
  member.Body = *body;
  member.Length = *count - (*body - *start);
  member.Text = run([&] { return Need(module).Lines(member.Body, member.Length); });
  return member;
}

}  // namespace tessel
