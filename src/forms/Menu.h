// Menus as data: items with captions, checks, submenus.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "forms/Designed.h"
#include "vb/Text.h"

namespace tessel::forms {

class Surface;

/// A menu of a surface, or an item of one. Members of the surface under their own names, as its
/// controls are; an item stands in its menu in the order of construction. A menu of the surface
/// that is visible stands in the surface's menu bar; one that isn't can still pop up.
class MenuItem : public Designs {
 public:
  MenuItem(Surface* owner, std::string_view name, StringView caption);
  MenuItem(MenuItem* above, std::string_view name, StringView caption);

  [[nodiscard]] const String& Name() const { return name_; }
  /// "&" ahead of a letter makes it the access key; "-" is a separator.
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(StringView caption) { caption_ = String(caption); }
  [[nodiscard]] bool IsSeparator() const { return *caption_ == u"-"; }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool value) { enabled_ = value; }
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool value) { visible_ = value; }
  [[nodiscard]] bool Checked() const { return checked_; }
  void SetChecked(bool value) { checked_ = value; }

  [[nodiscard]] const std::vector<MenuItem*>& Items() const { return items_; }
  /// The menu that the item stands in, null for a menu of the surface.
  [[nodiscard]] MenuItem* Above() const { return above_; }
  [[nodiscard]] Surface& Owner() const { return *owner_; }
  /// This item or one below it, by name without regard to case; null when there is none.
  [[nodiscard]] MenuItem* Find(StringView name);

  /// Design of the item and of all below it.
  void SaveBranch();
  void RestoreBranch();

  /// Of a menu or submenu: raised ahead of its opening, the moment to set captions and what is
  /// enabled. Of any other item: the user has chosen it.
  std::function<void()> Click;
  /// Runs Click by way of the surface.
  void RaiseClick();

 protected:
  void Changed() override;

 private:
  Surface* owner_;
  MenuItem* above_ = nullptr;
  String name_;
  Designed<String> caption_;
  Designed<bool> enabled_{this, true}, visible_{this, true}, checked_{this};
  std::vector<MenuItem*> items_;
};

}  // namespace tessel::forms
