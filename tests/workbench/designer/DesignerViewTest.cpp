#include "hosts/workbench/designer/DesignerView.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>

#include "hosts/workbench/designer/Toolbox.h"
#include "hosts/workbench/platform/Text.h"
#include "tests/workbench/designer/Forms.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

TEST_F(DesignerTest, BeginsWithTheFormChosen) {
  EXPECT_EQ(View->Selected(), std::vector{Tree().Root()});
}

TEST_F(DesignerTest, DrawsTheFormAtFifteenTwipsAPixel) {
  EXPECT_EQ(View->Frame().Body.size(), QSize(300, 200));
  View->SetZoom(2);
  EXPECT_EQ(View->Frame().Body.size(), QSize(600, 400));
  EXPECT_EQ(Canvas()->size(), View->Frame().Whole);
}

TEST_F(DesignerTest, ChoosesTheTopmostControlUnderAClick) {
  Click(At(300, 300));
  EXPECT_EQ(Chosen, u"cmdGo");
  Click(At(2200, 600));
  EXPECT_EQ(Chosen, u"chkInner");
  Click(At(4000, 1200));
  EXPECT_EQ(Chosen, u"fraBox");
  Click(At(4000, 2500));
  EXPECT_EQ(Chosen, u"Form1");
}

TEST_F(DesignerTest, ExtendsTheSelectionWithShiftOrControl) {
  Click(At(300, 300));
  Click(At(300, 1900), Qt::ShiftModifier);
  EXPECT_EQ(Chosen, u"cmdGo lblNote");
  Click(At(4000, 1200), Qt::ControlModifier);
  EXPECT_EQ(Chosen, u"cmdGo lblNote fraBox");
  Click(At(300, 300), Qt::ControlModifier);
  EXPECT_EQ(Chosen, u"lblNote fraBox");
}

TEST_F(DesignerTest, LetsAClickedControlLeadTheOthers) {
  Click(At(300, 300));
  Click(At(300, 1900), Qt::ShiftModifier);
  Click(At(300, 300));
  EXPECT_EQ(Chosen, u"lblNote cmdGo");
}

TEST_F(DesignerTest, ChoosesWhatARubberBandMeets) {
  Drag(At(60, 1700), At(3000, 2900));
  EXPECT_EQ(Chosen, u"lblNote");
  Drag(At(4400, 2900), At(50, 50), Qt::ShiftModifier);
  EXPECT_EQ(Chosen, u"lblNote cmdGo fraBox");
  Drag(At(3000, 2500), At(3500, 2800));
  EXPECT_EQ(Chosen, u"Form1");
}

TEST_F(DesignerTest, MovesAControlToTheGridWhenItIsDragged) {
  const String before = Text();
  Drag(At(300, 300), At(300 + 400, 300 + 800));
  EXPECT_EQ(Place(u"cmdGo"), u"480 960 1215 375");
  EXPECT_EQ(View->UndoStack().count(), 1);
  Undo();
  EXPECT_EQ(Text(), before);
  Redo();
  EXPECT_EQ(Place(u"cmdGo"), u"480 960 1215 375");
}

TEST_F(DesignerTest, MovesAllChosenControlsByTheSameWay) {
  Click(At(300, 300));
  Click(At(300, 1900), Qt::ShiftModifier);
  Drag(At(300, 1900), At(420, 1900));
  EXPECT_EQ(Place(u"cmdGo"), u"240 120 1215 375");
  EXPECT_EQ(Place(u"lblNote"), u"240 1800 1215 255");
  EXPECT_EQ(View->UndoStack().count(), 1);
}

TEST_F(DesignerTest, MovesAContainerWithWhatStandsInIt) {
  Click(At(4000, 1200));
  Click(At(2200, 600), Qt::ShiftModifier);
  Drag(At(4000, 1200), At(4000, 1440), Qt::NoModifier);
  EXPECT_EQ(Raw(u"fraBox", u"Top"), u"360");
  EXPECT_EQ(Raw(u"chkInner", u"Top"), u"360");
}

