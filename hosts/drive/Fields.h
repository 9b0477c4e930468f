// Fields of a request, checked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/drive/Channel.h"
#include "vb/Text.h"

namespace tessel::drive {

/// Fails with that message; it becomes the reply's "error".
[[noreturn]] void Refuse(const std::string& message);

// Each fails, naming the field, when it is missing or of another type.
[[nodiscard]] String TextField(const Json& request, const char* field);
[[nodiscard]] int IntField(const Json& request, const char* field);
[[nodiscard]] double NumberField(const Json& request, const char* field);
[[nodiscard]] bool BoolField(const Json& request, const char* field);
[[nodiscard]] std::vector<String> TextListField(const Json& request, const char* field);
[[nodiscard]] const Json& ObjectField(const Json& request, const char* field);

/// The field, or the default when it is missing or null.
[[nodiscard]] String TextField(const Json& request, const char* field, StringView byDefault);
[[nodiscard]] int IntField(const Json& request, const char* field, int byDefault);

}  // namespace tessel::drive
