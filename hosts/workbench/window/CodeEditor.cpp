#include "hosts/workbench/window/CodeEditor.h"

#include <Qsci/qscicommandset.h>

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "hosts/editing/Blocks.h"
#include "hosts/editing/LineTidy.h"
#include "hosts/model/Component.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/BasicLexer.h"
#include "hosts/workbench/window/Colors.h"

namespace tessel::workbench {
namespace {

constexpr int LineMargin = 0, MarkMargin = 1, FoldMargin = 2;
constexpr int MarkMarginWidth = 12;
/// Markers of lines. The separator is an underline behind a procedure.
constexpr unsigned BookmarkMark = 1, SeparatorMark = 2;
constexpr int LinesAbove = 2;  // what shows above a line that was gone to
constexpr int FoldDelayMs = 250;

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/// Where the editor keeps units that are no text: bytes that the file's code page doesn't know
/// travel as lone surrogates, which UTF-8 can't hold.
constexpr char32_t LonePlane = 0x10F000, LoneFirst = 0xD800, LoneCount = 0x800;

/// Text of the model as the editor holds it.
QByteArray ToEditor(const String& text) {
  QString shown;
  std::size_t from = 0;
  const auto take = [&](std::size_t to) {
    shown += ToQt(StringView(text).substr(from, to - from));
    from = to;
  };
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!IsHigh(text[at]) && !IsLow(text[at])) continue;
    if (IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1])) {
      ++at;
      continue;
    }
    take(at);
    shown += QString::fromUcs4(std::u32string(1, LonePlane + (text[at] - LoneFirst)).data(), 1);
    from = at + 1;
  }
  take(text.size());
  return shown.toUtf8();
}

/// The way back.
String FromEditor(const QByteArray& bytes) {
  constexpr char PlaneLead = '\xF4';  // first byte of that plane's characters
  String text = FromQt(QString::fromUtf8(bytes));
  if (!bytes.contains(PlaneLead)) return text;
  String back;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool pair = IsHigh(text[at]) && at + 1 < text.size();
    const char32_t point = pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : 0;
    if (pair && point >= LonePlane && point < LonePlane + LoneCount) {
      back += static_cast<char16_t>(LoneFirst + (point - LonePlane));
      ++at;
    } else {
      back += text[at];
    }
  }
  return back;
}

}  // namespace

CodeEditor::CodeEditor(std::shared_ptr<model::CodeModule> module, const EditorOptions& options,
                       QWidget* parent)
    : QsciScintilla(parent), module_(std::move(module)) {
  setUtf8(true);
  setEolMode(EolUnix);
  Ask(SCI_SETPASTECONVERTENDINGS, 1L);
  Ask(SCI_SETCODEPAGE, static_cast<long>(SC_CP_UTF8));
  setAutoIndent(true);
  setIndentationsUseTabs(false);
  setBraceMatching(StrictBraceMatch);
  setFolding(BoxedTreeFoldStyle, FoldMargin);
  Ask(SCI_SETSCROLLWIDTHTRACKING, 1L);
  Ask(SCI_SETSCROLLWIDTH, 1L);
  Ask(SCI_SETENDATLASTLINE, 0L);
  FreeKeys();
  SetUpMarks();
  SetOptions(options);
  Load();
  connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
          [this](int position, int type, const char*, int, int linesAdded) {
            Modified(position, type, linesAdded);
          });
  connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { Moved(); });
}

/// The window's commands have these keys.
void CodeEditor::FreeKeys() {
  constexpr int Freed[] = {Qt::Key_Y, Qt::Key_Up, Qt::Key_Down, Qt::Key_L,
                           Qt::Key_T, Qt::Key_D,  Qt::Key_U,    Qt::Key_B};
  for (const int key : Freed) {
    for (const Qt::KeyboardModifiers with :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
      const int code = key | static_cast<int>(with);
      QsciCommand* const command = standardCommands()->boundTo(code);
      if (command == nullptr) continue;
      if (command->key() == code) command->setKey(0);
      if (command->alternateKey() == code) command->setAlternateKey(0);
    }
  }
}

