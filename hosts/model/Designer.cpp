#include "hosts/model/Designer.h"

#include <algorithm>

#include "hosts/model/Component.h"
#include "hosts/model/Vbe.h"
#include "hosts/model/Words.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::model {
namespace {

constexpr std::size_t LongestName = 40;
constexpr std::int32_t NotAName = 32813;

class Property : public host::Property {
 public:
  Property(Hook hook, Properties::Entry entry) : hook_(std::move(hook)), entry_(std::move(entry)) {}
  [[nodiscard]] String Name() override {
    (*hook_)("Property.Name");
    return entry_.Name;
  }
  [[nodiscard]] String Value() override {
    (*hook_)("Property.Value");
    return entry_.Get();
  }
  void SetValue(StringView value) override {
    (*hook_)("Property.Value");
    entry_.Set(value);
  }

 private:
  Hook hook_;
  Properties::Entry entry_;
};

[[noreturn]] void Missing(StringView what, StringView name) {
  throw vb::Failure(vb::SubscriptOutOfRange,
                    u"There is no " + String(what) + u" \"" + String(name) + u"\"", u"VBIDE");
}

/// The place in a control array that a new control is to have, -1 for none.
int IndexIn(const std::vector<std::pair<String, String>>& properties) {
  for (const auto& [name, value] : properties) {
    if (vb::SameText(name, u"Index") && vb::IsNumeric(value)) return vb::CLng(value);
  }
  return -1;
}

[[noreturn]] void FailTaken(StringView name) {
  throw vb::Failure(NotAName, u"The form has a control \"" + String(name) + u"\" already",
                    u"VBIDE");
}

}  // namespace

bool IsName(StringView text) {
  const auto letter = [](char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit >= 0x80;
  };
  return !text.empty() && text.size() <= LongestName && letter(text.front()) &&
         std::all_of(text.begin(), text.end(), [&](char16_t unit) {
           return letter(unit) || unit == u'_' || (unit >= u'0' && unit <= u'9');
         });
}

int Properties::Count() {
  (*hook_)("Properties.Count");
  return static_cast<int>(entries_.size());
}

std::shared_ptr<host::Property> Properties::Item(int index) {
  (*hook_)("Properties.Item");
  if (index < 1 || index > static_cast<int>(entries_.size())) Missing(u"property", vb::Str(index));
  return std::make_shared<Property>(hook_, entries_[static_cast<std::size_t>(index) - 1]);
}

std::shared_ptr<host::Property> Properties::Item(StringView name) {
  (*hook_)("Properties.Item");
  for (const Entry& entry : entries_) {
    if (vb::SameText(entry.Name, name)) return std::make_shared<Property>(hook_, entry);
  }
  Missing(u"property", name);
}

void AddBlockEntries(std::vector<Properties::Entry>& entries,
                     const std::shared_ptr<DesignerTree>& tree, DesignerNode* node) {
  for (const auto& item : node->Items) {
    if (item.Child || item.PropertyName.empty()) continue;
    const String name = item.PropertyName;
    entries.push_back(
        {name, [node, name] { return PlainValue(node->RawValue(name).value_or(String())); },
         [tree, node, name](StringView value) { tree->SetProperty(*node, name, value); }});
  }
}

String VBControl::ClassName() {
  (*hook_)("VBControl.ClassName");
  const String& full = node_ == nullptr ? lastClass_ : node_->Class;
  return full.substr(full.find(u'.') + 1);
}

String VBControl::ControlObjectName() {
  (*hook_)("VBControl.ControlObject");
  return node_ == nullptr ? lastName_ : node_->Name;
}

std::shared_ptr<host::Properties> VBControl::Properties() {
  (*hook_)("VBControl.Properties");
  std::vector<model::Properties::Entry> entries;
  const auto self = shared_from_this();
  entries.push_back({u"Name", [self] { return self->node_ ? self->node_->Name : self->lastName_; },
                     [self](StringView value) {
                       if (const auto owner = self->Owner()) owner->RenameControl(self, value);
                     }});
  const auto owner = Owner();
  if (node_ != nullptr && owner) AddBlockEntries(entries, owner->SharedTree(), node_);
  return std::make_shared<model::Properties>(hook_, std::move(entries));
}

std::shared_ptr<host::VBComponent> VBControl::ControlObjectParent() {
  (*hook_)("VBControl.ControlObject");
  const auto owner = Owner();
  return owner ? owner->Parent() : nullptr;
}

std::shared_ptr<host::VBControls> VBControl::Collection() {
  (*hook_)("VBControl.Collection");
  return Owner();
}

void VBControl::Detach() {
  lastClass_ = node_->Class;
  lastName_ = node_->Name;
  node_ = nullptr;
}

Designer::Designer(Hook hook, const std::shared_ptr<VBComponent>& component,
                   std::shared_ptr<DesignerTree> tree)
    : hook_(std::move(hook)), component_(component), tree_(std::move(tree)) {
  tree_->Changed = [shared = hook_, weak = component_] {
    if (const auto owner = weak.lock()) shared->Tell(&Observer::DesignerChanged, *owner);
  };
}

std::shared_ptr<host::VBControls> Designer::VBControls() {
  (*hook_)("Designer.VBControls");
  return shared_from_this();
}

