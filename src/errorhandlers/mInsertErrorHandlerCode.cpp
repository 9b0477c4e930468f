#include "errorhandlers/mInsertErrorHandlerCode.h"

#include <unordered_map>

#include "errorhandlers/HandlerRun.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/ReplaceLines.h"
#include "scanning/mFunctions.h"

namespace tessel::mInsertErrorHandlerCode {

std::vector<ErrorHandlerScheme> mRecord_ErrorHandlerScheme;
String ProjectName, ComponentName, MemberName, MemberType;
std::int32_t CurrentMemberKind = 0;
String ModuleScheme, FormScheme, ActiveXScheme, ClassScheme, DocumentScheme;
forms::RichTextBox* PreviewRichText = nullptr;
bool FirstCaseFlag = false;

namespace {

using KindTable = std::unordered_map<StringView, std::int32_t>;

const KindTable& FirstWords() {
  static const KindTable table{
      {u"FUNCTION", HeadLine}, {u"SUB", HeadLine},     {u"PROPERTY", HeadLine},
      {u"DIM", PaddedLine},    {u"REDIM", PaddedLine}, {u"ON", PaddedLine},
      {u"CONST", PaddedLine},  {u"ELSE", PaddedLine},  {u"NEXT", PaddedLine}};
  return table;
}

const KindTable& WordPairs() {
  static const KindTable table{{u"END FUNCTION", EndLine},     {u"END SUB", EndLine},
                               {u"END PROPERTY", EndLine},     {u"PRIVATE FUNCTION", HeadLine},
                               {u"PUBLIC FUNCTION", HeadLine}, {u"FRIEND FUNCTION", HeadLine},
                               {u"STATIC FUNCTION", HeadLine}, {u"PRIVATE SUB", HeadLine},
                               {u"PUBLIC SUB", HeadLine},      {u"FRIEND SUB", HeadLine},
                               {u"STATIC SUB", HeadLine},      {u"PRIVATE PROPERTY", HeadLine},
                               {u"PUBLIC PROPERTY", HeadLine}, {u"FRIEND PROPERTY", HeadLine},
                               {u"STATIC PROPERTY", HeadLine}, {u"PRIVATE STATIC", HeadLine},
                               {u"PUBLIC STATIC", HeadLine},   {u"FRIEND STATIC", HeadLine},
                               {u"PUBLIC _", HeadLine},        {u"PRIVATE _", HeadLine},
                               {u"FRIEND _", HeadLine},        {u"STATIC _", HeadLine},
                               {u"PROPERTY _", HeadLine},      {u"END IF", PaddedLine},
                               {u"END WITH", PaddedLine},      {u"END SELECT", PaddedLine}};
  return table;
}

/// A document and its plain text. A run meets the same few for every member.
struct ReadDocument {
  String Document, Plain;
};
std::vector<ReadDocument> readDocuments;

String ReadPlainText(StringView document) {
  if (PreviewRichText == nullptr) return forms::ReadRichText(document).Text;
  PreviewRichText->SetTextRTF(document);
  return PreviewRichText->Text();
}

const String& PlainText(StringView document) {
  constexpr std::size_t MostDocuments = 32;
  for (const ReadDocument& read : readDocuments) {
    if (read.Document == document) return read.Plain;
  }
  if (readDocuments.size() >= MostDocuments) readDocuments.clear();
  return readDocuments.emplace_back(ReadDocument{String(document), ReadPlainText(document)}).Plain;
}

String ReturnBlock(StringView stored, StringView start, StringView end, StringView prefix,
                   StringView projectName, StringView componentName, StringView memberName,
                   StringView memberType) {
  const String& plain = PlainText(stored);
  if (plain.empty()) return String(vb::CrLf);
  const auto line = [](StringView lead, StringView text) {
    return String(lead) + String(text) + String(vb::CrLf);
  };
  return line(prefix, start) +
         line(u"", mFunctions::DekodeKeyWord(plain, projectName, componentName, memberName,
                                             memberType, u"")) +
         line(prefix, end);
}

bool ContainsText(StringView text, StringView what) {
  return vb::InStr(text, what, vb::Compare::Text) > 0;
}

/// Words in capitals, as long as those of the tables; anything longer stands in none.
class Capitals {
 public:
  explicit Capitals(StringView words) {
    if (words.size() > std::size(units_)) return;
    for (const char16_t unit : words) {
      if (unit >= 0x80) {
        foreign_ = vb::UCase(words);
        return;
      }
      units_[size_++] = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
  }
  [[nodiscard]] StringView Text() const {
    return foreign_.empty() ? StringView(units_, size_) : StringView(foreign_);
  }

 private:
  char16_t units_[16] = {};
  std::size_t size_ = 0;
  String foreign_;
};

/// Whether some listed word, or an apostrophe, begins like this one; most statements don't.
bool MayBeListed(StringView word) {
  constexpr StringView Firsts = u"cdefnoprs'";
  if (word.empty()) return false;
  const char16_t first = word.front();
  return first >= 0x80 || first == u'\'' ||
         Firsts.find(static_cast<char16_t>(first | 0x20)) != StringView::npos;
}

/// The kind of a line without blanks around it.
std::int32_t KindOf(StringView line) {
  const std::size_t first = line.find(u' ');
  const StringView word = line.substr(0, first);
  if (!word.empty() && word.back() == u':') return LabelLine;
  if (!MayBeListed(word)) return NumberedLine;
  const Capitals capitals(word);
  const auto byWord = FirstWords().find(capitals.Text());
  if (byWord != FirstWords().end()) return byWord->second;
  if (capitals.Text() == u"CASE") {
    return std::exchange(FirstCaseFlag, false) ? PaddedLine : NumberedLine;
  }
  if (!word.empty() && word.front() == u'\'') return PaddedLine;
  const std::size_t second = first == StringView::npos ? first : line.find(u' ', first + 1);
  const Capitals pair(line.substr(0, second));
  if (pair.Text() == u"SELECT CASE") FirstCaseFlag = true;
  const auto byPair = WordPairs().find(pair.Text());
  return byPair == WordPairs().end() ? NumberedLine : byPair->second;
}

/// Dresses the lines of one member.
class Dressing {
 public:
  Dressing(const ErrorHandlerScheme* scheme, String labelName)
      : scheme_(scheme), label_(std::move(labelName)) {
    if (scheme_ == nullptr || !scheme_->InsertLine) return;
    number_ = scheme_->BaseNumber;
    step_ = scheme_->Step;
    prefix_ = vb::Space(static_cast<std::ptrdiff_t>(vb::Str(scheme_->BaseNumber).size() + 1));
  }

