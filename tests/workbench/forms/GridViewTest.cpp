#include "hosts/workbench/forms/GridView.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QUrl>

#include "hosts/workbench/forms/GridModel.h"
#include "vb/Failure.h"
#include "workbench/forms/Desk.h"
#include "workbench/forms/SampleForm.h"

namespace tessel::workbench {
namespace {

using Events = std::vector<String>;

class GridOfForm : public testing::Test {
 protected:
  GridOfForm() {
    desk_.Open(*form_);
    form_->fgRows.SetFocus();
    test::Desk::Turn();
    form_->Events.clear();
  }
  ~GridOfForm() override { form_->Unload(); }

  GridTable& Table() { return desk_.Find<GridTable>(*form_, "fgRows"); }
  GridModel& Model() { return dynamic_cast<GridModel&>(*Table().model()); }
  forms::Grid& Grid() { return form_->fgRows; }
  QPoint Middle(int row, int col) { return Table().visualRect(Model().IndexOf(row, col)).center(); }
  void Click(int row, int col) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Middle(row, col));
  }
  void DoubleClick(int row, int col) {
    Click(row, col);
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, Middle(row, col));
  }
  QLineEdit* Editor() {
    for (auto* const editor : Table().viewport()->findChildren<QLineEdit*>()) {
      if (editor->isVisible()) return editor;
    }
    return nullptr;
  }
  /// Types into the open editor in place of what stands there.
  void Edit(const QString& text) {
    QLineEdit* const editor = Editor();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
  }
  void Commit(int key) {
    QTest::keyClick(Editor(), static_cast<Qt::Key>(key));
    test::Desk::Turn();
  }
  QString Shown(int row, int col) {
    return Model().IndexOf(row, col).data(Qt::DisplayRole).toString();
  }

  test::Desk desk_;
  std::shared_ptr<test::SampleForm> form_ = std::make_shared<test::SampleForm>();
};

TEST_F(GridOfForm, FixedRowsAreTheHeading) {
  EXPECT_EQ(Model().headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
            QStringLiteral("Name"));
  EXPECT_FALSE(Model().IndexOf(0, 0).isValid());
  EXPECT_EQ(Shown(1, 0), QStringLiteral("Root"));
  EXPECT_FALSE(Table().isHeaderHidden());
}

TEST_F(GridOfForm, WithoutFixedRowsThereIsNoHeading) {
  Grid().SetFixedRows(0);
  test::Desk::Turn();
  EXPECT_TRUE(Table().isHeaderHidden());
  EXPECT_EQ(Shown(0, 0), QStringLiteral("Name"));
}

TEST_F(GridOfForm, LevelsMakeTheOutline) {
  EXPECT_EQ(GridModel::RowOf(Model().parent(Model().IndexOf(3, 0))), 2);
  EXPECT_EQ(GridModel::RowOf(Model().parent(Model().IndexOf(2, 0))), 1);
  EXPECT_FALSE(Model().parent(Model().IndexOf(4, 0)).isValid());
  EXPECT_EQ(Model().rowCount(), 2);
}

TEST_F(GridOfForm, APressChoosesTheCell) {
  Click(2, 1);
  EXPECT_EQ(Grid().Row(), 2);
  EXPECT_EQ(Grid().Col(), 1);
  EXPECT_EQ(form_->Events, (Events{u"fgRows select"}));
}

TEST_F(GridOfForm, APressOnTheCurrentCellIsAClickAgain) {
  int clicks = 0;
  Grid().Click = [&] { ++clicks; };
  Click(2, 1);
  Click(2, 1);
  EXPECT_EQ(clicks, 2);
}

TEST_F(GridOfForm, TheArrowsMoveTheCell) {
  Click(1, 1);
  QTest::keyClick(&Table(), Qt::Key_Down);
  EXPECT_EQ(Grid().Row(), 2);
  QTest::keyClick(&Table(), Qt::Key_Right);
  EXPECT_EQ(Grid().Col(), 2);
}

