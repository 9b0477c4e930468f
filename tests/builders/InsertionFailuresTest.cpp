// Every builder with every call of the host failing behind OK, and each answer of the user.

#include <gtest/gtest.h>

#include <map>

#include "builders/frmClassBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmProcedureBuilder.h"
#include "builders/frmPropertyBuilder.h"
#include "forms/User.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "scanning/mFunctions.h"
#include "support/FakeConnect.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace tessel {
namespace {

namespace user = forms::user;

/// A root that closes what it is told to close.
struct ClosingConnect : test::FakeConnect {
  std::shared_ptr<forms::Form> Dialog;
  void Close() const {
    if (Dialog) Dialog->Unload();
  }
  void HideProcedureBuilder() override { Close(); }
  void HidePropertyBuilder() override { Close(); }
  void HideClassBuilder() override { Close(); }
  void HideEnum() override { Close(); }
};

struct Played {
  std::vector<std::string> Calls;  ///< of the host behind OK
  std::map<String, String> Texts;  ///< of all components
  std::size_t Reports = 0;
  bool Closed = false;
};

/// Presses OK of a builder in a world with one module and one class; the nth call behind it fails
/// (0: none) and the user answers so.
template <class Dialog, class Fill>
Played Play(const Fill& fill, std::size_t nth, StringView answer) {
  test::World world;
  const test::SharedDatabase database;
  world.Module(u"M", u"Option Explicit\r\n\r\nSub A()\r\nEnd Sub");
  world.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"Order", u"Option Explicit");
  world.Environment.SelectComponent(u"M");
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  const auto root = std::make_shared<ClosingConnect>();
  const auto dialog = std::make_shared<Dialog>();
  root->Dialog = dialog;
  dialog->VBInstance = world.Environment.VBE();
  test::Attach(*dialog, root);
  auto& desktop = world.Services.DesktopService;
  desktop.OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btmOK")); };
  dialog->Show();
  user::Check(dialog->Part.chkHeader, 0);
  fill(*dialog);
  desktop.OnModal = [answer](forms::Form& form) { user::Press(*form.Find(answer)); };
  Played played;
  world.Environment.SetOperationHook([&](std::string_view call) {
    played.Calls.emplace_back(call);
    if (played.Calls.size() == nth) throw vb::Failure(7, u"no room");
  });
  user::Press(dialog->Part.btmOK);
  world.Environment.SetOperationHook({});
  played.Reports = world.Errors.Take().size();
  played.Closed = !dialog->IsLoaded();
  const auto components = world.Environment.VBE()->ActiveVBProject()->VBComponents();
  for (int index = 1; index <= components->Count(); ++index) {
    const String name = components->Item(index)->Name();
    played.Texts[name] = world.Text(name);
  }
  dialog->Unload();
  root->Dialog.reset();
  gErrorHandler.reset();
  return played;
}

/// The text with one blank line where several follow each other.
String OneBlankLine(String text) {
  const StringView two = u"\r\n\r\n\r\n";
  while (text.find(two) != String::npos) text = vb::Replace(text, two, u"\r\n\r\n");
  return text;
}

