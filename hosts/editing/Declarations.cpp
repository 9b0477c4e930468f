#include "hosts/editing/Declarations.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "hosts/model/Words.h"

namespace tessel::editing {
namespace {

using model::FindWord;
using model::WordKind;

/// A token of a statement, which may run over several lines.
struct Piece {
  Token What;
  int Line;
};
using Pieces = std::vector<Piece>;

bool IsAny(const Token& token, std::initializer_list<StringView> words) {
  return std::any_of(words.begin(), words.end(), [&](StringView word) { return Is(token, word); });
}

bool IsName(const Token& token) {
  return token.Kind == TokenKind::Word || token.Kind == TokenKind::Bracketed;
}

/// Words that a line which declares something begins with, and #If, which may stand between them.
bool MayDeclare(StringView word) {
  static constexpr StringView Words[] = {u"Dim",     u"Static", u"Const", u"Public",   u"Private",
                                         u"Friend",  u"Global", u"Sub",   u"Function", u"Property",
                                         u"Declare", u"Event",  u"Type",  u"Enum",     u"End"};
  return std::any_of(std::begin(Words), std::end(Words),
                     [&](StringView one) { return vb::SameText(one, word); });
}

StringView FirstWord(StringView line) {
  std::size_t start = 0;
  while (start < line.size() && IsBlank(line[start])) ++start;
  std::size_t end = start;
  while (end < line.size() && IsNameUnit(line[end])) ++end;
  return line.substr(start, end - start);
}

/// What the lines of a block declare.
enum class Block : std::uint8_t { None, Type, Enum };

class Reader {
 public:
  void Read(int number, StringView line) {
    if (start_ == LineStart::Statement && IsIdle(line)) return;
    const CutLine cut = Cut(line, start_);
    for (const Token& token : cut.Tokens) {
      if (token.Kind != TokenKind::Comment && token.Kind != TokenKind::Underline) {
        pieces_.push_back({token, number});
      }
    }
    start_ = cut.Next;
    if (start_ == LineStart::Statement) Finish();
  }

  std::vector<Declared> Finished() {
    Finish();
    return std::move(found_);
  }

 private:
  /// Most lines of a procedure declare nothing; that is told without cutting them.
  [[nodiscard]] bool IsIdle(StringView line) const {
    if (block_ != Block::None || MayDeclare(FirstWord(line))) return false;
    if (vb::FindUnit(line, u':') != StringView::npos) return false;
    return line.empty() || line.find_last_not_of(u" \t") == StringView::npos ||
           line[line.find_last_not_of(u" \t")] != u'_';
  }

  void Finish() {
    std::size_t first = 0;
    for (std::size_t at = 0; at <= pieces_.size(); ++at) {
      if (at < pieces_.size() && pieces_[at].What.Kind != TokenKind::Colon) continue;
      const bool label = at < pieces_.size() && first == 0 && at == 1;
      ReadStatement(first, at, label);
      first = at + 1;
    }
    pieces_.clear();
  }

  void Add(const Piece& piece, DeclaredKind kind, bool isPublic) {
    StringView name = WithoutSign(piece.What.Text);
    if (piece.What.Kind == TokenKind::Bracketed) name = name.substr(1, name.size() - 2);
    found_.push_back(
        {String(name), kind, piece.Line, static_cast<int>(piece.What.At) + 1, isPublic});
  }

  [[nodiscard]] const Token& At(std::size_t at) const { return pieces_[at].What; }

  void ReadStatement(std::size_t first, std::size_t end, bool label) {
    if (first < end && At(first).Kind == TokenKind::Number) ++first;
    if (first >= end) return;
    if (label && inside_ && At(first).Kind == TokenKind::Word &&
        FindWord(At(first).Text).Kind != WordKind::Reserved) {
      return Add(pieces_[first], DeclaredKind::Label, false);
    }
    if (Is(At(first), u"End")) return ReadEnd(first, end);
    if (block_ != Block::None) return ReadInBlock(first);
    ReadDeclaration(first, end);
  }

  void ReadEnd(std::size_t first, std::size_t end) {
    if (first + 1 >= end) return;
    if (IsAny(At(first + 1), {u"Type", u"Enum"})) block_ = Block::None;
    if (IsAny(At(first + 1), {u"Sub", u"Function", u"Property"})) inside_ = false;
  }

