// The code page of one project's files.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/model/Project.h"

namespace tessel::workspace {

/// The code page that a project's files without a byte order mark are read and written in. One that
/// somebody chose stays. Any other gives way to a page in which everything that the project holds
/// is the same bytes: so a project of ASCII texts takes the page of the first text that needs one.
class ProjectPage {
 public:
  ProjectPage(int codePage, bool isChosen) : codePage_(codePage), isChosen_(isChosen) {}

  [[nodiscard]] int Current() const { return codePage_; }
  /// What stands in the project's own file, which reads in this page as well.
  std::function<std::string()> OwnBytes = [] { return std::string(); };

  /// The text of a file on its way out of the project, or into a library: one with a byte order
  /// mark is UTF-8, and where the project holds nothing beyond ASCII the bytes tell their page.
  [[nodiscard]] String TextOf(std::string_view bytes, model::VBProject& project);
  /// The bytes of a text on its way into the project, in another page from now on when the present
  /// one lacks a character and the project may change. Nothing when no page has all of them; `at`
  /// is the first that the present one lacks then. A text that begins with a byte order mark is
  /// written in UTF-8.
  [[nodiscard]] std::optional<std::string> BytesOf(StringView text, std::size_t& at,
                                                   model::VBProject& project);
  /// A file from elsewhere is about to come in: a project that holds nothing beyond ASCII takes the
  /// page that its bytes tell.
  void Welcome(std::string_view bytes, model::VBProject& project);
  /// Takes a page that holds all texts of the project as they are now, if there is one.
  void Fit(model::VBProject& project);

 private:
  [[nodiscard]] bool MayBe(int codePage, model::VBProject& project) const;
  /// Whether it may be that page, and would be read in it again with `more` among its files. Pages
  /// of one byte are the user's own, which reading can't always tell from each other.
  [[nodiscard]] bool MayBecome(int codePage, model::VBProject& project,
                               std::string_view more) const;
  [[nodiscard]] bool IsPlain(model::VBProject& project);
  void Change(int codePage, model::VBProject& project);

  int codePage_;
  bool isChosen_;
  bool isPlain_ = true;  // as far as is known
};

}  // namespace tessel::workspace
