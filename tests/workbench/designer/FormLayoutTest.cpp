#include "hosts/workbench/designer/FormLayout.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <limits>
#include <random>

#include "hosts/workbench/designer/FormFrame.h"
#include "hosts/workbench/designer/FormPainter.h"

namespace tessel::workbench {
namespace {

/// A form with these lines inside, laid out.
struct Form {
  explicit Form(const String& inside)
      : Tree(u"Begin VB.Form Form1 \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\n" +
             inside + u"End\r\n"),
        Layout(*Tree.Root()) {}
  const PlacedControl& operator[](std::size_t at) const { return Layout.Controls().at(at); }
  model::DesignerTree Tree;
  FormLayout Layout;
};

String Control(const String& head, const String& lines) {
  return u"Begin " + head + u"\r\n" + lines + u"End\r\n";
}

String Bounds(int left, int top, int width, int height) {
  return u"Left = " + vb::Str(left) + u"\r\nTop = " + vb::Str(top) + u"\r\nWidth = " +
         vb::Str(width) + u"\r\nHeight = " + vb::Str(height) + u"\r\n";
}

TEST(FormLayout, PlacesControlsByTheTwipsOfTheFile) {
  const Form form(Control(u"VB.TextBox Text1", Bounds(120, 240, 1200, 300)));
  EXPECT_EQ(form.Layout.ClientSize(), QSizeF(4500, 3000));
  EXPECT_EQ(form[0].Bounds, QRectF(120, 240, 1200, 300));
}

TEST(FormLayout, NestsCoordinatesOfContainers) {
  const Form form(Control(
      u"VB.Frame Frame1",
      Bounds(1000, 500, 2000, 1000) + Control(u"VB.Label Label1", Bounds(100, 200, 300, 150))));
  EXPECT_EQ(form[1].Bounds, QRectF(1100, 700, 300, 150));
  EXPECT_EQ(form[1].Container, 0);
}

TEST(FormLayout, CountsFromInsideAPicturesBorder) {
  const Form form(
      Control(u"VB.PictureBox Picture1",
              Bounds(1000, 500, 2000, 1000) + Control(u"VB.Label Label1", Bounds(0, 0, 300, 150))));
  EXPECT_EQ(form[1].Bounds.topLeft(), QPointF(1030, 530));
}

TEST(FormLayout, CutsControlsOffAtTheirContainer) {
  const Form form(
      Control(u"VB.Frame Frame1",
              Bounds(0, 0, 600, 600) + Control(u"VB.TextBox Text1", Bounds(300, 300, 900, 900))));
  EXPECT_EQ(form[1].Shown, QRectF(300, 300, 300, 300));
  EXPECT_EQ(form.Layout.At({700, 700}), nullptr);
}

TEST(FormLayout, CountsTwipsWhateverTheScaleIs) {
  for (const StringView scale :
       {u"ScaleMode = 3  'Pixel\r\n", u"ScaleMode = 5  'Inch\r\n", u"ScaleMode = 7\r\n",
        u"ScaleMode = 0\r\nScaleWidth = 450\r\nScaleHeight = -300\r\nScaleTop = 300\r\n"}) {
    const Form form(String(scale) + Control(u"VB.TextBox Text1", Bounds(150, 300, 1500, 315)) +
                    Control(u"VB.PictureBox Picture1",
                            Bounds(1000, 500, 2000, 1000) + String(scale) +
                                Control(u"VB.CommandButton Command1", Bounds(60, 90, 900, 375))));
    EXPECT_EQ(form[0].Bounds, QRectF(150, 300, 1500, 315));
    EXPECT_EQ(form[1].Bounds, QRectF(1000, 500, 2000, 1000));
    EXPECT_EQ(form[2].Bounds, QRectF(1090, 620, 900, 375));
  }
}

TEST(FormLayout, ReadsTheEndsOfLinesInTheScaleOfTheirContainer) {
  const String ends = u"X1 = 10\r\nY1 = 20\r\nX2 = 110\r\nY2 = 20\r\n";
  const Form pixels(u"ScaleMode = 3  'Pixel\r\n" + Control(u"VB.Line Line1", ends));
  EXPECT_EQ(pixels[0].Line, QLineF(150, 300, 1650, 300));
  const Form own(u"ScaleMode = 0\r\nScaleWidth = 450\r\nScaleHeight = -300\r\nScaleTop = 300\r\n" +
                 Control(u"VB.Line Line1", ends));
  EXPECT_EQ(own[0].Line, QLineF(100, 2800, 1100, 2800));
}

TEST(FormLayout, GivesALineItsTwoEnds) {
  const Form form(Control(u"VB.Line Line1", u"X1 = 1200\r\nY1 = 100\r\nX2 = 200\r\nY2 = 900\r\n"));
  EXPECT_EQ(form[0].Line, QLineF(1200, 100, 200, 900));
  EXPECT_NE(form.Layout.At({700, 500}), nullptr);
  EXPECT_EQ(form.Layout.At({250, 150}), nullptr);
}

TEST(FormLayout, PutsTheFirstControlOfTheFileOnTop) {
  const Form form(Control(u"VB.TextBox Text1", Bounds(0, 0, 600, 600)) +
                  Control(u"VB.TextBox Text2", Bounds(300, 300, 600, 600)));
  EXPECT_EQ(form.Layout.At({400, 400})->Node->Name, u"Text1");
  EXPECT_EQ(form.Layout.At({800, 800})->Node->Name, u"Text2");
}

TEST(FormLayout, PutsWindowlessControlsBelowTheOthers) {
  const Form form(Control(u"VB.Label Label1", Bounds(0, 0, 600, 600)) +
                  Control(u"VB.TextBox Text1", Bounds(0, 0, 600, 600)));
  EXPECT_EQ(form.Layout.At({100, 100})->Node->Name, u"Text1");
}

TEST(FormLayout, PutsWhatStandsInAContainerAboveIt) {
  const Form form(
      Control(u"VB.Frame Frame1",
              Bounds(0, 0, 900, 900) + Control(u"VB.Label Label1", Bounds(100, 100, 300, 300))));
  EXPECT_EQ(form.Layout.At({200, 200})->Node->Name, u"Label1");
  EXPECT_EQ(form.Layout.ContainerAt({200, 200})->Node->Name, u"Frame1");
  EXPECT_EQ(form.Layout.ContainerAt({2000, 2000}), nullptr);
}

TEST(FormLayout, KeepsMenusOffTheForm) {
  const Form form(
      Control(u"VB.Menu mnuFile", u"Caption = \"&File\"\r\n" +
                                      Control(u"VB.Menu mnuOpen", u"Caption = \"&Open\"\r\n")) +
      Control(u"VB.Menu mnuHelp", u"Caption = \"&Help\"\r\n"));
  EXPECT_TRUE(form.Layout.Controls().empty());
  ASSERT_EQ(form.Layout.Menus().size(), 2U);
  const FormFrame frame = FrameOf(*form.Tree.Root(), form.Layout, 1.0 / 15);
  ASSERT_EQ(frame.Menus.size(), 2U);
  EXPECT_LT(frame.Menus[0].Place.right(), frame.Menus[1].Place.right());
  EXPECT_EQ(frame.Body.size(), QSize(300, 200));
  EXPECT_GT(frame.Body.top(), frame.Strip.top());
}

TEST(FormLayout, GivesTimersAndFacelessControlsASizeOfTheirOwn) {
  const Form form(Control(u"VB.Timer Timer1", u"Left = 100\r\nTop = 100\r\n") +
                  Control(u"MSWinsockLib.Winsock Socket1", u"Left = 900\r\nTop = 100\r\n"));
  EXPECT_FALSE(form[0].Sizable);
  EXPECT_FALSE(form[1].Sizable);
  EXPECT_GT(form[1].Bounds.width(), 0);
}

TEST(FormLayout, ScalesWithTheScreenAndTheZoom) {
  const Form form(Control(u"VB.TextBox Text1", Bounds(150, 150, 1500, 300)));
  const FormFrame once = FrameOf(*form.Tree.Root(), form.Layout, 1.0 / 15);
  const FormFrame twice = FrameOf(*form.Tree.Root(), form.Layout, 2.0 / 15);
  EXPECT_EQ(once.ToPixels(form[0].Bounds).size(), QSize(100, 20));
  EXPECT_EQ(twice.ToPixels(form[0].Bounds).size(), QSize(200, 40));
  EXPECT_EQ(twice.ToTwips(twice.ToPixels(QPointF(300, 450))), QPointF(300, 450));
}

TEST(FormLayout, GivesNoTitleToWhatHasNone) {
  const model::DesignerTree control(u"Begin VB.UserControl Control1 \r\nEnd\r\n");
  const FormLayout layout(*control.Root());
  EXPECT_TRUE(FrameOf(*control.Root(), layout, 0.1).Title.isEmpty());
  const Form plain(u"BorderStyle = 0  'None\r\n");
  EXPECT_TRUE(FrameOf(*plain.Tree.Root(), plain.Layout, 0.1).Title.isEmpty());
}

/// Draws a form as the canvas does.
void Paint(const model::DesignerTree& tree) {
  const FormLayout layout(*tree.Root());
  const FormFrame frame = FrameOf(*tree.Root(), layout, 1.0 / 15);
  QImage image(400, 300, QImage::Format_RGB32);
  QPainter painter(&image);
  PaintForm(painter, *tree.Root(), layout, frame, image.rect());
  for (const PlacedControl& control : layout.Controls()) {
    ASSERT_TRUE(std::isfinite(control.Bounds.left()) && std::isfinite(control.Bounds.width()));
    ASSERT_GE(control.Bounds.width(), 0);
    ASSERT_LE(std::abs(control.Bounds.left()), 2e6);
  }
}

constexpr StringView OddValues[] = {u"",
                                    u"-1",
                                    u"-99999999999",
                                    u"99999999999999",
                                    u"1e300",
                                    u"1e999",
                                    u"-1e999",
                                    u"nothing",
                                    u"\"text\"",
                                    u"&HFFFFFFFF",
                                    u"&H8000000F&",
                                    u"0",
                                    u".5",
                                    u"\"Form1.frx\":0000",
                                    u"$\"Form1.frx\":0",
                                    u"'",
                                    u"\"",
                                    u"&H",
                                    u"-32768",
                                    u"2147483648",
                                    u"True",
                                    u"   ",
                                    u"=",
                                    u"4294967296"};

TEST(FormLayout, StandsEveryOddValueInEveryProperty) {
  for (const ControlClass& known : ToolboxClasses()) {
    for (const StringView odd : OddValues) {
      String lines;
      for (const StringView property :
           {u"Left",  u"Top",     u"Width",       u"Height",     u"X1",        u"X2",
            u"Y1",    u"Y2",      u"BackColor",   u"ForeColor",  u"Alignment", u"Style",
            u"Value", u"Shape",   u"BorderWidth", u"FillStyle",  u"ScaleMode", u"ScaleWidth",
            u"Index", u"Caption", u"Text",        u"BorderStyle"}) {
        lines += String(property) + u" = " + String(odd) + u"\r\n";
      }
      lines += u"BeginProperty Font\r\nSize = " + String(odd) + u"\r\nName = " + String(odd) +
               u"\r\nEndProperty\r\nEndProperty\r\n";
      const model::DesignerTree tree(
          u"Begin VB.Form F\r\n" + lines + u"ClientWidth = " + String(odd) +
          u"\r\nClientHeight = 3000\r\n" +
          Control(String(known.Name) + u" C", lines + Control(u"VB.Label Inner", lines)) +
          u"End\r\n");
      Paint(tree);
    }
  }
}

TEST(FormLayout, StandsControlsWithoutAnyProperty) {
  String inside;
  for (const ControlClass& known : ToolboxClasses()) {
    inside += Control(String(known.Name) + u" C", u"");
  }
  inside += Control(u"", u"") + Control(u"VB.Menu", u"") + Control(u"Lib.Thing", u"");
  Paint(model::DesignerTree(u"Begin VB.Form\r\n" + inside + u"End\r\n"));
}

TEST(FormLayout, StandsRandomDamageOfAForm) {
  std::mt19937 random(20);
  const String whole =
      u"Begin VB.Form Form1\r\nClientHeight = 3000\r\nClientWidth = 4500\r\nScaleMode = 3\r\n" +
      Control(u"VB.Frame Frame1",
              Bounds(10, 20, 300, 40) + Control(u"VB.Line Line1", u"X1 = 5\r\n")) +
      Control(u"VB.Menu mnuFile", u"Caption = \"&File\"\r\n") + u"End\r\n";
  int drawn = 0;
  for (int round = 0; round < 2000; ++round) {
    String text = whole;
    for (int cut = 0; cut < 3; ++cut) {
      const std::size_t at = random() % text.size();
      if (random() % 2 == 0) {
        text.erase(at, random() % 6);
      } else {
        text[at] = static_cast<char16_t>(u" \"=&-9B\r"[random() % 8]);
      }
    }
    try {
      const model::DesignerTree tree(text);
      if (tree.Root() == nullptr) continue;
      Paint(tree);
      ++drawn;
    } catch (const std::exception&) {
      // A block that never ends is the reader's business.
    }
  }
  EXPECT_GT(drawn, 500);
}

}  // namespace
}  // namespace tessel::workbench
