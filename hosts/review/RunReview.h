// What a tool's run over modules did beyond what it is for, as a list with places to jump to.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/model/Vbe.h"

namespace tessel::review {

/// The runs that are reviewed.
enum class RunKind { Format, InsertHandlers, RemoveHandlers };

/// The run that a button of a dialog starts; nothing for every other button.
[[nodiscard]] std::optional<RunKind> RunOfButton(StringView form, StringView button);
/// The run of a dialog, which its default button starts; nothing for a dialog without one.
[[nodiscard]] std::optional<RunKind> RunOfForm(StringView form);

/// One line of the list.
struct ReviewItem {
  /// Null for a line about a project as a whole. It may have left its project by now.
  std::shared_ptr<model::VBComponent> Component;
  String Project, ComponentName;
  /// Place in the component's code module, from 1; 0 where the line is about the whole of it.
  int Line = 0;
  int LineBefore = 0;  ///< the same ahead of the run
  std::string Cause;   ///< UTF-8
  /// The code says what it said, but the run did not do what it is for.
  bool IsWarning = false;
};

/// Takes note of every module's text when it is made, ahead of a run, and compares when the run is
/// over. Reads the model itself, so that no failure meant for a tool strikes it.
class RunReview {
 public:
  RunReview(RunKind kind, model::Vbe& environment);
  /// Takes note of nothing yet: `Add` tells of each module ahead of the run's first edit of it.
  explicit RunReview(RunKind kind) : kind_(kind) {}
  /// No effect for a component that is known already.
  void Add(const std::shared_ptr<model::VBComponent>& component);

  /// What the run did, lines about whole projects and components at the head, then in the order of
  /// projects, components and lines. Empty when nothing needs to be looked at.
  [[nodiscard]] std::vector<ReviewItem> Items() const;
  /// The modules whose text the run changed.
  [[nodiscard]] std::vector<std::shared_ptr<model::VBComponent>> Changed() const;
  /// The text of a known component ahead of the run.
  [[nodiscard]] String Before(const model::VBComponent& component) const;

 private:
  struct Snapshot {
    std::shared_ptr<model::VBComponent> Component;
    std::shared_ptr<model::VBProject> Project;
    model::LineBuffer Before;
    [[nodiscard]] String After() const;
    [[nodiscard]] bool IsChanged() const;
  };
  void Compare(const Snapshot& one, std::vector<ReviewItem>& items) const;
  void TellUndressed(std::vector<ReviewItem>& items) const;

  RunKind kind_;
  std::vector<Snapshot> snapshots_;
};

}  // namespace tessel::review
