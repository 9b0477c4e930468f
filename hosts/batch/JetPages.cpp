#include "hosts/batch/JetPages.h"

#include <array>
#include <numeric>
#include <utility>

#include "vb/CodePages.h"

namespace tessel::batch {
namespace {

using Byte = unsigned char;

constexpr int CommonCodePage = 1252;
constexpr char DefinitionPage = 2;
constexpr char MemoType = 12, BytesType = 11;

/// Where a definition keeps its columns, in each of the two formats.
struct DefinitionPlaces {
  std::size_t ColumnCount, IndexCount, Indexes, IndexSize, ColumnSize;
};
constexpr DefinitionPlaces WidePlaces{45, 51, 63, 12, 25}, OldPlaces{25, 31, 43, 8, 18};

std::size_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  std::size_t value = 0;
  for (std::size_t byte = size; byte-- > 0;) {
    value = value << 8U | static_cast<Byte>(bytes[at + byte]);
  }
  return value;
}

/// The part of the header behind the version is written over with this key's stream.
std::string Uncovered(std::string_view bytes) {
  constexpr std::array<Byte, 4> Key{0xC7, 0xDA, 0x39, 0x6B};
  std::array<Byte, 256> state{};
  std::iota(state.begin(), state.end(), Byte{0});
  unsigned second = 0;
  for (unsigned first = 0; first < state.size(); ++first) {
    second = (second + state[first] + Key[first % Key.size()]) & 255U;
    std::swap(state[first], state[second]);
  }
  std::string out;
  unsigned first = 0;
  second = 0;
  for (const char byte : bytes) {
    first = (first + 1) & 255U;
    second = (second + state[first]) & 255U;
    std::swap(state[first], state[second]);
    const unsigned mask = state[(state[first] + state[second]) & 255U];
    out += static_cast<char>(static_cast<Byte>(byte) ^ mask);
  }
  return out;
}

/// The names behind a definition's columns: the length of each, then its text.
class NameReader {
 public:
  NameReader(std::string_view page, std::size_t at, const JetHeader& header)
      : page_(page), at_(at), header_(header) {}
  /// Nothing when the page ends ahead of it.
  std::optional<String> Next() {
    const std::size_t width = header_.Wide ? 2 : 1;
    if (at_ + width > page_.size()) return std::nullopt;
    const std::size_t length = Number(page_, at_, width);
    at_ += width;
    if (length > page_.size() - at_) return std::nullopt;
    const std::string_view name = page_.substr(at_, length);
    at_ += length;
    return header_.Wide ? TextOfWideColumn(name) : vb::TextOfBytes(name, header_.CodePage);
  }

 private:
  std::string_view page_;
  std::size_t at_;
  const JetHeader& header_;
};

}  // namespace

std::optional<JetHeader> ReadJetHeader(std::string_view bytes) {
  constexpr std::size_t Mark = 4, Version = 0x14, Covered = 0x18, CodePage = 0x3C, Key = 0x3E;
  if (bytes.size() < JetHeaderSize) return std::nullopt;
  const std::string_view name = bytes.substr(Mark);
  if (!name.starts_with("Standard Jet DB") && !name.starts_with("Standard ACE DB")) {
    return std::nullopt;
  }
  JetHeader header;
  header.Wide = bytes[Version] != 0;
  header.PageSize = header.Wide ? 4096 : 2048;
  const std::string plain = Uncovered(bytes.substr(Covered, JetHeaderSize - Covered));
  header.CodePage = static_cast<int>(Number(plain, CodePage - Covered, 2));
  if (header.CodePage == 0) header.CodePage = CommonCodePage;
  header.Encrypted = Number(plain, Key - Covered, 4) != 0;
  return header;
}

std::vector<JetColumn> MemosAsBytes(std::string& page, const JetHeader& header) {
  if (page.size() < header.PageSize || page[0] != DefinitionPage) return {};
  const DefinitionPlaces& places = header.Wide ? WidePlaces : OldPlaces;
  const std::size_t count = Number(page, places.ColumnCount, 2);
  const std::size_t indexes = Number(page, places.IndexCount, 4);
  const std::size_t first = places.Indexes + indexes * places.IndexSize;
  if (indexes > page.size() || first + count * places.ColumnSize > page.size()) return {};
  std::vector<JetColumn> columns;
  NameReader names(page, first + count * places.ColumnSize, header);
  for (std::size_t at = first; columns.size() < count; at += places.ColumnSize) {
    const auto name = names.Next();
    if (!name) return {};
    columns.push_back({*name, page[at] == MemoType});
  }
  for (std::size_t at = 0; at < count; ++at) {
    if (columns[at].Memo) page[first + at * places.ColumnSize] = BytesType;
  }
  return columns;
}

String TextOfWideColumn(std::string_view bytes) {
  bool shortForm = bytes.starts_with("\xFF\xFE");
  const bool mixed = shortForm;
  if (mixed) bytes.remove_prefix(2);
  String text;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto low = static_cast<Byte>(bytes[at]);
    if (mixed && low == 0) {
      shortForm = !shortForm;
      ++at;
    } else if (shortForm || at + 1 == bytes.size()) {
      text += static_cast<char16_t>(low);
      ++at;
    } else {
      text += static_cast<char16_t>(Number(bytes, at, 2));
      at += 2;
    }
  }
  return text;
}

}  // namespace tessel::batch
