#include "forms/Document.h"

#include <utility>

namespace tessel::forms {

void Document::Initialize() {
  if (std::exchange(initialized_, true)) return;
  const auto self = weak_from_this().lock();
  UserDocument_Initialize();
}

void Document::Show() {
  const auto self = weak_from_this().lock();
  Initialize();
  if (!std::exchange(visible_, true)) UserDocument_Show();
}

void Document::Hide() {
  const auto self = weak_from_this().lock();
  if (std::exchange(visible_, false)) UserDocument_Hide();
}

}  // namespace tessel::forms
