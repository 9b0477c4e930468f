// The loop that reads requests and sends replies, one JSON object a line each.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace tessel::drive {

using Json = nlohmann::ordered_json;

/// Reads requests while the add-in waits for its user. A request whose handling makes the add-in
/// wait again (a modal dialog, a box) is answered at that moment, and the requests that follow are
/// read by the wait itself; the request that ends the wait is answered when the add-in waits next.
class Channel {
 public:
  /// Carries out one request; what it throws becomes an "ok": false reply.
  using Handler = std::function<Json(const Json& request)>;
  /// What waits for the user now.
  using Front = std::function<Json()>;

  Channel(std::istream& in, std::ostream& out, Handler handler, Front front);

  /// Serves requests until the end of the input or `Close`.
  void Run();
  /// Serves requests until `done`, the end of the input, or an unwinding; none during an
  /// unwinding. Called from inside a handler.
  void WaitUntil(const std::function<bool()>& done);

  /// Gives the next reply, whichever request it answers, further fields.
  void AddToReply(const Json& fields) { further_.update(fields); }

  /// Ends all waits; `last` is carried out when the outermost loop is reached, before the reply to
  /// the request in hand.
  void Unwind(std::function<void()> last);
  /// Like Unwind, and no further request is read.
  void Close(std::function<void()> last);
  [[nodiscard]] bool IsUnwinding() const { return unwinding_; }

 private:
  struct Flight {
    bool Answered = false;
  };
  void Serve(const std::function<bool()>& done);
  void Handle(const std::string& line);
  void Send(Json reply);
  void SendPending();
  void FinishUnwinding();

  std::istream& in_;
  std::ostream& out_;
  Handler handler_;
  Front front_;
  Flight* flight_ = nullptr;       // the request whose handler runs, innermost
  std::optional<Json> pending_;    // the reply to a request whose handler has come back
  Json further_ = Json::object();  // fields of the next reply
  std::function<void()> last_;
  bool unwinding_ = false, closed_ = false;
};

}  // namespace tessel::drive
