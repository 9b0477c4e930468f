// Dialogs as a script sees them: requests go in, replies come out.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "hosts/drive/Session.h"
#include "support/ChannelErrors.h"
#include "support/TemporaryFolder.h"

namespace tessel::test {

class DialogChannel : public testing::Test {
 protected:
  using Json = drive::Json;

  /// Adds a request; "verb" and then its fields.
  void Ask(Json request) { requests_.push_back(std::move(request)); }
  void Connect() { Ask({{"do", "connect"}}); }
  void Project() { Ask({{"do", "new-project"}, {"name", "Project1"}}); }
  void Component(int type, const std::string& name, const std::string& text) {
    Ask({{"do", "add-component"}, {"type", type}, {"name", name}, {"text", text}});
  }
  void Select(const std::string& name) { Ask({{"do", "select-component"}, {"component", name}}); }
  void Open(const std::string& caption) {
    Ask({{"do", "click"}, {"path", {"Tessel", "Tessel", caption}}});
  }
  void Press(const std::string& control) { Ask({{"do", "press"}, {"control", control}}); }
  void Type(const std::string& control, const std::string& text) {
    Ask({{"do", "type"}, {"control", control}, {"text", text}});
  }
  void Pick(const std::string& control, const std::string& text) {
    Ask({{"do", "pick"}, {"control", control}, {"text", text}});
  }
  void Check(const std::string& control, int value) {
    Ask({{"do", "check"}, {"control", control}, {"value", value}});
  }
  void Answer(const std::string& button) { Ask({{"do", "answer"}, {"button", button}}); }
  void Setting(const std::string& key, const std::string& value) {
    Ask({{"do", "setting"},
         {"section", "Settings\\VBCode\\frmSettings"},
         {"key", key},
         {"value", value}});
  }
  void Fail(const std::string& operation) {
    Ask({{"do", "fail-next"}, {"operation", operation}, {"number", 7}, {"description", "no room"}});
  }
  void Form() { Ask({{"do", "form"}}); }
  void Text(const std::string& component) { Ask({{"do", "text"}, {"component", component}}); }

  /// Plays all requests so far; the last reply. Every one must be granted, and just as many error
  /// dialogs come up as the test asks for.
  Json Play(std::size_t errors = 0) {
    std::string script;
    for (const Json& request : requests_) script += request.dump() + "\n";
    std::istringstream in(script);
    std::ostringstream out;
    {
      const TemporaryFolder folder;
      drive::Session session({folder.Path() / "program", folder.Path() / "settings.sqlite", false},
                             in, out);
      session.Run();
    }
    Replies = RepliesOf(out.str());
    EXPECT_GE(Replies.size(), requests_.size());
    if (Replies.size() < requests_.size()) return nullptr;
    for (std::size_t at = 0; at < requests_.size(); ++at) {
      EXPECT_EQ(Replies[at].at("ok"), true) << requests_[at] << '\n' << Replies[at];
    }
    ChannelErrors shown;
    shown.Note(Replies);
    EXPECT_EQ(shown.Take(), errors) << "error dialogs";
    return Replies[requests_.size() - 1];
  }

  /// Name of the form in front, empty for none.
  static std::string FormOf(const Json& reply) {
    const Json& front = reply.at("front");
    return front.is_object() && front.contains("form") ? front.at("form").get<std::string>() : "";
  }
  static std::string MessageOf(const Json& reply) {
    const Json& front = reply.at("front");
    return front.is_object() && front.contains("message")
               ? front.at("message").at("text").get<std::string>()
               : "";
  }
  /// The replies to `form`, in order.
  [[nodiscard]] std::vector<Json> Forms() const {
    std::vector<Json> forms;
    for (const Json& reply : Replies) {
      if (reply.contains("controls")) forms.push_back(reply);
    }
    return forms;
  }
  /// The replies to `text`, in order.
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const Json& reply : Replies) {
      if (reply.contains("text")) texts.push_back(reply.at("text"));
    }
    return texts;
  }
  /// Texts of the message boxes in the order in which they came up.
  [[nodiscard]] std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const Json& reply : Replies) {
      if (!MessageOf(reply).empty()) messages.push_back(MessageOf(reply));
    }
    return messages;
  }
  /// A control in the reply to `form`.
  static Json Control(const Json& reply, const std::string& name) {
    for (const Json& control : reply.at("controls")) {
      if (control.at("name") == name) return control;
    }
    ADD_FAILURE() << "no control " << name;
    return Json::object();
  }

  std::vector<Json> Replies;

 private:
  std::vector<Json> requests_;
};

}  // namespace tessel::test
