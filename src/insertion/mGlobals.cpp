#include "insertion/mGlobals.h"

#include <algorithm>

#include "foundation/Routine.h"
#include "insertion/BlankLines.h"
#include "platform/Platform.h"

namespace tessel::mGlobals {
namespace {

using VbePtr = std::shared_ptr<host::VBE>;

using ComponentsPtr = std::shared_ptr<host::VBComponents>;
using ComponentPtr = std::shared_ptr<host::VBComponent>;

struct LookUp {
  ComponentPtr Component;
  /// False when a failure on the way was ignored: finding none says nothing then.
  bool Whole = true;
};

LookUp FindComponent(const Statements& run, const ComponentsPtr& components, StringView name) {
  LookUp result;
  const auto read = [&](auto&& statement) {
    bool done = false;
    run([&] {
      statement();
      done = true;
    });
    result.Whole = result.Whole && done;
  };
  int count = 0;
  read([&] { count = Need(components).Count(); });
  for (int index = 1; index <= count; ++index) {
    ComponentPtr component;
    String given;
    read([&] { component = Need(components).Item(index); });
    if (component) read([&] { given = component->Name(); });
    if (!component || !vb::SameText(given, name)) continue;
    result.Component = std::move(component);
    break;
  }
  return result;
}

/// A new component, named after `wanted` without its blanks unless another one has that name. One
/// whose naming was given up is taken out again.
ComponentPtr AddComponent(const Statements& run, const ComponentsPtr& components, StringView wanted,
                          host::vbext_ComponentType type) {
  auto component = run([&] { return Need(components).Add(type); });
  const String name = vb::Replace(wanted, u" ", u"");
  if (!component || name.empty()) return component;
  try {
    if (!FindComponent(run, components, name).Component) run([&] { component->SetName(name); });
  } catch (...) {
    ResumeNext([&] { Need(components).Remove(component); });
    throw;
  }
  return component;
}

/// Shows the module's pane. The blank line that comes and goes makes the pane take its place.
void ShowPane(const Statements& run, const std::shared_ptr<host::CodeModule>& module) {
  run([&] { Need(Need(module).CodePane()).Show(); });
  run([&] { Need(Need(module).CodePane()).Window()->SetVisible(true); });
  bool blank = false;
  run([&] {
    Need(module).InsertLines(1, u" ");
    blank = true;
  });
  // Without the blank line the first line is the user's.
  if (!blank) return;
  const auto remove = [&] {
    Need(module).DeleteLines(1, 1);
    blank = false;
  };
  // No stray line stays on top of the user's module: one more try, and one with a report of its
  // own.
  const auto settle = [&] {
    if (blank) ResumeNext(remove);
    if (blank) run(remove);
  };
  try {
    run(remove);
  } catch (const RoutineAborted&) {
    settle();
    throw;
  }
  settle();
}

/// Puts a text into a component at the place of a mode, and the caret on it. `inserted` tells that
/// the text is in, also where what follows fails.
void InsertText(const Statements& run, const ComponentPtr& component, StringView text, int mode,
                int caretOffset, bool& inserted) {
  const auto module = run([&] {
    auto found = Need(component).CodeModule();
    if (!found) throw vb::RuntimeFailure(vb::ObjectNotSet);  // such as a related document
    return found;
  });
  if (!module) return;
  ShowPane(run, module);
  const int line = run([&] {
    return (mode == EndOfDeclarations ? module->CountOfDeclarationLines()
                                      : module->CountOfLines()) +
           1;
  });
  if (line < 1) return;
  StringView placed = run([&] { return blanklines::FollowedByOne(text, *module, line); });
  if (placed.empty()) placed = text;
  run([&] {
    module->InsertLines(line, placed);
    inserted = true;
  });
  const int caret = line + caretOffset;
  run([&] { Need(module->CodePane()).SetTopLine(std::max(1, caret)); });
  run([&] { Need(module->CodePane()).SetSelection({caret, 1, caret, 1}); });
}

/// Calls `visit` for each component of the active project.
template <class Visit>
void ForEachComponent(const Statements& run, host::VBProject& project, Visit&& visit) {
  const auto components = run([&] { return project.VBComponents(); });
  if (!components) return;
  const int count = run([&] { return components->Count(); });
  for (int index = 1; index <= count; ++index) {
    run([&] { visit(*components->Item(index)); });
  }
}

/// Names, each with a "|" behind it, without the last "|".
String CutLast(String list) {
  if (!list.empty() && list.back() == u'|') list.pop_back();
  return list;
}

}  // namespace

bool InsertTextActiveVbComponent(const VbePtr& vbe, StringView componentName, StringView text,
                                 int mode, StringView, host::vbext_ComponentType newComponentType,
                                 int caretOffset, std::shared_ptr<host::VBComponent>* made) {
  constexpr StringView Name = u"mGlobals.InsertTextActiveVbComponent";
  if (text.empty()) {
    // This way out comes ahead of the pop, as it always has: the entry stays on the stack.
    if (gErrorHandler) gErrorHandler->CallStackPushLiteral(Name);
    return false;
  }
  bool inserted = false;
  Routine(Name, [&](const Statements& run) {
    const auto project = run([&] { return Need(vbe).ActiveVBProject(); });
    if (!project) return;
    const auto components = run([&] { return Need(project).VBComponents(); });
    if (!components) return;
    const auto [known, whole] = FindComponent(run, components, componentName);
    // The component may be there all the same: its text doesn't go into a stray new one.
    if (!known && !whole) return;
    const auto component =
        known ? known : AddComponent(run, components, componentName, newComponentType);
    // A component that was made for a text that it doesn't get would be in the way of the next try.
    const auto settle = [&, isNew = known == nullptr] {
      if (!isNew) return;
      if (!inserted) ResumeNext([&] { Need(components).Remove(component); });
      if (inserted && made != nullptr) *made = component;
    };
    try {
      InsertText(run, component, text, mode, caretOffset, inserted);
    } catch (const RoutineAborted&) {
      settle();
      throw;
    }
    settle();
  });
  return inserted;
}

String GetProjectComponent(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponent", [&](const Statements& run) {
    list.clear();
    const auto project = run([&] { return Need(vbInstance).ActiveVBProject(); });
    if (!project) return;
    if (mode == 1) list += u"All Modules|";
    ForEachComponent(run, *project,
                     [&](host::VBComponent& component) { list += component.Name() + u"|"; });
    if (mode == 2) list += u"New Module";
    list = CutLast(std::move(list));
  });
  return list;
}

String GetProjectComponentType(const VbePtr& vbInstance, int mode) {
  String list;
  Routine(u"mGlobals.GetProjectComponentType", [&](const Statements& run) {
    list.clear();
    const auto project = run([&] { return Need(vbInstance).ActiveVBProject(); });
    if (!project) return;
    ForEachComponent(run, *project, [&](host::VBComponent& component) {
      if (component.Type() == mode) list += component.Name() + u"|";
    });
    list = CutLast(std::move(list));
  });
  return list;
}

String SelectedVBComponentName(const VbePtr& vbInstance) {
  String name;
  Routine(u"mGlobals.SelectedVBComponentName",
          [&] { ResumeNext([&] { name = Need(Need(vbInstance).SelectedVBComponent()).Name(); }); });
  return name;
}

bool CheckComponentName(const VbePtr& vbInstance, StringView name) {
  bool found = false;
  Routine(u"mGlobals.CheckComponentName", [&] {
    ResumeNext([&] {
      found = Need(Need(vbInstance).ActiveVBProject()).VBComponents()->Item(name) != nullptr;
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
    services.Shell().ShowHelp(services.App().Path() + u"\\Marlow.CHM", topic);
  });
}

}  // namespace tessel::mGlobals