/// The text is in whole or not at all, once; only a run that went through
/// closes the dialog; Retry gives what no failure would have given.
template <class Dialog, class Fill>
void ExpectWhole(const Fill& fill) {
  const Played before = Play<Dialog>(
      [&](Dialog& dialog) {
        fill(dialog);
        dialog.VBInstance = nullptr;  // nothing is inserted
      },
      0, u"btnAbort");
  const Played clean = Play<Dialog>(fill, 0, u"btnAbort");
  ASSERT_EQ(clean.Reports, 0U);
  ASSERT_TRUE(clean.Closed);
  ASSERT_NE(clean.Texts, before.Texts);
  for (std::size_t nth = 1; nth <= clean.Calls.size(); ++nth) {
    for (const StringView answer : {u"btnAbort", u"btnRetry", u"btnIgnore"}) {
      SCOPED_TRACE("call " + std::to_string(nth) + ", " + clean.Calls[nth - 1] + ", " +
                   vb::ToUtf8(answer));
      const Played played = Play<Dialog>(fill, nth, answer);
      // Behind an ignored look-up every statement misses its object.
      if (answer != u"btnIgnore") {
        EXPECT_LE(played.Reports, 1U);
      }
      if (answer == u"btnRetry") {
        EXPECT_EQ(played.Texts, clean.Texts);
        EXPECT_TRUE(played.Closed);
      }
      const String& module = played.Texts.at(u"M");
      if (answer == u"btnAbort" && played.Reports > 0) {
        EXPECT_EQ(played.Closed, module == clean.Texts.at(u"M"))
            << "what is in would go in a second time, what isn't would be lost";
      }
      // An ignored look at what stands below costs blank lines too many, never the text.
      EXPECT_TRUE(module == before.Texts.at(u"M") || OneBlankLine(module) == clean.Texts.at(u"M"))
          << vb::ToUtf8(module);
    }
  }
}

TEST(InsertionFailures, AProcedureIsInWholeOrNotAtAll) {
  ExpectWhole<frmProcedureBuilder>(
      [](frmProcedureBuilder& form) { user::Type(form.Name.txtName, u"Mine"); });
}

TEST(InsertionFailures, APropertyIsInWholeOrNotAtAll) {
  ExpectWhole<frmPropertyBuilder>(
      [](frmPropertyBuilder& form) { user::Type(form.Name.txtName, u"Mine"); });
}

TEST(InsertionFailures, AnEnumIsInWholeOrNotAtAll) {
  ExpectWhole<frmEnumBuilder>([](frmEnumBuilder& form) {
    user::Type(form.Name.txtName, u"Mine");
    user::Press(form.ListParameters.btmAdd);
  });
}

TEST(InsertionFailures, NoBaseClassIsMadeBehindAClassThatWasGivenUp) {
  const auto fill = [](frmClassBuilder& form) { user::Type(form.ComBaseClass, u"Branch"); };
  const Played clean = Play<frmClassBuilder>(fill, 0, u"btnAbort");
  ASSERT_EQ(clean.Texts.count(u"BranchS"), 1U);
  ASSERT_EQ(clean.Texts.count(u"Branch"), 1U);
  for (std::size_t nth = 1; nth <= clean.Calls.size(); ++nth) {
    for (const StringView answer : {u"btnAbort", u"btnRetry"}) {
      SCOPED_TRACE("call " + std::to_string(nth) + ", " + clean.Calls[nth - 1] + ", " +
                   vb::ToUtf8(answer));
      const Played played = Play<frmClassBuilder>(fill, nth, answer);
      if (answer == u"btnRetry") {
        EXPECT_EQ(played.Texts, clean.Texts);
        continue;
      }
      if (played.Reports == 0) continue;  // a look-up that passes over failures
      if (!played.Closed) {
        EXPECT_EQ(played.Texts.size(), 2U) << "what is left is in the way of the next try";
      }
      EXPECT_EQ(played.Closed, played.Texts == clean.Texts);
      for (const auto& [name, text] : played.Texts) {
        EXPECT_FALSE(text.empty()) << "a class without its text: " << vb::ToUtf8(name);
      }
      EXPECT_LE(played.Texts.count(u"Branch"), played.Texts.count(u"BranchS"));
      for (const auto& [name, text] : played.Texts) {
        EXPECT_TRUE(name == u"M" || name == u"Order" || name == u"BranchS" || name == u"Branch")
            << "a class under a name that nobody gave: " << vb::ToUtf8(name);
      }
    }
  }
}

