// Which code page files that don't say it were written in.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "hosts/workspace/CodePages.h"
#include "vb/ByteText.h"

namespace tessel::workspace {
namespace {

unsigned char Byte(char unit) { return static_cast<unsigned char>(unit); }

/// The place of the next byte beyond ASCII, the length for none. Looks at eight bytes at a time,
/// since most texts hold few of them or none.
std::size_t NextHigh(std::string_view bytes, std::size_t at) {
  constexpr std::uint64_t HighBits = 0x8080808080808080;
  for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
    std::memcpy(&eight, bytes.data() + at, sizeof eight);
    if ((eight & HighBits) != 0) break;
  }
  while (at < bytes.size() && Byte(bytes[at]) < 0x80) ++at;
  return at;
}

/// The pairs that make up nearly all of a text in a code page of two bytes: its punctuation and the
/// common half of its characters, which those standards keep apart from the rare ones.
struct CommonPairs {
  int CodePage;
  unsigned char FirstLead, LastLead, FirstTrail, LastTrail;
};

constexpr CommonPairs Common[] = {
    {932, 0x81, 0x83, 0x40, 0xFC}, {932, 0x88, 0x98, 0x40, 0xFC},  // JIS X 0208, level 1
    {949, 0xA1, 0xA1, 0xA1, 0xFE}, {949, 0xA3, 0xA3, 0xA1, 0xFE}, {949, 0xB0, 0xC8, 0xA1, 0xFE},
    {936, 0xA1, 0xA1, 0xA1, 0xFE}, {936, 0xA3, 0xA3, 0xA1, 0xFE}, {936, 0xB0, 0xD7, 0xA1, 0xFE},
    {950, 0xA1, 0xA1, 0x40, 0x7E}, {950, 0xA1, 0xA1, 0xA1, 0xFE}, {950, 0xA4, 0xC6, 0x40, 0x7E},
    {950, 0xA4, 0xC6, 0xA1, 0xFE},
};

/// The syllables of 949 lie in the middle of the characters of 936, so 949 goes first.
constexpr int DoubleBytePages[] = {932, 949, 936, 950};

/// How a text reads in one code page of two bytes.
struct Reading {
  std::size_t Pairs = 0, InRow = 0, Other = 0;
};

/// What the high bytes of all files look like.
struct Statistics {
  std::size_t High = 0, Runs = 0, InLetters = 0;
  std::size_t JapanesePairs = 0, KanaPairs = 0, NotJapanese = 0;
  std::size_t HalfWidth = 0, Voiced = 0;
  std::array<Reading, std::size(DoubleBytePages)> Readings{};
  bool Utf8 = true, SawSequence = false;
};

/// Kana of one byte in 932.
bool IsHalfWidthKana(unsigned char byte) { return byte >= 0xA1 && byte <= 0xDF; }
/// The mark behind such a kana that voices it, which hardly a Japanese word lacks.
bool IsVoiceMark(unsigned char byte) { return byte == 0xDE || byte == 0xDF; }

bool IsCommonPair(unsigned char lead, unsigned char trail, int codePage) {
  return std::any_of(std::begin(Common), std::end(Common), [&](const CommonPairs& one) {
    return one.CodePage == codePage && lead >= one.FirstLead && lead <= one.LastLead &&
           trail >= one.FirstTrail && trail <= one.LastTrail;
  });
}

void CountReading(std::string_view bytes, int codePage, Reading& seen) {
  std::size_t row = 0;  // common pairs that touch each other, up to here
  for (std::size_t at = NextHigh(bytes, 0); at < bytes.size(); ++at) {
    const unsigned char byte = Byte(bytes[at]);
    if (byte < 0x80) {
      row = 0;
      at = NextHigh(bytes, at) - 1;
      continue;
    }
    const unsigned char next = at + 1 < bytes.size() ? Byte(bytes[at + 1]) : 0;
    if (IsCommonPair(byte, next, codePage)) {
      ++seen.Pairs;
      ++row;
      seen.InRow += row == 1 ? 0 : row == 2 ? 2 : 1;
      ++at;
      continue;
    }
    if (codePage == 932 && IsHalfWidthKana(byte)) continue;
    row = 0;
    ++seen.Other;
    if (next >= 0x80) ++at;
  }
}

void CountJapanese(std::string_view run, Statistics& seen) {
  for (std::size_t at = 0; at < run.size(); ++at) {
    const unsigned char byte = Byte(run[at]);
    if (IsHalfWidthKana(byte)) {
      ++seen.HalfWidth;
      if (IsVoiceMark(byte)) ++seen.Voiced;
      continue;
    }
    const bool lead = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    if (!lead) {
      ++seen.NotJapanese;
      continue;
    }
    ++seen.JapanesePairs;
    if (byte == 0x82 || byte == 0x83) ++seen.KanaPairs;
    ++at;
  }
}

void Count(std::string_view bytes, Statistics& seen) {
  for (std::size_t page = 0; page < std::size(DoubleBytePages); ++page) {
    CountReading(bytes, DoubleBytePages[page], seen.Readings[page]);
  }
  for (std::size_t at = NextHigh(bytes, 0); at < bytes.size(); at = NextHigh(bytes, at)) {
    std::size_t end = at;
    while (end < bytes.size() && Byte(bytes[end]) >= 0x80) ++end;
    ++seen.Runs;
    seen.High += end - at;
    for (std::size_t one = at; one < end; ++one) seen.InLetters += Byte(bytes[one]) >= 0xC0 ? 1 : 0;
    // The second byte of a Japanese pair may be an ASCII letter.
    CountJapanese(bytes.substr(at, end - at), seen);
    for (std::string_view rest = bytes.substr(at, end - at); !rest.empty() && seen.Utf8;) {
      char32_t point = 0;
      const std::size_t length = vb::ReadUtf8(rest, point);
      seen.Utf8 = length > 1;
      seen.SawSequence |= length > 1;
      rest.remove_prefix(std::max<std::size_t>(1, length));
    }
    at = end;
  }
}

/// Whether the high bytes read as a text in that page: common characters, in words. A letter with
/// an accent or a sign makes a pair with the letter behind it now and then, but seldom two.
bool ReadsAs(const Reading& seen) {
  return seen.InRow * 3 >= seen.Pairs * 2 && seen.InRow > 0 && seen.Other * 9 <= seen.Pairs;
}

/// The page of two bytes in which most pairs are common ones; 0 when it reads in none of them.
int DoubleBytePage(const Statistics& seen) {
  // The letters of Cyrillic, Greek, Hebrew and Arabic lie together at the end of their pages, where
  // the second bytes of pairs don't stay.
  const bool isAlphabet = seen.InLetters * 10 >= seen.High * 8;
  if (!isAlphabet && seen.HalfWidth == seen.High && seen.Voiced * 8 >= seen.High &&
      seen.High >= 3 * seen.Runs) {
    return 932;
  }
  const Reading* best = nullptr;
  for (const Reading& one : seen.Readings) {
    const bool mayBe = ReadsAs(one) && (&one == seen.Readings.data() || !isAlphabet);
    if (mayBe && (best == nullptr || one.Other < best->Other)) best = &one;
  }
  return best == nullptr ? 0 : DoubleBytePages[best - seen.Readings.data()];
}

}  // namespace

int GuessCodePage(const std::vector<std::string_view>& files) {
  Statistics seen;
  for (const std::string_view bytes : files) Count(bytes, seen);
  if (seen.High == 0) return 1252;
  if (seen.Utf8 && seen.SawSequence) return Utf8CodePage;
  if (seen.KanaPairs * 4 >= seen.JapanesePairs && seen.KanaPairs > 0 &&
      seen.NotJapanese * 20 <= seen.JapanesePairs) {
    return 932;
  }
  if (const int page = DoubleBytePage(seen); page != 0) return page;
  const bool inWords = seen.High >= 3 * seen.Runs && seen.InLetters * 10 >= seen.High * 8;
  return inWords ? 1251 : 1252;
}

}  // namespace tessel::workspace
