// Key to picture of the builders' previews: a letter typed into the name of a collection class, and
// a text as long as a collection class with 40 properties in the same box. Prints a table and ends
// with 1 when a key takes longer than it may.

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "builders/CollectionText.h"
#include "builders/PropertyText.h"
#include "builders/frmClassBuilder.h"
#include "hosts/model/Environment.h"
#include "presentation/mCodeConverter.h"
#include "support/SharedDatabase.h"
#include "workbench/forms/Desk.h"

namespace {

using namespace tessel;

constexpr int Keys = 500, Properties = 40;
constexpr double Limit = 16;  // milliseconds

String CollectionWithProperties(int turn) {
  builders::CollectionChoices collection;
  collection.ClassName = u"OrderS" + vb::Str(turn % 10);
  collection.BaseClass = u"Order";
  String text = builders::GeneratorTextClass(collection) + String(vb::CrLf);
  for (int number = 0; number < Properties; ++number) {
    builders::PropertyChoices choices;
    choices.Name = u"Property" + vb::Str(number + turn);
    choices.ValueType = u"Long";
    choices.Prefix = choices.MemberVariable = u"l";
    const builders::PropertyText property = builders::GeneratorTextProperty(choices);
    text += property.Declaration + property.Body;
  }
  return text;
}

/// Runs an action so often, each with the picture behind it; answers whether it keeps the limit.
template <class Action>
bool Measure(const char* what, QWidget& window, const Action& act) {
  std::vector<double> times;
  for (int turn = 0; turn < Keys; ++turn) {
    QElapsedTimer timer;
    timer.start();
    act(turn);
    QApplication::processEvents();
    static_cast<void>(window.grab());
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2], last = times[times.size() * 99 / 100];
  std::printf("%-48s median %6.2f ms, 99th percentile %6.2f ms\n", what, median, last);
  return median <= Limit && last <= Limit;
}

}  // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  test::Desk desk;
  const test::SharedDatabase database;
  model::Environment environment(desk.Services);
  environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
  const auto form = std::make_shared<frmClassBuilder>();
  form->VBInstance = environment.VBE();
  desk.Open(*form);
  QWidget& window = desk.Window(*form);
  auto& name = desk.Find<QWidget>(*form, "txtCollectionClassName");
  const bool key = Measure("key in the name of a collection class", window, [&](int turn) {
    QTest::keyClick(&name, turn % 2 == 0 ? Qt::Key_A : Qt::Key_Backspace);
  });
  const bool text = Measure("a collection class with 40 properties", window, [&](int turn) {
    form->Part.Preview.SetTextRTF(
        mCodeConverter::MakeRTF(CollectionWithProperties(turn), form->Part.Preview.Font->Charset));
  });
  form->Unload();
  return key && text ? 0 : 1;
}
