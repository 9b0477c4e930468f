// What a command over files tells, and the exit code that follows from it.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "hosts/batch/Command.h"
#include "hosts/batch/OpenInput.h"
#include "hosts/batch/Selection.h"
#include "hosts/review/CodeComparison.h"

namespace tessel::batch {

/// Names of files go to the output, errors and the closing line to the error output. A file's name
/// is written, and reaches the disk, when the file is done.
class Report {
 public:
  /// `deed` is what a file has had done to it: "formatted".
  Report(const Streams& streams, const Selection& selection, const Delivery& delivery,
         const char* deed)
      : streams_(streams), selection_(selection), delivery_(delivery), deed_(deed) {}

  /// Does a part of the work; what it throws is an error.
  void Guard(const std::function<void()>& work);
  /// An error of no component: "tessel: WHY".
  void Fail(const std::string& why);
  /// Tells what an input has to say of itself: interrupted saves, and what of it can't be read,
  /// which is an error. False when there was such an error.
  bool Opened(OpenInput& input);
  /// A component that is left out of the result.
  void FailIn(const std::string& file, const std::string& why);
  /// Names the places where a component would mean something else, below one another. Unless
  /// `--force` is given, the component counts as left alone.
  void TellDifferences(const OpenInput& input, const ComponentRef& component,
                       const std::vector<review::Difference>& differences, int firstLine);
  void Warn(const std::string& file, const std::string& what);
  /// A component that the caller has delivered itself.
  void Passed(bool changed) { ++(changed ? changed_ : unchanged_); }
  /// A component that stays as it is since its project isn't written.
  void Withheld(bool changed) { ++(changed ? leftAlone_ : unchanged_); }
  /// Prints the change, names the file, or writes it and names it.
  void Deliver(OpenInput& input, const ComponentRef& component, const std::string& before,
               const std::string& after);
  /// The same for a file that was written by the caller.
  void Written(const ComponentRef& component);
  /// The closing line, "15 would change, 14 left alone", unless no component was reached.
  void Close();

  [[nodiscard]] bool HasFailed() const { return failed_ > 0 || leftAlone_ > 0 || errors_ > 0; }
  [[nodiscard]] int Exit() const;

 private:
  const Streams& streams_;
  const Selection& selection_;
  const Delivery& delivery_;
  const char* deed_;
  int changed_ = 0, leftAlone_ = 0, unchanged_ = 0, failed_ = 0, errors_ = 0;
};

}  // namespace tessel::batch