TEST_F(DesignerTest, SnapsInsideAContainerToItsOwnGrid) {
  Drag(At(2200, 600), At(2200 + 130, 600));
  EXPECT_EQ(Raw(u"chkInner", u"Left"), u"360");
}

TEST_F(DesignerTest, ChangesNothingOnAClickOrATremble) {
  const String before = Text();
  Drag(At(300, 300), At(300, 300) + QPoint(1, 1));
  EXPECT_EQ(Text(), before);
  EXPECT_FALSE(Tree().IsModified());
  EXPECT_EQ(View->UndoStack().count(), 0);
}

TEST_F(DesignerTest, LeavesTheOtherLinesOfTheFileAlone) {
  const String before = Text();
  Drag(At(300, 300), At(300 + 240, 300));
  String expected = before;
  expected.replace(expected.find(u"Left            =   120\r\n      TabIndex"), 23,
                   u"Left            =   360");
  EXPECT_EQ(Text(), expected);
}

TEST_F(DesignerTest, ResizesByEachOfTheEightHandles) {
  struct Case {
    Handle Which;
    StringView Result;
  };
  const Case cases[] = {
      {Handle::TopLeft, u"1920 240 2280 1080"},     {Handle::Top, u"1800 240 2400 1080"},
      {Handle::TopRight, u"1800 240 2520 1080"},    {Handle::Right, u"1800 120 2520 1200"},
      {Handle::BottomRight, u"1800 120 2520 1320"}, {Handle::Bottom, u"1800 120 2400 1320"},
      {Handle::BottomLeft, u"1920 120 2280 1320"},  {Handle::Left, u"1920 120 2280 1200"}};
  for (const Case& one : cases) {
    UseForm(SmallForm);
    Click(At(4000, 1200));
    const QPoint handle = HandleOf(u"fraBox", one.Which);
    Drag(handle, handle + QPoint(8, 8));
    EXPECT_EQ(Place(u"fraBox"), one.Result) << static_cast<int>(one.Which);
  }
}

TEST_F(DesignerTest, StopsAnEdgeAtTheOneAcross) {
  Click(At(300, 300));
  const QPoint handle = HandleOf(u"cmdGo", Handle::Right);
  Drag(handle, handle - QPoint(200, 0));
  EXPECT_EQ(Place(u"cmdGo"), u"120 120 0 375");
}

TEST_F(DesignerTest, ResizesTheFormByItsCorner) {
  const QPoint corner = View->Frame().Body.bottomRight() + QPoint(3, 3);
  Drag(corner, corner + QPoint(12, -8));
  EXPECT_EQ(Raw(u"Form1", u"ClientWidth"), u"4680");
  EXPECT_EQ(Raw(u"Form1", u"ScaleWidth"), u"4680");
  EXPECT_EQ(Raw(u"Form1", u"ClientHeight"), u"2880");
  EXPECT_EQ(View->Frame().Body.size(), QSize(312, 192));
}

TEST_F(DesignerTest, MovesByTheArrowKeysInStepsOfTheGrid) {
  Click(At(300, 300));
  Key(Qt::Key_Right);
  Key(Qt::Key_Down);
  Key(Qt::Key_Left);
  Key(Qt::Key_Left);
  Key(Qt::Key_Up);
  EXPECT_EQ(Place(u"cmdGo"), u"0 120 1215 375");
}

TEST_F(DesignerTest, MakesOneEditOfARowOfArrowKeys) {
  const String before = Text();
  Click(At(300, 300));
  for (int step = 0; step < 5; ++step) Key(Qt::Key_Right);
  EXPECT_EQ(Raw(u"cmdGo", u"Left"), u"720");
  EXPECT_EQ(View->UndoStack().count(), 1);
  Undo();
  EXPECT_EQ(Text(), before);
  Redo();
  EXPECT_EQ(Raw(u"cmdGo", u"Left"), u"720");
}

TEST_F(DesignerTest, ResizesByShiftAndArrowKeys) {
  Click(At(300, 300));
  Key(Qt::Key_Right, Qt::ShiftModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Place(u"cmdGo"), u"120 120 1335 495");
  for (int step = 0; step < 9; ++step) Key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Raw(u"cmdGo", u"Height"), u"0");
  Click(At(4000, 2500));
  Key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Raw(u"Form1", u"ClientWidth"), u"4620");
}

