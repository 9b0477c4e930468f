#include "snippets/TabStops.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

struct Case {
  StringView Body, Expected;
};

TEST(TabStops, BecomeWords) {
  const Case cases[] = {{u"For ${1:i} = 0 To ${2:n}\n  $0\nNext $1", u"For i = 0 To n\n  \nNext i"},
                        {u"$1 = ${1:name}", u"name = name"},
                        {u"$2 ${3}", u"Value2 Value3"},
                        {u"${1|Public,Private|} Sub", u"Public Sub"},
                        {u"${1|a\\,b,c|}", u"a,b"},
                        {u"${1:outer ${2:inner}} $2", u"outer inner inner"},
                        {u"$TM_FILENAME ${CLIPBOARD:none}", u"TM_FILENAME none"},
                        {u"${1/(.*)/${1:/upcase}/}", u"Value1"},
                        {u"cost \\$5 \\} \\\\", u"cost $5 } \\"},
                        {u"Left$(a, 1) & b$", u"Left$(a, 1) & b$"},
                        {u"${1:open", u"${1:open"},
                        {u"${a.b} then ${1:name} and ${2}", u"${a.b} then name and Value2"},
                        {u"${1|a,b|x} ${2:y}", u"${1|a,b|x} y"},
                        {u"", u""}};
  for (const Case& one : cases) {
    EXPECT_EQ(WithoutTabStops(one.Body), one.Expected) << vb::ToUtf8(one.Body);
  }
}

TEST(TabStops, NestedThatAreNoneAreReadOnce) {
  String deep;
  for (int level = 0; level < 5000; ++level) deep += u"${1|a,";
  EXPECT_EQ(WithoutTabStops(deep + u"b|x ${2:y}"), deep + u"b|x y");
}

TEST(TabStops, NestedWithoutEndAreTaken) {
  String deep;
  for (int level = 0; level < 5000; ++level) deep += u"${1:";
  EXPECT_FALSE(WithoutTabStops(deep).empty());
}

}  // namespace
}  // namespace tessel
