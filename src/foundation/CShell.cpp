#include "foundation/CShell.h"

#include <array>
#include <filesystem>
#include <optional>

#include "foundation/ServiceClass.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

constexpr std::uint32_t FileNotFound = 0x80044679, NoAssociation = 0x80044683,
                        CannotShowProperties = 0x80044686, ComponentFailure = 0x80044687;
constexpr ServiceClass Service{u"CShell", FileNotFound, ComponentFailure,
                               u"CShell component failure"};

struct ShellFailure {
  int Answer;
  std::uint32_t Number;
  StringView Text;
};
/// The shell's answers, and the failures that they become.
constexpr std::array ShellFailures{
    ShellFailure{0, 0x8004467C, u"Out of memory"},
    ShellFailure{2, FileNotFound, u"File not found"},
    ShellFailure{3, 0x8004467A, u"Path not found"},
    ShellFailure{8, 0x8004467C, u"Out of memory"},
    ShellFailure{11, 0x80044684, u"Invalid EXE file or error in EXE image"},
    ShellFailure{26, 0x8004467E, u"A sharing violation occurred"},
    ShellFailure{27, 0x8004467F, u"Incomplete or invalid file association"},
    ShellFailure{28, 0x80044680, u"DDE timeout"},
    ShellFailure{29, 0x80044681, u"DDE transaction failed"},
    ShellFailure{30, 0x80044682, u"DDE busy"},
    ShellFailure{31, NoAssociation, u"No association for file extension"},
    ShellFailure{32, 0x8004467D, u"DLL not found"},
};

constexpr int LastFailure = 32;

void Check(int answer) {
  if (answer > LastFailure) return;
  for (const ShellFailure& failure : ShellFailures) {
    if (failure.Answer == answer) throw Service.Own(failure.Number, failure.Text);
  }
  throw Service.Own(0x80044685, u"Cannot create process");
}

void Open(StringView target, StringView verb, StringView parameters = {}) {
  Service.Guard([&] { Check(platform::Current().Shell().OpenDocument(target, verb, parameters)); });
}

/// The text that stands for a key, empty when there is none.
String ClassText(StringView key) {
  const auto stored = platform::Current().Registry().GetValue(
      platform::RootKey::LocalMachine, u"SOFTWARE\\Classes\\" + String(key), u"");
  const auto* text = stored ? std::get_if<String>(&*stored) : nullptr;
  return text == nullptr ? String() : *text;
}

/// The program that a command line begins with.
String ProgramOf(StringView command) {
  if (!command.empty() && command.front() == u'"') {
    return String(command.substr(1, command.find(u'"', 1) - 1));
  }
  return String(command.substr(0, command.find(u' ')));
}

}  // namespace

void CShell::CreateNewMailMessage(StringView to, StringView subject, StringView cc,
                                  StringView body) const {
  String address = u"mailto:" + String(to);
  // The first part opens the list of parts whether it is filled or not.
  address += u"?subject=" + String(subject);
  if (!cc.empty()) address += u"&cc=" + String(cc);
  if (!body.empty()) address += u"&body=" + String(body);
  Open(address, u"open");
}

void CShell::ExploreFolder(StringView folder) const { Open(folder, u"explore"); }

void CShell::LaunchProgram(StringView document, StringView parameters) const {
  Service.Guard([&] {
    const std::u16string extension = std::filesystem::path(document).extension().u16string();
    const String type = ClassText(extension);
    const String program = ProgramOf(ClassText(type + u"\\Shell\\open\\command"));
    if (program.empty()) {
      throw Service.Own(NoAssociation, u"No association for file extension");
    }
    String arguments = u"\"" + String(document) + u"\"";
    if (!parameters.empty()) arguments += u" " + String(parameters);
    Check(platform::Current().Shell().OpenDocument(program, u"open", arguments));
  });
}

void CShell::OpenDocument(StringView document) const { Open(document, u"open"); }

void CShell::OpenFolder(StringView folder) const { Open(folder, u"open"); }

void CShell::OpenUrl(StringView address) const { Open(address, u"open"); }

void CShell::ShowProperties(StringView file) const {
  Service.Guard([&] {
    if (platform::Current().Shell().OpenDocument(file, u"properties", {}) <= LastFailure) {
      throw Service.Own(CannotShowProperties, u"Cannot show properties");
    }
  });
}

}  // namespace tessel