TEST_F(DesignerTest, DeletesAndPutsBackByteForByte) {
  const String before = Text();
  Click(At(4000, 1200));
  Key(Qt::Key_Delete);
  EXPECT_EQ(Events, u"-chkInner -fraBox");
  EXPECT_EQ(Node(u"fraBox"), nullptr);
  EXPECT_EQ(Chosen, u"Form1");
  Undo();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Events, u"-chkInner -fraBox");
  Redo();
  EXPECT_EQ(Node(u"chkInner"), nullptr);
  Undo();
  EXPECT_EQ(Text(), before);
}

TEST_F(DesignerTest, DeletesAContainerAndItsControlOnce) {
  const String before = Text();
  View->Select({Node(u"chkInner"), Node(u"fraBox"), Node(u"cmdGo")});
  Key(Qt::Key_Delete);
  EXPECT_EQ(Tree().Controls().size(), 1U);
  EXPECT_EQ(View->UndoStack().count(), 1);
  Undo();
  EXPECT_EQ(Text(), before);
}

TEST_F(DesignerTest, DeletesNothingWhenTheFormIsChosen) {
  const String before = Text();
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(View->UndoStack().count(), 0);
}

TEST_F(DesignerTest, UndoesEarlierEditsOfAControlThatWasDeleted) {
  const String before = Text();
  Drag(At(300, 300), At(540, 300));
  Key(Qt::Key_Delete);
  Undo();
  Undo();
  EXPECT_EQ(Text(), before);
  Redo();
  Redo();
  EXPECT_EQ(Node(u"cmdGo"), nullptr);
}

TEST_F(DesignerTest, DrawsANewControlWithTheTool) {
  const String before = Text();
  int used = 0;
  View->OnToolUsed = [&] { ++used; };
  View->SetTool(u"VB.TextBox");
  Drag(At(130, 2310), At(1330, 2750));
  EXPECT_EQ(Events, u"+Text1");
  EXPECT_EQ(Place(u"Text1"), u"120 2280 1200 480");
  EXPECT_EQ(Raw(u"Text1", u"Text"), u"\"Text1\"");
  EXPECT_EQ(Raw(u"Text1", u"TabIndex"), u"1");
  EXPECT_EQ(Chosen, u"Text1");
  EXPECT_EQ(used, 1);
  EXPECT_EQ(View->Tool(), u"");
  Undo();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Events, u"+Text1 -Text1");
  Redo();
  EXPECT_EQ(Place(u"Text1"), u"120 2280 1200 480");
}

TEST_F(DesignerTest, DrawsIntoTheContainerUnderTheMouse) {
  View->SetTool(u"VB.OptionButton");
  Drag(At(1800 + 240, 120 + 720), At(1800 + 1440, 120 + 960));
  ASSERT_NE(Node(u"Option1"), nullptr);
  EXPECT_EQ(Node(u"Option1")->Parent->Name, u"fraBox");
  EXPECT_EQ(Place(u"Option1"), u"240 720 1200 240");
  EXPECT_EQ(Raw(u"Option1", u"Caption"), u"\"Option1\"");
}

constexpr StringView PixelForm =
    u"Begin VB.Form Form1 \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\n"
    u"   ScaleHeight = 200\r\n   ScaleMode = 3  'Pixel\r\n   ScaleWidth = 300\r\n"
    u"   Begin VB.CommandButton cmdGo \r\n      Height = 375\r\n      Left = 120\r\n"
    u"      Top = 120\r\n      Width = 1215\r\n   End\r\n"
    u"   Begin VB.Line linRule \r\n      X1 = 8\r\n      X2 = 108\r\n      Y1 = 80\r\n"
    u"      Y2 = 80\r\n   End\r\nEnd\r\n";