  void Add(StringView line) {
    const StringView trimmed = vb::RTrim(line);
    const bool continued = !trimmed.empty() && trimmed.back() == u'_';
    String changed;
    if (!label_.empty() && line.find(u"On Error GoTo 0") != StringView::npos) {
      changed = vb::Replace(line, u"On Error GoTo 0", u"On Error GoTo " + label_);
      line = changed;
    }
    if (!inContinuation_) kind_ = KindOf(vb::Trim(line));
    if (!text_.empty()) text_ += vb::CrLf;
    const bool block = !continued && scheme_ != nullptr;
    if (block && kind_ == EndLine) AddFooter();
    if (inContinuation_) {
      text_ += prefix_;
    } else {
      AddMargin();
    }
    text_ += line;
    if (block && kind_ == HeadLine) AddHeader();
    inContinuation_ = continued;
  }

  [[nodiscard]] String Take() { return std::move(text_); }

 private:
  /// The number of a line, or what stands in its place.
  void AddMargin() {
    if (kind_ == PaddedLine) text_ += prefix_;
    if (kind_ != NumberedLine || number_ + step_ <= 0) return;
    text_ += vb::Str(number_);
    text_ += u' ';
    number_ += step_;
  }

  /// Behind the member's head; the next line brings the last line end.
  void AddHeader() {
    text_ += vb::CrLf;
    text_ += ReturnHeader(scheme_->Header, prefix_, ProjectName, ComponentName, MemberName,
                          MemberType, u"");
    text_.resize(text_.size() - vb::CrLf.size());
  }

