#include "addin/frmAbout.h"

#include "insertion/mGlobals.h"
#include "platform/Platform.h"

namespace tessel {

frmAbout::frmAbout() : GuardedForm("frmAbout", u"About Tessel") {
  using namespace forms;
  btmOK.Default = btmOK.Cancel = true;
  SetLayout(Column({Row({Item(picIcon), Column({Item(lblTitle), Item(lblVersion)}), Space()}),
                    Item(lblDescription), Space(), Row({Space(), Item(btmOK), Item(btmHelp)})}));
  btmOK.Click = [this] { Unload(); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(); };
}

void frmAbout::Form_Load() {
  platform::App& app = platform::Current().App();
  const platform::Version version = app.ProgramVersion();
  lblTitle.SetCaption(app.Title());
  lblVersion.SetCaption(u"Version " + vb::Str(version.Major) + u"." + vb::Str(version.Minor) +
                        u"." + vb::Str(version.Revision));
}

}  // namespace tessel
