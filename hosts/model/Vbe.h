// The root of the object model.
#pragma once

#include <memory>
#include <vector>

#include "host/VBE.h"
#include "hosts/model/CodeModule.h"
#include "hosts/model/CommandBars.h"
#include "hosts/model/Events.h"
#include "hosts/model/Project.h"
#include "hosts/model/Windows.h"

namespace tessel::model {

class VBProjects : public host::VBProjects {
 public:
  VBProjects(Hook hook, Vbe* vbe) : hook_(std::move(hook)), vbe_(vbe) {}
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::VBProject> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::VBProject> Item(StringView name) override;
  [[nodiscard]] std::shared_ptr<host::VBE> VBE() override;
  [[nodiscard]] std::shared_ptr<host::VBE> Parent() override;

  [[nodiscard]] std::vector<std::shared_ptr<VBProject>>& All() { return items_; }
  /// Null when there is none; of several of one name the first.
  [[nodiscard]] std::shared_ptr<VBProject> Find(StringView name) const;
  /// The first name that no project has: "Project1", "Project2" ...
  [[nodiscard]] String FreeName() const;

 private:
  Hook hook_;
  Vbe* vbe_;  // owns this
  std::vector<std::shared_ptr<VBProject>> items_;
};

class Vbe : public host::VBE, public std::enable_shared_from_this<Vbe> {
 public:
  explicit Vbe(platform::Platform& services);
  ~Vbe() override;
  Vbe(const Vbe&) = delete;
  Vbe& operator=(const Vbe&) = delete;

  [[nodiscard]] String Version() override;
  [[nodiscard]] std::shared_ptr<host::VBProjects> VBProjects() override;
  [[nodiscard]] std::shared_ptr<host::CommandBars> CommandBars() override;
  [[nodiscard]] std::shared_ptr<host::Windows> Windows() override;
  [[nodiscard]] std::shared_ptr<host::Events> Events() override;
  [[nodiscard]] std::shared_ptr<host::VBProject> ActiveVBProject() override;
  [[nodiscard]] std::shared_ptr<host::VBComponent> SelectedVBComponent() override;
  [[nodiscard]] std::shared_ptr<host::Window> MainWindow() override;
  [[nodiscard]] std::shared_ptr<host::CodePane> ActiveCodePane() override;

  [[nodiscard]] model::VBProjects& Projects() { return *projects_; }
  [[nodiscard]] model::Events& OwnEvents() { return *events_; }
  [[nodiscard]] model::Windows& OwnWindows() { return *windows_; }
  [[nodiscard]] model::CommandBars& OwnBars() { return *bars_; }
  [[nodiscard]] const Hook& OwnHook() const { return hook_; }
  [[nodiscard]] std::shared_ptr<VBProject> Active() const { return active_.lock(); }
  [[nodiscard]] std::shared_ptr<VBComponent> Selected() const { return selected_.lock(); }
  void Activate(const std::shared_ptr<VBProject>& project);
  /// The user turned to a component: its project becomes the active one with it. Null for none.
  void Select(const std::shared_ptr<VBComponent>& component);

  /// Who is told of changes from now on; null for nobody. Not owned.
  void SetObserver(Observer* observer) { hook_->Screen = observer; }

  void KeepPane(const std::shared_ptr<CodePane>& pane) { kept_.push_back(pane); }
  void BringToFront(const std::shared_ptr<CodePane>& pane);
  /// Closes the pane of a module, if it has one open.
  void ClosePane(const CodeModule& module);
  /// As ClosePane, but for the window itself, which the caller closes when the model is whole
  /// again: whoever hears of that may ask about anything. Null without a pane.
  [[nodiscard]] std::shared_ptr<Window> TakePane(const CodeModule& module);

 private:
  void DesignerPressed(std::intptr_t window);

  Hook hook_;
  std::shared_ptr<model::Events> events_;
  std::shared_ptr<model::Windows> windows_;
  std::shared_ptr<model::CommandBars> bars_;
  std::shared_ptr<model::VBProjects> projects_;
  std::weak_ptr<VBProject> active_;
  std::weak_ptr<VBComponent> selected_;
  std::vector<std::shared_ptr<CodePane>> kept_;   // every pane that was made
  std::vector<std::shared_ptr<CodePane>> shown_;  // those that show, the front one last
};

}  // namespace tessel::model
