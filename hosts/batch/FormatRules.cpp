#include "hosts/batch/FormatRules.h"

#include "hosts/batch/PersonalDatabase.h"
#include "vb/Failure.h"

namespace tessel::batch {

std::vector<FormatRule> LoadRules(const std::filesystem::path& data) {
  const SharedDatabase shared(OpenPersonal(data));
  auto rules = CSQLFormating().GetTable();
  if (!rules) {
    throw vb::Failure(vb::InvalidCall, data.u16string() + u": the table FormatText holds no rules",
                      u"Tessel");
  }
  return *std::move(rules);
}

}  // namespace tessel::batch
