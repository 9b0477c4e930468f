#include "hosts/workspace/ComponentFile.h"

#include <algorithm>

#include "hosts/files/AtomicFile.h"
#include "hosts/model/Declarations.h"
#include "hosts/model/Project.h"
#include "hosts/model/Statements.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/ComponentKinds.h"
#include "hosts/workspace/Paths.h"
#include "vb/Failure.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr StringView AttributeWord = u"Attribute ";

/// The text between the quotes of an attribute line.
std::string_view QuotedIn(std::string_view line) {
  const std::size_t open = line.find('"');
  const std::size_t close = line.rfind('"');
  return open == std::string_view::npos || close <= open ? std::string_view()
                                                         : line.substr(open + 1, close - open - 1);
}

StringView EndText(model::LineEnd end) {
  switch (end) {
    case model::LineEnd::Lf:
      return u"\n";
    case model::LineEnd::Cr:
      return u"\r";
    default:
      return vb::CrLf;
  }
}

/// Head and attributes of components that have no file yet.
constexpr StringView NewClassHead =
    u"VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\n  Persistable = 0  "
    u"'NotPersistable\r\n"
    u"  DataBindingBehavior = 0  'vbNone\r\n  DataSourceBehavior  = 0  'vbNone\r\n"
    u"  MTSTransactionMode  = 0  'NotAnMTSObject\r\nEND\r\n";

String NewAttributes(const model::VBComponent& component) {
  String name = u"Attribute VB_Name = \"" + component.PlainName() + u"\"\r\n";
  if (component.PlainType() == host::vbext_ct_StdModule) return name;
  const bool form = component.PlainType() == host::vbext_ct_VBForm ||
                    component.PlainType() == host::vbext_ct_VBMDIForm;
  return name + u"Attribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = " +
         (form ? u"False" : u"True") + u"\r\nAttribute VB_PredeclaredId = " +
         (form ? u"True" : u"False") + u"\r\nAttribute VB_Exposed = False\r\n";
}

/// The owner in "Attribute Owner.VB_UserMemId = 0"; empty for an attribute of the component itself.
String OwnerOf(StringView line) {
  const StringView rest = line.substr(AttributeWord.size());
  const std::size_t point = vb::InStr(rest, u".VB_", vb::Compare::Text);
  return point == 0 ? String() : String(vb::Trim(rest.substr(0, point - 1)));
}

bool IsHidden(StringView line) {
  return vb::StartsWithText(line, AttributeWord) && !OwnerOf(line).empty();
}

/// Hangs an attribute that stood behind visible line `behind` on the statement that it belongs to.
void Hang(model::LineBuffer& lines, int behind, model::HiddenLine hidden) {
  int line = behind;
  if (behind > 0) {
    hidden.Within = model::StatementEnd(lines, behind) != behind;
    if (!hidden.Within) line = model::StatementStart(lines, behind);
    for (const auto& one : model::DeclarationsIn(lines, line, 1, lines.Count())) {
      if (vb::SameText(one.Name, hidden.Owner)) hidden.Kind = one.Kind;
    }
  }
  model::HiddenLines all = lines.HiddenAt(line);
  all.push_back(std::move(hidden));
  lines.SetHidden(line, std::move(all));
}

}  // namespace

ComponentFile::ComponentFile(fs::path path, std::string bytes)
    : path_(std::move(path)), bytes_(std::move(bytes)) {
  FindParts();
}

ComponentFile::ComponentFile(fs::path path, const model::VBComponent& component, int codePage)
    : path_(std::move(path)),
      type_(component.PlainType()),
      codePage_(codePage),
      isNew_(true),
      newHead_(type_ == host::vbext_ct_ClassModule ? String(NewClassHead) : String()),
      newAttributes_(NewAttributes(component)) {}

void ComponentFile::Fail(int line, StringView why) const {
  throw vb::Failure(vb::InvalidCall, TextOf(path_) + u":" + vb::Str(line) + u": " + String(why),
                    u"Tessel.workspace");
}

String ComponentFile::FileName() const { return isNew_ ? String() : TextOf(path_); }

std::string_view ComponentFile::Part(std::size_t from, std::size_t to) const {
  return std::string_view(bytes_).substr(from, to - from);
}

