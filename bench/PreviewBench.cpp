// Key to picture of the builders' previews: a letter typed into the names of a collection class,
// and a text as long as a collection class with 40 properties in the same box, of which the class's
// name or every property changes. The settings are read from a file, as in the workbench. Prints a
// table and ends with 1 when a key takes longer than it may.

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "builders/CollectionText.h"
#include "builders/PropertyText.h"
#include "builders/frmClassBuilder.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "hosts/linux/SqliteRegistry.h"
#include "hosts/model/Environment.h"
#include "presentation/mCodeConverter.h"
#include "support/SharedDatabase.h"
#include "support/TemporaryFolder.h"
#include "workbench/forms/Desk.h"

namespace {

using namespace tessel;

constexpr int Keys = 500, Properties = 40;
constexpr double Limit = 16;  // milliseconds

/// The desktop with settings in a file.
class WithSettings : public platform::Platform {
 public:
  explicit WithSettings(platform::Platform& desktop) : desktop_(desktop) {}
  platform::Registry& Registry() override { return registry_; }
  platform::Boxes& Boxes() override { return desktop_.Boxes(); }
  platform::Screen& Screen() override { return desktop_.Screen(); }
  platform::Clipboard& Clipboard() override { return desktop_.Clipboard(); }
  platform::Shell& Shell() override { return desktop_.Shell(); }
  platform::Clock& Clock() override { return desktop_.Clock(); }
  platform::Windows& Windows() override { return desktop_.Windows(); }
  platform::Identity& Identity() override { return desktop_.Identity(); }
  platform::App& App() override { return desktop_.App(); }
  platform::Files& Files() override { return desktop_.Files(); }

 private:
  platform::Platform& desktop_;
  test::TemporaryFolder folder_;
  linux_host::SqliteRegistry registry_{folder_.Path() / "settings.sqlite"};
};

/// The class's name changes from turn to turn; with `all` those of the properties as well.
String CollectionWithProperties(int turn, bool all) {
  builders::CollectionChoices collection;
  collection.ClassName = u"OrderS" + vb::Str(turn % 10);
  collection.BaseClass = u"Order";
  String text = builders::GeneratorTextClass(collection) + String(vb::CrLf);
  for (int number = 0; number < Properties; ++number) {
    builders::PropertyChoices choices;
    choices.Name = u"Property" + vb::Str(number + (all ? turn : 0));
    choices.ValueType = u"Long";
    choices.Prefix = choices.MemberVariable = u"l";
    const builders::PropertyText property = builders::GeneratorTextProperty(choices);
    text += property.Declaration + property.Body;
  }
  return text;
}

/// Milliseconds of the processor, whatever else runs on the machine.
double Spent() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Runs an action so often, each with the picture behind it; answers whether it keeps the limit.
template <class Action>
bool Measure(const char* what, QWidget& window, const Action& act) {
  std::vector<double> times;
  for (int turn = 0; turn < Keys; ++turn) {
    const double start = Spent();
    act(turn);
    QApplication::processEvents();
    static_cast<void>(window.grab());
    times.push_back(Spent() - start);
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
  WithSettings services(desk.Services);
  const platform::ScopedPlatform scope(services);
  gErrorHandler = std::make_shared<CErrorHandler>();
  gAppSettings = std::make_shared<CAppSettings>();
  gAppSettings->Init(u"Norvane", u"Tessel");
  gAppSettings->SaveSetting(u"Settings\\VBCode\\frmSettings", u"Author", u"Ann Lee");
  const test::SharedDatabase database;
  model::Environment environment(desk.Services);
  environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
  const auto form = std::make_shared<frmClassBuilder>();
  form->VBInstance = environment.VBE();
  desk.Open(*form);
  QWidget& window = desk.Window(*form);
  const auto type = [&](const char* what, const char* control) {
    auto& field = desk.Find<QWidget>(*form, control);
    field.setFocus();
    return Measure(what, window, [&](int turn) {
      QTest::keyClick(&field, turn % 2 == 0 ? Qt::Key_A : Qt::Key_Backspace);
    });
  };
  const auto show = [&](const char* what, bool all) {
    return Measure(what, window, [&](int turn) {
      form->Part.Preview.SetTextRTF(mCodeConverter::MakeRTF(CollectionWithProperties(turn, all),
                                                            form->Part.Preview.Font->Charset));
    });
  };
  bool kept = type("key in the name of a collection class", "txtCollectionClassName");
  kept = type("key in the name of its base class", "ComBaseClass") && kept;
  kept = show("with 40 properties, the class's name changes", false) && kept;
  kept = show("with 40 properties, every property changes", true) && kept;
  form->Unload();
  gAppSettings.reset();
  gErrorHandler.reset();
  return kept ? 0 : 1;
}
