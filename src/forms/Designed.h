// Values that a user or a handler changes and that go back to what the class made them.
#pragma once

#include <concepts>
#include <utility>
#include <vector>

namespace tessel::forms {

class DesignedValue;

/// Owns designed values: a control, a form, a document.
class Designs {
 public:
  Designs() = default;
  virtual ~Designs() = default;
  Designs(const Designs&) = delete;
  Designs& operator=(const Designs&) = delete;

  /// Keeps the values as they stand.
  void SaveDesign();
  /// Puts the kept values back and tells of the change. Raises no event of a control.
  virtual void RestoreDesign();

 protected:
  /// Called when a value has become another one, so that it can be shown.
  virtual void Changed() = 0;

 private:
  friend class DesignedValue;
  std::vector<DesignedValue*> values_;
};

/// What all designed values have in common, whatever their type.
class DesignedValue {
 public:
  DesignedValue(const DesignedValue&) = delete;
  DesignedValue& operator=(const DesignedValue&) = delete;

 protected:
  explicit DesignedValue(Designs* owner) : owner_(owner) { owner_->values_.push_back(this); }
  virtual ~DesignedValue() = default;
  void Tell() { owner_->Changed(); }

 private:
  friend class Designs;
  virtual void Save() = 0;
  virtual void Restore() = 0;
  Designs* owner_;
};

/// A value with its design. A member of its owner: it may not outlive it.
template <class T>
class Designed final : public DesignedValue {
 public:
  explicit Designed(Designs* owner, T value = {})
      : DesignedValue(owner), value_(std::move(value)), design_(value_) {}
  Designed(const Designed&) = delete;

  operator const T&() const { return value_; }  // NOLINT: reads like the value itself
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }

  /// Whether the value is another one now; the owner is told then.
  bool Set(T value) {
    if (value_ == value) return false;
    value_ = std::move(value);
    Tell();
    return true;
  }
  Designed& operator=(T value) {
    Set(std::move(value));
    return *this;
  }
  /// From what a T is made of, a text from a view of one.
  template <class From>
  requires std::constructible_from<T, From> &&
      (!std::derived_from<std::decay_t<From>, DesignedValue>)Designed&
      operator=(From&& value) {
    return *this = T(std::forward<From>(value));
  }
  Designed& operator=(const Designed& other) { return *this = other.value_; }
  /// For changes in place; the owner says itself that there was one.
  T& InPlace() { return value_; }

 private:
  void Save() override { design_ = value_; }
  void Restore() override { value_ = design_; }
  T value_, design_;
};

}  // namespace tessel::forms
