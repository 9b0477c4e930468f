#include "hosts/workbench/forms/ControlViews.h"

#include <QButtonGroup>
#include <algorithm>

#include "forms/Surface.h"
#include "hosts/workbench/forms/ButtonView.h"
#include "hosts/workbench/forms/CheckBoxView.h"
#include "hosts/workbench/forms/ComboBoxView.h"
#include "hosts/workbench/forms/DropDownButtonView.h"
#include "hosts/workbench/forms/GridView.h"
#include "hosts/workbench/forms/LabelView.h"
#include "hosts/workbench/forms/ListBoxView.h"
#include "hosts/workbench/forms/MultiLineView.h"
#include "hosts/workbench/forms/OptionButtonView.h"
#include "hosts/workbench/forms/PanelView.h"
#include "hosts/workbench/forms/PictureBoxView.h"
#include "hosts/workbench/forms/ProgressBarView.h"
#include "hosts/workbench/forms/RichTextView.h"
#include "hosts/workbench/forms/SpinButtonView.h"
#include "hosts/workbench/forms/TabControlView.h"
#include "hosts/workbench/forms/TextBoxView.h"
#include "hosts/workbench/forms/ToggleButtonView.h"
#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

template <class Model, class View>
std::unique_ptr<ControlView> MakeAs(forms::Control& control, ViewHost& host) {
  return std::make_unique<View>(dynamic_cast<Model&>(control), host);
}

struct KindOfView {
  std::string_view Kind;
  std::unique_ptr<ControlView> (*Make)(forms::Control& control, ViewHost& host);
};
constexpr KindOfView Kinds[] = {
    {"Button", MakeAs<forms::Button, ButtonView>},
    {"CheckBox", MakeAs<forms::CheckBox, CheckBoxView>},
    {"ComboBox", MakeAs<forms::ComboBox, ComboBoxView>},
    {"DropDownButton", MakeAs<forms::DropDownButton, DropDownButtonView>},
    {"Grid", MakeAs<forms::Grid, GridView>},
    {"Label", MakeAs<forms::Label, LabelView>},
    {"ListBox", MakeAs<forms::ListBox, ListBoxView>},
    {"Panel", MakeAs<forms::Panel, PanelView>},
    {"PictureBox", MakeAs<forms::PictureBox, PictureBoxView>},
    {"ProgressBar", MakeAs<forms::ProgressBar, ProgressBarView>},
    {"RichTextBox", MakeAs<forms::RichTextBox, RichTextView>},
    {"SpinButton", MakeAs<forms::SpinButton, SpinButtonView>},
    {"TabControl", MakeAs<forms::TabControl, TabControlView>},
    {"TextBox", MakeAs<forms::TextBox, TextBoxView>},
    {"ToggleButton", MakeAs<forms::ToggleButton, ToggleButtonView>}};

}  // namespace

ControlViews::ControlViews(const forms::Surface& surface, ViewHost& host, QWidget& owner)
    : owner_(owner) {
  for (forms::Control* const control : surface.Controls()) {
    views_.push_back(Make(*control, host));
    ControlView& view = *views_.back();
    view.Widget()->setObjectName(ToQt(control->Name()));
    byControl_.emplace(control, &view);
  }
}

ControlViews::~ControlViews() = default;

std::unique_ptr<ControlView> ControlViews::Make(forms::Control& control, ViewHost& host) {
  if (auto* const option = dynamic_cast<forms::OptionButton*>(&control)) {
    return std::make_unique<OptionButtonView>(*option, GroupOf(option->Group()), host);
  }
  const auto* const box = dynamic_cast<forms::TextBox*>(&control);
  if (box != nullptr && box->MultiLine) return MakeAs<forms::TextBox, MultiLineView>(control, host);
  for (const KindOfView& one : Kinds) {
    if (one.Kind == control.Kind()) return one.Make(control, host);
  }
  throw vb::Failure(vb::InternalError, u"No widget shows the control " + control.Name());
}

QButtonGroup& ControlViews::GroupOf(int number) {
  QButtonGroup*& group = groups_[number];
  if (group == nullptr) group = new QButtonGroup(&owner_);
  return *group;
}

ControlView& ControlViews::Of(const forms::Control& control) const {
  return *byControl_.at(&control);
}

ControlView* ControlViews::Around(const QWidget* widget) const {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    for (const auto& view : views_) {
      if (view->Widget() == widget) return view.get();
    }
  }
  return nullptr;
}

ControlView* ControlViews::FieldBehind(const ControlView& label) const {
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [&](const auto& view) { return view.get() == &label; });
  if (found == views_.end() || found + 1 == views_.end()) return nullptr;
  ControlView& next = **(found + 1);
  const bool button = dynamic_cast<const forms::Button*>(&next.Model()) != nullptr;
  return next.Model().TakesFocus() && !button ? &next : nullptr;
}

}  // namespace tessel::workbench
