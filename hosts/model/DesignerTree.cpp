#include "hosts/model/DesignerTree.h"

#include <algorithm>

#include "hosts/model/LineBuffer.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::model {
namespace {

/// Columns that the environment pads a property's name to.
constexpr std::size_t NameWidth = 16;

constexpr double GreatestIndex = 32767;
constexpr std::size_t LongestIndex = 5;  // digits

StringView WithoutEnd(StringView line) {
  while (!line.empty() && (line.back() == u'\r' || line.back() == u'\n')) line.remove_suffix(1);
  return line;
}

StringView Trimmed(StringView line) {
  line = WithoutEnd(line);
  while (!line.empty() && (line.front() == u' ' || line.front() == u'\t')) line.remove_prefix(1);
  while (!line.empty() && (line.back() == u' ' || line.back() == u'\t')) line.remove_suffix(1);
  return line;
}

StringView Indent(StringView line) {
  return line.substr(0, std::min(line.size(), line.find_first_not_of(u" \t")));
}

/// Raw lines with their ends.
std::vector<StringView> RawLines(StringView text) {
  std::vector<StringView> lines;
  while (!text.empty()) {
    std::size_t end = text.find_first_of(u"\r\n");
    if (end == StringView::npos) {
      end = text.size();
    } else {
      end += text.substr(end, 2) == vb::CrLf ? 2 : 1;
    }
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

StringView FirstWord(StringView line) { return line.substr(0, line.find_first_of(u" \t")); }

/// The name of a "Name = value" line, empty for any other.
String PropertyNameOf(StringView line) {
  const std::size_t equals = line.find(u'=');
  return equals == StringView::npos ? String() : String(Trimmed(line.substr(0, equals)));
}

/// Takes "Begin Class Name" apart. A class may be a GUID with a name of its own behind it.
void ReadBegin(DesignerNode& node, StringView line) {
  StringView rest = Trimmed(line.substr(FirstWord(line).size()));
  const std::size_t blank = rest.find_last_of(u" \t");
  node.Class = String(Trimmed(rest.substr(0, blank)));
  if (blank != StringView::npos) node.Name = String(Trimmed(rest.substr(blank)));
}

String QuotedOrPlain(StringView value, const std::optional<String>& before) {
  const bool wasText = before && !before->empty() && before->front() == u'"';
  const bool literal = vb::IsNumeric(value) || vb::SameText(value, u"True") ||
                       vb::SameText(value, u"False") || value.substr(0, 2) == u"&H";
  if (literal && !wasText) return String(value);
  return u"\"" + vb::Replace(value, u"\"", u"\"\"") + u"\"";
}

}  // namespace

String PlainValue(StringView raw) {
  raw = Trimmed(raw);
  if (!raw.empty() && raw.front() == u'"') {
    String text;
    for (std::size_t at = 1; at < raw.size(); ++at) {
      if (raw[at] == u'"') {
        if (at + 1 >= raw.size() || raw[at + 1] != u'"') break;
        ++at;
      }
      text += raw[at];
    }
    return text;
  }
  return String(Trimmed(raw.substr(0, raw.find(u'\''))));
}

/// A block inside may be held longer than its container.
DesignerNode::~DesignerNode() {
  for (const Item& item : Items) {
    if (item.Child) item.Child->Parent = nullptr;
  }
}

std::optional<String> DesignerNode::RawValue(StringView property) const {
  for (const Item& item : Items) {
    if (item.Child || !vb::SameText(item.PropertyName, property)) continue;
    return String(Trimmed(StringView(item.Line).substr(item.Line.find(u'=') + 1)));
  }
  return std::nullopt;
}

std::optional<String> DesignerNode::RawLine(StringView property) const {
  for (const Item& item : Items) {
    if (!item.Child && vb::SameText(item.PropertyName, property)) return item.Line;
  }
  return std::nullopt;
}

int DesignerNode::ArrayIndex() const {
  const auto raw = RawValue(u"Index");
  const String plain = raw ? PlainValue(*raw) : String();
  if (plain.empty() || plain.size() > LongestIndex || !vb::IsNumeric(plain)) return -1;
  const double index = vb::Val(plain);
  return index >= 0 && index <= GreatestIndex ? static_cast<int>(index) : -1;
}

DesignerTree::DesignerTree(StringView head) {
  DesignerNode* open = nullptr;
  int propertyDepth = 0, number = 0, openedAt = 0;
  for (const StringView raw : RawLines(head)) {
    ++number;
    const StringView line = Trimmed(raw);
    const StringView word = FirstWord(line);
    if (number == 1 && raw.size() > WithoutEnd(raw).size()) {
      lineEnd_ = String(raw.substr(WithoutEnd(raw).size()));
    }
    if (open == nullptr && (root_ || !vb::SameText(word, u"Begin"))) {
      lead_.emplace_back(raw);
      continue;
    }
    if (vb::SameText(word, u"BeginProperty")) ++propertyDepth;
    if (vb::SameText(word, u"EndProperty") && propertyDepth > 0) {
      --propertyDepth;
      open->Items.push_back({String(raw), {}, nullptr});
    } else if (propertyDepth > 0) {
      open->Items.push_back({String(raw), {}, nullptr});
    } else if (vb::SameText(word, u"Begin")) {
      auto node = std::make_shared<DesignerNode>();
      node->BeginLine = String(raw);
      node->Parent = open;
      ReadBegin(*node, line);
      if (open == nullptr) {
        root_ = node;
        openedAt = number;
      } else {
        open->Items.push_back({{}, {}, node});
      }
      open = node.get();
    } else if (vb::SameText(line, u"End")) {
      open->EndLine = String(raw);
      open = open->Parent;
    } else {
      open->Items.push_back({String(raw), PropertyNameOf(line), nullptr});
    }
  }
  if (open != nullptr) {
    throw vb::Failure(vb::InvalidCall,
                      u"the block that begins on line " + vb::Str(openedAt) + u" never ends",
                      u"Tessel.workspace");
  }
}

namespace {

void Collect(DesignerNode& node, std::vector<DesignerNode*>& found) {
  for (const auto& item : node.Items) {
    if (!item.Child) continue;
    found.push_back(item.Child.get());
    Collect(*item.Child, found);
  }
}

void Write(const DesignerNode& node, String& out) {
  out += node.BeginLine;
  for (const auto& item : node.Items) {
    if (item.Child) {
      Write(*item.Child, out);
    } else {
      out += item.Line;
    }
  }
  out += node.EndLine;
}

}  // namespace

std::vector<DesignerNode*> BlocksInside(DesignerNode& node) {
  std::vector<DesignerNode*> found;
  Collect(node, found);
  return found;
}

std::vector<DesignerNode*> DesignerTree::Controls() const {
  return root_ ? BlocksInside(*root_) : std::vector<DesignerNode*>();
}

String DesignerTree::Text() const {
  String text;
  for (const String& line : lead_) text += line;
  if (root_) Write(*root_, text);
  return text;
}

namespace {

/// Properties and blocks stand apart: where the first block stands.
auto FirstBlock(DesignerNode& node) {
  return std::find_if(node.Items.begin(), node.Items.end(),
                      [](const auto& item) { return item.Child != nullptr; });
}

auto LineOf(DesignerNode& node, StringView property) {
  return std::find_if(node.Items.begin(), node.Items.end(), [&](const auto& item) {
    return !item.Child && vb::SameText(item.PropertyName, property);
  });
}

}  // namespace

void DesignerTree::SetProperty(DesignerNode& node, StringView property, StringView value) {
  SetRawValue(node, property, QuotedOrPlain(value, node.RawValue(property)));
}

void DesignerTree::SetRawValue(DesignerNode& node, StringView property, StringView raw) {
  const auto item = LineOf(node, property);
  if (item == node.Items.end()) {
    const String indent = String(Indent(node.BeginLine)) + u"   ";
    const std::size_t pad = property.size() < NameWidth ? NameWidth - property.size() : 1;
    node.Items.insert(FirstBlock(node), {indent + String(property) + String(pad, u' ') + u"=   " +
                                             String(raw) + lineEnd_,
                                         String(property), nullptr});
  } else {
    const StringView line = WithoutEnd(item->Line);
    const String end = item->Line.substr(line.size());
    const std::size_t start = line.find_first_not_of(u" \t", line.find(u'=') + 1);
    item->Line = String(line.substr(0, start)) + String(raw) + end;
  }
  Touched();
}

void DesignerTree::PutLine(DesignerNode& node, StringView property,
                           const std::optional<String>& line) {
  const auto item = LineOf(node, property);
  if (item != node.Items.end() && line) {
    item->Line = *line;
  } else if (item != node.Items.end()) {
    node.Items.erase(item);
  } else if (line) {
    node.Items.insert(FirstBlock(node), {*line, String(property), nullptr});
  }
  Touched();
}

void DesignerTree::Rename(DesignerNode& node, StringView name) {
  const std::size_t at = node.Name.empty() ? String::npos : node.BeginLine.rfind(node.Name);
  if (at != String::npos) {
    node.BeginLine.replace(at, node.Name.size(), name);
  } else {
    const StringView end = StringView(node.BeginLine).substr(WithoutEnd(node.BeginLine).size());
    node.BeginLine = String(Indent(node.BeginLine)) + u"Begin " + node.Class + u" " + String(name) +
                     u" " + String(end);
  }
  node.Name = String(name);
  Touched();
}

void DesignerTree::RenameReferences(StringView file, StringView newFile) {
  const String reference = u"\"" + String(file) + u"\":";
  const auto rename = [&](DesignerNode& node) {
    for (auto& item : node.Items) {
      // Behind a text there is no colon, so that a text that says the same is none.
      const std::size_t place = vb::InStr(item.Line, reference, vb::Compare::Text);
      if (item.Child || place == 0 || item.Line.find(u'=') > place) continue;
      item.Line.replace(place, file.size(), newFile);
    }
  };
  if (!root_) return;
  rename(*root_);
  for (DesignerNode* const node : Controls()) rename(*node);
  Touched();
}

DesignerNode& DesignerTree::Add(DesignerNode& parent, StringView className, StringView name,
                                bool onTop) {
  auto node = std::make_shared<DesignerNode>();
  const String indent = String(Indent(parent.BeginLine)) + u"   ";
  node->Class = String(className);
  node->Name = String(name);
  node->Parent = &parent;
  node->BeginLine = indent + u"Begin " + node->Class + u" " + node->Name + u" " + lineEnd_;
  node->EndLine = indent + u"End" + lineEnd_;
  parent.Items.insert(onTop ? FirstBlock(parent) : parent.Items.end(), {{}, {}, node});
  Touched();
  return *node;
}

TakenBlock DesignerTree::Take(DesignerNode& node) {
  if (node.Parent == nullptr) throw vb::RuntimeFailure(vb::InvalidCall);
  DesignerNode& parent = *node.Parent;
  const auto item = std::find_if(parent.Items.begin(), parent.Items.end(),
                                 [&](const auto& one) { return one.Child.get() == &node; });
  if (item == parent.Items.end()) throw vb::RuntimeFailure(vb::InvalidCall);
  TakenBlock taken{item->Child, parent.weak_from_this(),
                   static_cast<std::size_t>(item - parent.Items.begin())};
  parent.Items.erase(item);
  node.Parent = nullptr;
  Touched();
  return taken;
}

void DesignerTree::PutBack(const TakenBlock& block) {
  const auto parent = block.Parent.lock();
  if (!Holds(parent.get())) throw vb::RuntimeFailure(vb::ObjectNotSet);
  const std::size_t position = std::min(block.Position, parent->Items.size());
  parent->Items.insert(parent->Items.begin() + static_cast<std::ptrdiff_t>(position),
                       {{}, {}, block.Node});
  block.Node->Parent = parent.get();
  Touched();
}

bool DesignerTree::Holds(const DesignerNode* node) const {
  while (node != nullptr && node->Parent != nullptr) node = node->Parent;
  return node != nullptr && node == root_.get();
}

}  // namespace tessel::model