TEST_F(GridOfForm, TheCellOfTheModelReachesTheTable) {
  Grid().Select(3, 1);
  const Events before = form_->Events;
  test::Desk::Turn();
  EXPECT_EQ(Table().currentIndex(), Model().IndexOf(3, 1));
  EXPECT_EQ(form_->Events, before);
}

TEST_F(GridOfForm, TextsRowsAndPicturesFollowTheModel) {
  Grid().SetTextMatrix(2, 0, u"Changed");
  Grid().AddItem({u"New", u"9", u"True"});
  test::Desk::Turn();
  EXPECT_EQ(Shown(2, 0), QStringLiteral("Changed"));
  EXPECT_EQ(Shown(5, 0), QStringLiteral("New"));
  EXPECT_FALSE(Model().IndexOf(1, 0).data(Qt::DecorationRole).isNull());
  Grid().RemoveItem(5);
  Grid().SetRowPicture(1, 0);
  test::Desk::Turn();
  EXPECT_FALSE(Model().IndexOf(5, 0).isValid());
  EXPECT_TRUE(Model().IndexOf(1, 0).data(Qt::DecorationRole).isNull());
}

TEST_F(GridOfForm, AChangedHeadingIsSeen) {
  Grid().SetTextMatrix(0, 1, u"Length");
  test::Desk::Turn();
  EXPECT_EQ(Model().headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
            QStringLiteral("Length"));
}