TEST_F(DesignerTest, DrawsInTwipsOnAFormThatCountsPixels) {
  UseForm(PixelForm);
  View->SetTool(u"VB.ListBox");
  Drag(At(240, 600), At(1440, 1800));
  EXPECT_EQ(Place(u"List1"), u"240 600 1200 1200");
  View->SetTool(u"VB.Line");
  Drag(At(1800, 2400), At(3000, 2400));
  EXPECT_EQ(Raw(u"Line1", u"X1") + u" " + Raw(u"Line1", u"Y1"), u"120 160");
  EXPECT_EQ(Raw(u"Line1", u"X2") + u" " + Raw(u"Line1", u"Y2"), u"200 160");
}

TEST_F(DesignerTest, MovesByTwipsOnAFormThatCountsPixels) {
  UseForm(PixelForm);
  View->Select({Node(u"cmdGo")});
  Key(Qt::Key_Right);
  EXPECT_EQ(Place(u"cmdGo"), u"240 120 1215 375");
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Place(u"cmdGo"), u"240 120 1215 495");
  View->Select({Node(u"linRule")});
  Key(Qt::Key_Right);
  EXPECT_EQ(Raw(u"linRule", u"X1") + u" " + Raw(u"linRule", u"X2"), u"16 116");
  View->Select({Tree().Root()});
  Key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Raw(u"Form1", u"ClientWidth") + u" " + Raw(u"Form1", u"ScaleWidth"), u"4620 308");
}

TEST_F(DesignerTest, MovesWithTheControlKeyHeldToo) {
  View->Select({Node(u"cmdGo")});
  Key(Qt::Key_Down, Qt::ControlModifier);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Place(u"cmdGo"), u"240 240 1215 375");
}

TEST_F(DesignerTest, GivesAClickedControlItsClassesSize) {
  View->SetTool(u"VB.CommandButton");
  Click(At(250, 2300));
  EXPECT_EQ(Place(u"Command1"), u"240 2280 1215 375");
  View->SetTool(u"VB.Timer");
  View->AddControl(u"VB.Timer");
  EXPECT_EQ(View->Tool(), u"");
  EXPECT_EQ(Raw(u"Timer1", u"Width"), u"(none)");
  EXPECT_NE(Raw(u"Timer1", u"Left"), u"(none)");
}

TEST_F(DesignerTest, DrawsALineByItsEnds) {
  View->SetTool(u"VB.Line");
  Drag(At(3000, 2880), At(1200, 2400));
  EXPECT_EQ(Raw(u"Line1", u"X1") + u" " + Raw(u"Line1", u"Y1"), u"3000 2880");
  EXPECT_EQ(Raw(u"Line1", u"X2") + u" " + Raw(u"Line1", u"Y2"), u"1200 2400");
  Drag(HandleOf(u"Line1", Handle::LineEnd), At(1440, 2400));
  EXPECT_EQ(Raw(u"Line1", u"X2"), u"1440");
  Drag(At(2220, 2640), At(2220, 2760));
  EXPECT_EQ(Raw(u"Line1", u"Y1"), u"3000");
  EXPECT_EQ(Raw(u"Line1", u"Y2"), u"2520");
}

TEST_F(DesignerTest, PutsOnAnMdiFormOnlyWhatClingsToAnEdge) {
  UseForm(u"Begin VB.MDIForm Form1 \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\nEnd\r\n");
  const String before = Text();
  View->AddControl(u"VB.CommandButton");
  ASSERT_EQ(Failures.size(), 1U);
  EXPECT_EQ(Failures[0],
            u"A control without an Align property can't stand on an MDI form: CommandButton");
  EXPECT_EQ(Text(), before);
  View->AddControl(u"VB.PictureBox");
  EXPECT_EQ(Raw(u"Picture1", u"Align"), u"1");
  View->SetTool(u"VB.CommandButton");
  const QPointF inside = View->Layout().Find(Node(u"Picture1"))->Bounds.center();
  Click(At(inside.x(), inside.y()));
  ASSERT_NE(Node(u"Command1"), nullptr);
  EXPECT_EQ(Node(u"Command1")->Parent->Name, u"Picture1");
}

