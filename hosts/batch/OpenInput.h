// One project, group or component file that a command has open.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "hosts/batch/Inputs.h"
#include "hosts/batch/Selection.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::batch {

/// A component with code.
struct ComponentRef {
  String Project, Name;
  std::string File;      ///< as a person would type it beside the argument
  std::string FullFile;  ///< full path
  std::shared_ptr<model::VBComponent> Component;
  std::shared_ptr<model::CodeModule> Module;
};

/// What a command does with the files that it opens.
enum class Purpose { Read, Write };
[[nodiscard]] Purpose PurposeOf(const Delivery& delivery);

class OpenInput {
 public:
  /// Opens a file. Components that can't be read are left out and told in `Problems`. Fails naming
  /// the file. Whoever only reads leaves interrupted saves as they are.
  OpenInput(platform::Platform& services, const std::string& file, const Selection& selection,
            Purpose purpose);
  /// Takes the text of one component that no file holds; `name` is its file's in messages, and its
  /// extension says what it is where the text doesn't.
  OpenInput(platform::Platform& services, const std::string& name, const std::string& text,
            const Selection& selection);

  [[nodiscard]] workspace::Workspace& Environment() { return environment_; }
  [[nodiscard]] model::Vbe& Root() { return *root_; }
  /// The argument as it was typed.
  [[nodiscard]] const std::string& File() const { return file_; }
  /// What could not be read, for a person.
  [[nodiscard]] std::vector<std::string> Problems() const;
  /// What is to be known of interrupted saves, for a person.
  [[nodiscard]] std::vector<std::string> TakeNotices();
  /// All components with code, in the projects' order.
  [[nodiscard]] std::vector<ComponentRef> Components() const;
  /// Those that the selection means.
  [[nodiscard]] std::vector<ComponentRef> Chosen() const;
  [[nodiscard]] bool IsChosen(const ComponentRef& component) const;
  /// A message with its paths as they were typed.
  [[nodiscard]] std::string Typed(const std::string& message) const { return paths_.In(message); }

  // The file of a component.
  [[nodiscard]] std::string StoredBytes(const ComponentRef& component) const;
  [[nodiscard]] std::string Bytes(const ComponentRef& component) const;
  [[nodiscard]] int FileLine(const ComponentRef& component, int codeLine) const;
  void Save(const ComponentRef& component);
  void Reload(const ComponentRef& component);
  /// Writes all changed components, or none of them.
  void SaveAll();

 private:
  void Load(const std::function<void()>& open);

  std::string file_;
  const Selection& selection_;
  Exclusion exclusion_;
  TypedPaths paths_;
  workspace::Workspace environment_;
  std::shared_ptr<model::Vbe> root_;
};

/// Fails unless each component that the selection names stands in one of the inputs of an argument.
/// Inputs that can't be opened are passed over.
void RequireComponents(platform::Platform& services, const std::string& argument,
                       const std::vector<std::string>& inputs, const Selection& selection);

/// The same for one input that is open.
void RequireNames(const OpenInput& input, const Selection& selection);

/// The files that a command has handled, so that one that two projects share is handled once.
class SeenFiles {
 public:
  /// True for the first time; for a component without a file always.
  bool Add(const ComponentRef& component);

 private:
  std::set<std::string> seen_;
};

}  // namespace tessel::batch
