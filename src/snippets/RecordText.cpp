#include "snippets/RecordText.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

constexpr int ByteCodePage = 1252;
constexpr StringView Indent = u"    ", Hex = u"0123456789abcdef";
/// Of a line that older exports wrote, a digest of the record.
constexpr StringView ExportKey = u"Export";

struct Section {
  StringView Key;
  String ListFragment::*Text;
};
constexpr Section Sections[] = {{u"Notes", &ListFragment::TextUserNotes},
                                {u"Text", &ListFragment::Text},
                                {u"Head", &ListFragment::TitleObj},
                                {u"Code", &ListFragment::TextObj},
                                {u"Companion", &ListFragment::CompObj}};
constexpr Section Values[] = {{u"Object", &ListFragment::NameObj},
                              {u"Class", &ListFragment::ClassObj}};

/// How a section's text is written behind its key: line ends of LF, no line end at the end, signs
/// that a text file can't hold as escapes, bytes in hexadecimal digits.
constexpr StringView LfFlag = u" lf", OpenFlag = u" open", EscapedFlag = u" escaped",
                     BytesFlag = u" bytes";

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Units that a line of a text file holds as they are.
bool IsPlain(StringView text, std::size_t at) {
  const char16_t unit = text[at];
  if (IsHigh(unit)) return at + 1 < text.size() && IsLow(text[at + 1]);
  if (IsLow(unit)) return at > 0 && IsHigh(text[at - 1]);
  return unit == u'\t' || (unit >= u' ' && unit != 0x7F && unit != 0xFEFF && unit != 0x85 &&
                           unit != 0x2028 && unit != 0x2029 && unit < 0xFFFE);
}

bool IsPlainLine(StringView line) {
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (!IsPlain(line, at)) return false;
  }
  return true;
}

String Escaped(StringView text) {
  String out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const unsigned unit = text[at];
    if (unit == u'\\') {
      out += u"\\\\";
    } else if (unit == u'\r' || unit == u'\n') {
      out += unit == u'\r' ? u"\\r" : u"\\n";
    } else if (IsPlain(text, at)) {
      out += text[at];
    } else {
      out += u"\\u";
      for (const unsigned shift : {12U, 8U, 4U, 0U}) out += Hex[unit >> shift & 15U];
    }
  }
  return out;
}

/// Nothing for a text with an escape that there isn't; `why` tells what is wrong with it.
std::optional<String> WithoutEscapes(StringView text, StringView& why) {
  String out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != u'\\') {
      out += text[at];
      continue;
    }
    const char16_t sign = ++at < text.size() ? text[at] : u'\0';
    if (sign == u'\\') {
      out += u'\\';
    } else if (sign == u'r' || sign == u'n') {
      out += sign == u'r' ? u'\r' : u'\n';
    } else if (sign == u'u' && at + 4 < text.size()) {
      unsigned unit = 0;
      for (int digits = 0; digits < 4; ++digits) {
        const std::size_t digit = Hex.find(text[++at]);
        if (digit == StringView::npos) {
          why = u"\"\\u\" takes four hexadecimal digits";
          return std::nullopt;
        }
        unit = unit << 4U | static_cast<unsigned>(digit);
      }
      out += static_cast<char16_t>(unit);
    } else {
      why = u"behind \"\\\" stands \"\\\", \"r\", \"n\" or \"u\" with four digits";
      return std::nullopt;
    }
  }
  return out;
}

String InHex(std::string_view bytes) {
  constexpr std::size_t EachLine = 40;
  String out;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    if (at > 0 && at % EachLine == 0) out += u"\n";
    out += Hex[byte >> 4U];
    out += Hex[byte & 15U];
  }
  return out;
}

