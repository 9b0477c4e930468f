#include "hosts/batch/NamesCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>
#include <vector>

#include "controlnaming/CSQLControlType.h"
#include "hosts/batch/PersonalDatabase.h"

namespace tessel::batch {
namespace {

using JsonText = nlohmann::ordered_json;

/// A control that a form's head has, with the file's line on which it begins.
struct FoundControl {
  String Name, Class;
  int Line = 0;
};

int LinesOf(const model::DesignerNode& node) {
  int lines = 2;
  for (const auto& item : node.Items) lines += item.Child ? LinesOf(*item.Child) : 1;
  return lines;
}

/// Notes on which line each block begins.
void NoteLines(const model::DesignerNode& node, int& line,
               std::map<const model::DesignerNode*, int>& lines) {
  lines[&node] = line++;
  for (const auto& item : node.Items) {
    if (item.Child) {
      NoteLines(*item.Child, line, lines);
    } else {
      ++line;
    }
  }
  ++line;
}

/// The controls of a component in the order of its file, those of a control array once.
std::vector<FoundControl> ControlsOf(const model::VBComponent& component) {
  const auto& designer = component.OwnDesigner();
  if (!designer || designer->Tree().Root() == nullptr) return {};
  const model::DesignerTree& tree = designer->Tree();
  const String text = tree.Text();
  int line =
      static_cast<int>(std::count(text.begin(), text.end(), u'\n')) - LinesOf(*tree.Root()) + 1;
  std::map<const model::DesignerNode*, int> lines;
  NoteLines(*tree.Root(), line, lines);
  std::vector<FoundControl> controls;
  std::set<String> known;
  for (const model::DesignerNode* node : tree.Controls()) {
    if (!known.insert(vb::UCase(node->Name)).second) continue;
    controls.push_back({node->Name, node->Class.substr(node->Class.find(u'.') + 1), lines[node]});
  }
  return controls;
}

/// The prefixes of the table, each class asked for once.
class Prefixes {
 public:
  const String& Of(const String& className) {
    const auto known = known_.find(className);
    if (known != known_.end()) return known->second;
    // No class is called so, and no statement could ask for it.
    const bool nameable = className.find(u'"') == String::npos;
    return known_[className] = nameable ? table_.GetPrefixControl(className) : String();
  }

 private:
  CSQLControlType table_;
  std::map<String, String> known_;
};

/// One run of the command.
class NameCheck {
 public:
  NameCheck(const NamesCommand& order, const Streams& streams)
      : request_(order.Request),
        json_(order.Json),
        streams_(streams),
        report_(streams, order.Request, delivery_, "looked through"),
        shared_(OpenPersonal(SchemeData(order.Data))) {}

  int Run() {
    ForEachComponent(request_, report_, streams_.Out,
                     [this](const ComponentRef& one) { Component(one); });
    if (json_) PrintJson(streams_.Out, all_);
    Close();
    if (report_.HasFailed()) return Failed;
    return lacking_ > 0 ? WouldChange : Done;
  }

 private:
  void Component(const ComponentRef& one) {
    for (const FoundControl& control : ControlsOf(*one.Component)) {
      const String& prefix = prefixes_.Of(control.Class);
      if (prefix.empty()) continue;
      // With its case: "Frame1" is what the environment calls a frame, and not named by anybody.
      if (control.Name.starts_with(prefix)) {
        ++having_;
      } else {
        ++lacking_;
        Tell(one, control, prefix);
      }
    }
  }

  void Tell(const ComponentRef& one, const FoundControl& control, const String& prefix) {
    if (json_) {
      all_.push_back({{"project", vb::ToUtf8(one.Project)},
                      {"component", vb::ToUtf8(one.Name)},
                      {"file", one.File},
                      {"line", control.Line},
                      {"name", vb::ToUtf8(control.Name)},
                      {"class", vb::ToUtf8(control.Class)},
                      {"prefix", vb::ToUtf8(prefix)}});
      return;
    }
    streams_.Out << one.File << ':' << control.Line << ": " << vb::ToUtf8(control.Name) << " ("
                 << vb::ToUtf8(control.Class) << ") lacks the prefix " << vb::ToUtf8(prefix)
                 << '\n';
  }

  void Close() {
    if (request_.Quiet || lacking_ + having_ == 0) return;
    streams_.Err << lacking_ << " without the prefix, " << having_ << " with it\n";
  }

  const Selection& request_;
  bool json_;
  const Streams& streams_;
  Delivery delivery_;
  Report report_;
  SharedDatabase shared_;
  Prefixes prefixes_;
  JsonText all_ = JsonText::array();
  int lacking_ = 0, having_ = 0;
};

}  // namespace

CLI::App* NamesCommand::Declare(CLI::App& program) {
  auto* const names = DeclareListing(
      program, "names", "List the controls whose names lack the prefix of their class");
  names->add_option("--data", Data, "take the prefixes of this program's directory")
      ->default_str("the user's, or the delivered ones");
  return names;
}

int NamesCommand::Run(const Streams& streams) { return NameCheck(*this, streams).Run(); }

}  // namespace tessel::batch
