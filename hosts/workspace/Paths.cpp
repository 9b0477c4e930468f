#include "hosts/workspace/Paths.h"

#include <algorithm>
#include <iterator>

#include "hosts/workspace/CodePages.h"
#include "vb/ByteText.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

constexpr int Pages[] = {Utf8CodePage, 932, 1252, 1251, 1250, 936, 949, 950, 1253, 1254, 1257};

fs::path NamedIn(const std::string& written, int page) { return PathOf(Decode(written, page)); }

bool Exists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

}  // namespace

String TextOf(const fs::path& path) { return vb::FromBytes(path.string()); }

fs::path PathOf(StringView text) { return {vb::ToBytes(text)}; }

/// Most paths that are compared lie in one folder and differ in their last letters: these are
/// looked at first, and only what isn't plain letters is turned into text.
bool SamePath(const fs::path& one, const fs::path& other) {
  const std::string &a = one.native(), &b = other.native();
  const auto fold = [](char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
  };
  const auto [left, right] =
      std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend(),
                    [&](char first, char second) { return fold(first) == fold(second); });
  if (left == a.rend() || right == b.rend()) return left == a.rend() && right == b.rend();
  const auto isPlain = [](char unit) { return static_cast<unsigned char>(unit) < 0x80; };
  if (isPlain(*left) && isPlain(*right)) return false;
  return vb::SameText(TextOf(one), TextOf(other));
}

fs::path ResolvePath(const fs::path& folder, const fs::path& written) {
  std::string text = written.string();
  std::replace(text.begin(), text.end(), '\\', '/');
  const fs::path plain = fs::path(text).is_absolute() ? fs::path(text) : folder / text;
  if (Exists(plain)) return plain.lexically_normal();
  fs::path found = fs::path(text).is_absolute() ? fs::path("/") : folder;
  for (const fs::path& part : fs::path(text).relative_path()) {
    if (part == "." || part == ".." || Exists(found / part)) {
      found /= part;
      continue;
    }
    const String wanted = TextOf(part);
    bool matched = false;
    std::error_code error;
    for (fs::directory_iterator entry(found, error), end; !error && entry != end;
         entry.increment(error)) {
      if (!vb::SameText(TextOf(entry->path().filename()), wanted)) continue;
      found = entry->path();
      matched = true;
      break;
    }
    if (!matched) return plain.lexically_normal();
  }
  return found.lexically_normal();
}

fs::path ResolveNamed(const fs::path& folder, const std::string& written, int likelyPage) {
  fs::path asWritten = ResolvePath(folder, written);
  if (IsAscii(written) || Exists(asWritten)) return asWritten;
  fs::path likely = ResolvePath(folder, NamedIn(written, likelyPage));
  if (Exists(likely)) return likely;
  for (const int page : Pages) {
    fs::path other = ResolvePath(folder, NamedIn(written, page));
    if (Exists(other)) return other;
  }
  return likely;
}

int CodePageOfNames(const fs::path& folder, const std::vector<std::string>& names, int likelyPage) {
  std::vector<std::string> telling;
  for (const std::string& name : names) {
    if (!IsAscii(name)) telling.push_back(name);
  }
  if (telling.empty()) return 0;
  // A byte that a page lacks is the same in any name: a file that bears it tells nothing.
  const auto isIn = [](const std::string& name, int page) {
    const String text = Decode(name, page);
    return std::none_of(text.begin(), text.end(), vb::IsByteEscape);
  };
  const auto suits = [&](int page) {
    return std::all_of(telling.begin(), telling.end(), [&](const std::string& name) {
      return isIn(name, page) && Exists(ResolvePath(folder, NamedIn(name, page)));
    });
  };
  if (suits(likelyPage)) return likelyPage;
  const auto* const found = std::find_if(std::begin(Pages), std::end(Pages), suits);
  return found == std::end(Pages) ? 0 : *found;
}

String WrittenPath(const fs::path& file, const fs::path& project) {
  return vb::Replace(
      TextOf(fs::absolute(file).lexically_relative(fs::absolute(project).parent_path())), u"/",
      u"\\");
}

}  // namespace tessel::workspace
