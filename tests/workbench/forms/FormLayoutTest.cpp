// Every form of the add-in, drawn at several font sizes. The pictures stay in "screenshots" below
// the working directory, for people to look at.
#include "hosts/workbench/forms/FormLayout.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolButton>

#include "addin/frmAbout.h"
#include "builders/frmArgumentBuilder.h"
#include "builders/frmClassBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmParameterEnum.h"
#include "builders/frmProcedureBuilder.h"
#include "builders/frmPropertyBuilder.h"
#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/frmRemoveErrorHandlerCode.h"
#include "formatter/frmFormatText.h"
#include "forms/User.h"
#include "foundation/ProgressBarWindow.h"
#include "foundation/frmErrorMessage.h"
#include "settingsdialog/frmSettings.h"
#include "snippets/OpenLibraries.h"
#include "snippets/frmFragmentBuilder.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"
#include "workbench/forms/Desk.h"

namespace tessel::workbench {
namespace {

/// A font size for the length of a test.
class FontSize {
 public:
  explicit FontSize(int points) : before_(QApplication::font()) {
    QFont font = before_;
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  ~FontSize() { QApplication::setFont(before_); }
  FontSize(const FontSize&) = delete;
  FontSize& operator=(const FontSize&) = delete;

 private:
  QFont before_;
};

class EveryForm : public testing::TestWithParam<int> {
 protected:
  EveryForm() : font_(GetParam()) {
    world_.Form(u"frmOrders", u"Private Sub Form_Load()\r\nEnd Sub\r\n");
    world_.Module(u"modPrices", u"Public Function Price() As Long\r\nEnd Function\r\n");
  }

  void Look(forms::Form& form, const QString& part = {}) {
    if (!form.Visible()) desk_.Open(form);
    test::Desk::Turn();
    QWidget& window = desk_.Window(form);
    Save(window, ToQt(form.Name()) + part);
    ExpectNothingIsCut(window);
  }

  static void Save(QWidget& window, const QString& name) {
    QDir().mkpath(QStringLiteral("screenshots"));
    window.grab().save(QStringLiteral("screenshots/%1-%2pt.png").arg(name).arg(GetParam()));
  }

  static void ExpectNothingIsCut(QWidget& window) {
    ASSERT_FALSE(window.findChildren<QAbstractButton*>().isEmpty());
    Each<QLabel>(window, [](QLabel& label) { ExpectWhole(label); });
    Each<QAbstractButton>(window, [](QAbstractButton& button) { ExpectWhole(button); });
    Each<QComboBox>(window, [](QComboBox& box) { ExpectWhole(box); });
    Each<QTabBar>(window, [](QTabBar& bar) { ExpectWhole(bar); });
    Each<QHeaderView>(window, [](QHeaderView& header) { ExpectWhole(header); });
    Each<QGroupBox>(window, [](QGroupBox& group) {
      EXPECT_LE(WidthOf(group, group.title()), group.width()) << group.title().toStdString();
    });
    Each<QWidget>(window, [](QWidget& widget) { ExpectInside(widget); });
  }

