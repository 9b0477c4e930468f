// Error dialogs are never passed over: a test asks for those that it provokes, every other fails
// it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "support/MemoryPlatform.h"

namespace tessel::test {

/// Keeps the reports of the error dialogs that a desktop shows. At its end those that nobody took
/// fail the test.
class ErrorDialogs {
 public:
  explicit ErrorDialogs(memory::ScriptedDesktop& desktop) {
    desktop.OnShow = [this](forms::Form& form) {
      if (form.Name() != u"frmErrorMessage") return;
      const auto* const report = dynamic_cast<forms::TextBox*>(form.Find(u"txtErrorMessage"));
      reports_.push_back(report == nullptr ? String() : report->Text());
    };
  }
  ~ErrorDialogs() {
    for (const String& report : reports_) {
      ADD_FAILURE() << "An error dialog that the test did not ask for:\n" << vb::ToUtf8(report);
    }
  }
  ErrorDialogs(const ErrorDialogs&) = delete;
  ErrorDialogs& operator=(const ErrorDialogs&) = delete;

  /// The reports since the last call, oldest first: these were asked for.
  std::vector<String> Take() { return std::exchange(reports_, {}); }

 private:
  std::vector<String> reports_;
};

}  // namespace tessel::test