void ComponentFile::FindParts() {
  if (const ComponentKind* const kind = KindOf(path_)) type_ = kind->Type;
  if (bytes_.compare(0, 2, "\xFF\xFE") == 0 || bytes_.compare(0, 2, "\xFE\xFF") == 0) {
    Fail(1,
         u"the file is in UTF-16, which the development environment doesn't read; save it in the "
         u"project's code page or in UTF-8");
  }
  if (bytes_.compare(0, Utf8Mark.size(), Utf8Mark) == 0) {
    bom_ = Utf8Mark.size();
    codePage_ = Utf8CodePage;
  }
  // Some programs fill a file up with NUL bytes behind its text.
  codeEnd_ = LengthWithoutPadding(bytes_);
  const std::size_t nul = bytes_.find('\0');
  if (nul < codeEnd_) {
    Fail(LineNumber(bytes_, nul), u"the file holds NUL bytes and is no source text");
  }
  FindHeadEnd();
  codeStart_ = headEnd_;
  while (codeStart_ < codeEnd_) {
    const std::size_t next = std::min(NextLine(bytes_, codeStart_), codeEnd_);
    if (!StartsWith(Trimmed(Part(codeStart_, next)), "attribute vb_")) break;
    codeStart_ = next;
  }
}

/// The head reaches from VERSION to the End of the outermost block.
void ComponentFile::FindHeadEnd() {
  headEnd_ = bom_;
  const std::string_view text = Part(0, codeEnd_);
  if (!StartsWith(text.substr(bom_), "version ")) return;
  int depth = 0;
  std::size_t begun = 0;
  for (std::size_t at = bom_; at < text.size();) {
    const std::size_t next = NextLine(text, at);
    const std::string_view line = Trimmed(Part(at, next));
    if (StartsWith(line, "begin ") || Lower(line.substr(0, 6)) == "begin") {
      if (depth++ == 0) begun = at;
      if (StartsWith(line, "begin vb.mdiform ")) type_ = host::vbext_ct_VBMDIForm;
    } else if (line.size() == 3 && StartsWith(line, "end") && depth > 0) {
      if (--depth == 0) {
        headEnd_ = next;
        return;
      }
    } else if (depth == 0 && StartsWith(line, "attribute vb_")) {
      headEnd_ = at;
      return;
    }
    at = next;
  }
  if (depth > 0) {
    Fail(LineNumber(text, begun), u"the designer block that begins here never ends");
  }
}

String ComponentFile::Name() const {
  for (std::size_t at = headEnd_; at < codeStart_; at = NextLine(bytes_, at)) {
    const std::string_view line = Trimmed(Part(at, NextLine(bytes_, at)));
    if (StartsWith(line, "attribute vb_name")) return Decode(QuotedIn(line), codePage_);
  }
  return TextOf(path_.stem());
}

void ComponentFile::SetCodePage(int codePage) {
  if (bom_ > 0) return;
  auto bytes = isNew_ ? InOther(bytes_, codePage) : std::nullopt;
  if (bytes && *bytes != bytes_) {
    for (Companion& one : carried_) one.Name = InOther(one.Name, codePage).value_or(one.Name);
    bytes_ = *std::move(bytes);
    FindParts();
  }
  codePage_ = codePage;
}

std::optional<std::string> ComponentFile::InOther(const std::string& bytes, int codePage) const {
  if (codePage == codePage_ || IsAscii(bytes)) return bytes;
  std::size_t at = 0;
  return Encode(Decode(bytes, codePage_), codePage, at);
}

bool ComponentFile::Suits(const model::VBComponent& component, int codePage) const {
  if (bom_ > 0) return true;
  const bool mayBe = isNew_ ? InOther(bytes_, codePage).has_value()
                            : codePage == codePage_ || IsAscii(bytes_) ||
                                  Decode(bytes_, codePage) == Decode(bytes_, codePage_);
  if (!mayBe) return false;
  if (!IsModified(component)) return true;
  ComponentFile other = *this;
  other.SetCodePage(codePage);
  try {
    static_cast<void>(other.Compose(component));
    return true;
  } catch (const vb::Failure&) {
    return false;
  }
}

bool ComponentFile::IsPlain(const model::VBComponent& component) const {
  if (bom_ > 0) return true;
  try {
    return IsAscii(IsModified(component) ? Compose(component) : bytes_);
  } catch (const vb::Failure&) {
    return false;
  }
}

