// A project and its components.
#pragma once

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "host/Project.h"
#include "hosts/model/Component.h"

namespace tessel::model {

class Vbe;
class VBProject;

class VBComponents : public host::VBComponents {
 public:
  VBComponents(Hook hook, VBProject* project) : hook_(std::move(hook)), project_(project) {}
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::VBComponent> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::VBComponent> Item(StringView name) override;
  std::shared_ptr<host::VBComponent> Add(host::vbext_ComponentType type) override;
  std::shared_ptr<host::VBComponent> Import(StringView fileName) override;
  void Remove(const std::shared_ptr<host::VBComponent>& component) override;
  [[nodiscard]] std::shared_ptr<host::VBE> VBE() override;

  [[nodiscard]] const std::vector<std::shared_ptr<VBComponent>>& All() const { return items_; }
  /// Null when there is none; of several of one name the first.
  [[nodiscard]] std::shared_ptr<VBComponent> Find(StringView name) const;
  /// Takes a component in without raising an event.
  void Insert(const std::shared_ptr<VBComponent>& component);
  /// Closes a component's pane, takes it out and tells the storage.
  void TakeOut(const std::shared_ptr<VBComponent>& component);
  /// Fails with 32813 when the name is none, or another component or the project has it.
  void CheckName(StringView name, const VBComponent* except) const;
  void Renamed(VBComponent& component, StringView newName);
  /// The first free name of a kind: "Module1", "Module2" ...
  [[nodiscard]] String FreeName(StringView base) const;
  /// A new component of a type with what a new one has, not yet told to anybody.
  std::shared_ptr<VBComponent> Make(host::vbext_ComponentType type, StringView name);
  /// Tells of a component that is new, and makes its window as the environment does.
  void Tell(const std::shared_ptr<VBComponent>& component);

 private:
  void Forget(const VBComponent& component);
  Hook hook_;
  VBProject* project_;  // owns this
  std::vector<std::shared_ptr<VBComponent>> items_;
  std::unordered_map<String, std::shared_ptr<VBComponent>> byName_;
};

class VBProject : public host::VBProject, public std::enable_shared_from_this<VBProject> {
 public:
  VBProject(Hook hook, const std::shared_ptr<Vbe>& vbe, StringView name,
            host::vbext_ProjectType type);
  [[nodiscard]] String Name() override;
  [[nodiscard]] String FileName() override;
  [[nodiscard]] std::shared_ptr<host::VBE> VBE() override;
  [[nodiscard]] host::vbext_ProjectType Type() override;
  [[nodiscard]] std::shared_ptr<host::VBComponents> VBComponents() override;
  [[nodiscard]] String SourceText(std::string_view bytes) override;
  [[nodiscard]] std::optional<std::string> SourceBytes(StringView text, std::size_t& at) override;

  [[nodiscard]] const String& PlainName() const { return name_; }
  [[nodiscard]] model::VBComponents& Components() { return *components_; }
  [[nodiscard]] std::shared_ptr<Vbe> Environment() const { return vbe_.lock(); }
  [[nodiscard]] Hook OwnHook() const { return hook_; }

  /// Full native path of the project file, empty when there is none.
  String File;
  host::vbext_ProjectType ProjectType;
  /// Gives a new component its storage, and tells it of one that leaves. Empty without files.
  std::function<void(const std::shared_ptr<VBComponent>&)> OnAdded, OnRemoved;
  /// Loads a component file; empty without files.
  std::function<std::shared_ptr<VBComponent>(StringView fileName)> Importer;
  /// Writes a component that has no storage yet to a file; empty without files.
  std::function<void(VBComponent&, StringView fileName)> Exporter;
  /// The code page of its files, both ways; empty for the default.
  std::function<String(std::string_view)> Decoder;
  std::function<std::optional<std::string>(StringView, std::size_t&)> Encoder;

 private:
  Hook hook_;
  std::weak_ptr<Vbe> vbe_;
  String name_;
  std::shared_ptr<model::VBComponents> components_;
};

}  // namespace tessel::model
