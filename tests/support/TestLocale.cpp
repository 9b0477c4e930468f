// A suite runs under the locale that TESSEL_TEST_LOCALE names, as a program does whose toolkit sets
// the user's.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace {

class TestLocale : public testing::Environment {
 public:
  void SetUp() override {
    const char* const name = std::getenv("TESSEL_TEST_LOCALE");
    if (name == nullptr) return;
    ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << "There is no locale " << name;
    ASSERT_EQ(std::localeconv()->decimal_point, std::string(","));
  }
};

[[maybe_unused]] const auto* const Registered =
    testing::AddGlobalTestEnvironment(new TestLocale);  // owned by the framework

}  // namespace
