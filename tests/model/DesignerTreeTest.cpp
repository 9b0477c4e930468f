#include "hosts/model/DesignerTree.h"

#include <gtest/gtest.h>

#include "vb/Failure.h"

namespace tessel::model {
namespace {

constexpr StringView Head =
    u"VERSION 5.00\r\n"
    u"Begin VB.Form Form1 \r\n"
    u"   Caption         =   \"One\"\r\n"
    u"   Enabled         =   0   'False\r\n"
    u"   Begin VB.Frame Frame1 \r\n"
    u"      Height          =   600\r\n"
    u"      Begin VB.Label Label1 \r\n"
    u"         Caption         =   \"Inner\"\r\n"
    u"      End\r\n"
    u"   End\r\n"
    u"   Begin VB.Timer Timer1 \r\n"
    u"   End\r\n"
    u"End\r\n";

DesignerNode& Named(DesignerTree& tree, StringView name) {
  for (DesignerNode* node : tree.Controls()) {
    if (node->Name == name) return *node;
  }
  return *tree.Root();
}

TEST(DesignerTree, WritesItsTextAsItWasRead) {
  const DesignerTree tree(Head);
  EXPECT_EQ(tree.Text(), Head);
  EXPECT_FALSE(tree.IsModified());
}

TEST(DesignerTree, TellsOfAnEditBehindIt) {
  DesignerTree tree(Head);
  String seen;
  tree.Changed = [&] { seen = tree.Text(); };
  tree.SetProperty(*tree.Root(), u"Caption", u"Two");
  EXPECT_EQ(seen, tree.Text());
  EXPECT_NE(seen.find(u"\"Two\""), String::npos);
  tree.Remove(Named(tree, u"Timer1"));
  EXPECT_EQ(seen.find(u"Timer1"), String::npos);
}

TEST(DesignerTree, PutsATakenBlockBackByteForByte) {
  DesignerTree tree(Head);
  DesignerNode& frame = Named(tree, u"Frame1");
  const TakenBlock block = tree.Take(frame);
  EXPECT_EQ(block.Node.get(), &frame);
  EXPECT_EQ(tree.Text().find(u"Label1"), String::npos);
  EXPECT_FALSE(tree.Holds(&frame));
  tree.PutBack(block);
  EXPECT_EQ(tree.Text(), Head);
  EXPECT_TRUE(tree.Holds(&frame));
}

TEST(DesignerTree, RefusesToTakeTheOutermostBlock) {
  DesignerTree tree(Head);
  EXPECT_THROW((void)tree.Take(*tree.Root()), vb::Failure);
  EXPECT_EQ(tree.Text(), Head);
}

TEST(DesignerTree, RefusesToPutABlockIntoAContainerThatLeft) {
  DesignerTree tree(Head);
  const TakenBlock label = tree.Take(Named(tree, u"Label1"));
  const TakenBlock frame = tree.Take(Named(tree, u"Frame1"));
  EXPECT_THROW(tree.PutBack(label), vb::Failure);
  tree.PutBack(frame);
  tree.PutBack(label);
  EXPECT_EQ(tree.Text(), Head);
}

TEST(DesignerTree, PutsABlockBackAtTheEndWhenItsPlaceIsGone) {
  DesignerTree tree(Head);
  const TakenBlock timer = tree.Take(Named(tree, u"Timer1"));
  tree.Remove(Named(tree, u"Frame1"));
  tree.PutBack(timer);
  EXPECT_EQ(tree.Controls().size(), 1U);
}

TEST(DesignerTree, TakesAPropertyLineAwayAndPutsItBack) {
  DesignerTree tree(Head);
  DesignerNode& root = *tree.Root();
  const auto before = root.RawLine(u"enabled");
  ASSERT_TRUE(before);
  EXPECT_EQ(*before, u"   Enabled         =   0   'False\r\n");
  tree.SetRawValue(root, u"Enabled", u"-1  'True");
  EXPECT_EQ(root.RawValue(u"Enabled"), u"-1  'True");
  tree.PutLine(root, u"Enabled", before);
  EXPECT_EQ(tree.Text(), Head);
  tree.SetProperty(root, u"Tag", u"x");
  tree.PutLine(root, u"Tag", std::nullopt);
  EXPECT_EQ(tree.Text(), Head);
}

TEST(DesignerTree, PutsAMissingPropertyAheadOfTheBlocks) {
  DesignerTree tree(Head);
  tree.PutLine(*tree.Root(), u"Tag", u"   Tag             =   \"x\"\r\n");
  EXPECT_LT(tree.Text().find(u"Tag "), tree.Text().find(u"Frame1"));
  EXPECT_EQ(tree.Root()->RawValue(u"Tag"), u"\"x\"");
}

TEST(DesignerTree, RenamesInPlaceAndBackAgain) {
  DesignerTree tree(u"Begin VB.Form   Form \t\r\nEnd");
  tree.Rename(*tree.Root(), u"frmMain");
  EXPECT_EQ(tree.Text(), u"Begin VB.Form   frmMain \t\r\nEnd");
  tree.Rename(*tree.Root(), u"Form");
  EXPECT_EQ(tree.Text(), u"Begin VB.Form   Form \t\r\nEnd");
}

TEST(DesignerTree, NamesABlockThatHadNone) {
  DesignerTree tree(u"Begin VB.Form\r\nEnd\r\n");
  tree.Rename(*tree.Root(), u"Form1");
  EXPECT_EQ(tree.Text(), u"Begin VB.Form Form1 \r\nEnd\r\n");
}

TEST(DesignerTree, AddsOnTopOrBehindTheOtherBlocks) {
  DesignerTree tree(Head);
  tree.Add(*tree.Root(), u"VB.Label", u"Upper", true);
  tree.Add(*tree.Root(), u"VB.Label", u"Lower");
  const auto controls = tree.Controls();
  EXPECT_EQ(controls.front()->Name, u"Upper");
  EXPECT_EQ(controls.back()->Name, u"Lower");
}

TEST(DesignerTree, LetsABlockOutliveItsContainer) {
  std::shared_ptr<DesignerNode> label;
  {
    DesignerTree tree(Head);
    label = Named(tree, u"Label1").shared_from_this();
    tree.Remove(Named(tree, u"Frame1"));
    EXPECT_EQ(label->Parent, nullptr);
    EXPECT_FALSE(tree.Holds(label.get()));
  }
  EXPECT_FALSE(DesignerTree(Head).Holds(label.get()));
  EXPECT_FALSE(DesignerTree(Head).Holds(nullptr));
}

TEST(DesignerTree, TakesAnIndexOutsideTheRangeForNone) {
  DesignerTree tree(
      u"Begin VB.Label A\r\n   Index = 99999999999\r\n   Begin VB.Label B\r\n   Index = -4\r\n"
      u"   End\r\nEnd\r\n");
  EXPECT_EQ(tree.Root()->ArrayIndex(), -1);
  EXPECT_EQ(tree.Controls().front()->ArrayIndex(), -1);
  for (const StringView odd : {u"1e999", u"9e99", u"x", u"", u"\"\""}) {
    tree.SetRawValue(*tree.Root(), u"Index", odd);
    EXPECT_EQ(tree.Root()->ArrayIndex(), -1);
  }
}

}  // namespace
}  // namespace tessel::model
