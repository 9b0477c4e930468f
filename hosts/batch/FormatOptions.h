// The options of `tessel format`: those of the Code Formatter dialog.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "formatter/FormatRun.h"

namespace tessel::batch {

struct FormatOptions {
  bool IndentEntire = true;
  bool IndentCase = true;
  bool InsertBlank = true;
  bool CodeLines = true;
  bool Compact = true;
  bool TabCharacters = true;
  int LineCharacters = 90;
  int AdditionalTabs = 1;
  int SpacesPerLevel = 4;
  int TabWidth = 4;
  std::vector<FormatRule> Rules;
};

/// One option: its name on the command line ("--" ahead) and in a configuration file.
struct OptionRow {
  const char* Name;
  const char* Help;
  std::variant<bool FormatOptions::*, int FormatOptions::*> Field;
  int Min = 0, Max = 0;  ///< bounds of a number
};

[[nodiscard]] std::span<const OptionRow> OptionTable();

/// Sets an option from its text: on/off (also yes/no, true/false, 1/0) or a number within bounds.
/// Fails with a vb::Failure that names the option and what it takes.
void SetOption(FormatOptions& options, const OptionRow& row, const std::string& value);

/// The text of an option's value, as SetOption takes it.
[[nodiscard]] std::string ValueOf(const FormatOptions& options, const OptionRow& row);

/// Reads "name = value" lines; "#" starts a comment; "rule WORDS = on|off BEFORE AFTER" sets a
/// rule. Fails naming file and line.
void ReadConfig(FormatOptions& options, const std::filesystem::path& file);

/// The file ".tessel" in the folder or the nearest one above it; empty when there is none.
[[nodiscard]] std::filesystem::path FindConfig(const std::filesystem::path& folder);

/// Writes the options in the form that ReadConfig takes.
void WriteConfig(const FormatOptions& options, std::ostream& out);

/// A run object with the options.
[[nodiscard]] mFormatText::FormatRun RunWith(const FormatOptions& options);

}  // namespace tessel::batch
