#include "hosts/workspace/ProjectFile.h"

#include <algorithm>
#include <iterator>

#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/ComponentKinds.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;

std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

struct KeyAndValue {
  std::string_view Key, Value;  // both trimmed
};

std::optional<KeyAndValue> Split(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  return KeyAndValue{Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1))};
}

/// Takes a line as a component; nothing for any other line.
std::optional<ProjectEntry> ReadEntry(std::string_view line) {
  const auto split = Split(line);
  const ComponentKind* const kind = split ? KindOfKey(split->Key) : nullptr;
  if (kind == nullptr) return std::nullopt;
  ProjectEntry entry;
  entry.Type = kind->Type;
  const std::size_t semicolon = kind->Named ? split->Value.find(';') : std::string_view::npos;
  if (semicolon == std::string_view::npos) {
    entry.File = Unquoted(split->Value);
  } else {
    entry.Name = Trimmed(split->Value.substr(0, semicolon));
    entry.File = Unquoted(Trimmed(split->Value.substr(semicolon + 1)));
  }
  return entry;
}

/// Replaces a part of a line that views it.
void Put(std::string& line, std::string_view part, const std::string& text) {
  line.replace(static_cast<std::size_t>(part.data() - line.data()), part.size(), text);
}

}  // namespace

ProjectFile::ProjectFile(fs::path path, const std::string& bytes)
    : path_(std::move(path)), padding_(bytes.substr(LengthWithoutPadding(bytes))), stored_(bytes) {
  for (std::string& line :
       LinesOf(std::string_view(bytes).substr(0, LengthWithoutPadding(bytes)))) {
    lines_.push_back({nextId_++, std::move(line)});
  }
}

std::vector<ProjectEntry> ProjectFile::Entries() const {
  std::vector<ProjectEntry> entries;
  for (std::size_t at = 0; at < lines_.size(); ++at) {
    if (lines_[at].Text.front() == '[') break;  // sections hold other things
    auto entry = ReadEntry(lines_[at].Text);
    if (!entry) continue;
    entry->Line = at;
    entry->Id = lines_[at].Id;
    entries.push_back(*std::move(entry));
  }
  return entries;
}

std::optional<ProjectEntry> ProjectFile::Find(int id) const {
  for (ProjectEntry& entry : Entries()) {
    if (entry.Id == id) return std::move(entry);
  }
  return std::nullopt;
}

const ProjectFile::Line* ProjectFile::FindKey(std::string_view key) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
    const auto split = Split(line.Text);
    return split && Lower(split->Key) == Lower(key);
  });
  return found == lines_.end() ? nullptr : &*found;
}

std::optional<std::string> ProjectFile::Value(std::string_view key) const {
  const Line* const line = FindKey(key);
  if (line == nullptr) return std::nullopt;
  return std::string(Unquoted(Split(line->Text)->Value));
}

void ProjectFile::SetValue(std::string_view key, const std::string& value) {
  const Line* const found = FindKey(key);
  if (found == nullptr) return;
  std::string& text = lines_[static_cast<std::size_t>(found - lines_.data())].Text;
  Put(text, Unquoted(Split(text)->Value), value);
}

void ProjectFile::RemoveValue(std::string_view key) {
  if (const Line* const found = FindKey(key)) RemoveEntry(found->Id);
}

host::vbext_ProjectType ProjectFile::Type() const {
  const std::string type = Lower(Value("Type").value_or("Exe"));
  if (type == "oleexe") return host::vbext_pt_ActiveXExe;
  if (type == "oledll") return host::vbext_pt_ActiveXDll;
  return type == "control" ? host::vbext_pt_ActiveXControl : host::vbext_pt_StandardExe;
}

std::string ProjectFile::Bytes() const {
  std::string bytes;
  for (const Line& line : lines_) bytes += line.Text;
  return bytes + padding_;
}

std::size_t ProjectFile::BehindEntries() const {
  const auto section = std::find_if(lines_.begin(), lines_.end(),
                                    [](const Line& line) { return line.Text.front() == '['; });
  for (auto line = section; line != lines_.begin(); --line) {
    if (ReadEntry(std::prev(line)->Text)) return static_cast<std::size_t>(line - lines_.begin());
  }
  return std::min<std::size_t>(1, lines_.size());
}

int ProjectFile::AddEntry(host::vbext_ComponentType type, const std::string& name,
                          const std::string& file) {
  // An MDI form stands under the key of forms.
  const ComponentKind* const kind =
      KindOf(type == host::vbext_ct_VBMDIForm ? host::vbext_ct_VBForm : type);
  if (kind == nullptr) return 0;
  const std::size_t at = BehindEntries();
  std::string end(lines_.empty() ? std::string_view() : LineEndOf(lines_.front().Text));
  if (end.empty()) end = "\r\n";
  if (at > 0 && LineEndOf(lines_[at - 1].Text).empty()) lines_[at - 1].Text += end;
  std::string line = std::string(kind->Key) + "=";
  if (kind->Named) line.append(name).append("; ");
  line.append(file).append(end);
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {nextId_, std::move(line)});
  return nextId_++;
}

void ProjectFile::SetEntryName(int id, const std::string& name) {
  const auto entry = Find(id);
  if (!entry || entry->Name.empty()) return;
  std::string& line = lines_[entry->Line].Text;
  line.replace(line.find(entry->Name, line.find('=')), entry->Name.size(), name);
}

void ProjectFile::SetEntryFile(int id, const std::string& file) {
  const auto entry = Find(id);
  if (!entry) return;
  std::string& line = lines_[entry->Line].Text;
  line.replace(line.rfind(entry->File), entry->File.size(), file);
}

void ProjectFile::RemoveEntry(int id) {
  std::erase_if(lines_, [&](const Line& line) { return line.Id == id; });
}

std::vector<std::string> ReadGroup(std::string_view bytes) {
  std::vector<std::string> projects;
  for (const std::string& line : LinesOf(bytes.substr(0, LengthWithoutPadding(bytes)))) {
    const auto split = Split(line);
    if (!split) continue;
    const std::string key = Lower(split->Key);
    if (key == "project" || key == "startupproject") projects.emplace_back(Unquoted(split->Value));
  }
  return projects;
}

}  // namespace tessel::workspace
