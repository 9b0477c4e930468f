// What is drawn on a dark and on a light palette, told from the pixels.
#include "hosts/workbench/window/Colors.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/Toolbox.h"
#include "hosts/workbench/window/Settings.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

/// The lightest and the darkest point of a part of a widget, and how many share the commonest one.
struct Shades {
  int Darkest = 255, Lightest = 0, Commonest = 0;
};

Shades ShadesOf(QWidget& widget, const QRect& part) {
  const QImage image = widget.grab(part).toImage();
  Shades shades;
  std::map<int, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const int lightness = QColor(image.pixel(x, y)).lightness();
      shades.Darkest = std::min(shades.Darkest, lightness);
      shades.Lightest = std::max(shades.Lightest, lightness);
      if (++counts[lightness] > counts[shades.Commonest]) shades.Commonest = lightness;
    }
  }
  return shades;
}

class Painted : public InWindow, public testing::WithParamInterface<ColorScheme> {
 protected:
  Painted() : before_(QApplication::palette()) {
    QApplication::setPalette(PaletteOf(GetParam()));
    QApplication::processEvents();
  }
  ~Painted() override { QApplication::setPalette(before_); }

  [[nodiscard]] static bool IsDark() { return GetParam() == ColorScheme::Dark; }
  /// Whether a shade goes with the palette: dark on a dark one.
  static void ExpectBackground(int shade) {
    if (IsDark()) {
      EXPECT_LT(shade, 110);
    } else {
      EXPECT_GT(shade, 110);
    }
  }
  DesignerView& OpenForm() {
    OpenSample();
    std::shared_ptr<model::VBComponent> form;
    for (const auto& one : window_->Root()->Active()->Components().All()) {
      if (one->PlainType() == host::vbext_ct_VBForm &&
          !one->OwnDesigner()->Tree().Controls().empty())
        form = one;
    }
    DesignerView* const view = window_->ShowDesigner(form);
    QApplication::processEvents();
    return *view;
  }

  QPalette before_;
};

INSTANTIATE_TEST_SUITE_P(Palettes, Painted, testing::Values(ColorScheme::Light, ColorScheme::Dark),
                         [](const auto& tested) {
                           return tested.param == ColorScheme::Dark ? "Dark" : "Light";
                         });

TEST_P(Painted, TheAreaBehindTheWindowsGoesWithIt) {
  QWidget& area = *window_->Children().viewport();
  const Shades shades = ShadesOf(area, area.rect());
  EXPECT_EQ(shades.Darkest, shades.Lightest) << "nothing is open";
  if (IsDark()) {
    EXPECT_LT(shades.Commonest, 60);
  } else {
    EXPECT_GT(shades.Commonest, 110);
  }
}

TEST_P(Painted, TheAreaBehindAFormGoesWithIt) {
  DesignerView& view = OpenForm();
  const QRect all = view.rect();
  const QRect corner(all.right() - 60, all.bottom() - 60, 40, 40);
  ExpectBackground(ShadesOf(view, corner).Commonest);
}

TEST_P(Painted, HandlesStandOutFromTheForm) {
  DesignerView& view = OpenForm();
  const QImage without = view.grab().toImage();
  const auto controls = view.Component()->OwnDesigner()->Tree().Controls();
  view.Select({controls.front()});
  QApplication::processEvents();
  const QImage with = view.grab().toImage();
  int strong = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      const int before = QColor(without.pixel(x, y)).lightness();
      strong += std::abs(QColor(with.pixel(x, y)).lightness() - before) > 60 ? 1 : 0;
    }
  }
  EXPECT_GT(strong, 50) << "points of eight handles that differ from what is below them";
}

TEST_P(Painted, AFilterThatIsDownIsToldFromOneThatIsUp) {
  OpenSample();
  ASSERT_TRUE(window_->ClickCommand(u"Tessel", {u"Project Explorer"}));
  QApplication::processEvents();
  auto* const button = window_->findChild<QPushButton*>(QStringLiteral("btnMethod"));
  ASSERT_NE(button, nullptr);
  ASSERT_TRUE(button->isChecked());
  const auto face = [&] { return QColor(button->grab().toImage().pixel(button->width() / 2, 4)); };
  const QColor down = face();
  button->click();
  QApplication::processEvents();
  ASSERT_FALSE(button->isChecked());
  const QColor up = face();
  EXPECT_GT(std::abs(down.red() - up.red()) + std::abs(down.green() - up.green()) +
                std::abs(down.blue() - up.blue()),
            50);
}

TEST_P(Painted, LineNumbersCanBeRead) {
  OpenSample();
  CodeEditor& editor = Code(u"modMain").Editor();
  QApplication::processEvents();
  const QRect margin(0, 0, editor.marginWidth(0), editor.viewport()->height() / 2);
  const Shades shades = ShadesOf(*editor.viewport(), margin);
  ExpectBackground(shades.Commonest);
  EXPECT_GT(shades.Lightest - shades.Darkest, 80);
}

TEST_P(Painted, TheTextOfACodeWindowCanBeRead) {
  OpenSample();
  CodeEditor& editor = Code(u"modMain").Editor();
  QApplication::processEvents();
  const QRect text = editor.viewport()->rect().adjusted(80, 0, 0, 0);
  const Shades shades = ShadesOf(*editor.viewport(), text);
  ExpectBackground(shades.Commonest);
  EXPECT_GT(shades.Lightest - shades.Darkest, 120);
}

TEST_P(Painted, TheChosenToolIsMarkedAndAllToolsCanBeSeen) {
  auto* const tools = window_->findChild<Toolbox*>();
  ASSERT_NE(tools, nullptr);
  tools->setCurrentRow(2);
  QApplication::processEvents();
  const auto cell = [&](int row) { return tools->visualItemRect(tools->item(row)); };
  for (int row = 0; row < 6; ++row) {
    const Shades shades = ShadesOf(*tools->viewport(), cell(row));
    EXPECT_GT(shades.Lightest - shades.Darkest, 70) << "tool " << row;
    if (row != 2) ExpectBackground(shades.Commonest);
  }
  const QRect edge(cell(2).topLeft(), QSize(cell(2).width(), 1));
  const QRect other(cell(3).topLeft(), QSize(cell(3).width(), 1));
  EXPECT_GT(std::abs(ShadesOf(*tools->viewport(), edge).Commonest -
                     ShadesOf(*tools->viewport(), other).Commonest),
            25);
}

}  // namespace
}  // namespace tessel::workbench
