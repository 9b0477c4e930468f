#include "hosts/workbench/window/Recovery.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/platform/Text.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel::workbench {
namespace {

class Recovering : public testing::Test {
 protected:
  [[nodiscard]] QString Folder() const {
    return QString::fromStdString((folder_.Path() / "recovery").string());
  }
  [[nodiscard]] QStringList Kept() const {
    return QDir(Folder()).entryList({QStringLiteral("*.json")}, QDir::Files);
  }
  /// Writes work as a process that is gone would have left it.
  void Leave(const QByteArray& bytes) const {
    QDir().mkpath(Folder());
    QFile file(QDir(Folder()).filePath(QStringLiteral("unsaved-999999999.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  std::filesystem::path Project() const {
    folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
    folder_.Write("F.frm",
                  "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption         =   \"old\"\r\nEnd\r\n"
                  "Attribute VB_Name = \"F\"\r\n");
    folder_.Write("P.vbp", "Type=Exe\r\nForm=F.frm\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
    return folder_.Path() / "P.vbp";
  }

  /// The components of the first project.
  static const std::vector<std::shared_ptr<model::VBComponent>>& All(
      const workspace::Workspace& workspace) {
    const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
    return vbe->Projects().All().front()->Components().All();
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
};

TEST_F(Recovering, BringsBackTextDesignerAndNewComponents) {
  QJsonObject work;
  {
    workspace::Workspace lost(services_);
    lost.Open(Project());
    EXPECT_TRUE(UnsavedWork(lost).isEmpty());
    lost.SetText(u"M", u"Sub B()\r\n  x = \"漢\"\r\nEnd Sub");
    lost.Component(u"F")->Properties()->Item(u"Caption")->SetValue(u"new");
    lost.AddComponent(u"P", host::vbext_ct_ClassModule, u"C", u"' class");
    work = UnsavedWork(lost);
  }
  Leave(QJsonDocument(work).toJson());
  const auto left = RecoveryFile(Folder()).Left();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left.front().Projects.front().Components.size(), 3U);

  workspace::Workspace again(services_);
  again.Open(Project());
  EXPECT_TRUE(Restore(again, left.front()).isEmpty());
  EXPECT_EQ(again.Text(u"M"), u"Sub B()\r\n  x = \"漢\"\r\nEnd Sub");
  EXPECT_EQ(again.Component(u"F")->Properties()->Item(u"Caption")->Value(), u"new");
  EXPECT_EQ(again.Text(u"C"), u"' class");
  EXPECT_TRUE(again.IsModified(*again.Component(u"F")));
}

TEST_F(Recovering, BringsBackAProjectThatWasNeverSaved) {
  QJsonObject work;
  {
    workspace::Workspace lost(services_);
    lost.NewProject(u"Fresh", host::vbext_pt_ActiveXDll);
    lost.AddComponent(u"Fresh", host::vbext_ct_StdModule, u"M", u"x");
    work = UnsavedWork(lost);
  }
  workspace::Workspace again(services_);
  EXPECT_TRUE(Restore(again, ReadWork(work)).isEmpty());
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Name(), u"Fresh");
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Type(), host::vbext_pt_ActiveXDll);
  EXPECT_EQ(again.Text(u"M"), u"x");
}

TEST_F(Recovering, PassesOverTheFileOfARunningProgramAndDamagedOnes) {
  RecoveryFile own(Folder());
  workspace::Workspace environment(services_);
  environment.NewProject(u"P", host::vbext_pt_StandardExe);
  environment.AddComponent(u"P", host::vbext_ct_StdModule, u"M", u"x");
  own.Write(UnsavedWork(environment));
  EXPECT_EQ(Kept().size(), 1);
  EXPECT_TRUE(own.Left().empty());
  Leave("{\"time\":\"2026\",\"projects\":[{\"name\":1}]}");
  EXPECT_TRUE(own.Left().empty());
  Leave("\0\xff garbage");
  EXPECT_TRUE(own.Left().empty());
}

TEST_F(Recovering, RemovesItsFileWhenEverythingIsSaved) {
  RecoveryFile own(Folder());
  workspace::Workspace environment(services_);
  environment.Open(Project());
  environment.SetText(u"M", u"y");
  own.Write(UnsavedWork(environment));
  EXPECT_EQ(Kept().size(), 1);
  environment.Save();
  own.Write(UnsavedWork(environment));
  EXPECT_TRUE(QDir(Folder()).entryList(QDir::Files).isEmpty());
}

TEST_F(Recovering, TellsALeftFileFromOneInUseByItsLockAlone) {
  workspace::Workspace environment(services_);
  environment.NewProject(u"P", host::vbext_pt_StandardExe);
  environment.AddComponent(u"P", host::vbext_ct_StdModule, u"M", u"x");
  const RecoveryFile looking(Folder());
  {
    RecoveryFile other(Folder());
    ASSERT_TRUE(other.Write(UnsavedWork(environment)));
    EXPECT_TRUE(looking.Left().empty());
  }
  // The other one is gone without having removed its file, whatever bears its number now.
  auto left = looking.Left();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_TRUE(RecoveryFile(Folder()).Left().empty()) << "it is offered once at a time";
  left.clear();
  EXPECT_EQ(looking.Left().size(), 1U) << "it was neither taken nor discarded";
  looking.Left().front().Discard();
  EXPECT_TRUE(QDir(Folder()).entryList(QDir::Files).isEmpty());
}

TEST_F(Recovering, KeepsBytesThatAreNoText) {
  QJsonObject work;
  const String code = String(u"x = \"") + char16_t{0xDC81} + u"\"";
  {
    workspace::Workspace lost(services_);
    lost.Open(Project());
    lost.SetText(u"M", code);
    work = UnsavedWork(lost);
  }
  workspace::Workspace again(services_);
  again.Open(Project());
  const auto json = QJsonDocument::fromJson(QJsonDocument(work).toJson()).object();
  EXPECT_TRUE(Restore(again, ReadWork(json)).isEmpty());
  EXPECT_EQ(again.Text(u"M"), code);
}

TEST_F(Recovering, KnowsComponentsOfOneNameByTheirFiles) {
  Project();
  folder_.Write("N.bas", "Attribute VB_Name = \"M\"\r\nSub N()\r\nEnd Sub\r\n");
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nModule=M; N.bas\r\nName=\"P\"\r\n");
  QJsonObject work;
  {
    workspace::Workspace lost(services_);
    lost.Open(folder_.Path() / "P.vbp");
    All(lost).back()->Module()->InsertLines(1, u"' second");
    work = UnsavedWork(lost);
  }
  workspace::Workspace again(services_);
  again.Open(folder_.Path() / "P.vbp");
  EXPECT_TRUE(Restore(again, ReadWork(work)).isEmpty());
  EXPECT_EQ(All(again).front()->Module()->Lines(1, 1), u"Sub A()");
  EXPECT_EQ(All(again).back()->Module()->Lines(1, 1), u"' second");
}

TEST_F(Recovering, DoesntMixAProjectWithoutAFileWithAnotherOfItsName) {
  QJsonObject work;
  {
    workspace::Workspace lost(services_);
    lost.NewProject(u"Project1", host::vbext_pt_StandardExe);
    lost.AddComponent(u"Project1", host::vbext_ct_StdModule, u"M", u"lost");
    work = UnsavedWork(lost);
  }
  workspace::Workspace again(services_);
  again.NewProject(u"Project1", host::vbext_pt_StandardExe);
  again.AddComponent(u"Project1", host::vbext_ct_StdModule, u"M", u"other");
  EXPECT_TRUE(Restore(again, ReadWork(work)).isEmpty());
  EXPECT_EQ(All(again).back()->Module()->Lines(1, 1), u"other");
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(again.VBE());
  ASSERT_EQ(vbe->Projects().All().size(), 2U);
  const auto& second = vbe->Projects().All().back()->Components().All();
  ASSERT_EQ(second.size(), 1U);
  EXPECT_EQ(second.front()->Module()->Lines(1, 1), u"lost");
}

}  // namespace
}  // namespace tessel::workbench
