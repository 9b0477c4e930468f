// Runs every table in tests/data/builders; a new table is a new file. NAME.json holds "fixed"
// fields and "axes", lists of values that are combined in every way; NAME.golden holds the text of
// each combination behind a line "=== " with its own fields, or why it is refused. What comes out
// is written below the build folder; tools/renew-goldens.sh takes it over.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <variant>

#include "builders/CodeReader.h"
#include "hosts/batch/BuilderRecords.h"
#include "hosts/files/AtomicFile.h"
#include "support/BlockChecker.h"
#include "vb/Failure.h"

namespace tessel::builders {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

const fs::path Folder = fs::path(TESSEL_SOURCE_DIR) / "tests/data/builders";
const fs::path Actual = fs::path(TESSEL_BINARY_DIR) / "actual/builders";

/// The record of a combination; why there is none where one of its fields stands in the way of
/// another.
std::variant<batch::BuilderRecord, std::string> Read(const Json& record, const std::string& table) {
  try {
    return batch::ReadBuilderRecords(record.dump(), table).at(0);
  } catch (const vb::Failure& failure) {
    return std::string(failure.what());
  }
}

/// Each combination of one value from each axis.
std::vector<Json> Combine(const Json& axes) {
  std::vector<Json> all{Json::object()};
  for (const auto& [name, values] : axes.items()) {
    std::vector<Json> more;
    for (const Json& one : all) {
      for (const Json& value : values) {
        more.push_back(one);
        if (!value.is_null()) more.back()[name] = value;
      }
    }
    all = std::move(more);
  }
  return all;
}

String TextOf(const batch::BuilderRecord& record) {
  struct Write {
    String operator()(const ProcedureChoices& one) const { return GeneratorTextMethod(one); }
    String operator()(const EnumChoices& one) const { return GeneratorText(one); }
    String operator()(const CollectionChoices& one) const {
      return GeneratorTextClass(one) + String(vb::CrLf);
    }
    String operator()(const PropertyChoices& one) const {
      const PropertyText text = GeneratorTextProperty(one);
      return text.Declaration + text.Body;
    }
  };
  return std::visit(Write{}, record);
}

void CheckCode(const String& text, const std::string& what) {
  const test::BlockChecker blocks(text);
  EXPECT_EQ(blocks.Errors(), std::vector<std::string>()) << what;
  EXPECT_EQ(test::FaultsOfCode(text), std::vector<std::string>()) << what << '\n'
                                                                  << vb::ToUtf8(text);
}

class BuilderGoldens : public testing::TestWithParam<std::string> {};

TEST_P(BuilderGoldens, EveryCombinationGivesItsText) {
  const Json table = Json::parse(files::ReadFile(Folder / (GetParam() + ".json")));
  std::string actual;
  for (const Json& combination : Combine(table.at("axes"))) {
    Json record = table.at("fixed");
    record.update(combination);
    actual += "=== " + combination.dump() + '\n';
    const auto read = Read(record, GetParam());
    if (const auto* const why = std::get_if<std::string>(&read)) {
      actual += "refused: " + *why + '\n';
      continue;
    }
    const auto& choices = std::get<batch::BuilderRecord>(read);
    ASSERT_EQ(batch::FaultOf(choices), u"") << record;
    const String text = TextOf(choices);
    CheckCode(text, record.dump());
    actual += vb::ToUtf8(vb::Replace(text, vb::CrLf, u"\n"));
  }
  fs::create_directories(Actual);
  std::ofstream(Actual / (GetParam() + ".golden"), std::ios::binary) << actual;
  const fs::path golden = Folder / (GetParam() + ".golden");
  ASSERT_TRUE(fs::exists(golden)) << "run tools/renew-goldens.sh and read the difference";
  EXPECT_TRUE(files::ReadFile(golden) == actual)
      << "compare with " << (Actual / (GetParam() + ".golden")).string();
}

std::vector<std::string> Tables() {
  std::vector<std::string> names;
  for (const auto& file : fs::directory_iterator(Folder)) {
    if (file.path().extension() == ".json") names.push_back(file.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Tables, BuilderGoldens, testing::ValuesIn(Tables()),
                         [](const auto& table) {
                           std::string name = table.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(CodeReader, FindsWhatIsWrong) {
  const auto faults = [](StringView code) { return test::FaultsOfCode(code).size(); };
  EXPECT_EQ(faults(u"Sub A()\r\n  x = 1\r\nEnd Sub\r\n"), 1U) << "not declared";
  EXPECT_EQ(faults(u"Sub A()\r\n  Dim x As Long\r\n  x = 1\r\nEnd Sub\r\n"), 0U);
  EXPECT_EQ(faults(u"Property Get A() As Long\r\nEnd Property\r\n"
                   u"Property Let A(ByVal x As String)\r\nEnd Property\r\n"),
            1U)
      << "types that differ";
  EXPECT_EQ(faults(u"' " + vb::Repeat(1022, u'x')), 1U) << "a line too long";
  String continued = u"Sub A(";
  for (int count = 0; count < 25; ++count) continued += u" _\r\n";
  EXPECT_EQ(faults(continued + u")\r\nEnd Sub"), 1U) << "continued too often";
}

}  // namespace
}  // namespace tessel::builders