std::shared_ptr<model::DesignerTree> ComponentFile::LoadDesigner() const {
  if (type_ == host::vbext_ct_StdModule || type_ == host::vbext_ct_ClassModule) return nullptr;
  if (headEnd_ == bom_) return nullptr;
  auto tree = std::make_shared<model::DesignerTree>(Decode(Part(bom_, headEnd_), codePage_));
  return tree->Root() == nullptr ? nullptr : tree;
}

model::LineBuffer ComponentFile::LoadCode() {
  const String code = Decode(Part(codeStart_, codeEnd_), codePage_);
  if (code.find(AttributeWord) == String::npos) {
    model::LineBuffer lines(code);
    endsLast_ = lines.EndsLast();
    return lines;
  }
  // Cut the attribute lines out, and hang them on their declarations.
  const model::LineBuffer all(code);
  endsLast_ = all.EndsLast();
  String visible;
  int line = 0;
  std::vector<std::pair<int, model::HiddenLine>> hidden;
  for (int at = 1; at <= all.Count(); ++at) {
    const StringView text = all.Line(at);
    if (IsHidden(text)) {
      const int order = static_cast<int>(hidden.size());
      hidden.push_back({line, {OwnerOf(text), String(text), all.EndOf(at), -1, order}});
      continue;
    }
    visible += text;
    visible += EndText(all.EndOf(at));
    ++line;
  }
  model::LineBuffer lines(visible);
  lines.SetDefaultEnd(all.DefaultEnd());
  for (auto& [behind, one] : hidden) Hang(lines, behind, std::move(one));
  return lines;
}

bool ComponentFile::IsModified(const model::VBComponent& component) const {
  const auto& designer = component.OwnDesigner();
  return isNew_ || !newName_.empty() || (component.Module() && component.Module()->IsModified()) ||
         (designer && designer->Tree().IsModified());
}

std::string ComponentFile::EncodeOrFail(StringView text, int firstLine) const {
  std::size_t at = 0;
  auto bytes = Encode(text, codePage_, at);
  if (bytes) return *std::move(bytes);
  const auto line = firstLine + static_cast<int>(model::CutLines(text.substr(0, at)).size()) - 1;
  const StringView character = text.substr(at, 1);
  Fail(line, u"the character \"" + String(character) + u"\" is not in code page " +
                 vb::Str(codePage_) + u"; nothing was written");
}

std::string ComponentFile::HeadBytes(const model::VBComponent& component) const {
  const auto& designer = component.OwnDesigner();
  if (designer && (IsBlank() || designer->Tree().IsModified())) {
    return EncodeOrFail(designer->Tree().Text(), 1);
  }
  return IsBlank() ? EncodeOrFail(newHead_, 1) : std::string(Part(bom_, headEnd_));
}

/// The attribute lines, with a new name where there is one.
std::string ComponentFile::AttributeBytes() const {
  std::string attributes =
      IsBlank() ? EncodeOrFail(newAttributes_, 1) : std::string(Part(headEnd_, codeStart_));
  if (newName_.empty()) return attributes;
  std::string result;
  bool named = false;
  for (std::size_t at = 0; at < attributes.size();) {
    const std::size_t next = NextLine(attributes, at);
    std::string line = attributes.substr(at, next - at);
    if (StartsWith(Trimmed(line), "attribute vb_name")) {
      const std::string_view old = QuotedIn(line);
      line.replace(static_cast<std::size_t>(old.data() - line.data()), old.size(),
                   EncodeOrFail(newName_, 1));
      named = true;
    }
    result += line;
    at = next;
  }
  // A file without a name of its own is named by it.
  if (!named && newName_ != TextOf(path_.stem())) {
    return EncodeOrFail(u"Attribute VB_Name = \"" + newName_ + u"\"\r\n", 1) + result;
  }
  return result;
}

