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

Json TextOrNull(const String& text) { return text.empty() ? Json() : Json(vb::ToUtf8(text)); }

/// From the model itself: asking as the add-in does would meet a failure that is meant for a tool.
Json NameOf(const TouchedCode& code) {
  const auto module = std::dynamic_pointer_cast<model::CodeModule>(code.Module);
  const auto component = module ? module->Component() : nullptr;
  return component ? Json(vb::ToUtf8(component->PlainName())) : Json();
}

}  // namespace

void TellRun(Session& session, const RunResult& run) {
  Json touched = Json::array(), failures = Json::array();
  for (const TouchedCode& one : run.Touched) {
    touched.push_back({{"component", NameOf(one)}, {"member", TextOrNull(one.Member)}});
  }
  for (const RunFailure& one : run.Failures) {
    failures.push_back({{"component", TextOrNull(one.Component)},
                        {"member", TextOrNull(one.Member)},
                        {"number", one.Number},
                        {"description", vb::ToUtf8(one.Description)},
                        {"routine", vb::ToUtf8(one.Routine)}});
  }
  session.Channel().AddToReply({{"run",
                                 {{"title", vb::ToUtf8(run.Title)},
                                  {"components", run.Components},
                                  {"touched", touched},
                                  {"failures", failures},
                                  {"cancelled", run.Cancelled},
                                  {"aborted", run.Aborted}}}});
}

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