TEST_F(DesignerTest, LeavesADesignerOfAnotherLibraryAlone) {
  UseForm(u"Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} Form1 \r\n   Tag = 1\r\nEnd\r\n");
  const String before = Text();
  View->AddControl(u"VB.Label");
  EXPECT_EQ(Failures, std::vector<String>{u"\"Form1\" holds no controls"});
  Key(Qt::Key_Right, Qt::ShiftModifier);
  const QPoint corner = View->Frame().Body.bottomRight() + QPoint(3, 3);
  Drag(corner, corner + QPoint(60, 60));
  EXPECT_EQ(Text(), before);
}

TEST_F(DesignerTest, AsksForRoomForTheWholeForm) {
  EXPECT_GE(View->sizeHint().width(), View->Frame().Whole.width());
  EXPECT_GE(View->sizeHint().height(), View->Frame().Whole.height());
}

TEST_F(DesignerTest, TellsNameAndClassUnderTheMouse) {
  QHelpEvent event(QEvent::ToolTip, At(300, 300), Canvas()->mapToGlobal(At(300, 300)));
  QApplication::sendEvent(Canvas(), &event);
  EXPECT_EQ(QToolTip::text(), u"cmdGo\nVB.CommandButton");
}

TEST_F(DesignerTest, GivesNewControlsTheFirstFreeName) {
  for (int count = 0; count < 3; ++count) View->AddControl(u"VB.Label");
  EXPECT_EQ(Events, u"+Label1 +Label2 +Label3");
  View->Select({Node(u"Label2")});
  View->DeleteSelected();
  View->AddControl(u"VB.Label");
  EXPECT_NE(Node(u"Label2"), nullptr);
}

TEST_F(DesignerTest, PutsANewControlOnTopOfTheOthers) {
  View->SetTool(u"VB.CommandButton");
  Drag(At(240, 240), At(960, 480));
  Click(At(600, 360));
  EXPECT_EQ(Chosen, u"Command1");
}

TEST_F(DesignerTest, GivesTheToolUpOnEscape) {
  int used = 0;
  View->OnToolUsed = [&] { ++used; };
  View->SetTool(u"VB.TextBox");
  QTest::mousePress(Canvas(), Qt::LeftButton, {}, At(120, 2300));
  QTest::mouseMove(Canvas(), At(1200, 2800));
  Key(Qt::Key_Escape);
  QTest::mouseRelease(Canvas(), Qt::LeftButton, {}, At(1200, 2800));
  EXPECT_EQ(Events, u"");
  EXPECT_EQ(used, 1);
}

TEST_F(DesignerTest, StopsADragOnEscape) {
  const String before = Text();
  QTest::mousePress(Canvas(), Qt::LeftButton, {}, At(300, 300));
  QTest::mouseMove(Canvas(), At(900, 900));
  Key(Qt::Key_Escape);
  QTest::mouseRelease(Canvas(), Qt::LeftButton, {}, At(900, 900));
  EXPECT_EQ(Text(), before);
}

TEST_F(DesignerTest, ChoosesTheContainerOnEscape) {
  Click(At(2200, 600));
  Key(Qt::Key_Escape);
  EXPECT_EQ(Chosen, u"fraBox");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Chosen, u"Form1");
}

TEST_F(DesignerTest, GoesThroughTheControlsByTab) {
  Key(Qt::Key_Tab);
  EXPECT_EQ(Chosen, u"cmdGo");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Chosen, u"chkInner");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Chosen, u"fraBox");
}

TEST_F(DesignerTest, ChoosesAllControlsOfTheForm) {
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Chosen, u"cmdGo fraBox lblNote");
}

/// Types a name into the field that F2 opened.
void TypeName(QWidget* canvas, const QString& name, Qt::Key last) {
  QLineEdit* field = nullptr;
  for (QLineEdit* one : canvas->findChildren<QLineEdit*>()) {
    if (one->isVisible()) field = one;
  }
  ASSERT_NE(field, nullptr);
  field->selectAll();
  QTest::keyClicks(field, name);
  QTest::keyClick(field, last);
  QApplication::processEvents();
}

