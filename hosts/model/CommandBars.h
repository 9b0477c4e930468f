// Command bars in memory.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/CommandBars.h"
#include "hosts/model/Events.h"
#include "hosts/model/OperationHook.h"
#include "platform/Platform.h"

namespace tessel::model {

/// What all bars and controls of an environment share.
struct BarContext {
  model::Hook Hook;
  platform::Platform* Services;
  std::shared_ptr<model::Events> Events;
};

class CommandBarControls;

class CommandBarControl : public host::CommandBarControl,
                          public std::enable_shared_from_this<CommandBarControl> {
 public:
  CommandBarControl(const BarContext& context, host::MsoControlType type);

  [[nodiscard]] host::MsoControlType Type() override {
    return Read("CommandBarControl.Type", type_);
  }
  [[nodiscard]] String Caption() override { return Read("CommandBarControl.Caption", caption_); }
  void SetCaption(StringView caption) override;
  [[nodiscard]] bool BeginGroup() override {
    return Read("CommandBarControl.BeginGroup", beginGroup_);
  }
  void SetBeginGroup(bool value) override;
  [[nodiscard]] bool Enabled() override;
  void SetEnabled(bool value) override;
  [[nodiscard]] bool Visible() override { return Read("CommandBarControl.Visible", visible_); }
  void SetVisible(bool value) override;
  [[nodiscard]] String OnAction() override;
  void SetOnAction(StringView text) override;
  [[nodiscard]] int Style() override { return Read("CommandBarControl.Style", style_); }
  void SetStyle(int style) override;
  [[nodiscard]] int FaceId() override { return Read("CommandBarControl.FaceId", faceId_); }
  void SetFaceId(int face) override;
  void PasteFace() override;
  void Execute() override;
  [[nodiscard]] std::shared_ptr<host::CommandBarControls> Controls() override;

  [[nodiscard]] const String& PlainCaption() const { return caption_; }
  /// Number of the pasted picture, 0 for none.
  [[nodiscard]] int PictureNumber() const { return picture_; }

  /// The environment's own command, and when it can be used.
  std::function<void()> Command;
  std::function<bool()> IsUsable;

 private:
  template <class T>
  const T& Read(const char* operation, const T& field) const {
    (*context_.Hook)(operation);
    return field;
  }
  BarContext context_;
  host::MsoControlType type_;
  String caption_, onAction_;
  bool beginGroup_ = false, enabled_ = true, visible_ = true;
  int style_ = 0, faceId_ = 0, picture_ = 0;
  std::shared_ptr<CommandBarControls> controls_;
};

class CommandBarControls : public host::CommandBarControls {
 public:
  explicit CommandBarControls(const BarContext& context) : context_(context) {}
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::CommandBarControl> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::CommandBarControl> Item(StringView caption) override;
  std::shared_ptr<host::CommandBarControl> Add(host::MsoControlType type, std::optional<int> before,
                                               bool temporary) override;

  /// Adds a control of the environment's own.
  std::shared_ptr<CommandBarControl> AddOwn(host::MsoControlType type, StringView caption);

 private:
  BarContext context_;
  std::vector<std::shared_ptr<CommandBarControl>> items_;
};

class CommandBars;

class CommandBar : public host::CommandBar {
 public:
  CommandBar(const BarContext& context, CommandBars* owner, StringView name, int position);
  [[nodiscard]] const String& PlainName() const { return name_; }
  [[nodiscard]] String Name() override { return Read("CommandBar.Name", name_); }
  [[nodiscard]] std::shared_ptr<host::CommandBarControls> Controls() override {
    return Read("CommandBar.Controls", controls_);
  }
  [[nodiscard]] CommandBarControls& OwnControls() { return *controls_; }
  void Delete() override;
  [[nodiscard]] int Left() override { return Read("CommandBar.Left", left_); }
  void SetLeft(int value) override { Put("CommandBar.Left", left_, value); }
  [[nodiscard]] int Top() override { return Read("CommandBar.Top", top_); }
  void SetTop(int value) override { Put("CommandBar.Top", top_, value); }
  [[nodiscard]] int Position() override { return Read("CommandBar.Position", position_); }
  void SetPosition(int value) override { Put("CommandBar.Position", position_, value); }
  [[nodiscard]] int RowIndex() override { return Read("CommandBar.RowIndex", rowIndex_); }
  void SetRowIndex(int value) override { Put("CommandBar.RowIndex", rowIndex_, value); }
  [[nodiscard]] bool Visible() override { return Read("CommandBar.Visible", visible_); }
  void SetVisible(bool value) override;

 private:
  template <class T>
  const T& Read(const char* operation, const T& field) const {
    (*context_.Hook)(operation);
    return field;
  }
  void Put(const char* operation, int& field, int value) const;
  BarContext context_;
  CommandBars* owner_;  // outlives its bars
  String name_;
  std::shared_ptr<CommandBarControls> controls_;
  int left_ = 0, top_ = 0, position_, rowIndex_ = 0;
  bool visible_ = false;
};

class CommandBars : public host::CommandBars {
 public:
  explicit CommandBars(const BarContext& context) : context_(context) {}
  [[nodiscard]] int Count() override;
  [[nodiscard]] std::shared_ptr<host::CommandBar> Item(int index) override;
  [[nodiscard]] std::shared_ptr<host::CommandBar> Item(StringView name) override;
  std::shared_ptr<host::CommandBar> Add(StringView name, int position, bool temporary) override;

  /// Adds a bar of the environment's own, which shows.
  std::shared_ptr<CommandBar> AddOwn(StringView name);
  void Remove(const CommandBar* bar);

 private:
  BarContext context_;
  std::vector<std::shared_ptr<CommandBar>> bars_;
};

}  // namespace tessel::model
