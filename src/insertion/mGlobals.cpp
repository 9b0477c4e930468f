#include "insertion/mGlobals.h"

#include <algorithm>
#include <vector>

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

/// A new component, named after `wanted` without its blanks unless another one has that name. One
/// whose name was refused and given up is taken out again.
std::shared_ptr<host::VBComponent> AddComponent(const Statements& run,
                                                host::VBComponents& components, StringView wanted,
                                                host::vbext_ComponentType type) {
  const auto component = run([&] { return components.Add(type); });
  const String name = vb::Replace(wanted, u" ", u"");
  if (name.empty() || FindComponent(components, name)) return component;
  try {
    run([&] { Need(component).SetName(name); });
  } catch (...) {
    ResumeNext([&] { components.Remove(component); });
    throw;
  }
  return component;
}

/// Shows the module's pane. The blank line that comes and goes makes the pane take its place; only
/// a line that came is taken away.
void ShowPane(const Statements& run, host::CodeModule& module) {
  const auto pane = run([&] { return module.CodePane(); });
  run([&] { Need(pane).Show(); });
  run([&] { Need(Need(pane).Window()).SetVisible(true); });
  bool came = false;
  run([&] {
    module.InsertLines(1, u" ");
    came = true;
  });
  if (came) run([&] { module.DeleteLines(1, 1); });
}

/// `text` as it is to stand ahead of `line`: where it ends in a line end, exactly one blank line
/// follows it.
StringView WithOneBlankLine(StringView text, host::CodeModule& module, int line) {
  if (!text.ends_with(vb::CrLf)) return text;
  StringView plain = text;
  while (plain.ends_with(vb::CrLf)) plain.remove_suffix(vb::CrLf.size());
  const bool follows = line <= module.CountOfLines() && module.Lines(line, 1).empty();
  return follows ? plain : text.substr(0, plain.size() + vb::CrLf.size());
}

/// Names of the components of the active project that `wanted` takes, a "|" between them; empty
/// without a project.
template <class Wanted>
String ListComponents(const VbePtr& vbInstance, StringView first, StringView last,
                      Wanted&& wanted) {
  const auto project = Need(vbInstance).ActiveVBProject();
  if (!project) return {};
  std::vector<String> names;
  if (!first.empty()) names.emplace_back(first);
  const auto components = project->VBComponents();
  const int count = Need(components).Count();
  for (int index = 1; index <= count; ++index) {
    const auto component = components->Item(index);
    if (wanted(Need(component))) names.push_back(component->Name());
  }
  if (!last.empty()) names.emplace_back(last);
  return vb::Join(names, u"|");
}

}  // namespace

bool InsertTextActiveVbComponent(const VbePtr& vbe, StringView componentName, StringView text,
                                 int mode, StringView, host::vbext_ComponentType newComponentType,
                                 int caretOffset) {
  constexpr StringView Name = u"mGlobals.InsertTextActiveVbComponent";
  if (text.empty()) {
    // This way out comes ahead of the pop, as it always has: the entry stays on the stack.
    if (gErrorHandler) gErrorHandler->CallStackPushLiteral(Name);
    return false;
  }
  bool done = false;
  Routine(Name, [&](const Statements& run) {
    const auto project = run([&] { return Need(vbe).ActiveVBProject(); });
    if (!project) return;
    const auto components = run([&] { return Need(project).VBComponents(); });
    auto component = run([&] { return FindComponent(Need(components), componentName); });
    if (!component) {
      component = AddComponent(run, Need(components), componentName, newComponentType);
    }
    const auto module = run([&] { return Need(component).CodeModule(); });
    ShowPane(run, Need(module));
    const int line = run([&] {
      return (mode == EndOfDeclarations ? Need(module).CountOfDeclarationLines()
                                        : Need(module).CountOfLines()) +
             1;
    });
    run([&] { Need(module).InsertLines(line, WithOneBlankLine(text, *module, line)); });
    const int caret = line + caretOffset;
    run([&] { Need(module).CodePane()->SetTopLine(std::max(1, caret)); });
    run([&] { Need(module).CodePane()->SetSelection({caret, 1, caret, 1}); });
    done = true;
  });
  return done;
}

String GetProjectComponent(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponent", [&] {
    list = ListComponents(vbInstance, mode == 1 ? StringView(u"All Modules") : StringView(),
                          mode == 2 ? StringView(u"New Module") : StringView(),
                          [](host::VBComponent&) { return true; });
  });
  return list;
}

String GetProjectComponentType(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponentType", [&] {
    list = ListComponents(vbInstance, {}, {}, [mode](host::VBComponent& component) {
      return component.Type() == mode;
    });
  });
  return list;
}

String SelectedVBComponentName(const VbePtr& vbInstance) {
  String name;
  Routine(u"mGlobals.SelectedVBComponentName", [&] {
    ResumeNext([&] {
      if (const auto selected = Need(vbInstance).SelectedVBComponent()) name = selected->Name();
    });
  });
  return name;
}

bool CheckComponentName(const VbePtr& vbInstance, StringView name) {
  bool found = false;
  Routine(u"mGlobals.CheckComponentName", [&] {
    ResumeNext([&] {
      const auto project = Need(vbInstance).ActiveVBProject();
      found = Need(Need(project).VBComponents()).Item(name) != nullptr;
    });
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
    services.Desktop().ShowHelp(services.App().Path() + u"\\Marlow.CHM", topic);
  });
}

}  // namespace tessel::mGlobals
