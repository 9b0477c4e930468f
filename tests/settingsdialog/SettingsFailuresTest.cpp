// What fails while the settings are edited, and each answer of the user.

#include <gtest/gtest.h>

#include "foundation/Defaults.h"
#include "platform/GroupedChanges.h"
#include "settingsdialog/frmSettings.h"
#include "support/DialogWorld.h"

namespace tessel {
namespace {

namespace user = forms::user;

constexpr int NameColumn = 1, PrefixColumn = 2;
constexpr StringView Answers[] = {u"btnAbort", u"btnRetry", u"btnIgnore"};

class FailingSettings : public test::DialogWorld {
 protected:
  ~FailingSettings() override {
    if (dialog_) dialog_->Unload();
    Desktop().OnModal = nullptr;
  }
  void Begin(StringView page) {
    dialog_ = std::make_shared<frmSettings>();
    Give(*dialog_);
    dialog_->PageName = page;
    dialog_->Show();
  }
  /// Takes the table of types away until the user has been asked, who answers so.
  void TakeTableAway(StringView answer) {
    database_.Connection->Execute(u"ALTER TABLE MemberType RENAME TO Gone");
    Desktop().OnModal = [this, answer](forms::Form& form) {
      database_.Connection->Execute(u"ALTER TABLE Gone RENAME TO MemberType");
      user::Press(*form.Find(answer));
    };
  }
  [[nodiscard]] std::vector<String> Table() const {
    store::Recordset records;
    records.Open(u"SELECT * FROM MemberType ORDER BY MemberType.Name", database_.Connection);
    std::vector<String> rows;
    for (; !records.Eof(); records.MoveNext()) {
      rows.push_back(store::ToText(records.Field(u"Name")) + u" " +
                     store::ToText(records.Field(u"Prefix")));
    }
    return rows;
  }
  /// Rows of the grid, in the order of the table; a new one stands last until the next opening.
  [[nodiscard]] std::vector<String> Grid() const {
    std::vector<String> rows;
    const forms::Grid& grid = dialog_->fgTable;
    for (int row = 1; row < grid.Rows(); ++row) {
      rows.push_back(grid.TextMatrix(row, NameColumn) + u" " + grid.TextMatrix(row, PrefixColumn));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  [[nodiscard]] int RowOf(StringView name) const {
    for (int row = 1; row < dialog_->fgTable.Rows(); ++row) {
      if (dialog_->fgTable.TextMatrix(row, NameColumn) == name) return row;
    }
    return -1;
  }
  /// One failure, one report; the dialog stays, and its grid shows what the table holds.
  void ExpectReported(const std::string& routine) {
    const auto reports = world_.Errors.Take();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(vb::ToUtf8(reports[0]).find("frmSettings." + routine), std::string::npos)
        << vb::ToUtf8(reports[0]);
    EXPECT_TRUE(dialog_->Visible());
    EXPECT_EQ(Grid(), Table());
  }

  std::shared_ptr<frmSettings> dialog_;
};

TEST_F(FailingSettings, ARecordThatCantBeAddedIsReportedAndLeavesNothingBehind) {
  for (const StringView answer : Answers) {
    SCOPED_TRACE(vb::ToUtf8(answer));
    Begin(u"Exceptions");
    const std::vector<String> before = Table();
    TakeTableAway(answer);
    const String name = u"Zz" + String(answer);
    Desktop().Inputs = {name};
    user::Press(dialog_->btmAdd);
    ExpectReported("btmAdd_Click");
    EXPECT_EQ(Table().size(), before.size() + (answer == u"btnRetry" ? 1 : 0));
    dialog_->Unload();
  }
}

TEST_F(FailingSettings, AnEditThatCantBeWrittenIsReportedAndTakenBack) {
  for (const StringView answer : Answers) {
    SCOPED_TRACE(vb::ToUtf8(answer));
    Begin(u"Exceptions");
    TakeTableAway(answer);
    const String prefix = u"p" + String(answer);
    user::EditCell(dialog_->fgTable, RowOf(u"Long"), PrefixColumn, prefix);
    ExpectReported("fgTable_AfterEdit");
    const bool written = dialog_->fgTable.TextMatrix(RowOf(u"Long"), PrefixColumn) == prefix;
    EXPECT_EQ(written, answer == u"btnRetry");
    dialog_->Unload();
  }
}

TEST_F(FailingSettings, ARecordThatCantBeDeletedIsReportedAndStays) {
  for (const StringView answer : Answers) {
    SCOPED_TRACE(vb::ToUtf8(answer));
    Begin(u"Exceptions");
    user::SelectRow(dialog_->fgTable, RowOf(u"Long"), NameColumn);
    TakeTableAway(answer);
    Desktop().Answers = {platform::MessageAnswer::Yes};
    user::Press(dialog_->btmDelete);
    ExpectReported("btmDelete_Click");
    EXPECT_EQ(RowOf(u"Long") < 0, answer == u"btnRetry");
    if (RowOf(u"Long") < 0) {
      database_.Connection->Execute(
          u"INSERT INTO MemberType (Name, Prefix) VALUES (\"Long\", \"l\")");
    }
    dialog_->Unload();
  }
}

TEST_F(FailingSettings, ARowThatAnotherHasChangedIsNotOverwritten) {
  Begin(u"Exceptions");
  database_.Connection->Execute(u"UPDATE MemberType SET Prefix = \"other\" WHERE Name = \"Long\"");
  Desktop().OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btnIgnore")); };
  user::EditCell(dialog_->fgTable, RowOf(u"Long"), PrefixColumn, u"mine");
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  const std::vector<String> rows = Table();
  EXPECT_NE(std::find(rows.begin(), rows.end(), u"Long other"), rows.end());
}

TEST_F(FailingSettings, ATextThatIsNoTruthValueIsReportedAndTakenBack) {
  Begin(u"Control Type");
  Desktop().OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btnIgnore")); };
  user::EditCell(dialog_->fgTableControl, 1, 3, u"perhaps");
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_EQ(dialog_->fgTableControl.TextMatrix(1, 3), u"True");
}

TEST_F(FailingSettings, WithoutTheDatabaseTheDialogOpensAndTellsWhatIsMissing) {
  gConnectionMDBs.reset();
  std::size_t shown = 0;
  Desktop().OnModal = [&](forms::Form& form) {
    ++shown;
    user::Press(*form.Find(u"btnIgnore"));
  };
  Begin(u"Author");
  EXPECT_EQ(world_.Errors.Take().size(), 5U) << "three lists and two tables";
  EXPECT_EQ(shown, 5U);
  EXPECT_TRUE(dialog_->Visible());
  user::Pick(dialog_->List1, u"Exceptions");
  Desktop().Inputs = {u"Decimal"};
  user::Press(dialog_->btmAdd);
  EXPECT_EQ(world_.Errors.Take().size(), 1U) << "nothing to add to";
  user::Press(dialog_->btmDelete);
}

TEST_F(FailingSettings, ASettingThatCantBeWrittenIsReportedAndRetried) {
  Begin(u"Author");
  user::Type(dialog_->txtAuthor, u"A. Person");
  world_.Services.RegistryService.FailWrites = vb::Failure(7, u"no room");
  Desktop().OnModal = [this](forms::Form& form) {
    world_.Services.RegistryService.FailWrites.reset();
    user::Press(*form.Find(u"btnRetry"));
  };
  user::Press(dialog_->btmSave);
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_EQ(DefaultText(u"IncludeAutor", u""), u"1");
  EXPECT_EQ(DefaultText(u"Author", u""), u"A. Person");
  EXPECT_EQ(DefaultText(u"AutoPosition", u""), u"1") << "and all behind it";
}

TEST_F(FailingSettings, ATypeThatTheListLacksStaysStored) {
  gAppSettings->SaveSetting(DefaultsSection, u"ComValueTipeProperty", u"clsGone");
  gAppSettings->SaveSetting(DefaultsSection, u"ComStaticProperty", u"");
  Begin(u"Property");
  user::Pick(dialog_->ComTypeArgument, u"Date");
  user::Press(dialog_->btmSave);
  EXPECT_EQ(DefaultText(u"ComValueTipeProperty", u"(none)"), u"clsGone");
  EXPECT_EQ(DefaultText(u"ComTypeArgument", u"(none)"), u"Date");
  EXPECT_EQ(DefaultText(u"ComStaticProperty", u"(none)"), u"") << "an empty choice is one";
}

TEST_F(FailingSettings, SavingWithoutTheDatabaseKeepsTheStoredTypes) {
  for (const StringView key :
       {u"ComReturnValueTypeProcedure", u"ComTypeArgument", u"ComValueTipeProperty"}) {
    gAppSettings->SaveSetting(DefaultsSection, key, u"Long");
  }
  gConnectionMDBs.reset();
  Desktop().OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btnIgnore")); };
  Begin(u"Author");
  static_cast<void>(world_.Errors.Take());
  user::Press(dialog_->btmSave);
  for (const StringView key :
       {u"ComReturnValueTypeProcedure", u"ComTypeArgument", u"ComValueTipeProperty"}) {
    EXPECT_EQ(DefaultText(key, u"(none)"), u"Long") << vb::ToUtf8(key);
  }
}

/// A registry that counts its groups of changes, and whose nth write fails.
struct Grouping : memory::MemoryRegistry, platform::GroupedChanges {
  void Together(const std::function<void()>& changes) override {
    Within = true;
    changes();
    Within = false;
    ++Groups;
  }
  void SetValue(platform::RootKey root, StringView key, StringView name,
                const platform::RegistryValue& value) override {
    if (Count) {
      EXPECT_TRUE(Within) << "an end of the process here would leave a mix";
      if (++Writes == FailingWrite) throw vb::Failure(7, u"no room");
    }
    MemoryRegistry::SetValue(root, key, name, value);
  }
  bool Count = false, Within = false;
  int Groups = 0, Writes = 0, FailingWrite = 0;
};

TEST_F(FailingSettings, SavingIsOneChangeOfTheStoreAlsoWhereAValueIsGivenUp) {
  struct Platform : memory::MemoryPlatform {
    platform::Registry& Registry() override { return Own; }
    Grouping Own;
  };
  for (const StringView answer : Answers) {
    SCOPED_TRACE(vb::ToUtf8(answer));
    Platform services;
    const platform::ScopedPlatform scope(services);
    Begin(u"Author");
    user::Type(dialog_->txtAuthor, u"A. Person");
    int asked = 0;
    services.DesktopService.OnModal = [&](forms::Form& form) {
      ++asked;
      user::Press(*form.Find(answer));
    };
    services.Own.Count = true;
    services.Own.FailingWrite = 3;
    user::Press(dialog_->btmSave);
    services.Own.Count = false;
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(services.Own.Groups, 1);
    EXPECT_EQ(DefaultText(u"Author", u""), u"A. Person") << "what is ahead of it is stored";
    EXPECT_EQ(DefaultText(u"IncludeDateTime", u"(none)"), answer == u"btnRetry" ? u"1" : u"(none)");
    EXPECT_EQ(DefaultText(u"AutoPosition", u"(none)"), answer == u"btnAbort" ? u"(none)" : u"1");
    dialog_->Unload();
  }
}

TEST_F(FailingSettings, AbortEndsTheSavingAndTheDialogStays) {
  Begin(u"Author");
  world_.Services.RegistryService.FailWrites = vb::Failure(7, u"no room");
  Desktop().OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btnAbort")); };
  user::Press(dialog_->btmSave);
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_TRUE(dialog_->Visible());
  world_.Services.RegistryService.FailWrites.reset();
}

}  // namespace
}  // namespace tessel
