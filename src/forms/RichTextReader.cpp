// Reads rich text: one pass, no recursion, whatever the input.

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "forms/RichTextBox.h"
#include "vb/CodePages.h"

namespace tessel::forms {
namespace {

constexpr int DefaultCodePage = 1252;

/// Destinations whose text is no text of the document.
constexpr std::array<StringView, 25> SkippedDestinations{
    u"stylesheet", u"info",      u"pict",      u"object",    u"header",
    u"headerl",    u"headerr",   u"headerf",   u"footer",    u"footerl",
    u"footerr",    u"footerf",   u"footnote",  u"listtable", u"listoverridetable",
    u"revtbl",     u"rsidtbl",   u"generator", u"filetbl",   u"xe",
    u"tc",         u"themedata", u"pntext",    u"listtext",  u"nonshppict"};

struct NamedUnit {
  StringView Word;
  char16_t Unit;
};
constexpr NamedUnit NamedUnits[] = {
    {u"emdash", 0x2014},    {u"endash", 0x2013},    {u"lquote", 0x2018}, {u"rquote", 0x2019},
    {u"ldblquote", 0x201C}, {u"rdblquote", 0x201D}, {u"bullet", 0x2022}, {u"tab", u'\t'},
    {u"emspace", 0x2003},   {u"enspace", 0x2002},   {u"cell", u'\t'},
};

struct NumberPair {
  int From, To;
};
/// Code page of each character set of a font.
constexpr NumberPair CharsetPages[] = {
    {128, 932},  {129, 949},  {134, 936},  {136, 950},  {0, 1252},   {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}};

int PageOfCharset(int charset) {
  for (const NumberPair& pair : CharsetPages) {
    if (pair.From == charset) return pair.To;
  }
  return 0;
}

bool IsDoubleByte(int page) { return page == 932 || page == 936 || page == 949 || page == 950; }

/// Whether a byte is the first of a pair.
bool IsLeadByte(unsigned char byte, int page) {
  if (page == 932) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return IsDoubleByte(page) && byte >= 0x81 && byte <= 0xFE;
}

/// The character of a byte that stands alone, or of the pair that it leads: pairs have no table
/// here and read as U+FFFD.
char16_t CharacterOf(unsigned char byte, int page) {
  const bool katakana = page == 932 && byte >= 0xA1 && byte <= 0xDF;
  return katakana ? static_cast<char16_t>(0xFF61 + (byte - 0xA1)) : vb::FromCodePage(byte, page);
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

int HexValue(char16_t unit) {
  if (IsDigit(unit)) return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

enum class Destination { Text, Skipped, Fonts, Colors };

/// What a group inherits and gives back at its end.
struct Group {
  Destination Target = Destination::Text;
  int ColorIndex = 0;
  int Font = 0;
  int FallbackUnits = 1;  // \uc
  bool Hidden = false;
};

class Reader {
 public:
  explicit Reader(StringView document) : in_(document) { groups_.emplace_back(); }

  ColoredText Read() {
    while (at_ < in_.size() && !done_) Step();
    return std::move(result_);
  }

 private:
  [[nodiscard]] char16_t Peek(std::size_t ahead = 0) const {
    return at_ + ahead < in_.size() ? in_[at_ + ahead] : u'\0';
  }
  [[nodiscard]] Group& Here() { return groups_.back(); }

  void Step() {
    const char16_t unit = in_[at_++];
    if (unit == u'{') {
      EndFallback();
      groups_.push_back(Here());
    } else if (unit == u'}') {
      EndFallback();
      Close();
    } else if (unit == u'\\') {
      Control();
    } else if (unit != u'\r' && unit != u'\n') {
      Encoded(unit, false);
    }
  }

  /// A \u's fallback and a pair of bytes end with their group, and at a word of layout.
  void EndFallback() {
    skip_ = 0;
    trailing_ = false;
  }

  void Close() {
    if (groups_.size() > 1) groups_.pop_back();
    // What stands behind the document's own group belongs to nobody.
    if (groups_.size() == 1) done_ = true;
  }

  void Control() {
    const char16_t unit = Peek();
    if (at_ >= in_.size()) return;
    if (IsLetter(unit)) {
      Word();
      return;
    }
    ++at_;
    switch (unit) {
      case u'\'':
        Hex();
        break;
      case u'~':
        Character(0xA0);
        break;
      case u'_':
        Character(u'-');
        break;
      case u'-':
        CountFallback();
        break;
      case u'*':
        Here().Target = Destination::Skipped;
        break;
      case u'\r':
      case u'\n':
        Paragraph();
        break;
      default:
        Character(unit);
    }
  }

  void Hex() {
    const int high = HexValue(Peek()), low = HexValue(Peek(1));
    if (high < 0 || low < 0) return;
    at_ += 2;
    const auto byte = static_cast<unsigned char>(high * 16 + low);
    const int page = CodePageHere();
    Encoded(CharacterOf(byte, page), IsLeadByte(byte, page));
  }

  /// A character of the document's encoding; the second byte of a pair is part of the first.
  void Encoded(char16_t unit, bool leads) {
    if (!std::exchange(trailing_, leads)) {
      Character(unit);
      return;
    }
    trailing_ = false;
    CountFallback();
  }

  [[nodiscard]] int CodePageHere() {
    const auto font = fontPages_.find(Here().Font);
    return font == fontPages_.end() || font->second == 0 ? codePage_ : font->second;
  }

  void Word() {
    const std::size_t start = at_;
    while (IsLetter(Peek())) ++at_;
    const StringView word = in_.substr(start, at_ - start);
    bool hasNumber = false, negative = false;
    int number = 0;
    if (Peek() == u'-' && IsDigit(Peek(1))) {
      negative = true;
      ++at_;
    }
    for (; IsDigit(Peek()); ++at_) {
      hasNumber = true;
      if (number < 100'000'000) number = number * 10 + (Peek() - u'0');
    }
    if (Peek() == u' ') ++at_;
    const int left = skip_;
    Apply(word, hasNumber, negative ? -number : number);
    if (word != u"u" && skip_ == left) CountFallback();
  }

  /// A word counts as one unit of the fallback that it stands in.
  void CountFallback() {
    if (skip_ > 0) --skip_;
  }

  void Apply(StringView word, bool hasNumber, int number) {
    if (word == u"u") {
      Unicode(number);
    } else if (word == u"bin") {
      at_ += std::min(in_.size() - at_, static_cast<std::size_t>(std::max(0, number)));
    } else if (word == u"uc") {
      Here().FallbackUnits = std::max(0, number);
    } else if (word == u"ansicpg") {
      if (vb::IsSingleByteCodePage(number) || IsDoubleByte(number)) codePage_ = number;
    } else if (!ApplyTable(word, number) && !ApplyText(word, hasNumber, number)) {
      for (const StringView skipped : SkippedDestinations) {
        if (word == skipped) Here().Target = Destination::Skipped;
      }
    }
  }

  /// Words of the font and colour tables.
  bool ApplyTable(StringView word, int number) {
    if (word == u"fonttbl") {
      Here().Target = Destination::Fonts;
    } else if (word == u"colortbl") {
      Here().Target = Destination::Colors;
    } else if (word == u"fcharset" && Here().Target == Destination::Fonts) {
      fontPages_[Here().Font] = PageOfCharset(number);
    } else if (word == u"red" || word == u"green" || word == u"blue") {
      const unsigned shift = word == u"red" ? 0 : word == u"green" ? 8 : 16;
      color_ |= (static_cast<Color>(number) & 0xFF) << shift;
    } else {
      return false;
    }
    return true;
  }

  /// Words that stand for text or change how it looks.
  bool ApplyText(StringView word, bool hasNumber, int number) {
    if (word == u"par" || word == u"line" || word == u"sect" || word == u"page" || word == u"row") {
      Paragraph();
    } else if (word == u"cf") {
      Here().ColorIndex = number;
    } else if (word == u"plain") {
      Here().ColorIndex = 0;
      Here().Font = defaultFont_;  // and its code page with it
      Here().Hidden = false;
    } else if (word == u"v") {
      Here().Hidden = !hasNumber || number != 0;
    } else if (word == u"deff" && hasNumber) {
      Here().Font = defaultFont_ = number;
    } else if (word == u"f" && hasNumber) {
      Here().Font = number;
    } else {
      for (const NamedUnit& named : NamedUnits) {
        if (word == named.Word) {
          Character(named.Unit);
          return true;
        }
      }
      return false;
    }
    return true;
  }

  void Unicode(int number) {
    EndFallback();  // a writer without fallbacks puts one right behind the other
    Character(static_cast<char16_t>(number));
    skip_ = Here().FallbackUnits;
  }

  void Character(char16_t unit) {
    if (skip_ > 0) {
      CountFallback();
      return;
    }
    if (Here().Target == Destination::Colors && unit == u';') {
      colors_.push_back(color_);
      color_ = DefaultColor;
    } else if (IsShown()) {
      FlushParagraph();
      Append(StringView(&unit, 1), ColorHere());
    }
  }

  /// The mark that ends the last paragraph adds no line, as the original writes one behind every
  /// text; so a mark counts when something follows.
  void Paragraph() {
    EndFallback();
    if (!IsShown()) return;
    FlushParagraph();
    pending_ = true;
    pendingColor_ = ColorHere();
  }

  [[nodiscard]] bool IsShown() { return Here().Target == Destination::Text && !Here().Hidden; }

  void FlushParagraph() {
    if (pending_) Append(u"\r\n", pendingColor_);
    pending_ = false;
  }

  /// Colour 0 is the control's own, whatever the table says.
  [[nodiscard]] Color ColorHere() {
    const auto index = static_cast<std::size_t>(std::max(0, Here().ColorIndex));
    return index > 0 && index < colors_.size() ? colors_[index] : DefaultColor;
  }

  void Append(StringView text, Color color) {
    result_.Text += text;
    if (!result_.Runs.empty() && result_.Runs.back().TextColor == color) {
      result_.Runs.back().Length += text.size();
    } else {
      result_.Runs.push_back({text.size(), color});
    }
  }

  StringView in_;
  std::size_t at_ = 0;
  std::vector<Group> groups_;
  std::vector<Color> colors_;
  std::map<int, int> fontPages_;
  ColoredText result_;
  Color color_ = DefaultColor;         // of the table's entry being read
  Color pendingColor_ = DefaultColor;  // of the mark that is not written yet
  int codePage_ = DefaultCodePage;
  int defaultFont_ = 0;
  int skip_ = 0;           // fallback units of a \u still to be passed over
  bool trailing_ = false;  // the next byte is the second of a pair
  bool pending_ = false, done_ = false;
};

}  // namespace

String WithCrLf(StringView text) {
  String result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit != u'\r' && unit != u'\n') {
      result += unit;
      continue;
    }
    if (unit == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') ++at;
    result += u"\r\n";
  }
  return result;
}

ColoredText ReadRichText(StringView document) {
  if (document.substr(0, 5) == u"{\\rtf") return Reader(document).Read();
  ColoredText plain{WithCrLf(document), {}};
  if (!plain.Text.empty()) plain.Runs.push_back({plain.Text.size(), DefaultColor});
  return plain;
}

}  // namespace tessel::forms
