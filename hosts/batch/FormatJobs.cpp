#include "hosts/batch/FormatJobs.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

#include "formatter/mFormatText.h"
#include "hosts/batch/ProgressLine.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

using mFormatText::ModuleBodies;

std::vector<FormatJob> Collect(std::vector<ComponentRef> components) {
  std::vector<FormatJob> jobs;
  for (ComponentRef& component : components) {
    FormatJob job;
    job.Component = std::move(component);
    try {
      job.Bodies = mFormatText::ReadModuleBodies(Statements(), job.Component.Module)
                       .value_or(ModuleBodies());
    } catch (...) {
      job.Failure = vb::CurrentFailure().what();
    }
    jobs.push_back(std::move(job));
  }
  return jobs;
}

/// With a run of its own: what a component leaves behind in it doesn't reach the next one.
void Format(FormatJob& job, mFormatText::FormatRun format) {
  const String& before = job.Bodies.Text;
  try {
    job.After = mFormatText::FormatTextComponent(format, before);
    if (job.After.empty()) job.After = before;
    if (job.After != before) job.Differences = review::CompareCode(before, job.After);
  } catch (...) {
    job.Failure = vb::CurrentFailure().what();
  }
}

std::size_t HelpersFor(std::size_t components, int jobs) {
  const unsigned wanted =
      jobs > 0 ? static_cast<unsigned>(jobs) : std::max(1U, std::thread::hardware_concurrency());
  return std::min<std::size_t>(components, wanted);
}

}  // namespace

std::vector<FormatJob> FormatAll(std::vector<ComponentRef> components, const FormatOptions& options,
                                 int jobs) {
  std::vector<FormatJob> all = Collect(std::move(components));
  ProgressLine progress(all.size());
  std::mutex mutex;
  std::atomic<std::size_t> next = 0;
  const mFormatText::FormatRun format = RunWith(options);
  const auto work = [&] {
    for (std::size_t at = next++; at < all.size(); at = next++) {
      if (all[at].Failure.empty()) Format(all[at], format);
      const std::lock_guard lock(mutex);
      progress.Step(vb::ToUtf8(all[at].Component.Name));
    }
  };
  std::vector<std::jthread> helpers;
  const std::size_t count = HelpersFor(all.size(), jobs);
  for (std::size_t helper = 1; helper < count; ++helper) helpers.emplace_back(work);
  work();
  helpers.clear();
  return all;
}

void WriteBack(const FormatJob& job) {
  if (job.After == job.Bodies.Text) return;
  mFormatText::WriteModuleBodies(Statements(), job.Component.Module, job.Bodies, job.After);
}

}  // namespace tessel::batch
