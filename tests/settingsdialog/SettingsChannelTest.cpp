// The Settings dialog as a script sees it, and the builders behind it.

#include "support/DialogChannel.h"

namespace tessel {
namespace {

class SettingsChannel : public test::DialogChannel {
 protected:
  void Begin() {
    Connect();
    Project();
    Component(1, "Module1", "Option Explicit");
    Select("Module1");
  }
};

TEST_F(SettingsChannel, EveryBuilderOpensWithWhatWasSaved) {
  Begin();
  Open("Setttings");
  Pick("List1", "Procedure");
  Pick("ComTypeProcedure", "Function");
  Pick("ComReturnValueTypeProcedure", "Long");
  Check("chkOptional", 0);
  Press("OptByVal");
  Pick("List1", "Property");
  Pick("ComValueTipeProperty", "String");
  Check("chkLetSet", 0);
  Pick("List1", "Class");
  Type("txtPrefixClass", "mcol");
  Check("chkHeaderClass", 0);
  Pick("List1", "Enum");
  Pick("ComAccessibilityEnum", "Private");
  Type("txtPrefixEnum", "e");
  Press("btmSave");
  Press("btmExit");
  Open("Procedure Builder");
  Form();
  Press("btmAdd");
  Form();
  Press("btmCansel");
  Press("btmCancel");
  Open("Property Builder");
  Form();
  Press("btmCancel");
  Open("Collection Builder");
  Form();
  Press("btmCancel");
  Open("Enum Builder");
  Form();
  Press("btmAdd");
  Form();
  Play();
  const auto forms = Forms();
  ASSERT_EQ(forms.size(), 6U);
  EXPECT_EQ(Control(forms[0], "ComType").at("text"), "Function");
  EXPECT_EQ(Control(forms[0], "ComReturnValueType").at("text"), "Long");
  EXPECT_EQ(Control(forms[1], "lblResult").at("caption"), "ByVal N ");
  EXPECT_EQ(Control(forms[2], "ComValueType").at("text"), "String");
  EXPECT_EQ(Control(forms[2], "chkLetSet").at("value"), 0);
  const std::string collection = Control(forms[3], "RicViewClassBuilder").at("text");
  EXPECT_NE(collection.find("Private mcolNameS  As Collection"), std::string::npos) << collection;
  EXPECT_EQ(Control(forms[4], "ComAccessibility").at("text"), "Private");
  EXPECT_EQ(Control(forms[5], "txtPrefix").at("text"), "e");
}

TEST_F(SettingsChannel, WithoutIncludeTheHeaderNamesNobody) {
  for (const int include : {1, 0}) {
    SCOPED_TRACE(include);
    Begin();
    Open("Setttings");
    Type("txtAuthor", "A. Person");
    Check("chkIncludeA", include);
    Check("chkIncludeD", 0);
    Press("btmSave");
    Press("btmExit");
    Open("Procedure Builder");
    Form();
    const std::string text = Control(Play(), "RicViewProcedureBuilder").at("text");
    EXPECT_NE(text.find(include == 1 ? "' Author     : A. Person\r\n" : "' Author     : \r\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("' DateTime   : \r\n"), std::string::npos) << text;
    Forget();
  }
}

TEST_F(SettingsChannel, ATypeThatWasAddedIsOfferedByTheNextBuilder) {
  Begin();
  Open("Setttings");
  Pick("List1", "Exceptions");
  Press("btmAdd");
  Ask({{"do", "answer"}, {"text", "Decimal"}});
  Press("btmExit");
  Open("Property Builder");
  Pick("ComValueType", "Decimal");
  Form();
  EXPECT_EQ(Control(Play(), "ComValueType").at("text"), "Decimal");
}

TEST_F(SettingsChannel, AChosenFontIsThatOfThePreview) {
  Begin();
  Open("Setttings");
  Pick("List1", "Enum");
  Press("btmRicViewEnumBuilder");
  Ask({{"do", "answer"}, {"font", {{"name", "Terminal"}, {"size", 12}}}});
  Form();
  EXPECT_EQ(Control(Play(), "txtRicViewEnumBuilder").at("text"), "Terminal");
}

TEST_F(SettingsChannel, ThePagesAreTurnedByTheListAlone) {
  Begin();
  Open("Setttings");
  Pick("List1", "Control Type");
  Form();
  EXPECT_EQ(Control(Play(), "VSIndexTab1").at("index"), 7);
}

}  // namespace
}  // namespace tessel
