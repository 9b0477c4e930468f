// The single steps that edits of a designer are made of. Each can be taken back.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/model/Component.h"

namespace tessel::workbench {

/// A property and its value.
using NamedValue = std::pair<String, String>;

/// Gives a component's code the text that it had `before`; false, changing nothing, when it isn't
/// `after` any more.
using TakeBackCode =
    std::function<bool(model::VBComponent& component, const String& before, const String& after)>;

/// One change of a designer. Both directions fail with a vb::Failure and then leave everything as
/// it was, but for what a handler of the host's events throws: it hears of a change that stands.
class EditStep {
 public:
  EditStep() = default;
  EditStep(const EditStep&) = delete;
  EditStep& operator=(const EditStep&) = delete;
  virtual ~EditStep() = default;
  virtual void Do() = 0;
  virtual void Undo() = 0;
  /// Whether a later step sets the same thing, so that `TakeIn` can make one of both.
  [[nodiscard]] virtual bool SetsSame(const EditStep& /*later*/) const { return false; }
  virtual void TakeIn(const EditStep& /*later*/) {}
};

/// Puts a new control into a container.
class AddStep : public EditStep {
 public:
  AddStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& container,
          StringView className, StringView name, std::vector<NamedValue> properties);
  void Do() override;
  void Undo() override;
  /// The control, whatever it is called by now; null once it was taken away.
  [[nodiscard]] std::shared_ptr<model::DesignerNode> Added() const { return added_.lock(); }

 private:
  std::shared_ptr<model::Designer> designer_;
  std::weak_ptr<model::DesignerNode> container_, added_;
  String class_, name_;
  std::vector<NamedValue> properties_;
  std::optional<model::TakenBlock> taken_;
};

/// Takes a control off with what stands in it.
class RemoveStep : public EditStep {
 public:
  RemoveStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& node);
  void Do() override;
  void Undo() override;

 private:
  std::shared_ptr<model::Designer> designer_;
  std::weak_ptr<model::DesignerNode> node_;
  String name_;
  std::optional<model::TakenBlock> taken_;
};

/// Gives a control, or the component itself, another name. Who hears of it may carry the name
/// through the code: while the code is as it was then, the way back and forth gives both back and
/// nobody is told.
class RenameStep : public EditStep {
 public:
  RenameStep(std::shared_ptr<model::VBComponent> component, model::DesignerNode& node,
             StringView name, TakeBackCode takeBack);
  void Do() override { Rename(before_, after_); }
  void Undo() override { Rename(after_, before_); }

 private:
  /// A name, and the code that went with it.
  struct State {
    String Name, Code;
  };
  void Rename(State& from, State& to);
  [[nodiscard]] bool GoesWithCode(model::Designer& designer, model::DesignerNode& node,
                                  const State& from, const State& to) const;

  std::shared_ptr<model::VBComponent> component_;
  std::weak_ptr<model::DesignerNode> node_;
  State before_, after_;
  bool done_ = false;
  TakeBackCode takeBack_;
};

/// Sets one property to what the file is to have.
class PropertyStep : public EditStep {
 public:
  PropertyStep(std::shared_ptr<model::Designer> designer, model::DesignerNode& node,
               StringView property, StringView raw);
  void Do() override;
  void Undo() override;
  [[nodiscard]] bool SetsSame(const EditStep& later) const override;
  void TakeIn(const EditStep& later) override;

 private:
  std::shared_ptr<model::Designer> designer_;
  std::weak_ptr<model::DesignerNode> node_;
  String name_, property_, raw_;
  std::optional<String> before_;
};

}  // namespace tessel::workbench
