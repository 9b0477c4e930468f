#include "insertion/mGlobals.h"

#include <algorithm>

#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel::mGlobals {
namespace {

using VbePtr = std::shared_ptr<host::VBE>;

std::shared_ptr<host::VBComponent> FindComponent(host::VBComponents& components, StringView name) {
  for (int index = 1; index <= components.Count(); ++index) {
    auto component = components.Item(index);
    if (vb::SameText(Need(component).Name(), name)) return component;
  }
  return nullptr;
}

/// A new component, named after `wanted` without its blanks unless another one has that name.
std::shared_ptr<host::VBComponent> AddComponent(host::VBComponents& components, StringView wanted,
                                                host::vbext_ComponentType type) {
  auto component = components.Add(type);
  const String name = vb::Replace(wanted, u" ", u"");
  if (!name.empty() && !FindComponent(components, name)) Need(component).SetName(name);
  return component;
}

/// Shows the module's pane. The blank line that comes and goes makes the pane take its place.
void ShowPane(host::CodeModule& module) {
  module.CodePane()->Show();
  module.CodePane()->Window()->SetVisible(true);
  module.InsertLines(1, u" ");
  module.DeleteLines(1, 1);
}

/// What follows each component of the active project, each with a "|" behind it, one cut off at the
/// end.
template <class Text>
String ListComponents(const VbePtr& vbInstance, int mode, Text&& text) {
  String list;
  const auto project = Need(vbInstance).ActiveVBProject();
  if (!project) return list;
  if (mode == 1) list += u"All Modules|";
  const auto components = Need(project).VBComponents();
  for (int index = 1; index <= Need(components).Count(); ++index) {
    list += text(*Need(components).Item(index)) + u"|";
  }
  if (mode == 2) list += u"New Module";
  if (!list.empty() && list.back() == u'|') list.pop_back();
  return list;
}

}  // namespace

void InsertTextActiveVbComponent(const VbePtr& vbe, StringView componentName, StringView text,
                                 int mode, StringView, host::vbext_ComponentType newComponentType,
                                 int caretOffset) {
  constexpr StringView Name = u"mGlobals.InsertTextActiveVbComponent";
  if (text.empty()) {
    // This way out comes ahead of the pop, as it always has: the entry stays on the stack.
    if (gErrorHandler) gErrorHandler->CallStackPushLiteral(Name);
    return;
  }
  Routine(Name, [&](const Statements& run) {
    const auto project = run([&] { return Need(vbe).ActiveVBProject(); });
    if (!project) return;
    const auto components = run([&] { return Need(project).VBComponents(); });
    auto component = run([&] { return FindComponent(Need(components), componentName); });
    if (!component) {
      component =
          run([&] { return AddComponent(Need(components), componentName, newComponentType); });
    }
    const auto module = run([&] { return Need(component).CodeModule(); });
    run([&] { ShowPane(Need(module)); });
    const int line = run([&] {
      return (mode == EndOfDeclarations ? Need(module).CountOfDeclarationLines()
                                        : Need(module).CountOfLines()) +
             1;
    });
    run([&] { Need(module).InsertLines(line, text); });
    const int caret = line + caretOffset;
    run([&] { Need(module).CodePane()->SetTopLine(std::max(1, caret)); });
    run([&] { Need(module).CodePane()->SetSelection({caret, 1, caret, 1}); });
  });
}

String GetProjectComponent(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponent", [&] {
    list = ListComponents(vbInstance, mode,
                          [](host::VBComponent& component) { return component.Name(); });
  });
  return list;
}

String GetProjectComponentType(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponentType", [&] {
    list = ListComponents(vbInstance, mode, [](host::VBComponent& component) {
      return vb::Str(static_cast<int>(component.Type()));
    });
  });
  return list;
}

String SelectedVBComponentName(const VbePtr& vbInstance) {
  String name;
  Routine(u"mGlobals.SelectedVBComponentName", [&] {
    if (const auto selected = Need(vbInstance).SelectedVBComponent()) name = selected->Name();
  });
  return name;
}

bool CheckComponentName(const VbePtr& vbInstance, StringView name) {
  bool found = false;
  Routine(u"mGlobals.CheckComponentName", [&] {
    if (const auto project = Need(vbInstance).ActiveVBProject()) {
      found = FindComponent(*Need(project).VBComponents(), name) != nullptr;
    }
  });
  return found;
}

String GUIDGen() {
  String guid;
  Routine(u"mGlobals.GUIDGen", [&] { guid = platform::Current().Identity().NewGuid(); });
  return guid;
}

String winClass(std::intptr_t hwnd) {
  String name;
  Routine(u"mGlobals.winClass", [&] { name = platform::Current().Windows().ClassName(hwnd); });
  return name;
}

void RunHelpFennick(StringView topic) {
  Routine(u"mGlobals.RunHelpFennick", [&] {
    platform::Platform& services = platform::Current();
    services.Shell().ShowHelp(services.App().Path() + u"\\Marlow.CHM", topic);
  });
}

}  // namespace tessel::mGlobals
