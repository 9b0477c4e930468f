#include "hosts/batch/HandlersCommand.h"

#include <algorithm>
#include <map>
#include <ostream>

#include "errorhandlers/CSQLErrorHandler.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "hosts/batch/Components.h"
#include "hosts/batch/HandlersRun.h"
#include "hosts/batch/LineDiff.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/batch/ProgressLine.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

[[noreturn]] void Fail(const String& why) { throw vb::Failure(vb::InvalidCall, why, u"Tessel"); }

/// The table's spelling of a scheme's name.
String Known(const std::vector<String>& names, const std::string& given) {
  String wanted = vb::FromUtf8(given);
  if (wanted == mInsertErrorHandlerCode::SkipScheme) return wanted;
  for (const String& name : names) {
    if (vb::SameText(name, wanted)) return name;
  }
  Fail(u"there is no scheme \"" + wanted +
       (names.empty() ? u"\"; the table holds fewer than two, which counts as none"
                      : u"\"; the schemes are \"" + vb::Join(names, u"\", \"") + u'"'));
}

HandlersOrder OrderOf(const HandlersRequest& request) {
  HandlersOrder order;
  order.Remove = request.Remove;
  for (const std::string& name : request.Components) order.Components.push_back(vb::FromUtf8(name));
  order.Member = vb::FromUtf8(request.Member);
  if (!order.Member.empty() && order.Components.size() != 1) {
    Fail(u"a member needs the one component that it is in (--component)");
  }
  if (request.Remove) return order;
  const auto names = CSQLErrorHandler().GetListNameError().value_or(std::vector<String>());
  const auto chosen = [&](const std::string& own) {
    return Known(names, own.empty() ? request.Scheme : own);
  };
  order.Scheme = chosen({});
  order.ModuleScheme = chosen(request.ModuleScheme);
  order.FormScheme = chosen(request.FormScheme);
  order.ActiveXScheme = chosen(request.ActiveXScheme);
  return order;
}

/// One argument of the command line.
class Run {
 public:
  Run(const HandlersRequest& request, const HandlersOrder& order, HandlersPlatform& services,
      const std::string& file, std::ostream& out, std::ostream& err)
      : request_(request),
        order_(order),
        services_(services),
        file_(file),
        out_(out),
        err_(err),
        environment_(services, {request.CodePage, true}) {}

  void Take() {
    environment_.Open(file_);
    for (const vb::Failure& problem : environment_.Problems()) Tell(problem.what());
    FindAll();
    if (!order_.Remove) Warn();
    RunAll();
    Collect();
    Deliver();
  }

  [[nodiscard]] bool Failed() const { return failed_; }
  [[nodiscard]] bool WouldChange() const { return wouldChange_; }

 private:
  /// A component's file before and behind the run.
  struct Result {
    ComponentRef Component;
    std::string Before, After;
  };

  void Tell(const std::string& what) {
    failed_ = true;
    err_ << "tessel: " << what << '\n';
  }

  /// What the command line names must be there before anything is touched.
  void FindAll() {
    const auto all = environment_.VBE()->VBProjects();
    for (int index = 1; index <= all->Count(); ++index) {
      const auto project = all->Item(index);
      if (ProjectHas(*project, order_)) projects_.push_back(project);
    }
    for (const String& wanted : order_.Components) {
      const auto components = ComponentsOf(*environment_.VBE());
      if (std::none_of(components.begin(), components.end(),
                       [&](const auto& one) { return vb::SameText(one.Name, wanted); })) {
        Fail(vb::FromUtf8(file_) + u": there is no component \"" + wanted + u'"');
      }
    }
  }

  /// Names what the run will spoil; that is the caller's to judge.
  void Warn() {
    for (const ComponentRef& one : ComponentsOf(*environment_.VBE())) {
      if (!IsChosen(one.Name)) continue;
      for (const Member& member : MembersOnOneLine(one.Module)) {
        if (!order_.Member.empty() && !vb::StartsWithText(order_.Member, member.Name)) continue;
        err_ << one.File << ':' << environment_.FileLine(one.Project, one.Name, member.BodyLine)
             << ": warning: " << vb::ToUtf8(member.Name)
             << " stands on one line, so its error handler stands behind it\n";
      }
    }
  }

  [[nodiscard]] bool IsChosen(const String& component) const {
    return order_.Components.empty() ||
           std::any_of(order_.Components.begin(), order_.Components.end(),
                       [&](const String& wanted) { return vb::SameText(wanted, component); });
  }