  /// Ahead of the member's end.
  void AddFooter() {
    text_ += ReturnFooter(scheme_->Footer, prefix_, ProjectName, ComponentName, MemberName,
                          MemberType, u"");
  }

  const ErrorHandlerScheme* scheme_;
  String label_, prefix_, text_;
  std::int32_t number_ = 0, step_ = 0, kind_ = NumberedLine;
  bool inContinuation_ = false;
};

/// The scheme that a member gets in a mode.
String EffectiveScheme(int mode, const String& memberKey, const String& moduleKey,
                       StringView schemeName) {
  if (mode != MethodMode && !memberKey.empty()) return memberKey;
  if (mode == ProjectMode && !moduleKey.empty()) return moduleKey;
  return String(schemeName);
}

}  // namespace

void Init_mRecord_ErrorHandlerScheme() {
  Routine(u"mInsertErrorHandlerCode.Init_mRecord_ErrorHandlerScheme", [&](const Statements& run) {
    const auto table = run([] { return std::make_shared<CSQLErrorHandler>(); });
    if (!table) return;
    if (auto schemes = run([&] { return table->GetTable(); })) {
      mRecord_ErrorHandlerScheme = *std::move(schemes);
    }
  });
}

int ReturnIndexErrorHandlerScheme(StringView name) {
  for (std::size_t at = 0; at < mRecord_ErrorHandlerScheme.size(); ++at) {
    if (vb::SameText(mRecord_ErrorHandlerScheme[at].NameError, name)) return static_cast<int>(at);
  }
  return NoScheme;
}

String ReturnHeader(StringView header, StringView prefix, StringView projectName,
                    StringView componentName, StringView memberName, StringView memberType,
                    StringView) {
  return ReturnBlock(header, HeaderStart, HeaderEnd, prefix, projectName, componentName, memberName,
                     memberType);
}

String ReturnFooter(StringView footer, StringView prefix, StringView projectName,
                    StringView componentName, StringView memberName, StringView memberType,
                    StringView) {
  return ReturnBlock(footer, FooterStart, FooterEnd, prefix, projectName, componentName, memberName,
                     memberType);
}

String GetMemberType(StringView text) {
  const StringView line = text.substr(0, text.find(vb::CrLf));
  String type;
  if (ContainsText(line, u"SUB ")) type = u"Sub";
  if (ContainsText(line, u"Function ")) type = u"Function";
  if (ContainsText(line, u"Property ") &&
      (ContainsText(line, u"Property Get ") || ContainsText(line, u"Property Let ") ||
       ContainsText(line, u"Property Set "))) {
    type = u"Property";
  }
  return type;
}

String LabelOf(const ErrorHandlerScheme& scheme) {
  if (!scheme.ChangeError || scheme.LabelNameError.empty()) return {};
  return mFunctions::DekodeKeyWord(scheme.LabelNameError, ProjectName, ComponentName, MemberName,
                                   MemberType, u"");
}

std::int32_t ReturnTypeProcessing(String& line) {
  line = String(vb::Trim(line));
  return KindOf(line);
}

String WorkTextComponentMember(StringView text, StringView schemeName) {
  String result;
  Routine(u"mInsertErrorHandlerCode.WorkTextComponentMember", [&] {
    const int index = ReturnIndexErrorHandlerScheme(schemeName);
    const ErrorHandlerScheme* const scheme =
        index == NoScheme ? nullptr : &mRecord_ErrorHandlerScheme[static_cast<std::size_t>(index)];
    auto lines = mRemoveErrorHandlerCode::RemoveErrorHandlerScheme(text, u"");
    constexpr std::size_t HeadLength = 100;
    MemberType = GetMemberType(mFunctions::DeleteUnderline(text.substr(0, HeadLength)));
    if (!lines) return;
    Dressing dressing(scheme, scheme == nullptr ? String() : LabelOf(*scheme));
    for (const String& line : *lines) dressing.Add(line);
    result = dressing.Take();
  });
  return result;
}

void RunMemberProcedure(const std::shared_ptr<host::CodeModule>& codeModule, StringView memberName,
                        StringView schemeName, int mode) {
  Routine(u"mInsertErrorHandlerCode.RunMemberProcedure", [&](const Statements& run) {
    const MemberLines member =
        run([&] { return ReadMember(Need(codeModule), memberName, CurrentMemberKind); });
    if (member.Body < 1) return;
    String memberKey;
    const bool marked = mFunctions::GetKEYDeclare(codeModule, member.Body, memberKey);
    const String moduleKey = mFunctions::GetKEYDeclareComponent(codeModule);
    MemberName = memberName;
    const String effective = EffectiveScheme(mode, memberKey, moduleKey, schemeName);
    if (effective == SkipScheme) return;
    const String text = WorkTextComponentMember(member.Text, effective);
    if (!text.empty()) {
      run([&] { ReplaceLines(*codeModule, member.Body, member.Length, member.Body, text); });
    }
    if (mode != MethodMode) return;
    const String marker = String(mFunctions::KeyCommentHead) + effective;
    if (marked) {
      run([&] { codeModule->ReplaceLine(member.Body - 1, marker); });
    } else {
      run([&] { codeModule->InsertLines(member.Body, marker); });
    }
  });
}

void RunComponentModule(const std::shared_ptr<host::CodeModule>& codeModule, StringView schemeName,
                        int mode) {
  Routine(u"mInsertErrorHandlerCode.RunComponentModule", [&](const Statements& run) {
    const MemberTable members = mFunctions::AllNameProcedures(codeModule, u"");
    if (!members) return;
    if (HandlerProgress() != nullptr) {
      HandlerProgress()->SetPRBCount2(static_cast<double>(members->size()));
    }
    int index = 0;
    for (const Member& member : *members) {
      run([&] { ShowHandlerMember(member.Name, index++); });
      CurrentMemberKind = member.Kind == MemberKindControlEvent ? 0 : member.Kind;
      RunMemberProcedure(codeModule, member.Name, schemeName, mode);
      if (HandlerRunStopped()) return;
    }
    const String marker = String(mFunctions::KeyCommentHead) + String(schemeName);
    const String first = run([&] { return Need(codeModule).Lines(1, 1); });
    if (!ContainsText(first, mFunctions::KeyCommentHead)) {
      run([&] { Need(codeModule).InsertLines(1, marker); });
    } else if (mode == ComponentMode) {
      run([&] { Need(codeModule).ReplaceLine(1, marker); });
    }
  });
}

void RunInsertErrorHandlerCode(const std::shared_ptr<host::VBComponents>& components,
                               StringView scope, String& schemeName) {
  HandlerRun steps;
  steps.Title = u"Insert Error Handler Code";
  steps.InProject = [&](host::VBComponent& component) {
    switch (component.Type()) {
      case host::vbext_ct_StdModule:
      case host::vbext_ct_ClassModule:  // classes go with the modules' choice
        schemeName = ModuleScheme;
        break;
      case host::vbext_ct_VBForm:
        schemeName = FormScheme;
        break;
      case host::vbext_ct_ActiveXDesigner:
        schemeName = ActiveXScheme;
        break;
      default:
        break;  // the others keep what the component before them had
    }
    if (const auto module = component.CodeModule()) {
      RunComponentModule(module, schemeName, ProjectMode);
    }
  };
  steps.Component = [&](const auto& module) {
    RunComponentModule(module, schemeName, ComponentMode);
  };
  steps.Member = [&](const auto& module, StringView member) {
    RunMemberProcedure(module, member, schemeName, MethodMode);
  };
  RunHandlers(u"mInsertErrorHandlerCode.RunInsertErrorHandlerCode", steps, components, scope);
}

}  // namespace tessel::mInsertErrorHandlerCode