 private:
  template <class Widget, class Visit>
  static void Each(QWidget& window, const Visit& visit) {
    for (Widget* const widget : window.findChildren<Widget*>()) {
      if (widget->isVisible()) visit(*widget);
    }
  }
  static int WidthOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
  }
  static void ExpectWhole(const QLabel& label) {
    const std::string text = label.text().toStdString();
    if (label.wordWrap()) {
      for (const QString& word : label.text().split(u' ')) {
        EXPECT_LE(WidthOf(label, word), label.width()) << text;
      }
      EXPECT_LE(label.heightForWidth(label.width()), label.height()) << text;
    } else {
      EXPECT_LE(WidthOf(label, label.text()), label.width()) << text;
    }
  }
  static void ExpectWhole(const QAbstractButton& button) {
    if (button.text().isEmpty()) return;
    EXPECT_LE(button.sizeHint().width(), button.width()) << button.text().toStdString();
    EXPECT_LE(button.fontMetrics().height(), button.height()) << button.text().toStdString();
  }
  static void ExpectWhole(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    EXPECT_LE(WidthOf(box, box.currentText()), field.width()) << box.currentText().toStdString();
  }
  static void ExpectWhole(const QTabBar& bar) {
    for (int tab = 0; tab < bar.count(); ++tab) {
      EXPECT_LT(WidthOf(bar, bar.tabText(tab)), bar.tabRect(tab).width());
      EXPECT_TRUE(bar.rect().contains(bar.tabRect(tab))) << bar.tabText(tab).toStdString();
    }
  }
  static void ExpectWhole(const QHeaderView& header) {
    for (int section = 0; section < header.count(); ++section) {
      const QString text =
          header.model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
      EXPECT_LE(WidthOf(header, text), header.sectionSize(section)) << text.toStdString();
    }
  }
  static void ExpectInside(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    if (parent == nullptr || widget.isWindow() || widget.objectName().startsWith(u"qt_")) return;
    // What is larger than the screen is scrolled.
    if (parent->objectName() == u"qt_scrollarea_viewport") return;
    EXPECT_TRUE(parent->rect().contains(widget.geometry()))
        << widget.objectName().toStdString() << " in " << parent->objectName().toStdString();
  }

 protected:
  FontSize font_;
  test::World world_;
  test::Desk desk_;
  test::SharedDatabase database_;
};

INSTANTIATE_TEST_SUITE_P(Points, EveryForm, testing::Values(9, 12, 18));

TEST_P(EveryForm, TheAboutBoxIsWhole) {
  const auto form = std::make_shared<frmAbout>();
  Look(*form);
  form->Unload();
}

TEST_P(EveryForm, TheErrorDialogIsWhole) {
  const auto form = std::make_shared<frmErrorMessage>();
  form->SetErrorMessage(
      u"Error number: 9\r\nSubscript out of range\r\n\r\nCalls:\r\n"
      u"Tessel.mFormatText.RunFormatText\r\nTessel.frmFormatText.btmRun_Click");
  form->SetSupportMail(u"help@example.org");
  Look(*form);
  form->Hide();
}

TEST_P(EveryForm, TheFormatterIsWholeOnEveryPage) {
  const auto form = std::make_shared<frmFormatText>();
  form->VBInstance = world_.Environment.VBE();
  for (const int page : {0, 1, 2}) {
    if (page > 0) form->C1TCodeObject.SetCurrTab(page);
    Look(*form, QStringLiteral("-%1").arg(page));
  }
  form->Unload();
}

TEST_P(EveryForm, TheInsertDialogIsWholeOnBothPages) {
  const auto form = std::make_shared<frmInsertErrorHandlerCode>();
  form->VBInstance = world_.Environment.VBE();
  Look(*form, QStringLiteral("-types"));
  form->C1TTab1Tab2.SetCurrTab(1);
  forms::user::Pick(form->ComCurrentScheme, 0);
  Look(*form, QStringLiteral("-scheme"));
  form->Unload();
}

TEST_P(EveryForm, TheRemoveDialogIsWhole) {
  const auto form = std::make_shared<frmRemoveErrorHandlerCode>();
  form->VBInstance = world_.Environment.VBE();
  Look(*form);
  form->Unload();
}

TEST_P(EveryForm, TheSchemeEditorIsWhole) {
  const auto form = std::make_shared<frmErrorHandlerScheme>();
  form->VBInstance = world_.Environment.VBE();
  Look(*form);
  form->Unload();
}

TEST_P(EveryForm, TheSnippetManagerIsWholeOnEveryRowAndPage) {
  test::OpenLibraries libraries;
  const auto tree = libraries.Add(u"Marlow");
  libraries.Add(u"UserConnect1");
  const auto folder = tree->AddNode(u"Dates and times", TopID, 0, 0, FolderKind);
  ListFragment fragment;
  fragment.Text = u"' The first day of a month.\r\nDebug.Print FirstOfMonth(Date)\r\n";
  fragment.TitleObj = u"Attribute VB_Name = \"modDates\"\r\n";
  fragment.TextObj =
      u"Option Explicit\r\n\r\nPublic Function FirstOfMonth(ByVal Day As Date) As Date\r\n"
      u"    FirstOfMonth = DateSerial(Year(Day), Month(Day), 1) ' midnight\r\nEnd Function\r\n";
  fragment.NameObj = u"modDates";
  fragment.ClassObj = u"BAS";
  fragment.TextUserNotes = u"Works for every date of the calendar.";
  const auto record = tree->AddNode(u"First and last day of a month", folder, 0, 0, RecordKind);
  tree->UpdateListFragment(record, fragment);
  static_cast<void>(tree->AddNode(u"Weekday by name", folder, 0, 0, RecordKind));
  const auto form = std::make_shared<frmFragmentBuilder>();
  form->VBInstance = world_.Environment.VBE();
  Look(*form, QStringLiteral("-database"));
  forms::user::Press(form->btmExpand);
  for (const int page : {0, 1, 2}) {
    forms::user::SelectRow(form->fgTree, 2, 0);
    form->C1TCodeObject.SetCurrTab(page);
    Look(*form, QStringLiteral("-%1").arg(page));
  }
  form->Unload();
}

TEST_P(EveryForm, TheSchemeEditorCanBeReadOnADarkPalette) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(53, 53, 53), QColor(42, 42, 42)));
  const auto form = std::make_shared<frmErrorHandlerScheme>();
  form->VBInstance = world_.Environment.VBE();
  Look(*form, QStringLiteral("-dark"));
  auto& footer = desk_.Find<QPlainTextEdit>(*form, "RicFooter");
  const QColor base = footer.palette().color(QPalette::Base);
  EXPECT_LT(base.lightness(), 60);
  int colored = 0;
  for (QTextBlock line = footer.document()->firstBlock(); line.isValid(); line = line.next()) {
    for (const auto& range : line.layout()->formats()) {
      EXPECT_GT(range.format.foreground().color().lightness(), base.lightness() + 90);
      ++colored;
    }
  }
  EXPECT_GT(colored, 0);
  form->Unload();
  QApplication::setPalette(before);
}