TEST_F(DesignerTest, RenamesByF2) {
  const String before = Text();
  Click(At(300, 300));
  Key(Qt::Key_F2);
  TypeName(Canvas(), u"cmdRun"_qs, Qt::Key_Return);
  EXPECT_EQ(Events, u"cmdGo>cmdRun");
  EXPECT_NE(Text().find(u"Begin VB.CommandButton cmdRun \r\n"), String::npos);
  Undo();
  EXPECT_EQ(Text(), before);
  Redo();
  EXPECT_NE(Node(u"cmdRun"), nullptr);
  EXPECT_EQ(Events, u"cmdGo>cmdRun") << "the code is as it was: nobody has to carry a name through";
}

TEST_F(DesignerTest, TellsOfANameThatIsTakenBackWhenTheCodeIsAnotherByThen) {
  Click(At(300, 300));
  Key(Qt::Key_F2);
  TypeName(Canvas(), u"cmdRun"_qs, Qt::Key_Return);
  View->Component()->Module()->InsertLines(1, u"' cmdRun");
  Undo();
  EXPECT_EQ(Events, u"cmdGo>cmdRun cmdRun>cmdGo");
  Redo();
  EXPECT_EQ(Events, u"cmdGo>cmdRun cmdRun>cmdGo") << "and once more nothing is left to carry";
  EXPECT_NE(Node(u"cmdRun"), nullptr);
}

TEST_F(DesignerTest, KeepsTheNameOnEscape) {
  Click(At(300, 300));
  Key(Qt::Key_F2);
  TypeName(Canvas(), u"other"_qs, Qt::Key_Escape);
  EXPECT_NE(Node(u"cmdGo"), nullptr);
  EXPECT_EQ(Events, u"");
}

TEST_F(DesignerTest, MayBeClosedWhileANameIsTyped) {
  Click(At(300, 300));
  Key(Qt::Key_F2);
  auto* const field = Canvas()->findChild<QLineEdit*>();
  ASSERT_NE(field, nullptr);
  field->setText(u"half"_qs);
  View.reset();
  EXPECT_NE(Node(u"cmdGo"), nullptr);
}

TEST_F(DesignerTest, TellsWhyANameIsRefused) {
  const String before = Text();
  for (const QString& bad : {u"lblNote"_qs, u"2nd"_qs, u"a b"_qs}) {
    Click(At(300, 300));
    Key(Qt::Key_F2);
    TypeName(Canvas(), bad, Qt::Key_Return);
  }
  ASSERT_EQ(Failures.size(), 3U);
  EXPECT_EQ(Failures[0], u"The form has a control \"lblNote\" already");
  EXPECT_EQ(Failures[1], u"\"2nd\" is not a valid name");
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(View->UndoStack().count(), 0);
}

TEST_F(DesignerTest, RenamesTheComponentWhenTheFormIsChosen) {
  Key(Qt::Key_F2);
  TypeName(Canvas(), u"frmMain"_qs, Qt::Key_Return);
  EXPECT_EQ(Component->PlainName(), u"frmMain");
  EXPECT_NE(Text().find(u"Begin VB.Form frmMain \r\n"), String::npos);
  Undo();
  EXPECT_EQ(Component->PlainName(), u"Form1");
}

TEST_F(DesignerTest, OpensTheCodeOfWhatIsDoubleClicked) {
  String opened;
  View->OnOpenCode = [&](const auto& component, const String& name) {
    opened += component->PlainName() + u":" + name + u" ";
  };
  const auto doubleClick = [&](QPoint point) {
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, point);
  };
  doubleClick(At(300, 300));
  doubleClick(At(4000, 2600));
  EXPECT_EQ(opened, u"Form1:cmdGo Form1:Form ");
}

TEST_F(DesignerTest, AHeldReturnOpensTheCodeOnce) {
  int opened = 0;
  View->OnOpenCode = [&](const auto&, const String&) { ++opened; };
  for (const bool repeated : {false, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_qs, repeated);
    QApplication::sendEvent(Canvas(), &press);
  }
  EXPECT_EQ(opened, 1);
}

