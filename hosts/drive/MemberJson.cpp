#include "hosts/drive/MemberJson.h"

namespace tessel::drive {

String NameAndType(const Member& member) {
  return member.Name + String(mFunctions::MemberKindToken(member.Kind));
}

nlohmann::ordered_json MemberJson(const Member& member) {
  return {{"name", vb::ToUtf8(member.Name)},
          {"kind", member.Kind},
          {"name-and-type", vb::ToUtf8(NameAndType(member))},
          {"start-line", member.StartLine},
          {"body-line", member.BodyLine},
          {"count-lines", member.CountLines}};
}

}  // namespace tessel::drive
