// One component of a project.
#pragma once

#include <memory>

#include "host/Project.h"
#include "hosts/model/CodeModule.h"
#include "hosts/model/Designer.h"
#include "hosts/model/OperationHook.h"

namespace tessel::model {

class VBProject;

/// Where a component is kept. The in-memory environment keeps none.
class ComponentStorage {
 public:
  virtual ~ComponentStorage() = default;
  /// Full native path, empty when it was never saved.
  [[nodiscard]] virtual String FileName() const = 0;
  /// Writes the component elsewhere; where it is kept stays.
  virtual void SaveAs(VBComponent& component, StringView fileName) = 0;
  /// The component got another name.
  virtual void Renamed(VBComponent& component) = 0;
};

class VBComponent : public host::VBComponent, public std::enable_shared_from_this<VBComponent> {
 public:
  VBComponent(Hook hook, const std::shared_ptr<VBProject>& project, host::vbext_ComponentType type,
              StringView name);

  [[nodiscard]] String Name() override;
  void SetName(StringView name) override;
  [[nodiscard]] host::vbext_ComponentType Type() override;
  [[nodiscard]] std::shared_ptr<host::CodeModule> CodeModule() override;
  [[nodiscard]] std::shared_ptr<host::Designer> Designer() override;
  [[nodiscard]] std::shared_ptr<host::VBE> VBE() override;
  [[nodiscard]] std::shared_ptr<host::Properties> Properties() override;
  void Activate() override;
  void SaveAs(StringView fileName) override;
  [[nodiscard]] String FileName() override;

  [[nodiscard]] const String& PlainName() const { return name_; }
  [[nodiscard]] host::vbext_ComponentType PlainType() const { return type_; }
  [[nodiscard]] std::shared_ptr<VBProject> Project() const { return project_.lock(); }
  [[nodiscard]] std::shared_ptr<Vbe> Environment() const;
  [[nodiscard]] const std::shared_ptr<model::CodeModule>& Module() const { return module_; }
  [[nodiscard]] const std::shared_ptr<model::Designer>& OwnDesigner() const { return designer_; }
  [[nodiscard]] const std::shared_ptr<ComponentStorage>& Storage() const { return storage_; }

  /// Gives the component a code module; `load` as in CodeModule.
  void AddModule(std::function<LineBuffer()> load);
  void AddDesigner(std::shared_ptr<DesignerTree> tree);
  void SetStorage(std::shared_ptr<ComponentStorage> storage) { storage_ = std::move(storage); }
  /// Makes the window that the environment has for a component, its designer or its code, without
  /// showing it. No effect where there is one.
  void MakeWindow();
  /// 0 while there is none.
  [[nodiscard]] std::intptr_t DesignerHandle() const {
    return designerWindow_ ? designerWindow_->Handle() : 0;
  }
  /// The user closed the designer.
  void CloseDesigner();
  /// Closes what is shown of it but for the windows themselves, which the caller closes when the
  /// model is whole again.
  [[nodiscard]] std::vector<std::shared_ptr<model::Window>> TakeWindows();
  /// Renames without asking anybody.
  void PutName(StringView name) { name_ = name; }

 private:
  [[nodiscard]] model::Window& DesignerWindow();
  void CaptionWindows();
  Hook hook_;
  std::weak_ptr<VBProject> project_;
  host::vbext_ComponentType type_;
  String name_;
  std::shared_ptr<model::CodeModule> module_;
  std::shared_ptr<model::Designer> designer_;
  std::shared_ptr<model::Window> designerWindow_;
  std::shared_ptr<ComponentStorage> storage_;
};

}  // namespace tessel::model