std::string ComponentFile::CodeBytes(const model::VBComponent& component) const {
  if (!component.Module() || (!IsBlank() && !component.Module()->IsModified())) {
    return std::string(Part(codeStart_, codeEnd_));
  }
  const model::LineBuffer& lines = component.Module()->SettledBuffer();
  String text;
  // Few lines are hidden.
  const std::size_t units =
      lines.CountOfUnits() + vb::CrLf.size() * static_cast<std::size_t>(lines.Count());
  text.reserve(units + units / 8);
  std::size_t lastEnd = 0;
  bool lastIsEmpty = false;
  const auto add = [&](StringView line, model::LineEnd end) {
    text += line;
    lastIsEmpty = line.empty();
    lastEnd = text.size();
    text += EndText(end);
  };
  const auto addHidden = [&](int line, bool within) {
    for (const model::HiddenLine& one : lines.HiddenAt(line)) {
      if (!one.Idle && one.Within == within) add(one.Text, one.End);
    }
  };
  addHidden(0, false);
  const std::vector<int> places = lines.LinesWithHidden(1, lines.Count());
  auto next = places.begin();
  for (int line = 1, open = 0; line <= lines.Count(); ++line) {
    add(lines.Line(line), lines.EndOf(line));
    if (open == 0 && next != places.end() && *next == line) open = line;
    if (next != places.end() && *next == line) {
      addHidden(line, true);
      ++next;
    }
    // Behind the whole statement.
    if (open == 0 || (line < lines.Count() && model::IsContinued(lines.Line(line)))) continue;
    for (; open <= line; ++open) addHidden(open, false);
    open = 0;
  }
  // An empty line is nothing but its end.
  if (!endsLast_ && !lastIsEmpty) text.resize(lastEnd);
  return EncodeOrFail(text, codeStart_ == 0 ? 1 : LineNumber(bytes_, codeStart_ - 1) + 1);
}

std::string ComponentFile::Compose(const model::VBComponent& component) const {
  return IsModified(component) ? Around(HeadBytes(component), component) : bytes_;
}

/// The whole file with this head.
std::string ComponentFile::Around(const std::string& head,
                                  const model::VBComponent& component) const {
  return std::string(Part(0, bom_)) + head + AttributeBytes() + CodeBytes(component) +
         std::string(Part(codeEnd_, bytes_.size()));
}

void ComponentFile::Stored(model::VBComponent& component, std::string bytes) {
  const auto type = type_;
  bytes_ = std::move(bytes);
  seen_.reset();
  isNew_ = false;
  carried_.clear();
  newName_.clear();
  newHead_.clear();
  newAttributes_.clear();
  FindParts();
  type_ = type;
  hiddenBehind_.reset();
  if (component.Module() && component.Module()->IsLoaded()) component.Module()->SetModified(false);
  if (component.OwnDesigner()) component.OwnDesigner()->Tree().SetModified(false);
}

namespace {

/// Two components in one file would take it from each other.
void CheckIsNoOthers(const model::VBComponent& component, const fs::path& path) {
  const auto own = component.Project();
  const auto vbe = own ? own->Environment() : nullptr;
  if (!vbe) return;
  const fs::path target = fs::weakly_canonical(path);
  for (const auto& project : vbe->Projects().All()) {
    for (const auto& other : project->Components().All()) {
      if (other.get() == &component || !other->Storage()) continue;
      const String file = other->Storage()->FileName();
      if (file.empty() || fs::weakly_canonical(PathOf(file)) != target) continue;
      throw vb::Failure(vb::PathFileAccess,
                        TextOf(path) + u": the component \"" + other->PlainName() +
                            u"\" of the project \"" + project->PlainName() +
                            u"\" is kept there; nothing was written",
                        u"Tessel.workspace");
    }
  }
}

/// A file that is there already must hold the same.
void PutCompanion(const fs::path& file, const std::string& bytes) {
  if (files::CreateFile(file, bytes) || files::ReadFile(file) == bytes) return;
  throw vb::Failure(vb::PathFileAccess,
                    TextOf(file) +
                        u": another file of this name is there already, and the "
                        u"component's pictures would have to stand in it",
                    u"Tessel.workspace");
}

}  // namespace

std::vector<Companion> ComponentFile::CompanionsNow(std::string_view head) const {
  return isNew_ ? carried_ : CompanionsOf(head, path_, codePage_);
}

/// Where a companion lies beside another file of its component.
fs::path ComponentFile::Beside(const fs::path& file, const std::string& name) const {
  return ResolveNamed(file.parent_path(), name, codePage_);
}

