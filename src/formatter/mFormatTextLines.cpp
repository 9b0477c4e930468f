// The small scanners that cut a line into its parts, and the writing of a statement. They know
// double quotes and nothing else of the language.

#include "formatter/mFormatText.h"
#include "foundation/Routine.h"

namespace tessel::mFormatText {
namespace {

/// Working marks that can't occur in a line: ":=" and a colon inside a string.
constexpr StringView NamedArgumentMark = u"\r\n", ColonMark = u"\r";

struct DropEmpty {
  Pieces operator()(std::monostate) const { return {}; }
  Pieces operator()(const String& text) const {
    const StringView trimmed = vb::Trim(text);
    return trimmed.empty() ? Pieces() : Pieces(String(trimmed));
  }
  Pieces operator()(const std::vector<String>& list) const {
    std::vector<String> kept;
    for (const String& text : list) {
      const StringView trimmed = vb::Trim(text);
      if (!trimmed.empty()) kept.emplace_back(trimmed);
    }
    return kept.empty() ? Pieces() : Pieces(std::move(kept));
  }
};

/// The text with colons of strings and of named arguments marked.
String MarkedColons(StringView text) {
  String work;
  work.reserve(text.size());
  bool inString = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit == u'"') inString = !inString;
    if (text.substr(at, 2) == u":=") {
      work += NamedArgumentMark;
      ++at;
    } else if (unit == u':' && inString) {
      work += ColonMark;
    } else {
      work += unit;
    }
  }
  return work;
}

/// Writes a statement whose indent alone is wider than the limit: every word on a line of its own.
String WrapPerWord(StringView indent, StringView restLead, StringView line) {
  String result;
  for (StringView work = line; !work.empty();) {
    result += result.empty() ? indent : restLead;
    const std::size_t cut = ProcessingSpace(work, 1);
    if (cut == 0) {  // the last word, which ends the statement
      result += work;
      result += vb::CrLf;
      break;
    }
    result += work.substr(0, cut);
    result += u"_\r\n";
    // The blank at the cut is dropped: kept, it would be found again and again.
    work.remove_prefix(cut);
  }
  return result;
}

/// Writes a statement over as many lines as the limit asks for.
String WrapAtLimit(std::size_t limit, StringView indent, StringView restLead, StringView line) {
  String result;
  StringView work = line;
  while (!work.empty()) {
    std::size_t from = 1, cut = 0;
    for (;;) {
      from = cut + 1;
      cut = ProcessingSpace(work, from);
      if (cut == 0 || indent.size() + cut + 1 >= limit) break;
    }
    result += result.empty() ? indent : restLead;
    if (from != 1) {
      result += work.substr(0, from - 1);
      if (work.size() > from) result += u'_';
      work.remove_prefix(from - 1);
    } else if (cut != 0) {
      result += work.substr(0, cut - 1);
      result += u" _";
      work.remove_prefix(cut);
    } else {
      result += work;
      work = {};
    }
    result += vb::CrLf;
  }
  return result;
}

}  // namespace

std::size_t ProcessingCommentarary(StringView line) {
  if (line.find(u'\'') == StringView::npos) return 0;
  bool inString = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == u'"') inString = !inString;
    if (line[at] == u'\'' && !inString) return at + 1;
  }
  return 0;
}

Pieces DeleteNullLines(const Pieces& value) { return std::visit(DropEmpty{}, value); }

Pieces ProcessingColon(StringView text) {
  if (text.find(u':') == StringView::npos) return DeleteNullLines(String(text));
  const String work = MarkedColons(text);
  std::vector<String> items = vb::Split(vb::Trim(work), u":");
  for (String& item : items) {
    item = vb::Replace(vb::Replace(item, NamedArgumentMark, u":="), ColonMark, u":");
  }
  return DeleteNullLines(std::move(items));
}

std::size_t ProcessingSpace(StringView text, std::size_t start) {
  bool inString = false;
  for (std::size_t at = start - 1; at < text.size(); ++at) {
    if (text[at] == u'"') inString = !inString;
    if (text[at] == u' ' && !inString) return at + 1;
  }
  return 0;
}

String RunLineWrapping(const FormatRun& format, StringView indent, StringView line) {
  if (!format.EnableCodeLines || format.CompactWrapped) return String(indent) + String(line);
  const auto limit = static_cast<std::size_t>(format.LineCharacters);
  String result;
  Routine(u"mFormatText.RunLineWrapping", [&] {
    result.clear();
    const String restLead = String(indent.size(), u' ') +
                            String(static_cast<std::size_t>(format.AdditionalTabs), u'\t');
    if (indent.size() > limit) {
      result = WrapPerWord(indent, restLead, line);
    } else if (indent.size() + line.size() < limit) {
      result = String(indent) + String(line);
    } else {
      result = WrapAtLimit(limit, indent, restLead, line);
    }
  });
  return result;
}

}  // namespace tessel::mFormatText
