#include "explorer/udProjectExplorer.h"

#include <utility>

#include "foundation/CAppSettings.h"
#include "foundation/FailureWatch.h"
#include "platform/Platform.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

using namespace tessel::forms;

constexpr StringView Section = u"Settings\\VBCode\\frmSettings";
constexpr StringView CtlValue = u"btmCtl", PropertyValue = u"btmProperty",
                     MethodValue = u"btmMethod";

/// True for the length of a scope.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Flag() { flag_ = before_; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

bool IsShown(StringView value) {
  return !gAppSettings || gAppSettings->GetText(Section, value, u"1") == u"1";
}

/// A handler that is a routine by itself.
template <class Body>
std::function<void()> Handler(StringView routine, Body body) {
  return [routine, body] { Routine(routine, body); };
}

}  // namespace

udProjectExplorer::udProjectExplorer()
    : GuardedDocument("udProjectExplorer", u"Tessel Project Explorer") {
  BuildLayout();
  WireButtons();
  WireTree();
  WireMenus();
}

void udProjectExplorer::BuildLayout() {
  const auto picture = [](CaptionedControl& button, int number) {
    button.Picture = number;
    button.SetToolTipText(button.Caption());
  };
  picture(btnCollapse, 135);
  picture(btnExpand, 126);
  picture(btnProperty, 122);
  picture(btnMethod, 123);
  picture(btnCtl, 129);
  picture(btnRefresh, 150);
  picture(btmObject, 112);
  picture(btmCode, 115);
  txtFind.SetToolTipText(u"Find: parts of words in any order, -part takes away");
  fgTree.SetCols(explorer::Columns);
  for (int col = 1; col < explorer::Columns; ++col) fgTree.SetColHidden(col, true);
  SetLayout(Column({Row({Item(btnCollapse), Item(btnExpand), Item(btnProperty), Item(btnMethod),
                         Item(btnCtl), Item(btnRefresh), Item(btmObject), Item(btmCode), Space()}),
                    Row({Item(txtFind, 1)}), Item(fgTree, 1)}));
}

void udProjectExplorer::WireButtons() {
  btnCollapse.Click =
      Handler(u"udProjectExplorer.btnCollapse_Click", [this] { fgTree.SetOutline(0); });
  btnExpand.Click = Handler(u"udProjectExplorer.btnExpand_Click",
                            [this] { fgTree.SetOutline(explorer::MemberLevel + 1); });
  btnProperty.Click = [this] {
    FilterPressed(u"udProjectExplorer.btnProperty_Click", PropertyValue, btnProperty,
                  &explorer::MemberFilter::Property);
  };
  btnMethod.Click = [this] {
    FilterPressed(u"udProjectExplorer.btnMethod_Click", MethodValue, btnMethod,
                  &explorer::MemberFilter::Method);
  };
  btnCtl.Click = [this] {
    FilterPressed(u"udProjectExplorer.btnCtl_Click", CtlValue, btnCtl,
                  &explorer::MemberFilter::Control);
  };
  btnRefresh.Click = [this] { btnRefresh_Click(); };
  btmObject.Click = [this] { btmObject_Click(); };
  btmCode.Click = [this] { btmCode_Click(); };
}

void udProjectExplorer::UserDocument_Initialize() {
  Routine(u"udProjectExplorer.UserDocument_Initialize", [&] {
    filter_ = {IsShown(PropertyValue), IsShown(MethodValue), IsShown(CtlValue)};
    btnProperty.SetValue(filter_.Property ? 1 : 0);
    btnMethod.SetValue(filter_.Method ? 1 : 0);
    btnCtl.SetValue(filter_.Control ? 1 : 0);
  });
}

/// The first time the tree is read; later ones find it as the notices have kept it.
void udProjectExplorer::UserDocument_Show() {
  const FailureWatch watch([this](const vb::Failure&) { failed_ = true; });
  Routine(u"udProjectExplorer.UserDocument_Show", [&](const Statements& run) {
    MenuOfWindow.mnuWindowHide.SetEnabled(true);
    if (!projects_) run([&] { Reading([this] { Reload(); }); });
    if (cTreeVBA_) run([&] { Position(2); });
    ButtonEnabled();
  });
  outrun_ = outrun_ || WasOutrun();
  ClearMarks();
}