TEST_F(GridOfForm, TheModelKeepsItsPromisesThroughEveryChange) {
  const QAbstractItemModelTester tester(&Model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  for (int step = 0; step < 200; ++step) {
    const int row = 1 + step * 7 % std::max(1, Grid().Rows() - 1);
    if (step % 5 == 0 && Grid().Rows() > 3) {
      Grid().RemoveItem(row);
    } else {
      Grid().SetRowLevel(Grid().AddItem({vb::Str(step), u"", u"True"}, row), step * 3 % 4);
    }
    if (step % 3 == 0) Grid().SetCollapsed(1, step % 2 == 0);
    test::Desk::Turn();
  }
  int rows = 0;
  for (int row = 0; row < Grid().Rows(); ++row) rows += Model().IndexOf(row, 0).isValid() ? 1 : 0;
  EXPECT_EQ(rows, Grid().Rows() - 1);
}

// Edits

TEST_F(GridOfForm, ADoubleClickEditsACell) {
  DoubleClick(2, 1);
  Edit(QStringLiteral("77"));
  Commit(Qt::Key_Return);
  EXPECT_EQ(Grid().TextMatrix(2, 1), u"77");
  EXPECT_EQ(form_->Events.back(), u"fgRows edit 77");
  EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GridOfForm, EnterInTheEditorDoesNotPressTheDefaultButton) {
  DoubleClick(2, 1);
  Edit(QStringLiteral("5"));
  Commit(Qt::Key_Return);
  EXPECT_EQ(std::count(form_->Events.begin(), form_->Events.end(), u"btmRun"), 0);
}

TEST_F(GridOfForm, EscapeInTheEditorLeavesTheCellAsItWas) {
  Click(2, 1);
  form_->Events.clear();
  QTest::keyClick(&Table(), Qt::Key_F2);
  Edit(QStringLiteral("5"));
  Commit(Qt::Key_Escape);
  EXPECT_EQ(Grid().TextMatrix(2, 1), u"2");
  EXPECT_TRUE(form_->Events.empty()) << "nor was the Cancel button pressed";
}

TEST_F(GridOfForm, F2AndTypingOpenTheEditor) {
  Click(2, 1);
  QTest::keyClick(&Table(), Qt::Key_F2);
  ASSERT_NE(Editor(), nullptr);
  Commit(Qt::Key_Escape);
  QTest::keyClick(&Table(), Qt::Key_8);
  ASSERT_NE(Editor(), nullptr);
  Commit(Qt::Key_Return);
  EXPECT_EQ(Grid().TextMatrix(2, 1), u"8");
}

TEST_F(GridOfForm, ARefusedCellDoesNotOpen) {
  Grid().BeforeEdit = [](int, int col, bool& cancel) { cancel = col == 0; };
  DoubleClick(2, 0);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(desk_.Boxes.isEmpty());
  DoubleClick(2, 1);
  EXPECT_NE(Editor(), nullptr);
}

TEST_F(GridOfForm, AGridThatIsNotEditableOpensNoCell) {
  Grid().Editable = false;
  Grid().SetTextMatrix(1, 1, u"x");
  test::Desk::Turn();
  DoubleClick(2, 1);
  EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GridOfForm, ATextThatTheHandlerTakesBackIsTakenBackInTheTable) {
  Grid().AfterEdit = [this](int row, int col) { Grid().SetTextMatrix(row, col, u"kept"); };
  DoubleClick(2, 1);
  Edit(QStringLiteral("bad"));
  Commit(Qt::Key_Return);
  EXPECT_EQ(Shown(2, 1), QStringLiteral("kept"));
}

TEST_F(GridOfForm, AFailingHandlerOfAnEditShowsABox) {
  Grid().AfterEdit = [](int, int) { throw vb::Failure(13, u"Type mismatch"); };
  desk_.Answer(QMessageBox::Ok);
  DoubleClick(2, 1);
  Edit(QStringLiteral("bad"));
  Commit(Qt::Key_Return);
  EXPECT_EQ(desk_.Boxes.size(), 1);
  EXPECT_TRUE(desk_.Window(*form_).isVisible());
}

TEST_F(GridOfForm, AnEditUnderWayIsKeptWhenAButtonIsPressedByItsKey) {
  String seen;
  form_->btmRun.Click = [&] { seen = Grid().TextMatrix(2, 1); };
  DoubleClick(2, 1);
  Edit(QStringLiteral("55"));
  desk_.Find<QPushButton>(*form_, "btmRun").click();
  EXPECT_EQ(seen, u"55");
}

TEST_F(GridOfForm, AnEditUnderWayIsKeptWhenTheFrameClosesTheForm) {
  DoubleClick(2, 1);
  Edit(QStringLiteral("55"));
  desk_.Window(*form_).close();
  const Events wanted{u"fgRows edit 55", u"unload"};
  ASSERT_GE(form_->Events.size(), 2U);
  EXPECT_EQ(Events(form_->Events.end() - 2, form_->Events.end()), wanted);
}

// Boxes

TEST_F(GridOfForm, CellsOfATickColumnAreTickBoxes) {
  EXPECT_EQ(Shown(1, 2), QString());
  EXPECT_EQ(Model().IndexOf(1, 2).data(Qt::CheckStateRole).toInt(), Qt::Checked);
  EXPECT_FALSE(Model().IndexOf(1, 1).data(Qt::CheckStateRole).isValid());
  Click(1, 1);
  QTest::keyClick(&Table(), Qt::Key_Right);
  QTest::keyClick(&Table(), Qt::Key_Space);
  EXPECT_EQ(Grid().TextMatrix(1, 2), u"False");
  EXPECT_EQ(form_->Events.back(), u"fgRows edit False");
}

TEST_F(GridOfForm, AnEmptyCellOfATickColumnHasNoBoxAndTakesNoText) {
  Grid().SetTextMatrix(2, 2, u"");
  test::Desk::Turn();
  EXPECT_FALSE(Model().IndexOf(2, 2).data(Qt::CheckStateRole).isValid());
  DoubleClick(2, 2);
  EXPECT_EQ(Editor(), nullptr);
}

TEST_F(GridOfForm, ARefusedTickBoxStaysWithoutAMessage) {
  Grid().BeforeEdit = [](int, int, bool& cancel) { cancel = true; };
  Click(1, 2);
  QTest::keyClick(&Table(), Qt::Key_Space);
  EXPECT_EQ(Grid().TextMatrix(1, 2), u"True");
  EXPECT_TRUE(desk_.Boxes.isEmpty());
}

TEST_F(GridOfForm, SpaceTicksTheRowFromAnyCell) {
  Click(4, 0);
  QTest::keyClick(&Table(), Qt::Key_Space);
  EXPECT_EQ(Grid().Ticked(4, 2), true);
  Grid().SetTextMatrix(4, 2, u"False");
  test::Desk::Turn();
  EXPECT_EQ(Model().IndexOf(4, 2).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
}

TEST_F(GridOfForm, AMouseTicksTheBox) {
  const QRect cell = Table().visualRect(Model().IndexOf(4, 2));
  const QPoint box(cell.left() + cell.height() / 2, cell.center().y());
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, box);
  EXPECT_EQ(Grid().Ticked(4, 2), true);
}

// Outline

TEST_F(GridOfForm, TheUserCollapsesAndExpands) {
  Table().collapse(Model().IndexOf(1, 0));
  EXPECT_TRUE(Grid().RowAt(1).Collapsed);
  EXPECT_EQ(form_->Events, (Events{u"fgRows collapse 1"}));
  Table().expand(Model().IndexOf(1, 0));
  EXPECT_FALSE(Grid().RowAt(1).Collapsed);
}

TEST_F(GridOfForm, TheModelCollapsesAndExpands) {
  EXPECT_TRUE(Table().isExpanded(Model().IndexOf(1, 0)));
  Grid().SetCollapsed(1, true);
  const Events before = form_->Events;
  test::Desk::Turn();
  EXPECT_FALSE(Table().isExpanded(Model().IndexOf(1, 0)));
  EXPECT_EQ(form_->Events, before);
}

TEST_F(GridOfForm, NewRowsLeaveTheOutlineAsItWas) {
  Grid().SetCollapsed(2, true);
  Grid().AddItem({u"Late", u"", u"True"});
  test::Desk::Turn();
  EXPECT_TRUE(Table().isExpanded(Model().IndexOf(1, 0)));
  EXPECT_FALSE(Table().isExpanded(Model().IndexOf(2, 0)));
}

TEST_F(GridOfForm, AnOutlineOpensAndClosesAtOnce) {
  Grid().SetOutline(0);
  test::Desk::Turn();
  EXPECT_FALSE(Table().isExpanded(Model().IndexOf(1, 0)));
  Grid().SetOutline(100);
  test::Desk::Turn();
  EXPECT_TRUE(Table().isExpanded(Model().IndexOf(1, 0)));
  EXPECT_TRUE(Table().isExpanded(Model().IndexOf(2, 0)));
}

TEST_F(GridOfForm, ALargeOutlineScrollsAndOpensItsRows) {
  Grid().SetRedraw(false);
  Grid().ClearRows();
  constexpr int Groups = 1000, Below = 99;
  for (int group = 0; group < Groups; ++group) {
    Grid().AddRow({.Cells = {u"group " + vb::Str(group)}, .Bold = true});
    for (int row = 0; row < Below; ++row) Grid().AddRow({.Cells = {u"row"}, .Level = 1});
  }
  Grid().SetOutline(1);
  Grid().SetRedraw(true);
  test::Desk::Turn();
  EXPECT_EQ(Model().rowCount(), Groups);
  const int wanted = 1 + 700 * (Below + 1);
  Grid().SetTopRow(wanted);
  test::Desk::Turn();
  EXPECT_EQ(Table().indexAt(QPoint(1, 1)), Model().IndexOf(wanted, 0));
  Grid().ShowCell(wanted + 50, 0);
  test::Desk::Turn();
  EXPECT_TRUE(Table().isExpanded(Model().IndexOf(wanted, 0)));
  EXPECT_TRUE(
      Table().viewport()->rect().intersects(Table().visualRect(Model().IndexOf(wanted + 50, 0))));
}

/// Counts the cells that a table draws and measures.
class CountingDelegate : public QStyledItemDelegate {
 public:
  mutable int Painted = 0, Measured = 0;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ++Painted;
    QStyledItemDelegate::paint(painter, option, index);
  }
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    ++Measured;
    return QStyledItemDelegate::sizeHint(option, index);
  }
};

