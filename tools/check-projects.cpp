// Opens every project and loose component below a folder, on a copy, and tries what users and tools
// do to them: a line on top, every member written anew, every component renamed and back.
// Everything but the intended change must stay. Prints each file where it doesn't; nothing when all
// is well.
//
//   check-projects FOLDER
//
// Exit code 0: nothing to report, 1: something, 2: it could not be tried.

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <set>

#include "hosts/files/AtomicFile.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/ComponentKinds.h"
#include "hosts/workspace/Workspace.h"
#include "tools/ModuleEdits.h"

namespace tessel::tools {
namespace {

namespace fs = std::filesystem;
using workspace::Workspace;
using ComponentPtr = std::shared_ptr<model::VBComponent>;
using Contents = std::map<fs::path, std::string>;

constexpr std::string_view Marker = "' a line that check-projects put here";

bool IsProject(const fs::path& file) {
  return workspace::Lower(file.extension().string()) == ".vbp";
}
bool IsGroup(const fs::path& file) { return workspace::Lower(file.extension().string()) == ".vbg"; }

/// Takes blanks at both ends and the line ends away: what is left is more than layout.
std::vector<std::string> Plain(const std::string& bytes) {
  std::vector<std::string> lines;
  for (const std::string& line : workspace::LinesOf(bytes)) {
    lines.emplace_back(workspace::Trimmed(line));
  }
  return lines;
}

/// Without the first line that holds the marker.
std::string WithoutMarker(const std::string& bytes) {
  const std::size_t at = bytes.find(Marker);
  if (at == std::string::npos) return "(the line is missing)";
  const std::size_t next = workspace::NextLine(bytes, at);
  std::string rest = bytes.substr(0, at) + bytes.substr(next);
  // The last line of a file without a line end at its end.
  if (next == bytes.size() && workspace::LineEndOf(bytes.substr(at)).empty() && at > 0) {
    const std::string_view before = std::string_view(bytes).substr(0, at);
    rest.resize(before.find_last_not_of("\r\n") + 1);
  }
  return rest;
}

class Check {
 public:
  Check(fs::path copy, std::ostream& out) : copy_(std::move(copy)), out_(out) {}

  /// Tries everything with one project or component.
  void File(const fs::path& file) {
    try {
      Workspace workspace(services_);
      workspace.Open(file);
      if (workspace.VBE()->VBProjects()->Count() == 0) return;
    } catch (const vb::Failure&) {
      return;  // refused with a message
    }
    file_ = file;
    Try("a line on top", [this](Workspace& workspace) {
      ForEach(workspace, [](model::CodeModule& module) {
        module.InsertLines(1, vb::FromUtf8(std::string(Marker)));
      });
      Save(workspace);
      Compare("a line on top",
              [](const fs::path& path, const std::string& before, const std::string& now) {
                return (IsProject(path) ? now : WithoutMarker(now)) == before;
              });
      ForEach(workspace, [](model::CodeModule& module) { module.DeleteLines(1, 1); });
      Save(workspace);
      CompareWhole("a line on top, and away again");
    });
    Try("each member", [this](Workspace& workspace) {
      ForEach(workspace, RewriteMembers);
      Save(workspace);
      ComparePlain("each member written anew");
    });
    Try("all below the declarations", [this](Workspace& workspace) {
      ForEach(workspace, RewriteBelowDeclarations);
      Save(workspace);
      ComparePlain("all below the declarations written anew");
    });
    Try("names", [this](Workspace& workspace) { Rename(workspace); });
  }

  [[nodiscard]] int Reports() const { return reports_; }

 private:
  void Try(const char* what, const std::function<void(Workspace&)>& action) {
    Workspace workspace(services_);
    try {
      workspace.Open(file_);
      Remember(workspace);
      action(workspace);
    } catch (const std::exception& failure) {
      Report(file_, what, failure.what());
    }
    for (const auto& [path, bytes] : before_) {
      std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    }
  }

  static std::vector<ComponentPtr> ComponentsOf(const Workspace& workspace) {
    std::vector<ComponentPtr> all;
    const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
    for (const auto& project : vbe->Projects().All()) {
      for (const auto& component : project->Components().All()) {
        if (component->Module()) all.push_back(component);
      }
    }
    return all;
  }

  static void ForEach(Workspace& workspace, const std::function<void(model::CodeModule&)>& edit) {
    for (const auto& component : ComponentsOf(workspace)) edit(*component->Module());
  }

