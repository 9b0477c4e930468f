#include "hosts/workbench/window/Recovery.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "hosts/memory/MemoryPlatform.h"
#include "hosts/workbench/platform/Text.h"
#include "support/TemporaryFolder.h"

namespace tessel::workbench {
namespace {

class Recovering : public testing::Test {
 protected:
  [[nodiscard]] QString Folder() const {
    return QString::fromStdString((folder_.Path() / "recovery").string());
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
  Restore(again, left.front());
  EXPECT_EQ(again.Text(u"M"), u"Sub B()\r\n  x = \"漢\"\r\nEnd Sub");
  EXPECT_EQ(again.Component(u"F")->Properties()->Item(u"Caption")->Value(), u"new");
  EXPECT_EQ(again.Text(u"C"), u"' class");
  EXPECT_TRUE(again.IsModified(u"P", u"F"));
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
  Restore(again, ReadWork(work));
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Name(), u"Fresh");
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Type(), host::vbext_pt_ActiveXDll);
  EXPECT_EQ(again.Text(u"M"), u"x");
}

TEST_F(Recovering, PassesOverTheFileOfARunningProgramAndDamagedOnes) {
  const RecoveryFile own(Folder());
  workspace::Workspace environment(services_);
  environment.NewProject(u"P", host::vbext_pt_StandardExe);
  environment.AddComponent(u"P", host::vbext_ct_StdModule, u"M", u"x");
  own.Write(UnsavedWork(environment));
  EXPECT_EQ(QDir(Folder()).entryList(QDir::Files).size(), 1);
  EXPECT_TRUE(own.Left().empty());
  Leave("{\"time\":\"2026\",\"projects\":[{\"name\":1}]}");
  EXPECT_TRUE(own.Left().empty());
  Leave("\0\xff garbage");
  EXPECT_TRUE(own.Left().empty());
}

TEST_F(Recovering, RemovesItsFileWhenEverythingIsSaved) {
  const RecoveryFile own(Folder());
  workspace::Workspace environment(services_);
  environment.Open(Project());
  environment.SetText(u"M", u"y");
  own.Write(UnsavedWork(environment));
  EXPECT_EQ(QDir(Folder()).entryList(QDir::Files).size(), 1);
  environment.Save();
  own.Write(UnsavedWork(environment));
  EXPECT_TRUE(QDir(Folder()).entryList(QDir::Files).isEmpty());
}

}  // namespace
}  // namespace tessel::workbench
