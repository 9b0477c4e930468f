#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"
#include "platform/GroupedChanges.h"
#include "store/Seeds.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel {
namespace {

class Connections : public testing::Test {
 protected:
  Connections() {
    settings_->Init(u"Norvane", u"Tessel");
    list_.Init(settings_);
  }
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
  std::shared_ptr<CAppSettings> settings_ = std::make_shared<CAppSettings>();
  cConnectReestr list_;
};

TEST_F(Connections, AnEmptyKeyYieldsNothing) { EXPECT_FALSE(list_.GetAllConnect().has_value()); }

TEST_F(Connections, APathIsKnownInAnyCase) {
  EXPECT_TRUE(list_.AddNewConnection(u"c:\\a.mdb"));
  EXPECT_FALSE(list_.AddNewConnection(u"C:\\A.MDB"));
  EXPECT_EQ(list_.GetAllConnect()->size(), 1U);
}

TEST_F(Connections, AFreeNumberIsUsedAgain) {
  for (const StringView file : {u"a", u"b", u"c"}) EXPECT_TRUE(list_.AddNewConnection(file));
  list_.DeleteConnection(u"B");
  EXPECT_EQ(*list_.GetAllConnect(),
            (std::vector<RegisteredConnection>{{u"UserConnect1", u"a"}, {u"UserConnect3", u"c"}}));
  EXPECT_TRUE(list_.AddNewConnection(u"d"));
  EXPECT_EQ(list_.GetAllConnect()->back(), (RegisteredConnection{u"UserConnect2", u"d"}));
}

TEST_F(Connections, ADeletionIsOneChangeOfTheStore) {
  struct Grouping : memory::MemoryRegistry, platform::GroupedChanges {
    void Together(const std::function<void()>& changes) override {
      Within = true;
      changes();
      Within = false;
      ++Groups;
    }
    bool DeleteKey(platform::RootKey root, StringView key) override {
      EXPECT_TRUE(Within) << "an end of the process here would leave no connection";
      return MemoryRegistry::DeleteKey(root, key);
    }
    bool Within = false;
    int Groups = 0;
  };
  struct Platform : memory::MemoryPlatform {
    platform::Registry& Registry() override { return Own; }
    Grouping Own;
  } services;
  const platform::ScopedPlatform scope(services);
  for (const StringView file : {u"a", u"b"}) EXPECT_TRUE(list_.AddNewConnection(file));
  services.Own.Groups = 0;
  list_.DeleteConnection(u"a");
  EXPECT_EQ(services.Own.Groups, 1);
  EXPECT_EQ(*list_.GetAllConnect(), (std::vector<RegisteredConnection>{{u"UserConnect2", u"b"}}));
}

TEST_F(Connections, AnEntryThatStandsIsNotWrittenAgain) {
  list_.SaveConnect(u"Marlow", u"a");
  services_.RegistryService.FailWrites = vb::Failure(7, u"the store can't be written");
  EXPECT_NO_THROW(list_.SaveConnect(u"Marlow", u"a"));
  EXPECT_THROW(list_.SaveConnect(u"Marlow", u"A"), vb::Failure);
  EXPECT_THROW(list_.SaveConnect(u"UserConnect1", u"a"), vb::Failure);
}

TEST_F(Connections, TheListIsReadWithinTheChangeThatDependsOnIt) {
  // Another process registers a library whenever nothing holds the store.
  struct Shared : memory::MemoryRegistry, platform::GroupedChanges {
    void Together(const std::function<void()>& changes) override {
      Within = true;
      changes();
      Within = false;
    }
    std::optional<std::vector<String>> ValueNames(platform::RootKey root, StringView key) override {
      auto names = MemoryRegistry::ValueNames(root, key);
      if (!Within && Other) std::exchange(Other, nullptr)();
      return names;
    }
    bool Within = false;
    std::function<void()> Other;
  };
  struct Platform : memory::MemoryPlatform {
    platform::Registry& Registry() override { return Own; }
    Shared Own;
  } services;
  const platform::ScopedPlatform scope(services);
  const auto files = [&] {
    std::string all;
    for (const auto& row : list_.GetAllConnect().value_or(std::vector<RegisteredConnection>{})) {
      all += vb::ToUtf8(row.FileName) + " ";
    }
    return all;
  };
  EXPECT_TRUE(list_.AddNewConnection(u"a"));
  services.Own.Other = [&] { list_.SaveConnect(u"UserConnect2", u"other"); };
  EXPECT_TRUE(list_.AddNewConnection(u"b"));
  EXPECT_TRUE(services.Own.Other) << "the other would take the same number";
  services.Own.Other = nullptr;
  EXPECT_EQ(files(), "a b ");
  services.Own.Other = [&] { list_.SaveConnect(u"UserConnect3", u"other"); };
  list_.DeleteConnection(u"a");
  if (services.Own.Other) std::exchange(services.Own.Other, nullptr)();
  EXPECT_EQ(files(), "b other ");
}

TEST_F(Connections, ChecksItsProperties) {
  const auto number = [](const std::function<void()>& action) {
    try {
      action();
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Source(), u"Tessel.cConnectReestr");
      return static_cast<std::uint32_t>(failure.Number());
    }
    return 0U;
  };
  cConnectReestr fresh;
  EXPECT_EQ(number([&] { static_cast<void>(fresh.GetAllConnect()); }), 0x80044511U);
  EXPECT_EQ(number([&] { fresh.Init(nullptr); }), 0x80044512U);
  EXPECT_EQ(number([&] { fresh.SetKeyName(u""); }), 0x80044513U);
}

