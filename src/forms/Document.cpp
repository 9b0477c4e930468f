#include "forms/Document.h"

#include <utility>

namespace tessel::forms {

void Document::Initialize() {
  if (std::exchange(initialized_, true)) return;
  const auto self = weak_from_this().lock();
  Carry([this] { UserDocument_Initialize(); });
}

void Document::Show() {
  const auto self = weak_from_this().lock();
  Initialize();
  if (!std::exchange(visible_, true)) Carry([this] { UserDocument_Show(); });
}

void Document::Hide() {
  const auto self = weak_from_this().lock();
  if (std::exchange(visible_, false)) Carry([this] { UserDocument_Hide(); });
}

}  // namespace tessel::forms
