// MakeRTF in the plainest way: one pass of the standard library over the whole text for each entry
// and each mark. The oracle of the tests and the peer of the benchmark.
#pragma once

#include <string>
#include <vector>

#include "presentation/mCodeConverter.h"

namespace tessel::mCodeConverter {

inline void ReplaceAll(String& text, StringView what, StringView with) {
  for (std::size_t at = text.find(what); at != String::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

inline std::vector<String> PlainSplit(const String& text) {
  std::vector<String> lines;
  std::size_t start = 0;
  for (std::size_t end = text.find(u"\r\n"); end != String::npos; end = text.find(u"\r\n", start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  lines.push_back(text.substr(start));
  return lines;
}

inline void PlainComments(std::vector<String>& lines, std::vector<String>& comments) {
  for (String& line : lines) {
    const std::size_t q = vb::InStr(line, u"'");
    if (q == 0) continue;
    std::size_t d = vb::InStr(line, u"\"");
    bool comment = q <= d;
    if (!comment) {
      d = vb::InStr(d + 1, line, u"\"");
      comment = q > d;
    }
    if (!comment) continue;
    comments.push_back(u"\\cf1 " + line.substr(q - 1) + u"\\cf0 ");
    line = line.substr(0, q - 1) + u"k" + vb::Str(comments.size() - 1) + u"k";
  }
}

inline void PlainStrings(std::vector<String>& lines, std::vector<String>& strings) {
  for (String& line : lines) {
    std::size_t d = vb::InStr(line, u"\"");
    while (d > 0) {
      const std::size_t e = vb::InStr(d + 1, line, u"\"");
      if (e > 0) {
        strings.push_back(u"\\cf2 " + line.substr(d - 1, e - d + 1) + u"\\cf0 ");
        line.replace(d - 1, e - d + 1, u"?" + vb::Str(strings.size() - 1) + u"?");
      }
      d = d + 1 > line.size() ? 0 : vb::InStr(d + 1, line, u"\"");
    }
  }
}

inline void PlainKeyword(String& text, StringView k) {
  const String t(vb::Trim(k));
  const bool lead = k.front() == u' ', trail = k.back() == u' ', bracket = k.back() == u'(';
  const String name = t.substr(0, t.size() - 1);
  if (lead && trail) {
    ReplaceAll(text, k, u" \\cf3" + t + u"\\cf0  ");
  } else if (lead && bracket) {
    ReplaceAll(text, k, u" \\cf3" + name + u"\\cf0 (");
  } else if (lead) {
    ReplaceAll(text, k, u" \\cf3" + t + u"\\cf0 ");
  } else if (trail) {
    ReplaceAll(text, k, u" \\cf3" + t + u"\\cf0  ");
  } else if (bracket) {
    ReplaceAll(text, u" " + String(k), u" \\cf3" + name + u"\\cf0 (");
  } else {
    ReplaceAll(text, k, u" \\cf3" + t + u"\\cf0 ");
  }
}

inline String PlainMakeRTF(StringView source, int charset) {
  String text = u" " + String(source);
  ReplaceAll(text, u"\\", u"\\\\");
  ReplaceAll(text, u"_\r\n", u"_\x0E\n");
  ReplaceAll(text, u"\r\n", u"\r\nk ");
  std::vector<String> lines = PlainSplit(text), comments, strings;
  PlainComments(lines, comments);
  PlainStrings(lines, strings);
  text.clear();
  for (std::size_t at = 0; at < lines.size(); ++at) text += (at > 0 ? u"\r\n" : u"") + lines[at];
  for (const StringView entry : Keywords()) PlainKeyword(text, entry);
  ReplaceAll(text, u"\r\n ", u"\r\n");
  for (std::size_t i = 0; i < comments.size(); ++i) {
    ReplaceAll(text, u"k" + vb::Str(i) + u"k", comments[i]);
  }
  for (std::size_t i = 0; i < strings.size(); ++i) {
    ReplaceAll(text, u"?" + vb::Str(i) + u"?", strings[i]);
  }
  ReplaceAll(text, String(80, u'-'), u"");
  ReplaceAll(text, u"_\x0E\n", u"_\r\n");
  ReplaceAll(text, u"\r\nk ", u"\r\n");
  ReplaceAll(text, u"\r\n", u"\\par \r\n");
  const String document = MakeRTF(u"", charset);
  const StringView mark = u"\\fs20 ";
  const std::size_t start = document.find(mark) + mark.size();
  return document.substr(0, start) + text.substr(1) + document.substr(start);
}

}  // namespace tessel::mCodeConverter
