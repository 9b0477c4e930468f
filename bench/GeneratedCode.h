// Code to measure with.
#pragma once

#include <string>

#include "vb/Text.h"

namespace tessel::bench {

/// One member of about ten lines.
inline std::string Member(int number) {
  const std::string n = std::to_string(number);
  return "Public Function Compute" + n +
         "(ByVal Value As Long) As Long\r\n"
         "Dim Result As Long ' the result\r\n"
         "If Value > " +
         n +
         " Then\r\n"
         "Result = Value * 2: Value = 0\r\n"
         "ElseIf Len(\"text " +
         n +
         "\") = 4 Then\r\n"
         "For Value = 1 To 10: Result = Result + Value: Next\r\n"
         "End If\r\n"
         "Compute" +
         n +
         " = Result\r\n"
         "End Function\r\n"
         "\r\n";
}

/// About so many lines of members.
inline std::string Code(int lines) {
  std::string code;
  for (int number = 0; number * 10 < lines; ++number) code += Member(number);
  return code;
}

}  // namespace tessel::bench
