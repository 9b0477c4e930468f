// The commands of the bar as tables: order, captions, pictures, groups.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "host/CommandBars.h"

namespace tessel {

class Connect;

/// What a command runs. Null: its dialog is not part of the program, and the command stands greyed.
using Operation = void (Connect::*)();

/// A row of the command table: a button on the bar and an item of the pop-up named after the
/// program.
struct CommandRow {
  StringView Caption;
  int ResId;   ///< picture, 0 for none
  int FaceId;  ///< face of the host for rows without a picture
  bool BarGroup, MenuGroup;
  bool OnBar;
  bool AlwaysEnabled;  ///< left alone by EnableDisableCmd
  StringView BarHandler, MenuHandler;
  StringView OnAction;
  Operation BarOperation, MenuOperation;
};
[[nodiscard]] std::span<const CommandRow> CommandTable();

/// A handler that no control is hooked to: the command is present as code only.
struct UnhookedRow {
  StringView Handler;
  Operation Runs;
};
[[nodiscard]] std::span<const UnhookedRow> UnhookedTable();

/// A statement template: lines, and where its placeholder stands.
struct TemplateRow {
  StringView Popup;  ///< the pop-up that it stands in
  StringView Caption;
  StringView Handler;
  std::vector<String> Lines;
  int Column, LineOffset, Length;
  bool FollowsEnabling;  ///< false for the two that EnableDisableCmd leaves out
};
[[nodiscard]] const std::vector<TemplateRow>& TemplateTable();

/// The pop-ups of the templates in their order; the first begins a group.
[[nodiscard]] std::span<const StringView> TemplatePopups();

/// Scheme items beyond this number get no control.
inline constexpr std::size_t MostSchemeItems = 21;

}  // namespace tessel
