#include "addin/frmIco.h"

#include "vb/Failure.h"

namespace tessel {

frmIco::frmIco() : Form("frmIco", u"") {
  std::vector<forms::Layout> boxes;
  for (int number = FirstPicture; number <= LastPicture; ++number) {
    boxes.push_back(
        forms::Item(pictures_.emplace_back(this, "Picture" + std::to_string(number), number)));
  }
  SetLayout(forms::Row(std::move(boxes)));
}

int frmIco::PictureOf(int resId) const {
  if (resId < FirstPicture || resId > LastPicture)
    throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  return pictures_[static_cast<std::size_t>(resId - FirstPicture)].Picture();
}

}  // namespace tessel
