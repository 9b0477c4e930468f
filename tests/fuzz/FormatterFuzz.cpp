#include "formatter/mFormatText.h"
#include "fuzz/FuzzDriver.h"
#include "hosts/review/CodeComparison.h"
#include "presentation/mCodeConverter.h"
#include "support/MemoryPlatform.h"
#include "support/Rules.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static memory::MemoryPlatform services;
  static const platform::ScopedPlatform scope(services);
  const std::string bytes(data, data + size);
  const String text = vb::FromUtf8(bytes);
  mFormatText::FormatRun format = test::DefaultRun();
  format.CompactWrapped = size % 2 == 0;
  format.LineCharacters = 40;
  const String once = mFormatText::FormatTextComponent(format, text);
  static_cast<void>(review::CompareCode(text, once));
  if (size < 400) static_cast<void>(mCodeConverter::MakeRTF(text, 0));
  return 0;
}

std::vector<std::string> FuzzSeeds() {
  return {
      "Public Sub A(ByVal x As Long, _\r\n  y)\r\n10 If x Then ' note\r\n  Select Case y: Case 1: "
      "z = "
      "\"a:b'c\"\r\nEnd Select\r\nFoo: DoEvents: Beep ' c\r\nEnd If\r\nEnd Sub\r\n",
      "'errMarker: Skip\r\nPrivate Function B()\r\nFor i = 1 To 2: With q\r\n.a = b(c:=#1:2:3 "
      "AM#)\r\n"
      "End With: Next\r\nRem x: y\r\n#If W Then\r\nDo: Loop\r\n#End If\r\nEnd Function\r\n"};
}
