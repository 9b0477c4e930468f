#include "hosts/batch/Inputs.h"

#include <fnmatch.h>

#include <algorithm>
#include <array>
#include <fstream>

#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(int number, const std::string& why) {
  throw vb::Failure(number, vb::FromBytes(why), u"Tessel");
}

std::string LowerExtension(const fs::path& file) {
  return vb::ToUtf8(vb::LCase(vb::FromUtf8(file.extension().string())));
}

bool IsProject(const fs::path& file) { return LowerExtension(file) == ".vbp"; }

bool HasComponentExtension(const fs::path& file) {
  constexpr std::array Extensions{".bas", ".cls", ".frm", ".ctl", ".pag", ".dob", ".dsr"};
  const std::string extension = LowerExtension(file);
  return std::any_of(Extensions.begin(), Extensions.end(),
                     [&](const char* one) { return extension == one; });
}

/// Components may have any extension; then their first words tell.
bool BeginsAsComponent(const fs::path& file) {
  constexpr std::array Heads{"VERSION 1.0 CLASS", "VERSION 5.00", "Attribute VB_Name"};
  std::string begin(32, '\0');
  std::ifstream in(file, std::ios::binary);
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return std::any_of(Heads.begin(), Heads.end(), [&](const std::string& head) {
    return begin.find(head) == 0 || begin.find(head) == 3;  // behind a byte order mark
  });
}

std::vector<fs::path> FilesBelow(const fs::path& folder, const Exclusion& exclusion) {
  std::vector<fs::path> files;
  std::error_code error;
  auto walk = fs::recursive_directory_iterator(folder, error);
  if (error) Fail(vb::PathFileAccess, folder.string() + ": " + error.message());
  for (; walk != fs::recursive_directory_iterator(); walk.increment(error)) {
    if (error) Fail(vb::PathFileAccess, folder.string() + ": " + error.message());
    const fs::path& path = walk->path();
    const bool hidden = path.filename().string().front() == '.';
    if (hidden || exclusion.Holds(path.lexically_relative(folder).string())) {
      if (walk->is_directory(error)) walk.disable_recursion_pending();
    } else if (walk->is_regular_file(error)) {
      files.push_back(path);
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> InputsBelow(const std::string& folder, const Exclusion& exclusion) {
  std::vector<std::string> projects, components;
  for (const fs::path& file : FilesBelow(folder, exclusion)) {
    if (IsProject(file)) projects.push_back(file.string());
    if (HasComponentExtension(file)) components.push_back(file.string());
  }
  projects.insert(projects.end(), components.begin(), components.end());
  if (projects.empty()) {
    Fail(vb::FileNotFound, folder + ": holds neither a project nor a component");
  }
  return projects;
}

}  // namespace

bool HasSourceExtension(const fs::path& file) {
  return IsProject(file) || LowerExtension(file) == ".vbg" || HasComponentExtension(file);
}

Exclusion::Exclusion(std::vector<std::string> patterns) : patterns_(std::move(patterns)) {
  for (std::string& pattern : patterns_) {
    while (pattern.size() > 1 && pattern.back() == '/') pattern.pop_back();
  }
}

bool Exclusion::Holds(const std::string& path) const {
  std::vector<std::string> parts;
  for (const fs::path& part : fs::path(path).lexically_normal()) parts.push_back(part.string());
  for (const std::string& pattern : patterns_) {
    for (std::size_t first = 0; first < parts.size(); ++first) {
      std::string run;
      for (std::size_t last = first; last < parts.size(); ++last) {
        run += (last > first ? "/" : "") + parts[last];
        if (fnmatch(pattern.c_str(), run.c_str(), FNM_PATHNAME | FNM_CASEFOLD) == 0) return true;
      }
    }
  }
  return false;
}

std::vector<std::string> InputsOf(const std::string& argument, const Exclusion& exclusion) {
  std::error_code error;
  if (!fs::exists(argument, error)) Fail(vb::FileNotFound, argument + ": the file does not exist");
  if (fs::is_directory(argument, error)) return InputsBelow(argument, exclusion);
  if (!HasSourceExtension(argument) && !BeginsAsComponent(argument)) {
    Fail(vb::InvalidCall, argument + ": is no project, group or component");
  }
  return {argument};
}

TypedPaths::TypedPaths(const std::string& file) {
  const fs::path typed(file);
  full_ = fs::absolute(typed).lexically_normal().parent_path().string();
  typed_ = typed.parent_path().string();
  if (full_.empty() || full_.back() != '/') full_ += '/';
  if (!typed_.empty() && typed_.back() != '/') typed_ += '/';
}

std::string TypedPaths::Of(const fs::path& full) const {
  std::string path = full.string();
  if (path.empty() || full.is_relative()) return path;
  if (path.compare(0, full_.size(), full_) == 0) return typed_ + path.substr(full_.size());
  if (!typed_.empty() && typed_.front() == '/') return path;
  return (fs::path(typed_) / full.lexically_relative(full_)).lexically_normal().string();
}

std::string TypedPaths::In(const std::string& message) const {
  if (full_ == "/") return message;
  std::string text;
  std::size_t from = 0;
  for (std::size_t at; (at = message.find(full_, from)) != std::string::npos;) {
    text += message.substr(from, at - from) + typed_;
    from = at + full_.size();
  }
  return text + message.substr(from);
}

}  // namespace tessel::batch
