#include "hosts/batch/SchemeText.h"

#include <charconv>
#include <set>
#include <variant>

#include "forms/Form.h"
#include "forms/RichTextBox.h"
#include "presentation/ViewTextRichtextbox.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

constexpr std::string_view Margin = "    ", HeaderLine = "Header:", FooterLine = "Footer:",
                           ByteOrderMark = "\xEF\xBB\xBF";

struct KeyRow {
  std::string_view Key;
  std::variant<String ErrorHandlerScheme::*, bool ErrorHandlerScheme::*,
               std::int32_t ErrorHandlerScheme::*>
      Field;
};
constexpr KeyRow Keys[] = {{"Name", &ErrorHandlerScheme::NameError},
                           {"Insert-Line", &ErrorHandlerScheme::InsertLine},
                           {"Base-Number", &ErrorHandlerScheme::BaseNumber},
                           {"Step", &ErrorHandlerScheme::Step},
                           {"Change-Error", &ErrorHandlerScheme::ChangeError},
                           {"Label", &ErrorHandlerScheme::LabelNameError}};

struct EscapeRow {
  char Sign, Letter;
};
constexpr EscapeRow Escapes[] = {{'\\', '\\'}, {'\r', 'r'}, {'\n', 'n'}};

std::string Escaped(const std::string& value) {
  std::string text;
  for (const char sign : value) {
    char letter = 0;
    for (const EscapeRow& row : Escapes) {
      if (row.Sign == sign) letter = row.Letter;
    }
    if (letter != 0) text += '\\';
    text += letter != 0 ? letter : sign;
  }
  return text;
}

std::string ValueOf(const ErrorHandlerScheme& scheme, const KeyRow& row) {
  if (const auto* const text = std::get_if<String ErrorHandlerScheme::*>(&row.Field)) {
    return Escaped(vb::ToUtf8(scheme.*(*text)));
  }
  if (const auto* const flag = std::get_if<bool ErrorHandlerScheme::*>(&row.Field)) {
    return scheme.*(*flag) ? "yes" : "no";
  }
  return std::to_string(scheme.*std::get<std::int32_t ErrorHandlerScheme::*>(row.Field));
}

std::string Block(std::string_view heading, StringView document) {
  std::string block = std::string(heading) + '\n';
  for (const String& line : vb::Split(forms::ReadRichText(document).Text, vb::CrLf)) {
    if (!line.empty()) block += std::string(Margin) + vb::ToUtf8(line);
    block += '\n';
  }
  return block;
}

/// A text box with nothing around it.
struct Holder : forms::Form {
  Holder() : Form("Holder", u"") {}
  forms::RichTextBox Box{this, "Box"};
};

/// The document that the scheme editor stores for a text.
String Colored(StringView text) {
  const auto holder = std::make_shared<Holder>();
  mFunctions::ViewTextRichtextbox(holder->Box, text);
  return holder->Box.TextRTF();
}

class Reader {
 public:
  Reader(std::string_view bytes, const std::string& file) : rest_(bytes), file_(file) {
    if (rest_.substr(0, ByteOrderMark.size()) == ByteOrderMark) {
      rest_.remove_prefix(ByteOrderMark.size());
    }
  }

  ErrorHandlerScheme Read() {
    ReadHead();
    scheme_.Header = ReadBlock();
    if (line_ != FooterLine) Fail("here the line \"Footer:\" is expected");
    scheme_.Footer = ReadBlock();
    if (found_) Fail("a line of a block begins with four blanks");
    return std::move(scheme_);
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw vb::Failure(vb::InvalidCall,
                      vb::FromUtf8(file_ + ':' + std::to_string(std::max(1, number_)) + ": " + why),
                      u"Tessel");
  }

  /// Takes the next line into `line_`; false at the end.
  bool Next() {
    found_ = !rest_.empty();
    line_ = {};
    if (!found_) return false;
    const std::size_t end = rest_.find('\n');
    line_ = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (!line_.empty() && line_.back() == '\r') line_.remove_suffix(1);
    ++number_;
    return true;
  }

  void ReadHead() {
    while (Next() && line_ != HeaderLine) {
      if (line_.empty() || line_.front() == '#') continue;
      const std::size_t colon = line_.find(':');
      if (colon == std::string_view::npos) Fail("a head line has the form \"Key: value\"");
      std::string_view value = line_.substr(colon + 1);
      if (!value.empty() && value.front() == ' ') value.remove_prefix(1);
      Set(line_.substr(0, colon), value);
    }
    if (!found_) Fail("the line \"Header:\" is missing");
    if (scheme_.NameError.empty()) Fail("the scheme has no name");
  }

  void Set(std::string_view key, std::string_view value) {
    for (const KeyRow& row : Keys) {
      if (row.Key != key) continue;
      if (!seen_.insert(row.Key).second) Fail('"' + std::string(key) + "\" stands twice");
      Put(row, value);
      return;
    }
    Fail("there is no key \"" + std::string(key) + '"');
  }

  void Put(const KeyRow& row, std::string_view value) {
    if (const auto* const text = std::get_if<String ErrorHandlerScheme::*>(&row.Field)) {
      scheme_.*(*text) = vb::FromUtf8(Plain(value));
    } else if (const auto* const flag = std::get_if<bool ErrorHandlerScheme::*>(&row.Field)) {
      if (value != "yes" && value != "no") Fail(Takes(row, "yes or no", value));
      scheme_.*(*flag) = value == "yes";
    } else {
      std::int32_t& number = scheme_.*std::get<std::int32_t ErrorHandlerScheme::*>(row.Field);
      const auto* const end = value.data() + value.size();
      const auto read = std::from_chars(value.data(), end, number);
      if (read.ec != std::errc() || read.ptr != end) Fail(Takes(row, "a whole number", value));
    }
  }

  static std::string Takes(const KeyRow& row, const std::string& what, std::string_view value) {
    return std::string(row.Key) + " takes " + what + ", not \"" + std::string(value) + '"';
  }

  [[nodiscard]] std::string Plain(std::string_view value) const {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
      if (value[at] != '\\') {
        text += value[at];
        continue;
      }
      const char letter = ++at < value.size() ? value[at] : ' ';
      const std::size_t before = text.size();
      for (const EscapeRow& row : Escapes) {
        if (row.Letter == letter) text += row.Sign;
      }
      if (text.size() == before) Fail("behind \"\\\" stands \"\\\", \"r\" or \"n\"");
    }
    return text;
  }

  /// The lines up to one that is neither empty nor four blanks in.
  String ReadBlock() {
    String text;
    bool first = true;
    while (Next()) {
      if (!line_.empty() && line_.substr(0, Margin.size()) != Margin) break;
      if (!first) text += vb::CrLf;
      first = false;
      if (!line_.empty()) text += vb::FromUtf8(line_.substr(Margin.size()));
    }
    return Colored(text);
  }

  std::string_view rest_, line_;
  const std::string& file_;
  int number_ = 0;
  bool found_ = false;
  std::set<std::string_view> seen_;
  ErrorHandlerScheme scheme_;
};

}  // namespace

std::string WriteScheme(const ErrorHandlerScheme& scheme) {
  std::string text;
  for (const KeyRow& row : Keys) {
    const std::string value = ValueOf(scheme, row);
    text += std::string(row.Key) + (value.empty() ? ":" : ": ") + value + '\n';
  }
  return text + Block(HeaderLine, scheme.Header) + Block(FooterLine, scheme.Footer);
}

ErrorHandlerScheme ReadScheme(std::string_view bytes, const std::string& file) {
  return Reader(bytes, file).Read();
}

}  // namespace tessel::batch
