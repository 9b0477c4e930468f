#include "vb/Dates.h"

#include <array>

namespace tessel::vb {
namespace {

String Padded(int number, std::size_t width) {
  String digits = Str(number);
  return digits.size() >= width ? digits : String(width - digits.size(), u'0') + digits;
}

constexpr std::array<StringView, 12> Months{u"January",   u"February", u"March",    u"April",
                                            u"May",       u"June",     u"July",     u"August",
                                            u"September", u"October",  u"November", u"December"};
constexpr std::array<StringView, 7> Days{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                         u"Thursday", u"Friday", u"Saturday"};

/// Day of the week, 0 for Sunday. Sakamoto's method.
std::size_t Weekday(const Date& date) {
  constexpr std::array Offsets{0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
  const int year = date.Month < 3 ? date.Year - 1 : date.Year;
  return static_cast<std::size_t>((year + year / 4 - year / 100 + year / 400 +
                                   Offsets[static_cast<std::size_t>(date.Month - 1)] + date.Day) %
                                  7);
}

String ShortDate(const Date& date) {
  return Padded(date.Year, 4) + u"-" + Padded(date.Month, 2) + u"-" + Padded(date.Day, 2);
}

String ShortTime(const Date& date) { return Padded(date.Hour, 2) + u":" + Padded(date.Minute, 2); }

String LongTime(const Date& date) { return ShortTime(date) + u":" + Padded(date.Second, 2); }

String LongDate(const Date& date) {
  return String(Days[Weekday(date)]) + u", " + Str(date.Day) + u" " +
         String(Months[static_cast<std::size_t>(date.Month - 1)]) + u" " + Str(date.Year);
}

String GeneralDate(const Date& date) {
  const bool dayZero = DatePart(date) == Date{};
  const bool midnight = TimePart(date) == Date{};
  if (midnight) return ShortDate(date);
  return dayZero ? LongTime(date) : ShortDate(date) + u" " + LongTime(date);
}

}  // namespace

String FormatDateTime(const Date& date, DateFormat format) {
  switch (format) {
    case DateFormat::LongDate:
      return LongDate(date);
    case DateFormat::ShortDate:
      return ShortDate(date);
    case DateFormat::LongTime:
      return LongTime(date);
    case DateFormat::ShortTime:
      return ShortTime(date);
    case DateFormat::GeneralDate:
      break;
  }
  return GeneralDate(date);
}

Date DatePart(const Date& date) { return {date.Year, date.Month, date.Day, 0, 0, 0}; }

Date TimePart(const Date& date) { return {1899, 12, 30, date.Hour, date.Minute, date.Second}; }

}  // namespace tessel::vb
