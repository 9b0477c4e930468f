#include "hosts/workspace/ProjectFile.h"

#include <algorithm>

#include "vb/Text.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

struct KeyKind {
  std::string_view Key;
  host::vbext_ComponentType Type;
  bool Named;  ///< "Name; file" rather than "file"
};
constexpr KeyKind Kinds[] = {{"module", host::vbext_ct_StdModule, true},
                             {"class", host::vbext_ct_ClassModule, true},
                             {"form", host::vbext_ct_VBForm, false},
                             {"usercontrol", host::vbext_ct_UserControl, false},
                             {"propertypage", host::vbext_ct_PropPage, false},
                             {"userdocument", host::vbext_ct_DocObject, false},
                             {"designer", host::vbext_ct_ActiveXDesigner, false},
                             {"resfile32", host::vbext_ct_ResFile, false},
                             {"relateddoc", host::vbext_ct_RelatedDocument, false}};

constexpr std::string_view WrittenKeys[] = {
    "Module", "Class", "Form", "UserControl", "PropertyPage", "UserDocument", "Designer"};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& unit : lower) {
    if (unit >= 'A' && unit <= 'Z') unit = static_cast<char>(unit + 32);
  }
  return lower;
}

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1));
}

std::string Unquoted(std::string text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

std::string LineEndOf(std::string_view line) {
  const std::size_t end = line.find_last_not_of("\r\n");
  return std::string(line.substr(end == std::string_view::npos ? 0 : end + 1));
}

std::vector<std::string> LinesOf(std::string_view bytes) {
  std::vector<std::string> lines;
  while (!bytes.empty()) {
    std::size_t end = bytes.find_first_of("\r\n");
    if (end == std::string_view::npos) {
      end = bytes.size();
    } else {
      end += bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1;
    }
    lines.emplace_back(bytes.substr(0, end));
    bytes.remove_prefix(end);
  }
  return lines;
}

/// Takes a line as a component; false for any other line. Sections behind the first "[" hold other
/// things.
bool ReadEntry(const std::string& line, ProjectEntry& entry) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return false;
  const std::string key = Lower(Trimmed(line.substr(0, equals)));
  const std::string value = Trimmed(line.substr(equals + 1));
  for (const KeyKind& kind : Kinds) {
    if (key != kind.Key) continue;
    entry.Type = kind.Type;
    const std::size_t semicolon = kind.Named ? value.find(';') : std::string::npos;
    entry.Name = semicolon == std::string::npos ? "" : Trimmed(value.substr(0, semicolon));
    entry.File =
        Unquoted(semicolon == std::string::npos ? value : Trimmed(value.substr(semicolon + 1)));
    return true;
  }
  return false;
}

}  // namespace

ProjectFile::ProjectFile(fs::path path, const std::string& bytes)
    : path_(std::move(path)), lines_(LinesOf(bytes)) {}

std::vector<ProjectEntry> ProjectFile::Entries() const {
  std::vector<ProjectEntry> entries;
  for (std::size_t at = 0; at < lines_.size(); ++at) {
    if (lines_[at].front() == '[') break;
    ProjectEntry entry;
    if (!ReadEntry(lines_[at], entry)) continue;
    entry.Line = at;
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::optional<std::string> ProjectFile::Value(std::string_view key) const {
  for (const std::string& line : lines_) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos && Lower(Trimmed(line.substr(0, equals))) == Lower(key)) {
      return Unquoted(Trimmed(line.substr(equals + 1)));
    }
  }
  return std::nullopt;
}

host::vbext_ProjectType ProjectFile::Type() const {
  const std::string type = Lower(Value("Type").value_or("Exe"));
  if (type == "oleexe") return host::vbext_pt_ActiveXExe;
  if (type == "oledll") return host::vbext_pt_ActiveXDll;
  return type == "control" ? host::vbext_pt_ActiveXControl : host::vbext_pt_StandardExe;
}

std::string ProjectFile::Bytes() const {
  std::string bytes;
  for (const std::string& line : lines_) bytes += line;
  return bytes;
}

void ProjectFile::AddEntry(host::vbext_ComponentType type, const std::string& name,
                           const std::string& file) {
  const auto lookup = type == host::vbext_ct_VBMDIForm ? host::vbext_ct_VBForm : type;
  for (std::size_t kind = 0; kind < std::size(WrittenKeys); ++kind) {
    if (Kinds[kind].Type != lookup) continue;
    const auto entries = Entries();
    const std::size_t at =
        entries.empty() ? std::min<std::size_t>(1, lines_.size()) : entries.back().Line + 1;
    const std::string end = lines_.empty() ? "\r\n" : LineEndOf(lines_.front());
    if (at > 0 && LineEndOf(lines_[at - 1]).empty()) lines_[at - 1] += end;
    std::string line = std::string(WrittenKeys[kind]) + "=";
    if (Kinds[kind].Named) line.append(name).append("; ");
    line.append(file).append(end.empty() ? "\r\n" : end);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
    modified_ = true;
  }
}

void ProjectFile::RenameEntry(const std::string& file, const std::string& name) {
  for (const ProjectEntry& entry : Entries()) {
    if (entry.File != file || entry.Name.empty() || entry.Name == name) continue;
    std::string& line = lines_[entry.Line];
    line.replace(line.find(entry.Name, line.find('=')), entry.Name.size(), name);
    modified_ = true;
  }
}

void ProjectFile::RemoveEntry(const std::string& file) {
  for (const ProjectEntry& entry : Entries()) {
    if (entry.File != file) continue;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(entry.Line));
    modified_ = true;
    return;
  }
}

std::vector<std::string> ReadGroup(std::string_view bytes) {
  std::vector<std::string> projects;
  for (const std::string& line : LinesOf(bytes)) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    const std::string key = Lower(Trimmed(line.substr(0, equals)));
    if (key != "project" && key != "startupproject") continue;
    projects.push_back(Unquoted(Trimmed(line.substr(equals + 1))));
  }
  return projects;
}

fs::path ResolvePath(const fs::path& folder, const fs::path& written) {
  std::string text = written.string();
  std::replace(text.begin(), text.end(), '\\', '/');
  const fs::path plain = fs::path(text).is_absolute() ? fs::path(text) : folder / text;
  std::error_code error;
  if (fs::exists(plain, error)) return plain.lexically_normal();
  fs::path found = fs::path(text).is_absolute() ? fs::path("/") : folder;
  for (const fs::path& part : fs::path(text).relative_path()) {
    if (part == "." || part == ".." || fs::exists(found / part, error)) {
      found /= part;
      continue;
    }
    const String wanted = part.u16string();
    bool matched = false;
    for (fs::directory_iterator entry(found, error), end; !error && entry != end;
         entry.increment(error)) {
      if (!vb::SameText(entry->path().filename().u16string(), wanted)) continue;
      found = entry->path();
      matched = true;
      break;
    }
    if (!matched) return plain.lexically_normal();
  }
  return found.lexically_normal();
}

}  // namespace tessel::workspace
