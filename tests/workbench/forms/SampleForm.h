// A small form with a control of every kind, which notes what happens to it.
#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"

namespace tessel::test {

class SampleForm : public forms::Form {
 public:
  SampleForm() : Form("frmSample", u"Sample") {
    txtNotes.MultiLine = true;
    Fill();
    Arrange();
    Wire();
  }

  forms::Label lblName{this, "lblName", {.Caption = u"&Name"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"first"}};
  forms::TextBox txtNotes{this, "txtNotes"};
  forms::ComboBox ComKind{this, "ComKind"};
  forms::ComboBox ComFree{this, "ComFree", forms::ComboBox::Style::Editable};
  forms::ListBox lstItems{this, "lstItems"};
  forms::CheckBox chkOn{this, "chkOn", {.Caption = u"&On"}};
  forms::OptionButton OptOne{this, "OptOne", 1, {.Caption = u"One"}};
  forms::OptionButton OptTwo{this, "OptTwo", 1, {.Caption = u"Two"}};
  forms::DropDownButton btmMore{this, "btmMore", {.Caption = u"More"}};
  forms::SpinButton VScrollNumber{this, "VScrollNumber", 1, 20};
  forms::ProgressBar barDone{this, "barDone"};
  forms::PictureBox picSign{this, "picSign", 111};
  forms::TabControl tabPages{this, "tabPages", {{u"P1", u"Grid"}, {u"P2", u"Text"}}};
  forms::Grid fgRows{this, "fgRows"};
  forms::RichTextBox RicText{this, "RicText"};
  forms::Button btmRun{this, "btmRun", {.Caption = u"&Run"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

  /// What was raised, oldest first.
  std::vector<String> Events;
  /// Answer to a closing by the frame.
  bool RefusesToClose = false;

 protected:
  bool Form_QueryUnload() override { return RefusesToClose; }
  void Form_Unload() override { Events.emplace_back(u"unload"); }

 private:
  void Fill() {
    for (const char16_t* text : {u"alpha", u"beta", u"gamma"}) {
      ComKind.AddItem(text);
      ComFree.AddItem(text);
      lstItems.AddItem(text);
    }
    btmMore.AddItem(u"A", u"Add");
    btmMore.AddItem(u"", u"-");
    btmMore.AddItem(u"B", u"Bring");
    FillGrid();
    btmRun.Default = true;
    btmCancel.Cancel = true;
  }
  void FillGrid() {
    fgRows.SetCols(3);
    fgRows.SetRows(1);
    fgRows.SetFixedRows(1);
    fgRows.SetTextMatrix(0, 0, u"Name");
    fgRows.SetTextMatrix(0, 1, u"Size");
    fgRows.SetTextMatrix(0, 2, u"Used");
    AddRow({u"Root", u"1", u"True"}, 0);
    AddRow({u"Child", u"2", u"False"}, 1);
    AddRow({u"Grandchild", u"3", u"True"}, 2);
    AddRow({u"Second", u"4", u"False"}, 0);
    fgRows.SetColTicks(2, true);
    fgRows.SetRowPicture(1, 111);
    fgRows.Editable = true;
  }
  void AddRow(std::vector<String> cells, int level) {
    fgRows.SetRowLevel(fgRows.AddItem(std::move(cells)), level);
  }
  void Arrange() {
    using namespace forms;
    SetLayout(Column({Row({Item(lblName), Item(txtName, 1)}), Item(txtNotes),
                      Row({Item(ComKind), Item(ComFree), Item(lstItems)}),
                      Group(u"Choice", {Row({Item(chkOn), Item(OptOne), Item(OptTwo), Space()})}),
                      Row({Item(btmMore), Item(VScrollNumber), Item(barDone), Item(picSign)}),
                      Tabs(tabPages, {Column({Item(fgRows, 1)}), Column({Item(RicText, 1)})}),
                      Row({Space(), Item(btmRun), Item(btmCancel)})}));
  }
  void Note(StringView event) { Events.emplace_back(event); }
  void Wire() {
    txtName.Change = [this] { Note(u"txtName"); };
    txtNotes.Change = [this] { Note(u"txtNotes"); };
    ComKind.Click = [this] { Note(u"ComKind"); };
    ComFree.Click = [this] { Note(u"ComFree click"); };
    ComFree.Change = [this] { Note(u"ComFree"); };
    lstItems.Click = [this] { Note(u"lstItems"); };
    lstItems.DblClick = [this] { Note(u"lstItems twice"); };
    chkOn.Click = [this] { Note(u"chkOn"); };
    OptOne.Click = [this] { Note(u"OptOne"); };
    OptTwo.Click = [this] { Note(u"OptTwo"); };
    btmMore.DropdownItemClick = [this](StringView key) { Note(u"btmMore " + String(key)); };
    VScrollNumber.Change = [this] { Note(u"VScrollNumber"); };
    picSign.Click = [this] { Note(u"picSign"); };
    tabPages.Switch = [this] { Note(u"tabPages"); };
    fgRows.AfterSelChange = [this] { Note(u"fgRows select"); };
    fgRows.AfterEdit = [this](int row, int col) {
      Note(u"fgRows edit " + fgRows.TextMatrix(row, col));
    };
    fgRows.AfterCollapse = [this](int row) { Note(u"fgRows collapse " + vb::Str(row)); };
    RicText.Change = [this] { Note(u"RicText"); };
    btmRun.Click = [this] { Note(u"btmRun"); };
    btmCancel.Click = [this] { Note(u"btmCancel"); };
  }
};

}  // namespace tessel::test
