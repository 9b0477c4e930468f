// The builders in an environment that has no project.

#include "support/DialogChannel.h"

namespace tessel {
namespace {

struct BuilderCase {
  const char *Caption, *Form, *List;
};

class WithoutProject : public test::DialogChannel,
                       public testing::WithParamInterface<BuilderCase> {};

INSTANTIATE_TEST_SUITE_P(
    Builders, WithoutProject,
    testing::Values(BuilderCase{"Procedure Builder", "frmProcedureBuilder", "ComModule"},
                    BuilderCase{"Property Builder", "frmPropertyBuilder", "ComModule"},
                    BuilderCase{"Collection Builder", "frmClassBuilder", "ComBaseClass"},
                    BuilderCase{"Enum Builder", "frmEnumBuilder", "ComModule"}),
    [](const auto& one) { return std::string(one.param.Form); });

TEST_P(WithoutProject, TheListIsEmptyAndOkDoesNothing) {
  Connect();
  Open(GetParam().Caption);
  if (std::string(GetParam().Form) == "frmEnumBuilder") {
    Press("btmAdd");
    Press("btmOK");
  }
  Press("btmOK");
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), GetParam().Form) << "it stays, and nothing was asked";
  EXPECT_EQ(Control(form, GetParam().List).at("list"), Json::array());
  EXPECT_EQ(Messages(), std::vector<std::string>());
}

}  // namespace
}  // namespace tessel
