#include "hosts/model/ControlText.h"

namespace tessel::model {
namespace {

constexpr StringView Library = u"VB.";

struct ShownText {
  StringView Class, Property;
};
constexpr ShownText Texts[] = {{u"Label", u"Caption"},         {u"Frame", u"Caption"},
                               {u"CommandButton", u"Caption"}, {u"CheckBox", u"Caption"},
                               {u"OptionButton", u"Caption"},  {u"Data", u"Caption"},
                               {u"TextBox", u"Text"},          {u"ComboBox", u"Text"}};

}  // namespace

StringView TextPropertyOf(StringView className) {
  if (vb::SameText(className.substr(0, Library.size()), Library)) {
    className.remove_prefix(Library.size());
  }
  for (const ShownText& one : Texts) {
    if (vb::SameText(one.Class, className)) return one.Property;
  }
  return {};
}

}  // namespace tessel::model
