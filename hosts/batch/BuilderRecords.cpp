#include "hosts/batch/BuilderRecords.h"

#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "vb/Failure.h"

namespace tessel::batch {
namespace {

using Json = nlohmann::ordered_json;

/// Text that stands in one line of code: a line end in it would end the line that it belongs to.
/// `where` says where it comes from, for a failure.
template <class Where>
String OneLine(const Json& json, const Where& where) {
  String text = vb::FromUtf8(json.get_ref<const std::string&>());
  constexpr char16_t LastControl = 0x1F, Delete = 0x7F, NextLine = 0x85;
  for (const char16_t one : text) {
    if (one <= LastControl || one == Delete || one == NextLine || one == u'\u2028' ||
        one == u'\u2029') {
      throw vb::Failure(vb::InvalidCall,
                        vb::FromUtf8(where() + " holds a line end, a tab or another control "
                                               "character"),
                        u"Tessel");
    }
  }
  return text;
}

/// Where a record comes from, in words only when something is wrong with it.
struct Origin {
  const std::string& Source;
  std::size_t Record = 0;  ///< number in a list, from 1; 0: the source is the record
  [[nodiscard]] std::string Words() const {
    return Record == 0 ? Source : Source + ": record " + std::to_string(Record);
  }
};

[[noreturn]] void FailWith(const std::string& why) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(why), u"Tessel");
}

/// Reads JSON in which no object has a field twice: one of the two would be lost. The reader of
/// JSON calls the functions in lower case.
class Parser {
 public:
  explicit Parser(const std::string& source) : source_(source) {}

  Json Parse(const std::string& json) {
    try {
      Json::sax_parse(json, this);
    } catch (const Json::parse_error& error) {
      FailWith(source_ + ": no JSON: " + error.what());
    }
    return std::move(whole_);
  }

  bool null() { return Put(nullptr); }
  bool boolean(bool value) { return Put(value); }
  bool number_integer(std::int64_t value) { return Put(value); }
  bool number_unsigned(std::uint64_t value) { return Put(value); }
  bool number_float(double value, const std::string&) { return Put(value); }
  bool string(const std::string& value) { return Put(value); }
  bool binary(const Json::binary_t& value) { return Put(value); }

  bool start_array(std::size_t) {
    if (objects_ == 0) isList_ = true;
    return Open(Json::array());
  }
  bool end_array() { return Close(); }
  bool start_object(std::size_t) {
    if (objects_++ == 0) ++record_;
    return Open(Json::object());
  }
  bool end_object() {
    --objects_;
    return Close();
  }
  bool key(const std::string& name) {
    const auto [field, isNew] = open_.back()->emplace(name, nullptr);
    if (!isNew) FailTwice(name);
    field_ = &*field;
    return true;
  }
  template <class Error>
  [[noreturn]] bool parse_error(std::size_t, const std::string&, const Error& error) {
    throw error;
  }

 private:
  /// Where the next value goes.
  Json& Place() {
    if (open_.empty()) return whole_;
    Json& parent = *open_.back();
    return parent.is_array() ? parent.emplace_back() : *field_;
  }
  template <class Value>
  bool Put(const Value& value) {
    Place() = value;
    return true;
  }
  bool Open(Json empty) {
    Json& place = Place();
    place = std::move(empty);
    open_.push_back(&place);
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }
  [[noreturn]] void FailTwice(const std::string& name) const {
    const std::string only = source_ + ": the record";
    const Origin origin = isList_ ? Origin{source_, record_} : Origin{only};
    FailWith(origin.Words() + " has the field \"" + name + "\" twice");
  }

  const std::string& source_;
  Json whole_;
  std::vector<Json*> open_;  // lists and objects; none grows while one within it is open
  Json* field_ = nullptr;    // of the innermost object
  std::size_t objects_ = 0;  // that are open
  std::size_t record_ = 0;
  bool isList_ = false;
};

/// One record on its way from JSON to choices. Each field is taken once; what is left over is a
/// field that the builder doesn't know.
class Fields {
 public:
  Fields(const Json& json, Origin origin) : json_(json), origin_(origin) {
    if (!json.is_object()) Fail("is no object");
    taken_.reserve(MostFields);
  }

  [[noreturn]] void Fail(const std::string& why) const { FailWith(origin_.Words() + " " + why); }