void CodeEditor::SetUpMarks() {
  setMarginType(MarkMargin, QsciScintilla::SymbolMargin);
  setMarginMarkerMask(MarkMargin, 1 << BookmarkMark);
  setMarginWidth(MarkMargin, MarkMarginWidth);
  markerDefine(QsciScintilla::Bookmark, BookmarkMark);
  markerDefine(QsciScintilla::Underline, SeparatorMark);
}

void CodeEditor::SetOptions(const EditorOptions& options) {
  options_ = options;
  if (!options_.Names) options_.Names = std::make_shared<editing::Names>();
  QsciLexer* const before = lexer();
  setLexer(new BasicLexer(options.Font, options.Dark, this));
  delete before;
  SendScintilla(SCI_SETPROPERTY, "fold", "0");  // the lexer folds by margin; we fold by member
  setTabWidth(options.TabWidth);
  setIndentationWidth(options.TabWidth);
  const QPalette colors = palette();
  setMarginsFont(options.Font);
  const QColor muted = MutedText(colors);
  setMarginsForegroundColor(muted);
  setMarginsBackgroundColor(colors.color(QPalette::Window));
  setFoldMarginColors(colors.color(QPalette::Window), colors.color(QPalette::Window));
  for (int mark = SC_MARKNUM_FOLDEREND; mark <= int{SC_MARKNUM_FOLDEROPEN}; ++mark) {
    SendScintilla(SCI_MARKERSETFORE, static_cast<unsigned long>(mark),
                  colors.color(QPalette::Window));
    SendScintilla(SCI_MARKERSETBACK, static_cast<unsigned long>(mark), muted);
  }
  SendScintilla(SCI_MARKERSETFORE, BookmarkMark, colors.color(QPalette::Highlight));
  SendScintilla(SCI_MARKERSETBACK, BookmarkMark, colors.color(QPalette::Highlight));
  SendScintilla(SCI_MARKERSETBACK, SeparatorMark, muted);
  setCaretForegroundColor(lexer()->defaultColor(0));
  setSelectionBackgroundColor(colors.color(QPalette::Highlight));
  setSelectionForegroundColor(colors.color(QPalette::HighlightedText));
  ShowMargins();
}

void CodeEditor::ShowMargins() {
  setMarginType(LineMargin, QsciScintilla::NumberMargin);
  const int digits = std::max(3, static_cast<int>(QString::number(Lines()).size()));
  setMarginWidth(LineMargin, options_.LineNumbers ? QString(digits + 1, u'9') : QString());
  if (!options_.LineNumbers) setMarginWidth(LineMargin, 0);
}

void CodeEditor::Load() {
  const QScopedValueRollback guard(fromModel_, true);
  modelLines_ = module_->Buffer().Count();
  Replace(0, static_cast<int>(Ask(SCI_GETLENGTH)), TextOfModel(1, modelLines_));
  Ask(SCI_EMPTYUNDOBUFFER);
  Ask(SCI_GOTOPOS, 0L);
  ShowMargins();
  FoldMembers();
}

QByteArray CodeEditor::TextOfModel(int line, int count) const {
  if (count <= 0) return {};
  String text = module_->Buffer().Text(line, count);
  std::erase(text, u'\r');
  return ToEditor(text);
}

String CodeEditor::TextOfLines(int first, int last) const {
  const long start = Ask(SCI_POSITIONFROMLINE, static_cast<unsigned long>(first));
  const long end = Ask(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(last));
  QByteArray range(static_cast<qsizetype>(end - start + 1), '\0');
  SendScintilla(SCI_GETTEXTRANGE, start, end, range.data());
  range.chop(1);  // the closing NUL
  return vb::Replace(FromEditor(range), u"\n", vb::CrLf);
}

void CodeEditor::Replace(int start, int end, const QByteArray& text) {
  Ask(SCI_SETTARGETSTART, static_cast<unsigned long>(start));
  Ask(SCI_SETTARGETEND, static_cast<unsigned long>(end));
  SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(text.size()), text.constData());
}

