#include "foundation/frmErrorMessage.h"

#include "foundation/CShell.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

struct Escape {
  StringView Text, Code;
};
/// In this order, which the address keeps: the line ends go first, so that their signs are not
/// escaped again.
constexpr Escape Escapes[] = {{u"\r\n", u"%0A"}, {u"\t", u"%09"}, {u":", u"%3A"}, {u"/", u"%2F"},
                              {u"?", u"%3F"},    {u"=", u"%3D"},  {u"&", u"%26"}};

String Escaped(String text) {
  for (const Escape& escape : Escapes) text = vb::Replace(text, escape.Text, escape.Code);
  return text;
}

}  // namespace

frmErrorMessage::frmErrorMessage() : GuardedForm("frmErrorMessage", u"Error") {
  using namespace forms;
  txtErrorMessage.MultiLine = true;
  txtErrorMessage.Locked = true;
  btnAbort.Default = btnAbort.Cancel = true;
  SetLayout(
      Column({Item(elaTitleCaption), Item(txtErrorMessage, 1),
              Row({Item(btnSend), Space(), Item(btnAbort), Item(btnRetry), Item(btnIgnore)})}));
  btnAbort.Click = [this] { Answer(u"ABORT"); };
  btnRetry.Click = [this] { Answer(u"RETRY"); };
  btnIgnore.Click = [this] { Answer(u"IGNORE"); };
  btnSend.Click = [this] { Send(); };
}

void frmErrorMessage::SetErrorMessage(StringView report) {
  Load();
  const platform::Version version = platform::Current().App().ProgramVersion();
  txtErrorMessage.SetText(String(report) + u"\r\nVersion: " + vb::Str(version.Major) + u"." +
                          vb::Str(version.Minor) + u"." + vb::Str(version.Revision));
}

void frmErrorMessage::Form_Activate() {
  platform::Platform& services = platform::Current();
  elaTitleCaption.SetCaption(u"An error occurred in " + services.App().Title());
  btnSend.SetEnabled(!supportMail_.empty());
  services.Shell().Beep();
  services.Screen().SetForeground(*this);
  Tag = u"ABORT";
}

void frmErrorMessage::Answer(StringView word) {
  Tag = word;
  Hide();
}

void frmErrorMessage::Send() {
  const String rule(20, u'-');
  CShell().OpenUrl(u"mailto:" + supportMail_ + u"?subject=" +
                   vb::Replace(elaTitleCaption.Caption(), u" ", u"%20") + u"&body=" + rule +
                   u"%0A" + Escaped(txtErrorMessage.Text()) + u"%0A" + rule + u"%0A%0A");
}

}  // namespace tessel
