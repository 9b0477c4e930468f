// Designers, their controls and the property bags.
#pragma once

#include <memory>

#include "host/Types.h"

namespace tessel::host {

class VBComponent;
class VBControls;

class Property {
 public:
  virtual ~Property() = default;
  [[nodiscard]] virtual String Name() = 0;
  /// Value as text: strings without quotes, numbers, True/False, others as the file writes them.
  [[nodiscard]] virtual String Value() = 0;
  virtual void SetValue(StringView value) = 0;
};

/// Items by position from 1 or by name without regard to case; fails with 9 when absent.
class Properties {
 public:
  virtual ~Properties() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<Property> Item(int index) = 0;
  [[nodiscard]] virtual std::shared_ptr<Property> Item(StringView name) = 0;
};

class VBControl {
 public:
  virtual ~VBControl() = default;
  /// Class of the control without its library, e.g. "CommandButton".
  [[nodiscard]] virtual String ClassName() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::Properties> Properties() = 0;
  /// Name of the live control.
  [[nodiscard]] virtual String ControlObjectName() = 0;
  /// The designer that the live control stands on.
  [[nodiscard]] virtual std::shared_ptr<VBComponent> ControlObjectParent() = 0;
  [[nodiscard]] virtual std::shared_ptr<VBControls> Collection() = 0;
};

/// The controls of a designer in the order of the file.
class VBControls {
 public:
  virtual ~VBControls() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<VBControl> Item(int index) = 0;
  /// The component whose designer this is.
  [[nodiscard]] virtual std::shared_ptr<VBComponent> Parent() = 0;
};

class Designer {
 public:
  virtual ~Designer() = default;
  [[nodiscard]] virtual std::shared_ptr<host::VBControls> VBControls() = 0;
};

}  // namespace tessel::host
