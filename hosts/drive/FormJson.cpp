#include "hosts/drive/FormJson.h"

#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"
#include "hosts/drive/ChannelDesktop.h"

namespace tessel::drive {
namespace {

using namespace tessel::forms;

Json TextList(const std::vector<String>& texts) {
  Json list = Json::array();
  for (const String& text : texts) list.push_back(Utf8(text));
  return list;
}

Json RowJson(const Grid& grid, int at) {
  const GridRow& row = grid.RowAt(at);
  Json cells = Json::array();
  for (int col = 0; col < grid.Cols(); ++col) cells.push_back(Utf8(grid.TextMatrix(at, col)));
  const auto tick = grid.TickColumnOf(at);
  return {{"cells", std::move(cells)},
          {"level", row.Level},
          {"data", row.Data},
          {"cell-data", Utf8(String(row.CellData))},
          {"picture", row.Picture},
          {"collapsed", row.Collapsed},
          {"bold", row.Bold},
          {"ticked", tick ? Json(*grid.Ticked(at, *tick)) : Json(nullptr)}};
}

// One function for each kind adds what that kind has beside the common fields.

void Add(Json& json, const TextBox& box) { json["text"] = Utf8(box.Text()); }

void Add(Json& json, const ListControl& list) {
  json["list"] = TextList(list.List());
  json["list-index"] = list.ListIndex();
  json["text"] = Utf8(list.Text());
}

void Add(Json& json, const TwoState& box) { json["value"] = box.Value(); }

void Add(Json& json, const OptionButton& option) { json["value"] = option.Value() ? 1 : 0; }

void Add(Json& json, const DropDownButton& button) {
  Json items = Json::array();
  for (const auto& item : button.Items()) {
    items.push_back({{"key", Utf8(item.Key)}, {"text", Utf8(item.Text)}});
  }
  json["items"] = items;
}

void Add(Json& json, const SpinButton& spin) {
  json["text"] = std::to_string(spin.Value());
  json["value"] = spin.Value();
  json["min"] = spin.Min();
  json["max"] = spin.Max();
}

void Add(Json& json, const RichTextBox& box) {
  json["text"] = Utf8(box.Text());
  json["rtf"] = Utf8(box.TextRTF());
  json["sel-start"] = box.SelStart();
  json["sel-length"] = box.SelLength();
}

void Add(Json& json, const TabControl& tabs) {
  Json pages = Json::array();
  for (const auto& page : tabs.Pages()) {
    pages.push_back(Utf8(page.Caption.empty() ? page.Name : page.Caption));
  }
  json["pages"] = pages;
  json["index"] = tabs.CurrTab();
}

void Add(Json& json, const Grid& grid) {
  json["columns"] = grid.Cols();
  json["fixed-rows"] = grid.FixedRows();
  json["row"] = grid.Row();
  json["col"] = grid.Col();
  json["top-row"] = grid.TopRow();
  const auto& editing = grid.Editing();
  json["editing"] = editing ? Json{{"row", editing->Row}, {"col", editing->Col}} : Json(nullptr);
  json["column-widths"] = *grid.ColumnWidths;
  json["hidden-columns"] = Json::array();
  for (int col = 0; col < grid.Cols(); ++col) {
    if (grid.ColumnAt(col).Hidden) json["hidden-columns"].push_back(col);
  }
  Json rows = Json::array();
  for (int row = 0; row < grid.Rows(); ++row) rows.push_back(RowJson(grid, row));
  json["rows"] = std::move(rows);
}

void Add(Json& json, const ProgressBar& bar) { json["value"] = bar.Value(); }

void Add(Json& json, const PictureBox& box) { json["picture"] = box.Picture(); }

template <class Kind>
void AddIf(Json& json, const Control& control) {
  if (const auto* one = dynamic_cast<const Kind*>(&control)) Add(json, *one);
}

Json ControlJson(const Control& control) {
  Json json{{"name", Utf8(control.Name())}, {"kind", control.Kind()},
            {"enabled", control.Enabled()}, {"visible", control.Visible()},
            {"focus", control.HasFocus()},  {"tool-tip", Utf8(control.ToolTipText())}};
  if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control)) {
    json["caption"] = Utf8(captioned->Caption());
  }
  AddIf<TextBox>(json, control);
  AddIf<ListControl>(json, control);
  AddIf<TwoState>(json, control);
  AddIf<OptionButton>(json, control);
  AddIf<DropDownButton>(json, control);
  AddIf<SpinButton>(json, control);
  AddIf<RichTextBox>(json, control);
  AddIf<TabControl>(json, control);
  AddIf<Grid>(json, control);
  AddIf<ProgressBar>(json, control);
  AddIf<PictureBox>(json, control);
  return json;
}

/// A group has no name and nothing to do: only its caption is there to be read.
Json GroupJson(const Surface& surface, const Layout& group) {
  bool visible = false;
  for (const Control* control : surface.Controls()) {
    visible = visible || (Holds(group, *control) && control->Visible() &&
                          HoldersShow(surface.Arrangement(), *control));
  }
  return {{"name", ""},
          {"kind", "Label"},
          {"enabled", true},
          {"visible", visible},
          {"focus", false},
          {"tool-tip", ""},
          {"caption", Utf8(group.Caption)}};
}

void AddGroups(Json& controls, const Surface& surface, const Layout& node) {
  if (node.Type == Layout::Kind::Group && !node.Caption.empty()) {
    controls.push_back(GroupJson(surface, node));
  }
  for (const Layout& child : node.Children) AddGroups(controls, surface, child);
}

}  // namespace

Json SurfaceJson(const Surface& surface) {
  Json controls = Json::array();
  for (const Control* control : surface.Controls()) controls.push_back(ControlJson(*control));
  AddGroups(controls, surface, surface.Arrangement());
  return {{"form", Utf8(surface.Name())},
          {"caption", Utf8(surface.Caption())},
          {"visible", surface.Visible()},
          {"controls", std::move(controls)}};
}

}  // namespace tessel::drive
