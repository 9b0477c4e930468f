// Every call of the host in a run of the error-handler tools fails once, with every answer.

#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/frmRemoveErrorHandlerCode.h"
#include "support/EveryCallFails.h"

namespace tessel {
namespace {

class HandlersRunFailures : public testing::TestWithParam<int> {
 protected:
  const test::RunPlayer Player{
      {{u"M",
        u"Option Explicit\r\n' about A\r\nSub A()\r\na = 1\r\nEnd Sub\r\nSub B()\r\nb = "
        u"1\r\nEnd Sub"},
       {u"N", u"Dim z\r\nSub C()\r\nc = 1\r\nEnd Sub"}}};
  const std::vector<String> Statements{u"Option Explicit", u"Sub A()", u"a = 1",   u"Sub B()",
                                       u"b = 1",           u"Dim z",   u"Sub C()", u"c = 1"};
};

TEST_P(HandlersRunFailures, OfAnInsertionLeaveEverythingInOrder) {
  test::ExpectOrderWhateverFails(Statements, [&](std::size_t nth, platform::MessageAnswer answer) {
    return Player.Play<frmInsertErrorHandlerCode>(
        [](frmInsertErrorHandlerCode& dialog) {
          forms::user::Pick(dialog.ComInsertIN, GetParam());
          const bool project = dialog.C1TTab1Tab2.CurrTab() == 0;
          forms::user::Pick(project ? dialog.ComModule : dialog.ComCurrentScheme, u"Log to File");
        },
        &frmInsertErrorHandlerCode::btmBegin, nth, answer);
  });
}

TEST_P(HandlersRunFailures, OfARemovalLeaveEverythingInOrder) {
  test::ExpectOrderWhateverFails(Statements, [&](std::size_t nth, platform::MessageAnswer answer) {
    return Player.Play<frmRemoveErrorHandlerCode>(
        [](frmRemoveErrorHandlerCode& dialog) {
          forms::user::Pick(dialog.ComRemoveFrom, GetParam());
        },
        &frmRemoveErrorHandlerCode::btmBegin, nth, answer);
  });
}

INSTANTIATE_TEST_SUITE_P(Scopes, HandlersRunFailures, testing::Values(0, 1, 2));

}  // namespace
}  // namespace tessel
