// The text of a component and the pane that shows it.
#pragma once

#include <memory>

#include "host/Types.h"

namespace tessel::host {

class VBE;
class VBComponent;
class Window;
class CodePane;

/// Lines count from 1. In texts that go in, CR LF, a lone CR and a lone LF each end a line; the
/// text behind the last line end is one more line, even when it is empty.
class CodeModule {
 public:
  virtual ~CodeModule() = default;
  [[nodiscard]] virtual std::shared_ptr<VBComponent> Parent() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBE> VBE() = 0;
  /// The component's name.
  [[nodiscard]] virtual String Name() = 0;
  /// `count` lines from `startLine`, separated by CR LF, as far as they exist. Fails with 9 when
  /// `startLine` is below 1 or `count` is negative.
  [[nodiscard]] virtual String Lines(int startLine, int count) = 0;
  [[nodiscard]] virtual int CountOfLines() = 0;
  /// Inserts ahead of `line`; a line past the end is the end. Fails with 9 below 1.
  virtual void InsertLines(int line, StringView text) = 0;
  /// Fails with 9 when the lines are not all there.
  virtual void DeleteLines(int startLine, int count) = 0;
  virtual void ReplaceLine(int line, StringView text) = 0;
  /// First line of the member, counting the blank and comment lines ahead that belong to it. These
  /// three find the name without regard to case and fail with 35 when the module has no such
  /// member.
  [[nodiscard]] virtual int ProcStartLine(StringView name, vbext_ProcKind kind) = 0;
  /// Number of lines from ProcStartLine to the member's end; the last member holds the module's
  /// rest.
  [[nodiscard]] virtual int ProcCountLines(StringView name, vbext_ProcKind kind) = 0;
  /// First line of the member's declaring statement.
  [[nodiscard]] virtual int ProcBodyLine(StringView name, vbext_ProcKind kind) = 0;
  /// False where the three above would fail for want of such a member; true also where the host
  /// can't tell. Spares the failure to those who ask for a kind that is mostly absent.
  [[nodiscard]] virtual bool MayHaveProc(StringView, vbext_ProcKind) { return true; }
  /// Name of the member that holds `line`, empty in the declarations and past the end; `kind` is
  /// set when there is one.
  [[nodiscard]] virtual String ProcOfLine(int line, vbext_ProcKind& kind) = 0;
  /// Lines up to the last declaring statement ahead of the first member; all lines without members.
  [[nodiscard]] virtual int CountOfDeclarationLines() = 0;
  /// Created when there is none.
  [[nodiscard]] virtual std::shared_ptr<host::CodePane> CodePane() = 0;
};

class CodePane {
 public:
  virtual ~CodePane() = default;
  [[nodiscard]] virtual std::shared_ptr<host::Window> Window() = 0;
  [[nodiscard]] virtual Selection GetSelection() = 0;
  /// Places past the text are pulled to its end.
  virtual void SetSelection(const Selection& selection) = 0;
  [[nodiscard]] virtual int TopLine() = 0;
  virtual void SetTopLine(int line) = 0;
  [[nodiscard]] virtual std::shared_ptr<host::CodeModule> CodeModule() = 0;
  virtual void Show() = 0;
};

}  // namespace tessel::host
