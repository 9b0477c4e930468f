#include "hosts/batch/FormatOptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <ostream>
#include <sstream>

#include "vb/Failure.h"

namespace tessel::batch {
namespace {

[[noreturn]] void Fail(const std::string& message) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(message), u"Tessel.format");
}

constexpr std::array Options{
    OptionRow{"indent-entire", "body of a member one level in (on/off)",
              &FormatOptions::IndentEntire},
    OptionRow{"indent-case", "Case blocks one level in (on/off)", &FormatOptions::IndentCase},
    OptionRow{"insert-blank", "apply the rules: blank lines and indentation (on/off)",
              &FormatOptions::InsertBlank},
    OptionRow{"code-lines", "wrap or compact code lines (on/off)", &FormatOptions::CodeLines},
    OptionRow{"compact", "on: compact wrapped lines; off: wrap long lines",
              &FormatOptions::Compact},
    OptionRow{"line-characters", "line length at which wrapping starts (40 to 140)",
              &FormatOptions::LineCharacters, 40, 140},
    OptionRow{"additional-tabs", "tab characters ahead of a continuation line (0 to 10)",
              &FormatOptions::AdditionalTabs, 0, 10},
    OptionRow{"tab-characters", "on: a level is a tab wide; off: spaces-per-level",
              &FormatOptions::TabCharacters},
    OptionRow{"spaces-per-level", "blanks of a level (1 to 20)", &FormatOptions::SpacesPerLevel, 1,
              20},
    OptionRow{"tab-width", "width of the editor's tab (1 to 32)", &FormatOptions::TabWidth, 1, 32},
};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool ReadSwitch(const std::string& name, const std::string& value) {
  for (const char* on : {"on", "yes", "true", "1"}) {
    if (value == on) return true;
  }
  for (const char* off : {"off", "no", "false", "0"}) {
    if (value == off) return false;
  }
  Fail(name + " takes on or off, not \"" + value + '"');
}

int ReadNumber(const std::string& name, const std::string& value, int min, int max) {
  int number = 0;
  const char* const end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, number);
  if (error != std::errc() || stop != end || number < min || number > max) {
    Fail(name + " takes a number from " + std::to_string(min) + " to " + std::to_string(max) +
         ", not \"" + value + '"');
  }
  return number;
}

void SetRule(FormatOptions& options, const std::string& words, const std::string& value) {
  std::istringstream in(value);
  std::string enabled, before, after, rest;
  if (words.empty() || !(in >> enabled >> before >> after) || in >> rest) {
    Fail("a rule reads: rule WORDS = on|off BEFORE AFTER");
  }
  const FormatRule rule{ReadSwitch("rule " + words, enabled), vb::UCase(vb::FromUtf8(words)),
                        ReadNumber("rule " + words, before, 0, 100),
                        ReadNumber("rule " + words, after, 0, 100)};
  for (FormatRule& known : options.Rules) {
    if (vb::SameText(known.KeyWords, rule.KeyWords)) {
      known = rule;
      return;
    }
  }
  options.Rules.push_back(rule);
}

void SetLine(FormatOptions& options, const std::string& line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) Fail("a line reads: name = value");
  const std::string name = Trimmed(line.substr(0, equals));
  const std::string value = Trimmed(line.substr(equals + 1));
  if (name.rfind("rule ", 0) == 0) {
    SetRule(options, Trimmed(name.substr(5)), value);
    return;
  }
  for (const OptionRow& row : Options) {
    if (name == row.Name) {
      SetOption(options, row, value);
      return;
    }
  }
  Fail("there is no option \"" + name + '"');
}

}  // namespace

std::span<const OptionRow> OptionTable() { return Options; }

void SetOption(FormatOptions& options, const OptionRow& row, const std::string& value) {
  if (const auto* field = std::get_if<bool FormatOptions::*>(&row.Field)) {
    options.*(*field) = ReadSwitch(row.Name, value);
  } else {
    options.*std::get<int FormatOptions::*>(row.Field) =
        ReadNumber(row.Name, value, row.Min, row.Max);
  }
}

std::string ValueOf(const FormatOptions& options, const OptionRow& row) {
  if (const auto* field = std::get_if<bool FormatOptions::*>(&row.Field)) {
    return options.*(*field) ? "on" : "off";
  }
  return std::to_string(options.*std::get<int FormatOptions::*>(row.Field));
}

void ReadConfig(FormatOptions& options, const std::filesystem::path& file) {
  std::ifstream in(file);
  if (!in) Fail(file.string() + ": cannot be read");
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    line = Trimmed(line.substr(0, line.find('#')));
    if (line.empty()) continue;
    try {
      SetLine(options, line);
    } catch (const vb::Failure& failure) {
      Fail(file.string() + ":" + std::to_string(number) + ": " + failure.what());
    }
  }
  if (in.bad()) Fail(file.string() + ": cannot be read to its end");
}

std::filesystem::path FindConfig(const std::filesystem::path& folder) {
  std::error_code ignored;
  for (auto at = std::filesystem::absolute(folder, ignored).lexically_normal();;
       at = at.parent_path()) {
    auto file = at / ".tessel";
    if (std::filesystem::is_regular_file(file, ignored)) return file;
    if (at == at.parent_path()) return {};
  }
}

void WriteConfig(const FormatOptions& options, std::ostream& out) {
  for (const OptionRow& row : Options) out << row.Name << " = " << ValueOf(options, row) << '\n';
  for (const FormatRule& rule : options.Rules) {
    out << "rule " << vb::ToUtf8(rule.KeyWords) << " = " << (rule.Enabled ? "on " : "off ")
        << rule.Before << ' ' << rule.After << '\n';
  }
}

mFormatText::FormatRun RunWith(const FormatOptions& options) {
  mFormatText::FormatRun format;
  format.IndentEntire = options.IndentEntire;
  format.IndentCase = options.IndentCase;
  format.InsertBlank = options.InsertBlank;
  format.EnableCodeLines = options.CodeLines;
  format.CompactWrapped = options.Compact;
  format.LineCharacters = static_cast<std::int16_t>(options.LineCharacters);
  format.AdditionalTabs = static_cast<std::int16_t>(options.AdditionalTabs);
  format.UseTabCharacters = options.TabCharacters;
  format.UseSpaceCharacters = !options.TabCharacters;
  format.SpacesPerLevel = options.SpacesPerLevel;
  format.mRecord_FormatText = mFormatText::FormatRules(options.Rules);
  return format;
}

}  // namespace tessel::batch
