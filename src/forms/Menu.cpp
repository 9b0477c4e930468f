#include "forms/Menu.h"

#include "forms/Surface.h"

namespace tessel::forms {

MenuItem::MenuItem(Surface* owner, std::string_view name, StringView caption)
    : owner_(owner), name_(name.begin(), name.end()), caption_(this, String(caption)) {
  owner_->Register(this);
}

MenuItem::MenuItem(MenuItem* above, std::string_view name, StringView caption)
    : owner_(above->owner_),
      above_(above),
      name_(name.begin(), name.end()),
      caption_(this, String(caption)) {
  above->items_.push_back(this);
}

MenuItem* MenuItem::Find(StringView name) {
  if (vb::SameText(name_, name)) return this;
  for (MenuItem* item : items_) {
    if (MenuItem* const found = item->Find(name)) return found;
  }
  return nullptr;
}

// On a copy: it may replace itself.
void MenuItem::RaiseClick() {
  if (const auto handler = Click) owner_->Carry(handler);
}

void MenuItem::SaveBranch() {
  SaveDesign();
  for (MenuItem* item : items_) item->SaveBranch();
}

void MenuItem::RestoreBranch() {
  RestoreDesign();
  for (MenuItem* item : items_) item->RestoreBranch();
}

void MenuItem::Changed() {
  if (View* const view = owner_->GetView()) view->SurfaceChanged();
}

}  // namespace tessel::forms
