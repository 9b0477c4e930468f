// The one way in which failures are reported: call stack, trace, report, the user's answer.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "vb/Failure.h"

namespace tessel {

/// What is done with a report; bits of `ErrorHandlerActions`.
enum ErrorHandlerAction : std::int32_t {
  ActionMessageBox = 1,
  ActionLogFile = 2,
  ActionEventLog = 4,
  ActionErrorDialog = 8,
};

/// Answers of `HandleError`.
enum ErrorAnswer : std::int32_t { ActionAbort = 0, ActionRetry = 1, ActionIgnore = 2 };

/// The failure and trace service. Its own failures are 0x800443F9 to 0x800443FC with the program's
/// name and ".CErrorHandler" as source.
class CErrorHandler {
 public:
  CErrorHandler();

  [[nodiscard]] const String& SupportMail() const { return supportMail_; }
  void SetSupportMail(StringView value) { supportMail_ = value; }
  /// Checks and stores the values one after the other; fails with the number of the first bad one.
  void Init(std::int32_t errorHandlerActions, StringView errorLogFile, bool callStackEnabled,
            bool tracingEnabled, std::int32_t tracingFlags, StringView tracingLogFile);
  [[nodiscard]] bool CallStackEnabled() const { return callStackEnabled_; }
  void SetCallStackEnabled(bool value) { callStackEnabled_ = value; }
  [[nodiscard]] const String& ErrorDescription() const { return errorDescription_; }
  void SetErrorDescription(StringView value) { errorDescription_ = value; }
  [[nodiscard]] std::int32_t ErrorHandlerActions() const { return errorHandlerActions_; }
  void SetErrorHandlerActions(std::int32_t value);
  [[nodiscard]] std::int32_t ErrorLine() const { return errorLine_; }
  void SetErrorLine(std::int32_t value) { errorLine_ = value; }
  [[nodiscard]] const String& ErrorLogFile() const { return errorLogFile_; }
  void SetErrorLogFile(StringView value);
  [[nodiscard]] std::int32_t ErrorNumber() const { return errorNumber_; }
  void SetErrorNumber(std::int32_t value) { errorNumber_ = value; }
  [[nodiscard]] const String& Tag() const { return tag_; }
  void SetTag(StringView value) { tag_ = value; }
  [[nodiscard]] bool TracingEnabled() const { return tracingEnabled_; }
  void SetTracingEnabled(bool value) { tracingEnabled_ = value; }
  [[nodiscard]] std::int32_t TracingFlags() const { return tracingFlags_; }
  void SetTracingFlags(std::int32_t value);
  [[nodiscard]] const String& TracingLogFile() const { return tracingLogFile_; }
  void SetTracingLogFile(StringView value);

  void CallStackClear();
  void CallStackPop();
  /// Enters a routine given by its full name.
  void CallStackPush(StringView routine, StringView params);
  /// Enters "Tessel." and `routine`, a literal that outlives the call. No allocation while the
  /// stack is no deeper than before.
  void CallStackPushLiteral(StringView routine);
  /// Deletes the log files whose argument is above 0; a missing file is no failure.
  void Clear(int clearErrorLog, int clearTracingLog);
  /// Reports a failure and answers what the routine is to do.
  ErrorAnswer HandleError(StringView routine, const vb::Failure& failure);

  /// Told of each failure ahead of the question to the user: a run that gives an account of itself.
  std::function<void(const vb::Failure&)> OnFailure;

  /// Routine names, the newest first.
  [[nodiscard]] std::vector<String> CallStack() const;

 private:
  struct Entry {
    StringView Literal;  // without "Tessel."; empty when Name holds the routine
    String Name;
    String Params;
  };
  [[nodiscard]] static String NameOf(const Entry& entry);
  [[nodiscard]] String Report(StringView routine) const;
  void Trace(StringView what, StringView routine) const;
  [[nodiscard]] ErrorAnswer ShowErrorDialog(StringView report) const;

  std::vector<Entry> callStack_;
  String supportMail_, errorDescription_, tag_;
  String errorLogFile_ = u"Error Log.txt", tracingLogFile_ = u"Tracing Log.txt";
  std::int32_t errorHandlerActions_ = ActionMessageBox, errorLine_ = 0, errorNumber_ = 0;
  std::int32_t tracingFlags_ = 2;
  bool callStackEnabled_ = false, tracingEnabled_ = false, isWindowsNT_ = false;
};

/// The one failure service; created first at connection and never released by the disconnection.
extern std::shared_ptr<CErrorHandler> gErrorHandler;

}  // namespace tessel
