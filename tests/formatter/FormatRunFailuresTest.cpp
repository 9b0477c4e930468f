// Every call of the host in a run of the formatter fails once, with every answer.

#include "formatter/frmFormatText.h"
#include "support/EveryCallFails.h"

namespace tessel {
namespace {

class FormatRunFailures : public testing::TestWithParam<int> {};

TEST_P(FormatRunFailures, LeaveEverythingInOrder) {
  const test::RunPlayer player(
      {{u"M",
        u"Option Explicit\r\n' about A\r\nSub A()\r\na = 1\r\nEnd Sub\r\nSub "
        u"B()\r\nb = 1\r\nEnd Sub"},
       {u"N", u"Dim z\r\nSub C()\r\nc = 1\r\nEnd Sub"}});
  test::ExpectOrderWhateverFails(
      {u"Option Explicit", u"Sub A()", u"a = 1", u"Sub B()", u"b = 1", u"Dim z", u"Sub C()",
       u"c = 1"},
      [&](std::size_t nth, platform::MessageAnswer answer) {
        return player.Play<frmFormatText>(
            [](frmFormatText& dialog) { forms::user::Pick(dialog.ComModule, GetParam()); },
            &frmFormatText::btmRun, nth, answer);
      });
}

INSTANTIATE_TEST_SUITE_P(Scopes, FormatRunFailures, testing::Values(0, 1, 2));

}  // namespace
}  // namespace tessel
