#include "hosts/model/CodeModule.h"

#include <gtest/gtest.h>

#include "tests/support/Modules.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

using host::vbext_pk_Get;
using host::vbext_pk_Let;
using host::vbext_pk_Proc;
using host::vbext_ProcKind;

template <class F>
int FailureOf(F&& call) {
  try {
    call();
  } catch (const vb::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

constexpr StringView Sample =
    u"Option Explicit\r\n\r\n' about A\r\nSub A()\r\nEnd Sub\r\nProperty Get P()\r\nEnd Property";
constexpr int NoSuchMember = 35;

TEST(CodeModule, GivesLinesAsFarAsTheyExist) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(module->CountOfLines(), 7);
  EXPECT_EQ(module->Lines(3, 2), u"' about A\r\nSub A()");
  EXPECT_EQ(module->Lines(7, 100), u"End Property");
  EXPECT_EQ(module->Lines(8, 1), u"");
  EXPECT_EQ(module->Lines(1, 0), u"");
  EXPECT_EQ(FailureOf([&] { (void)module->Lines(0, 1); }), vb::SubscriptOutOfRange);
  EXPECT_EQ(FailureOf([&] { (void)module->Lines(1, -1); }), vb::SubscriptOutOfRange);
}

TEST(CodeModule, AnswersAnEmptyNameInTheDeclarations) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  vbext_ProcKind kind = vbext_pk_Let;
  EXPECT_EQ(module->ProcOfLine(1, kind), u"");
  EXPECT_EQ(kind, vbext_pk_Let);
  EXPECT_EQ(module->ProcOfLine(2, kind), u"A");
  EXPECT_EQ(kind, vbext_pk_Proc);
  EXPECT_EQ(module->ProcOfLine(7, kind), u"P");
  EXPECT_EQ(kind, vbext_pk_Get);
  EXPECT_EQ(module->ProcOfLine(8, kind), u"");
  EXPECT_EQ(module->CountOfDeclarationLines(), 1);
}

TEST(CodeModule, FindsMembersByNameAndKind) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(module->ProcStartLine(u"a", vbext_pk_Proc), 2);
  EXPECT_EQ(module->ProcBodyLine(u"a", vbext_pk_Proc), 4);
  EXPECT_EQ(module->ProcCountLines(u"a", vbext_pk_Proc), 4);
  EXPECT_EQ(module->ProcBodyLine(u"P", vbext_pk_Get), 6);
}

TEST(CodeModule, FailsWith35ForAKindThatTheNameDoesNotHave) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(FailureOf([&] { (void)module->ProcStartLine(u"P", vbext_pk_Let); }), NoSuchMember);
  EXPECT_EQ(FailureOf([&] { (void)module->ProcCountLines(u"P", vbext_pk_Proc); }), NoSuchMember);
  EXPECT_EQ(FailureOf([&] { (void)module->ProcBodyLine(u"Q", vbext_pk_Proc); }), NoSuchMember);
}

TEST(CodeModule, TakesALinePastTheEndForTheEnd) {
  test::World world;
  const auto module = world.Module(u"Module1", u"");
  module->InsertLines(2, u"a");
  module->InsertLines(99, u"b\r\n");
  EXPECT_EQ(world.Text(u"Module1"), u"a\r\nb\r\n");
  EXPECT_EQ(module->CountOfLines(), 3);
  EXPECT_EQ(FailureOf([&] { module->InsertLines(0, u"x"); }), vb::SubscriptOutOfRange);
}

TEST(CodeModule, RefusesToDeleteLinesThatAreNotThere) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(FailureOf([&] { module->DeleteLines(7, 2); }), vb::SubscriptOutOfRange);
  EXPECT_EQ(FailureOf([&] { module->DeleteLines(0, 1); }), vb::SubscriptOutOfRange);
  EXPECT_EQ(FailureOf([&] { module->DeleteLines(1, -1); }), vb::SubscriptOutOfRange);
  EXPECT_EQ(world.Text(u"Module1"), Sample);
  module->DeleteLines(1, 7);
  EXPECT_EQ(module->CountOfLines(), 0);
}

TEST(CodeModule, ReplacesOneLineByOneOrMore) {
  test::World world;
  const auto module = world.Module(u"Module1", u"a\r\nb\r\nc");
  module->ReplaceLine(2, u"x\r\ny");
  EXPECT_EQ(world.Text(u"Module1"), u"a\r\nx\r\ny\r\nc");
  EXPECT_EQ(FailureOf([&] { module->ReplaceLine(5, u"x"); }), vb::SubscriptOutOfRange);
}

TEST(CodeModule, KnowsItsMembersAgainBehindEveryEdit) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(module->ProcBodyLine(u"P", vbext_pk_Get), 6);
  module->InsertLines(1, u"' top");
  EXPECT_EQ(module->ProcBodyLine(u"P", vbext_pk_Get), 7);
  module->ReplaceLine(7, u"Property Let P(v)");
  EXPECT_EQ(module->ProcBodyLine(u"P", vbext_pk_Let), 7);
  EXPECT_EQ(FailureOf([&] { (void)module->ProcBodyLine(u"P", vbext_pk_Get); }), NoSuchMember);
  module->DeleteLines(5, 2);
  EXPECT_EQ(module->ProcStartLine(u"P", vbext_pk_Let), 3);
}

TEST(CodeModule, MakesItsPaneOnce) {
  test::World world;
  const auto module = world.Module(u"Module1", Sample);
  EXPECT_EQ(world.Environment.VBE()->ActiveCodePane(), nullptr);
  const auto pane = module->CodePane();
  EXPECT_EQ(module->CodePane(), pane);
  EXPECT_EQ(pane->CodeModule(), module);
  EXPECT_EQ(world.Environment.VBE()->ActiveCodePane(), nullptr);
  pane->Show();
  EXPECT_EQ(world.Environment.VBE()->ActiveCodePane(), pane);
}

TEST(CodePane, PullsASelectionToTheText) {
  test::World world;
  const auto pane = world.Module(u"Module1", u"abc\r\nde")->CodePane();
  pane->SetSelection({2, 2, 9, 9});
  EXPECT_EQ(pane->GetSelection(), (host::Selection{2, 2, 2, 3}));
  pane->SetSelection({9, 1, 9, 1});
  EXPECT_EQ(pane->GetSelection(), (host::Selection{2, 3, 2, 3}));
  pane->SetSelection({0, -1, 1, 40});
  EXPECT_EQ(pane->GetSelection(), (host::Selection{1, 1, 1, 4}));
  pane->SetTopLine(50);
  EXPECT_EQ(pane->TopLine(), 2);
}

TEST(CodePane, PullsItsSelectionBackWhenTheTextShrinks) {
  test::World world;
  const auto module = world.Module(u"Module1", u"abc\r\ndefg\r\nh");
  const auto pane = module->CodePane();
  pane->SetSelection({2, 5, 3, 2});
  module->DeleteLines(2, 2);
  EXPECT_EQ(pane->GetSelection(), (host::Selection{1, 4, 1, 4}));
}

}  // namespace
}  // namespace tessel::model