int Designer::Count() {
  (*hook_)("VBControls.Count");
  if (!orderKnown_) order_ = tree_->Controls();
  orderKnown_ = true;
  return static_cast<int>(order_.size());
}

std::shared_ptr<host::VBControl> Designer::Item(int index) {
  (*hook_)("VBControls.Item");
  if (index < 1 || index > Count()) Missing(u"control", vb::Str(index));
  return ControlOf(order_[static_cast<std::size_t>(index) - 1]);
}

std::shared_ptr<host::VBComponent> Designer::Parent() {
  (*hook_)("VBControls.Parent");
  return component_.lock();
}

std::shared_ptr<VBControl> Designer::ControlOf(DesignerNode* node) {
  auto& control = controls_[node];
  if (!control) control = std::make_shared<VBControl>(hook_, shared_from_this(), node);
  return control;
}

std::shared_ptr<VBControl> Designer::Find(StringView name, int index) {
  for (DesignerNode* node : tree_->Controls()) {
    if (vb::SameText(node->Name, name) && (index < 0 || node->ArrayIndex() == index)) {
      return ControlOf(node);
    }
  }
  Missing(u"control", name);
}

Events* Designer::Sinks() const {
  const auto component = Component();
  const auto vbe = component ? component->Environment() : nullptr;
  return vbe ? &vbe->OwnEvents() : nullptr;
}

/// Elements of a control array share their name; `index` is the array index or -1.
bool Designer::IsTaken(StringView name, const DesignerNode* except, int index) const {
  const auto controls = tree_->Controls();
  return std::any_of(controls.begin(), controls.end(), [&](const DesignerNode* other) {
    if (other == except || !vb::SameText(other->Name, name)) return false;
    const int own = index < 0 ? -1 : other->ArrayIndex();
    return own < 0 || own == index;
  });
}

/// What a file holds is taken as it is; who names a control is held to the language.
void Designer::CheckName(StringView name) const {
  if (!IsName(name) || FindWord(name).Kind == WordKind::Reserved) {
    throw vb::Failure(NotAName, u"\"" + String(name) + u"\" is not a valid name", u"VBIDE");
  }
  const auto owner = Component();
  if (owner && vb::SameText(owner->PlainName(), name)) {
    throw vb::Failure(NotAName, u"\"" + String(name) + u"\" is the name of the form", u"VBIDE");
  }
}

std::shared_ptr<VBControl> Designer::AddControl(
    StringView className, StringView name, const std::vector<std::pair<String, String>>& properties,
    DesignerNode* parent, bool onTop) {
  CheckName(name);
  if (IsTaken(name, nullptr, IndexIn(properties))) FailTaken(name);
  const String full =
      className.find(u'.') == StringView::npos ? u"VB." + String(className) : String(className);
  orderKnown_ = false;
  DesignerNode& node = tree_->Add(parent == nullptr ? *tree_->Root() : *parent, full, name, onTop);
  for (const auto& [property, value] : properties) {
    if (!vb::SameText(property, u"Name")) tree_->SetProperty(node, property, value);
  }
  auto control = ControlOf(&node);
  if (auto* const sinks = Sinks()) sinks->ControlAdded(control);
  return control;
}

void Designer::RenameControl(const std::shared_ptr<VBControl>& control, StringView name) {
  DesignerNode* const node = control->Node();
  if (node == nullptr || node->Name == name) return;
  CheckName(name);
  const String before = node->Name;
  const int index = node->ArrayIndex();
  PutName(*node, name);
  if (auto* const sinks = Sinks()) sinks->ControlRenamed(control, before, index);
  const auto owner = component_.lock();
  if (const auto vbe = owner ? owner->Environment() : nullptr) vbe->OwnWindows().ShowProperties();
}

void Designer::PutName(DesignerNode& node, StringView name) {
  if (IsTaken(name, &node, -1)) FailTaken(name);
  tree_->Rename(node, name);
}

TakenBlock Designer::TakeControl(DesignerNode& node) {
  std::vector<std::shared_ptr<VBControl>> gone{ControlOf(&node)};
  for (DesignerNode* inner : BlocksInside(node)) gone.push_back(ControlOf(inner));
  const bool shared = std::any_of(gone.begin(), gone.end(), [this](const auto& control) {
    const DesignerNode* const one = control->Node();
    return IsTaken(one->Name, one, one->ArrayIndex());
  });
  orderKnown_ = false;
  TakenBlock block = tree_->Take(node);
  block.NameShared = shared;
  for (const auto& control : gone) {
    controls_.erase(control->Node());
    control->Detach();
  }
  auto* const sinks = Sinks();
  std::for_each(gone.rbegin(), gone.rend(), [&](const auto& control) {
    if (sinks != nullptr) sinks->ControlRemoved(control);
  });
  return block;
}

void Designer::PutBackControl(const TakenBlock& block) {
  std::vector<DesignerNode*> back{block.Node.get()};
  for (DesignerNode* inner : BlocksInside(*block.Node)) back.push_back(inner);
  for (const DesignerNode* node : back) {
    const bool taken = IsTaken(node->Name, node, node->ArrayIndex());
    if (taken && !block.NameShared) FailTaken(node->Name);
  }
  orderKnown_ = false;
  tree_->PutBack(block);
}

}  // namespace tessel::model