/// Another state is kept and the rows are made again; what the model holds is enough for that.
void udProjectExplorer::FilterPressed(StringView routine, StringView value, ToggleButton& button,
                                      bool explorer::MemberFilter::*shown) {
  const bool down = button.Value() == 1;
  if (filter_.*shown == down) return;
  Routine(routine, [&](const Statements& run) {
    filter_.*shown = down;
    run([&] {
      if (gAppSettings) gAppSettings->SaveSetting(Section, value, String(down ? u"1" : u"0"));
    });
    if (!projects_) return;
    LoadTree();
    const String project = GetActiveVBProjectName();
    const String component = GetSelectedVBComponent();
    SelectItemTree(project, component, 0, 1);
  });
}

void udProjectExplorer::btnRefresh_Click() {
  Routine(u"udProjectExplorer.btnRefresh_Click", [&] {
    if (reading_) return;
    failed_ = false;
    const FailureWatch watch([this](const vb::Failure&) { failed_ = true; });
    Reading([this] { Reload(); });
    Position(2);
    ButtonEnabled();
  });
  ClearMarks();
}

void udProjectExplorer::SetTreeVBA(std::shared_ptr<clsEventCODE> source) {
  if (cTreeVBA_ == source) return;
  if (cTreeVBA_) cTreeVBA_->Tree = {};
  cTreeVBA_ = std::move(source);
  if (!cTreeVBA_) return;
  const std::weak_ptr<Surface> weak = weak_from_this();
  cTreeVBA_->Tree = [weak, this](std::int32_t kind, std::int32_t argument) {
    if (const auto self = weak.lock()) cTreeVBA_Tree(kind, argument);
  };
}

void udProjectExplorer::ClearMarks() {
  if (!cTreeVBA_) return;
  cTreeVBA_->SetRunEvents(true);
  cTreeVBA_->SetRunEventsProject(true);
  cTreeVBA_->SetRunEventsComponent(true);
  cTreeVBA_->SetRunEventsCode(true);
}

/// What lets events run while the model or the rows are half made. Notices that come meanwhile are
/// answered behind it.
void udProjectExplorer::Reading(const std::function<void()>& work) {
  const auto self = weak_from_this().lock();
  if (reading_) return work();
  {
    const Flag reading(reading_);
    work();
  }
  if (std::exchange(noticed_, false)) cTreeVBA_Tree(0, 2);
}

/// A notice during a jump tells nothing new. One during a reading does: what it tells of may have
/// been read already, so all is compared once more. However it ends, the next one can come; when a
/// call failed, that one reads all anew, but for one that has just done so: what keeps failing is
/// left to the next change.
void udProjectExplorer::cTreeVBA_Tree(std::int32_t kind, std::int32_t argument) {
  if (busy_ || reading_) {
    noticed_ = noticed_ || reading_;
    outrun_ = outrun_ || busy_;
    return ClearMarks();
  }
  {
    const Flag reading(reading_);
    const FailureWatch watch([this](const vb::Failure&) { failed_ = true; });
    do {
      const bool anew = std::exchange(failed_, false);
      Routine(u"udProjectExplorer.cTreeVBA_Tree", [&](const Statements& run) {
        noticed_ = false;
        run([] { platform::Current().Clock().DoEvents(); });
        HandleNotice(run, kind, argument, anew);
      });
      failed_ = failed_ && !anew;
      kind = 0;
      argument = 2;
    } while (noticed_);
  }
  ClearMarks();
}

