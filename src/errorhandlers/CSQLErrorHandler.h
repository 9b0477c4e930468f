// The error-handler schemes in the shared database.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "connections/cConnectionMDB.h"

namespace tessel {

/// A named recipe for the error handling of a member. `Header` and `Footer` are rich-text
/// documents.
struct ErrorHandlerScheme {
  String NameError;
  String Header, Footer;
  bool InsertLine = false;      ///< number the code lines
  std::int32_t BaseNumber = 0;  ///< first line number
  std::int32_t Step = 0;        ///< distance between line numbers
  bool ChangeError = false;     ///< replace "On Error GoTo 0" by a jump to the label
  String LabelNameError;        ///< that label; may hold placeholders
  bool operator==(const ErrorHandlerScheme&) const = default;
};

/// Reads and writes the table `ErrorHandlerScheme`. Failures come from the store.
class CSQLErrorHandler {
 public:
  /// Takes the connection "PersonalMarlow" from `gConnectionMDBs`; fails when it is absent.
  CSQLErrorHandler();

  /// One scheme; nothing when there is none of that name.
  [[nodiscard]] std::optional<ErrorHandlerScheme> GetRecordTable(StringView nameError) const;
  /// All schemes, also a single one.
  [[nodiscard]] std::vector<ErrorHandlerScheme> GetAll() const;
  /// The same for the tools. A table of a single one counts as empty here and in the next
  /// operation.
  [[nodiscard]] std::optional<std::vector<ErrorHandlerScheme>> GetTable() const;
  [[nodiscard]] std::optional<std::vector<String>> GetListNameError() const;
  /// Writes all columns of the row with the scheme's name.
  void UpdateRecord(const ErrorHandlerScheme& scheme) const;
  /// These do nothing when a name that they need is empty.
  void InsertRecord(StringView nameError) const;
  void UpdateRecordKey(StringView nameError, StringView nameErrorWhere) const;
  void DeleteRecord(StringView nameError) const;

 private:
  std::shared_ptr<cConnectionMDB> connection_;
};

}  // namespace tessel