TEST_F(DesignerTest, OpensTheCodeOfAMenuItem) {
  UseForm(
      u"Begin VB.Form Form1 \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\n"
      u"   Begin VB.Menu mnuFile \r\n      Caption = \"&File\"\r\n"
      u"      Begin VB.Menu mnuOpen \r\n         Caption = \"&Open\"\r\n      End\r\n"
      u"      Begin VB.Menu mnuLine \r\n         Caption = \"-\"\r\n      End\r\n   End\r\n"
      u"   Begin VB.Menu mnuHelp \r\n      Caption = \"&Help\"\r\n   End\r\nEnd\r\n");
  String opened;
  View->OnOpenCode = [&](const auto&, const String& name) { opened += name + u" "; };
  ASSERT_EQ(View->Frame().Menus.size(), 2U);
  Click(View->Frame().Menus[0].Place.center());
  auto* const menu = Canvas()->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 2);
  EXPECT_TRUE(menu->actions()[1]->isSeparator());
  menu->actions()[0]->trigger();
  menu->close();
  Click(View->Frame().Menus[1].Place.center());
  EXPECT_EQ(opened, u"mnuOpen mnuHelp ");
}

TEST_F(DesignerTest, KeepsTheSelectionThroughAChangeFromElsewhere) {
  Click(At(300, 300));
  Click(At(300, 1900), Qt::ShiftModifier);
  World.Environment.RemoveControl(u"Form1", u"cmdGo");
  World.Environment.AddControl(u"Form1", u"Label", u"Label9", {});
  QApplication::processEvents();
  EXPECT_EQ(Chosen, u"lblNote");
  EXPECT_NE(View->Layout().Find(Node(u"Label9")), nullptr);
  World.Environment.RemoveControl(u"Form1", u"lblNote");
  QApplication::processEvents();
  EXPECT_EQ(Chosen, u"Form1");
}

TEST_F(DesignerTest, DropsADragWhenTheFormChangesUnderIt) {
  QTest::mousePress(Canvas(), Qt::LeftButton, {}, At(300, 300));
  QTest::mouseMove(Canvas(), At(900, 900));
  World.Environment.RemoveControl(u"Form1", u"cmdGo");
  QTest::mouseMove(Canvas(), At(1000, 1000));
  QApplication::processEvents();
  QTest::mouseRelease(Canvas(), Qt::LeftButton, {}, At(1000, 1000));
  QApplication::processEvents();
  EXPECT_EQ(Failures.size(), 0U);
  EXPECT_EQ(Tree().Controls().size(), 3U);
}

TEST_F(DesignerTest, TellsWhenAnEditCanNoLongerBeUndone) {
  Drag(At(300, 300), At(540, 300));
  World.Environment.RemoveControl(u"Form1", u"cmdGo");
  const String before = Text();
  Undo();
  ASSERT_EQ(Failures.size(), 1U);
  EXPECT_EQ(Failures[0], u"There is no control \"cmdGo\"");
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(View->UndoStack().count(), 0);
}

TEST_F(DesignerTest, RefusesToPutBackANameThatWasGivenAway) {
  Click(At(300, 300));
  Key(Qt::Key_Delete);
  World.Environment.AddControl(u"Form1", u"Label", u"CMDGO", {});
  const String before = Text();
  Undo();
  ASSERT_EQ(Failures.size(), 1U);
  EXPECT_EQ(Text(), before);
}

TEST_F(DesignerTest, ShowsAControlThoughAHandlerOfItsEventFailed) {
  const String before = Text();
  Sink->ItemAdded = [](const auto&) { throw vb::Failure(5, u"Refused by the add-in"); };
  View->AddControl(u"VB.Label");
  EXPECT_EQ(Failures, std::vector<String>{u"Refused by the add-in"});
  // The event comes behind the change.
  EXPECT_NE(Node(u"Label1"), nullptr);
  EXPECT_EQ(View->Layout().Controls().size(), Tree().Controls().size());
}

