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

constexpr StringView BarName = u"Tessel", Settings = u"Settings";
constexpr int EditSchemeFace = 3049, HelpFace = 984, AboutFace = 201;

int PlaceSetting(StringView key, int byDefault) {
  int value = byDefault;
  ResumeNext(
      [&] { value = vb::CLng(vb::Val(gAppSettings->GetText(Settings, key, vb::Str(byDefault)))); });
  return value;
}

ControlPtr AddPopup(host::CommandBarControls& controls, StringView caption, bool beginGroup) {
  auto popup = controls.Add(msoControlPopup);
  popup->SetCaption(caption);
  popup->SetBeginGroup(beginGroup);
  return popup;
}

/// The handler's name as the call stack shows it. It lives as long as the program, since the stack
/// may outlive us.
StringView HandlerName(StringView handler) {
  static std::set<String> names;
  return *names.insert(u"Connect." + String(handler)).first;
}

}  // namespace

void Connect::AddToAddInCommandBar(StringView caption) {
  Routine(u"Connect.AddToAddInCommandBar", [&](const Statements& run) {
    std::shared_ptr<host::CommandBar> bar;
    const auto bars = run([&] { return Need(vbInstance_).CommandBars(); });
    // A missing bar fails; that is how one learns that there is none yet.
    ResumeNext([&] { bar = bars->Item(BarName); });
    if (!bar) {
      const int position = PlaceSetting(u"ToolBarPosition", host::msoBarTop);
      const auto add = [&] { bar = bars->Add(BarName, position, true); };
      if (!ResumeNext(add)) ResumeNext(add);
      if (bar) run([&] { PlaceBar(*bar); });
    }
    if (!bar) return;
    for (const CommandRow& row : CommandTable()) {
      if (row.OnBar) run([&] { AddMenuCommandBarButton(*bar, row); });
    }
    const auto popup = run([&] { return AddPopup(*bar->Controls(), caption, true); });
    const auto controls = popup ? popup->Controls() : nullptr;
    if (controls) {
      for (const CommandRow& row : CommandTable()) {
        run([&] { AddMenuCommandBarPopup(*controls, row); });
      }
      run([&] { AddMenuCommandBarPopupUPRCommand(*controls); });
    }
    AddCommandBarDinamMenu(u"Modifiers");
    run([&] { AddHelp(*bar); });
    run([&] { PlaceBar(*bar); });
  });
}

void Connect::PlaceBar(host::CommandBar& bar) {
  const bool visible = PlaceSetting(u"ToolBarVisible", 1) > 0;
  const int position = PlaceSetting(u"ToolBarPosition", host::msoBarTop);
  const int top = PlaceSetting(u"ToolBarTop", bar.Top());
  const int left = PlaceSetting(u"ToolBarLeft", bar.Left());
  const int row = PlaceSetting(u"ToolBarRowIndex", -1);
  bar.SetVisible(visible);
  bar.SetPosition(position);
  bar.SetTop(top);
  bar.SetLeft(left);
  bar.SetRowIndex(row);
}

Connect::Control& Connect::Keep(const ControlPtr& button, StringView handler,
                                std::function<void()> onClick) {
  Control control;
  control.Button = button;
  control.Routine = HandlerName(handler);
  control.Built = onClick != nullptr;
  control.OnClick = std::move(onClick);
  if (!control.Built) button->SetEnabled(false);
  controls_.push_back(std::move(control));
  return controls_.back();
}

void Connect::RunOperation(Operation operation) { (this->*operation)(); }

/// Our picture by way of the clipboard, or a face of the host.
void Connect::SetPicture(host::CommandBarControl& control, int resId, int faceId) {
  if (resId == 0) {
    control.SetFaceId(faceId);
  } else {
    platform::Clipboard& clipboard = platform::Current().Clipboard();
    const auto pictures = std::make_shared<frmIco>();
    const int picture = pictures->PictureOf(resId);
    clipboard.Clear();
    clipboard.SetPicture(picture);
    control.PasteFace();
  }
  control.SetVisible(true);
}

void Connect::AddMenuCommandBarButton(host::CommandBar& bar, const CommandRow& row) {
  const auto button = bar.Controls()->Add(msoControlButton);
  button->SetBeginGroup(row.BarGroup);
  button->SetCaption(row.Caption);
  if (row.ResId != 0) button->SetStyle(0);
  SetPicture(*button, row.ResId, row.FaceId);
  std::function<void()> click;
  if (row.BarOperation != nullptr) {
    click = [this, operation = row.BarOperation] { RunOperation(operation); };
  }
  Keep(button, row.BarHandler, std::move(click)).Follows = !row.AlwaysEnabled;
}

void Connect::AddMenuCommandBarPopup(host::CommandBarControls& popup, const CommandRow& row) {
  const auto item = popup.Add(msoControlButton);
  item->SetBeginGroup(row.MenuGroup);
  item->SetCaption(row.Caption);
  item->SetOnAction(row.OnAction);
  SetPicture(*item, row.ResId, row.FaceId);
  std::function<void()> click;
  if (row.MenuOperation != nullptr) {
    click = [this, operation = row.MenuOperation] { RunOperation(operation); };
  }
  Keep(item, row.MenuHandler, std::move(click)).Follows = !row.AlwaysEnabled;
}