TEST_F(Connections, NamesTheProgramByItsTitleInItsFailures) {
  services_.AppService.Executable = u"tessel32";
  services_.AppService.Caption = u"Tessel Tools";
  try {
    list_.SetKeyName(u"");
    FAIL() << "an empty key name is refused";
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Source(), u"Tessel Tools.cConnectReestr");
  }
  try {
    settings_->SetAppName(u"");
    FAIL() << "an empty name is refused";
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Source(), u"tessel32.CAppSettings") << "the other classes go by the file";
  }
}

TEST_F(Connections, OpensASnippetDatabaseAndSaysWhatIsMissing) {
  store::WriteStandardDatabases(folder_.Path(), platform::Current().Files());
  cConnectionMDB connection;
  EXPECT_FALSE(connection.OpenConnection()) << "no name, no file";
  connection.NameConnect = u"UserConnect1";
  connection.FileName = (folder_.Path() / "VBCode.MDB").u16string();
  EXPECT_TRUE(connection.OpenConnection());
  connection.mConnectMDB->Execute(u"ALTER TABLE List DROP COLUMN TextUserNotes");
  EXPECT_FALSE(connection.OpenConnection());
  const auto& message = services_.DesktopService.Messages.back();
  EXPECT_NE(message.Text.find(u"\r\nFile: " + connection.FileName + u"\r\nTable: List"),
            String::npos);
  EXPECT_EQ(message.Text.find(u"SELECT"), String::npos) << vb::ToUtf8(message.Text);
  EXPECT_TRUE(message.Text.starts_with(u"there is no column TextUserNotes\r\n"));
  EXPECT_EQ(message.Style, 0);
  connection.NameConnect = u"PersonalMarlow";
  EXPECT_TRUE(connection.OpenConnection()) << "its structure is not checked";
}

TEST_F(Connections, TheCheckOfTheColumnsReadsNoRow) {
  store::WriteStandardDatabases(folder_.Path(), platform::Current().Files());
  cConnectionMDB connection;
  connection.NameConnect = u"UserConnect1";
  connection.FileName = (folder_.Path() / "VBCode.MDB").u16string();
  ASSERT_TRUE(connection.OpenConnection());
  // Reading a row of this table fails.
  connection.mConnectMDB->Execute(u"ALTER TABLE List RENAME TO Kept");
  connection.mConnectMDB->Execute(
      u"CREATE VIEW List AS SELECT abs(-9223372036854775807 - 1) AS Id, Text, TitleObj, TextObj, "
      u"CompObj, NameObj, ClassObj, TextUserNotes FROM Kept");
  EXPECT_TRUE(connection.OpenConnection());
  EXPECT_TRUE(services_.DesktopService.Messages.empty());
}

TEST_F(Connections, AListThatCantBeReadIsNoEmptyList) {
  struct Unreadable : memory::MemoryRegistry {
    std::optional<std::vector<String>> ValueNames(platform::RootKey, StringView) override {
      throw vb::Failure(vb::InvalidCall, u"the store is locked", u"Tessel");
    }
  };
  struct Platform : memory::MemoryPlatform {
    platform::Registry& Registry() override { return Own; }
    Unreadable Own;
  } services;
  const platform::ScopedPlatform scope(services);
  for (const auto& ask :
       {std::function<void()>([&] { static_cast<void>(list_.GetAllConnect()); }),
        std::function<void()>([&] { static_cast<void>(list_.AddNewConnection(u"a")); })}) {
    try {
      ask();
      ADD_FAILURE() << "a failure is expected";
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(static_cast<std::uint32_t>(failure.Number()), 0x80044514U);
      EXPECT_EQ(failure.Description(), u"cConnectReestr component failure");
    }
  }
}

TEST_F(Connections, AFileThatCantBeOpenedShowsWhy) {
  cConnectionMDB connection;
  connection.NameConnect = u"x";
  connection.FileName = u"\\no\\such.mdb";
  EXPECT_FALSE(connection.OpenConnection());
  EXPECT_EQ(services_.DesktopService.Messages.back().Text,
            u"/no/such.mdb: the file does not exist");
}

TEST_F(Connections, ADamagedFileIsToldInPlainWords) {
  store::WriteStandardDatabases(folder_.Path(), platform::Current().Files());
  const std::string whole = folder_.Read("VBCode.MDB");
  constexpr std::size_t Head = 100;
  int told = 0;
  for (const std::size_t at : {Head, Head + 8, std::size_t{4096}, std::size_t{8192}}) {
    std::string bytes = whole;
    bytes.replace(at, Head, Head, '\x7f');
    cConnectionMDB connection;
    connection.NameConnect = u"UserConnect1";
    connection.FileName = folder_.Write("broken.mdb", bytes).u16string();
    if (connection.OpenConnection()) continue;
    ++told;
    const String& text = services_.DesktopService.Messages.back().Text;
    EXPECT_NE(text.find(connection.FileName), String::npos) << vb::ToUtf8(text);
    EXPECT_NE(text.find(u"the file is damaged"), String::npos) << vb::ToUtf8(text);
    EXPECT_EQ(text.find(u"SELECT"), String::npos) << vb::ToUtf8(text);
  }
  EXPECT_GE(told, 1);
}

TEST(ConnectionCollection, IsAPlainLookUpByTheExactKey) {
  cConnectionMDBs all;
  const auto one = std::make_shared<cConnectionMDB>();
  all.Add(one, u"A");
  EXPECT_THROW(all.Add(one, u"A"), vb::Failure);
  EXPECT_EQ(all.item(u"A"), one);
  EXPECT_THROW(static_cast<void>(all.item(u"a")), vb::Failure);
  EXPECT_THROW(all.Remove(u"b"), vb::Failure);
  all.Remove(u"A");
  EXPECT_EQ(all.Count(), 0U);
}

}  // namespace
}  // namespace tessel
