#include "forms/Designed.h"

namespace tessel::forms {

void Designs::SaveDesign() {
  for (DesignedValue* value : values_) value->Save();
}

void Designs::RestoreDesign() {
  for (DesignedValue* value : values_) value->Restore();
  Changed();
}

}  // namespace tessel::forms
