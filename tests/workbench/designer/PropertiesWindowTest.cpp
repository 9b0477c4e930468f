#include "hosts/workbench/designer/PropertiesWindow.h"

#include <QLineEdit>

#include "hosts/workbench/platform/Text.h"
#include "tests/workbench/designer/Forms.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

class PropertiesTest : public DesignerTest {
 protected:
  PropertiesTest() {
    Window.resize(300, 600);
    Window.show();
    ShowControls({u"cmdGo"});
  }
  void DesignerChanged(model::VBComponent& component) override {
    DesignerTest::DesignerChanged(component);
    Window.Refresh();
  }
  void ShowControls(const std::vector<StringView>& names) {
    std::vector<model::DesignerNode*> nodes;
    for (const StringView name : names) nodes.push_back(Node(name));
    Window.ShowObjects(Component, nodes, View->Editor());
  }
  int RowOf(StringView property) {
    for (int row = 0; row < Window.Table().rowCount(); ++row) {
      if (FromQt(Window.Table().item(row, 0)->text()) == property) return row;
    }
    return -1;
  }
  String Value(StringView property) {
    const int row = RowOf(property);
    return row < 0 ? u"(none)" : FromQt(Window.Table().item(row, 1)->text());
  }
  /// The field in the table is closed in one turn of the loop, the table read again in the next.
  static void LetItSettle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  /// Types a value as a user does.
  void Type(StringView property, const QString& value) {
    Window.EditProperty(property);
    auto* const field = Window.Table().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    field->selectAll();
    QTest::keyClicks(field, value);
    QTest::keyClick(field, Qt::Key_Return);
    LetItSettle();
  }
  /// Sets a value that is chosen from a list.
  void Choose(StringView property, const QString& value) {
    Window.EditProperty(property);
    auto* const list = Window.Table().viewport()->findChild<QComboBox*>();
    ASSERT_NE(list, nullptr);
    list->setCurrentIndex(list->findText(value));
    emit list->activated(list->currentIndex());
    LetItSettle();
  }

  PropertiesWindow Window;
};

TEST_F(PropertiesTest, ListsTheObjectsOfTheDesigner) {
  QStringList texts;
  for (int at = 0; at < Window.Objects().count(); ++at) texts << Window.Objects().itemText(at);
  EXPECT_EQ(texts,
            (QStringList{u"Form1 Form"_qs, u"chkInner CheckBox"_qs, u"cmdGo CommandButton"_qs,
                         u"fraBox Frame"_qs, u"lblNote Label"_qs}));
  EXPECT_EQ(Window.Objects().currentText(), u"cmdGo CommandButton");
}

TEST_F(PropertiesTest, ChoosesAnObjectInTheList) {
  String chosen;
  Window.OnChosen = [&](model::DesignerNode* node) { chosen = node->Name; };
  Window.Objects().setCurrentIndex(4);
  emit Window.Objects().activated(4);
  EXPECT_EQ(chosen, u"lblNote");
  EXPECT_EQ(Value(u"Caption"), u"Note");
}

TEST_F(PropertiesTest, WritesATypedValueIntoTheFile) {
  const String before = Text();
  Type(u"Caption", u"&Run \"it\""_qs);
  EXPECT_EQ(Raw(u"cmdGo", u"Caption"), u"\"&Run \"\"it\"\"\"");
  EXPECT_EQ(Value(u"Caption"), u"&Run \"it\"");
  View->UndoStack().undo();
  QApplication::processEvents();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Value(u"Caption"), u"&Go");
}

TEST_F(PropertiesTest, MovesTheDrawnControl) {
  Type(u"Left", u"1500"_qs);
  EXPECT_EQ(View->Layout().Find(Node(u"cmdGo"))->Bounds.left(), 1500);
}

