// The command bar: built from tables at connection, hooked behind it.

#include "addin/Connect.h"

#include <set>

#include "addin/frmIco.h"
#include "errorhandlers/CSQLErrorHandler.h"
#include "foundation/CAppSettings.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

using host::msoControlButton;
using host::msoControlPopup;
using ControlPtr = std::shared_ptr<host::CommandBarControl>;
using ControlsPtr = std::shared_ptr<host::CommandBarControls>;
using BarPtr = std::shared_ptr<host::CommandBar>;

constexpr StringView BarName = u"Tessel", Settings = u"Settings";
constexpr int EditSchemeFace = 3049, HelpFace = 984, AboutFace = 201;

int PlaceSetting(StringView key, int byDefault) {
  int value = byDefault;
  ResumeNext(
      [&] { value = vb::CLng(vb::Val(gAppSettings->GetText(Settings, key, vb::Str(byDefault)))); });
  return value;
}

void PlaceBar(const Statements& run, const BarPtr& bar) {
  const bool visible = PlaceSetting(u"ToolBarVisible", 1) > 0;
  const int position = PlaceSetting(u"ToolBarPosition", host::msoBarTop);
  const int top = run([&] { return PlaceSetting(u"ToolBarTop", Need(bar).Top()); });
  const int left = run([&] { return PlaceSetting(u"ToolBarLeft", Need(bar).Left()); });
  const int row = PlaceSetting(u"ToolBarRowIndex", -1);
  run([&] { Need(bar).SetVisible(visible); });
  run([&] { Need(bar).SetPosition(position); });
  run([&] { Need(bar).SetTop(top); });
  run([&] { Need(bar).SetLeft(left); });
  run([&] { Need(bar).SetRowIndex(row); });
}

// `Step` runs one statement: at a routine's handler (Statements) or at resume-next
// (SilentStatements).

/// A pop-up on a bar or in another one; answers what stands in it.
template <class Step>
ControlsPtr AddPopup(const Step& step, const ControlsPtr& controls, StringView caption,
                     bool beginGroup) {
  const auto popup = step([&] { return Need(controls).Add(msoControlPopup); });
  if (!popup) return nullptr;
  step([&] { popup->SetCaption(caption); });
  step([&] { popup->SetBeginGroup(beginGroup); });
  return step([&] { return popup->Controls(); });
}

/// One of the pop-ups on the bar itself.
template <class Step>
ControlsPtr AddPopup(const Step& step, const BarPtr& bar, StringView caption) {
  return AddPopup(step, step([&] { return Need(bar).Controls(); }), caption, true);
}

/// Our picture by way of the clipboard, or a face of the host; then the control shows.
template <class Step>
void SetPicture(const Step& step, host::CommandBarControl& control, int resId, int faceId) {
  if (resId == 0) {
    step([&] { control.SetFaceId(faceId); });
  } else {
    const auto pictures = step([] { return std::make_shared<frmIco>(); });
    const int picture = step([&] { return Need(pictures).PictureOf(resId); });
    step([] { platform::Current().Clipboard().Clear(); });
    step([&] { platform::Current().Clipboard().SetPicture(picture); });
    step([&] { control.PasteFace(); });
  }
  step([&] { control.SetVisible(true); });
}

/// The handler's name as the call stack shows it. It lives as long as the program, since the stack
/// may outlive us.
StringView HandlerName(StringView handler) {
  static std::set<String> names;
  return *names.insert(u"Connect." + String(handler)).first;
}

}  // namespace

void Connect::AddToAddInCommandBar(StringView caption) {
  Run(u"Connect.AddToAddInCommandBar", [&](const Statements& run) {
    // A missing bar fails; that is how one learns that there is none yet.
    const SilentStatements silently;
    auto bar = silently([&] { return Need(vbInstance_).CommandBars()->Item(BarName); });
    if (!bar) {
      const int position = PlaceSetting(u"ToolBarPosition", host::msoBarTop);
      const auto add = [&] {
        return Need(vbInstance_).CommandBars()->Add(BarName, position, true);
      };
      bar = silently(add);
      if (!bar) bar = silently(add);
      if (!bar) return;
      PlaceBar(run, bar);
    }
    for (const CommandRow& row : CommandTable()) {
      if (row.OnBar) AddMenuCommandBarButton(bar, row);
    }
    if (const auto popup = AddPopup(run, bar, caption)) {
      for (const CommandRow& row : CommandTable()) {
        AddMenuCommandBarPopup(popup, {row.Caption, row.OnAction, row.FaceId, row.MenuGroup,
                                       row.ResId, row.MenuHandler, Clicking(row.MenuOperation),
                                       SinkGroup::MenuItems, !row.AlwaysEnabled});
      }
      AddMenuCommandBarPopupUPRCommand(popup);
    }
    AddCommandBarDinamMenu(u"Modifiers");
    AddHelp(run, bar);
    PlaceBar(run, bar);
  });
}

