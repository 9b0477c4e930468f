#include "hosts/batch/Report.h"

#include <ostream>

#include "hosts/batch/LineDiff.h"
#include "vb/Failure.h"

namespace tessel::batch {

void Report::Guard(const std::function<void()>& work) {
  try {
    work();
  } catch (...) {
    Fail(vb::CurrentFailure().what());
  }
}

void Report::Fail(const std::string& why) {
  ++errors_;
  streams_.Err << "tessel: " << why << '\n';
}

bool Report::Opened(OpenInput& input) {
  for (const std::string& notice : input.TakeNotices()) {
    streams_.Err << "tessel: " << notice << '\n';
  }
  const auto problems = input.Problems();
  for (const std::string& problem : problems) Fail(problem);
  return problems.empty();
}

void Report::FailIn(const std::string& file, const std::string& why) {
  ++failed_;
  // Many causes begin with the file and a line already.
  if (why.rfind(file + ':', 0) != 0) streams_.Err << file << ": ";
  streams_.Err << why << '\n';
}

void Report::Warn(const std::string& file, const std::string& what) {
  streams_.Err << file << ": warning: " << what << '\n';
}

void Report::TellDifferences(const OpenInput& input, const ComponentRef& component,
                             const std::vector<review::Difference>& differences, int firstLine) {
  if (differences.empty()) return;
  streams_.Err << component.File
               << (delivery_.Force ? ": means something else afterwards\n"
                                   : ": left as it is, since it would mean something else (--force "
                                     "writes it)\n");
  for (const review::Difference& one : differences) {
    streams_.Err << "  " << component.File << ':'
                 << input.FileLine(component, firstLine + one.Line - 1) << ": " << one.Cause
                 << '\n';
  }
  if (!delivery_.Force) ++leftAlone_;
}

void Report::Deliver(OpenInput& input, const ComponentRef& component, const std::string& before,
                     const std::string& after) {
  if (after == before) {
    Passed(false);
    return;
  }
  if (delivery_.Writes()) {
    try {
      input.Save(component);
    } catch (...) {
      FailIn(component.File, input.Typed(vb::CurrentFailure().what()));
      return;
    }
    Written(component);
    return;
  }
  ++changed_;
  if (delivery_.Diff) {
    streams_.Out << UnifiedDiff(before, after, component.File, component.File) << std::flush;
  } else if (!selection_.Quiet) {
    streams_.Out << component.File << ": would be " << deed_ << std::endl;
  }
}

void Report::Written(const ComponentRef& component) {
  ++changed_;
  if (!selection_.Quiet) streams_.Out << component.File << ": " << deed_ << std::endl;
}

void Report::Close() {
  if (selection_.Quiet || changed_ + leftAlone_ + unchanged_ + failed_ == 0) return;
  streams_.Err << changed_ << ' ' << (delivery_.Writes() ? deed_ : "would change") << ", "
               << leftAlone_ << " left alone";
  if (failed_ > 0) streams_.Err << ", " << failed_ << " failed";
  if (unchanged_ > 0) streams_.Err << ", " << unchanged_ << " unchanged";
  streams_.Err << '\n';
}

int Report::Exit() const {
  if (HasFailed()) return Failed;
  return delivery_.Check && changed_ > 0 ? WouldChange : Done;
}

}  // namespace tessel::batch
