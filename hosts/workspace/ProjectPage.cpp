#include "hosts/workspace/ProjectPage.h"

#include <algorithm>

#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/LoadedProject.h"
#include "vb/CodePages.h"

namespace tessel::workspace {
namespace {

/// In the order in which they are tried. The pages of two bytes hold Greek and Cyrillic letters as
/// well, so one of them is taken only when the files will be read in it again; the one that holds
/// everything comes last.
constexpr int Pages[] = {1252, 1250, 1251, 1253, 1254, 1255, 1256,        1257,
                         1258, 874,  932,  936,  949,  950,  Utf8CodePage};

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr char16_t ByteOrderMark = 0xFEFF;

/// A component that has no place on the disk yet is written as a new one.
ComponentFile FileFor(const model::VBComponent& component, int codePage) {
  if (const auto file = FileOf(component)) return *file;
  return {{}, component, codePage};
}

bool Suits(const model::VBComponent& component, int codePage) {
  return !component.Module() || FileFor(component, codePage).Suits(component, codePage);
}

/// The bytes of a component in a page that suits it; none for one whose file says its page itself.
std::string BytesIn(const model::VBComponent& component, int codePage) {
  if (!component.Module()) return {};
  ComponentFile file = FileFor(component, codePage);
  if (file.HasByteOrderMark()) return {};
  file.SetCodePage(codePage);
  return file.Compose(component);
}

}  // namespace

bool ProjectPage::MayBe(int codePage, model::VBProject& project) const {
  std::size_t at = 0;
  const std::string own = OwnBytes();
  if (!IsAscii(own) && Decode(own, codePage) != Decode(own, codePage_)) return false;
  if (!Encode(project.PlainName(), codePage, at)) return false;
  const auto& all = project.Components().All();
  return std::all_of(all.begin(), all.end(),
                     [&](const auto& component) { return Suits(*component, codePage); });
}

bool ProjectPage::MayBecome(int codePage, model::VBProject& project, std::string_view more) const {
  if (!MayBe(codePage, project)) return false;
  if (vb::IsSingleByteCodePage(codePage)) return true;
  std::size_t at = 0;
  std::vector<std::string> all{std::string(more), OwnBytes(),
                               Encode(project.PlainName(), codePage, at).value_or(std::string())};
  for (const auto& component : project.Components().All()) {
    all.push_back(BytesIn(*component, codePage));
  }
  return GuessCodePage({all.begin(), all.end()}) == codePage;
}

/// Once something isn't, it is no longer looked for.
bool ProjectPage::IsPlain(model::VBProject& project) {
  const auto& all = project.Components().All();
  isPlain_ = isPlain_ && IsAscii(OwnBytes()) &&
             std::all_of(all.begin(), all.end(), [&](const auto& component) {
               return !component->Module() || FileFor(*component, codePage_).IsPlain(*component);
             });
  return isPlain_;
}

void ProjectPage::Change(int codePage, model::VBProject& project) {
  codePage_ = codePage;
  for (const auto& component : project.Components().All()) {
    if (const auto file = FileOf(*component)) file->SetCodePage(codePage);
  }
}

String ProjectPage::TextOf(std::string_view bytes, model::VBProject& project) {
  if (bytes.starts_with(Utf8Mark)) return Decode(bytes, Utf8CodePage);
  const bool tells = !isChosen_ && !IsAscii(bytes) && IsPlain(project);
  return Decode(bytes, tells ? GuessCodePage({bytes}) : codePage_);
}

std::optional<std::string> ProjectPage::BytesOf(StringView text, std::size_t& at,
                                                model::VBProject& project) {
  if (text.starts_with(ByteOrderMark)) return Encode(text, Utf8CodePage, at);
  auto bytes = Encode(text, codePage_, at);
  if (bytes || isChosen_) return bytes;
  for (const int page : Pages) {
    std::size_t missing = 0;
    bytes = Encode(text, page, missing);
    if (!bytes || !MayBecome(page, project, *bytes)) continue;
    Change(page, project);
    return bytes;
  }
  return std::nullopt;
}

void ProjectPage::Welcome(std::string_view bytes, model::VBProject& project) {
  if (isChosen_ || bytes.starts_with(Utf8Mark) || IsAscii(bytes) || !IsPlain(project)) return;
  Change(GuessCodePage({bytes}), project);
}

void ProjectPage::Fit(model::VBProject& project) {
  if (isChosen_ || MayBe(codePage_, project)) return;
  const auto* const page = std::find_if(std::begin(Pages), std::end(Pages),
                                        [&](int one) { return MayBecome(one, project, {}); });
  if (page != std::end(Pages)) Change(*page, project);
}

}  // namespace tessel::workspace
