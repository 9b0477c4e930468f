#include <gtest/gtest.h>

#include "forms/Document.h"
#include "forms/Pointer.h"
#include "forms/User.h"
#include "support/MemoryPlatform.h"
#include "vb/Failure.h"

namespace tessel::forms {
namespace {

struct Sample : Form {
  Sample() : Form("frmSample", u"Sample") {
    txt.Change = [this] { Log(u"txt.Change"); };
    txt.GotFocus = [this] { Log(u"txt.GotFocus"); };
    txt.LostFocus = [this] { Log(u"txt.LostFocus"); };
    chk.Click = [this] { Log(u"chk.Click"); };
    optA.Click = [this] { Log(u"optA.Click"); };
    optB.Click = [this] { Log(u"optB.Click"); };
    cbo.Click = [this] { Log(u"cbo.Click"); };
    spin.Change = [this] { Log(u"spin.Change"); };
    tabs.Switch = [this] { Log(u"tabs.Switch"); };
    ok.Click = [this] { Log(u"ok.Click"); };
    drop.DropdownItemClick = [this](StringView key) { Log(u"drop " + String(key)); };
    drop.AddItem(u"A", u"First");
    drop.AddItem(u"", u"-");
    cbo.AddItem(u"one");
    cbo.AddItem(u"Two");
    grid.SetCols(2);
    grid.SetRows(3);
    grid.SetFixedRows(1);
    grid.Editable = true;
    grid.BeforeEdit = [](int, int col, bool& refuse) { refuse = col == 0; };
    grid.AfterEdit = [this](int row, int col) { Log(u"edit " + vb::Str(row) + vb::Str(col)); };
    grid.AfterSelChange = [this] { Log(u"grid.AfterSelChange"); };
    ok.Default = true;
    cancel.Cancel = true;
    cancel.Click = [this] { Unload(); };
  }
  void Log(const String& text) { Seen.push_back(text); }
  void Form_Load() override { Log(u"load"); }
  void Form_Activate() override {
    Log(u"activate");
    if (OnActivate) OnActivate();
  }
  void Form_Unload() override { Log(u"unload"); }
  bool Form_QueryUnload() override { return Refuse; }
  std::function<void()> OnActivate;
  std::vector<String> Take() { return std::exchange(Seen, {}); }

