// The sorting of code lines by their first word or two.

#include <unordered_map>
#include <utility>

#include "errorhandlers/mInsertErrorHandlerCode.h"

namespace tessel::mInsertErrorHandlerCode {
namespace {

using KindTable = std::unordered_map<StringView, std::int32_t>;

const KindTable& FirstWords() {
  static const KindTable table{
      {u"FUNCTION", HeadLine}, {u"SUB", HeadLine},     {u"PROPERTY", HeadLine},
      {u"DIM", PaddedLine},    {u"REDIM", PaddedLine}, {u"ON", PaddedLine},
      {u"CONST", PaddedLine},  {u"ELSE", PaddedLine},  {u"NEXT", PaddedLine}};
  return table;
}

const KindTable& WordPairs() {
  static const KindTable table{{u"END FUNCTION", EndLine},     {u"END SUB", EndLine},
                               {u"END PROPERTY", EndLine},     {u"PRIVATE FUNCTION", HeadLine},
                               {u"PUBLIC FUNCTION", HeadLine}, {u"FRIEND FUNCTION", HeadLine},
                               {u"STATIC FUNCTION", HeadLine}, {u"PRIVATE SUB", HeadLine},
                               {u"PUBLIC SUB", HeadLine},      {u"FRIEND SUB", HeadLine},
                               {u"STATIC SUB", HeadLine},      {u"PRIVATE PROPERTY", HeadLine},
                               {u"PUBLIC PROPERTY", HeadLine}, {u"FRIEND PROPERTY", HeadLine},
                               {u"STATIC PROPERTY", HeadLine}, {u"PRIVATE STATIC", HeadLine},
                               {u"PUBLIC STATIC", HeadLine},   {u"FRIEND STATIC", HeadLine},
                               {u"PUBLIC _", HeadLine},        {u"PRIVATE _", HeadLine},
                               {u"FRIEND _", HeadLine},        {u"STATIC _", HeadLine},
                               {u"PROPERTY _", HeadLine},      {u"END IF", PaddedLine},
                               {u"END WITH", PaddedLine},      {u"END SELECT", PaddedLine}};
  return table;
}

/// Words in capitals, as long as those of the tables; anything longer stands in none.
class Capitals {
 public:
  explicit Capitals(StringView words) {
    if (words.size() > std::size(units_)) return;
    for (const char16_t unit : words) {
      if (unit >= 0x80) {
        foreign_ = vb::UCase(words);
        return;
      }
      units_[size_++] = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
  }
  [[nodiscard]] StringView Text() const {
    return foreign_.empty() ? StringView(units_, size_) : StringView(foreign_);
  }

 private:
  char16_t units_[16] = {};
  std::size_t size_ = 0;
  String foreign_;
};

/// Whether some listed word, or an apostrophe, begins like this one; most statements don't.
bool MayBeListed(StringView word) {
  constexpr StringView Firsts = u"cdefnoprs'";
  if (word.empty()) return false;
  const char16_t first = word.front();
  return first >= 0x80 || first == u'\'' ||
         Firsts.find(static_cast<char16_t>(first | 0x20)) != StringView::npos;
}

/// The kind of a line without blanks around it.
std::int32_t KindOf(bool& firstCaseFlag, StringView line) {
  const std::size_t first = line.find(u' ');
  const StringView word = line.substr(0, first);
  if (!word.empty() && word.back() == u':') return LabelLine;
  if (!MayBeListed(word)) return NumberedLine;
  const Capitals capitals(word);
  const auto byWord = FirstWords().find(capitals.Text());
  if (byWord != FirstWords().end()) return byWord->second;
  if (capitals.Text() == u"CASE") {
    return std::exchange(firstCaseFlag, false) ? PaddedLine : NumberedLine;
  }
  if (!word.empty() && word.front() == u'\'') return PaddedLine;
  const std::size_t second = first == StringView::npos ? first : line.find(u' ', first + 1);
  const Capitals pair(line.substr(0, second));
  if (pair.Text() == u"SELECT CASE") firstCaseFlag = true;
  const auto byPair = WordPairs().find(pair.Text());
  return byPair == WordPairs().end() ? NumberedLine : byPair->second;
}

}  // namespace

std::int32_t ReturnTypeProcessing(RunContext& context, String& line) {
  line = String(vb::Trim(line));
  return KindOf(context.FirstCaseFlag, line);
}

std::int32_t LineKindOf(RunContext& context, StringView trimmed) {
  return KindOf(context.FirstCaseFlag, trimmed);
}

}  // namespace tessel::mInsertErrorHandlerCode
