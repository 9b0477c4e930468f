#include "hosts/linux/SqliteRegistry.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/LinuxIdentity.h"
#include "hosts/linux/SystemClock.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::linux_host {
namespace {

using platform::RegistryValue;
using platform::RootKey;

class Registry : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  SqliteRegistry registry_{folder_.Path() / "deep" / "settings.sqlite"};
};

TEST_F(Registry, ReadsNothingFromAFileThatIsNotThere) {
  EXPECT_FALSE(registry_.GetValue(RootKey::CurrentUser, u"a", u"b"));
  EXPECT_FALSE(registry_.ValueNames(RootKey::CurrentUser, u"a"));
  EXPECT_FALSE(registry_.DeleteKey(RootKey::CurrentUser, u"a"));
}

TEST_F(Registry, KeepsTypesOrderAndNamesInAnyCase) {
  registry_.SetValue(RootKey::CurrentUser, u"A\\B", u"Zwei", RegistryValue(String(u"\u0416")));
  registry_.SetValue(RootKey::CurrentUser, u"a\\b", u"Eins", RegistryValue(0x80000000U));
  registry_.SetValue(RootKey::CurrentUser, u"A\\b", u"ZWEI", RegistryValue(String(u"x")));
  EXPECT_EQ(registry_.GetValue(RootKey::CurrentUser, u"a\\B", u"zwei"),
            RegistryValue(String(u"x")));
  EXPECT_EQ(registry_.GetValue(RootKey::CurrentUser, u"a\\B", u"eins"), RegistryValue(0x80000000U));
  EXPECT_EQ(registry_.ValueNames(RootKey::CurrentUser, u"a\\b"),
            (std::vector<String>{u"Zwei", u"Eins"}));
  EXPECT_FALSE(registry_.GetValue(RootKey::LocalMachine, u"a\\b", u"zwei"));
}

TEST_F(Registry, RefusesToDeleteAKeyWithSubkeys) {
  registry_.SetValue(RootKey::CurrentUser, u"a", u"v", RegistryValue(1U));
  registry_.SetValue(RootKey::CurrentUser, u"a\\b", u"v", RegistryValue(1U));
  EXPECT_FALSE(registry_.DeleteKey(RootKey::CurrentUser, u"a"));
  EXPECT_TRUE(registry_.DeleteKey(RootKey::CurrentUser, u"A\\B"));
  EXPECT_TRUE(registry_.DeleteKey(RootKey::CurrentUser, u"a"));
  EXPECT_FALSE(registry_.ValueNames(RootKey::CurrentUser, u"a"));
}

TEST_F(Registry, TwoProcessesThatWriteAtOnceLoseNothing) {
  constexpr int Writes = 60;
  const auto write = [&](char16_t who) {
    for (int number = 0; number < Writes; ++number) {
      registry_.SetValue(RootKey::CurrentUser, u"k", String(1, who) + vb::Str(number),
                         RegistryValue(static_cast<std::uint32_t>(number)));
    }
  };
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  write(child == 0 ? u'c' : u'p');
  if (child == 0) _exit(0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(registry_.ValueNames(RootKey::CurrentUser, u"k")->size(), 2U * Writes);
}

TEST_F(Registry, WhatAGroupReadNoOtherProcessChangesUnderIt) {
  constexpr int Times = 40;
  const auto count = [&] {
    for (int time = 0; time < Times; ++time) {
      registry_.Together([&] {
        const auto old = registry_.GetValue(RootKey::CurrentUser, u"k", u"n");
        const auto number = old ? std::get<std::uint32_t>(*old) : 0U;
        registry_.SetValue(RootKey::CurrentUser, u"k", u"n", RegistryValue(number + 1));
      });
    }
  };
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  count();
  if (child == 0) _exit(0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(registry_.GetValue(RootKey::CurrentUser, u"k", u"n"), RegistryValue(2U * Times));
}

TEST_F(Registry, AGroupOfChangesIsDoneWholeOrNotAtAll) {
  const auto set = [&](StringView name) {
    registry_.SetValue(RootKey::CurrentUser, u"k", name, RegistryValue(1U));
  };
  const auto names = [&] { return registry_.ValueNames(RootKey::CurrentUser, u"k"); };
  const auto other = [&] {
    return SqliteRegistry(folder_.Path() / "deep" / "settings.sqlite")
        .ValueNames(RootKey::CurrentUser, u"k");
  };
  set(u"old");
  const auto replace = [&] {
    EXPECT_TRUE(registry_.DeleteKey(RootKey::CurrentUser, u"k"));
    set(u"new");
    registry_.Together([&] { set(u"newer"); });
    EXPECT_EQ(names(), (std::vector<String>{u"new", u"newer"}));
    EXPECT_EQ(other(), std::vector<String>{u"old"}) << "nobody else sees half of it";
  };
  EXPECT_THROW(registry_.Together([&] {
    replace();
    throw vb::Failure(5, u"in the middle");
  }),
               vb::Failure);
  EXPECT_EQ(names(), std::vector<String>{u"old"});
  const pid_t child = fork();
  if (child == 0) {
    registry_.Together([&] {
      static_cast<void>(registry_.DeleteKey(RootKey::CurrentUser, u"k"));
      _exit(0);
    });
  }
  waitpid(child, nullptr, 0);
  EXPECT_EQ(names(), std::vector<String>{u"old"}) << "the process ended in the middle";
  registry_.Together(replace);
  EXPECT_EQ(other(), (std::vector<String>{u"new", u"newer"}));
}

TEST_F(Registry, NamesADamagedFile) {
  const auto file = folder_.Write("bad.sqlite", std::string(5000, 'x'));
  SqliteRegistry bad(file);
  for (const bool write : {false, true}) {
    try {
      if (write) {
        bad.SetValue(RootKey::CurrentUser, u"a", u"b", RegistryValue(1U));
      } else {
        static_cast<void>(bad.GetValue(RootKey::CurrentUser, u"a", u"b"));
      }
      FAIL();
    } catch (const vb::Failure& failure) {
      EXPECT_NE(std::string(failure.what()).find("bad.sqlite: the settings can't be used"),
                std::string::npos);
    }
  }
  EXPECT_EQ(folder_.Read("bad.sqlite"), std::string(5000, 'x'));
}

TEST(LinuxIdentity, MakesGuidsInTheirForm) {
  LinuxIdentity identity;
  const String guid = identity.NewGuid();
  ASSERT_EQ(guid.size(), 38U);
  EXPECT_EQ(guid.front(), u'{');
  EXPECT_EQ(guid[15], u'4');
  EXPECT_NE(guid, identity.NewGuid());
}

TEST(SystemClock, RunsADueTimerOnceInsideDoEvents) {
  SystemClock clock;
  int ticks = 0;
  clock.StartTimer(0, [&] { ++ticks; });
  clock.StopTimer(clock.StartTimer(0, [&] { ticks += 100; }));
  clock.DoEvents();
  clock.DoEvents();
  EXPECT_EQ(ticks, 1);
  EXPECT_GE(clock.Now().Year, 2024);
}

}  // namespace
}  // namespace tessel::linux_host
