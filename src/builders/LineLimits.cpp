#include "builders/LineLimits.h"

#include <map>

#include "vb/Numbers.h"

namespace tessel::builders {
namespace {

struct Fault {
  StringView Line;
  String Message;
};

/// The first line that the language doesn't take.
std::optional<Fault> FirstFault(StringView code) {
  std::size_t continued = 0;
  for (std::size_t at = 0; at < code.size();) {
    const std::size_t end = std::min(code.find(vb::CrLf, at), code.size());
    const StringView line = code.substr(at, end - at);
    if (line.size() > MostUnits) {
      return Fault{line, u"A line would have " + vb::Str(line.size()) + u" characters, more than " +
                             vb::Str(MostUnits)};
    }
    continued = line.ends_with(u" _") ? continued + 1 : 0;
    if (continued > MostContinuations) {
      return Fault{line, u"A statement would be continued more than " + vb::Str(MostContinuations) +
                             u" times"};
    }
    at = end + vb::CrLf.size();
  }
  return std::nullopt;
}

Complaint Refused(const FieldText& field, const String& why) {
  Complaint complaint;
  complaint.Field = field.Control;
  complaint.Item = field.Item;
  complaint.Message = why + u", field: \"" + String(field.Label) + u"\"";
  return complaint;
}

/// Blanks behind the sign don't count: the environment takes them away.
bool ContinuesLine(StringView text) {
  constexpr StringView Blanks = u" \t";
  const std::size_t last = text.find_last_not_of(Blanks);
  if (last == StringView::npos || text[last] != u'_') return false;
  return last == 0 || Blanks.find(text[last - 1]) != StringView::npos;
}

/// Of the field that has the most in the line, a list's items together, the longest text.
const FieldText* Culprit(StringView line, const FieldTexts& fields) {
  struct Share {
    std::size_t Units = 0;
    const FieldText* Longest = nullptr;
  };
  std::map<StringView, Share> shares;
  const Share* most = nullptr;
  for (const FieldText& field : fields) {
    if (field.Text.empty() || line.find(field.Text) == StringView::npos) continue;
    Share& share = shares[field.Label];
    share.Units += field.Text.size();
    if (!share.Longest || field.Text.size() > share.Longest->Text.size()) share.Longest = &field;
    if (most == nullptr || share.Units > most->Units) most = &share;
  }
  return most == nullptr ? nullptr : most->Longest;
}

}  // namespace

void AddComment(FieldTexts& fields, const HeaderChoices& comment) {
  fields.reserve(fields.size() + 3);
  fields.push_back({u"txtDescription", u"Description", comment.Description});
  fields.push_back({{}, u"Author", comment.Author});
  fields.push_back({{}, u"DateTime", comment.DateTime});
}

void AddItems(FieldTexts& fields, StringView control, StringView label,
              const std::vector<String>& items) {
  for (std::size_t at = 0; at < items.size(); ++at) {
    fields.push_back({control, label, items[at], static_cast<int>(at)});
  }
}

std::optional<Complaint> CheckNameLength(const FieldText& name) {
  if (name.Text.size() <= MostNameUnits) return std::nullopt;
  return Refused(name, u"A name would have " + vb::Str(name.Text.size()) +
                           u" characters, more than " + vb::Str(MostNameUnits));
}

std::optional<Complaint> CheckNameLengths(const FieldTexts& names) {
  for (const FieldText& name : names) {
    if (auto complaint = CheckNameLength(name)) return complaint;
  }
  return std::nullopt;
}

std::optional<Complaint> CheckLineEnd(const FieldText& lastInLine) {
  if (!ContinuesLine(lastInLine.Text)) return std::nullopt;
  return Refused(lastInLine, u"A text that ends in \" _\" would take the next line in");
}

std::optional<Complaint> CheckLineEnds(const FieldTexts& lastInLine) {
  for (const FieldText& field : lastInLine) {
    if (auto complaint = CheckLineEnd(field)) return complaint;
  }
  return std::nullopt;
}

std::optional<Complaint> CheckMadeName(const FieldText& name) {
  if (!NameFault(name.Text)) return std::nullopt;
  return Refused(name, name.Text.empty()
                           ? String(u"The type has no prefix, which names the parameter")
                           : u"\"" + String(name.Text) + u"\" can't be a name");
}

bool MayBreakLimits(const FieldTexts& fields) {
  constexpr std::size_t OwnWords = 128;  // of the longest line, without the fields
  constexpr std::size_t Separator = 2;   // behind each item of a list
  std::size_t units = 0, continued = 0;
  for (const FieldText& field : fields) {
    units += field.Text.size() + Separator;
    if (field.Text.ends_with(u'_')) ++continued;
  }
  return OwnWords + 2 * units > MostUnits || continued > MostContinuations;
}

std::optional<Complaint> CheckLimits(StringView code, const FieldTexts& fields) {
  const auto fault = FirstFault(code);
  if (!fault) return std::nullopt;
  Complaint complaint;
  complaint.Message = fault->Message;
  if (const FieldText* const culprit = Culprit(fault->Line, fields)) {
    complaint.Field = culprit->Control;
    complaint.Item = culprit->Item;
    complaint.Message += u", field: \"" + String(culprit->Label) + u"\"";
  }
  return complaint;
}

}  // namespace tessel::builders