void CodeEditor::LinesChanged(int line, int removed, int added) {
  if (fromUser_) return;
  const QScopedValueRollback guard(fromModel_, true);
  const auto start = [&](int which) {
    return static_cast<int>(Ask(SCI_POSITIONFROMLINE, static_cast<unsigned long>(which - 1)));
  };
  const auto end = [&](int which) {
    return static_cast<int>(Ask(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(which - 1)));
  };
  const QByteArray text = TextOfModel(line, added);
  const int before = modelLines_;
  modelLines_ += added - removed;
  if (removed == before) {
    if (removed > 0) left_ = Stood();
    Replace(0, static_cast<int>(Ask(SCI_GETLENGTH)), text);
    if (added > 0 && left_) Stand(*std::exchange(left_, std::nullopt));
  } else if (removed > 0 && added > 0) {
    Replace(start(line), end(line + removed - 1), text);
  } else if (removed > 0) {
    const bool last = line + removed > before;
    Replace(last ? end(line - 1) : start(line), last ? end(before) : start(line + removed), {});
  } else if (added > 0) {
    const bool last = line > before;
    Replace(last ? end(before) : start(line), last ? end(before) : start(line),
            last ? '\n' + text : text + '\n');
  }
  entered_.reset();
}

void CodeEditor::Stand(const Standing& place) {
  Select(place.Selection);
  SetTopLine(place.Top);
}

void CodeEditor::StayThrough(const std::function<void()>& step) {
  const Standing place = Stood();
  emptied_ = false;
  step();
  if (emptied_) Stand(place);
}

void CodeEditor::undo() {
  StayThrough([this] { QsciScintilla::undo(); });
}

void CodeEditor::redo() {
  StayThrough([this] { QsciScintilla::redo(); });
}

void CodeEditor::BeginGroup() {
  if (group_++ == 0) beginUndoAction();
}

void CodeEditor::EndGroup() {
  if (--group_ == 0) endUndoAction();
}

void CodeEditor::Modified(int position, int type, int linesAdded) {
  if ((type & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) == 0) return;
  const int line =
      static_cast<int>(Ask(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position)));
  if (!fromModel_) {
    left_.reset();
    if (Ask(SCI_GETLENGTH) == 0) emptied_ = true;
    CopyToModel(line, linesAdded);
    // What undo and redo bring back stays as it was.
    entered_ = (type & SC_PERFORMED_USER) != 0 ? std::optional(line) : std::nullopt;
  }
  if (!foldsPending_) {
    foldsPending_ = true;
    QTimer::singleShot(FoldDelayMs, this, [this] {
      foldsPending_ = false;
      FoldMembers();
      ShowMargins();
    });
  }
  if (OnChanged) OnChanged();
}

void CodeEditor::CopyToModel(int line, int linesAdded) {
  const QScopedValueRollback guard(fromUser_, true);
  if (Ask(SCI_GETLENGTH) == 0) {
    if (modelLines_ > 0) module_->DeleteLines(1, modelLines_);
    modelLines_ = 0;
    return;
  }
  const int gone = modelLines_ == 0 ? 0 : 1 + std::max(0, -linesAdded);
  module_->Edit(line + 1, gone, TextOfLines(line, line + std::max(0, linesAdded)));
  modelLines_ = Lines();
}

int CodeEditor::Column(int position) const {
  const long line = Ask(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position));
  const long start = Ask(SCI_POSITIONFROMLINE, static_cast<unsigned long>(line));
  return 1 + static_cast<int>(Ask(SCI_COUNTCODEUNITS, static_cast<unsigned long>(start),
                                  static_cast<long>(position)));
}

int CodeEditor::Position(int line, int column) const {
  const int within = std::clamp(line, 1, Lines());
  const long start = Ask(SCI_POSITIONFROMLINE, static_cast<unsigned long>(within - 1));
  const long end = Ask(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(within - 1));
  if (column <= 1) return static_cast<int>(start);
  const long place = Ask(SCI_POSITIONRELATIVECODEUNITS, static_cast<unsigned long>(start),
                         static_cast<long>(column - 1));
  return static_cast<int>(place < start || place > end ? end : place);
}

