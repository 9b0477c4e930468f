#include "hosts/workbench/designer/Toolbox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <set>

#include "hosts/workbench/designer/ControlClasses.h"

namespace tessel::workbench {
namespace {

class ToolboxTest : public testing::Test {
 protected:
  ToolboxTest() {
    Box.OnTool = [this](StringView name) { Tools += String(name) + u";"; };
    Box.OnAdd = [this](StringView name) { Added += String(name) + u";"; };
    Box.resize(Box.sizeHint());
    Box.show();
    QApplication::processEvents();
  }
  QPoint Cell(int row) { return Box.visualItemRect(Box.item(row)).center(); }
  Toolbox Box;
  String Tools, Added;
};

TEST_F(ToolboxTest, OffersThePointerAndTheTwentyClasses) {
  ASSERT_EQ(Box.count(), 21);
  EXPECT_EQ(Box.item(0)->toolTip(), u"Pointer");
  EXPECT_EQ(Box.item(1)->toolTip(), u"PictureBox");
  EXPECT_EQ(Box.item(20)->toolTip(), u"OLE");
  EXPECT_EQ(Box.Tool(), u"");
}

TEST_F(ToolboxTest, ShowsAllToolsInItsOwnSize) {
  EXPECT_TRUE(Box.viewport()->rect().contains(Box.visualItemRect(Box.item(20))));
}

TEST_F(ToolboxTest, TellsOfAChosenTool) {
  QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, Cell(5));
  EXPECT_EQ(Tools, u"VB.CommandButton;");
  EXPECT_EQ(Box.Tool(), u"VB.CommandButton");
  QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, Cell(0));
  EXPECT_EQ(Tools, u"VB.CommandButton;;");
}

TEST_F(ToolboxTest, GoesBackToThePointer) {
  QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, Cell(3));
  Box.Reset();
  Box.Reset();
  EXPECT_EQ(Box.Tool(), u"");
  EXPECT_EQ(Tools, u"VB.TextBox;;");
}

TEST_F(ToolboxTest, ChoosesByArrowKeysAndAddsByEnter) {
  Box.setFocus();
  QTest::keyClick(&Box, Qt::Key_Right);
  QTest::keyClick(&Box, Qt::Key_Right);
  EXPECT_EQ(Box.Tool(), u"VB.Label");
  QTest::keyClick(&Box, Qt::Key_Return);
  EXPECT_EQ(Added, u"VB.Label;");
}

TEST_F(ToolboxTest, AddsOnADoubleClickOnly) {
  QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, Cell(4));
  EXPECT_EQ(Added, u"");
  QTest::mouseDClick(Box.viewport(), Qt::LeftButton, {}, Cell(4));
  EXPECT_EQ(Added, u"VB.Frame;");
}

TEST_F(ToolboxTest, AddsNothingByThePointer) {
  Box.setFocus();
  QTest::keyClick(&Box, Qt::Key_Return);
  EXPECT_EQ(Added, u"");
}

QImage Drawn(const QListWidgetItem& item) { return item.icon().pixmap(16).toImage(); }

TEST_F(ToolboxTest, GivesEachToolAPictureOfItsOwn) {
  std::set<QByteArray> pictures;
  for (int row = 0; row < Box.count(); ++row) {
    const QImage picture = Drawn(*Box.item(row));
    ASSERT_FALSE(picture.isNull());
    pictures.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()),
                               static_cast<qsizetype>(picture.sizeInBytes())));
  }
  EXPECT_EQ(pictures.size(), 21U);
}

TEST_F(ToolboxTest, DrawsItsPicturesInTheInksOfThePalette) {
  const QImage before = Drawn(*Box.item(2));
  QPalette dark = Box.palette();
  dark.setColor(QPalette::ButtonText, Qt::white);
  dark.setColor(QPalette::Base, Qt::black);
  Box.setPalette(dark);
  EXPECT_NE(Drawn(*Box.item(2)), before);
}

TEST(ControlClasses, AreFoundWithoutRegardToCase) {
  ASSERT_NE(FindControlClass(u"vb.textbox"), nullptr);
  EXPECT_EQ(FindControlClass(u"VB.TextBox")->BaseName, u"Text");
  EXPECT_EQ(FindControlClass(u"TextBox"), nullptr);
  EXPECT_EQ(FindControlClass(u"MSForms.TextBox"), nullptr);
}

TEST(ControlClasses, NameTheFormInCodeByItsClass) {
  const model::DesignerTree tree(
      u"Begin VB.UserControl ctlBox \r\nBegin VB.Label lblNote \r\nIndex = 2\r\nEnd\r\nEnd\r\n");
  EXPECT_EQ(NameInCode(*tree.Root()), u"UserControl");
  EXPECT_EQ(NameInCode(*tree.Controls()[0]), u"lblNote");
  EXPECT_EQ(ShownName(*tree.Controls()[0]), u"lblNote(2)");
  EXPECT_EQ(FreeControlName(tree, u"MSComctlLib.Slider"), u"Slider1");
}

}  // namespace
}  // namespace tessel::workbench