  /// Leaves `value` alone when the record has no such field, and answers whether it has.
  bool Text(std::string_view name, String& value) {
    const Json* const found = Take(name);
    if (found == nullptr) return false;
    if (!found->is_string()) Fail(Quoted(name) + " is no text");
    value = OneLine(*found, [&] { return origin_.Words() + " " + Quoted(name); });
    return true;
  }
  /// A text that the record must have: what a dialog opens with is a place holder.
  void Needed(std::string_view name, String& value) {
    if (!Text(name, value)) Fail("lacks the field " + Quoted(name));
  }
  void Flag(std::string_view name, bool& value) {
    if (const Json* const found = Take(name)) {
      if (!found->is_boolean()) Fail(Quoted(name) + " is neither true nor false");
      value = found->get<bool>();
    }
  }
  /// A text that is one of `words`, in their spelling.
  void Word(std::string_view name, String& value, std::initializer_list<StringView> words) {
    String text;
    if (!Text(name, text)) return;
    for (const StringView word : words) {
      if (vb::SameText(word, text)) {
        value = word;
        return;
      }
    }
    Fail(Quoted(name) + " can't be \"" + vb::ToUtf8(text) + '"');
  }
  /// Calls `item` with each element of a list.
  void List(std::string_view name, const std::function<void(const Json&, std::string)>& item) {
    const Json* const found = Take(name);
    if (found == nullptr) return;
    if (!found->is_array()) Fail(Quoted(name) + " is no list");
    const std::string where = origin_.Words() + "." + std::string(name);
    std::size_t at = 0;
    for (const Json& one : *found) item(one, where + "[" + std::to_string(at++) + "]");
  }
  /// Fails for a field that would be passed over, by what stands in its way or what it lacks.
  [[noreturn]] void FailBeside(const char* name, const char* other) const {
    Fail("can't have " + Quoted(name) + " beside " + Quoted(other));
  }
  [[noreturn]] void FailWithout(const char* name, const char* other) const {
    Fail("can't have " + Quoted(name) + " without " + Quoted(other));
  }
  /// Fails for a field that nobody took.
  void Done() const {
    for (const auto& [name, value] : json_.items()) {
      if (std::find(taken_.begin(), taken_.end(), name) == taken_.end()) {
        Fail("has a field that is not known: " + Quoted(name));
      }
    }
  }

 private:
  static constexpr std::size_t MostFields = 16;

  static std::string Quoted(std::string_view name) { return '"' + std::string(name) + '"'; }
  const Json* Take(std::string_view name) {
    taken_.push_back(name);
    const auto found = json_.find(name);
    return found == json_.end() ? nullptr : &*found;
  }

  const Json& json_;
  Origin origin_;
  std::vector<std::string_view> taken_;  // of literals
};

void ReadComment(Fields& fields, builders::HeaderChoices& comment) {
  comment.Full = false;
  fields.Flag("header", comment.Full);
  fields.Text("description", comment.Description);
  fields.Text("author", comment.Author);
  fields.Text("date-time", comment.DateTime);
  if (comment.Full) return;
  if (!comment.Author.empty()) fields.FailWithout("author", "header");
  if (!comment.DateTime.empty()) fields.FailWithout("date-time", "header");
}

void ReadScope(Fields& fields, String& accessibility, String& fixed) {
  fields.Word("accessibility", accessibility, {u"", u"Public", u"Private", u"Friend"});
  bool isStatic = false;
  fields.Flag("static", isStatic);
  if (isStatic) fixed = u"Static";
}

/// The text of an item, which is refused as its dialog would.
template <class Choices>
String TextOfItem(const Fields& fields, const Choices& choices) {
  if (const auto complaint = builders::CheckField(choices)) {
    fields.Fail(vb::ToUtf8(builders::TextOf(*complaint)));
  }
  return builders::GeneratorStrok(choices);
}

bool IsBlank(StringView text) { return text.find_first_not_of(u' ') == StringView::npos; }

/// What the dialog would disable is refused: it would be left out of the code in silence.
void CheckFields(const Fields& fields, const builders::ArgumentChoices& choices) {
  const builders::ArgumentFields counts = builders::EnabledField(choices);
  const char* const array = choices.Array ? "array" : "param-array";
  if (choices.ParamArray && !counts.ParamArray) fields.FailBeside("param-array", array);
  if (choices.Optional && !counts.Optional) fields.FailBeside("optional", array);
  if ((choices.ByRef || choices.ByVal) && !counts.Passing) fields.FailBeside("passing", array);
  if (!builders::IsNoType(choices.Type) && !counts.Type) fields.FailBeside("type", array);
  if (choices.DefaultValue.empty() || counts.DefaultValue) return;
  if (choices.Array || choices.ParamArray) fields.FailBeside("default", array);
  fields.FailWithout("default", "optional");
}

