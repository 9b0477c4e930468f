#include "hosts/workspace/ByteLines.h"

#include <algorithm>

namespace tessel::workspace {

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + 32) : unit;
  });
  return lower;
}

std::string_view Trimmed(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(" \t\r\n") - first + 1);
}

bool StartsWith(std::string_view line, std::string_view word) {
  return line.size() >= word.size() && Lower(line.substr(0, word.size())) == word;
}

std::size_t NextLine(std::string_view bytes, std::size_t at) {
  const std::size_t end = bytes.find_first_of("\r\n", at);
  if (end == std::string_view::npos) return bytes.size();
  return end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1);
}

int LineNumber(std::string_view bytes, std::size_t at) {
  int line = 1;
  for (std::size_t start = NextLine(bytes, 0); start <= at && start < bytes.size();
       start = NextLine(bytes, start)) {
    ++line;
  }
  return line;
}

std::vector<std::string> LinesOf(std::string_view bytes) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t next = NextLine(bytes, at);
    lines.emplace_back(bytes.substr(at, next - at));
    at = next;
  }
  return lines;
}

std::string_view LineEndOf(std::string_view line) {
  const std::size_t end = line.find_last_not_of("\r\n");
  return line.substr(end == std::string_view::npos ? 0 : end + 1);
}

std::size_t LengthWithoutPadding(std::string_view bytes) {
  const std::size_t last = bytes.find_last_not_of('\0');
  return last == std::string_view::npos ? 0 : last + 1;
}

}  // namespace tessel::workspace
