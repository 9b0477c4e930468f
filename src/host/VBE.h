// The root of the host's object model.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "host/CodeModule.h"
#include "host/CommandBars.h"
#include "host/Designer.h"
#include "host/Events.h"
#include "host/Project.h"

namespace tessel::forms {
class Document;
}

namespace tessel::host {

class Window {
 public:
  virtual ~Window() = default;
  [[nodiscard]] virtual bool Visible() = 0;
  virtual void SetVisible(bool value) = 0;
  [[nodiscard]] virtual String Caption() = 0;
  /// The operating system's handle of the window.
  [[nodiscard]] virtual std::intptr_t HWnd() = 0;
};

/// Makes a document of an add-in's class by its program identifier; nothing for a class that the
/// add-in doesn't have.
using DocumentFactory = std::function<std::shared_ptr<forms::Document>(StringView progId)>;

/// A dockable window and the document inside it, nothing when there was none to be made.
struct ToolWindow {
  std::shared_ptr<Window> Frame;
  std::shared_ptr<forms::Document> Document;
};

class Windows {
 public:
  virtual ~Windows() = default;
  /// The dockable window around the document class `progId` of an add-in, which `documents` makes;
  /// its place is remembered under `guidPosition`.
  virtual ToolWindow CreateToolWindow(const DocumentFactory& documents, StringView progId,
                                      StringView caption, StringView guidPosition) = 0;
};

class VBE {
 public:
  virtual ~VBE() = default;
  /// Text form, e.g. "6.00".
  [[nodiscard]] virtual String Version() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBProjects> VBProjects() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::CommandBars> CommandBars() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::Windows> Windows() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::Events> Events() = 0;
  /// Each of these four may be nothing but the main window.
  [[nodiscard]] virtual std::shared_ptr<VBProject> ActiveVBProject() = 0;
  [[nodiscard]] virtual std::shared_ptr<VBComponent> SelectedVBComponent() = 0;
  [[nodiscard]] virtual std::shared_ptr<Window> MainWindow() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::CodePane> ActiveCodePane() = 0;
};

}  // namespace tessel::host