TEST_F(GridOfForm, ScrollingThroughManyRowsDrawsNoMoreThanThroughFew) {
  CountingDelegate counting;
  Table().setItemDelegate(&counting);
  const auto countsOf = [&](int groups) {
    constexpr int Below = 99, Steps = 20;
    Grid().SetRedraw(false);
    Grid().ClearRows();
    for (int group = 0; group < groups; ++group) {
      Grid().AddRow({.Cells = {u"group " + vb::Str(group)}, .Picture = 135, .Bold = true});
      for (int row = 0; row < Below; ++row) Grid().AddRow({.Cells = {u"row"}, .Level = 1});
    }
    Grid().SetRedraw(true);
    test::Desk::Turn();
    Table().verticalScrollBar()->setValue(1);
    test::Desk::Turn();
    counting.Painted = counting.Measured = 0;
    QScrollBar& bar = *Table().verticalScrollBar();
    for (int step = 0; step < Steps; ++step) {
      bar.setValue(bar.maximum() / 3 + step);
      static_cast<void>(Table().viewport()->grab());
    }
    return std::pair(counting.Painted, counting.Measured);
  };
  const auto few = countsOf(1), many = countsOf(1000);
  EXPECT_GT(few.first, 0);
  EXPECT_LE(many.first, few.first * 2);
  EXPECT_LE(many.second, few.second * 2 + 100);
  Table().setItemDelegate(new QStyledItemDelegate(&Table()));
}

