// One project, group or component file on its way through `tessel handlers`.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "hosts/batch/HandlersCommand.h"
#include "hosts/batch/HandlersRun.h"
#include "hosts/batch/OpenInput.h"
#include "hosts/batch/Report.h"
#include "hosts/review/RunReview.h"

namespace tessel::batch {

/// Runs over the loaded input and writes its files when the whole of it went through.
class HandlersInput {
 public:
  /// The arguments outlive the object; `input` is open and untouched.
  HandlersInput(const HandlersRequest& request, const HandlersOrder& order, OpenInput& input,
                Report& report, SeenFiles& seen)
      : request_(request), order_(order), input_(input), report_(report), seen_(seen) {}

  /// `alone`: what the order names must stand in this input, else the input is passed over.
  void Run(bool alone);

 private:
  /// A component's file before and behind the run.
  struct Result {
    ComponentRef Component;
    std::string Before, After;
  };

  void FindProjects(bool alone);
  void RequireOneOf(const String& name) const;
  void RunOver(const std::shared_ptr<model::VBProject>& project);
  void Note(const model::VBProject* project, const HandlersFailure& failure);
  void Warn(const review::ReviewItem& item);
  void Compare(const std::vector<review::ReviewItem>& items);
  void Collect();
  void Deliver();
  void HoldBack(const ComponentRef& component) { heldBack_.insert(component.Component.get()); }

  const HandlersRequest& request_;
  const HandlersOrder& order_;
  OpenInput& input_;
  Report& report_;
  SeenFiles& seen_;
  std::vector<std::shared_ptr<model::VBProject>> projects_;
  std::vector<ComponentRef> all_;
  std::vector<Result> results_;
  std::set<const model::VBComponent*> heldBack_;
  bool failed_ = false;  ///< some component is not what it was to be
  bool lost_ = false;    ///< the run as a whole
};

}  // namespace tessel::batch
