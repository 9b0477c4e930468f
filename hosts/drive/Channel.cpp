#include "hosts/drive/Channel.h"

#include <istream>
#include <ostream>
#include <utility>

#include "vb/Failure.h"

namespace tessel::drive {
namespace {

Json Refusal(const std::string& why) { return {{"ok", false}, {"error", why}}; }

/// The message of a parse error without the library's own prefix.
std::string ParseMessage(const nlohmann::json::exception& error) {
  const std::string text = error.what();
  const std::size_t behind = text.find("] ");
  return "malformed request: " + (behind == std::string::npos ? text : text.substr(behind + 2));
}

}  // namespace

Channel::Channel(std::istream& in, std::ostream& out, Handler handler, Front front)
    : in_(in), out_(out), handler_(std::move(handler)), front_(std::move(front)) {}

void Channel::Run() {
  while (!closed_) {
    Serve([] { return false; });
    FinishUnwinding();
  }
}

void Channel::WaitUntil(const std::function<bool()>& done) {
  if (unwinding_) return;  // what would wait answers itself, and no reply tells of it
  if (pending_) {
    SendPending();
  } else if (flight_ != nullptr && !flight_->Answered) {
    flight_->Answered = true;
    Send({{"ok", true}});
  }
  Flight* const outer = std::exchange(flight_, nullptr);
  Serve(done);
  flight_ = outer;
}

void Channel::Serve(const std::function<bool()>& done) {
  std::string line;
  while (!unwinding_ && !done()) {
    SendPending();
    if (!std::getline(in_, line)) {
      Close({});
      return;
    }
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    Handle(line);
  }
}

void Channel::Handle(const std::string& line) {
  Flight flight;
  Flight* const outer = std::exchange(flight_, &flight);
  Json reply;
  try {
    reply = handler_(Json::parse(line));
    reply["ok"] = true;
  } catch (const nlohmann::json::exception& error) {
    reply = Refusal(ParseMessage(error));
  } catch (...) {
    reply = Refusal(vb::CurrentFailure().what());
  }
  flight_ = outer;
  if (!flight.Answered) pending_ = std::move(reply);
}

void Channel::Unwind(std::function<void()> last) {
  unwinding_ = true;
  last_ = std::move(last);
}

void Channel::Close(std::function<void()> last) {
  closed_ = true;
  Unwind(std::move(last));
}

void Channel::FinishUnwinding() {
  // The flag stays up while the last action runs, so that a box that it shows answers itself.
  try {
    if (auto last = std::exchange(last_, nullptr)) last();
  } catch (...) {
    if (pending_) pending_ = Refusal(vb::CurrentFailure().what());
  }
  unwinding_ = false;
  SendPending();
}

void Channel::SendPending() {
  if (pending_) Send(*std::exchange(pending_, std::nullopt));
}

void Channel::Send(Json reply) {
  Json ordered{{"ok", reply["ok"]}};
  ordered.update(reply);
  ordered.update(std::exchange(further_, Json::object()));
  ordered["front"] = front_();
  out_ << ordered.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

}  // namespace tessel::drive