  void Rename(Workspace& workspace) {
    std::vector<std::pair<ComponentPtr, String>> names;
    std::set<String> seen;
    int number = 0;
    for (const auto& component : ComponentsOf(workspace)) {
      // A name that two files have, or that is none, can't be given back.
      const String name = component->PlainName();
      if (!model::IsName(name) || !seen.insert(vb::LCase(name)).second) continue;
      names.emplace_back(component, name);
    }
    for (const auto& [component, name] : names)
      component->SetName(u"Qz" + vb::Str(++number) + u"Zq");
    Save(workspace);
    number = 0;
    for (const auto& [component, name] : names) {
      const std::string now = files::ReadFile(workspace.FileOf(*component));
      if (now.find("\"Qz" + std::to_string(++number) + "Zq\"") == std::string::npos) {
        Report(workspace.FileOf(*component), "renamed", "the new name isn't there");
      }
    }
    for (const auto& [component, name] : names) component->SetName(name);
    Save(workspace);
    CompareWhole("renamed and back");
  }

  static void Save(Workspace& workspace) { static_cast<void>(workspace.Save()); }

  void Remember(const Workspace& workspace) {
    before_.clear();
    if (IsProject(file_)) before_[file_] = files::ReadFile(file_);
    for (const auto& component : ComponentsOf(workspace)) {
      const fs::path path = workspace.FileOf(*component);
      before_[path] = files::ReadFile(path);
    }
  }

  void Compare(
      const char* what,
      const std::function<bool(const fs::path&, const std::string&, const std::string&)>& same) {
    for (const auto& [path, bytes] : before_) {
      const std::string now = files::ReadFile(path);
      if (same(path, bytes, now)) continue;
      const auto plain = Plain(bytes), plainNow = Plain(now);
      const auto ends = std::mismatch(plain.begin(), plain.end(), plainNow.begin(), plainNow.end());
      const auto line = ends.second - plainNow.begin() + 1;
      Report(path, what, "line " + std::to_string(line) + " is another one");
    }
  }
  void CompareWhole(const char* what) {
    Compare(what, [](const fs::path&, const std::string& before, const std::string& now) {
      return before == now;
    });
  }
  void ComparePlain(const char* what) {
    Compare(what, [](const fs::path&, const std::string& before, const std::string& now) {
      return Plain(before) == Plain(now);
    });
  }

  void Report(const fs::path& file, const std::string& what, const std::string& cause) {
    ++reports_;
    out_ << file.lexically_relative(copy_).string() << ": " << what << ": " << cause << '\n';
  }

  fs::path copy_, file_;
  std::ostream& out_;
  memory::UnattendedPlatform services_;
  platform::ScopedPlatform scope_{services_};
  Contents before_;
  int reports_ = 0;
};

/// A copy of the sources below a folder that goes with the program.
class Copy {
 public:
  explicit Copy(const fs::path& folder)
      : path_(fs::temp_directory_path() / ("check-projects-" + std::to_string(getpid()))) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      const fs::path& file = entry.path();
      if (!IsProject(file) && !IsGroup(file) && workspace::KindOf(file) == nullptr) continue;
      const fs::path to = path_ / file.lexically_relative(folder);
      fs::create_directories(to.parent_path());
      fs::copy_file(file, to);
      fs::permissions(to, fs::perms::owner_write, fs::perm_options::add);
      (IsProject(file) ? Projects : Others).push_back(to);
    }
    std::sort(Projects.begin(), Projects.end());
    std::sort(Others.begin(), Others.end());
  }
  ~Copy() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  [[nodiscard]] const fs::path& Path() const { return path_; }

  std::vector<fs::path> Projects, Others;

 private:
  fs::path path_;
};

/// Files that a project names.
std::set<fs::path> NamedIn(const std::vector<fs::path>& projects) {
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  std::set<fs::path> named;
  for (const fs::path& project : projects) {
    try {
      Workspace workspace(services);
      workspace.Open(project);
      const auto components = workspace.VBE()->ActiveVBProject()->VBComponents();
      for (int index = 1; index <= components->Count(); ++index) {
        const auto component = components->Item(index);
        if (component->CodeModule()) named.insert(workspace.FileOf(*component));
      }
    } catch (const vb::Failure&) {
      continue;
    }
  }
  return named;
}

int Run(const fs::path& folder) {
  const Copy copy(folder);
  Check check(copy.Path(), std::cout);
  const auto named = NamedIn(copy.Projects);
  for (const fs::path& file : copy.Projects) check.File(file);
  for (const fs::path& file : copy.Others) {
    if (named.count(file) == 0 && !IsGroup(file)) check.File(file);
  }
  std::cerr << copy.Projects.size() << " projects, " << copy.Others.size() << " other files, "
            << check.Reports() << " reports\n";
  return check.Reports() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace tessel::tools

int main(int count, char** arguments) {
  if (count != 2 || !std::filesystem::is_directory(arguments[1])) {
    std::cerr << "usage: check-projects FOLDER\n";
    return 2;
  }
  try {
    return tessel::tools::Run(std::filesystem::canonical(arguments[1]));
  } catch (const std::exception& failure) {
    std::cerr << "check-projects: " << failure.what() << '\n';
    return 2;
  }
}