class Writer {
 public:
  std::string Write(const NamedFragment& record) {
    Line(u"Name", record.Name);
    for (const Section& one : Values) {
      if (!(record.Fragment.*one.Text).empty()) Line(one.Key, record.Fragment.*one.Text);
    }
    for (const Section& one : Sections) {
      if (!(record.Fragment.*one.Text).empty()) Write(one, record.Fragment.*one.Text);
    }
    return vb::ToUtf8(out_);
  }

 private:
  void Line(StringView key, StringView value) {
    out_ += String(key) + u": " + Escaped(value) + u"\n";
  }
  void Write(const Section& section, const String& text) {
    out_ += section.Key;
    if (section.Text == &ListFragment::CompObj) {
      std::size_t at = 0;
      if (const auto bytes = vb::ExactBytesOfText(text, ByteCodePage, at)) {
        out_ += String(BytesFlag) + u":\n";
        return Lines(InHex(*bytes), u"\n", false);
      }
    }
    const bool lf = vb::InStr(text, u"\r") == 0 && vb::InStr(text, u"\n") > 0;
    const StringView end = lf ? u"\n" : u"\r\n";
    if (lf) out_ += LfFlag;
    const bool open = !text.ends_with(end);
    if (open) out_ += OpenFlag;
    const String body = open ? text : text.substr(0, text.size() - end.size());
    const auto lines = vb::SplitViews(body, end);
    const bool plain = std::all_of(lines.begin(), lines.end(), IsPlainLine);
    if (!plain) out_ += EscapedFlag;
    out_ += u":\n";
    Lines(body, end, !plain);
  }
  void Lines(const String& body, StringView end, bool escaped) {
    // An empty text is one line here.
    if (body.empty()) out_ += u"\n";
    for (const StringView line : vb::SplitViews(body, end)) {
      if (!line.empty()) out_ += Indent;
      out_ += (escaped ? Escaped(line) : String(line)) + u"\n";
    }
  }

  String out_;
};

class Reader {
 public:
  Reader(std::string_view bytes, StringView file) : file_(file) {
    text_ = TextOfUtf8(bytes, file);
    lines_ = vb::SplitViews(text_, u"\n");
    if (!lines_.empty() && lines_.back().empty()) lines_.pop_back();
    for (StringView& line : lines_) {
      if (line.ends_with(u'\r')) line.remove_suffix(1);
    }
  }

  NamedFragment Read() {
    while (at_ < lines_.size()) ReadEntry();
    if (record_.Name.empty() && !named_) Fail(u"the record has no name");
    return std::move(record_);
  }

 private:
  [[noreturn]] void Fail(StringView why) const {
    const std::size_t line = std::min(at_ + 1, std::max<std::size_t>(lines_.size(), 1));
    throw vb::Failure(vb::InvalidCall, String(file_) + u":" + vb::Str(line) + u": " + String(why),
                      u"Tessel");
  }

  void ReadEntry() {
    const StringView line = lines_[at_];
    const std::size_t colon = line.find(u':');
    if (colon == StringView::npos) Fail(u"a key and a colon are expected");
    const StringView key = line.substr(0, colon);
    StringView rest = line.substr(colon + 1);
    if (!keys_.insert(vb::LCase(key.substr(0, key.find(u' ')))).second) {
      Fail(u"\"" + String(key) + u"\" stands here twice");
    }
    // One blank separates; any other belongs to the value.
    if (rest.starts_with(u' ')) rest.remove_prefix(1);
    if (vb::SameText(key, u"Name")) {
      record_.Name = Unescaped(rest);
      named_ = true;
      ++at_;
      return;
    }
    if (vb::SameText(key, ExportKey)) {
      ++at_;
      return;
    }
    for (const Section& one : Values) {
      if (!vb::SameText(key, one.Key)) continue;
      record_.Fragment.*one.Text = Unescaped(rest);
      ++at_;
      return;
    }
    ReadSection(key, rest);
  }

