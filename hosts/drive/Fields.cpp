#include "hosts/drive/Fields.h"

#include <limits>

#include "vb/Failure.h"

namespace tessel::drive {
namespace {

const Json& Need(const Json& request, const char* field) {
  const auto found = request.find(field);
  if (found == request.end()) Refuse(std::string("missing field \"") + field + '"');
  return *found;
}

[[noreturn]] void WrongType(const char* field, const char* wanted) {
  Refuse(std::string("field \"") + field + "\" must be " + wanted);
}

bool IsAbsent(const Json& request, const char* field) {
  const auto found = request.find(field);
  return found == request.end() || found->is_null();
}

String TextOf(const Json& value, const char* field) {
  if (!value.is_string()) WrongType(field, "a text");
  return vb::FromUtf8(value.get_ref<const std::string&>());
}

}  // namespace

void Refuse(const std::string& message) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(message), u"Tessel.drive");
}

String TextField(const Json& request, const char* field) {
  return TextOf(Need(request, field), field);
}

int IntField(const Json& request, const char* field) {
  const Json& value = Need(request, field);
  if (!value.is_number_integer()) WrongType(field, "a whole number");
  const auto number = value.get<std::int64_t>();
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) {
    WrongType(field, "a 32-bit number");
  }
  return static_cast<int>(number);
}

double NumberField(const Json& request, const char* field) {
  const Json& value = Need(request, field);
  if (!value.is_number()) WrongType(field, "a number");
  return value.get<double>();
}

bool BoolField(const Json& request, const char* field) {
  const Json& value = Need(request, field);
  if (!value.is_boolean()) WrongType(field, "true or false");
  return value.get<bool>();
}

std::vector<String> TextListField(const Json& request, const char* field) {
  const Json& value = Need(request, field);
  if (!value.is_array()) WrongType(field, "a list of texts");
  std::vector<String> texts;
  for (const Json& one : value) texts.push_back(TextOf(one, field));
  return texts;
}

const Json& ObjectField(const Json& request, const char* field) {
  const Json& value = Need(request, field);
  if (!value.is_object()) WrongType(field, "an object");
  return value;
}

String TextField(const Json& request, const char* field, StringView byDefault) {
  return IsAbsent(request, field) ? String(byDefault) : TextField(request, field);
}

int IntField(const Json& request, const char* field, int byDefault) {
  return IsAbsent(request, field) ? byDefault : IntField(request, field);
}

}  // namespace tessel::drive
