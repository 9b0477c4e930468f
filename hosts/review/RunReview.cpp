#include "hosts/review/RunReview.h"

#include <algorithm>

#include "hosts/review/CodeComparison.h"
#include "hosts/review/HandlerTokens.h"

namespace tessel::review {
namespace {

struct RunButton {
  StringView Form, Button;
  RunKind Kind;
};
constexpr RunButton RunButtons[] = {
    {u"frmFormatText", u"btmRun", RunKind::Format},
    {u"frmInsertErrorHandlerCode", u"btmBegin", RunKind::InsertHandlers},
    {u"frmRemoveErrorHandlerCode", u"btmBegin", RunKind::RemoveHandlers}};

constexpr const char* Stripped =
    "no handler was put in, since the scheme is empty or unknown; what was there was taken out";

String TextOf(const model::LineBuffer& lines) {
  return lines.Count() > 0 ? lines.Text(1, lines.Count()) : String();
}

}  // namespace

std::optional<RunKind> RunOfButton(StringView form, StringView button) {
  for (const RunButton& one : RunButtons) {
    if (one.Form == form && one.Button == button) return one.Kind;
  }
  return std::nullopt;
}

std::optional<RunKind> RunOfForm(StringView form) {
  for (const RunButton& one : RunButtons) {
    if (one.Form == form) return one.Kind;
  }
  return std::nullopt;
}

String RunReview::Snapshot::After() const { return TextOf(Component->Module()->Buffer()); }

bool RunReview::Snapshot::IsChanged() const {
  const model::LineBuffer& after = Component->Module()->Buffer();
  if (Before.Count() != after.Count()) return true;
  for (int line = 1; line <= after.Count(); ++line) {
    if (Before.Line(line) != after.Line(line)) return true;
  }
  return false;
}

RunReview::RunReview(RunKind kind, model::Vbe& environment) : kind_(kind) {
  for (const auto& project : environment.Projects().All()) {
    for (const auto& component : project->Components().All()) {
      if (!component->Module()) continue;
      snapshots_.push_back({component, project, component->Module()->Buffer()});
    }
  }
}

void RunReview::Add(const std::shared_ptr<model::VBComponent>& component) {
  const auto known = [&](const Snapshot& one) { return one.Component == component; };
  const auto project = component->Project();
  if (!project || std::any_of(snapshots_.begin(), snapshots_.end(), known)) return;
  snapshots_.push_back({component, project, component->Module()->Buffer()});
}

String RunReview::Before(const model::VBComponent& component) const {
  for (const Snapshot& one : snapshots_) {
    if (one.Component.get() == &component) return TextOf(one.Before);
  }
  return {};
}

std::vector<std::shared_ptr<model::VBComponent>> RunReview::Changed() const {
  std::vector<std::shared_ptr<model::VBComponent>> changed;
  for (const Snapshot& one : snapshots_) {
    if (one.IsChanged()) changed.push_back(one.Component);
  }
  return changed;
}

void RunReview::Compare(const Snapshot& one, std::vector<ReviewItem>& items) const {
  const String before = TextOf(one.Before), after = one.After();
  const auto differences =
      kind_ == RunKind::Format ? CompareCode(before, after) : CompareHandlers(before, after);
  for (const Difference& difference : differences) {
    items.push_back({one.Component, one.Project->PlainName(), one.Component->PlainName(),
                     difference.LineAfter, difference.Line, difference.Cause,
                     difference.IsWarning});
  }
}

/// One line for a project in which nothing was dressed, else one for each module that was stripped.
void RunReview::TellUndressed(std::vector<ReviewItem>& items) const {
  struct Undressed {
    const model::VBProject* Project;
    bool Whole = true;
    std::vector<ReviewItem> Modules = {};
  };
  std::vector<Undressed> projects;
  for (const Snapshot& one : snapshots_) {
    if (!one.IsChanged()) continue;
    if (projects.empty() || projects.back().Project != one.Project.get()) {
      projects.push_back({one.Project.get()});
    }
    if (HoldsHandlers(one.After())) {
      projects.back().Whole = false;
    } else {
      projects.back().Modules.push_back({one.Component, one.Project->PlainName(),
                                         one.Component->PlainName(), 0, 0, Stripped, true});
    }
  }
  for (Undressed& one : projects) {
    if (one.Whole) {
      ReviewItem head = one.Modules.front();
      head.Component = nullptr;
      head.ComponentName.clear();
      one.Modules = {head};
    }
    items.insert(items.end(), one.Modules.begin(), one.Modules.end());
  }
}

std::vector<ReviewItem> RunReview::Items() const {
  std::vector<ReviewItem> items;
  if (kind_ == RunKind::InsertHandlers) TellUndressed(items);
  for (const Snapshot& one : snapshots_) {
    if (one.IsChanged()) Compare(one, items);
  }
  return items;
}

}  // namespace tessel::review