Connect::ClickHandler Connect::Clicking(Operation operation) {
  if (operation == nullptr) return nullptr;
  return [this, operation](const ControlPtr&) { (this->*operation)(); };
}

void Connect::Keep(Control control) {
  control.Routine = HandlerName(control.Routine);
  controls_.push_back(std::move(control));
}

void Connect::AddMenuCommandBarButton(const BarPtr& bar, const CommandRow& row) {
  Run(u"Connect.AddMenuCommandBarButton", [&](const Statements& run) {
    const auto button = run([&] { return Need(Need(bar).Controls()).Add(msoControlButton); });
    if (!button) return;
    // Kept at once: whatever fails from here on, the control has its handler.
    Keep({button, nullptr, row.BarHandler, Clicking(row.BarOperation), SinkGroup::BarButtons,
          !row.AlwaysEnabled});
    if (row.BarOperation == nullptr) run([&] { button->SetEnabled(false); });
    run([&] { button->SetBeginGroup(row.BarGroup); });
    run([&] { button->SetCaption(row.Caption); });
    if (row.ResId != 0) run([&] { button->SetStyle(0); });
    SetPicture(run, *button, row.ResId, row.FaceId);
  });
}

/// An item of a pop-up, statement by statement.
template <class Step>
void Connect::AddItem(const Step& step, const ControlsPtr& popup, const MenuItem& item) {
  const auto control = step([&] { return Need(popup).Add(msoControlButton); });
  if (!control) return;
  Keep({control, nullptr, item.Handler, item.OnClick, item.Group, item.Follows});
  if (!item.OnClick) step([&] { control->SetEnabled(false); });
  step([&] { control->SetBeginGroup(item.BeginGroup); });
  step([&] { control->SetCaption(item.Caption); });
  if (!item.OnAction.empty()) step([&] { control->SetOnAction(item.OnAction); });
  SetPicture(step, *control, item.ResId, item.FaceId);
}

void Connect::AddMenuCommandBarPopup(const ControlsPtr& popup, const MenuItem& item) {
  Run(u"Connect.AddMenuCommandBarPopup", [&](const Statements& run) { AddItem(run, popup, item); });
}

void Connect::AddMenuCommandBarPopupUPRCommand(const ControlsPtr& popup) {
  Run(u"Connect.AddMenuCommandBarPopupUPRCommand", [&](const Statements& run) {
    for (const StringView caption : TemplatePopups()) {
      const auto group = AddPopup(run, popup, caption, caption == TemplatePopups().front());
      if (!group) continue;
      for (const TemplateRow& row : TemplateTable()) {
        if (row.Popup == caption) AddMenuComBarCommand(group, row);
      }
    }
  });
}

void Connect::AddMenuComBarCommand(const ControlsPtr& popup, const TemplateRow& row) {
  Run(u"Connect.AddMenuComBarCommand", [&](const Statements& run) {
    const auto item = run([&] { return Need(popup).Add(msoControlButton); });
    if (!item) return;
    const auto insert = [this, &row](const ControlPtr&) {
      InsertTextInComponent(row.Lines, row.Column, row.LineOffset, row.Length);
    };
    Keep({item, nullptr, row.Handler, insert, SinkGroup::Statements, row.FollowsEnabling});
    run([&] { item->SetCaption(row.Caption); });
    run([&] { item->SetBeginGroup(false); });
  });
}

