#include "hosts/drive/RunDifferences.h"

namespace tessel::drive {
namespace {

Json ItemJson(const review::ReviewItem& item) {
  Json json{{"project", vb::ToUtf8(item.Project)},
            {"component", nullptr},
            {"line", nullptr},
            {"cause", item.Cause}};
  if (item.Component) json["component"] = vb::ToUtf8(item.ComponentName);
  if (item.Line > 0) json["line"] = item.Line;
  return json;
}

Json ListOf(const std::vector<review::ReviewItem>& items) {
  Json list = Json::array();
  for (const review::ReviewItem& item : items) list.push_back(ItemJson(item));
  return list;
}

}  // namespace

void CarryReviewed(Session& session, const forms::Surface& form,
                   std::optional<review::RunKind> kind, const std::function<void()>& action) {
  if (!kind) {
    action();
    return;
  }
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(session.Environment().VBE());
  const review::RunReview review(*kind, *vbe);
  action();
  if (!form.Visible()) session.Channel().AddToReply({{"differences", ListOf(review.Items())}});
}

}  // namespace tessel::drive
