#include "foundation/CErrorHandler.h"

#include <filesystem>

#include "foundation/LogFile.h"
#include "foundation/ServiceClass.h"
#include "foundation/frmErrorMessage.h"
#include "platform/Platform.h"

namespace tessel {

std::shared_ptr<CErrorHandler> gErrorHandler;

namespace {

constexpr std::uint32_t InvalidFileName = 0x800443F9, InvalidActions = 0x800443FA,
                        InvalidFlags = 0x800443FB, ComponentFailure = 0x800443FC;
constexpr ServiceClass Service{u"CErrorHandler", InvalidFileName, ComponentFailure,
                               u"CErrorHandler component failure"};

enum TracingFlag : std::int32_t { TraceDebugOutput = 1, TraceFile = 2 };

constexpr StringView ProgramPrefix = u"Tessel.";
constexpr int WindowsNT = 2;

/// The version call takes a record of either size, by the system's age.
bool AskWindowsNT() {
  if (!platform::IsInstalled()) return false;
  for (const int recordSize : {156, 148}) {
    if (const auto id = platform::Current().App().PlatformId(recordSize)) return *id == WindowsNT;
  }
  return false;
}

void CheckFileName(StringView name) {
  if (name.empty()) throw Service.Own(InvalidFileName, u"Invalid file name");
}

void CheckActions(std::int32_t actions) {
  if (actions < 1 || actions > 15) {
    throw Service.Own(InvalidActions, u"Invalid error handler actions");
  }
}

void CheckFlags(std::int32_t flags) {
  if (flags < 1 || flags > 3) throw Service.Own(InvalidFlags, u"Invalid tracing flags");
}

String NowText() {
  const vb::Date now = platform::Current().Clock().Now();
  return vb::FormatDateTime(now, vb::DateFormat::ShortDate) + u" - " +
         vb::FormatDateTime(now, vb::DateFormat::LongTime);
}

void DeleteLog(StringView fileName, int wanted) {
  if (fileName.empty() || wanted <= 0) return;
  std::error_code missingIsNoFailure;
  std::filesystem::remove(LogPath(fileName), missingIsNoFailure);
}

}  // namespace

CErrorHandler::CErrorHandler() : isWindowsNT_(AskWindowsNT()) { callStack_.reserve(64); }

void CErrorHandler::Init(std::int32_t errorHandlerActions, StringView errorLogFile,
                         bool callStackEnabled, bool tracingEnabled, std::int32_t tracingFlags,
                         StringView tracingLogFile) {
  Service.Guard([&] {
    SetErrorHandlerActions(errorHandlerActions);
    SetErrorLogFile(errorLogFile);
    SetCallStackEnabled(callStackEnabled);
    SetTracingEnabled(tracingEnabled);
    SetTracingFlags(tracingFlags);
    SetTracingLogFile(tracingLogFile);
  });
}

void CErrorHandler::SetErrorHandlerActions(std::int32_t value) {
  CheckActions(value);
  errorHandlerActions_ = value;
}

void CErrorHandler::SetErrorLogFile(StringView value) {
  CheckFileName(value);
  errorLogFile_ = value;
}

void CErrorHandler::SetTracingFlags(std::int32_t value) {
  CheckFlags(value);
  tracingFlags_ = value;
}

void CErrorHandler::SetTracingLogFile(StringView value) {
  CheckFileName(value);
  tracingLogFile_ = value;
}

String CErrorHandler::NameOf(const Entry& entry) {
  return entry.Literal.empty() ? entry.Name : String(ProgramPrefix) + String(entry.Literal);
}

std::vector<String> CErrorHandler::CallStack() const {
  std::vector<String> names;
  for (auto entry = callStack_.rbegin(); entry != callStack_.rend(); ++entry) {
    names.push_back(NameOf(*entry));
  }
  return names;
}

void CErrorHandler::Trace(StringView what, StringView routine) const {
  AppendToLog(tracingLogFile_, NowText() + String(what) + String(routine));
}

void CErrorHandler::CallStackPush(StringView routine, StringView params) {
  Service.Guard([&] {
    callStack_.push_back({{}, String(routine), String(params)});
    if (tracingEnabled_ && (tracingFlags_ & TraceFile) != 0) {
      Trace(u" --- Entered routine: ", routine);
    }
  });
}

void CErrorHandler::CallStackPushLiteral(StringView routine) {
  callStack_.push_back({routine, {}, {}});
  if (!tracingEnabled_ || (tracingFlags_ & TraceFile) == 0) return;
  Service.Guard([&] { Trace(u" --- Entered routine: ", NameOf(callStack_.back())); });
}

void CErrorHandler::CallStackPop() {
  if (callStack_.empty()) return;
  if (tracingEnabled_ && (tracingFlags_ & TraceFile) != 0) {
    Service.Guard([&] { Trace(u" --- Exited routine: ", NameOf(callStack_.back())); });
  }
  callStack_.pop_back();
}

void CErrorHandler::CallStackClear() {
  if (callStackEnabled_) callStack_.clear();
}

void CErrorHandler::Clear(int clearErrorLog, int clearTracingLog) {
  Service.Guard([&] {
    DeleteLog(errorLogFile_, clearErrorLog);
    DeleteLog(tracingLogFile_, clearTracingLog);
  });
}

String CErrorHandler::Report(StringView routine) const {
  String report = NowText() + u"\r\n\tError: " + vb::Str(errorNumber_) + u", (" +
                  errorDescription_ + u")\r\n\tin " + String(routine) + u" at line " +
                  vb::Str(errorLine_) + u"\r\n\r\nThe call stack is:";
  for (auto entry = callStack_.rbegin(); entry != callStack_.rend(); ++entry) {
    report += u"\r\n" + vb::Space(20) + NameOf(*entry) + u"(" + entry->Params + u")";
  }
  // The dump of an empty stack is empty, behind the line end of its heading.
  return callStack_.empty() ? report + u"\r\n" : report;
}

ErrorAnswer CErrorHandler::HandleError(StringView routine, const vb::Failure& failure) {
  return Service.Guard([&] {
    errorDescription_ = failure.Description();
    errorNumber_ = failure.Number();
    errorLine_ = 0;  // our routines carry no line numbers
    if (OnFailure) OnFailure(failure);
    String name(routine);
    if (name.empty()) {
      name = callStackEnabled_ && !callStack_.empty() ? NameOf(callStack_.back()) : u"Unknown";
    }
    const String report = Report(name);
    if ((errorHandlerActions_ & ActionLogFile) != 0) AppendToLog(errorLogFile_, report);
    platform::Platform& services = platform::Current();
    if (isWindowsNT_ && (errorHandlerActions_ & ActionEventLog) != 0) {
      services.App().LogEvent(report, platform::LogEventType::Error);
    }
    ErrorAnswer answer = ActionAbort;
    if ((errorHandlerActions_ & ActionMessageBox) != 0) {
      switch (services.Boxes().ShowMessage(report, services.App().Title(),
                                           platform::AbortRetryIgnore)) {
        case platform::MessageAnswer::Retry:
          answer = ActionRetry;
          break;
        case platform::MessageAnswer::Ignore:
          answer = ActionIgnore;
          break;
        default:
          answer = ActionAbort;
      }
    }
    if ((errorHandlerActions_ & ActionErrorDialog) != 0) answer = ShowErrorDialog(report);
    return answer;
  });
}

ErrorAnswer CErrorHandler::ShowErrorDialog(StringView report) const {
  const auto form = std::make_shared<frmErrorMessage>();
  form->SetErrorMessage(report);
  form->SetSupportMail(supportMail_);
  form->Show(platform::ShowStyle::Modal);
  const String tag = form->Tag;
  form->Unload();
  if (tag == u"ABORT") return ActionAbort;
  return tag == u"RETRY" ? ActionRetry : ActionIgnore;
}

}  // namespace tessel
