#include "foundation/CAppSettings.h"

#include <gtest/gtest.h>

#include "forms/Form.h"
#include "foundation/CFile.h"
#include "foundation/CFileOpenSaveDialog.h"
#include "foundation/CFontDialog.h"
#include "foundation/CFontRestore.h"
#include "foundation/CFormRestore.h"
#include "foundation/CShell.h"
#include "foundation/ProgressBarWindow.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel {
namespace {

struct Thrown {
  std::uint32_t Number = 0;
  String Text, Source;
};

Thrown Catch(const std::function<void()>& action) {
  try {
    action();
  } catch (const vb::Failure& failure) {
    return {static_cast<std::uint32_t>(failure.Number()), failure.Description(), failure.Source()};
  }
  return {};
}

void ExpectThrown(const std::function<void()>& action, std::uint32_t number, StringView text,
                  StringView source) {
  const Thrown thrown = Catch(action);
  EXPECT_EQ(thrown.Number, number);
  EXPECT_EQ(thrown.Text, text);
  EXPECT_EQ(thrown.Source, source);
}

class Settings : public testing::Test {
 protected:
  Settings() { settings_->Init(u"Norvane", u"Tessel"); }
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  std::shared_ptr<CAppSettings> settings_ = std::make_shared<CAppSettings>();
};

TEST_F(Settings, AMissingSectionAnswersTheDefaultWhateverItsKind) {
  EXPECT_EQ(settings_->GetSetting(u"no", u"k", String(u"d")), SettingValue(String(u"d")));
  EXPECT_EQ(settings_->GetSetting(u"no", u"k", 7), SettingValue(7));
}

TEST_F(Settings, ATruthValueComesBackAsText) {
  EXPECT_EQ(settings_->SaveSetting(u"s", u"k", true), std::nullopt);
  EXPECT_EQ(settings_->GetSetting(u"s", u"k", 0), SettingValue(String(u"True")));
  settings_->SaveSetting(u"s", u"d", vb::Date{2026, 1, 2, 3, 4, 5});
  EXPECT_EQ(settings_->GetText(u"s", u"d", u""), u"2026-01-02 03:04:05");
  EXPECT_EQ(settings_->SaveSetting(u"s", u"n", 2.5), 2)
      << "the caller gets the number that was stored";
  EXPECT_EQ(settings_->GetSetting(u"s", u"n", 0), SettingValue(2));
}

TEST_F(Settings, TextOneComparesEqualToTextOne) {
  settings_->SaveSetting(u"s", u"k", String(u"1"));
  EXPECT_EQ(settings_->GetText(u"s", u"k", u"0"), u"1");
}

TEST_F(Settings, DeletesKeysAndRefusesThoseWithSubkeys) {
  settings_->SaveSetting(u"x", u"k", 1);
  settings_->SaveSetting(u"x\\y", u"k", 1);
  ExpectThrown([&] { settings_->DeleteSetting(u"x", u""); }, 0x80044282,
               u"Failed deleting the application setting", u"Tessel.CAppSetting");
  settings_->DeleteSetting(u"x", u"y");
  settings_->DeleteSetting(u"x", u"");
  ExpectThrown([&] { static_cast<void>(settings_->GetAllKeys(u"x")); }, 0x80044283,
               u"Failed getting all the application keys", u"Tessel.CAppSetting");
}

TEST_F(Settings, AWriteThatFailsIsTheOperationsOwnFailure) {
  services_.RegistryService.FailWrites = vb::Failure(1, u"read-only");
  ExpectThrown([&] { settings_->SaveSetting(u"s", u"k", 1); }, 0x80044281,
               u"Failed saving the application setting", u"Tessel.CAppSetting");
}

TEST_F(Settings, ChecksItsPropertiesAndKeepsTheOldValue) {
  ExpectThrown([&] { settings_->SetRootKey(5); }, 0x80044280, u"Invalid root key value",
               u"Tessel.CAppSettings");
  EXPECT_EQ(settings_->RootKey(), 0x80000001U);
  settings_->SetRootKey(0x80000002);
  ExpectThrown([&] { settings_->SetMainBranch(u""); }, 0x8004427F, u"Invalid MainBranch value",
               u"Tessel.CAppSettings");
  ExpectThrown([&] { settings_->Init(u"", u"a"); }, 0x8004427E, u"Invalid CompanyName value",
               u"Tessel.CAppSettings");
  ExpectThrown([&] { settings_->Init(u"a", u""); }, 0x8004427D, u"Invalid AppName value",
               u"Tessel.CAppSettings");
  EXPECT_EQ(CAppSettings().AppName(), u"Quillon");
}

TEST_F(Settings, RestoresAWindowByItsStoredState) {
  forms::Form form("frmX", u"");
  CFormRestore restore;
  ExpectThrown([&] { restore.GetPosition(form); }, 0x80044499, u"Object not properly initialized",
               u"Tessel.CFormRestore");
  ExpectThrown([&] { restore.Init(nullptr, u"k"); }, 0x8004449A, u"Invalid AppSettings object",
               u"Tessel.CFormRestore");
  ExpectThrown([&] { restore.Init(settings_, u""); }, 0x8004449B, u"Invalid KeyName value",
               u"Tessel.CFormRestore");
  restore.Init(settings_, u"Windows settings");
  auto& placement = services_.DesktopService.Placement;
  restore.CenteredByDefault = false;
  restore.GetPosition(form);
  EXPECT_FALSE(placement) << "nothing stored and not centred: nothing changes";
  placement = platform::WindowPlacement{3, -1, -1, -1, -1, 10, 20, 110, 220};
  restore.SavePosition(form);
  EXPECT_EQ(settings_->GetText(u"Windows settings\\frmX", u"NormalPosRight", u""), u"110");
  placement.reset();
  restore.GetPosition(form);
  ASSERT_TRUE(placement);
  EXPECT_EQ(placement->ShowCommand, 3);
  EXPECT_EQ(placement->Bottom, 220);
}

TEST_F(Settings, KeepsAFont) {
  CFontRestore restore;
  forms::Font font;
  ExpectThrown([&] { restore.GetFont(u"o", font); }, 0x800444AD, u"Object not properly initialized",
               u"Tessel.CFontRestore");
  restore.Init(settings_, u"Font settings");
  font.Name = u"x";
  restore.GetFont(u"o", font);
  EXPECT_EQ(font, forms::Font{});
  font.Bold = true;
  font.Size = 10.5;
  restore.SaveFont(u"o", font);
  EXPECT_EQ(settings_->GetText(u"Font settings\\o", u"Bold", u""), u"1");
  forms::Font read;
  restore.GetFont(u"o", read);
  EXPECT_EQ(read, font);
}

TEST_F(Settings, AFileWithoutANameFailsAndExistsRaisesNothing) {
  const test::TemporaryFolder folder;
  CFile file;
  ExpectThrown(
      [&] { static_cast<void>(file.Exists()); }, 0x8004440D,
      u"Object not properly initialized. Set the PathFileName property to a non-empty value "
      u"first",
      u"Tessel.CFile");
  file.SetPathFileName((folder.Path() / "a.txt").u16string());
  EXPECT_FALSE(file.Exists());
  ExpectThrown([&] { static_cast<void>(file.Size()); }, 0x8004440F, u"File not found",
               u"Tessel.CFile");
  file.SetContents("hello");
  EXPECT_EQ(file.Size(), 5);
  EXPECT_EQ(file.Contents(), "hello");
  EXPECT_EQ(file.FileExt(), u"txt");
  const String other = (folder.Path() / "b.txt").u16string();
  file.Copy(other);
  EXPECT_TRUE(file.IdenticalWith(other));
  ExpectThrown([&] { file.Move(other); }, 0x80044411, u"File move failed", u"Tessel.CFile");
  ExpectThrown([&] { file.Copy(u"/no/such/folder/x"); }, 0x80044410, u"File copy failed",
               u"Tessel.CFile");
  ExpectThrown([&] { file.SetPathFileName(u""); }, 0x8004440E, u"Invalid file name",
               u"Tessel.CFile");
  file.Delete();
  EXPECT_FALSE(file.Exists());
}

TEST_F(Settings, WritingAFileLeavesItsNeighboursAlone) {
  const test::TemporaryFolder folder;
  folder.Write("a.txt.new", "mine");
  CFile file;
  file.SetPathFileName(folder.Write("a.txt", "old").u16string());
  file.SetContents("new");
  EXPECT_EQ(file.Contents(), "new");
  EXPECT_EQ(folder.Read("a.txt.new"), "mine");
}

TEST_F(Settings, APathThatEndsInASeparatorIsAFolder) {
  const test::TemporaryFolder folder;
  CFile file;
  file.SetPathFileName(folder.Path().u16string() + u"/");
  EXPECT_EQ(file.Attributes(), 16);
  EXPECT_EQ(file.FileName(), u"");
  EXPECT_THROW(file.SetContents("x"), vb::Failure);
  file.SetPathFileName(u"/");
  EXPECT_EQ(file.Attributes() & 16, 16);
}

TEST_F(Settings, AFileMovesToAnotherFileSystem) {
  const test::TemporaryFolder folder;
  const std::filesystem::path other = "/dev/shm/tessel-move-test.txt";
  std::filesystem::remove(other);
  CFile file;
  file.SetPathFileName(folder.Write("a.txt", "text").u16string());
  file.Move(other.u16string());
  EXPECT_EQ(file.Contents(), "text");
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.txt"));
  file.Delete();
}

TEST_F(Settings, TheShellsAnswersBecomeFailures) {
  const std::tuple<int, std::uint32_t, StringView> cases[] = {
      {2, 0x80044679, u"File not found"},
      {3, 0x8004467A, u"Path not found"},
      {8, 0x8004467C, u"Out of memory"},
      {26, 0x8004467E, u"A sharing violation occurred"},
      {27, 0x8004467F, u"Incomplete or invalid file association"},
      {28, 0x80044680, u"DDE timeout"},
      {29, 0x80044681, u"DDE transaction failed"},
      {30, 0x80044682, u"DDE busy"},
      {31, 0x80044683, u"No association for file extension"},
      {11, 0x80044684, u"Invalid EXE file or error in EXE image"},
      {32, 0x8004467D, u"DLL not found"},
      {5, 0x80044685, u"Cannot create process"}};
  for (const auto& [answer, number, text] : cases) {
    services_.DesktopService.ShellAnswer = answer;
    ExpectThrown([] { CShell().OpenUrl(u"x"); }, number, text, u"Tessel.CShell");
  }
  ExpectThrown([] { CShell().ShowProperties(u"x"); }, 0x80044686, u"Cannot show properties",
               u"Tessel.CShell");
}

TEST_F(Settings, TheCommonDialogsRefuseAnOwnerThatIsNoWindow) {
  CFileOpenSaveDialog files;
  files.HWndOwner = 5;
  ExpectThrown([&] { static_cast<void>(files.Show(FileDialogKind::Open)); }, 0x80044435,
               u"Invalid window handle", u"Tessel.CFileOpenSaveDialog");
  files.Init();
  services_.DesktopService.Files = {{u"/a/b.txt", u"/a/c.txt"}};
  EXPECT_TRUE(files.Show(FileDialogKind::Open));
  EXPECT_EQ(files.FileCount(), 2);
  EXPECT_EQ(files.FileTitle, u"b.txt");
  EXPECT_EQ(files.SelectedPath(), u"/a");
  EXPECT_EQ(files.GetNextFileName(), u"/a/b.txt");
  EXPECT_EQ(files.GetNextFileName(), u"/a/c.txt");
  EXPECT_EQ(files.GetNextFileName(), u"");
  CFontDialog fonts;
  fonts.HWndOwner = 5;
  ExpectThrown([&] { static_cast<void>(fonts.Show()); }, 0x80044471, u"Invalid window handle",
               u"Tessel.CFontDialog");
}

TEST_F(Settings, ProgressIsAPercentageAndCancelIsSeenAtTheNextTest) {
  const auto window = std::make_shared<ProgressBarWindow>(u"Run");
  window->Show();
  window->SetPRBCount1(8);
  window->SetPRBsi1(2);
  EXPECT_DOUBLE_EQ(window->C1ElaProgressBar1.Value(), 25);
  EXPECT_FALSE(window->ProgressBarStop());
  window->btmCancel.Click();
  EXPECT_TRUE(window->ProgressBarStop());
  window->SetProgressBarStop(false);
  window->CloseByFrame();
  EXPECT_TRUE(window->ProgressBarStop());
}

}  // namespace
}  // namespace tessel
