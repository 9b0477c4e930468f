#include "presentation/mCodeConverter.h"

#include <algorithm>
#include <bitset>
#include <vector>

#include "foundation/Routine.h"
#include "presentation/KeywordTable.h"
#include "presentation/Marks.h"

namespace tessel::mCodeConverter {
namespace {

/// One pass of the table: what it looks for and what it puts there. `Core` is the entry without its
/// blanks.
struct Pass {
  String Find, With;
  StringView Core;
};

Pass PassOf(StringView entry) {
  const StringView core = vb::Trim(entry);
  const bool lead = entry.front() == u' ', trail = entry.back() == u' ';
  const bool function = core.back() == u'(' && !trail;
  const String colored =
      u" \\cf3" + String(function ? core.substr(0, core.size() - 1) : core) + u"\\cf0 ";
  if (function) return {lead ? String(entry) : u" " + String(entry), colored + u"(", core};
  return {String(entry), trail ? colored + u" " : colored, core};
}

/// The passes, and for each pair of characters whether some entry's core begins so.
///
/// A pass can only match where its core stands, and no pass makes a core that wasn't there: at
/// every seam it puts a backslash, a digit or a blank at a word's end, which no core holds. So the
/// cores that stand in a line before the first pass name all passes that can do anything to that
/// line.
class PassTable {
 public:
  PassTable() {
    for (const StringView entry : KeywordTable) {
      passes_.push_back(PassOf(entry));
      const StringView core = passes_.back().Core;
      const auto index = static_cast<std::uint16_t>(passes_.size() - 1);
      byFirst_[core.front() & 0x7F].push_back(index);
      if (core.size() == 1) {
        single_.set(core.front());
      } else {
        pairs_.set(PairOf(core[0], core[1]));
      }
    }
  }

  /// Runs all passes over one line.
  void Apply(String& line) const {
    std::vector<std::uint16_t> found;
    for (std::size_t at = 0; at < line.size(); ++at) Collect(line, at, found);
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    for (const std::uint16_t index : found) {
      line = vb::Replace(line, passes_[index].Find, passes_[index].With);
    }
  }

 private:
  static std::size_t PairOf(char16_t first, char16_t second) {
    return static_cast<std::size_t>(first) * 128 + second;
  }

  void Collect(const String& line, std::size_t at, std::vector<std::uint16_t>& found) const {
    const char16_t first = line[at];
    if (first >= 128) return;
    const char16_t second = at + 1 < line.size() ? line[at + 1] : u'\x80';
    if (!single_[first] && (second >= 128 || !pairs_[PairOf(first, second)])) return;
    const StringView rest = StringView(line).substr(at);
    for (const std::uint16_t index : byFirst_[first]) {
      if (rest.starts_with(passes_[index].Core)) found.push_back(index);
    }
  }

  std::vector<Pass> passes_;
  std::vector<std::uint16_t> byFirst_[128];
  std::bitset<128> single_;
  std::bitset<std::size_t{128} * 128> pairs_;
};

const PassTable& Passes() {
  static const PassTable table;
  return table;
}

constexpr StringView ContinuationMark = u"_\x0E\n";

String Mark(char16_t sign, std::size_t index) {
  return String(1, sign) + vb::Str(index) + String(1, sign);
}

/// Position of the apostrophe that opens the line's comment, 0 without one. Only the line's first
/// string is looked at, so an apostrophe in a later one opens a comment.
std::size_t CommentAt(StringView line) {
  const std::size_t apostrophe = vb::InStr(line, u"'");
  if (apostrophe == 0) return 0;
  const std::size_t opening = vb::InStr(line, u"\"");
  if (apostrophe <= opening) return apostrophe;
  const std::size_t closing = vb::InStr(opening + 1, line, u"\"");
  return apostrophe > closing ? apostrophe : 0;
}

void CutComment(String& line, std::vector<String>& comments) {
  const std::size_t at = CommentAt(line);
  if (at == 0) return;
  comments.push_back(u"\\cf1 " + line.substr(at - 1) + u"\\cf0 ");
  line = line.substr(0, at - 1) + Mark(u'k', comments.size() - 1);
}

void CutStrings(String& line, std::vector<String>& strings) {
  String cut;
  std::size_t at = 0;
  for (;;) {
    const std::size_t opening = line.find(u'"', at);
    const std::size_t closing = opening == String::npos ? opening : line.find(u'"', opening + 1);
    if (closing == String::npos) break;
    cut += StringView(line).substr(at, opening - at);
    cut += Mark(u'?', strings.size());
    strings.push_back(u"\\cf2 " + line.substr(opening, closing - opening + 1) + u"\\cf0 ");
    at = closing + 1;
  }
  if (at > 0) line = cut + line.substr(at);
}

/// The text of the document, ahead of its frame.
String Body(StringView text) {
  String work = vb::Replace(u" " + String(text), u"\\", u"\\\\");
  work = vb::Replace(work, u"_\r\n", ContinuationMark);
  work = vb::Replace(work, vb::CrLf, u"\r\nk ");
  std::vector<String> lines = vb::Split(work, vb::CrLf);
  std::vector<String> comments, strings;
  for (String& line : lines) CutComment(line, comments);
  for (String& line : lines) CutStrings(line, strings);
  for (String& line : lines) Passes().Apply(line);
  work = vb::Replace(vb::Join(lines, vb::CrLf), u"\r\n ", vb::CrLf);
  work = FillMarks(work, u'k', comments);
  work = FillMarks(work, u'?', strings);
  work = vb::Replace(work, String(80, u'-'), u"");
  work = vb::Replace(work, ContinuationMark, u"_\r\n");
  work = vb::Replace(work, u"\r\nk ", vb::CrLf);
  work = vb::Replace(work, vb::CrLf, u"\\par \r\n");
  return work.substr(1);
}

struct CharsetSuffix {
  int Charset;
  StringView Suffix;
};
constexpr CharsetSuffix Suffixes[] = {{123, u"Jap"},    {129, u"Kor"}, {134, u"Sim"}, {136, u"Tra"},
                                      {161, u"Greek"},  {162, u"Tur"}, {177, u"Heb"}, {178, u"Ara"},
                                      {186, u"Baltic"}, {204, u"Cyr"}, {238, u"CE"}};

String FontSuffix(int charset) {
  for (const CharsetSuffix& one : Suffixes) {
    if (one.Charset == charset) return u" " + String(one.Suffix);
  }
  return {};
}

}  // namespace

std::span<const StringView> Keywords() { return KeywordTable; }

String MakeRTF(StringView text, int charset) {
  String document;
  Routine(u"mCodeConverter.MakeRTF", [&] {
    document =
        u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Courier "
        u"New" +
        FontSuffix(charset) +
        u";}}\r\n{\\colortbl "
        u";\\red0\\green187\\blue0;\\red187\\green0\\blue0;\\red0\\green0\\blue187;}"
        u"\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 " +
        Body(text) + u"\r\n\\par }";
  });
  return document;
}

}  // namespace tessel::mCodeConverter
