// The hidden form that holds the program's pictures, Picture101 to Picture153.
#pragma once

#include <deque>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace tessel {

inline constexpr int FirstPicture = 101, LastPicture = 153;

class frmIco : public forms::Form {
 public:
  frmIco();
  /// Number of the picture that stands for a resource; fails with 9 outside 101 to 153.
  [[nodiscard]] int PictureOf(int resId) const;

 private:
  std::deque<forms::PictureBox> pictures_;
};

}  // namespace tessel