/// The whole file as it stands under another name; its companions are written beside that.
std::string ComponentFile::WriteBeside(model::VBComponent& component, const fs::path& file,
                                       Following following) const {
  std::string head = HeadBytes(component);
  const auto companions = CompanionsNow(head);
  const auto names = NamesBeside(file, path_, companions, codePage_, following);
  for (std::size_t at = 0; at < companions.size(); ++at) {
    head = WithCompanion(head, companions[at].Name, names[at]);
  }
  std::string bytes = Around(head, component);
  for (std::size_t at = 0; at < companions.size(); ++at) {
    const fs::path copy = Beside(file, names[at]);
    if (fs::weakly_canonical(copy) == fs::weakly_canonical(companions[at].File)) continue;
    PutCompanion(copy, companions[at].Bytes);
  }
  return bytes;
}

void ComponentFile::SaveAs(model::VBComponent& component, StringView fileName) {
  const fs::path path = PathOf(vb::Replace(fileName, u"\\", u"/"));
  if (!isNew_ && fs::weakly_canonical(path) == fs::weakly_canonical(path_)) {
    return MoveTo(component, path);
  }
  if (fs::exists(path)) CheckIsNoOthers(component, path);
  files::WriteFile(path, WriteBeside(component, path, Following::AndLoneOnes));
}

void ComponentFile::MoveTo(model::VBComponent& component, fs::path file) {
  CheckIsNoOthers(component, file);
  const auto companions = CompanionsNow(HeadBytes(component));
  const auto names = NamesBeside(file, path_, companions, codePage_, Following::Namesakes);
  std::string bytes = WriteBeside(component, file, Following::Namesakes);
  files::RemoveStrays(file.parent_path());
  files::WriteFile(file, bytes);
  for (std::size_t at = 0; at < companions.size(); ++at) {
    RenameCompanion(component, companions[at].Name, names[at]);
  }
  path_ = std::move(file);
  Stored(component, std::move(bytes));
}

/// In the form as it is open; the bytes of its file are the caller's.
void ComponentFile::RenameCompanion(const model::VBComponent& component, const std::string& name,
                                    const std::string& fresh) const {
  const auto& designer = component.OwnDesigner();
  if (!designer || name == fresh) return;
  designer->Tree().RenameReferences(Decode(name, codePage_), Decode(fresh, codePage_));
}

const std::string& ComponentFile::StoredBytes() const {
  static const std::string nothing;
  return isNew_ ? nothing : bytes_;
}

void ComponentFile::TakeOver() {
  carried_ = CompanionsOf(Part(bom_, headEnd_), path_, codePage_);
  isNew_ = true;
}

void ComponentFile::SetPath(model::VBComponent& component, fs::path path) {
  const auto names = NamesBeside(path, path_, carried_, codePage_, Following::AndLoneOnes);
  path_ = std::move(path);
  for (std::size_t at = 0; at < carried_.size(); ++at) {
    Companion& one = carried_[at];
    RenameCompanion(component, one.Name, names[at]);
    if (component.OwnDesigner()) one.Name = names[at];
    one.File = Beside(path_, one.Name);
  }
}

void ComponentFile::Renamed(model::VBComponent& component) {
  newName_ = component.PlainName();
  if (isNew_) newAttributes_ = NewAttributes(component);
  if (component.Project() && component.Project()->OnAdded) {
    component.Project()->OnAdded(component.shared_from_this());
  }
}

int ComponentFile::FileLine(int codeLine) const {
  int line = LineNumber(bytes_, codeStart_) - 1 + codeLine;
  if (codeStart_ >= codeEnd_) ++line;
  if (!hiddenBehind_) FindHidden();
  const auto ahead = std::lower_bound(hiddenBehind_->begin(), hiddenBehind_->end(), codeLine);
  return line + static_cast<int>(ahead - hiddenBehind_->begin());
}

void ComponentFile::FindHidden() const {
  hiddenBehind_.emplace();
  const String code = Decode(Part(codeStart_, codeEnd_), codePage_);
  if (code.find(AttributeWord) == String::npos) return;
  int visible = 0;
  for (const StringView line : model::CutLines(code)) {
    if (IsHidden(line)) {
      hiddenBehind_->push_back(visible);
    } else {
      ++visible;
    }
  }
}

}  // namespace tessel::workspace