  void RunAll() {
    ProgressLine progress(order_.Components.empty() ? ComponentsOf(*environment_.VBE()).size()
                                                    : order_.Components.size());
    for (const auto& project : projects_) {
      for (HandlersFailure& failure :
           RunOverProject(services_, environment_, *project, order_,
                          [&](const std::string& name) { progress.Step(name); })) {
        Note(project->Name(), failure.Component, failure.Cause);
      }
    }
  }

  /// A failure outside of any component is one of all of them.
  void Note(const String& project, const String& component, const std::string& cause) {
    failed_ = true;
    if (component.empty()) lost_ = true;
    for (const ComponentRef& one : ComponentsOf(*environment_.VBE())) {
      if (one.Project != project || one.Name != component) continue;
      bad_[{project, component}] = true;
      err_ << one.File << ": " << cause << '\n';
      return;
    }
    lost_ = true;
    err_ << file_ << ": " << cause << '\n';
  }

  /// Puts every component into the form of its file, so that one that doesn't fit is known before
  /// the first is written.
  void Collect() {
    for (ComponentRef& one : ComponentsOf(*environment_.VBE())) {
      try {
        Result result{one, environment_.StoredBytes(one.Project, one.Name),
                      environment_.Bytes(one.Project, one.Name)};
        if (result.After != result.Before) results_.push_back(std::move(result));
      } catch (...) {
        Note(one.Project, one.Name, vb::CurrentFailure().what());
      }
    }
  }

  void Deliver() {
    if (lost_ || (failed_ && !request_.KeepGoing)) {
      if (!results_.empty()) err_ << "tessel: " << file_ << Unwritten();
      return;
    }
    const bool writes = !request_.Check && !request_.Diff;
    if (writes && !failed_) {
      environment_.Save();
      return;
    }
    for (const Result& one : results_) {
      if (!bad_.contains({one.Component.Project, one.Component.Name})) Show(one, writes);
    }
  }

  [[nodiscard]] const char* Unwritten() const {
    return lost_ ? ": the run failed as a whole; nothing is written\n"
                 : ": nothing is written (--keep-going writes the components that went well)\n";
  }

  void Show(const Result& one, bool writes) {
    wouldChange_ = true;
    const ComponentRef& component = one.Component;
    if (request_.Diff) {
      out_ << UnifiedDiff(one.Before, one.After, component.File, component.File);
    } else if (request_.Check) {
      out_ << component.File << ": would be changed\n";
    } else if (writes) {
      Write(component);
    }
  }

  void Write(const ComponentRef& component) {
    try {
      environment_.SaveComponent(component.Project, component.Name);
    } catch (...) {
      failed_ = true;
      err_ << component.File << ": " << vb::CurrentFailure().what() << '\n';
    }
  }

  const HandlersRequest& request_;
  const HandlersOrder& order_;
  HandlersPlatform& services_;
  const std::string& file_;
  std::ostream& out_;
  std::ostream& err_;
  workspace::Workspace environment_;
  std::vector<std::shared_ptr<host::VBProject>> projects_;
  std::vector<Result> results_;
  std::map<std::pair<String, String>, bool> bad_;
  bool failed_ = false, lost_ = false, wouldChange_ = false;
};

int RunAll(const HandlersRequest& request, std::ostream& out, std::ostream& err) {
  HandlersPlatform services;
  const platform::ScopedPlatform scope(services);
  const SharedDatabase shared(OpenPersonal(SchemeData(request.Data)));
  const HandlersOrder order = OrderOf(request);
  bool failed = false, wouldChange = false;
  for (const std::string& file : request.Files) {
    try {
      Run run(request, order, services, file, out, err);
      run.Take();
      failed |= run.Failed();
      wouldChange |= run.WouldChange();
    } catch (...) {
      err << "tessel: " << vb::CurrentFailure().what() << '\n';
      failed = true;
    }
  }
  if (failed) return HandlersFailed;
  return request.Check && wouldChange ? HandlersWouldChange : HandlersDone;
}

}  // namespace

int RunHandlersCommand(const HandlersRequest& request, std::ostream& out, std::ostream& err) {
  try {
    return RunAll(request, out, err);
  } catch (...) {
    err << "tessel: " << vb::CurrentFailure().what() << '\n';
    return HandlersFailed;
  }
}

}  // namespace tessel::batch
