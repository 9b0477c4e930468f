// The development environment in memory: the object model behind addin/host, and what a person does
// in the environment itself. Files are the workspace host's business (hosts/workspace).
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "host/VBE.h"
#include "hosts/model/OperationHook.h"
#include "hosts/model/WindowTable.h"
#include "platform/Platform.h"

namespace tessel::model {

class Vbe;
class CodeModule;
class Designer;
class VBComponent;
class VBProject;

/// Owns the object model. Everything a user does by hand goes through here and raises the host's
/// events. Names are found without regard to case; a missing one fails with 9 and says which. An
/// empty project name means the active project. Names need not be unique in a group; where an
/// operation takes an object as well, that is the one to use for what is at hand already.
class Environment {
 public:
  /// `platform` (not owned) gives PasteFace its clipboard.
  explicit Environment(platform::Platform& platform);
  virtual ~Environment();
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  [[nodiscard]] std::shared_ptr<host::VBE> VBE() const;

  /// An empty name: the first free one.
  std::shared_ptr<host::VBProject> NewProject(StringView name, host::vbext_ProjectType type);
  void RemoveProject(StringView name);
  void RemoveProject(const std::shared_ptr<VBProject>& project);
  void ActivateProject(StringView name);
  std::shared_ptr<host::VBComponent> AddComponent(StringView project,
                                                  host::vbext_ComponentType type, StringView name,
                                                  StringView text);
  std::shared_ptr<host::VBComponent> AddComponent(const std::shared_ptr<VBProject>& project,
                                                  host::vbext_ComponentType type, StringView name,
                                                  StringView text);
  void RemoveComponent(StringView project, StringView name);
  void RemoveComponent(const std::shared_ptr<VBComponent>& component);
  void RenameComponent(StringView project, StringView name, StringView newName);
  /// Empty: none.
  void SelectComponent(StringView name);
  [[nodiscard]] std::shared_ptr<host::VBComponent> Component(StringView name) const;

  std::shared_ptr<host::VBControl> AddControl(
      StringView component, StringView className, StringView name,
      const std::vector<std::pair<String, String>>& properties);
  /// `index` is the element of a control array, -1 for a control that is none.
  void RenameControl(StringView component, StringView name, StringView newName, int index = -1);
  void RemoveControl(StringView component, StringView name, int index = -1);

  /// The whole text of a module, lines separated by CR LF. Setting it is typing where its pane
  /// shows.
  [[nodiscard]] String Text(StringView component) const;
  void SetText(StringView component, StringView text);
  static void SetText(CodeModule& module, StringView text);
  /// Clicks into the pane: opens it, brings it to the front and selects.
  void SetCaret(StringView component, const host::Selection& selection);
  /// A tool has changed code and lets the environment show its state anew.
  void ToolHasEdited();
  /// Closes the pane; the one below it comes to the front.
  void ClosePane(StringView component);

  [[nodiscard]] std::vector<WindowInfo> OpenWindows() const;
  /// What the tool windows that are open hold.
  [[nodiscard]] std::vector<std::shared_ptr<forms::Document>> OpenDocuments() const;
  /// The windows as tools find and hook them.
  [[nodiscard]] WindowTable& OwnWindows() const;

  /// Called ahead of every host operation with its name ("CodeModule.InsertLines"); what it throws
  /// is that call's failure.
  void SetOperationHook(std::function<void(std::string_view)> hook);
  /// Whose the host calls of a scope are. The hook hears of the add-in's alone, which also those of
  /// its event handlers are.
  [[nodiscard]] CallsOf WhoseCalls(CallsOf::Caller caller) const;

 protected:
  /// A project without files was made; nobody has heard of it yet.
  virtual void ProjectMade(VBProject&) {}

  std::shared_ptr<Vbe> vbe_;

 private:
  /// The designer of a component that the user turns to.
  [[nodiscard]] std::shared_ptr<Designer> TurnToDesigner(StringView component);
  void ClickDesigner(const Designer& designer);
};

}  // namespace tessel::model
