#include "hosts/editing/Names.h"

#include <algorithm>

#include "hosts/model/Project.h"
#include "hosts/model/Words.h"

namespace tessel::editing {
namespace {

using model::FindWord;
using model::WordKind;

using Component = std::shared_ptr<model::VBComponent>;

/// More lines than the language lets a statement run over.
constexpr std::size_t MostAhead = 40;

bool SameName(StringView one, StringView other) {
  return one.size() == other.size() && vb::SameText(one, other);
}

/// Whether other modules see a declaration without the name of its module.
bool SeenBare(const model::VBComponent& component, const Declared& declared) {
  if (!declared.Public) return false;
  return component.PlainType() == host::vbext_ct_StdModule || declared.Kind == DeclaredKind::Type ||
         declared.Kind == DeclaredKind::Enum || declared.Kind == DeclaredKind::Value;
}

std::optional<Declared> AmongControls(const model::VBComponent& component, StringView name) {
  if (!component.OwnDesigner()) return std::nullopt;
  for (const model::DesignerNode* node : component.OwnDesigner()->Tree().Controls()) {
    if (SameName(node->Name, name)) return Declared{node->Name, DeclaredKind::Control, 0, 0, true};
  }
  return std::nullopt;
}

std::vector<Component> ComponentsOf(const model::VBComponent& component) {
  const auto project = component.Project();
  return project ? project->Components().All() : std::vector<Component>();
}

Component Shared(const model::VBComponent& component) {
  return std::const_pointer_cast<model::VBComponent>(component.shared_from_this());
}

/// The tokens of a line, and which of them a column lies in or behind.
struct Pointed {
  CutLine Line;
  std::size_t At = 0;
  [[nodiscard]] const Token& What() const { return Line.Tokens[At]; }
};

std::optional<Pointed> PointAt(model::CodeModule& module, int line, int column) {
  const model::LineBuffer& lines = module.Buffer();
  if (line < 1 || line > lines.Count() || column < 1) return std::nullopt;
  LineStart start = LineStart::Statement;
  for (const StringView ahead : LinesAhead(lines, line)) start = Cut(ahead, start).Next;
  Pointed pointed{Cut(lines.Line(line), start)};
  const auto place = static_cast<std::size_t>(column - 1);
  // Right behind a name counts as inside it, unless another one begins there.
  for (std::size_t at = pointed.Line.Tokens.size(); at-- > 0;) {
    const Token& token = pointed.Line.Tokens[at];
    if (token.Kind != TokenKind::Word && token.Kind != TokenKind::Bracketed) continue;
    if (token.At > place || token.At + token.Text.size() < place) continue;
    pointed.At = at;
    return pointed;
  }
  return std::nullopt;
}

StringView NameOf(const Token& token) {
  if (token.Kind == TokenKind::Bracketed) return token.Text.substr(1, token.Text.size() - 2);
  return WithoutSign(token.Text);
}

}  // namespace

std::vector<StringView> LinesAhead(const model::LineBuffer& lines, int line) {
  std::vector<StringView> ahead;
  while (line > 1 && ahead.size() < MostAhead &&
         Cut(lines.Line(line - 1)).Next != LineStart::Statement) {
    ahead.push_back(lines.Line(--line));
  }
  std::reverse(ahead.begin(), ahead.end());
  return ahead;
}

const Names::Head& Names::HeadOf(const std::shared_ptr<model::CodeModule>& module) {
  Head& head = heads_[module.get()];
  if (head.Module.lock() != module) head = {module, -1, {}, {}};
  if (head.Revision == module->Revision()) return head;
  head.Revision = module->Revision();
  const int count = module->Index().CountOfDeclarationLines();
  String text = count == 0 ? String() : module->Buffer().Text(1, count);
  if (text == head.Text) return head;
  head.Text = std::move(text);
  head.ByName.clear();
  for (Declared& declared : ReadDeclarations(module->Buffer(), 1, count)) {
    String key = vb::LCase(declared.Name);
    head.ByName.emplace(std::move(key), std::move(declared));
  }
  return head;
}

const std::vector<Declared>& Names::InsideOf(const std::shared_ptr<model::CodeModule>& module,
                                             int line) {
  host::vbext_ProcKind kind{};
  const String member = module->Index().ProcOfLine(line, kind);
  const auto* const span = member.empty() ? nullptr : module->Index().Find(member, kind);
  const int start = span == nullptr ? 0 : span->Body;
  if (inside_.Module.lock() == module && inside_.Revision == module->Revision() &&
      inside_.Start == start) {
    return inside_.All;
  }
  inside_ = {module, module->Revision(), start, {}};
  if (span != nullptr) {
    inside_.All = ReadDeclarations(module->Buffer(), start, span->Start + span->Count - 1);
  }
  return inside_.All;
}

std::optional<Declared> Names::InHead(const model::VBComponent& component, const Sight& sight) {
  const auto [first, last] = HeadOf(component.Module()).ByName.equal_range(vb::LCase(sight.Name));
  const Declared* found = nullptr;
  for (auto at = first; at != last; ++at) {
    const Declared& one = at->second;
    const bool field = one.Kind == DeclaredKind::Field;
    const bool seen = sight.Own      ? sight.Member || !field
                      : sight.Member ? one.Public
                                     : !field && SeenBare(component, one);
    if (seen && (found == nullptr || one.Line < found->Line)) found = &one;
  }
  return found == nullptr ? std::nullopt : std::optional(*found);
}

std::optional<Declared> Names::AmongProcedures(const model::VBComponent& component,
                                               const Sight& sight) {
  model::CodeModule& module = *component.Module();
  for (const auto kind :
       {host::vbext_pk_Proc, host::vbext_pk_Get, host::vbext_pk_Let, host::vbext_pk_Set}) {
    const auto* const span = module.Index().Find(sight.Name, kind);
    if (span == nullptr) continue;
    for (const Declared& one : ReadDeclarations(module.Buffer(), span->Body, span->Body)) {
      if (one.Kind != DeclaredKind::Procedure || !SameName(one.Name, sight.Name)) continue;
      const bool seen = sight.Own || (sight.Member ? one.Public : SeenBare(component, one));
      return seen ? std::optional(one) : std::nullopt;
    }
  }
  return std::nullopt;
}

std::optional<Declared> Names::InComponent(const model::VBComponent& component,
                                           const Sight& sight) {
  if (component.Module()) {
    if (auto found = InHead(component, sight)) return found;
    if (auto found = AmongProcedures(component, sight)) return found;
  }
  return sight.Own || sight.Member ? AmongControls(component, sight.Name) : std::nullopt;
}

std::optional<Definition> Names::Find(const model::VBComponent& component, int line,
                                      StringView name, bool member, Reach reach) {
  if (!component.Module() || name.empty()) return std::nullopt;
  if (!member) {
    for (const Declared& one : InsideOf(component.Module(), line)) {
      const bool local = one.Kind == DeclaredKind::Parameter || one.Kind == DeclaredKind::Local ||
                         one.Kind == DeclaredKind::Label;
      if (local && SameName(one.Name, name)) return Definition{Shared(component), one};
    }
  }
  if (auto found = InComponent(component, {name, member, true})) {
    return Definition{Shared(component), *std::move(found)};
  }
  const auto components = ComponentsOf(component);
  for (const Component& other : components) {
    if (other.get() == &component) continue;
    if (reach == Reach::Loaded && other->Module() && !other->Module()->IsLoaded()) continue;
    if (auto found = InComponent(*other, {name, member, false})) {
      return Definition{other, *std::move(found)};
    }
  }
  if (member) return std::nullopt;
  for (const Component& one : components) {
    if (!SameName(one->PlainName(), name)) continue;
    return Definition{one, {one->PlainName(), DeclaredKind::Component, 0, 0, true}};
  }
  return std::nullopt;
}

/// A name behind the one of a component; nothing when the qualifier is no component.
std::optional<Definition> Names::Behind(const model::VBComponent& component, StringView qualifier,
                                        StringView name) {
  if (SameName(qualifier, u"Me")) {
    auto found = InComponent(component, {name, true, true});
    return found ? std::optional(Definition{Shared(component), *std::move(found)}) : std::nullopt;
  }
  for (const Component& one : ComponentsOf(component)) {
    if (!SameName(one->PlainName(), qualifier)) continue;
    if (auto found = InComponent(*one, {name, true, false})) {
      return Definition{one, *std::move(found)};
    }
  }
  return std::nullopt;
}

std::optional<Definition> Names::At(const model::VBComponent& component, int line, int column) {
  if (!component.Module()) return std::nullopt;
  const auto pointed = PointAt(*component.Module(), line, column);
  if (!pointed) return std::nullopt;
  const StringView name = NameOf(pointed->What());
  const auto& tokens = pointed->Line.Tokens;
  const bool member = pointed->At > 0 && tokens[pointed->At - 1].Kind == TokenKind::Dot;
  if (!member && FindWord(name).Kind == WordKind::Reserved) return std::nullopt;
  if (member && pointed->At > 1 && tokens[pointed->At - 2].Kind == TokenKind::Word) {
    const StringView qualifier = tokens[pointed->At - 2].Text;
    if (auto found = Behind(component, qualifier, name)) return found;
    if (SameName(qualifier, u"Me")) return std::nullopt;
  }
  return Find(component, line, name, member);
}

String Names::NameAt(model::CodeModule& module, int line, int column) {
  const auto pointed = PointAt(module, line, column);
  return pointed ? String(NameOf(pointed->What())) : String();
}

}  // namespace tessel::editing