QPoint CodeEditor::PlaceBelowCaret() const {
  const long caret = Ask(SCI_GETCURRENTPOS);
  const auto left = static_cast<int>(Ask(SCI_POINTXFROMPOSITION, 0UL, caret));
  const auto top = static_cast<int>(Ask(SCI_POINTYFROMPOSITION, 0UL, caret));
  const auto height =
      static_cast<int>(Ask(SCI_TEXTHEIGHT, static_cast<unsigned long>(LineOf(caret))));
  return viewport()->mapTo(this, QPoint(left, top + height));
}

host::Selection CodeEditor::Selected() const {
  const auto start = static_cast<int>(Ask(SCI_GETSELECTIONSTART));
  const auto end = static_cast<int>(Ask(SCI_GETSELECTIONEND));
  const auto lineOf = [&](int position) {
    return 1 + static_cast<int>(Ask(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position)));
  };
  return {lineOf(start), Column(start), lineOf(end), Column(end)};
}

void CodeEditor::Select(const host::Selection& selection) {
  const QScopedValueRollback guard(selecting_, true);
  const int start = Position(selection.StartLine, selection.StartColumn);
  const int end = Position(selection.EndLine, selection.EndColumn);
  SendScintilla(SCI_SETSEL, static_cast<unsigned long>(start), static_cast<long>(end));
}

QVariant CodeEditor::inputMethodQuery(Qt::InputMethodQuery query) const {
  const auto placeOf = [this](unsigned int message) {
    return Column(static_cast<int>(Ask(message))) - 1;
  };
  switch (query) {
    case Qt::ImSurroundingText: {
      const long caret = Ask(SCI_GETCURRENTPOS);
      const auto line =
          static_cast<int>(Ask(SCI_LINEFROMPOSITION, static_cast<unsigned long>(caret)));
      return ToQt(TextOfLines(line, line));
    }
    case Qt::ImCursorPosition:
      return placeOf(SCI_GETCURRENTPOS);
    case Qt::ImAnchorPosition:
      return placeOf(SCI_GETANCHOR);
    default:
      return QsciScintilla::inputMethodQuery(query);
  }
}

int CodeEditor::TopLine() const {
  const long shown = Ask(SCI_GETFIRSTVISIBLELINE);
  return 1 + static_cast<int>(Ask(SCI_DOCLINEFROMVISIBLE, static_cast<unsigned long>(shown)));
}

void CodeEditor::SetTopLine(int line) {
  const QScopedValueRollback guard(selecting_, true);
  const long shown = Ask(SCI_VISIBLEFROMDOCLINE, static_cast<unsigned long>(std::max(1, line) - 1));
  Ask(SCI_SETFIRSTVISIBLELINE, static_cast<unsigned long>(shown));
}

void CodeEditor::Moved() {
  if (entered_) {
    const long caret = Ask(SCI_GETCURRENTPOS);
    if (LineOf(caret) != *entered_) TidyEntered();
  }
  if (!selecting_ && OnMoved) OnMoved();
}

String CodeEditor::Tidy(int line, const String& text) const {
  const auto component = module_->Component();
  const auto named = [&](StringView name, bool member, std::size_t) {
    const auto found =
        component ? options_.Names->Find(*component, line, name, member, editing::Reach::Loaded)
                  : std::nullopt;
    return found ? found->What.Name : String();
  };
  return editing::TidyLine(text, editing::LinesAhead(module_->Buffer(), line), named);
}

void CodeEditor::TidyEntered() {
  const std::optional<int> line = std::exchange(entered_, std::nullopt);
  if (!line || !options_.TidyLines || *line >= Lines() || isReadOnly()) return;
  const String text = TextOfLines(*line, *line);
  const String tidy = Tidy(*line + 1, text);
  if (tidy == text) return;
  const host::Selection caret = Selected();
  Replace(Position(*line + 1, 1), LineEnd(*line), ToEditor(tidy));
  Select(caret);
  entered_.reset();
}

