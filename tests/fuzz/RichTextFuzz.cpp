#include "forms/RichTextBox.h"
#include "fuzz/FuzzDriver.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String document(data, data + size);
  const forms::ColoredText read = forms::ReadRichText(document);
  // What was read can be written, and reads the same again.
  const forms::ColoredText again = forms::ReadRichText(forms::WriteRichText(read, {}));
  std::size_t length = 0;
  for (const auto& run : read.Runs) length += run.Length;
  if (length != read.Text.size() || again.Text.size() > read.Text.size() + 2 * size) std::abort();
  return 0;
}

std::vector<std::string> FuzzSeeds() {
  return {
      "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fnil\\fcharset204 Courier;}{\\f1\\fcharset0 "
      "A;}}{\\colortbl ;\\red255\\green0\\blue1;}\\f0\\cf1 \\'e0\\'ff\\par\\tab\\u1078?\\cf0 "
      "x{\\*\\skip me}\\{\\}\\\\\\~\\par }",
      "{\\rtf1{\\stylesheet{\\s0 a;}}{\\pict 0011}\\uc2\\u-3913??text\\bin3 abc\\line\\emdash }",
      "plain text\r\nwith lines\n"};
}
