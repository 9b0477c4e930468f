// Projects and their components.
#pragma once

#include <memory>

#include "host/Types.h"
#include "vb/CodePages.h"

namespace tessel::host {

class VBE;
class VBProject;
class VBComponents;
class CodeModule;
class Designer;
class Properties;

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  [[nodiscard]] virtual String Name() = 0;
  /// Fails with 32813 when the project has another component of that name or it is no name.
  virtual void SetName(StringView name) = 0;
  [[nodiscard]] virtual vbext_ComponentType Type() = 0;
  /// Nothing for a component without code.
  [[nodiscard]] virtual std::shared_ptr<host::CodeModule> CodeModule() = 0;
  /// Nothing for a component without a designer.
  [[nodiscard]] virtual std::shared_ptr<host::Designer> Designer() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBE> VBE() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::Properties> Properties() = 0;
  /// Brings the component's window forward.
  virtual void Activate() = 0;
  /// Writes the component, and its companion beside it; the component's own file stays as it was.
  virtual void SaveAs(StringView fileName) = 0;
  /// The component's files: its own, then the companion; empty when it was never saved.
  [[nodiscard]] virtual String FileName() = 0;
};

/// Items by position from 1 or by name without regard to case; fails with 9 when absent.
class VBComponents {
 public:
  virtual ~VBComponents() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<VBComponent> Item(int index) = 0;
  [[nodiscard]] virtual std::shared_ptr<VBComponent> Item(StringView name) = 0;
  virtual std::shared_ptr<VBComponent> Add(vbext_ComponentType type) = 0;
  virtual std::shared_ptr<VBComponent> Import(StringView fileName) = 0;
  /// Takes a component out of the project; its file stays. Fails with 9 when it isn't there.
  virtual void Remove(const std::shared_ptr<VBComponent>& component) = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBE> VBE() = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  [[nodiscard]] virtual String Name() = 0;
  /// Full path of the project file; empty for a project that was never saved.
  [[nodiscard]] virtual String FileName() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBE> VBE() = 0;
  [[nodiscard]] virtual vbext_ProjectType Type() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBComponents> VBComponents() = 0;
  /// The text of a source file's bytes in the project's code page; `SourceBytes` gives every input
  /// back. A project that has none takes 1252.
  [[nodiscard]] virtual String SourceText(std::string_view bytes) {
    return vb::TextOfBytes(bytes, 1252);
  }
  /// Nothing when a character isn't in the code page, and `at` is its index then.
  [[nodiscard]] virtual std::optional<std::string> SourceBytes(StringView text, std::size_t& at) {
    return vb::ExactBytesOfText(text, 1252, at);
  }
};

/// Items by position from 1 or by name without regard to case; fails with 9 when absent.
class VBProjects {
 public:
  virtual ~VBProjects() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<VBProject> Item(int index) = 0;
  [[nodiscard]] virtual std::shared_ptr<VBProject> Item(StringView name) = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBE> VBE() = 0;
  /// The VBE again.
  [[nodiscard]] virtual std::shared_ptr<host::VBE> Parent() = 0;
};

}  // namespace tessel::host
