#include "hosts/workbench/designer/EditSteps.h"

#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

/// The block, when it still stands in the designer.
std::shared_ptr<model::DesignerNode> Standing(const model::Designer& designer,
                                              const std::weak_ptr<model::DesignerNode>& weak,
                                              StringView name) {
  auto node = weak.lock();
  if (!designer.Tree().Holds(node.get())) {
    throw vb::Failure(vb::SubscriptOutOfRange, u"There is no control \"" + String(name) + u"\"",
                      u"VBIDE");
  }
  return node;
}

String CodeOf(const model::VBComponent& component) {
  const model::LineBuffer& lines = component.Module()->Buffer();
  return lines.Count() == 0 ? String() : lines.Text(1, lines.Count());
}

}  // namespace

AddStep::AddStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& container,
                 StringView className, StringView name, std::vector<NamedValue> properties)
    : designer_(std::move(designer)),
      container_(container.weak_from_this()),
      class_(className),
      name_(name),
      properties_(std::move(properties)) {}

void AddStep::Do() {
  if (taken_) {
    designer_->PutBackControl(*taken_);
    taken_.reset();
    return;
  }
  const auto container = Standing(*designer_, container_, u"");
  const auto control =
      designer_->AddControl(class_, name_, properties_, container.get(), /*onTop=*/true);
  // Whoever heard of it may have taken it away.
  if (model::DesignerNode* const node = control->Node()) added_ = node->weak_from_this();
}

void AddStep::Undo() {
  const auto node = Standing(*designer_, added_, name_);
  taken_ = designer_->TakeControl(*node);
}

RemoveStep::RemoveStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& node)
    : designer_(std::move(designer)), node_(node.weak_from_this()), name_(node.Name) {}

void RemoveStep::Do() {
  const auto node = Standing(*designer_, node_, name_);
  taken_ = designer_->TakeControl(*node);
}

void RemoveStep::Undo() {
  if (!taken_) throw vb::RuntimeFailure(vb::ObjectNotSet);
  designer_->PutBackControl(*taken_);
  taken_.reset();
}

RenameStep::RenameStep(std::shared_ptr<model::VBComponent> component, model::DesignerNode& node,
                       StringView name, TakeBackCode takeBack)
    : component_(std::move(component)),
      node_(node.weak_from_this()),
      before_{node.Name, {}},
      after_{String(name), {}},
      takeBack_(std::move(takeBack)) {}

void RenameStep::Rename(State& from, State& to) {
  const auto& designer = component_->OwnDesigner();
  const auto node = Standing(*designer, node_, from.Name);
  if (node->Parent == nullptr) return component_->SetName(to.Name);
  String code = CodeOf(*component_);
  if (done_ && code == from.Code && GoesWithCode(*designer, *node, from, to)) return;
  designer->RenameControl(designer->ControlOf(node.get()), to.Name);
  from.Code = std::move(code);
  to.Code = CodeOf(*component_);
  done_ = true;
}

/// The name goes first: it may be another control's by now, and then the code stays.
bool RenameStep::GoesWithCode(model::Designer& designer, model::DesignerNode& node,
                              const State& from, const State& to) const {
  designer.PutName(node, to.Name);
  if (from.Code == to.Code) return true;
  bool done = false;
  try {
    done = takeBack_(*component_, to.Code, from.Code);
  } catch (...) {
    designer.PutName(node, from.Name);
    throw;
  }
  if (!done) designer.PutName(node, from.Name);
  return done;
}

PropertyStep::PropertyStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& node,
                           StringView property, StringView raw)
    : designer_(std::move(designer)),
      node_(node.weak_from_this()),
      name_(node.Name),
      property_(property),
      raw_(raw) {}

void PropertyStep::Do() {
  const auto node = Standing(*designer_, node_, name_);
  before_ = node->RawLine(property_);
  designer_->Tree().SetRawValue(*node, property_, raw_);
}

void PropertyStep::Undo() {
  const auto node = Standing(*designer_, node_, name_);
  designer_->Tree().PutLine(*node, property_, before_);
}

bool PropertyStep::SetsSame(const EditStep& later) const {
  const auto* const other = dynamic_cast<const PropertyStep*>(&later);
  return other != nullptr && other->property_ == property_ && !other->node_.owner_before(node_) &&
         !node_.owner_before(other->node_);
}

void PropertyStep::TakeIn(const EditStep& later) {
  raw_ = dynamic_cast<const PropertyStep&>(later).raw_;
}

}  // namespace tessel::workbench
