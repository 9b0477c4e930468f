// Forms for the designer's tests.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/designer/DesignerCanvas.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "tests/support/Modules.h"

namespace tessel::workbench {

/// A form of 300 by 200 pixels: a button, a frame with a check box in it, a label below a picture.
inline constexpr StringView SmallForm =
    u"VERSION 5.00\r\n"
    u"Begin VB.Form Form1 \r\n"
    u"   Caption         =   \"First\"\r\n"
    u"   ClientHeight    =   3000\r\n"
    u"   ClientWidth     =   4500\r\n"
    u"   ScaleHeight     =   3000\r\n"
    u"   ScaleWidth      =   4500\r\n"
    u"   Begin VB.CommandButton cmdGo \r\n"
    u"      Caption         =   \"&Go\"\r\n"
    u"      Height          =   375\r\n"
    u"      Left            =   120\r\n"
    u"      TabIndex        =   0\r\n"
    u"      Top             =   120\r\n"
    u"      Width           =   1215\r\n"
    u"   End\r\n"
    u"   Begin VB.Frame fraBox \r\n"
    u"      Caption         =   \"Box\"\r\n"
    u"      Height          =   1200\r\n"
    u"      Left            =   1800\r\n"
    u"      Top             =   120\r\n"
    u"      Width           =   2400\r\n"
    u"      Begin VB.CheckBox chkInner \r\n"
    u"         Height          =   240\r\n"
    u"         Left            =   240\r\n"
    u"         Top             =   360\r\n"
    u"         Value           =   1  'Checked\r\n"
    u"         Width           =   1200\r\n"
    u"      End\r\n"
    u"   End\r\n"
    u"   Begin VB.Label lblNote \r\n"
    u"      Caption         =   \"Note\"\r\n"
    u"      Height          =   255\r\n"
    u"      Left            =   120\r\n"
    u"      Top             =   1800\r\n"
    u"      Width           =   1215\r\n"
    u"   End\r\n"
    u"End\r\n";

/// An environment with a form, told to a view as the main window does.
class DesignerTest : public testing::Test, public model::Observer {
 protected:
  DesignerTest() {
    auto& vbe = dynamic_cast<model::Vbe&>(*World.Environment.VBE());
    vbe.SetObserver(this);
    Sink = vbe.Events()->VBControlsEvents();
    Sink->ItemAdded = [this](const auto& control) { Note(u"+" + control->ControlObjectName()); };
    Sink->ItemRemoved = [this](const auto& control) { Note(u"-" + control->ControlObjectName()); };
    Sink->ItemRenamed = [this](const auto& control, StringView old, int) {
      Note(String(old) + u">" + control->ControlObjectName());
    };
    UseForm(SmallForm);
  }
  ~DesignerTest() override {
    View.reset();
    dynamic_cast<model::Vbe&>(*World.Environment.VBE()).SetObserver(nullptr);
  }

  void DesignerChanged(model::VBComponent& /*component*/) override {
    if (View) View->Refresh();
  }

  /// Shows a form with this head in place of the one before.
  void UseForm(StringView head) {
    View.reset();
    if (!Component) {
      World.Form(u"Form1", u"");
      Component =
          std::dynamic_pointer_cast<model::VBComponent>(World.Environment.Component(u"Form1"));
    }
    Component->AddDesigner(std::make_shared<model::DesignerTree>(head));
    View = std::make_unique<DesignerView>(Component);
    View->OnFailure = [this](const String& text) { Failures.push_back(text); };
    View->OnSelection = [this](const auto& nodes) {
      ++Selections;
      Chosen.clear();
      for (const auto* node : nodes) Chosen += (Chosen.empty() ? u"" : u" ") + node->Name;
    };
    View->resize(700, 500);
    View->show();
    QApplication::processEvents();
  }

  void Note(const String& event) { Events += (Events.empty() ? u"" : u" ") + event; }
  model::DesignerTree& Tree() { return Component->OwnDesigner()->Tree(); }
  String Text() { return Tree().Text(); }
  model::DesignerNode* Node(StringView name) {
    for (model::DesignerNode* node : Tree().Controls()) {
      if (node->Name == name) return node;
    }
    return nullptr;
  }
  String Raw(StringView name, StringView property) {
    const auto* const node = name == u"Form1" ? Tree().Root() : Node(name);
    return node == nullptr ? u"(gone)" : node->RawValue(property).value_or(u"(none)");
  }
  /// "Left Top Width Height"
  String Place(StringView name) {
    return Raw(name, u"Left") + u" " + Raw(name, u"Top") + u" " + Raw(name, u"Width") + u" " +
           Raw(name, u"Height");
  }

  QWidget* Canvas() { return &View->Canvas(); }
  /// A point of the form's body by twips.
  QPoint At(double x, double y) { return View->Frame().ToPixels(QPointF(x, y)).toPoint(); }
  void Click(QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(Canvas(), Qt::LeftButton, modifiers, point);
    QApplication::processEvents();
  }
  void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mousePress(Canvas(), Qt::LeftButton, modifiers, from);
    QTest::mouseMove(Canvas(), (from + to) / 2);
    QTest::mouseMove(Canvas(), to);
    QTest::mouseRelease(Canvas(), Qt::LeftButton, modifiers, to);
    QApplication::processEvents();
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(Canvas(), static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  void Undo() {
    View->UndoStack().undo();
    QApplication::processEvents();
  }
  void Redo() {
    View->UndoStack().redo();
    QApplication::processEvents();
  }
  /// A corner's or edge's handle of the leading control.
  QPoint HandleOf(StringView name, Handle which) {
    const PlacedControl* const control = View->Layout().Find(Node(name));
    for (const HandlePlace& handle : HandlesOf(View->Frame(), *control)) {
      if (handle.Which == which) return handle.Place.center();
    }
    return {};
  }

  test::World World;
  std::shared_ptr<model::VBComponent> Component;
  std::unique_ptr<DesignerView> View;
  std::shared_ptr<host::VBControlsEvents> Sink;
  String Events, Chosen;
  std::vector<String> Failures;
  int Selections = 0;
};

}  // namespace tessel::workbench
