#include "builders/BuilderParts.h"

namespace tessel::builders {
namespace {

constexpr auto ChooseOnly = forms::ComboBox::Style::List;

}  // namespace

NameBox::NameBox(forms::Surface* form)
    : lblName(form, "lblName", {.Caption = u"&Name:"}),
      txtName(form, "txtName", {.Text = u"Name", .ToolTipText = u"Name"}) {}

AccessBox::AccessBox(forms::Surface* form)
    : lblAccessibility(form, "lblAccessibility", {.Caption = u"&Accessibility:"}),
      ComAccessibility(form, "ComAccessibility", ChooseOnly, {.ToolTipText = u"Accessibility"}) {}

StaticBox::StaticBox(forms::Surface* form)
    : lblStatic(form, "lblStatic", {.Caption = u"&Static:"}),
      ComStatic(form, "ComStatic", ChooseOnly, {.ToolTipText = u"Static"}) {}

ModuleBox::ModuleBox(forms::Surface* form)
    : lblModule(form, "lblModule", {.Caption = u"&Module:"}),
      ComModule(form, "ComModule", ChooseOnly, {.ToolTipText = u"Module"}) {}

ItemList::ItemList(forms::Surface* form, std::string_view list, std::string_view down)
    : List(form, list),
      btmAdd(form, "btmAdd", {.Caption = u"A&dd...", .ToolTipText = u"Add"}),
      btmDel(form, "btmDel", {.Caption = u"De&lete", .ToolTipText = u"Delete"}),
      btmMoveUp(form, "btmMoveUp", {.Caption = u"&Up", .ToolTipText = u"Move Up"}),
      btmMoveDown(form, down, {.Caption = u"Do&wn", .ToolTipText = u"Move Down"}) {}

forms::Layout ItemList::Arrange(StringView caption) {
  using namespace forms;
  return Group(caption,
               {Row({Item(List, 1), Column({Item(btmAdd), Item(btmDel), Item(btmMoveUp),
                                            Item(btmMoveDown), Space()})},
                    1)},
               1);
}

void ItemList::Add(StringView text) {
  List.AddItem(text);
  List.SetFocus();
  List.SetListIndex(static_cast<int>(List.List().size()) - 1);
}

void ItemList::DeleteSelected() {
  if (List.ListIndex() < 0) return;
  List.RemoveItem(List.ListIndex());
  List.SetListIndex(static_cast<int>(List.List().size()) - 1);
}

void ItemList::MoveSelectedUp() {
  const int at = List.ListIndex();
  if (at > 0) Exchange(at, at - 1);
}

void ItemList::MoveSelectedDown() {
  const int at = List.ListIndex();
  if (at >= 0 && at + 1 < static_cast<int>(List.List().size())) Exchange(at, at + 1);
}

/// The second place is selected then.
void ItemList::Exchange(int from, int to) {
  auto items = List.List();
  std::swap(items[static_cast<std::size_t>(from)], items[static_cast<std::size_t>(to)]);
  List.Clear();
  for (const String& item : items) List.AddItem(item);
  List.SetListIndex(to);
}

LowerPart::LowerPart(forms::Surface* form, std::string_view preview)
    : lblDescription(form, "lblDescription", {.Caption = u"Des&cription:"}),
      txtDescription(form, "txtDescription", {.ToolTipText = u"Description"}),
      chkHeader(form, "chkHeader", {.Caption = u"&Header"}),
      Preview(form, preview),
      btmHelp(form, "btmHelp", {.Caption = u"Help"}),
      btmOK(form, "btmOK", {.Caption = u"OK"}),
      btmCancel(form, "btmCancel", {.Caption = u"Cancel"}) {
  Preview.Locked = true;
  btmOK.Default = true;
  btmCancel.Cancel = true;
}

forms::Layout LowerPart::ArrangeComment() {
  return forms::Row(
      {forms::Item(lblDescription), forms::Item(txtDescription, 1), forms::Item(chkHeader)});
}

forms::Layout LowerPart::ArrangeButtons() {
  return forms::Row(
      {forms::Item(btmHelp), forms::Space(), forms::Item(btmOK), forms::Item(btmCancel)});
}

}  // namespace tessel::builders