void udProjectExplorer::HandleNotice(const Statements& run, std::int32_t kind,
                                     std::int32_t argument, bool anew) {
  // Without a project there is nothing to compare and to go to.
  if (!projects_ || GetActiveVBProjectName().empty()) return ProjectTree();
  if (anew) Reload();
  switch (kind) {
    case 0:
      if (!ProjectsMayDiffer(run)) return SelectRowTree(0);
      break;
    case 1:
      ComponentsMayDiffer(run);
      break;
    default:
      CodeMayDiffer(run);
      break;
  }
  const bool outrun = std::exchange(outrun_, false) || WasOutrun();
  if (kind != 0 && outrun) {
    if (!ProjectsMayDiffer(run)) return SelectRowTree(0);
    argument = 2;
  }
  Position(argument);
}

/// A change of the projects or a click on a designer found another notice on its way and gave up;
/// its mark is all that tells of it.
bool udProjectExplorer::WasOutrun() const {
  return cTreeVBA_ && (!cTreeVBA_->RunEventsProject() ||
                       (!cTreeVBA_->RunEventsComponent() && !cTreeVBA_->RunEventsCode()));
}

/// False when no component is selected: all is made anew then, and there is none to go to.
bool udProjectExplorer::ProjectsMayDiffer(const Statements& run) {
  const String project = GetActiveVBProjectName();
  const String component = GetSelectedVBComponent();
  if (run([&] { return ConformityAllProject(); })) {
    Reload();
    return true;
  }
  if (component.empty()) {
    ProjectTree();
    return false;
  }
  bool differs = run([&] { return ConformityComponent(project, component); });
  if (!differs) {
    const auto active = run([&] { return ActiveComponent(); });
    const String owner = active ? ProjectOfComponent(active) : String();
    differs = !owner.empty() && ConformityActiveComponent(owner, active) != Conformity::Same;
  }
  if (differs) Reload();
  return true;
}

void udProjectExplorer::ComponentsMayDiffer(const Statements& run) {
  const String project = GetActiveVBProjectName();
  if (run([&] { return ConformityComponent(project, GetSelectedVBComponent()); })) Reload();
}

void udProjectExplorer::CodeMayDiffer(const Statements& run) {
  const bool elsewhere = run([&] { return ActedElsewhere(); });
  const auto component = run([&] { return ActiveComponent(); });
  if (!component) return;
  CompareActive(run, component);
  if (!elsewhere) return;
  if (run([&] { return ConformityComponent(u"", u""); })) Reload();
}

/// Under the key of its own project: the active one may hold another component of that name.
void udProjectExplorer::CompareActive(const Statements& run, const Component& component) {
  const String project = run([&] { return ProjectOfComponent(component); });
  if (project.empty()) return;
  switch (ConformityActiveComponent(project, component)) {
    case Conformity::Same:
      break;
    case Conformity::OtherMembers:
      LoadParticleTree(project, component);
      break;
    case Conformity::Unknown:
      Reload();
      break;
  }
}

void udProjectExplorer::Reload() {
  SaveCollapsedExpanded();
  ReadProjects();
  LoadTree();
  RestoreCollapsedExpanded();
}

/// What fails here keeps the selection where it is; no row is lost.
void udProjectExplorer::Position(std::int32_t argument) {
  const bool failed = failed_;
  String project, component;
  if (argument == 1) {
    if (const auto active = ActiveComponent()) {
      ResumeNext([&] { component = active->Name(); });
      project = ProjectOfComponent(active);
    }
  } else {
    component = GetSelectedVBComponent();
  }
  if (project.empty()) project = GetActiveVBProjectName();
  if (mFunctions::IncludeAutoPosition()) {
    SelectItemTree(project, component, 1, argument);
  } else {
    SelectItemTree(project, component, 0, 1);
  }
  failed_ = failed;
}

void udProjectExplorer::SelectAtCaret() {
  const auto self = weak_from_this().lock();
  Routine(u"udProjectExplorer.SelectAtCaret", [&](const Statements& run) {
    if (!projects_) return;
    txtFind.SetText(u"");
    const auto component = run([&] { return ActiveComponent(); });
    if (!component) return;
    const String name = run([&] { return component->Name(); });
    SelectItemTree(ProjectOfComponent(component), name, 1, 1);
    ButtonEnabled();
  });
}

}  // namespace tessel
