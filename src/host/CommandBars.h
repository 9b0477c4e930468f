// The environment's command bars.
#pragma once

#include <memory>
#include <optional>

#include "host/Types.h"

namespace tessel::host {

class CommandBarControls;

/// A button or a pop-up.
class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  [[nodiscard]] virtual MsoControlType Type() = 0;
  [[nodiscard]] virtual String Caption() = 0;
  virtual void SetCaption(StringView caption) = 0;
  [[nodiscard]] virtual bool BeginGroup() = 0;
  virtual void SetBeginGroup(bool value) = 0;
  [[nodiscard]] virtual bool Enabled() = 0;
  virtual void SetEnabled(bool value) = 0;
  [[nodiscard]] virtual bool Visible() = 0;
  virtual void SetVisible(bool value) = 0;
  /// Free text that carries the item's argument.
  [[nodiscard]] virtual String OnAction() = 0;
  virtual void SetOnAction(StringView text) = 0;
  [[nodiscard]] virtual int Style() = 0;
  virtual void SetStyle(int style) = 0;
  [[nodiscard]] virtual int FaceId() = 0;
  virtual void SetFaceId(int face) = 0;
  /// Takes the picture that is on the clipboard; fails when there is none.
  virtual void PasteFace() = 0;
  /// Runs the environment's own command behind the control, and the click handlers.
  virtual void Execute() = 0;
  /// The controls below a pop-up; nothing for a button.
  [[nodiscard]] virtual std::shared_ptr<CommandBarControls> Controls() = 0;
};

/// Items by caption ("&" ignored, without regard to case) or position from 1; fails with 5 when
/// absent.
class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<CommandBarControl> Item(int index) = 0;
  [[nodiscard]] virtual std::shared_ptr<CommandBarControl> Item(StringView caption) = 0;
  /// `before` is a position, nothing means the end.
  virtual std::shared_ptr<CommandBarControl> Add(MsoControlType type,
                                                 std::optional<int> before = std::nullopt,
                                                 bool temporary = true) = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  [[nodiscard]] virtual String Name() = 0;
  [[nodiscard]] virtual std::shared_ptr<CommandBarControls> Controls() = 0;
  virtual void Delete() = 0;
  [[nodiscard]] virtual int Left() = 0;
  virtual void SetLeft(int value) = 0;
  [[nodiscard]] virtual int Top() = 0;
  virtual void SetTop(int value) = 0;
  [[nodiscard]] virtual int Position() = 0;
  virtual void SetPosition(int value) = 0;
  [[nodiscard]] virtual int RowIndex() = 0;
  virtual void SetRowIndex(int value) = 0;
  [[nodiscard]] virtual bool Visible() = 0;
  virtual void SetVisible(bool value) = 0;
};

/// Items by name without regard to case or position from 1; fails with 5 when absent.
class CommandBars {
 public:
  virtual ~CommandBars() = default;
  [[nodiscard]] virtual int Count() = 0;
  [[nodiscard]] virtual std::shared_ptr<CommandBar> Item(int index) = 0;
  [[nodiscard]] virtual std::shared_ptr<CommandBar> Item(StringView name) = 0;
  virtual std::shared_ptr<CommandBar> Add(StringView name, int position, bool temporary) = 0;
};

}  // namespace tessel::host