TEST_P(EveryForm, TheBuildersAreWhole) {
  world_.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"CustomerOrderPosition", u"");
  const auto look = [this](const auto& form) {
    form->VBInstance = world_.Environment.VBE();
    Look(*form);
    form->Unload();
  };
  look(std::make_shared<frmProcedureBuilder>());
  look(std::make_shared<frmPropertyBuilder>());
  look(std::make_shared<frmClassBuilder>());
  look(std::make_shared<frmEnumBuilder>());
}

TEST_P(EveryForm, TheDialogsOfArgumentsAndMembersAreWhole) {
  const auto argument = std::make_shared<frmArgumentBuilder>();
  argument->TableType = {u"(None)", u"Collection", u"Currency"};
  Look(*argument);
  argument->Unload();
  const auto member = std::make_shared<frmParameterEnum>();
  Look(*member);
  member->Unload();
}

TEST_P(EveryForm, TheSettingsAreWholeOnEveryPage) {
  const auto form = std::make_shared<frmSettings>();
  form->VBInstance = world_.Environment.VBE();
  desk_.Open(*form);
  for (int page = 0; page < static_cast<int>(form->VSIndexTab1.Pages().size()); ++page) {
    forms::user::Pick(form->List1, page);
    Look(*form, QStringLiteral("-%1").arg(page));
  }
  form->Unload();
}

TEST_P(EveryForm, TheProgressWindowIsWholeWithLongMessages) {
  const auto form = std::make_shared<ProgressBarWindow>(u"Format Text");
  desk_.Open(*form);
  form->SetPRBCount1(10);
  form->SetPRBCount2(4);
  form->SetPRBsi1(7);
  form->SetPRBsi2(1);
  form->SetMessage1(u"Component: CustomerOrderPositionsWithHistory");
  form->SetMessage2(u"Member: CalculateThePriceOfEveryPositionOfTheCurrentOrderAndStoreIt");
  Look(*form);
  form->Unload();
}

}  // namespace
}  // namespace tessel::workbench
