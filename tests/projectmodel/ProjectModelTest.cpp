#include <gtest/gtest.h>

#include <map>
#include <random>

#include "projectmodel/ProjectTables.h"
#include "projectmodel/ProjectTree.h"
#include "support/Modules.h"

namespace tessel {
namespace {

template <class Model>
std::vector<String> Keys(const Model& model) {
  std::vector<String> keys;
  for (const auto& [key, child] : model) keys.push_back(key);
  return keys;
}

TEST(ProjectModel, AnItemIsFoundInAnyCaseAndTheFirstSpellingWins) {
  cTypeComponentes group;
  const auto first = group.item(u"Form1");
  EXPECT_EQ(group.item(u"form1"), first);
  EXPECT_EQ(first->Name, u"Form1");
  EXPECT_EQ(group.Count(), 1U);
}

TEST(ProjectModel, ReadingAKeyThatDoesNotExistAddsAChild) {
  cProjecteses projects;
  EXPECT_EQ(projects.item(u"A")->Count(), 0U);
  EXPECT_EQ(projects.item(u"B")->Name, u"B");
  EXPECT_EQ(projects.Count(), 2U);
}

TEST(ProjectModel, ANumberIsTheKeyAndTheTypeOfAGroup) {
  cProjectes project;
  const auto forms = project.item(5);
  EXPECT_EQ(forms->TypeComponent, 5);
  EXPECT_EQ(project.item(u"5"), forms);
  EXPECT_EQ(Keys(project), std::vector<String>{u"5"});
}

TEST(ProjectModel, AnAddedObjectStandsUnderItsKeyAsGiven) {
  cComponentes component;
  auto member = std::make_shared<cNameProcedures>();
  const auto given = member;
  component.Add(member, u"run [Proc]");
  EXPECT_EQ(member, given);
  EXPECT_NE(component.item(u"run [Proc]"), given) << "item looks under capitals";
  EXPECT_EQ(component.Count(), 2U);
  EXPECT_THROW(component.Add(member, u"run [Proc]"), vb::Failure);
}

TEST(ProjectModel, RemovesInAnyCaseAndFailsForAMissingKey) {
  cTypeComponentes group;
  static_cast<void>(group.item(u"Form1"));
  static_cast<void>(group.item(u"Form2"));
  group.Remove(u"fOrM1");
  EXPECT_EQ(Keys(group), std::vector<String>{u"FORM2"});
  EXPECT_THROW(group.Remove(u"Form1"), vb::Failure);
  group.Clear();
  EXPECT_EQ(group.Count(), 0U);
}

TEST(ProjectModel, ChildrenAreWalkedInTheOrderOfInsertion) {
  cProjectes project;
  for (const int type : {11, 1, 5}) static_cast<void>(project.item(type));
  static_cast<void>(project.item(1));
  EXPECT_EQ(Keys(project), (std::vector<String>{u"11", u"1", u"5"}));
}

TEST(ProjectModel, ManyKeysAreFoundThroughComingAndGoing) {
  cTypeComponentes group;
  std::map<String, std::shared_ptr<cComponentes>> plain;
  std::vector<String> order;
  std::mt19937 random(7);
  for (int step = 0; step < 4000; ++step) {
    const String name = u"Name" + vb::Str(static_cast<int>(random() % 300));
    const String key = vb::UCase(name);
    const auto known = plain.find(key);
    if (random() % 4 != 0) {
      const auto found = group.item(random() % 2 == 0 ? name : key);
      if (known == plain.end()) {
        plain[key] = found;
        order.push_back(key);
      } else {
        ASSERT_EQ(found, known->second);
      }
    } else if (known == plain.end()) {
      EXPECT_THROW(group.Remove(name), vb::Failure);
    } else {
      group.Remove(name);
      plain.erase(known);
      std::erase(order, key);
    }
    ASSERT_EQ(group.Count(), plain.size());
  }
  EXPECT_EQ(Keys(group), order);
  group.Clear();
  EXPECT_NE(group.item(u"Name1"), plain[u"NAME1"]) << "a fresh one";
}

TEST(ProjectModel, AKeyStaysWhenItsChildIsRenamed) {
  cTypeComponentes group;
  const auto form = group.item(u"Form1");
  form->Name = u"Other";
  EXPECT_EQ(group.item(u"FORM1"), form);
  EXPECT_EQ(Keys(group), std::vector<String>{u"FORM1"});
}

TEST(ProjectTables, TellsPicturesAndTitles) {
  EXPECT_EQ(ProjectPicture(0), 133);
  EXPECT_EQ(ProjectPicture(3), 130);
  EXPECT_EQ(ProjectPicture(4), 124);
  EXPECT_EQ(ProjectPicture(-1), 124);
  EXPECT_EQ(HostByName(u"VB6").Code, 0);
  EXPECT_EQ(HostByName(u"OUTLOOK").Code, 7);
  EXPECT_EQ(HostByName(u"outlook").Code, 0) << "compared exactly";
  EXPECT_EQ(HostByName(u"outlook").Picture, 125);
  ASSERT_NE(GroupOfType(6), nullptr);
  EXPECT_EQ(GroupOfType(6)->Title, u"Form MDI");
  EXPECT_TRUE(GroupOfType(6)->HasDesigner);
  for (const int type : {0, 3, 4, 10, 100}) EXPECT_EQ(GroupOfType(type), nullptr) << type;
}

class Filling : public testing::Test {
 protected:
  void Fill() { filler_.ProjectTree(world_.Environment.VBE(), model_); }
  cComponentes& Component(StringView name) {
    return *model_->item(caption_)->item(host::vbext_ct_StdModule)->item(name);
  }
  test::World world_;
  ProjectFiller filler_{u"VB6"};
  std::shared_ptr<cProjecteses> model_;
  String caption_ = u"Project1";
};

TEST_F(Filling, EntersProjectsGroupsComponentsAndMembers) {
  world_.Module(u"M", u"Dim x\r\nSub A()\r\nEnd Sub\r\nProperty Get P()\r\nEnd Property");
  world_.Form(u"F", u"");
  int announced = 0, scanned = 0;
  filler_.OnProject = [&](int count) { announced = count; };
  filler_.OnComponent = [&] { ++scanned; };
  Fill();
  EXPECT_EQ(announced, 2);
  EXPECT_EQ(scanned, 2);
  ASSERT_EQ(Keys(*model_), std::vector<String>{u"PROJECT1"});
  const auto project = model_->item(caption_);
  EXPECT_EQ(project->Name, u"Project1") << "no file, no brackets";
  EXPECT_EQ(project->IcoProject, 133);
  EXPECT_EQ(Keys(*project), (std::vector<String>{u"1", u"5"}));
  const cComponentes& module = Component(u"M");
  EXPECT_EQ(module.CountOfDeclarationLines, 1);
  EXPECT_EQ(module.CountOfLines, 5);
  EXPECT_EQ(Keys(module), (std::vector<String>{u"A [PROC]", u"P [GET]"}));
  const cNameProcedures& get = *Component(u"M").item(u"P [Get]");
  EXPECT_EQ(get.Name, u"P");
  EXPECT_EQ(get.NameAndType, u"P [Get]");
  EXPECT_EQ(get.vbext, 3);
  EXPECT_EQ(get.ProcStartLine, 4);
  EXPECT_EQ(get.ProcBodyLine, 4);
  EXPECT_EQ(get.ProcCountLines, 2);
}

TEST_F(Filling, MembersThatAreGoneStayUntilTheyAreRemoved) {
  const auto code = world_.Module(u"M", u"Sub A()\r\nEnd Sub");
  Fill();
  code->DeleteLines(1, 2);
  ProjectFiller::ProjectTree_Component(
      *model_, caption_,
      world_.Environment.VBE()->VBProjects()->Item(1)->VBComponents()->Item(u"M"));
  EXPECT_EQ(Keys(Component(u"M")), std::vector<String>{u"A [PROC]"});
  EXPECT_EQ(Component(u"M").CountOfLines, 0);
}

TEST_F(Filling, AnAbsentEnvironmentLeavesTheModel) {
  Fill();
  const auto before = model_;
  filler_.ProjectTree(nullptr, model_);
  EXPECT_EQ(model_, before);
  ProjectFiller::ProjectTree_Component(*model_, u"", nullptr);
  EXPECT_EQ(model_->Count(), 1U);
}

/// A component of which nothing but name and type can be read.
class Bare : public host::VBComponent {
 public:
  String Name() override { return u"Pictures"; }
  void SetName(StringView) override {}
  host::vbext_ComponentType Type() override { return host::vbext_ct_ResFile; }
  std::shared_ptr<host::CodeModule> CodeModule() override {
    throw vb::RuntimeFailure(vb::InvalidCall);
  }
  std::shared_ptr<host::Designer> Designer() override { return nullptr; }
  std::shared_ptr<host::VBE> VBE() override { return nullptr; }
  std::shared_ptr<host::Properties> Properties() override { return nullptr; }
  void Activate() override {}
  void SaveAs(StringView) override {}
  String FileName() override { return {}; }
};

TEST_F(Filling, AComponentWithoutACodeModuleHasCountsOfZeroAndNoMembers) {
  Fill();
  ProjectFiller::ProjectTree_Component(*model_, caption_, std::make_shared<Bare>());
  const auto group = model_->item(caption_)->item(host::vbext_ct_ResFile);
  ASSERT_EQ(Keys(*group), std::vector<String>{u"PICTURES"});
  EXPECT_EQ(group->item(u"Pictures")->CountOfLines, 0);
  EXPECT_EQ(group->item(u"Pictures")->Count(), 0U);
}

class Project1 : public host::VBProject {
 public:
  explicit Project1(StringView file) : file_(file) {}
  String Name() override { return u"Project1"; }
  String FileName() override { return file_; }
  std::shared_ptr<host::VBE> VBE() override { return nullptr; }
  host::vbext_ProjectType Type() override { return host::vbext_pt_StandardExe; }
  std::shared_ptr<host::VBComponents> VBComponents() override { return nullptr; }

 private:
  String file_;
};

TEST(ProjectCaption, PutsTheFilesNameInBracketsWithoutABlank) {
  const ProjectTexts texts = ProjectCaption(std::make_shared<Project1>(u"C:\\Work\\Project1.vbp"));
  EXPECT_EQ(texts.Caption, u"Project1[Project1.vbp]");
  EXPECT_EQ(texts.FileName, u"C:\\Work\\Project1.vbp");
  EXPECT_EQ(ProjectCaption(nullptr).Caption, u"");
}

TEST_F(Filling, TwoProjectsOfOneNameWithoutFilesAreOne) {
  cProjecteses model;
  filler_.ProjectTree_Project(model, std::make_shared<Project1>(u""));
  filler_.ProjectTree_Project(model, std::make_shared<Project1>(u""));
  EXPECT_EQ(model.Count(), 1U);
  filler_.ProjectTree_Project(model, std::make_shared<Project1>(u"\\p.vbp"));
  EXPECT_EQ(model.Count(), 2U);
}

}  // namespace
}  // namespace tessel