TEST(InsertionFailures, AnIgnoredFailureLeavesBothClassesUnderTheirNamesOrNone) {
  const auto fill = [](frmClassBuilder& form) { user::Type(form.ComBaseClass, u"Branch"); };
  const Played clean = Play<frmClassBuilder>(fill, 0, u"btnAbort");
  for (std::size_t nth = 1; nth <= clean.Calls.size(); ++nth) {
    SCOPED_TRACE("call " + std::to_string(nth) + ", " + clean.Calls[nth - 1]);
    const Played played = Play<frmClassBuilder>(fill, nth, u"btnIgnore");
    EXPECT_EQ(played.Texts.size(), played.Closed ? 4U : 2U);
    for (const auto& [name, text] : played.Texts) {
      EXPECT_EQ(clean.Texts.count(name), 1U) << vb::ToUtf8(name);
    }
  }
}

TEST(InsertionFailures, AnIgnoredLookUpPutsTheTextIntoNoNewModule) {
  const auto fill = [](frmProcedureBuilder& form) { user::Type(form.Name.txtName, u"Mine"); };
  const Played clean = Play<frmProcedureBuilder>(fill, 0, u"btnAbort");
  for (std::size_t nth = 1; nth <= clean.Calls.size(); ++nth) {
    SCOPED_TRACE("call " + std::to_string(nth) + ", " + clean.Calls[nth - 1]);
    const Played played = Play<frmProcedureBuilder>(fill, nth, u"btnIgnore");
    EXPECT_EQ(played.Texts.size(), 2U) << "a module that nobody asked for";
    if (played.Texts.at(u"M").find(u"Mine") == String::npos) {
      EXPECT_FALSE(played.Closed);
    }
  }
}

// Names

TEST(NamesOfBuilders, ReservedWordsLongOnesAndOtherAlphabetsAreTheUsersToChoose) {
  for (const String& name : {String(u"Next"), String(255, u'x'), String(u"Итог"), String(u"été")}) {
    SCOPED_TRACE(vb::ToUtf8(name));
    const Played played = Play<frmProcedureBuilder>(
        [&](frmProcedureBuilder& form) { user::Type(form.Name.txtName, name); }, 0, u"btnAbort");
    EXPECT_EQ(played.Reports, 0U);
    EXPECT_NE(played.Texts.at(u"M").find(u"Public Sub " + name + u" ()"), String::npos);
  }
}

TEST(NamesOfBuilders, EveryBadSymbolIsRefused) {
  for (const char16_t symbol : mFunctions::BadNameSymbols) {
    EXPECT_EQ(builders::NameFault(u"a" + String(1, symbol)), 3) << static_cast<int>(symbol);
  }
  EXPECT_EQ(builders::NameFault(u"Итог"), std::nullopt);
}

TEST(NamesOfBuilders, AClassNameThatTheHostRefusesLeavesNoClassBehind) {
  for (const String& name : {String(245, u'x'), String(u"a.b")}) {
    const Played played = Play<frmClassBuilder>(
        [&](frmClassBuilder& form) { user::Type(form.ComBaseClass, name); }, 0, u"btnAbort");
    EXPECT_EQ(played.Reports, 1U) << vb::ToUtf8(name);
    EXPECT_EQ(played.Texts.size(), 2U) << vb::ToUtf8(name);
    EXPECT_FALSE(played.Closed);
  }
}

TEST(FontsOfBuilders, ThePreviewHasTheFontThatWasKept) {
  test::World world;
  const test::SharedDatabase database;
  gErrorHandler = std::make_shared<CErrorHandler>();
  gAppSettings = std::make_shared<CAppSettings>();
  gAppSettings->Init(u"Norvane", u"Tessel");
  gAppSettings->SaveSetting(u"Font settings\\RicViewEnumBuilder", u"Name", u"Terminal");
  gAppSettings->SaveSetting(u"Font settings\\RicViewEnumBuilder", u"Size", u"14");
  const auto root = std::make_shared<ClosingConnect>();
  const auto dialog = std::make_shared<frmEnumBuilder>();
  dialog->VBInstance = world.Environment.VBE();
  test::Attach(*dialog, root);
  dialog->Load();
  EXPECT_EQ(dialog->Part.Preview.Font->Name, u"Terminal");
  EXPECT_EQ(dialog->Part.Preview.Font->Size, 14);
  dialog->Unload();
  gAppSettings.reset();
}

}  // namespace
}  // namespace tessel
