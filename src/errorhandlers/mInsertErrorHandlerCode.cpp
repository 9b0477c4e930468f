// Schemes turned into text, and the text of a member dressed with one.

#include "errorhandlers/mInsertErrorHandlerCode.h"

#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "scanning/mFunctions.h"

namespace tessel::mInsertErrorHandlerCode {
namespace {

String ReturnBlock(RunContext& context, StringView stored, StringView start, StringView end,
                   StringView prefix, StringView projectName, StringView componentName,
                   StringView memberName, StringView memberType) {
  const String& plain = context.Documents.Of(stored, context.PreviewRichText);
  if (plain.empty()) return String(vb::CrLf);
  const auto line = [](StringView lead, StringView text) {
    return String(lead) + String(text) + String(vb::CrLf);
  };
  return line(prefix, start) +
         line(u"", mFunctions::DekodeKeyWord(plain, projectName, componentName, memberName,
                                             memberType, u"")) +
         line(prefix, end);
}

/// Dresses the lines of one member.
class Dressing {
 public:
  Dressing(RunContext& context, const ErrorHandlerScheme* scheme, String labelName)
      : context_(context), scheme_(scheme), label_(std::move(labelName)) {
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
    if (!inContinuation_) kind_ = LineKindOf(context_, vb::Trim(line));
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
    text_ += Block(ReturnHeader, scheme_->Header);
    text_.resize(text_.size() - vb::CrLf.size());
  }

  /// Ahead of the member's end.
  void AddFooter() { text_ += Block(ReturnFooter, scheme_->Footer); }

  template <class Return>
  [[nodiscard]] String Block(Return&& make, const String& stored) {
    return make(context_, stored, prefix_, context_.ProjectName, context_.ComponentName,
                context_.MemberName, context_.MemberType, u"");
  }

  RunContext& context_;
  const ErrorHandlerScheme* scheme_;
  String label_, prefix_, text_;
  std::int32_t number_ = 0, step_ = 0, kind_ = NumberedLine;
  bool inContinuation_ = false;
};

}  // namespace

bool ContainsText(StringView text, StringView what) {
  return vb::InStr(text, what, vb::Compare::Text) > 0;
}

void Init_mRecord_ErrorHandlerScheme(RunContext& context) {
  Routine(u"mInsertErrorHandlerCode.Init_mRecord_ErrorHandlerScheme", [&](const Statements& run) {
    const auto table = run([] { return std::make_shared<CSQLErrorHandler>(); });
    if (!table) return;
    if (auto schemes = run([&] { return table->GetTable(); })) {
      context.mRecord_ErrorHandlerScheme = *std::move(schemes);
    }
  });
}

int ReturnIndexErrorHandlerScheme(const RunContext& context, StringView name) {
  const auto& schemes = context.mRecord_ErrorHandlerScheme;
  for (std::size_t at = 0; at < schemes.size(); ++at) {
    if (vb::SameText(schemes[at].NameError, name)) return static_cast<int>(at);
  }
  return NoScheme;
}

const ErrorHandlerScheme* FindScheme(const RunContext& context, StringView name) {
  const int index = ReturnIndexErrorHandlerScheme(context, name);
  if (index == NoScheme) return nullptr;
  return &context.mRecord_ErrorHandlerScheme[static_cast<std::size_t>(index)];
}

String ReturnHeader(RunContext& context, StringView header, StringView prefix,
                    StringView projectName, StringView componentName, StringView memberName,
                    StringView memberType, StringView) {
  return ReturnBlock(context, header, HeaderStart, HeaderEnd, prefix, projectName, componentName,
                     memberName, memberType);
}

String ReturnFooter(RunContext& context, StringView footer, StringView prefix,
                    StringView projectName, StringView componentName, StringView memberName,
                    StringView memberType, StringView) {
  return ReturnBlock(context, footer, FooterStart, FooterEnd, prefix, projectName, componentName,
                     memberName, memberType);
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

String LabelOf(const RunContext& context, const ErrorHandlerScheme& scheme) {
  if (!scheme.ChangeError || scheme.LabelNameError.empty()) return {};
  return mFunctions::DekodeKeyWord(scheme.LabelNameError, context.ProjectName,
                                   context.ComponentName, context.MemberName, context.MemberType,
                                   u"");
}

String WorkTextComponentMember(RunContext& context, StringView text, StringView schemeName) {
  String result;
  Routine(u"mInsertErrorHandlerCode.WorkTextComponentMember", [&] {
    const ErrorHandlerScheme* const scheme = FindScheme(context, schemeName);
    auto lines = mRemoveErrorHandlerCode::RemoveErrorHandlerScheme(text, u"");
    constexpr std::size_t HeadLength = 100;
    context.MemberType = GetMemberType(mFunctions::DeleteUnderline(text.substr(0, HeadLength)));
    if (!lines) return;
    Dressing dressing(context, scheme, scheme == nullptr ? String() : LabelOf(context, *scheme));
    for (const String& line : *lines) dressing.Add(line);
    result = dressing.Take();
  });
  return result;
}

}  // namespace tessel::mInsertErrorHandlerCode
