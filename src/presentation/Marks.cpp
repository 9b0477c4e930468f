#include "presentation/Marks.h"

#include <algorithm>

namespace tessel::mCodeConverter {
namespace {

struct Mark {
  std::size_t Start, End;  // with both signs
  std::size_t Index;
  bool Taken = false;
};

/// The mark that opens at `at`, if one does: the index in plain decimal digits.
bool ReadMark(StringView text, std::size_t at, char16_t sign, std::size_t count, Mark& mark) {
  std::size_t index = 0, end = at + 1;
  while (end < text.size() && text[end] >= u'0' && text[end] <= u'9' && index <= count) {
    index = index * 10 + (text[end] - u'0');
    ++end;
  }
  const std::size_t digits = end - at - 1;
  if (digits == 0 || end >= text.size() || text[end] != sign || index >= count) return false;
  if (digits > 1 && text[at + 1] == u'0') return false;
  mark = {at, end + 1, index};
  return true;
}

/// All marks of index `first` or more, also those that overlap.
std::vector<Mark> FindMarks(StringView text, char16_t sign, std::size_t first, std::size_t count) {
  std::vector<Mark> marks;
  Mark mark{};
  for (std::size_t at = text.find(sign); at != StringView::npos; at = text.find(sign, at + 1)) {
    if (ReadMark(text, at, sign, count, mark) && mark.Index >= first) marks.push_back(mark);
  }
  return marks;
}

/// Of a run of marks that share their signs, takes those that come first by index, then by place.
void TakeFromRun(std::vector<Mark>& marks, std::size_t begin, std::size_t end) {
  std::vector<std::size_t> order;
  for (std::size_t at = begin; at < end; ++at) order.push_back(at);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return marks[left].Index < marks[right].Index;
  });
  for (const std::size_t at : order) {
    const bool before = at > begin && marks[at - 1].Taken;
    const bool behind = at + 1 < end && marks[at + 1].Taken;
    marks[at].Taken = !before && !behind;
  }
}

void TakeMarks(std::vector<Mark>& marks) {
  std::size_t begin = 0;
  while (begin < marks.size()) {
    std::size_t end = begin + 1;
    while (end < marks.size() && marks[end].Start < marks[end - 1].End) ++end;
    TakeFromRun(marks, begin, end);
    begin = end;
  }
}

/// Fills the marks of index `first` or more with texts that are filled themselves.
String Fill(StringView text, char16_t sign, std::size_t first, const std::vector<String>& filled) {
  std::vector<Mark> marks = FindMarks(text, sign, first, filled.size());
  TakeMarks(marks);
  String result;
  std::size_t at = 0;
  for (const Mark& mark : marks) {
    if (!mark.Taken) continue;
    result += text.substr(at, mark.Start - at);
    result += filled[mark.Index];
    at = mark.End;
  }
  result += text.substr(at);
  return result;
}

}  // namespace

String FillMarks(StringView text, char16_t sign, const std::vector<String>& texts) {
  std::vector<String> filled = texts;
  for (std::size_t index = filled.size(); index-- > 0;) {
    if (filled[index].find(sign) != String::npos) {
      filled[index] = Fill(filled[index], sign, index + 1, filled);
    }
  }
  return Fill(text, sign, 0, filled);
}

}  // namespace tessel::mCodeConverter
