#include "hosts/workspace/Companions.h"

#include <algorithm>

#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/Paths.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

/// The name in a line `Icon = "Form1.frx":0000`; empty for any other.
std::string_view NameIn(std::string_view line) {
  const std::size_t end = line.rfind("\":");
  if (end == std::string_view::npos || end == 0) return {};
  const std::size_t start = line.rfind('"', end - 1);
  if (start == std::string_view::npos || line.find('=') > start) return {};
  return line.substr(start + 1, end - start - 1);
}

fs::path PlainName(const std::string& name, int codePage) {
  return PathOf(vb::Replace(Decode(name, codePage), u"\\", u"/")).filename();
}

bool SameName(const fs::path& a, const fs::path& b) { return vb::SameText(TextOf(a), TextOf(b)); }

}  // namespace

std::vector<Companion> CompanionsOf(std::string_view head, const fs::path& file, int codePage) {
  std::vector<Companion> found;
  for (std::size_t at = 0; at < head.size();) {
    const std::size_t next = NextLine(head, at);
    const std::string name(NameIn(Trimmed(head.substr(at, next - at))));
    at = next;
    const auto known = [&](const Companion& one) { return one.Name == name; };
    if (name.empty() || std::any_of(found.begin(), found.end(), known)) continue;
    const fs::path path = ResolveNamed(file.parent_path(), name, codePage);
    std::error_code error;
    if (fs::is_regular_file(path, error)) found.push_back({name, path, files::ReadFile(path)});
  }
  return found;
}

std::vector<std::string> NamesBeside(const fs::path& target, const fs::path& file,
                                     const std::vector<Companion>& companions, int codePage,
                                     Following following) {
  std::vector<std::string> names;
  for (const Companion& one : companions) {
    const fs::path plain = PlainName(one.Name, codePage);
    const auto likes = std::count_if(companions.begin(), companions.end(), [&](const auto& other) {
      return SameName(PlainName(other.Name, codePage).extension(), plain.extension());
    });
    const bool follows =
        (likes == 1 && following == Following::AndLoneOnes) || SameName(plain.stem(), file.stem());
    std::string name = one.Name;
    if (follows && !SameName(plain.stem(), target.stem())) {
      std::size_t at = 0;
      auto bytes = Encode(TextOf(target.stem()) + TextOf(plain.extension()), codePage, at);
      // A name beyond the code page can't stand in the head.
      if (bytes) name = *std::move(bytes);
    }
    names.push_back(std::move(name));
  }
  return names;
}

std::string WithCompanion(std::string_view head, std::string_view name, std::string_view fresh) {
  std::string result(head);
  const std::string quoted = "\"" + std::string(name) + "\":";
  for (std::size_t at = result.find(quoted); at != std::string::npos;
       at = result.find(quoted, at + fresh.size())) {
    result.replace(at + 1, name.size(), fresh);
  }
  return result;
}

}  // namespace tessel::workspace
