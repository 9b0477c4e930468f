#include "snippets/RecordText.h"

#include <gtest/gtest.h>

#include <random>

#include "vb/Failure.h"

namespace tessel {
namespace {

String FailureOf(std::string_view bytes) {
  try {
    static_cast<void>(ReadRecordText(bytes, u"f"));
  } catch (const vb::Failure& failure) {
    return failure.Description();
  }
  return u"(no failure)";
}

TEST(RecordText, IsReadableAndStaysAsItIs) {
  const std::string text =
      "Name: Read a \\\\ file\n"
      "Notes open:\n"
      "    two\n"
      "    lines \xD0\x96\n"
      "Text:\n"
      "    Sub A()\n"
      "\n"
      "      x = 1\n"
      "    End Sub\n";
  const NamedFragment record = ReadRecordText(text, u"f");
  EXPECT_EQ(record.Name, u"Read a \\ file");
  EXPECT_EQ(record.Fragment.TextUserNotes, u"two\r\nlines Ж");
  EXPECT_EQ(record.Fragment.Text, u"Sub A()\r\n\r\n  x = 1\r\nEnd Sub\r\n");
  EXPECT_EQ(WriteRecordText(record), text);
}

TEST(RecordText, ReadsWhatAnotherSystemMadeOfIt) {
  const NamedFragment record =
      ReadRecordText("\xEF\xBB\xBFName: n\r\nText:\r\n    a\r\n\r\n", u"f");
  EXPECT_EQ(record.Fragment.Text, u"a\r\n\r\n");
}

TEST(RecordText, EveryUnitComesBack) {
  String all;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16_t>(unit);
  std::mt19937 random(5);
  const StringView pieces[] = {u"\r\n",
                               u"\n",
                               u"\r",
                               u"a",
                               u" ",
                               u"\\",
                               u"\t",
                               u"Text:",
                               u"    ",
                               u"\xD800",
                               u"\xDC00",
                               u"Ж",
                               StringView(u"\0", 1),
                               u"\u2028"};
  for (int round = 0; round < 3000; ++round) {
    NamedFragment record;
    record.Name = round == 0 ? all : String(u"n");
    for (String ListFragment::*column :
         {&ListFragment::Text, &ListFragment::TitleObj, &ListFragment::TextObj,
          &ListFragment::CompObj, &ListFragment::NameObj, &ListFragment::ClassObj,
          &ListFragment::TextUserNotes}) {
      if (round == 0) record.Fragment.*column = all;
      for (auto count = random() % 6; count > 0 && round > 0; --count) {
        // Some records have nothing but line ends of one kind.
        record.Fragment.*column +=
            pieces[random() % (round % 2 == 0 ? 1 + round % 3 : std::size(pieces))];
      }
    }
    ASSERT_EQ(ReadRecordText(WriteRecordText(record), u"f"), record) << "round " << round;
  }
}

TEST(RecordText, TheLineOfAnOlderExportIsPassedOver) {
  NamedFragment record{.Name = u"n", .Fragment = {}};
  record.Fragment.Text = u"a\r\n";
  EXPECT_EQ(ReadRecordText("Name: n\nExport: 0123456789abcdef\nText:\n    a\n", u"f"), record);
  EXPECT_EQ(WriteRecordText(record), "Name: n\nText:\n    a\n");
}

TEST(RecordText, NamesFileAndLineOfWhatIsWrong) {
  EXPECT_EQ(FailureOf(""), u"f:1: the record has no name");
  EXPECT_EQ(FailureOf("Name: a\nrubbish\n"), u"f:2: a key and a colon are expected");
  EXPECT_EQ(FailureOf("Name: a\nColour: red\n"), u"f:2: there is no \"Colour\"");
  EXPECT_EQ(FailureOf("Name: a\nCompanion bytes:\n    0g\n"),
            u"f:3: hexadecimal digits are expected");
  EXPECT_EQ(FailureOf("Name: a\nText: inline\n"),
            u"f:2: a section stands in the lines below, four blanks in");
  EXPECT_EQ(FailureOf("Name: a\nText lf opne:\n    x\n"), u"f:2: nothing is written \"opne\"");
  EXPECT_EQ(FailureOf("Name: a\nText:\n    x\nText open:\n    y\n"),
            u"f:4: \"Text open\" stands here twice");
  EXPECT_EQ(FailureOf("Name: a\nNAME: b\n"), u"f:2: \"NAME\" stands here twice");
  EXPECT_NE(FailureOf("Name: \\q\n").find(u"f:1: behind"), String::npos);
  EXPECT_NE(FailureOf("Name: \\u12g4\n").find(u"four hexadecimal digits"), String::npos);
}

}  // namespace
}  // namespace tessel
