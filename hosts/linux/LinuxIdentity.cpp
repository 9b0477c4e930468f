#include "hosts/linux/LinuxIdentity.h"

#include <pwd.h>
#include <sys/random.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "vb/Failure.h"

namespace tessel::linux_host {

String LinuxIdentity::ComputerName() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return vb::FromUtf8(name.data());
}

String LinuxIdentity::UserName() {
  std::array<char, 4096> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr) {
    return vb::FromUtf8(found->pw_name);
  }
  const char* const user = std::getenv("USER");
  return user == nullptr ? String() : vb::FromUtf8(user);
}

String LinuxIdentity::NewGuid() {
  std::array<unsigned char, 16> bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw vb::RuntimeFailure(vb::InternalError);
  }
  bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);
  bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);
  constexpr StringView Digits = u"0123456789ABCDEF";
  String text = u"{";
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (at == 4 || at == 6 || at == 8 || at == 10) text += u'-';
    text += Digits[bytes[at] >> 4];
    text += Digits[bytes[at] & 0x0F];
  }
  return text + u"}";
}

}  // namespace tessel::linux_host
