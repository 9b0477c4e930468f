#include "hosts/batch/HandlersInput.h"

#include <algorithm>

#include "hosts/batch/ProgressLine.h"
#include "hosts/review/RunReview.h"
#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::batch {

void HandlersInput::Run(bool alone) {
  failed_ = !report_.Opened(input_);
  FindProjects(alone);
  if (projects_.empty()) return;
  all_ = input_.Components();
  for (const ComponentRef& one : all_) {
    if (!input_.IsChosen(one) || !seen_.Add(one)) HoldBack(one);
  }
  const review::RunReview review(
      order_.Remove ? review::RunKind::RemoveHandlers : review::RunKind::InsertHandlers,
      input_.Root());
  for (const auto& project : projects_) RunOver(project);
  Compare(review.Items());
  Collect();
  Deliver();
}

/// A run goes by names: of two components of one name it would take the first of their project, and
/// of members in both that name no single one is meant.
void HandlersInput::RequireOneOf(const String& name) const {
  std::map<const model::VBProject*, std::vector<std::string>> files;
  for (const ComponentRef& one : input_.Components()) {
    if (!vb::SameText(one.Name, name)) continue;
    const bool apart = order_.Member.empty();
    files[apart ? one.Component->Project().get() : nullptr].push_back(one.File);
  }
  for (const auto& [project, named] : files) {
    if (named.size() < 2) continue;
    std::string all = named.front();
    for (std::size_t at = 1; at < named.size(); ++at) all += " and " + named[at];
    throw vb::Failure(
        vb::InvalidCall,
        vb::FromBytes(input_.File() + ": there are several components \"" + vb::ToUtf8(name) +
                      "\": " + all + "; name the file itself in the place of the project"),
        u"Tessel");
  }
}

/// What the command line names must be there before anything is touched.
void HandlersInput::FindProjects(bool alone) {
  for (const String& name : order_.Components) RequireOneOf(name);
  for (const auto& project : input_.Root().Projects().All()) {
    if (ProjectHas(*project, order_)) projects_.push_back(project);
  }
  if (alone) RequireNames(input_, request_);
}

void HandlersInput::RunOver(const std::shared_ptr<model::VBProject>& project) {
  ProgressLine progress(order_.Components.empty() ? all_.size() : order_.Components.size());
  const auto failures = RunOverProject(input_.Environment(), project, order_,
                                       [&](const std::string& name) { progress.Step(name); });
  progress.Clear();
  for (const HandlersFailure& failure : failures) Note(project.get(), failure);
}

/// A failure outside of any component is one of all of them.
void HandlersInput::Note(const model::VBProject* project, const HandlersFailure& failure) {
  failed_ = true;
  for (const ComponentRef& one : all_) {
    if (one.Component->Project().get() != project || one.Name != failure.Component) continue;
    HoldBack(one);
    report_.FailIn(one.File, failure.Cause);
    return;
  }
  lost_ = true;
  report_.FailIn(input_.File(), failure.Cause);
}

/// Names what the run did not do; that is the caller's to judge.
void HandlersInput::Warn(const review::ReviewItem& item) {
  if (!item.Component) {
    report_.Warn(input_.File(), vb::ToUtf8(item.Project) + ": " + item.Cause);
    return;
  }
  const auto one = std::find_if(all_.begin(), all_.end(), [&](const ComponentRef& other) {
    return other.Component == item.Component;
  });
  if (one == all_.end() || heldBack_.contains(item.Component.get())) return;
  const std::string line =
      item.Line > 0 ? ':' + std::to_string(input_.FileLine(*one, item.LineBefore)) : std::string();
  report_.Warn(one->File + line, item.Cause);
}

/// Names the places that mean something else behind the run; their components stay as they are
/// unless that is forced.
void HandlersInput::Compare(const std::vector<review::ReviewItem>& items) {
  std::map<const model::VBComponent*, std::vector<review::Difference>> differences;
  for (const review::ReviewItem& item : items) {
    if (item.IsWarning) {
      Warn(item);
    } else {
      differences[item.Component.get()].push_back({item.LineBefore, item.Line, item.Cause});
    }
  }
  for (const ComponentRef& one : all_) {
    const auto found = differences.find(one.Component.get());
    if (found == differences.end() || heldBack_.contains(one.Component.get())) continue;
    report_.TellDifferences(input_, one, found->second, 1);
    if (request_.Force) continue;
    failed_ = true;
    HoldBack(one);
  }
}

/// Puts every component into the form of its file, so that one that doesn't fit is known before the
/// first is written.
void HandlersInput::Collect() {
  for (const ComponentRef& one : all_) {
    if (heldBack_.contains(one.Component.get())) continue;
    try {
      results_.push_back({one, input_.StoredBytes(one), input_.Bytes(one)});
    } catch (...) {
      failed_ = true;
      HoldBack(one);
      report_.FailIn(one.File, input_.Typed(vb::CurrentFailure().what()));
    }
  }
}

void HandlersInput::Deliver() {
  const bool changes = std::any_of(results_.begin(), results_.end(),
                                   [](const Result& one) { return one.After != one.Before; });
  if (lost_ || (failed_ && !request_.KeepGoing)) {
    if (changes) {
      for (const Result& one : results_) report_.Withheld(one.After != one.Before);
      report_.Fail(input_.File() +
                   (lost_ ? ": the run failed as a whole; nothing is written"
                          : ": nothing is written (--keep-going writes the components that went "
                            "well)"));
    }
    return;
  }
  if (!request_.Writes() || failed_) {
    for (const Result& one : results_)
      report_.Deliver(input_, one.Component, one.Before, one.After);
    return;
  }
  // All files of the input or none.
  for (const ComponentRef& one : all_) {
    if (heldBack_.contains(one.Component.get())) input_.Reload(one);
  }
  input_.SaveAll();
  for (const Result& one : results_) {
    if (one.After != one.Before) {
      report_.Written(one.Component);
    } else {
      report_.Passed(false);
    }
  }
}

}  // namespace tessel::batch