TEST_F(DesignerTest, AControlThatAHandlerOfItsEventNamesIsTheChosenOne) {
  int added = 0;
  Sink->ItemAdded = [&](const auto& control) {
    ++added;
    control->Properties()->Item(u"Name")->SetValue(u"cmdSave");
  };
  View->AddControl(u"VB.CommandButton");
  EXPECT_EQ(Chosen, u"cmdSave");
  const String named = Text();
  Undo();
  EXPECT_EQ(Node(u"cmdSave"), nullptr);
  Redo();
  EXPECT_EQ(Text(), named);
  EXPECT_EQ(added, 1) << "a control that comes back is no new one";
}

TEST_F(DesignerTest, AControlThatAHandlerOfItsEventTakesAwayIsChosenByNobody) {
  const String before = Text();
  Sink->ItemAdded = [this](const auto& control) {
    World.Environment.RemoveControl(u"Form1", control->ControlObjectName());
  };
  View->AddControl(u"VB.CommandButton");
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(View->Selected().size(), 1U);
}

TEST_F(DesignerTest, EveryEditRunsAsAnActionOfTheTools) {
  std::vector<String> inside;
  View->Editor()->RunTool = [&](const std::function<void()>& edit) {
    const String before = Text();
    edit();
    inside.push_back(Text() == before ? u"same" : u"other");
  };
  View->AddControl(u"VB.CommandButton");
  Undo();
  Redo();
  (void)View->Editor()->Rename(*Node(u"Command1"), u"cmdNew");
  EXPECT_FALSE(View->Editor()->Rename(*Node(u"cmdNew"), u"2nd"));
  inside.erase(inside.begin());  // the placing ahead of the adding
  EXPECT_EQ(inside, (std::vector<String>{u"other", u"other", u"other", u"other", u"same"}));
  EXPECT_EQ(Failures.size(), 1U);
}

TEST_F(DesignerTest, ShowsAFormOfThreeHundredControls) {
  String head = u"Begin VB.Form Form1 \r\n   ClientHeight = 9000\r\n   ClientWidth = 12000\r\n";
  for (int number = 0; number < 300; ++number) {
    head += u"   Begin VB.CommandButton cmd" + vb::Str(number) + u" \r\n      Height = 360\r\n" +
            u"      Left = " + vb::Str(number % 20 * 600) + u"\r\n      Top = " +
            vb::Str(number / 20 * 600) + u"\r\n      Width = 480\r\n   End\r\n";
  }
  head += u"End\r\n";
  UseForm(head);
  EXPECT_EQ(View->Layout().Controls().size(), 300U);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Right);
  EXPECT_EQ(Raw(u"cmd0", u"Left"), u"120");
  EXPECT_EQ(Raw(u"cmd299", u"Left"), vb::Str(19 * 600 + 120));
  Undo();
  EXPECT_EQ(Text(), head);
  Key(Qt::Key_Delete);
  EXPECT_TRUE(Tree().Controls().empty());
  Undo();
  EXPECT_EQ(Text(), head);
}

TEST_F(DesignerTest, ShowsNothingForAComponentWithoutADesigner) {
  World.Module(u"Module1", u"");
  DesignerView view(
      std::dynamic_pointer_cast<model::VBComponent>(World.Environment.Component(u"Module1")));
  view.resize(200, 200);
  view.show();
  QTest::mouseClick(&view.Canvas(), Qt::LeftButton, {}, {5, 5});
  for (const int key : {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Tab, Qt::Key_Left, Qt::Key_Escape}) {
    QTest::keyClick(&view.Canvas(), static_cast<Qt::Key>(key));
  }
  view.AddControl(u"VB.Label");
  EXPECT_TRUE(view.Selected().empty());
}

TEST_F(DesignerTest, LetsTheEditorOutliveTheView) {
  const auto editor = View->Editor();
  model::DesignerNode* const node = Node(u"cmdGo");
  View.reset();
  EXPECT_FALSE(editor->Rename(*node, u"2nd"));
  EXPECT_TRUE(editor->Rename(*node, u"cmdRun"));
  editor->Undo();
  EXPECT_EQ(node->Name, u"cmdGo");
}

}  // namespace
}  // namespace tessel::workbench