void Connect::AddMenuCommandBarPopupUPRCommand(host::CommandBarControls& popup) {
  for (const StringView caption : TemplatePopups()) {
    const auto group = AddPopup(popup, caption, caption == TemplatePopups().front());
    for (const TemplateRow& row : TemplateTable()) {
      if (row.Popup == caption) AddMenuComBarCommand(*group->Controls(), row);
    }
  }
}

void Connect::AddMenuComBarCommand(host::CommandBarControls& popup, const TemplateRow& row) {
  const auto item = popup.Add(msoControlButton);
  item->SetCaption(row.Caption);
  item->SetBeginGroup(false);
  Keep(item, row.Handler, [this, &row] {
    InsertTextInComponent(row.Lines, row.Column, row.LineOffset, row.Length);
  }).Follows = row.FollowsEnabling;
}

void Connect::AddCommandBarDinamMenu(StringView caption) {
  Routine(u"Connect.AddCommandBarDinamMenu", [&] {
    std::shared_ptr<host::CommandBar> bar;
    ResumeNext([&] { bar = Need(vbInstance_).CommandBars()->Item(BarName); });
    if (!bar) return;
    std::vector<String> names;
    ResumeNext(
        [&] { names = CSQLErrorHandler().GetListNameError().value_or(std::vector<String>{}); });
    ResumeNext([&] {
      const auto controls = AddPopup(*bar->Controls(), caption, true)->Controls();
      if (names.size() > MostSchemeItems) names.resize(MostSchemeItems);
      for (std::size_t at = 0; at < names.size(); ++at) {
        AddModifier(*controls, names[at], false, u"MenuDimamHandler" + vb::Str(at) + u"_Click");
      }
      AddModifier(*controls, u"Skip", true, u"MenuDimamHandlerSkip_Click");
      const auto edit = controls->Add(msoControlButton);
      edit->SetBeginGroup(true);
      edit->SetCaption(u"Edit Error Handler Scheme");
      edit->SetOnAction(u"Edit Error Handler Scheme");
      SetPicture(*edit, 0, EditSchemeFace);
      Keep(edit, u"MenuHandlerEditErrorHandkerScheme_Click",
           [this] { ShowEditErrorHandlerScheme(); });
    });
  });
}

/// An item that marks a member or module for a scheme; the scheme's name travels in OnAction.
void Connect::AddModifier(host::CommandBarControls& popup, StringView name, bool beginGroup,
                          StringView handler) {
  const auto item = popup.Add(msoControlButton);
  item->SetBeginGroup(beginGroup);
  item->SetCaption(name);
  item->SetOnAction(name);
  SetPicture(*item, 0, 0);
  const std::weak_ptr<host::CommandBarControl> weak = item;
  Keep(item, handler, [this, weak] {
    if (const auto clicked = weak.lock()) InsertErrStrInComponent(clicked->OnAction());
  }).Follows = false;
}

void Connect::AddHelp(host::CommandBar& bar) {
  const auto controls = AddPopup(*bar.Controls(), u"Help", true)->Controls();
  const auto add = [&](StringView caption, int face, StringView handler,
                       std::function<void()> click) {
    const auto item = controls->Add(msoControlButton);
    item->SetCaption(caption);
    item->SetBeginGroup(false);
    SetPicture(*item, 0, face);
    Keep(item, handler, std::move(click)).Follows = false;
  };
  add(u"Help", HelpFace, u"MenuComBarHelp_Click", [] { mGlobals::RunHelpFennick(u"support.htm"); });
  add(u"About", AboutFace, u"MenuComBarAbout_Click", [this] { ShowAbout(); });
}

void Connect::AddToAddInCommandBarEvents() {
  Routine(u"Connect.AddToAddInCommandBarEvents", [&](const Statements& run) {
    const auto events = run([&] { return Need(vbInstance_).Events(); });
    if (!events) return;
    for (std::size_t at = 0; at < controls_.size(); ++at) {
      Control& control = controls_[at];
      if (!control.Built) continue;
      control.Sink = run([&] { return events->CommandBarEvents(control.Button); });
      if (!control.Sink) continue;
      control.Sink->Click = [this, at](const ControlPtr&, bool&, bool&) {
        // A copy, since the click may end in a disconnection.
        const Control clicked = controls_[at];
        Routine(clicked.Routine, [&] { clicked.OnClick(); });
      };
    }
  });
}

void Connect::EnableDisableCmd(bool enabled) {
  Routine(u"Connect.EnableDisableCmd", [&](const Statements& run) {
    for (const Control& control : controls_) {
      if (control.Follows && control.Built) run([&] { control.Button->SetEnabled(enabled); });
    }
  });
}

}  // namespace tessel
