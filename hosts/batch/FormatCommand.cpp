#include "hosts/batch/FormatCommand.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <sstream>
#include <thread>

#include "formatter/mFormatText.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/Components.h"
#include "hosts/batch/FormatOptions.h"
#include "hosts/batch/FormatRules.h"
#include "hosts/batch/LineDiff.h"
#include "hosts/batch/ProgressLine.h"
#include "hosts/review/CodeComparison.h"
#include "hosts/workspace/Workspace.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

/// A component on its way through the run.
struct Job {
  ComponentRef Component;
  int FirstLine = 1;  // of the bodies, in the module
  String Before, After;
  std::vector<review::Difference> Differences;
  std::string Failure;
  [[nodiscard]] bool Changes() const { return Failure.empty() && After != Before; }
};

/// Formats one job's text with the calling thread's run variables.
void FormatJob(Job& job) {
  try {
    job.After = mFormatText::FormatTextComponent(job.Before);
    if (job.After.empty()) job.After = job.Before;
    if (job.Changes()) job.Differences = review::CompareCode(job.Before, job.After);
  } catch (...) {
    job.Failure = vb::CurrentFailure().what();
  }
}

/// The options for one file: the delivered ones, the configuration file's, the command line's.
FormatOptions OptionsFor(const FormatRequest& request, const fs::path& file) {
  FormatOptions options;
  options.Rules = LoadRules(request.Data);
  const fs::path config = !request.Config.empty() ? request.Config
                          : file.empty()          ? FindConfig(fs::current_path())
                                                  : FindConfig(fs::absolute(file).parent_path());
  if (!config.empty()) ReadConfig(options, config);
  for (const auto& [name, value] : request.Overrides) {
    for (const OptionRow& row : OptionTable()) {
      if (name == row.Name) SetOption(options, row, value);
    }
  }
  return options;
}

/// One run over one argument of the command line.
class Run {
 public:
  Run(const FormatRequest& request, std::ostream& out, std::ostream& err)
      : request_(request), out_(out), err_(err) {}

  /// Opens a file, formats it and writes it, or tells what it would write.
  void File(const fs::path& file) {
    Begin(file);
    environment_->Open(file);
    for (const vb::Failure& problem : environment_->Problems()) {
      failed_ = true;
      err_ << "tessel: " << problem.what() << '\n';
    }
    Format();
    Finish();
  }

  /// Formats the text of a module, in the form of the file that it comes from.
  void Text(const std::string& bytes) {
    Begin({});
    const TemporaryFile source(bytes);
    environment_->Open(source.Path());
    named_ = "<standard input>";
    Format();
    const auto all = ComponentsOf(*environment_->VBE());
    for (Job& job : jobs_) Report(job);
    const std::string after = environment_->Bytes(all.at(0).Project, all.at(0).Name);
    if (request_.Diff) {
      out_ << UnifiedDiff(bytes, after, named_, named_);
    } else if (!request_.Check) {
      out_ << after;
    }
  }

  [[nodiscard]] bool Failed() const { return failed_; }
  [[nodiscard]] bool WouldChange() const { return wouldChange_; }

 private:
  /// The text in a file of the kind that its first words say.
  class TemporaryFile {
   public:
    explicit TemporaryFile(const std::string& bytes) {
      std::string pattern = (fs::temp_directory_path() / "tessel-XXXXXX").string();
      if (mkdtemp(pattern.data()) == nullptr) {
        throw vb::Failure(vb::PathFileAccess, u"no temporary folder can be made");
      }
      folder_ = pattern;
      std::ofstream(Path(), std::ios::binary) << bytes;
      kind_ = KindOf(bytes);
      fs::rename(folder_ / "Module1.bas", Path());
    }
    ~TemporaryFile() {
      std::error_code ignored;
      fs::remove_all(folder_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    [[nodiscard]] fs::path Path() const { return folder_ / (std::string("Module1") + kind_); }

   private:
    static const char* KindOf(const std::string& bytes) {
      const std::size_t start = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
      if (bytes.compare(start, 19, "VERSION 1.0 CLASS\r\n", 17) == 0) return ".cls";
      if (bytes.compare(start, 12, "VERSION 5.00") != 0) return ".bas";
      const std::string head = bytes.substr(start, 4096);
      if (head.find("Begin VB.UserControl") != std::string::npos) return ".ctl";
      if (head.find("Begin VB.PropertyPage") != std::string::npos) return ".pag";
      if (head.find("Begin VB.UserDocument") != std::string::npos) return ".dob";
      return ".frm";
    }
    fs::path folder_;
    const char* kind_ = ".bas";
  };

  void Begin(const fs::path& file) {
    options_ = OptionsFor(request_, file);
    services_ = std::make_unique<BatchPlatform>(options_.TabWidth);
    scope_.emplace(*services_);
    environment_ = std::make_unique<workspace::Workspace>(
        *services_, workspace::Options{request_.CodePage, true});
  }

  /// Reads the bodies of every chosen component, formats them side by side and puts them back.
  void Format() {
    for (ComponentRef& one : ComponentsOf(*environment_->VBE())) {
      if (IsChosen(one.Name)) Collect(std::move(one));
    }
    FormatAll();
    for (Job& job : jobs_) {
      if (MayWrite(job)) PutBack(job);
    }
  }

  [[nodiscard]] bool IsChosen(const String& name) const {
    return request_.Components.empty() ||
           std::any_of(
               request_.Components.begin(), request_.Components.end(),
               [&](const std::string& wanted) { return vb::SameText(vb::FromUtf8(wanted), name); });
  }

  void Collect(ComponentRef component) {
    Job job;
    job.Component = std::move(component);
    try {
      auto bodies = mFormatText::ReadModuleBodies(job.Component.Module);
      if (!bodies) return;
      job.FirstLine = bodies->FirstLine;
      job.Before = std::move(bodies->Text);
    } catch (...) {
      job.Failure = vb::CurrentFailure().what();
    }
    jobs_.push_back(std::move(job));
  }

  void FormatAll() {
    ProgressLine progress(jobs_.size());
    std::mutex mutex;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
      ApplyOptions(options_);
      for (std::size_t at = next++; at < jobs_.size(); at = next++) {
        if (jobs_[at].Failure.empty()) FormatJob(jobs_[at]);
        const std::lock_guard lock(mutex);
        progress.Step(vb::ToUtf8(jobs_[at].Component.Name));
      }
    };
    std::vector<std::jthread> helpers;
    const auto count = std::min(jobs_.size(), static_cast<std::size_t>(std::max(1, request_.Jobs)));
    for (std::size_t helper = 1; helper < count; ++helper) helpers.emplace_back(work);
    work();
  }

