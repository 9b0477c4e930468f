#include "hosts/batch/OpenInput.h"

#include <algorithm>

#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<model::Vbe> RootOf(const workspace::Workspace& environment) {
  return std::dynamic_pointer_cast<model::Vbe>(environment.VBE());
}

/// The extension that a text's first words ask for; empty for plain code, which any may hold.
const char* ExtensionFor(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  if (text.starts_with("VERSION 1.0 CLASS")) return ".cls";
  if (!text.starts_with("VERSION 5.00")) return "";
  const std::string_view head = text.substr(0, 4096);
  const auto begins = [&](const char* block) { return head.find(block) != std::string_view::npos; };
  if (begins("Begin VB.UserControl")) return ".ctl";
  if (begins("Begin VB.PropertyPage")) return ".pag";
  if (begins("Begin VB.UserDocument")) return ".dob";
  return ".frm";
}

/// The path of a text: its name, with the extension that the text asks for where it has none.
fs::path PathOf(const std::string& name, const std::string& text) {
  fs::path path = fs::absolute(name).lexically_normal();
  if (!path.has_extension()) path += ExtensionFor(text);
  return path;
}

/// Takes the names that an input has off a list.
void EraseNames(std::vector<std::string>& names, const OpenInput& input) {
  for (const ComponentRef& one : input.Components()) {
    std::erase_if(
        names, [&](const std::string& name) { return vb::SameText(vb::FromUtf8(name), one.Name); });
  }
}

[[noreturn]] void FailMissing(const std::string& where, const std::string& name) {
  throw vb::Failure(vb::InvalidCall,
                    vb::FromBytes(where + ": there is no component \"" + name + '"'), u"Tessel");
}

}  // namespace

Purpose PurposeOf(const Delivery& delivery) {
  return delivery.Writes() ? Purpose::Write : Purpose::Read;
}

OpenInput::OpenInput(platform::Platform& services, const std::string& file,
                     const Selection& selection, Purpose purpose)
    : file_(file),
      selection_(selection),
      exclusion_(selection.Excludes),
      paths_(file),
      environment_(services, {selection.CodePage, purpose == Purpose::Read}),
      root_(RootOf(environment_)) {
  Load([&] { environment_.Open(file); });
}

OpenInput::OpenInput(platform::Platform& services, const std::string& name, const std::string& text,
                     const Selection& selection)
    : file_(name),
      selection_(selection),
      exclusion_({}),
      paths_(name),
      environment_(services, {selection.CodePage}),
      root_(RootOf(environment_)) {
  Load([&] { environment_.OpenText(PathOf(name, text), text); });
}

void OpenInput::Load(const std::function<void()>& open) {
  try {
    open();
  } catch (const vb::Failure& failure) {
    throw vb::Failure(failure.Number(), vb::FromBytes(Typed(failure.what())), failure.Source());
  }
}

std::vector<std::string> OpenInput::Problems() const {
  std::vector<std::string> problems;
  for (const vb::Failure& problem : environment_.Problems()) {
    problems.push_back(Typed(problem.what()));
  }
  return problems;
}

std::vector<std::string> OpenInput::TakeNotices() {
  std::vector<std::string> notices;
  for (const String& notice : environment_.TakeNotices()) {
    notices.push_back(Typed(vb::ToBytes(notice)));
  }
  return notices;
}

std::vector<ComponentRef> OpenInput::Components() const {
  std::vector<ComponentRef> all;
  for (const auto& project : root_->Projects().All()) {
    for (const auto& component : project->Components().All()) {
      if (!component->Module()) continue;
      const std::string full = vb::ToBytes(component->FileName());
      all.push_back({project->PlainName(), component->PlainName(), paths_.Of(full), full, component,
                     component->Module()});
    }
  }
  return all;
}

bool OpenInput::IsChosen(const ComponentRef& component) const {
  return selection_.IsChosen(vb::ToUtf8(component.Name)) && !exclusion_.Holds(component.File);
}

std::vector<ComponentRef> OpenInput::Chosen() const {
  std::vector<ComponentRef> all = Components();
  std::erase_if(all, [&](const ComponentRef& one) { return !IsChosen(one); });
  return all;
}

std::string OpenInput::StoredBytes(const ComponentRef& component) const {
  return environment_.StoredBytes(*component.Component);
}

std::string OpenInput::Bytes(const ComponentRef& component) const {
  return environment_.Bytes(*component.Component);
}

int OpenInput::FileLine(const ComponentRef& component, int codeLine) const {
  return environment_.FileLine(*component.Component, codeLine);
}

void OpenInput::Save(const ComponentRef& component) {
  environment_.SaveComponent(*component.Component);
}

void OpenInput::Reload(const ComponentRef& component) { environment_.Reload(*component.Component); }

void OpenInput::SaveAll() { environment_.Save(); }

void RequireComponents(platform::Platform& services, const std::string& argument,
                       const std::vector<std::string>& inputs, const Selection& selection) {
  std::vector<std::string> wanted = selection.Components;
  for (const std::string& file : inputs) {
    if (wanted.empty()) return;
    try {
      EraseNames(wanted, OpenInput(services, file, selection, Purpose::Read));
    } catch (const vb::Failure&) {  // told when the command itself opens it
    }
  }
  if (!wanted.empty()) FailMissing(argument, wanted.front());
}

void RequireNames(const OpenInput& input, const Selection& selection) {
  std::vector<std::string> wanted = selection.Components;
  EraseNames(wanted, input);
  if (!wanted.empty()) FailMissing(input.File(), wanted.front());
}

bool SeenFiles::Add(const ComponentRef& component) {
  return component.FullFile.empty() || seen_.insert(component.FullFile).second;
}

}  // namespace tessel::batch