/// All lines from one to another (from 0) as one edit. Nothing but these lines changes, so each is
/// tidied by what the others were ahead of it.
void CodeEditor::TidyLines(int first, int last) {
  std::vector<String> lines;
  bool changed = false;
  for (int line = first; line <= last; ++line) {
    const String text = TextOfLines(line, line);
    lines.push_back(Tidy(line + 1, text));
    changed |= lines.back() != text;
  }
  if (changed) Replace(Position(first + 1, 1), LineEnd(last), ToEditor(vb::Join(lines, u"\n")));
}

void CodeEditor::paste() {
  if (isReadOnly()) return;
  BeginGroup();
  const int first = LineOf(Ask(SCI_GETSELECTIONSTART));
  QsciScintilla::paste();
  const host::Selection caret = Selected();
  const int last = caret.StartLine - 1;
  if (options_.TidyLines && last > first) {
    TidyLines(first, last - 1);
    Select(caret);
    entered_ = last;
  }
  EndGroup();
}

void CodeEditor::keyPressEvent(QKeyEvent* event) {
  // The component's own keys tidy nothing and throw the caret about.
  if (event->matches(QKeySequence::Paste)) return paste();
  if (event->matches(QKeySequence::Undo)) return undo();
  if (event->matches(QKeySequence::Redo)) return redo();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const long caret = Ask(SCI_GETCURRENTPOS);
  const int line = LineOf(caret);
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!enter || !plain || isReadOnly() || hasSelectedText() || caret < LineEnd(line)) {
    return QsciScintilla::keyPressEvent(event);
  }
  BeginGroup();
  QsciScintilla::keyPressEvent(event);
  WriteMissingEnd(line);
  EndGroup();
}

/// Behind a head that was just ended with Return stands its End.
void CodeEditor::WriteMissingEnd(int head) {
  const auto missing = editing::FindMissingEnd(module_->Buffer(), head + 1);
  if (!missing) return;
  const host::Selection caret = Selected();
  const int behind = LineEnd(caret.StartLine - 1);
  Replace(behind, behind, '\n' + ToEditor(missing->End));
  const int end = LineEnd(head);
  if (missing->Head != TextOfLines(head, head)) {
    Replace(Position(head + 1, 1), end, ToEditor(missing->Head));
  }
  Select(caret);
  entered_ = head;
}

void CodeEditor::GoToLine(int line) {
  ensureLineVisible(line - 1);
  setCursorPosition(line - 1, 0);
  SetTopLine(std::max(1, line - LinesAbove));
  setFocus();
}

void CodeEditor::GoToProcedure(bool forward) {
  const int caret = Selected().StartLine;
  int target = forward ? 0 : 1;
  for (const auto& member : module_->Index().Members()) {
    if (forward && member.Lines.Body > caret) {
      target = member.Lines.Body;
      break;
    }
    if (!forward && member.Lines.Body < caret) target = member.Lines.Body;
  }
  if (target > 0) GoToLine(target);
}

void CodeEditor::CutLine() {
  if (isReadOnly()) return;
  Ask(SCI_LINECUT);
  entered_.reset();  // the line that stands there now is another one
}

void CodeEditor::CommentBlock(bool comment) {
  if (isReadOnly()) return;
  const host::Selection chosen = Selected();
  const int first = chosen.StartLine;
  const bool overhangs = chosen.EndLine > first && chosen.EndColumn == 1;
  const int last = chosen.EndLine - (overhangs ? 1 : 0);
  const String before = vb::Replace(TextOfLines(first - 1, last - 1), vb::CrLf, u"\n");
  std::vector<StringView> lines = vb::SplitViews(before, u"\n");
  if (lines.empty()) lines.emplace_back();
  const String after =
      vb::Join(comment ? editing::Commented(lines) : editing::Uncommented(lines), u"\n");
  if (after == before) return;
  Replace(Position(first, 1), LineEnd(last - 1), ToEditor(after));
  const int end = Column(LineEnd(last - 1));
  Select({first, 1, last, end});
  entered_.reset();
}

