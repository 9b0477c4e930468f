// Dates as the language prints them.
#pragma once

#include "vb/Text.h"

namespace tessel::vb {

/// A local date and time of day.
struct Date {
  int Year = 1899, Month = 12, Day = 30;
  int Hour = 0, Minute = 0, Second = 0;
  bool operator==(const Date&) const = default;
};

/// The forms of FormatDateTime, with the language's numbers.
enum class DateFormat { GeneralDate = 0, LongDate = 1, ShortDate = 2, LongTime = 3, ShortTime = 4 };

/// Text of a date in a fixed, sortable form: short date "2026-11-21", long time "14:05:09", short
/// time "14:05", long date "Saturday, 21 November 2026". General date gives the date, a blank and
/// the long time; the date alone at midnight; the time alone on day zero (1899-12-30).
[[nodiscard]] String FormatDateTime(const Date& date, DateFormat format = DateFormat::GeneralDate);

/// The date part at midnight, and the time part on day zero.
[[nodiscard]] Date DatePart(const Date& date);
[[nodiscard]] Date TimePart(const Date& date);

}  // namespace tessel::vb
