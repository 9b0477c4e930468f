#include "hosts/model/DesignerTree.h"

#include <algorithm>

#include "hosts/model/LineBuffer.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::model {
namespace {

/// Columns that the environment pads a property's name to.
constexpr std::size_t NameWidth = 16;

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

std::optional<String> DesignerNode::RawValue(StringView property) const {
  for (const Item& item : Items) {
    if (item.Child || !vb::SameText(item.PropertyName, property)) continue;
    return String(Trimmed(StringView(item.Line).substr(item.Line.find(u'=') + 1)));
  }
  return std::nullopt;
}

int DesignerNode::ArrayIndex() const {
  const auto raw = RawValue(u"Index");
  return raw ? vb::CLng(vb::Val(PlainValue(*raw))) : -1;
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

std::vector<DesignerNode*> DesignerTree::Controls() const {
  std::vector<DesignerNode*> found;
  if (root_) Collect(*root_, found);
  return found;
}

String DesignerTree::Text() const {
  String text;
  for (const String& line : lead_) text += line;
  if (root_) Write(*root_, text);
  return text;
}

void DesignerTree::SetProperty(DesignerNode& node, StringView property, StringView value) {
  Touched();
  for (auto& item : node.Items) {
    if (item.Child || !vb::SameText(item.PropertyName, property)) continue;
    const std::size_t equals = item.Line.find(u'=');
    const std::size_t start = item.Line.find_first_not_of(u" \t", equals + 1);
    const StringView end = StringView(item.Line).substr(WithoutEnd(item.Line).size());
    item.Line = item.Line.substr(0, std::min(start, item.Line.size())) +
                QuotedOrPlain(value, node.RawValue(property)) + String(end);
    return;
  }
  const String indent = String(Indent(node.BeginLine)) + u"   ";
  const std::size_t pad = property.size() < NameWidth ? NameWidth - property.size() : 1;
  // Properties stand ahead of the blocks.
  const auto place = std::find_if(node.Items.begin(), node.Items.end(),
                                  [](const auto& item) { return item.Child != nullptr; });
  node.Items.insert(place, {indent + String(property) + String(pad, u' ') + u"=   " +
                                QuotedOrPlain(value, std::nullopt) + lineEnd_,
                            String(property), nullptr});
}

void DesignerTree::Rename(DesignerNode& node, StringView name) {
  Touched();
  const StringView end = StringView(node.BeginLine).substr(WithoutEnd(node.BeginLine).size());
  node.BeginLine = String(Indent(node.BeginLine)) + u"Begin " + node.Class + u" " + String(name) +
                   u" " + String(end);
  node.Name = String(name);
}

DesignerNode& DesignerTree::Add(DesignerNode& parent, StringView className, StringView name) {
  Touched();
  auto node = std::make_shared<DesignerNode>();
  const String indent = String(Indent(parent.BeginLine)) + u"   ";
  node->Class = String(className);
  node->Name = String(name);
  node->Parent = &parent;
  node->BeginLine = indent + u"Begin " + node->Class + u" " + node->Name + u" " + lineEnd_;
  node->EndLine = indent + u"End" + lineEnd_;
  parent.Items.push_back({{}, {}, node});
  return *node;
}

void DesignerTree::Remove(DesignerNode& node) {
  Touched();
  std::erase_if(node.Parent->Items, [&](const auto& item) { return item.Child.get() == &node; });
}

}  // namespace tessel::model
