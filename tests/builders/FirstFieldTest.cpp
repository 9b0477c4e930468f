#include "support/DialogChannel.h"

namespace tessel {
namespace {

class FirstField : public test::DialogChannel {
 protected:
  static std::vector<std::string> Focused(const Json& form) {
    std::vector<std::string> names;
    for (const Json& control : form.at("controls")) {
      if (control.at("focus") == true) names.push_back(control.at("name"));
    }
    return names;
  }
};

TEST_F(FirstField, HasTheFocusWhenADialogOpens) {
  Connect();
  Project();
  Component(1, "Module1", "Option Explicit");
  for (const char* const builder :
       {"Procedure Builder", "Property Builder", "Collection Builder", "Enum Builder"}) {
    Open(builder);
    Form();
    Press("btmCancel");
  }
  Open("Enum Builder");
  Press("btmAdd");
  Form();
  Play();
  std::vector<std::vector<std::string>> focused;
  for (const Json& form : Forms()) focused.push_back(Focused(form));
  EXPECT_EQ(focused, (std::vector<std::vector<std::string>>{
                         {"txtName"}, {"txtName"}, {"ComBaseClass"}, {"txtName"}, {"txtPrefix"}}));
}

}  // namespace
}  // namespace tessel
