#include "hosts/batch/EditorSnippets.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "snippets/TabStops.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void Fail(const std::string& file, const std::string& why) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(file + ": " + why), u"Tessel");
}

/// Blanks in the place of comments and of commas ahead of a closing bracket, so that every place
/// keeps its line.
std::string PlainJson(std::string text) {
  std::size_t comma = std::string::npos;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char sign = text[at];
    if (sign == '"') {
      for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\') ++at;
      }
      comma = std::string::npos;
    } else if (sign == '/' && at + 1 < text.size() &&
               (text[at + 1] == '/' || text[at + 1] == '*')) {
      const bool line = text[at + 1] == '/';
      const std::size_t end = text.find(line ? "\n" : "*/", at + 2);
      const std::size_t stop = end == std::string::npos ? text.size() : end + (line ? 0 : 2);
      std::replace_if(
          text.begin() + static_cast<std::ptrdiff_t>(at),
          text.begin() + static_cast<std::ptrdiff_t>(stop), [](char one) { return one != '\n'; },
          ' ');
      at = stop - 1;
    } else if (sign == ',') {
      comma = at;
    } else if (sign == '}' || sign == ']') {
      if (comma != std::string::npos) text[comma] = ' ';
      comma = std::string::npos;
    } else if (sign != ' ' && sign != '\t' && sign != '\r' && sign != '\n') {
      comma = std::string::npos;
    }
  }
  return text;
}

Json Parse(std::string_view bytes, const std::string& file) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const std::string text = PlainJson(std::string(bytes));
  // Of each open object its keys: a second one would take the place of the first in silence.
  std::vector<std::set<std::string>> keys;
  std::string doubled;
  const auto look = [&](int, Json::parse_event_t event, Json& parsed) {
    if (event == Json::parse_event_t::object_start) keys.emplace_back();
    if (event == Json::parse_event_t::object_end) keys.pop_back();
    if (event == Json::parse_event_t::key && doubled.empty() &&
        !keys.back().insert(parsed.get<std::string>()).second) {
      doubled = parsed.get<std::string>();
    }
    return true;
  };
  try {
    Json all = Json::parse(text, look);
    if (!doubled.empty()) Fail(file, "holds \"" + doubled + "\" twice");
    return all;
  } catch (const Json::parse_error& error) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
    Fail(file + ":" + std::to_string(1 + std::count(text.begin(), end, '\n')),
         "the file is no JSON");
  }
}

/// A text, or a list of texts joined by `separator`.
String TextOf(const Json& value, StringView separator, const std::string& file,
              const std::string& where) {
  if (value.is_string()) return vb::FromUtf8(value.get<std::string>());
  String text;
  if (!value.is_array()) Fail(file, where + " is neither a text nor a list of texts");
  for (const Json& one : value) {
    if (!one.is_string()) Fail(file, where + " holds something that is no text");
    text += (text.empty() && &one == &value.front() ? String() : String(separator)) +
            vb::FromUtf8(one.get<std::string>());
  }
  return text;
}

String WithCrLf(const String& text) {
  return vb::Replace(vb::Replace(text, u"\r\n", u"\n"), u"\n", u"\r\n");
}

NamedFragment ReadOne(const std::string& name, const Json& snippet, const std::string& file) {
  const std::string where = "the snippet \"" + name + "\"";
  if (!snippet.is_object() || !snippet.contains("body")) Fail(file, where + " has no body");
  NamedFragment record;
  record.Name = vb::FromUtf8(name);
  record.Fragment.Text =
      WithCrLf(WithoutTabStops(TextOf(snippet["body"], u"\n", file, "the body of " + where)));
  if (!record.Fragment.Text.empty()) record.Fragment.Text += u"\r\n";
  String notes;
  const auto add = [&](const char* key, StringView title) {
    if (!snippet.contains(key)) return;
    const String text = TextOf(snippet[key], u", ", file, std::string(key) + " of " + where);
    if (!text.empty()) notes += (notes.empty() ? u"" : u"\r\n") + String(title) + text;
  };
  add("description", u"");
  add("prefix", u"Prefix: ");
  add("scope", u"Scope: ");
  record.Fragment.TextUserNotes = WithCrLf(notes);
  return record;
}

}  // namespace

std::vector<NamedFragment> ReadEditorSnippets(std::string_view bytes, const std::string& file) {
  const Json all = Parse(bytes, file);
  if (!all.is_object()) Fail(file, "holds no snippets by name");
  std::vector<NamedFragment> records;
  for (const auto& [name, snippet] : all.items()) records.push_back(ReadOne(name, snippet, file));
  return records;
}

}  // namespace tessel::batch