/// A finished text, or an object with the fields of the Argument Builder.
String ReadArgument(const Json& json, const std::string& where) {
  if (json.is_string()) {
    String text = OneLine(json, [&] { return where; });
    if (IsBlank(text)) FailWith(where + " is empty");
    return text;
  }
  Fields fields(json, {where});
  builders::ArgumentChoices choices;
  String passing;
  fields.Needed("name", choices.Name);
  fields.Text("type", choices.Type);
  if (IsBlank(choices.Type)) choices.Type = NoType;
  fields.Flag("array", choices.Array);
  fields.Flag("optional", choices.Optional);
  fields.Flag("param-array", choices.ParamArray);
  fields.Word("passing", passing, {u"", u"ByRef", u"ByVal"});
  fields.Text("default", choices.DefaultValue);
  fields.Done();
  choices.ByRef = passing == u"ByRef";
  choices.ByVal = passing == u"ByVal";
  CheckFields(fields, choices);
  return TextOfItem(fields, choices);
}

StringView Trimmed(StringView text) {
  if (IsBlank(text)) return {};
  const std::size_t first = text.find_first_not_of(u' ');
  return text.substr(first, text.find_last_not_of(u' ') + 1 - first);
}

/// A member as text is its name, or name and value as the fields of its dialog: "Red=1" has the
/// name "Red". A comment may stand behind the name.
String MemberOfText(StringView written, const std::string& where, const String& prefix) {
  const StringView text = Trimmed(written);
  const std::size_t end = text.find_first_of(u" =");
  if (end == StringView::npos) return prefix + String(text);
  const StringView rest = Trimmed(text.substr(end));
  if (rest.front() == u'\'') return prefix + String(text);
  if (rest.front() != u'=') {
    FailWith(where + " is neither a name nor a name, \"=\" and a value: \"" + vb::ToUtf8(text) +
             '"');
  }
  const StringView value = Trimmed(rest.substr(1));
  if (value.empty()) FailWith(where + " has no value behind its \"=\"");
  return builders::GeneratorStrok({prefix, String(text.substr(0, end)), String(value)});
}

/// A finished text, or an object with the fields of an enum's member.
String ReadMember(const Json& json, const std::string& where, const String& prefix) {
  if (json.is_string()) {
    return MemberOfText(OneLine(json, [&] { return where; }), where, prefix);
  }
  Fields fields(json, {where});
  builders::EnumMemberChoices choices;
  choices.Prefix = prefix;
  fields.Text("prefix", choices.Prefix);
  fields.Needed("name", choices.Name);
  fields.Text("value", choices.InitValue);
  fields.Done();
  if (choices.Name.find_first_of(u" =") != String::npos) {
    fields.Fail("\"name\" holds a blank or \"=\"");
  }
  if (IsBlank(choices.InitValue)) choices.InitValue.clear();
  return TextOfItem(fields, choices);
}

BuilderRecord ReadProcedure(Fields& fields) {
  builders::ProcedureChoices choices;
  fields.Needed("name", choices.Name);
  fields.Word("type", choices.Type, {u"Sub", u"Function"});
  ReadScope(fields, choices.Accessibility, choices.Static);
  fields.List("arguments", [&](const Json& json, const std::string& where) {
    choices.Arguments.push_back(ReadArgument(json, where));
  });
  if (fields.Text("return-type", choices.ReturnValueType) && !IsBlank(choices.ReturnValueType) &&
      !builders::IsNoType(choices.ReturnValueType) && !builders::HasReturnValue(choices)) {
    fields.Fail("can't have \"return-type\": a Sub returns nothing");
  }
  ReadComment(fields, choices.Comment);
  return choices;
}

void CheckType(const Fields& fields, StringView type) {
  const StringView bare = type.substr(0, type.find_last_not_of(u' ') + 1);
  if (bare.empty()) fields.Fail("\"type\" is empty");
  if (builders::IsNoType(bare)) {
    fields.Fail("\"type\" can't be \"" + vb::ToUtf8(bare) + "\": a property has a type");
  }
  // A variable says behind its name that it is an array, which no type does.
  if (bare.find(u'*') != StringView::npos) {
    fields.Fail("\"type\" can't have a length: a property's value is a String of any");
  }
  if (vb::StartsWithText(bare, u"New ")) {
    fields.Fail("\"type\" can't begin with \"New\": a property has a type alone");
  }
  if (bare.ends_with(u')')) fields.Fail("\"type\" can't be an array; a Variant holds one");
}

