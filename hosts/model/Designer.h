// Designers, controls and properties over a designer tree.
#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "host/Designer.h"
#include "hosts/model/DesignerTree.h"
#include "hosts/model/OperationHook.h"

namespace tessel::model {

class VBComponent;
class Designer;
class Events;

class VBControl : public host::VBControl, public std::enable_shared_from_this<VBControl> {
 public:
  VBControl(Hook hook, const std::shared_ptr<Designer>& designer, DesignerNode* node)
      : hook_(std::move(hook)), designer_(designer), node_(node) {}
  [[nodiscard]] String ClassName() override;
  [[nodiscard]] std::shared_ptr<host::Properties> Properties() override;
  [[nodiscard]] String ControlObjectName() override;
  [[nodiscard]] std::shared_ptr<host::VBComponent> ControlObjectParent() override;
  [[nodiscard]] std::shared_ptr<host::VBControls> Collection() override;

  /// The block, null once the control was removed.
  [[nodiscard]] DesignerNode* Node() const { return node_; }
  [[nodiscard]] std::shared_ptr<Designer> Owner() const { return designer_.lock(); }
  void Detach();

 private:
  friend class Designer;
  Hook hook_;
  std::weak_ptr<Designer> designer_;
  DesignerNode* node_;
  // What a removed control was, for the handlers of its removal.
  String lastClass_, lastName_;
};

/// A designer and, being one collection, its controls.
class Designer : public host::Designer,
                 public host::VBControls,
                 public std::enable_shared_from_this<Designer> {
 public:
  Designer(Hook hook, const std::shared_ptr<VBComponent>& component,
           std::shared_ptr<DesignerTree> tree);
  [[nodiscard]] std::shared_ptr<host::VBControls> VBControls() override;
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::VBControl> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::VBComponent> Parent() override;

  [[nodiscard]] DesignerTree& Tree() const { return *tree_; }
  [[nodiscard]] const std::shared_ptr<DesignerTree>& SharedTree() const { return tree_; }
  [[nodiscard]] std::shared_ptr<VBComponent> Component() const { return component_.lock(); }

  /// Fails with 9 naming the control when there is none.
  [[nodiscard]] std::shared_ptr<VBControl> Find(StringView name, int index);
  /// The control of a block of this designer's tree.
  [[nodiscard]] std::shared_ptr<VBControl> ControlOf(DesignerNode* node);

  /// A new control inside `parent` (null: on the form itself), with its properties; an "Index"
  /// makes it an element of an array. Raises the event; fails when the name is taken, the form's or
  /// no name.
  std::shared_ptr<VBControl> AddControl(StringView className, StringView name,
                                        const std::vector<std::pair<String, String>>& properties,
                                        DesignerNode* parent = nullptr, bool onTop = false);
  /// Renames and raises the event; fails when the name is taken, the form's or no name.
  void RenameControl(const std::shared_ptr<VBControl>& control, StringView name);
  /// Gives a control a name back that it had, without an event; fails when it is taken by now.
  void PutName(DesignerNode& node, StringView name);
  /// Takes a control off with what stands in it, and raises the event for each, innermost first.
  TakenBlock TakeControl(DesignerNode& node);
  /// Puts back what TakeControl took, without an event: nobody has to name what has a name. Fails
  /// when a name was given away meanwhile or the container is gone.
  void PutBackControl(const TakenBlock& block);

 private:
  [[nodiscard]] bool IsTaken(StringView name, const DesignerNode* except, int index) const;
  void CheckName(StringView name) const;
  [[nodiscard]] model::Events* Sinks() const;
  Hook hook_;
  std::weak_ptr<VBComponent> component_;
  std::shared_ptr<DesignerTree> tree_;
  std::vector<DesignerNode*> order_;
  bool orderKnown_ = false;
  std::map<DesignerNode*, std::shared_ptr<VBControl>> controls_;
};

/// The property bag of a block: its name first, then the lines of the block.
class Properties : public host::Properties {
 public:
  struct Entry {
    String Name;
    std::function<String()> Get;
    std::function<void(StringView)> Set;
  };
  Properties(Hook hook, std::vector<Entry> entries)
      : hook_(std::move(hook)), entries_(std::move(entries)) {}
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::Property> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::Property> Item(StringView name) override;

 private:
  Hook hook_;
  std::vector<Entry> entries_;
};

/// The entries of a block's lines.
void AddBlockEntries(std::vector<Properties::Entry>& entries,
                     const std::shared_ptr<DesignerTree>& tree, DesignerNode* node);

/// Whether a text can be the name of a component or control.
[[nodiscard]] bool IsName(StringView text);

}  // namespace tessel::model
