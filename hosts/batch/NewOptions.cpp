// The options of tessel new, each of which is a field of the record.

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "hosts/batch/NewCommand.h"

namespace tessel::batch {
namespace {

using Json = nlohmann::ordered_json;
using Record = std::shared_ptr<Json>;

enum class Sort { Text, Flag, Off, List };

struct OptionRow {
  const char* Kinds;   ///< first letters of the kinds that have it: p q c e
  const char* Option;  ///< its name is that of the field, but for "--no-" in front
  Sort Type;
  const char* Help;
};

/// Texts of an option that may come again and again.
constexpr int MostTexts = 1'000'000;

constexpr char Procedure = 'p', Property = 'q', Collection = 'c', Enum = 'e';

constexpr OptionRow Options[] = {
    {"pqce", "name", Sort::Text, "name (of the collection class: the base class and an S)"},
    {"p", "type", Sort::Text, "Sub or Function (Sub)"},
    {"q", "type", Sort::Text, "type of the value (Boolean)"},
    {"pqe", "accessibility", Sort::Text, "Public, Private, Friend or nothing (Public)"},
    {"pq", "static", Sort::Flag, "a Static one"},
    {"p", "argument", Sort::List, "a finished argument, as \"ByVal Count As Long\" (repeatable)"},
    {"p", "return-type", Sort::Text, "type of a Function"},
    {"q", "prefix", Sort::Text, "prefix of variable and parameter (that of the type)"},
    {"q", "member-variable", Sort::Text, "prefix of the variable alone"},
    {"q", "no-get", Sort::Off, "without a Property Get"},
    {"q", "set", Sort::Flag, "Property Set in the place of Property Let"},
    {"c", "base-class", Sort::Text, "class of the items"},
    {"c", "variable-prefix", Sort::Text, "prefix of the private variable (m_Col)"},
    {"c", "exists", Sort::Flag, "a safe Item, and a function Exists"},
    {"e", "prefix", Sort::Text, "prefix of every member"},
    {"e", "member", Sort::List, "a member, as \"Red\" or \"Red = 1\" (repeatable)"},
    {"pqce", "header", Sort::Flag, "the comment in full"},
    {"pqce", "description", Sort::Text, "description in the comment"},
    {"pqce", "author", Sort::Text, "author in the full comment"},
    {"pqce", "date-time", Sort::Text, "date in the full comment"},
};

void AddOption(CLI::App& command, const OptionRow& row, const Record& record) {
  const std::string option = std::string("--") + row.Option, name = row.Option;
  switch (row.Type) {
    case Sort::Text:
      command.add_option_function<std::string>(
          option, [record, name](const std::string& text) { (*record)[name] = text; }, row.Help);
      break;
    case Sort::Flag:
      command.add_flag_callback(
          option, [record, name] { (*record)[name] = true; }, row.Help);
      break;
    case Sort::Off:
      command.add_flag_callback(
          option, [record, name] { (*record)[name.substr(3)] = false; }, row.Help);
      break;
    case Sort::List:
      // A text in brackets is no list: without the extra ones it is taken as it stands.
      command
          .add_option_function<std::vector<std::string>>(
              option,
              [record, name](const std::vector<std::string>& texts) {
                (*record)[name + "s"] = texts;
              },
              row.Help)
          ->expected(1, MostTexts)
          ->allow_extra_args(false);
      break;
  }
}

/// An empty word is a variable of the shell that was forgotten: it would change what is done.
std::string Needed(const std::string& text) { return text.empty() ? "is empty" : std::string(); }

/// Where the records come from and where their text goes.
void AddPlaces(CLI::App& command, NewRequest& request) {
  command
      .add_option("--from", request.From,
                  "a JSON file with one record or a list of them; - for standard input")
      ->check(Needed);
  command
      .add_option("--into", request.Into,
                  "write into this project, group or component file; without it the text is "
                  "printed")
      ->check(Needed);
  command.add_option("--code-page", request.CodePage, "code page of the files; guessed without it");
  command.add_option("--data", request.Data, "take the types of this program's directory")
      ->check(Needed);
}

/// A collection has no use for it: it makes classes of its own.
void AddComponent(CLI::App& command, NewRequest& request) {
  command
      .add_option("--component", request.Component,
                  "the component it goes into; of a component file its own without it")
      ->check(Needed);
  command.add_flag("--new-component", request.NewComponent,
                   "make the component as a module when it isn't there");
}

void AddKind(CLI::App& app, NewRequest& request, const char* name, char letter, const char* help) {
  auto* const command = app.add_subcommand(name, help);
  const auto record = std::make_shared<Json>(Json::object());
  for (const OptionRow& row : Options) {
    if (std::string(row.Kinds).find(letter) != std::string::npos) {
      AddOption(*command, row, record);
    }
  }
  AddPlaces(*command, request);
  if (letter != Collection) AddComponent(*command, request);
  command->callback([&request, record, name] {
    request.Kind = name;
    if (!request.From.empty() && !record->empty()) {
      throw CLI::ValidationError("--from stands alone: the record is in the file");
    }
    request.Record = record->dump();
  });
}

}  // namespace

void AddNew(CLI::App& app, NewRequest& request) {
  auto* const added = app.add_subcommand("new", "Write procedures, properties, classes, enums");
  added->require_subcommand(0, 1);
  AddPlaces(*added, request);
  AddComponent(*added, request);
  added->callback([added, &request] {
    if (added->get_subcommands().empty() && request.From.empty()) {
      throw CLI::RequiredError("A kind, or --from with records that name theirs,");
    }
  });
  AddKind(*added, request, "procedure", Procedure, "A Sub or Function");
  AddKind(*added, request, "property", Property, "A member variable and its Property procedures");
  AddKind(*added, request, "collection", Collection, "A class around a Collection of one class");
  AddKind(*added, request, "enum", Enum, "An Enum");
}

}  // namespace tessel::batch