BuilderRecord ReadProperty(Fields& fields) {
  builders::PropertyChoices choices;
  choices.LetSet = false;
  fields.Needed("name", choices.Name);
  fields.Text("type", choices.ValueType);
  CheckType(fields, choices.ValueType);
  ReadScope(fields, choices.Accessibility, choices.Static);
  fields.Text("prefix", choices.Prefix);
  choices.MemberVariable = choices.Prefix;
  fields.Text("member-variable", choices.MemberVariable);
  fields.Flag("get", choices.Get);
  fields.Flag("set", choices.LetSet);
  ReadComment(fields, choices.Comment);
  return choices;
}

BuilderRecord ReadCollection(Fields& fields) {
  builders::CollectionChoices choices;
  fields.Needed("base-class", choices.BaseClass);
  choices.ClassName = choices.BaseClass + u"S";
  fields.Text("name", choices.ClassName);
  fields.Text("variable-prefix", choices.VariablePrefix);
  fields.Flag("exists", choices.Exists);
  ReadComment(fields, choices.Comment);
  return choices;
}

/// A member's name is its text up to the first blank.
void CheckMembers(const Fields& fields, const std::vector<String>& members) {
  std::unordered_set<String> names;  // in upper case
  for (const String& member : members) {
    const StringView name = StringView(member).substr(0, member.find(u' '));
    if (!names.insert(vb::UCase(name)).second) {
      fields.Fail("\"members\" has " + vb::ToUtf8(name) + " twice");
    }
  }
}

BuilderRecord ReadEnum(Fields& fields) {
  builders::EnumChoices choices;
  fields.Needed("name", choices.Name);
  fields.Word("accessibility", choices.Accessibility, {u"", u"Public", u"Private"});
  String prefix;
  fields.Text("prefix", prefix);
  fields.List("members", [&](const Json& json, const std::string& where) {
    choices.Parameters.push_back(ReadMember(json, where, prefix));
  });
  CheckMembers(fields, choices.Parameters);
  choices.Selected = static_cast<int>(choices.Parameters.size()) - 1;
  ReadComment(fields, choices.Comment);
  return choices;
}

struct KindRow {
  StringView Name;
  BuilderRecord (*Read)(Fields&);
};
constexpr KindRow Kinds[] = {{u"procedure", ReadProcedure},
                             {u"property", ReadProperty},
                             {u"collection", ReadCollection},
                             {u"enum", ReadEnum}};

BuilderRecord ReadRecord(const Json& json, Origin origin, const String& kind) {
  Fields fields(json, origin);
  String named = kind;
  fields.Text("kind", named);
  if (!kind.empty() && named != kind) {
    fields.Fail("is of the kind \"" + vb::ToUtf8(named) + "\", not \"" + vb::ToUtf8(kind) + '"');
  }
  for (const KindRow& row : Kinds) {
    if (row.Name != named) continue;
    BuilderRecord record = row.Read(fields);
    fields.Done();
    return record;
  }
  fields.Fail("needs a \"kind\": procedure, property, collection or enum");
}

}  // namespace

std::vector<BuilderRecord> ReadBuilderRecords(const std::string& json, const std::string& source,
                                              const std::string& kind) {
  const Json parsed = Parser(source).Parse(json);
  const String wanted = vb::FromUtf8(kind);
  std::vector<BuilderRecord> records;
  if (!parsed.is_array()) {
    const std::string only = source + ": the record";
    records.push_back(ReadRecord(parsed, {only}, wanted));
    return records;
  }
  records.reserve(parsed.size());
  for (const Json& one : parsed) {
    records.push_back(ReadRecord(one, {source, records.size() + 1}, wanted));
  }
  return records;
}

String FaultOf(const BuilderRecord& record) {
  const auto complaint =
      std::visit([](const auto& choices) { return builders::CheckField(choices); }, record);
  return complaint ? builders::TextOf(*complaint) : String();
}

const String& NameOf(const BuilderRecord& record) {
  if (const auto* const collection = std::get_if<builders::CollectionChoices>(&record)) {
    return collection->ClassName;
  }
  if (const auto* const procedure = std::get_if<builders::ProcedureChoices>(&record)) {
    return procedure->Name;
  }
  if (const auto* const property = std::get_if<builders::PropertyChoices>(&record)) {
    return property->Name;
  }
  return std::get<builders::EnumChoices>(record).Name;
}

}  // namespace tessel::batch
