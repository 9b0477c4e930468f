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

std::vector<FormatJob> Collect(std::vector<ComponentRef> components) {
  std::vector<FormatJob> jobs;
  for (ComponentRef& component : components) {
    FormatJob job;
    job.Component = std::move(component);
    try {
      auto bodies = mFormatText::ReadModuleBodies(job.Component.Module);
      if (!bodies) bodies.emplace();
      job.FirstLine = bodies->FirstLine;
      job.Before = std::move(bodies->Text);
    } catch (...) {
      job.Failure = vb::CurrentFailure().what();
    }
    jobs.push_back(std::move(job));
  }
  return jobs;
}

/// What an earlier component left in the thread's run variables doesn't reach the next one.
void Format(FormatJob& job, const FormatOptions& options) {
  try {
    ApplyOptions(options);
    job.After = mFormatText::FormatTextComponent(job.Before);
    if (job.After.empty()) job.After = job.Before;
    if (job.After != job.Before) job.Differences = review::CompareCode(job.Before, job.After);
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
  const auto work = [&] {
    for (std::size_t at = next++; at < all.size(); at = next++) {
      if (all[at].Failure.empty()) Format(all[at], options);
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
  if (job.After != job.Before) mFormatText::WriteModuleBodies(job.Component.Module, job.After);
}

}  // namespace tessel::batch