/// The routine runs at resume-next: what fails leaves out itself and nothing else.
void Connect::AddCommandBarDinamMenu(StringView caption) {
  Run(u"Connect.AddCommandBarDinamMenu", [&] {
    const SilentStatements silently;
    const auto bar = silently([&] { return Need(vbInstance_).CommandBars()->Item(BarName); });
    if (!bar) return;
    auto names = silently([] {
                   return CSQLErrorHandler().GetListNameError();
                 }).value_or(std::vector<String>{});
    if (names.size() > MostSchemeItems) names.resize(MostSchemeItems);
    const auto popup = AddPopup(silently, bar, caption);
    const auto mark = [this](const ControlPtr& clicked) {
      InsertErrStrInComponent(Need(clicked).OnAction());
    };
    for (std::size_t at = 0; at < names.size(); ++at) {
      const String handler = u"MenuDimamHandler" + vb::Str(at) + u"_Click";
      AddItem(silently, popup,
              {names[at], names[at], 0, false, 0, handler, mark, SinkGroup::Schemes, false});
    }
    AddItem(silently, popup,
            {u"Skip", u"Skip", 0, true, 0, u"MenuDimamHandlerSkip_Click", mark, SinkGroup::Schemes,
             false});
    const auto edit = [this](const ControlPtr&) { ShowEditErrorHandlerScheme(); };
    AddItem(silently, popup,
            {u"Edit Error Handler Scheme", u"Edit Error Handler Scheme", EditSchemeFace, true, 0,
             u"MenuHandlerEditErrorHandkerScheme_Click", edit, SinkGroup::Schemes, true});
  });
}

void Connect::AddHelp(const Statements& run, const BarPtr& bar) {
  const auto popup = AddPopup(run, bar, u"Help");
  if (!popup) return;
  const auto help = [](const ControlPtr&) { mGlobals::RunHelpFennick(u"support.htm"); };
  const auto about = [this](const ControlPtr&) { ShowAbout(); };
  AddMenuCommandBarPopup(popup, {u"Help", u"", HelpFace, false, 0, u"MenuComBarHelp_Click", help,
                                 SinkGroup::Help, false});
  AddMenuCommandBarPopup(popup, {u"About", u"", AboutFace, false, 0, u"MenuComBarAbout_Click",
                                 about, SinkGroup::Help, false});
}

/// The click of a control enters the system here.
void Connect::HookUp(Control& control, const std::shared_ptr<host::CommandBarEvents>& sink) {
  control.Sink = sink;
  sink->Click = [weak = weak_from_this(), name = control.Routine, click = control.OnClick](
                    const ControlPtr& clicked, bool&, bool&) {
    if (const auto self = weak.lock()) {
      Enter([&] { Routine(name, [&] { click(clicked); }); });
    }
  };
}

bool Connect::RunUnhooked(StringView handler) {
  for (const UnhookedRow& row : UnhookedTable()) {
    if (row.Handler != handler) continue;
    const auto self = weak_from_this().lock();
    Enter([&] { Run(HandlerName(handler), [&] { (this->*row.Runs)(); }); });
    return true;
  }
  return false;
}

void Connect::AddToAddInCommandBarEvents() {
  Run(u"Connect.AddToAddInCommandBarEvents", [&](const Statements& run) {
    for (const SinkGroup group : {SinkGroup::BarButtons, SinkGroup::Schemes, SinkGroup::MenuItems,
                                  SinkGroup::Statements, SinkGroup::Help}) {
      // By index and with the control in hand: a failure's dialog lets other routines run.
      for (std::size_t at = 0; at < controls_.size(); ++at) {
        if (controls_[at].Group != group || !controls_[at].OnClick) continue;
        const auto button = controls_[at].Button;
        const auto sink = run([&] { return Need(vbInstance_).Events()->CommandBarEvents(button); });
        if (sink && at < controls_.size()) HookUp(controls_[at], sink);
      }
    }
  });
}

void Connect::EnableDisableCmd(bool enabled) {
  Run(u"Connect.EnableDisableCmd", [&](const Statements& run) {
    for (std::size_t at = 0; at < controls_.size(); ++at) {
      if (!controls_[at].Follows || !controls_[at].OnClick) continue;
      const auto button = controls_[at].Button;
      run([&] { button->SetEnabled(enabled); });
    }
  });
}

}  // namespace tessel