TEST_F(GridOfForm, TheUsersScrollingIsTheTopRowOfTheModel) {
  for (int row = 0; row < 200; ++row) Grid().AddItem({u"more"});
  test::Desk::Turn();
  Table().verticalScrollBar()->setValue(50);
  EXPECT_EQ(Grid().TopRow(), GridModel::RowOf(Table().indexAt(QPoint(0, 0))));
  EXPECT_GE(Grid().TopRow(), 50);
}

TEST_F(GridOfForm, NothingIsShownWhileRedrawIsOff) {
  Grid().SetRedraw(false);
  Grid().SetTextMatrix(1, 1, u"late");
  Grid().AddItem({u"new"});
  test::Desk::Turn();
  EXPECT_EQ(Model().rowCount(), 2) << "rows of level 0";
  Grid().SetRedraw(true);
  test::Desk::Turn();
  EXPECT_EQ(Model().rowCount(), 3);
  EXPECT_EQ(Shown(1, 1), QStringLiteral("late"));
}

TEST_F(GridOfForm, HiddenColumnsTakeNoRoomAndBoldRowsAreBold) {
  Grid().SetColHidden(1, true);
  Grid().SetRowBold(2, true);
  test::Desk::Turn();
  EXPECT_TRUE(Table().isColumnHidden(1));
  EXPECT_TRUE(Model().IndexOf(2, 0).data(Qt::FontRole).value<QFont>().bold());
  EXPECT_FALSE(Model().IndexOf(1, 0).data(Qt::FontRole).isValid());
  Grid().SetColHidden(1, false);
  test::Desk::Turn();
  EXPECT_FALSE(Table().isColumnHidden(1));
}

TEST_F(GridOfForm, AnEditFromCodeOpensTheCellThoughTheGridIsNotEditable) {
  Grid().Editable = false;
  int asked = 0;
  Grid().BeforeEdit = [&](int, int, bool&) { ++asked; };
  Grid().EditCell(3, 0);
  test::Desk::Turn();
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(asked, 1);
  Edit(QStringLiteral("renamed"));
  Commit(Qt::Key_Return);
  EXPECT_EQ(Grid().TextMatrix(3, 0), u"renamed");
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(Grid().Editing());
  DoubleClick(3, 0);
  EXPECT_EQ(Editor(), nullptr) << "only that once";
}

TEST_F(GridOfForm, EscapeLeavesACellThatCodeHasOpened) {
  Grid().Editable = false;
  Grid().EditCell(3, 0);
  test::Desk::Turn();
  Edit(QStringLiteral("renamed"));
  Commit(Qt::Key_Escape);
  EXPECT_EQ(Grid().TextMatrix(3, 0), u"Grandchild");
  EXPECT_FALSE(Grid().Editing());
}

