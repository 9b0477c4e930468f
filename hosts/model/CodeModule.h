// The text of a component and its pane.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "host/CodeModule.h"
#include "hosts/model/AttributeKeeper.h"
#include "hosts/model/LineBuffer.h"
#include "hosts/model/MemberIndex.h"
#include "hosts/model/OperationHook.h"
#include "hosts/model/Windows.h"

namespace tessel::model {

class VBComponent;
class Vbe;
class CodePane;

class CodeModule : public host::CodeModule, public std::enable_shared_from_this<CodeModule> {
 public:
  /// `load` gives the text when it is asked for first; without it the module is empty.
  CodeModule(Hook hook, const std::shared_ptr<VBComponent>& component,
             std::function<LineBuffer()> load);

  [[nodiscard]] std::shared_ptr<host::VBComponent> Parent() override;
  [[nodiscard]] std::shared_ptr<host::VBE> VBE() override;
  [[nodiscard]] String Name() override;
  [[nodiscard]] String Lines(int startLine, int count) override;
  [[nodiscard]] int CountOfLines() override;
  void InsertLines(int line, StringView text) override;
  void DeleteLines(int startLine, int count) override;
  void ReplaceLine(int line, StringView text) override;
  [[nodiscard]] bool MayHaveProc(StringView name, host::vbext_ProcKind kind) override;
  [[nodiscard]] int ProcStartLine(StringView name, host::vbext_ProcKind kind) override;
  [[nodiscard]] int ProcCountLines(StringView name, host::vbext_ProcKind kind) override;
  [[nodiscard]] int ProcBodyLine(StringView name, host::vbext_ProcKind kind) override;
  [[nodiscard]] String ProcOfLine(int line, host::vbext_ProcKind& kind) override;
  [[nodiscard]] int CountOfDeclarationLines() override;
  [[nodiscard]] std::shared_ptr<host::CodePane> CodePane() override;

  /// The user's own edit: `count` lines from `line`, all of which must exist, become `text`.
  void Edit(int line, int count, StringView text);
  /// Other lines stand in the module's file now; they count as unchanged.
  void Reload(LineBuffer lines);
  [[nodiscard]] std::shared_ptr<VBComponent> Component() const { return component_.lock(); }
  [[nodiscard]] std::shared_ptr<model::CodePane> OwnPane();
  /// The pane when there is one, else null.
  [[nodiscard]] std::shared_ptr<model::CodePane> OpenPane() const { return pane_.lock(); }
  /// The lines, loaded when they weren't.
  [[nodiscard]] const LineBuffer& Buffer();
  /// As `Buffer`, with what hangs on lines where it is to be written.
  [[nodiscard]] const LineBuffer& SettledBuffer();
  MemberIndex& Index();
  [[nodiscard]] bool IsLoaded() const { return buffer_.has_value(); }
  [[nodiscard]] bool IsModified() const { return modified_; }
  void SetModified(bool value) { modified_ = value; }
  /// Another number behind each change of the lines, for whoever keeps what it read of them.
  [[nodiscard]] long Revision() const { return revision_; }

 private:
  LineBuffer& Text();
  void Changing();
  void Changed(int line, int removed, int added);
  [[nodiscard]] const MemberIndex::Span& SpanOf(StringView name, host::vbext_ProcKind kind);
  Hook hook_;
  std::weak_ptr<VBComponent> component_;
  std::function<LineBuffer()> load_;
  std::optional<LineBuffer> buffer_;
  std::optional<MemberIndex> index_;
  std::optional<AttributeKeeper> keeper_;
  std::weak_ptr<model::CodePane> pane_;
  bool modified_ = false;
  long revision_ = 0;
};

/// Keeps selection and top line. Open panes are held by the environment.
class CodePane : public host::CodePane, public std::enable_shared_from_this<CodePane> {
 public:
  CodePane(Hook hook, const std::shared_ptr<model::CodeModule>& module,
           std::shared_ptr<model::Window> window);
  [[nodiscard]] std::shared_ptr<host::Window> Window() override;
  [[nodiscard]] host::Selection GetSelection() override;
  void SetSelection(const host::Selection& selection) override;
  [[nodiscard]] int TopLine() override;
  void SetTopLine(int line) override;
  [[nodiscard]] std::shared_ptr<host::CodeModule> CodeModule() override;
  void Show() override;

  /// Gives a pane whose window was closed another one. No effect on one that has its window.
  void Reopen();
  /// Takes over what the user did in the pane's own window.
  void Follow(const host::Selection& selection, int topLine);
  [[nodiscard]] std::shared_ptr<model::CodeModule> Module() const { return module_.lock(); }
  [[nodiscard]] model::Window& OwnWindow() { return *window_; }
  [[nodiscard]] const std::shared_ptr<model::Window>& SharedWindow() const { return window_; }
  /// The caption of a pane's window.
  [[nodiscard]] static String CaptionOf(const VBComponent& component);

 private:
  [[nodiscard]] int ClampLine(int line) const;
  void Clamp(int& line, int& column) const;
  Hook hook_;
  std::weak_ptr<model::CodeModule> module_;
  std::shared_ptr<model::Window> window_;
  host::Selection selection_;
  int topLine_ = 1;
};

}  // namespace tessel::model