TEST_F(PropertiesTest, ShowsThePlaceOfAFormsWindow) {
  ShowControls({});
  EXPECT_EQ(Value(u"Width") + u" " + Value(u"Height"), u"4620 3405");
  EXPECT_EQ(Value(u"ClientWidth") + Value(u"ClientLeft"), u"(none)(none)");
  EXPECT_EQ(Value(u"Left") + Value(u"Top"), u"");
  const String before = Text();
  Type(u"Width", u"6120"_qs);
  EXPECT_EQ(Raw(u"Form1", u"ClientWidth") + u" " + Raw(u"Form1", u"ScaleWidth"), u"6000 6000");
  EXPECT_EQ(Raw(u"Form1", u"Width"), u"(none)");
  Type(u"Left", u"0"_qs);
  EXPECT_EQ(Raw(u"Form1", u"ClientLeft"), u"60");
  EXPECT_EQ(Value(u"Left"), u"0");
  Type(u"Top", u"300"_qs);
  EXPECT_EQ(Raw(u"Form1", u"ClientTop"), u"645");
  for (int edit = 0; edit < 3; ++edit) View->UndoStack().undo();
  EXPECT_EQ(Text(), before);
}

TEST_F(PropertiesTest, MeasuresAFormsWindowByItsBorderAndMenus) {
  UseForm(
      u"Begin VB.Form Form1 \r\n   BorderStyle = 4\r\n   ClientHeight = 3000\r\n"
      u"   ClientLeft = 45\r\n   ClientTop = 570\r\n   ClientWidth = 4500\r\n"
      u"   Begin VB.Menu mnuFile \r\n      Caption = \"File\"\r\n   End\r\nEnd\r\n");
  ShowControls({});
  EXPECT_EQ(Value(u"Left") + u" " + Value(u"Top"), u"0 0");
  EXPECT_EQ(Value(u"Width") + u" " + Value(u"Height"), u"4590 3615");
}

TEST_F(PropertiesTest, ShowsTheSizeOfASurfaceWithoutAWindow) {
  UseForm(
      u"Begin VB.UserControl Form1 \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\n"
      u"   Height = 3000\r\nEnd\r\n");
  ShowControls({});
  EXPECT_EQ(Value(u"Width") + u" " + Value(u"Height"), u"4500 3000");
  Type(u"Height", u"1500"_qs);
  EXPECT_EQ(Raw(u"Form1", u"ClientHeight") + u" " + Raw(u"Form1", u"Height"), u"1500 1500");
}

TEST_F(PropertiesTest, AddsAPropertyThatTheFileHadNot) {
  const String before = Text();
  EXPECT_EQ(Value(u"Tag"), u"");
  Type(u"Tag", u"7"_qs);
  EXPECT_EQ(Raw(u"cmdGo", u"Tag"), u"\"7\"");
  Choose(u"Enabled", u"False"_qs);
  EXPECT_EQ(Raw(u"cmdGo", u"Enabled"), u"0   'False");
  Choose(u"Style", u"1 - Graphical"_qs);
  EXPECT_EQ(Raw(u"cmdGo", u"Style"), u"1   'Graphical");
  for (int edit = 0; edit < 3; ++edit) View->UndoStack().undo();
  EXPECT_EQ(Text(), before);
}

TEST_F(PropertiesTest, RenamesWithTheHostsEvent) {
  Type(u"(Name)", u"cmdRun"_qs);
  EXPECT_EQ(Events, u"cmdGo>cmdRun");
  EXPECT_EQ(Window.Objects().currentText(), u"cmdRun CommandButton");
}

TEST_F(PropertiesTest, BringsTheOldValueBackWhenAnEditIsRefused) {
  const String before = Text();
  Type(u"(Name)", u"lblNote"_qs);
  EXPECT_EQ(Value(u"(Name)"), u"cmdGo");
  Type(u"Width", u"broad"_qs);
  EXPECT_EQ(Value(u"Width"), u"1215");
  EXPECT_EQ(Failures, (std::vector<String>{u"The form has a control \"lblNote\" already",
                                           u"Invalid property value"}));
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(View->UndoStack().count(), 0);
}

TEST_F(PropertiesTest, ChangesAllChosenControlsAtOnce) {
  ShowControls({u"cmdGo", u"lblNote"});
  EXPECT_EQ(Value(u"Top"), u"");
  EXPECT_EQ(Value(u"Width"), u"1215");
  EXPECT_EQ(Value(u"(Name)"), u"(none)");
  Type(u"Top", u"600"_qs);
  EXPECT_EQ(Raw(u"cmdGo", u"Top"), u"600");
  EXPECT_EQ(Raw(u"lblNote", u"Top"), u"600");
  EXPECT_EQ(View->UndoStack().count(), 1);
}

