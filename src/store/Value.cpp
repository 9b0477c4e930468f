#include "store/Value.h"

#include <utility>

#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::store {
namespace {

struct AsText {
  String operator()(Null) const { return {}; }
  String operator()(bool value) const { return value ? u"True" : u"False"; }
  String operator()(std::int64_t value) const { return vb::Str(value); }
  String operator()(double value) const { return vb::NumberText(value); }
  String operator()(String& value) const { return std::move(value); }
};

struct AsLong {
  std::int32_t operator()(Null) const { return 0; }
  std::int32_t operator()(bool value) const { return value ? -1 : 0; }
  std::int32_t operator()(std::int64_t value) const { return vb::CLng(static_cast<double>(value)); }
  std::int32_t operator()(double value) const { return vb::CLng(value); }
  std::int32_t operator()(const String& value) const { return value.empty() ? 0 : vb::CLng(value); }
};

struct AsBoolean {
  bool operator()(Null) const { return false; }
  bool operator()(bool value) const { return value; }
  bool operator()(std::int64_t value) const { return value != 0; }
  bool operator()(double value) const { return value != 0; }
  bool operator()(const String& value) const {
    if (vb::SameText(value, u"True")) return true;
    if (vb::SameText(value, u"False")) return false;
    return vb::CLng(value) != 0;
  }
};

}  // namespace

String ToText(Value value) { return std::visit(AsText{}, value); }
std::int32_t ToLong(const Value& value) { return std::visit(AsLong{}, value); }
bool ToBoolean(const Value& value) { return std::visit(AsBoolean{}, value); }
bool IsNull(const Value& value) { return std::holds_alternative<Null>(value); }

}  // namespace tessel::store
