// The text of a module in an editor, in step with the model both ways.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/editing/Names.h"
#include "hosts/model/CodeModule.h"

namespace tessel::workbench {

/// What a user can choose about the editor.
struct EditorOptions {
  QFont Font;
  bool Dark = false;
  int TabWidth = 4;
  bool LineNumbers = true;
  /// Lines that the user enters take the environment's spacing and case when they are left.
  bool TidyLines = true;
  /// What names mean, shared by the editors of a window; an editor without it has its own.
  std::shared_ptr<editing::Names> Names;
};

/// Shows one module. The user's edits go into the model, the model's into the text, and both into
/// one undo history. Lines count from 1, columns from 1 in 16-bit units, as in the model.
class CodeEditor : public QsciScintilla {
 public:
  CodeEditor(std::shared_ptr<model::CodeModule> module, const EditorOptions& options,
             QWidget* parent);

  [[nodiscard]] const std::shared_ptr<model::CodeModule>& Module() const { return module_; }
  void SetOptions(const EditorOptions& options);

  /// The model's lines changed; no effect for an edit that came from here.
  void LinesChanged(int line, int removed, int added);
  /// All edits up to `EndGroup` are one step of the undo history. Calls nest.
  void BeginGroup();
  void EndGroup();

  /// The point below the caret, in pixels of this widget.
  [[nodiscard]] QPoint PlaceBelowCaret() const;
  [[nodiscard]] host::Selection Selected() const;
  void Select(const host::Selection& selection);
  [[nodiscard]] int TopLine() const;
  void SetTopLine(int line);
  /// Tidies the line that the user has just entered.
  void TidyEntered();
  /// Puts the clipboard in. Of several lines those that are whole are tidied in the same step; the
  /// last one is one that the user still stands in.
  void paste() override;
  // A step that gives the whole text anew leaves caret and first line where they are.
  void undo() override;
  void redo() override;

  /// Puts the caret at the beginning of a line, and the line near the top.
  void GoToLine(int line);
  /// Goes to the head of the next or the previous procedure; ahead of the first one is the top.
  void GoToProcedure(bool forward);
  /// Takes the line of the caret, or those that are selected, onto the clipboard.
  void CutLine();
  /// Puts an apostrophe ahead of each selected line, or takes it off, as one step.
  void CommentBlock(bool comment);
  /// A mark on the line of the caret, which stays with the line.
  void ToggleBookmark();
  void GoToBookmark(bool forward);
  void ClearBookmarks();

  /// The caret or the first line that shows moved, by whomever.
  std::function<void()> OnMoved;
  /// The text changed, by whomever.
  std::function<void()> OnChanged;

 protected:
  /// Gives an input method the line of the caret as its surroundings. The base class gives the
  /// whole text, with every key.
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Load();
  void ShowMargins();
  void Modified(int position, int type, int linesAdded);
  void Moved();
  void FreeKeys();
  void SetUpMarks();
  [[nodiscard]] String Tidy(int line, const String& text) const;
  void TidyLines(int first, int last);
  void WriteMissingEnd(int head);
  void CopyToModel(int line, int linesAdded);
  /// Where the user stands in the text.
  struct Standing {
    host::Selection Selection;
    int Top;
  };
  [[nodiscard]] Standing Stood() const { return {Selected(), TopLine()}; }
  void Stand(const Standing& place);
  void StayThrough(const std::function<void()>& step);
  void FoldMembers();
  void FoldMember(int firstLine, int bodyOffset, int lines);
  void PutSeparator(int firstLine, int lines, bool last);
  void Replace(int start, int end, const QByteArray& text);
  [[nodiscard]] QByteArray TextOfModel(int line, int count) const;
  [[nodiscard]] String TextOfLines(int first, int last) const;
  [[nodiscard]] int Column(int position) const;
  [[nodiscard]] int Position(int line, int column) const;
  template <class... Values>
  long Ask(unsigned int message, Values... values) const {
    return SendScintilla(message, values...);
  }
  /// From 0.
  [[nodiscard]] int LineOf(long position) const {
    return static_cast<int>(Ask(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position)));
  }
  [[nodiscard]] int LineEnd(int line) const {
    return static_cast<int>(Ask(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(line)));
  }
  [[nodiscard]] int Lines() const { return static_cast<int>(Ask(SCI_GETLINECOUNT)); }

  std::shared_ptr<model::CodeModule> module_;
  EditorOptions options_;
  int modelLines_ = 0;
  int group_ = 0;
  /// The members as they were folded last.
  struct FoldedMember {
    int Lines, BodyOffset;
    bool operator==(const FoldedMember&) const = default;
  };
  std::vector<FoldedMember> folded_;
  int foldedDeclarations_ = -1;
  bool fromModel_ = false, fromUser_ = false, selecting_ = false, foldsPending_ = false;
  /// Where the user stood when the whole text was taken away, until another one comes.
  std::optional<Standing> left_;
  /// A step of the history had the text empty on its way.
  bool emptied_ = false;
  /// The line that the user changed last and still stands in.
  std::optional<int> entered_;
};

}  // namespace tessel::workbench
