#include <sstream>

#include "fuzz/FuzzDriver.h"
#include "hosts/drive/Session.h"
#include "support/TemporaryFolder.h"

using namespace tessel;

namespace {

std::string Play(const test::TemporaryFolder& folder, const std::string& requests) {
  std::istringstream in(requests);
  std::ostringstream out;
  drive::Session session({folder.Path() / "program", folder.Path() / "settings", false}, in, out);
  session.Run();
  return out.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const test::TemporaryFolder folder;
  const std::string requests(data, data + size);
  // Requests that name files could reach beyond the test.
  if (requests.find("file") != std::string::npos || requests.find("save") != std::string::npos) {
    return 0;
  }
  std::istringstream replies(Play(folder, requests));
  for (std::string line; std::getline(replies, line);) {
    if (!drive::Json::parse(line).contains("ok")) std::abort();
  }
  return 0;
}

std::vector<std::string> FuzzSeeds() {
  return {
      "{\"do\":\"new-project\",\"name\":\"P\"}\n{\"do\":\"add-component\",\"type\":1,\"name\":"
      "\"M\",\"text\":\"Sub "
      "A()\\r\\nEnd "
      "Sub\"}\n{\"do\":\"members\",\"component\":\"M\"}\n{\"do\":\"caret\",\"component\":\"M\","
      "\"line\":2}\n",
      "{\"do\":\"form\"}\n{\"do\":\"answer\",\"button\":\"OK\"}\n{\"do\":\"advance\",\"ms\":5}\n{"
      "\"do\":\"bars\"}\n"};
}