  void ReadInBlock(std::size_t first) {
    if (!IsName(At(first)) || At(first).Text.front() == u'#') return;
    Add(pieces_[first], block_ == Block::Type ? DeclaredKind::Field : DeclaredKind::Value,
        blockPublic_);
  }

  void ReadDeclaration(std::size_t at, std::size_t end) {
    bool modified = false, isPublic = false, isPrivate = false;
    for (; at < end && IsAny(At(at), {u"Public", u"Private", u"Friend", u"Global", u"Static",
                                      u"Dim", u"WithEvents"});
         ++at) {
      modified = true;
      isPublic |= IsAny(At(at), {u"Public", u"Global"});
      isPrivate |= IsAny(At(at), {u"Private"});
    }
    if (at >= end) return;
    const std::size_t name = at + 1;
    if (IsAny(At(at), {u"Sub", u"Function"})) return ReadHead(name, end, !isPrivate);
    if (Is(At(at), u"Property") && name < end && IsAny(At(name), {u"Get", u"Let", u"Set"})) {
      return ReadHead(name + 1, end, !isPrivate);
    }
    if (Is(At(at), u"Declare")) return ReadOne(name + 1, end, DeclaredKind::External, !isPrivate);
    if (name < end && IsName(At(name))) {
      if (Is(At(at), u"Event")) return ReadOne(name, end, DeclaredKind::Event, true);
      if (Is(At(at), u"Type")) return ReadBlock(Block::Type, name, end, !isPrivate);
      if (Is(At(at), u"Enum")) return ReadBlock(Block::Enum, name, end, !isPrivate);
      if (Is(At(at), u"Const")) return ReadList(name, end, DeclaredKind::Constant, isPublic);
    }
    if (modified) ReadList(at, end, DeclaredKind::Variable, isPublic);
  }

  void ReadOne(std::size_t name, std::size_t end, DeclaredKind kind, bool isPublic) {
    if (name < end && IsName(At(name))) Add(pieces_[name], kind, isPublic);
  }

  void ReadBlock(Block block, std::size_t name, std::size_t end, bool isPublic) {
    ReadOne(name, end, block == Block::Type ? DeclaredKind::Type : DeclaredKind::Enum, isPublic);
    block_ = block;
    blockPublic_ = isPublic;
  }

  /// Names between commas.
  void ReadList(std::size_t at, std::size_t end, DeclaredKind kind, bool isPublic) {
    int depth = 0;
    bool wanted = true;
    for (; at < end; ++at) {
      const Token& token = At(at);
      if (token.Kind == TokenKind::Open) ++depth;
      if (token.Kind == TokenKind::Close) --depth;
      if (token.Kind == TokenKind::Comma && depth == 0) {
        wanted = true;
      } else if (wanted && IsName(token) && !Is(token, u"WithEvents")) {
        Add(pieces_[at], inside_ ? DeclaredKind::Local : kind, isPublic && !inside_);
        wanted = false;
      }
    }
  }

  void ReadHead(std::size_t at, std::size_t end, bool isPublic) {
    if (at >= end || !IsName(At(at))) return;
    Add(pieces_[at], DeclaredKind::Procedure, isPublic);
    inside_ = true;
    bool wanted = false;
    int depth = 0;
    for (++at; at < end; ++at) {
      const Token& token = At(at);
      if (token.Kind == TokenKind::Open) wanted = ++depth == 1;
      if (token.Kind == TokenKind::Close && --depth == 0) return;
      if (token.Kind == TokenKind::Comma && depth == 1) wanted = true;
      if (!wanted || !IsName(token) ||
          IsAny(token, {u"ByVal", u"ByRef", u"Optional", u"ParamArray"})) {
        continue;
      }
      Add(pieces_[at], DeclaredKind::Parameter, false);
      wanted = false;
    }
  }

  Pieces pieces_;
  std::vector<Declared> found_;
  LineStart start_ = LineStart::Statement;
  Block block_ = Block::None;
  bool blockPublic_ = false, inside_ = false;
};

}  // namespace

std::vector<Declared> ReadDeclarations(const model::LineBuffer& lines, int first, int last) {
  Reader reader;
  for (int line = first; line <= last; ++line) reader.Read(line, lines.Line(line));
  return reader.Finished();
}

}  // namespace tessel::editing