TEST_F(PropertiesTest, ShowsTheFormWhenItsControlIsGone) {
  World.Environment.RemoveControl(u"Form1", u"cmdGo");
  QApplication::processEvents();
  EXPECT_EQ(Window.Objects().currentText(), u"Form1 Form");
  EXPECT_EQ(Value(u"Caption"), u"First");
}

TEST_F(PropertiesTest, FollowsAChangeFromElsewhere) {
  Tree().SetProperty(*Node(u"cmdGo"), u"Caption", u"Other");
  QApplication::processEvents();
  EXPECT_EQ(Value(u"Caption"), u"Other");
}

TEST_F(PropertiesTest, KeepsAValueThatIsBeingTypedWhenAnotherOneChanges) {
  Window.EditProperty(u"Caption");
  auto* const field = Window.Table().viewport()->findChild<QLineEdit*>();
  ASSERT_NE(field, nullptr);
  field->setText(u"half"_qs);
  Tree().SetProperty(*Node(u"cmdGo"), u"Left", u"240");
  QApplication::processEvents();
  EXPECT_EQ(field->text(), u"half");
  EXPECT_EQ(Value(u"Left"), u"240");
}

TEST_F(PropertiesTest, DoesNotOpenReadOnlyValues) {
  Tree().SetRawValue(*Node(u"cmdGo"), u"Picture", u"\"Form1.frx\":0000");
  QApplication::processEvents();
  EXPECT_EQ(Value(u"Picture"), u"(Binary) \"Form1.frx\":0000");
  Window.EditProperty(u"Picture");
  EXPECT_EQ(Window.Table().viewport()->findChild<QLineEdit*>(), nullptr);
}

TEST_F(PropertiesTest, ShowsAndRenamesAComponentWithoutADesigner) {
  World.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"Class1", u"");
  World.Module(u"Module1", u"");
  const auto component =
      std::dynamic_pointer_cast<model::VBComponent>(World.Environment.Component(u"Class1"));
  Window.OnFailure = [this](const String& text) { Failures.push_back(text); };
  Window.ShowObjects(component, {});
  EXPECT_EQ(Window.Objects().currentText(), u"Class1 Class Module");
  ASSERT_EQ(Window.Table().rowCount(), 1);
  Type(u"(Name)", u"Module1"_qs);
  ASSERT_EQ(Failures.size(), 1U);
  EXPECT_EQ(Value(u"(Name)"), u"Class1");
  Type(u"(Name)", u"Customer"_qs);
  EXPECT_EQ(component->PlainName(), u"Customer");
  EXPECT_EQ(Window.Objects().currentText(), u"Customer Class Module");
}

TEST_F(PropertiesTest, ShowsNothingOfNoComponent) {
  Window.ShowObjects(nullptr, {});
  EXPECT_EQ(Window.Objects().count(), 0);
  EXPECT_EQ(Window.Table().rowCount(), 0);
  Window.Refresh();
  QApplication::processEvents();
}

TEST_F(PropertiesTest, TellsAFailureOfTheHostItself) {
  const auto component = std::dynamic_pointer_cast<model::VBComponent>(
      World.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"Class1", u""));
  Window.OnFailure = [this](const String& text) { Failures.push_back(text); };
  World.Environment.SetOperationHook([](std::string_view operation) {
    if (operation == "VBComponent.Properties") throw vb::Failure(7, u"Out of memory");
  });
  Window.ShowObjects(component, {});
  World.Environment.SetOperationHook({});
  EXPECT_EQ(Failures, std::vector<String>{u"Out of memory"});
  EXPECT_EQ(Window.Table().rowCount(), 0);
}

TEST_F(PropertiesTest, OpensAValueOnAClickAndByTyping) {
  auto& table = Window.Table();
  const int row = RowOf(u"Caption");
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                    table.visualItemRect(table.item(row, 0)).center());
  EXPECT_NE(table.viewport()->findChild<QLineEdit*>(), nullptr);
}

}  // namespace
}  // namespace tessel::workbench