void CodeEditor::ToggleBookmark() {
  const int line = LineOf(Ask(SCI_GETCURRENTPOS));
  if ((markersAtLine(line) & (1U << BookmarkMark)) != 0) {
    markerDelete(line, BookmarkMark);
  } else {
    markerAdd(line, BookmarkMark);
  }
}

void CodeEditor::GoToBookmark(bool forward) {
  constexpr unsigned Mask = 1U << BookmarkMark;
  const int line = LineOf(Ask(SCI_GETCURRENTPOS));
  int found = forward ? markerFindNext(line + 1, Mask) : markerFindPrevious(line - 1, Mask);
  if (found < 0) found = forward ? markerFindNext(0, Mask) : markerFindPrevious(Lines() - 1, Mask);
  if (found < 0) return;
  ensureLineVisible(found);
  setCursorPosition(found, 0);
}

void CodeEditor::ClearBookmarks() { markerDeleteAll(BookmarkMark); }

/// Underlines the last of a member's lines, unless nothing follows it.
void CodeEditor::PutSeparator(int firstLine, int lines, bool last) {
  for (int at = 0; at < lines; ++at) {
    const auto line = static_cast<unsigned long>(firstLine + at - 1);
    const bool wanted = !last && at + 1 == lines;
    const bool there = (Ask(SCI_MARKERGET, line) & (1L << SeparatorMark)) != 0;
    if (there == wanted) continue;
    Ask(wanted ? SCI_MARKERADD : SCI_MARKERDELETE, line, static_cast<long>(SeparatorMark));
  }
}

void CodeEditor::FoldMember(int firstLine, int bodyOffset, int lines) {
  // A member folds at its declaring line; what stands between members is always to be seen.
  constexpr long Base = SC_FOLDLEVELBASE;
  for (int at = 0; at < lines; ++at) {
    long level = Base + (at > bodyOffset ? 1 : 0);
    if (at == bodyOffset && at + 1 < lines) level |= SC_FOLDLEVELHEADERFLAG;
    const auto line = static_cast<unsigned long>(firstLine + at - 1);
    if (Ask(SCI_GETFOLDLEVEL, line) != level) Ask(SCI_SETFOLDLEVEL, line, level);
  }
}

void CodeEditor::FoldMembers() {
  const auto members = module_->Index().Members();
  const int declarations = members.empty() ? Lines() : members.front().Lines.Start - 1;
  std::vector<FoldedMember> now;
  now.reserve(members.size());
  for (const auto& member : members) {
    now.push_back({member.Lines.Count, member.Lines.Body - member.Lines.Start});
  }
  // The levels move with their lines, so only members that changed are gone through again.
  std::size_t same = 0;
  const std::size_t least = std::min(now.size(), folded_.size());
  while (same < least && now[same] == folded_[same]) ++same;
  std::size_t behind = 0;
  while (behind < least - same &&
         now[now.size() - 1 - behind] == folded_[folded_.size() - 1 - behind]) {
    ++behind;
  }
  if (declarations != foldedDeclarations_ || folded_.empty() != now.empty()) {
    FoldMember(1, Lines(), declarations);
    PutSeparator(1, declarations, members.empty());
  }
  // The neighbours too: an edit at the border may have carried lines over.
  const std::size_t first = same == 0 ? 0 : same - 1;
  const std::size_t last = std::min(now.size(), now.size() - behind + 1);
  for (std::size_t at = first; at < last; ++at) {
    FoldMember(members[at].Lines.Start, now[at].BodyOffset, now[at].Lines);
    PutSeparator(members[at].Lines.Start, now[at].Lines, at + 1 == now.size());
  }
  folded_ = std::move(now);
  foldedDeclarations_ = declarations;
}

}  // namespace tessel::workbench