  std::vector<String> Seen;
  bool Refuse = false;
  TextBox txt{this, "txt", {.Text = u"start"}};
  CheckBox chk{this, "chk"};
  OptionButton optA{this, "optA", 1};
  OptionButton optB{this, "optB", 1};
  OptionButton other{this, "other", 2};
  ComboBox cbo{this, "cbo"};
  SpinButton spin{this, "spin", 1, 5};
  TabControl tabs{this, "tabs", {{u"a", u"A"}, {u"b", u"B"}}};
  DropDownButton drop{this, "drop"};
  Grid grid{this, "grid"};
  RichTextBox rich{this, "rich"};
  Label label{this, "label", {.Caption = u"x"}};
  Button ok{this, "ok"};
  Button cancel{this, "cancel"};
};

using Log = std::vector<String>;

class Forms : public testing::Test {
 protected:
  void Refuses(const std::function<void()>& action, StringView text) {
    form_->Take();
    try {
      action();
      ADD_FAILURE() << "not refused: " << vb::ToUtf8(text);
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Description(), text);
    }
  }
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  std::shared_ptr<Sample> form_ = std::make_shared<Sample>();
};

TEST_F(Forms, RaiseEventsOnlyForAnotherValue) {
  form_->txt.SetText(u"start");
  form_->chk.SetValue(0);
  form_->cbo.SetListIndex(-1);
  form_->spin.SetValue(1);
  form_->tabs.SetCurrTab(0);
  EXPECT_TRUE(form_->Take().empty());
  form_->txt.SetText(u"x");
  form_->chk.SetValue(1);
  form_->cbo.SetListIndex(1);
  form_->spin.SetValue(99);
  form_->tabs.SetCurrTab(1);
  EXPECT_EQ(form_->Take(),
            (Log{u"txt.Change", u"chk.Click", u"cbo.Click", u"spin.Change", u"tabs.Switch"}));
  EXPECT_EQ(form_->spin.Value(), 5);
}

TEST_F(Forms, OptionsOfAGroupExcludeEachOther) {
  form_->other.SetValue(true);
  form_->optA.SetValue(true);
  form_->optB.SetValue(true);
  EXPECT_FALSE(form_->optA.Value());
  EXPECT_TRUE(form_->other.Value());
  EXPECT_EQ(form_->Take(), (Log{u"optA.Click", u"optB.Click"}));
}

TEST_F(Forms, LoadOnceAndGoBackToTheirDesignOnUnload) {
  form_->Show();
  form_->txt.SetText(u"typed");
  form_->Hide();
  form_->Show();
  EXPECT_EQ(form_->txt.Text(), u"typed");
  form_->Unload();
  EXPECT_EQ(form_->Take(), (Log{u"load", u"activate", u"txt.Change", u"activate", u"unload"}));
  EXPECT_EQ(form_->txt.Text(), u"start");
  form_->Unload();
  EXPECT_TRUE(form_->Take().empty());
}

TEST_F(Forms, GoBackToTheirDesignWhole) {
  form_->txt.SetToolTipText(u"of the class");
  form_->grid.ColumnWidths = {3, 4};
  form_->Show();
  form_->SetCaption(u"other");
  form_->Tag = u"other";
  form_->txt.SetToolTipText(u"other");
  form_->txt.Tag = u"other";
  form_->txt.Locked = true;
  form_->rich.Locked = true;
  form_->rich.RightMargin = 9;
  form_->rich.Font = Font{.Name = u"Other", .Size = 20};
  form_->rich.SetTextRTF(u"{\\rtf1 red}");
  form_->grid.ColumnWidths = {30, 40};
  form_->grid.Editable = false;
  form_->grid.SetRows(9);
  form_->ok.Default = false;
  form_->drop.ClearItems();
  form_->cbo.SetListIndex(1);
  form_->Unload();
  EXPECT_EQ(form_->Caption(), u"Sample");
  EXPECT_EQ(form_->Tag, u"other") << "an answer for who opened the form";
  EXPECT_EQ(form_->txt.ToolTipText(), u"of the class");
  EXPECT_EQ(*form_->txt.Tag, u"");
  EXPECT_FALSE(form_->txt.Locked);
  EXPECT_FALSE(form_->rich.Locked);
  EXPECT_EQ(form_->rich.RightMargin, 0);
  EXPECT_EQ(*form_->rich.Font, Font{});
  EXPECT_EQ(form_->rich.Text(), u"");
  EXPECT_EQ(*form_->grid.ColumnWidths, (std::vector<int>{3, 4}));
  EXPECT_TRUE(form_->grid.Editable);
  EXPECT_EQ(form_->grid.Rows(), 3);
  EXPECT_TRUE(form_->ok.Default);
  EXPECT_EQ(form_->drop.Items().size(), 2U);
  EXPECT_EQ(form_->cbo.ListIndex(), -1);
}

/// Counts what a renderer would show again.
struct CountingView : View {
  void ControlChanged(Control& control) override { Shown.push_back(control.Name()); }
  void FocusChanged(Control*) override {}
  void SurfaceChanged() override { Shown.emplace_back(u"surface"); }
  std::vector<String> Shown;
};

TEST_F(Forms, TellTheirViewOfEveryPropertyThatIsSeen) {
  CountingView view;
  form_->SetView(&view);
  form_->rich.Font = Font{.Name = u"Other"};
  form_->rich.Font = Font{.Name = u"Other"};  // the same again is nothing to show
  form_->txt.Locked = true;
  form_->grid.ColumnWidths = {1, 2};
  form_->SetCaption(u"other");
  EXPECT_EQ(view.Shown, (std::vector<String>{u"rich", u"txt", u"grid", u"surface"}));
  form_->SetView(nullptr);
}

TEST_F(Forms, AFailingActivationLeavesThemHiddenAndAbleToShowModally) {
  form_->OnActivate = [] { throw vb::Failure(91, u"not yet"); };
  EXPECT_THROW(form_->Show(), vb::Failure);
  EXPECT_FALSE(form_->Visible());
  EXPECT_TRUE(services_.DesktopService.Shown.empty());
  form_->OnActivate = nullptr;
  bool seen = false;
  services_.DesktopService.OnModal = [&](Form&) { seen = true; };
  form_->Show(platform::ShowStyle::Modal);
  EXPECT_TRUE(seen);
}

TEST_F(Forms, AFailingShowLeavesThemHiddenAndAbleToShowModally) {
  services_.DesktopService.OnModal = [](Form&) { throw vb::Failure(7, u"no window"); };
  EXPECT_THROW(form_->Show(platform::ShowStyle::Modal), vb::Failure);
  EXPECT_FALSE(form_->Visible());
  EXPECT_TRUE(services_.DesktopService.Shown.empty());
  services_.DesktopService.OnModal = nullptr;
  form_->Show(platform::ShowStyle::Modal);
  EXPECT_FALSE(form_->IsLoaded()) << "closed by its frame";
}

TEST_F(Forms, AnActivationThatHidesThemIsNoShowing) {
  form_->OnActivate = [this] { form_->Hide(); };
  form_->Show();
  EXPECT_TRUE(services_.DesktopService.Shown.empty());
  EXPECT_TRUE(form_->IsLoaded());
}

/// A desktop that notes what it is told of forms.
struct NotingDesktop : memory::UnattendedDesktop {
  void Hidden(Form& form) override {
    Told.emplace_back("hidden");
    UnattendedDesktop::Hidden(form);
  }
  void Gone(Form& form) override {
    Told.emplace_back("gone");
    UnattendedDesktop::Gone(form);
  }
  std::vector<std::string> Told;
};

TEST(FormsOnADesktop, TheEndIsAlwaysTold) {
  memory::PlatformWith<NotingDesktop> services;
  const platform::ScopedPlatform scope(services);
  const auto told = [&] { return std::exchange(services.DesktopService.Told, {}); };
  auto form = std::make_shared<Sample>();
  form->Show();
  form->Hide();
  form->Show();
  EXPECT_EQ(told(), (std::vector<std::string>{"hidden"}));
  form->Unload();
  EXPECT_EQ(told(), (std::vector<std::string>{"gone"}));
  form->Show();
  form->Hide();
  EXPECT_EQ(told(), (std::vector<std::string>{"hidden"}));
  form.reset();
  EXPECT_EQ(told(), (std::vector<std::string>{"gone"})) << "hidden, then destroyed";
}

TEST_F(Forms, MayRefuseToBeClosedByTheFrame) {
  form_->Show();
  form_->Refuse = true;
  user::Close(*form_);
  EXPECT_TRUE(form_->Visible());
  form_->Refuse = false;
  user::Close(*form_);
  EXPECT_FALSE(form_->IsLoaded());
}

TEST_F(Forms, LiveAsLongAsAHandlerOfThemRuns) {
  Sample* const raw = form_.get();
  std::weak_ptr<Sample> weak = form_;
  raw->ok.Click = [this, raw] {
    form_.reset();
    raw->Log(u"still here");
  };
  user::Press(raw->ok);
  EXPECT_TRUE(weak.expired());
}

TEST_F(Forms, MoveTheFocusAheadOfTheAction) {
  user::Focus(form_->txt);
  user::Press(form_->ok);
  EXPECT_EQ(form_->Take(), (Log{u"txt.GotFocus", u"txt.LostFocus", u"ok.Click"}));
}

TEST_F(Forms, AHandlerMayKeepTheFocus) {
  user::Focus(form_->txt);
  form_->txt.LostFocus = [this] { form_->txt.SetFocus(); };
  user::Focus(form_->chk);
  EXPECT_EQ(form_->ActiveControl(), &form_->txt);
}

TEST_F(Forms, AFieldOfOneLineHasNoLineEnds) {
  user::Type(form_->txt, u"a\r\nb\nc\rd\te");
  EXPECT_EQ(form_->txt.Text(), u"a b c d e");
  form_->txt.MultiLine = true;
  user::Type(form_->txt, u"a\r\nb\tc");
  EXPECT_EQ(form_->txt.Text(), u"a\r\nb\tc");
  form_->txt.SetText(u"by\r\ncode");
  EXPECT_EQ(form_->txt.Text(), u"by\r\ncode");
}

TEST_F(Forms, RefuseWhatAUserCouldNotDo) {
  form_->chk.SetEnabled(false);
  Refuses([&] { user::Check(form_->chk, 1); }, u"Control \"chk\" is disabled");
  form_->chk.SetVisible(false);
  form_->chk.SetEnabled(true);
  Refuses([&] { user::Check(form_->chk, 1); }, u"Control \"chk\" is hidden");
  Refuses([&] { user::Type(form_->chk, u"x"); }, u"Control \"chk\" is hidden");
  Refuses([&] { user::Press(form_->label); },
          u"Control \"label\" is a Label: it cannot be pressed");
  Refuses([&] { user::Pick(form_->cbo, u"three"); }, u"Control \"cbo\" has no item \"three\"");
  Refuses([&] { user::Type(form_->cbo, u"x"); }, u"Control \"cbo\" is a list: pick an item");
  Refuses([&] { user::PressItem(form_->drop, u""); },
          u"Control \"drop\" has no item with the key \"\"");
  Refuses([&] { user::EditCell(form_->grid, 1, 0, u"x"); },
          u"Control \"grid\" refuses an edit of row 1, column 0");
  Refuses([&] { user::EditCell(form_->grid, 0, 1, u"x"); },
          u"Control \"grid\" row 0, column 1 is a heading");
  Refuses([&] { user::SelectRow(form_->grid, 9, 0); }, u"Control \"grid\" has no row 9");
  Refuses([&] { user::Tick(form_->grid, 1, true); }, u"Control \"grid\" has no tick box in row 1");
  form_->rich.Locked = true;
  Refuses([&] { user::Type(form_->rich, u"x"); }, u"Control \"rich\" is read-only");
  EXPECT_EQ(form_->chk.Value(), 0);
}

TEST_F(Forms, DoWhatTheUserDoes) {
  user::Pick(form_->cbo, u"two");
  user::PressItem(form_->drop, u"A");
  user::EditCell(form_->grid, 1, 1, u"x");
  EXPECT_EQ(form_->Take(), (Log{u"cbo.Click", u"drop A", u"grid.AfterSelChange", u"edit 11"}));
  EXPECT_EQ(form_->grid.TextMatrix(1, 1), u"x");
  form_->Show();
  user::Key(form_->txt, 13);
  EXPECT_EQ(form_->Seen.back(), u"ok.Click");
  user::Key(form_->txt, 27);
  EXPECT_FALSE(form_->Visible());
}

TEST_F(Forms, CollapsedRowsHideWhatIsBelowThem) {
  Grid& grid = form_->grid;
  for (const int level : {0, 1, 2, 1, 0}) {
    grid.SetRowLevel(grid.AddItem({u"r"}), level);
  }
  user::Collapse(grid, 4);
  EXPECT_TRUE(grid.RowShows(4));
  EXPECT_FALSE(grid.RowShows(5));
  EXPECT_TRUE(grid.RowShows(6));
  user::Expand(grid, 4);
  EXPECT_TRUE(grid.RowShows(5));
}

// Rich text

// Grid

TEST_F(Forms, AnOutlineOpensToALevel) {
  Grid& grid = form_->grid;
  grid.ClearRows();
  for (const int level : {0, 1, 2, 2, 1, 0}) grid.AddRow({.Cells = {u"r"}, .Level = level});
  grid.SetOutline(1);
  std::vector<bool> shows;
  for (int row = 1; row < grid.Rows(); ++row) shows.push_back(grid.RowShows(row));
  EXPECT_EQ(shows, (std::vector<bool>{true, true, false, false, true, true}));
  EXPECT_FALSE(grid.RowAt(5).Collapsed) << "nothing stands below it";
  grid.SetOutline(0);
  EXPECT_FALSE(grid.RowShows(2));
  grid.ShowCell(4, 0);
  EXPECT_TRUE(grid.RowShows(4));
  EXPECT_EQ(grid.ParentOf(4), 2);
  EXPECT_EQ(grid.EndOf(2), 5);
  EXPECT_EQ(grid.ParentOf(1), -1);
}

TEST_F(Forms, AskingWhatShowsCostsNoWalkOverTheRows) {
  Grid& grid = form_->grid;
  grid.SetRedraw(false);
  grid.AddRow({.Cells = {u"top"}});
  constexpr int Many = 200000;
  for (int row = 0; row < Many; ++row) grid.AddRow({.Cells = {u"below"}, .Level = 1});
  int shown = 0;
  for (int row = 0; row < grid.Rows(); ++row) shown += grid.RowShows(row) ? 1 : 0;
  EXPECT_EQ(shown, grid.Rows());
  grid.SetCollapsed(3, true);
  for (int row = 4; row < grid.Rows(); ++row) ASSERT_FALSE(grid.RowShows(row));
}

TEST_F(Forms, RedrawOffTellsTheViewOnceWhenItIsOnAgain) {
  CountingView view;
  form_->SetView(&view);
  form_->grid.SetRedraw(false);
  form_->grid.SetTextMatrix(1, 1, u"a");
  form_->grid.AddItem({u"b"});
  EXPECT_TRUE(view.Shown.empty());
  form_->grid.SetRedraw(true);
  EXPECT_EQ(view.Shown.size(), 1U);
  form_->grid.SetRedraw(true);
  EXPECT_EQ(view.Shown.size(), 1U);
  form_->SetView(nullptr);
}

TEST_F(Forms, AViewLearnsWhatHasChangedInAGrid) {
  Grid& grid = form_->grid;
  EXPECT_TRUE(grid.TakeChanges().Shape);
  grid.SetTextMatrix(2, 0, u"x");
  grid.SetTextMatrix(1, 0, u"x");
  grid.SetTopRow(2);
  const GridChanges changes = grid.TakeChanges();
  EXPECT_FALSE(changes.Shape);
  EXPECT_EQ(changes.FirstRow, 1);
  EXPECT_EQ(changes.LastRow, 2);
  EXPECT_EQ(changes.TopRow, 2);
  EXPECT_GT(grid.TakeChanges().FirstRow, grid.TakeChanges().LastRow) << "told once";
}

TEST_F(Forms, ManyRowsGoAtOnceAndTheCurrentOneStaysInside) {
  Grid& grid = form_->grid;
  for (int row = 0; row < 5; ++row) grid.SetRowData(grid.AddItem({u"r"}), 1'000'000'000'000 + row);
  grid.Select(6, 0);
  grid.RemoveItems(3, 2);
  EXPECT_EQ(grid.Row(), 4);
  EXPECT_EQ(grid.RowAt(3).Data, 1'000'000'000'002);
  grid.RemoveItems(4, 2);
  EXPECT_EQ(grid.Row(), 3);
  EXPECT_THROW(grid.RemoveItems(3, 2), vb::Failure);
}

TEST_F(Forms, ARowOfFewerCellsThanColumnsIsEmptyBehindThem) {
  Grid& grid = form_->grid;
  grid.SetCols(4);
  const int row = grid.AddRow({.Cells = {u"a"}});
  EXPECT_EQ(grid.TextMatrix(row, 3), u"");
  grid.SetTextMatrix(row, 2, u"c");
  EXPECT_EQ(grid.TextMatrix(row, 1), u"");
  EXPECT_EQ(grid.TextMatrix(row, 2), u"c");
  EXPECT_THROW(static_cast<void>(grid.TextMatrix(row, 4)), vb::Failure);
  grid.SetCols(2);
  grid.SetCols(4);
  EXPECT_EQ(grid.TextMatrix(row, 2), u"") << "what went with its column is gone";
  const int wide = grid.AddRow({.Cells = {u"a", u"b", u"c", u"d", u"behind"}}, row);
  grid.SetCols(5);
  EXPECT_EQ(grid.TextMatrix(wide, 3), u"d");
  EXPECT_EQ(grid.TextMatrix(wide, 4), u"");
}

TEST_F(Forms, ACellIsEditedFromCodeUnlessItsHandlerRefuses) {
  Grid& grid = form_->grid;
  grid.Editable = false;
  Refuses([&] { user::EditCell(grid, 1, 1, u"x"); }, u"Control \"grid\" cannot be edited");
  grid.EditCell(1, 0);
  EXPECT_FALSE(grid.Editing()) << "column 0 is refused";
  grid.EditCell(1, 1);
  EXPECT_EQ(grid.Editing(), (GridCell{1, 1}));
  user::EditCell(grid, 1, 1, u"typed");
  EXPECT_EQ(grid.TextMatrix(1, 1), u"typed");
  EXPECT_FALSE(grid.Editing());
  grid.EditCell(1, 1);
  user::SelectRow(grid, 2, 0);
  EXPECT_FALSE(grid.Editing()) << "another cell ends it";
}

TEST_F(Forms, ACellTakesATextInOneLine) {
  Grid& grid = form_->grid;
  user::EditCell(grid, 1, 1, u"a\r\nb\tc");
  EXPECT_EQ(grid.TextMatrix(1, 1), u"a b c");
}

TEST_F(Forms, TickBoxesAreCellsOfTheirColumn) {
  Grid& grid = form_->grid;
  grid.SetColTicks(1, true);
  grid.SetTextMatrix(1, 1, u"False");
  user::Tick(grid, 1, true);
  EXPECT_EQ(grid.TextMatrix(1, 1), u"True");
  EXPECT_EQ(form_->Take().back(), u"edit 11");
  EXPECT_EQ(grid.TickColumnOf(1), 1);
  Refuses([&] { user::Tick(grid, 2, true); }, u"Control \"grid\" has no tick box in row 2");
  Refuses([&] { user::EditCell(grid, 2, 1, u"True"); },
          u"Control \"grid\" has no tick box in row 2");
}

TEST_F(Forms, HiddenColumnsAreNotReachedAndCellButtonsArePressed) {
  Grid& grid = form_->grid;
  grid.SetColHidden(1, true);
  Refuses([&] { user::EditCell(grid, 1, 1, u"x"); }, u"Control \"grid\" has no column 1");
  grid.SetColHidden(1, false);
  std::vector<int> pressed;
  grid.CellButtonClick = [&](int row, int col) { pressed = {row, col}; };
  Refuses([&] { user::PressCell(grid, 1, 1); }, u"Control \"grid\" has no button in column 1");
  grid.SetColButton(1, true);
  user::PressCell(grid, 1, 1);
  EXPECT_EQ(pressed, (std::vector<int>{1, 1}));
}

// Menus

struct WithMenus : Form {
  WithMenus() : Form("frmMenus", u"Menus") {
    mnuPop.SetVisible(false);
    mnuPop.Click = [this] { Log.emplace_back(u"opening"); };
    mnuCode.Click = [this] { Log.emplace_back(u"code"); };
    mnuDeep.Click = [this] { Log.emplace_back(u"deep"); };
    mnuNew.Click = [this] { Log.emplace_back(u"new"); };
    btnStay.Click = [this] { Log.emplace_back(u"stay " + vb::Str(btnStay.Value())); };
    SetLayout(Column({Group(panel, {Item(txtInside)}), Item(btnStay)}));
  }
  MenuItem mnuPop{this, "mnuPop", u"Pop"};
  MenuItem mnuCode{&mnuPop, "mnuCode", u"View Code"};
  MenuItem mnuLine{&mnuPop, "mnuLine", u"-"};
  MenuItem mnuSub{&mnuPop, "mnuSub", u"Add"};
  MenuItem mnuDeep{&mnuSub, "mnuDeep", u"Form"};
  MenuItem mnuFile{this, "mnuFile", u"File"};
  MenuItem mnuNew{&mnuFile, "mnuNew", u"New"};
  Panel panel{this, "panel"};
  TextBox txtInside{this, "txtInside"};
  ToggleButton btnStay{this, "btnStay"};
  std::vector<String> Log;
};

class Menus : public testing::Test {
 protected:
  void Picks(StringView item) {
    services_.DesktopService.OnMenu = [name = String(item)](MenuItem&) { return name; };
    form_->PopupMenu(form_->mnuPop);
  }
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  std::shared_ptr<WithMenus> form_ = std::make_shared<WithMenus>();
};

TEST_F(Menus, TheChosenItemRunsBehindTheOpening) {
  Picks(u"mnuCode");
  Picks(u"MNUDEEP");
  Picks(u"");
  EXPECT_EQ(form_->Log, (Log{u"opening", u"code", u"opening", u"deep", u"opening"}));
}

TEST_F(Menus, WhatCannotBeChosenIsRefused) {
  form_->mnuCode.SetEnabled(false);
  EXPECT_THROW(Picks(u"mnuCode"), vb::Failure);
  EXPECT_THROW(Picks(u"mnuLine"), vb::Failure);
  EXPECT_THROW(Picks(u"mnuSub"), vb::Failure);
  EXPECT_THROW(Picks(u"mnuNew"), vb::Failure) << "of another menu";
  form_->mnuSub.SetVisible(false);
  EXPECT_THROW(Picks(u"mnuDeep"), vb::Failure);
}

TEST_F(Menus, TheBarHoldsTheMenusThatAreVisible) {
  user::ChooseFromBar(*form_, u"mnuNew");
  EXPECT_EQ(form_->Log, (Log{u"new"}));
  EXPECT_THROW(user::ChooseFromBar(*form_, u"mnuCode"), vb::Failure) << "it only pops up";
}

TEST_F(Menus, GoBackToTheirDesign) {
  form_->Show();
  form_->mnuDeep.SetCaption(u"other");
  form_->mnuCode.SetChecked(true);
  form_->Unload();
  EXPECT_EQ(form_->mnuDeep.Caption(), u"Form");
  EXPECT_FALSE(form_->mnuCode.Checked());
  EXPECT_EQ(form_->FindMenu(u"mnudeep"), &form_->mnuDeep);
  EXPECT_EQ(form_->FindMenu(u"none"), nullptr);
}

TEST_F(Menus, AToggleButtonStaysPressed) {
  user::Press(form_->btnStay);
  user::Press(form_->btnStay);
  EXPECT_EQ(form_->Log, (Log{u"stay 1", u"stay 0"}));
}

TEST_F(Menus, WhatAHiddenPanelHoldsCannotBeReached) {
  user::Type(form_->txtInside, u"a");
  form_->panel.SetVisible(false);
  EXPECT_THROW(user::Type(form_->txtInside, u"b"), vb::Failure);
  EXPECT_EQ(form_->txtInside.Text(), u"a");
}

TEST_F(Menus, ThePointerGoesBackAlsoBehindAFailure) {
  const auto present = [&] { return services_.DesktopService.PresentPointer(); };
  try {
    const PointerShape hourglass(platform::Pointer::Hourglass);
    EXPECT_EQ(present(), platform::Pointer::Hourglass);
    throw vb::Failure(5, u"bad");
  } catch (const vb::Failure&) {
  }
  EXPECT_EQ(present(), platform::Pointer::Default);
}

// Documents

struct Noting : Document {
  Noting() : Document("udNoting", u"Noting") {}
  void UserDocument_Initialize() override { Log.emplace_back(u"initialize"); }
  void UserDocument_Show() override { Log.emplace_back(u"show"); }
  void UserDocument_Hide() override { Log.emplace_back(u"hide"); }
  TextBox txt{this, "txt"};
  std::vector<String> Log;
};

TEST(Documents, AreInitializedOnceAndFollowTheirWindow) {
  const auto document = std::make_shared<Noting>();
  document->Initialize();
  document->Show();
  document->Show();
  user::Type(document->txt, u"kept");
  document->Hide();
  EXPECT_FALSE(document->Visible());
  document->Show();
  EXPECT_EQ(document->Log, (Log{u"initialize", u"show", u"hide", u"show"}));
  EXPECT_EQ(document->txt.Text(), u"kept");
}

struct RichCase {
  StringView Document, Text;
};

TEST(RichText, ReadsDocuments) {
  const RichCase cases[] = {
      {u"plain\ntext", u"plain\r\ntext"},
      {u"{\\rtf1 a\\par b\\par }", u"a\r\nb"},
      {u"{\\rtf1 a\\par\\par\\par }", u"a\r\n\r\n"},
      {u"{\\rtf1\\ansicpg1251 \\'c6\\tab x}", u"\u0416\tx"},
      {u"{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1 B;}}\\f0\\'c6\\f1\\'e9}", u"\u0416\u00E9"},
      {u"{\\rtf1\\u1078?\\uc2\\u-3913ab x}", u"\u0436\uF0B7 x"},
      {u"{\\rtf1 a{\\*\\generator x;}{\\info{\\title t}}b}", u"ab"},
      {u"{\\rtf1 \\{\\}\\\\\\~}", u"{}\\\u00A0"},
      {u"{\\rtf1 a\\bin3 {}}b}", u"ab"},
      {u"{\\rtf1 a", u"a"},
      {u"{\\rtf1 a}}}} b", u"a"},
      {u"{\\rtf1 \\'zz\\", u"zz"},
      // plain text is in the default font, and read by that font's code page
      {u"{\\rtf1\\deff1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1 B;}}\\f0\\'c6\\plain\\'e9}",
       u"\u0416\u00E9"},
      {u"{\\rtf1 a\\v hidden\\par\\v0 b{\\v c}d\\v e\\plain f}", u"abdf"},
      // a word counts as one unit of the fallback
      {u"{\\rtf1\\u8226\\b0 xy}", u"\u2022xy"},
      {u"{\\rtf1\\uc2\\u8226\\b0 xy}", u"\u2022y"},
      {u"{\\rtf1\\u8226\\u8226?x\\u8226\\par y}", u"\u2022\u2022x\u2022\r\ny"},
  };
  for (const RichCase& one : cases) {
    EXPECT_EQ(ReadRichText(one.Document).Text, one.Text) << vb::ToUtf8(one.Document);
  }
}

TEST(RichText, KeepsTextAndColours) {
  const ColoredText text{u"a\r\n{b}\t\u0416\\", {{3, 0}, {3, 0xFF}, {1, 0x8000}, {2, 0}}};
  EXPECT_EQ(ReadRichText(WriteRichText(text, {})), text);
}

TEST(RichText, SurvivesDeepNesting) {
  EXPECT_EQ(ReadRichText(u"{\\rtf1 " + String(200000, u'{') + u"x").Text, u"x");
}

TEST_F(Forms, ReplacesAndFindsInRichText) {
  RichTextBox& box = form_->rich;
  box.SetText(u"One two one");
  EXPECT_EQ(box.Find(u"one"), 0);
  EXPECT_EQ(box.SelLength(), 3);
  EXPECT_EQ(box.Find(u"one", 1, -1, 8), 8);
  EXPECT_EQ(box.Find(u"one", 1, -1, 4), 8);
  EXPECT_EQ(box.Find(u"wo", 0, -1, 2), -1);
  EXPECT_EQ(box.SelStart(), 8) << "the search before moved it";
  user::SelectText(box, 4, 3);
  box.SetSelColor(0xFF);
  box.SetSelText(u"2");
  EXPECT_EQ(box.Text(), u"One 2 one");
  EXPECT_EQ(box.Content().Runs, (std::vector<ColoredText::Run>{{4, 0}, {1, 0xFF}, {4, 0}}));
}

}  // namespace
}  // namespace tessel::forms
