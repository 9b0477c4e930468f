// The head of a form file: what stands on the designer, as nested blocks of text lines.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "vb/Text.h"

namespace tessel::model {

/// One block from Begin to End. Every line is kept as the file has it (with its line end), so that
/// writing the tree gives the file's text back, and an edit changes its own lines only.
struct DesignerNode : std::enable_shared_from_this<DesignerNode> {
  DesignerNode() = default;
  DesignerNode(const DesignerNode&) = delete;
  DesignerNode& operator=(const DesignerNode&) = delete;
  ~DesignerNode();

  /// A line of the block, or a block inside it.
  struct Item {
    String Line;                          ///< raw; empty when `Child` is set
    String PropertyName;                  ///< of a "Name = value" line
    std::shared_ptr<DesignerNode> Child;  ///< a Begin ... End block
  };
  String BeginLine, EndLine;  ///< raw
  String Class, Name;
  std::vector<Item> Items;
  DesignerNode* Parent = nullptr;

  /// Value of a property as the file writes it; nothing when it isn't there.
  [[nodiscard]] std::optional<String> RawValue(StringView property) const;
  /// The property's whole line with its line end; nothing when it isn't there.
  [[nodiscard]] std::optional<String> RawLine(StringView property) const;
  /// Index of a control array's element, -1 for a control that is none.
  [[nodiscard]] int ArrayIndex() const;
};

/// A block that was taken off a tree, and where it stood.
struct TakenBlock {
  std::shared_ptr<DesignerNode> Node;
  std::weak_ptr<DesignerNode> Parent;
  std::size_t Position = 0;  ///< among the parent's items
  bool NameShared = false;   ///< the file has another control of a name in it, which is not legal
};

/// The whole head, from VERSION to the End of the outermost block.
class DesignerTree {
 public:
  /// Reads a head that ends behind the outermost End. Fails with a vb::Failure naming the line
  /// (from 1) when a block never ends.
  explicit DesignerTree(StringView head);

  /// The outermost block; null when the head has none (a class).
  [[nodiscard]] DesignerNode* Root() const { return root_.get(); }
  /// All blocks below the outermost one that are controls, in the order of the file.
  [[nodiscard]] std::vector<DesignerNode*> Controls() const;
  [[nodiscard]] String Text() const;
  [[nodiscard]] bool IsModified() const { return modified_; }
  void SetModified(bool value) { modified_ = value; }
  /// Called behind each edit.
  std::function<void()> Changed;

  /// Sets a property; a text is written in quotes, a number or constant as it stands.
  void SetProperty(DesignerNode& node, StringView property, StringView value);
  /// Sets a property to what the file is to have behind the equals sign.
  void SetRawValue(DesignerNode& node, StringView property, StringView raw);
  /// Gives a property the line that `RawLine` answered before; with nothing, takes its line away.
  void PutLine(DesignerNode& node, StringView property, const std::optional<String>& line);
  void Rename(DesignerNode& node, StringView name);
  /// Lets every value that is drawn from one file beside the form ("Form1.frx":0000) be drawn from
  /// another one.
  void RenameReferences(StringView file, StringView newFile);
  /// A new block inside `parent`: behind its items, or ahead of its other blocks, which is on top
  /// of what they draw.
  DesignerNode& Add(DesignerNode& parent, StringView className, StringView name,
                    bool onTop = false);
  void Remove(DesignerNode& node) { (void)Take(node); }
  /// Takes a block off the tree; fails with 5 for the outermost one.
  TakenBlock Take(DesignerNode& node);
  /// Puts a block back where it stood; fails with 91 when its parent left the tree.
  void PutBack(const TakenBlock& block);
  /// Whether the block, which must be alive, stands in this tree; false for null.
  [[nodiscard]] bool Holds(const DesignerNode* node) const;

 private:
  void Touched() {
    modified_ = true;
    if (Changed) Changed();
  }
  std::vector<String> lead_;  // raw lines ahead of the outermost block
  std::shared_ptr<DesignerNode> root_;
  String lineEnd_ = u"\r\n";
  bool modified_ = false;
};

/// All blocks inside one, in the order of the file.
[[nodiscard]] std::vector<DesignerNode*> BlocksInside(DesignerNode& node);

/// A raw value as callers see it: quotes taken off, comments behind the value dropped.
[[nodiscard]] String PlainValue(StringView raw);

}  // namespace tessel::model