TEST_F(GridOfForm, TheButtonOfTheCurrentCellIsPressed) {
  Grid().SetColButton(1, true);
  std::vector<int> pressed;
  Grid().CellButtonClick = [&](int row, int col) { pressed = {row, col}; };
  Click(2, 1);
  test::Desk::Turn();
  auto* const button = Table().viewport()->findChild<QToolButton*>();
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(Table().visualRect(Model().IndexOf(2, 1)).contains(button->geometry().center()));
  button->click();
  EXPECT_EQ(pressed, (std::vector<int>{2, 1}));
  Click(2, 0);
  test::Desk::Turn();
  EXPECT_FALSE(button->isVisible());
}

// Mouse and files

TEST_F(GridOfForm, ADoubleClickAndARightClickAreTold) {
  Grid().Editable = false;
  std::vector<int> seen;
  Grid().DblClick = [&] { seen.push_back(Grid().Row()); };
  Grid().MouseDown = [&](int button, int row) { seen.push_back(button * 100 + row); };
  DoubleClick(2, 1);
  emit Table().customContextMenuRequested(Middle(3, 0));
  emit Table().customContextMenuRequested(QPoint(1, Table().viewport()->height() - 1));
  EXPECT_EQ(seen, (std::vector<int>{2, 203, 199}));
}

TEST_F(GridOfForm, DroppedFilesComeWithTheirRow) {
  std::vector<String> got;
  int at = -1;
  Grid().FilesDropped = [&](int row, const std::vector<String>& files) {
    at = row;
    got = files;
  };
  Grid().SetTextMatrix(1, 1, u"x");
  test::Desk::Turn();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.bas"))});
  const QPoint place = Middle(3, 0);
  QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Table().viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Table().viewport(), &drop);
  EXPECT_EQ(at, 3);
  EXPECT_EQ(got, (std::vector<String>{u"/tmp/a.bas"}));
}

TEST_F(GridOfForm, AGridWithoutTheHandlerTakesNoFiles) { EXPECT_FALSE(Table().acceptDrops()); }

// Columns

TEST_F(GridOfForm, ColumnWidthsAreInCharacters) {
  Grid().ColumnWidths = {10, 30, 40};
  Grid().SetTextMatrix(1, 1, u"x");
  test::Desk::Turn();
  EXPECT_GE(Table().header()->sectionSize(1), 30 * Table().fontMetrics().averageCharWidth());
}

TEST_F(GridOfForm, TheLastColumnTakesTheRoomThatIsLeftWhereTheGridSaysSo) {
  Grid().SetCols(3);
  Grid().ColumnWidths = {3, 30, 5};
  Grid().LastColumnStretches = true;
  test::Desk::Turn();
  const QHeaderView& header = *Table().header();
  EXPECT_EQ(header.sectionResizeMode(1), QHeaderView::Interactive);
  EXPECT_EQ(header.sectionResizeMode(2), QHeaderView::Stretch);
  EXPECT_LT(header.sectionSize(1), 34 * Table().fontMetrics().averageCharWidth());
}

TEST_F(GridOfForm, AWidthThatTheUserDragsIsKept) {
  Grid().ColumnWidths = {10, 12, 40};
  Grid().SetTextMatrix(1, 1, u"x");
  test::Desk::Turn();
  QHeaderView& header = *Table().header();
  const int unit = Table().fontMetrics().averageCharWidth();
  const QPoint grip(header.sectionViewportPosition(1) + header.sectionSize(1) - 1,
                    header.height() / 2);
  QTest::mousePress(header.viewport(), Qt::LeftButton, {}, grip);
  QTest::mouseMove(header.viewport(), grip + QPoint(5 * unit, 0));
  header.resizeSection(1, header.sectionSize(1) + 5 * unit);
  QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, grip + QPoint(5 * unit, 0));
  EXPECT_GE((*Grid().ColumnWidths)[1], 16);
  EXPECT_EQ((*Grid().ColumnWidths)[0], 10);
}

TEST_F(GridOfForm, FixedColumnsAreNotEditedAndChooseTheirRow) {
  Grid().SetFixedCols(1);
  test::Desk::Turn();
  EXPECT_FALSE(Model().IndexOf(2, 0).flags() & Qt::ItemIsEditable);
  Click(2, 0);
  EXPECT_EQ(Grid().Row(), 2);
  EXPECT_EQ(Grid().Col(), 1);
}

}  // namespace
}  // namespace tessel::workbench