  [[nodiscard]] bool MayWrite(const Job& job) const {
    return job.Changes() && (job.Differences.empty() || request_.Force);
  }

  void PutBack(Job& job) {
    try {
      mFormatText::WriteModuleBodies(job.Component.Module, job.After);
    } catch (...) {
      job.Failure = vb::CurrentFailure().what();
    }
  }

  void Finish() {
    for (Job& job : jobs_) {
      Report(job);
      if (!MayWrite(job)) continue;
      try {
        Deliver(job);
      } catch (...) {
        Fail(job, vb::CurrentFailure().what());
      }
    }
  }

  void Deliver(const Job& job) {
    const ComponentRef& one = job.Component;
    const std::string after = environment_->Bytes(one.Project, one.Name);
    const std::string before = environment_->StoredBytes(one.Project, one.Name);
    if (after == before) return;
    wouldChange_ = true;
    if (request_.Diff) {
      out_ << UnifiedDiff(before, after, one.File, one.File);
    } else if (request_.Check) {
      out_ << one.File << ": would be formatted\n";
    } else {
      environment_->SaveComponent(one.Project, one.Name);
    }
  }

  /// Names the failure, or every change that is more than layout.
  void Report(const Job& job) {
    if (!job.Failure.empty()) Fail(job, job.Failure);
    for (const review::Difference& difference : job.Differences) {
      const int line = environment_->FileLine(job.Component.Project, job.Component.Name,
                                              job.FirstLine + difference.Line - 1);
      err_ << NameOf(job) << ':' << line << ": " << difference.Cause
           << (request_.Force ? "\n" : "; the component is left as it is (--force writes it)\n");
    }
    if (!job.Differences.empty() && !request_.Force) failed_ = true;
  }

  void Fail(const Job& job, const std::string& cause) {
    failed_ = true;
    err_ << NameOf(job) << ": " << cause << '\n';
  }

  [[nodiscard]] std::string NameOf(const Job& job) const {
    if (!named_.empty()) return named_;
    return job.Component.File.empty() ? vb::ToUtf8(job.Component.Name) : job.Component.File;
  }

  const FormatRequest& request_;
  std::ostream& out_;
  std::ostream& err_;
  FormatOptions options_;
  std::unique_ptr<BatchPlatform> services_;
  std::optional<platform::ScopedPlatform> scope_;
  std::unique_ptr<workspace::Workspace> environment_;
  std::vector<Job> jobs_;
  std::string named_;
  bool failed_ = false, wouldChange_ = false;
};

void RunOne(Run& run, const std::string& file, std::istream& in) {
  if (file != "-") {
    run.File(file);
    return;
  }
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  run.Text(bytes);
}

}  // namespace

int RunFormat(const FormatRequest& request, std::istream& in, std::ostream& out,
              std::ostream& err) {
  bool failed = false, wouldChange = false;
  for (const std::string& file : request.Files) {
    Run run(request, out, err);
    try {
      if (request.PrintConfig) {
        WriteConfig(OptionsFor(request, file == "-" ? fs::path() : fs::path(file)), out);
        continue;
      }
      RunOne(run, file, in);
    } catch (...) {
      err << "tessel: " << vb::CurrentFailure().what() << '\n';
      failed = true;
    }
    failed |= run.Failed();
    wouldChange |= run.WouldChange();
  }
  if (failed) return FormatFailed;
  return request.Check && wouldChange ? FormatWouldChange : FormatDone;
}

}  // namespace tessel::batch