  void ReadSection(StringView key, StringView rest) {
    for (const Section& one : Sections) {
      if (!vb::SameText(key.substr(0, key.find(u' ')), one.Key)) continue;
      const String flags(key.substr(std::min(key.size(), one.Key.size())));
      const auto has = [&](StringView flag) {
        return (flags + u" ").find(String(flag) + u" ") != String::npos;
      };
      for (const StringView flag : vb::SplitViews(flags, u" ")) CheckFlag(flag);
      if (!vb::Trim(rest).empty()) Fail(u"a section stands in the lines below, four blanks in");
      ++at_;
      record_.Fragment.*one.Text =
          has(BytesFlag) ? ReadBytes() : ReadLines(has(LfFlag), has(OpenFlag), has(EscapedFlag));
      return;
    }
    Fail(u"there is no \"" + String(key) + u"\"");
  }

  void CheckFlag(StringView flag) const {
    const StringView known[] = {LfFlag, OpenFlag, EscapedFlag, BytesFlag};
    const bool is =
        flag.empty() || std::any_of(std::begin(known), std::end(known),
                                    [&](StringView one) { return one.substr(1) == flag; });
    if (!is) Fail(u"nothing is written \"" + String(flag) + u"\"");
  }

  /// True for a line of the present section; it stands without its indent then.
  bool TakeLine(StringView& line) {
    if (at_ >= lines_.size()) return false;
    line = lines_[at_];
    if (!line.empty() && !line.starts_with(Indent)) return false;
    line.remove_prefix(std::min(line.size(), Indent.size()));
    ++at_;
    return true;
  }

  String ReadLines(bool lf, bool open, bool escaped) {
    String text;
    bool first = true;
    const StringView end = lf ? u"\n" : u"\r\n";
    for (StringView line; TakeLine(line); first = false) {
      if (!first) text += end;
      --at_;
      text += escaped ? Unescaped(line) : String(line);
      ++at_;
    }
    if (!open && !first) text += end;
    return text;
  }

  String ReadBytes() {
    std::string bytes;
    int half = -1;
    for (StringView line; TakeLine(line);) {
      for (const char16_t unit : line) {
        const std::size_t digit = Hex.find(unit);
        if (digit == StringView::npos) {
          --at_;
          Fail(u"hexadecimal digits are expected");
        }
        if (half >= 0) bytes += static_cast<char>(half << 4 | static_cast<int>(digit));
        half = half >= 0 ? -1 : static_cast<int>(digit);
      }
    }
    if (half >= 0) Fail(u"a hexadecimal digit is missing");
    return vb::TextOfBytes(bytes, ByteCodePage);
  }

  [[nodiscard]] String Unescaped(StringView text) const {
    StringView why;
    auto plain = WithoutEscapes(text, why);
    if (!plain) Fail(why);
    return std::move(*plain);
  }

  StringView file_;
  String text_;
  std::vector<StringView> lines_;
  std::size_t at_ = 0;
  NamedFragment record_;
  /// That were read, in lower case.
  std::set<String> keys_;
  bool named_ = false;
};

}  // namespace

std::string WriteRecordText(const NamedFragment& record) { return Writer().Write(record); }

String TextOfUtf8(std::string_view bytes, StringView file) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  String text = vb::FromUtf8(bytes);
  // What is no UTF-8 doesn't come back, and differs first on its own line.
  const std::string back = vb::ToUtf8(text);
  if (back == bytes) return text;
  const auto other = std::mismatch(bytes.begin(), bytes.end(), back.begin(), back.end()).first;
  const auto line = std::count(bytes.begin(), other, '\n') + 1;
  throw vb::Failure(
      vb::InvalidCall,
      String(file) + u":" + vb::Str(line) + u": the text is no UTF-8; save it as UTF-8", u"Tessel");
}

NamedFragment ReadRecordText(std::string_view bytes, StringView file) {
  return Reader(bytes, file).Read();
}

String EscapedName(StringView name) { return Escaped(name); }

String UnescapedName(StringView line) {
  StringView why;
  return WithoutEscapes(line, why).value_or(String(line));
}

}  // namespace tessel
