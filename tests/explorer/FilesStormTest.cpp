// Thousands of actions over several projects in files, close behind one another: behind the timers
// the Explorer's rows are the truth.

#include <cstdlib>
#include <iostream>

#include "explorer/ConnectedExplorer.h"
#include "forms/User.h"
#include "support/GeneratedMembers.h"

namespace tessel {
namespace {

using namespace test;

class FilesStorm : public ConnectedExplorer {
 protected:
  static constexpr unsigned MostProjects = 4, MostComponents = 6;

  FilesStorm() {
    services_.DesktopService.OnModal = [](forms::Form& form) {
      const bool added = form.Name() == u"frmAddControl";
      forms::user::Press(*form.Find(added ? u"btmCansel" : u"btmYes"));
    };
    AddProject(u"P0");
    Show();
  }
  /// Another storm for each value of $TESSEL_STORM.
  static unsigned Seed() {
    const char* const chosen = std::getenv("TESSEL_STORM");
    return chosen == nullptr ? 12U : static_cast<unsigned>(std::stoul(chosen));
  }
  template <class Item>
  Item AnyOf(const std::vector<Item>& all) {
    return all.empty() ? Item() : all[random_.Draw(static_cast<unsigned>(all.size()))];
  }
  std::shared_ptr<model::VBComponent> AnyComponent() {
    const auto project = AnyOf(Root()->Projects().All());
    return project ? AnyOf(project->Components().All()) : nullptr;
  }
  /// Few, so that projects have some in common.
  String AName() { return u"N" + vb::Str(static_cast<int>(random_.Draw(8))); }
  String Fresh(StringView prefix) { return String(prefix) + vb::Str(++number_); }

  void Edit(model::VBComponent& component) {
    Root()->BringToFront(component.Module()->OwnPane());
    environment_.SetCaret(component.PlainName(), {1, 1, 1, 1});
    String text = environment_.Text(component.PlainName());
    text = random_.Draw(2) == 0 ? u"Sub " + Fresh(u"T") + u"()\r\nEnd Sub\r\n" + text
                                : random_.Module(static_cast<int>(random_.Draw(4)));
    environment_.SetText(component.PlainName(), text);
  }
  void OfProjects(unsigned what) {
    const auto project = AnyOf(Root()->Projects().All());
    const auto count = Root()->Projects().All().size();
    if (what == 0 && count < MostProjects) return AddProject(Fresh(u"P"));
    if (what == 1 && count < MostProjects) {
      const std::string name = vb::ToUtf8(Fresh(u"Q"));
      folder_.Write(name + ".bas", "Attribute VB_Name = \"N1\"\r\nSub A()\r\nEnd Sub\r\n");
      environment_.Open(folder_.Write(
          name + ".vbp", "Type=Exe\r\nModule=N1; " + name + ".bas\r\nName=\"" + name + "\"\r\n"));
    } else if (!project) {
      return;
    } else if (what == 2 && count > 1) {
      environment_.Close(project);
    } else if (what == 3) {
      environment_.ActivateProject(project->PlainName());
    } else if (what == 4 && environment_.IsUnnamed(*project)) {
      const auto folder = folder_.Path() / vb::ToUtf8(Fresh(u"S"));
      std::filesystem::create_directories(folder);
      environment_.SaveProjectAs(project, folder / "Kept.vbp");
    } else if (what == 5) {
      // A new component of a name that was taken before finds the file of that one.
      ResumeNext([&] { environment_.Save(); });
    } else if (project->Components().All().size() < MostComponents) {
      constexpr host::vbext_ComponentType Types[] = {
          host::vbext_ct_StdModule, host::vbext_ct_ClassModule, host::vbext_ct_VBForm};
      const String name = AName();
      if (project->Components().Find(name)) return;
      environment_.AddComponent(project, Types[random_.Draw(3)], name,
                                random_.Module(static_cast<int>(random_.Draw(4))));
    }
  }
  void OfAComponent(unsigned what, const std::shared_ptr<model::VBComponent>& component) {
    const String name = component->PlainName();
    if (what == 0) {
      environment_.RemoveComponent(component);
    } else if (what == 1) {
      const String other = AName();
      if (!component->Project()->Components().Find(other)) component->SetName(other);
    } else if (what == 2) {
      environment_.SelectComponent(name);
    } else if (what == 3) {
      environment_.ClosePane(name);
    } else if (what == 4 && component->Storage() && !component->FileName().empty()) {
      if (!environment_.StoredBytes(*component).empty()) environment_.Reload(*component);
    } else if (what == 5 && component->OwnDesigner()) {
      OfAControl(*component);
    } else {
      Edit(*component);
    }
  }
  void OfAControl(model::VBComponent& form) {
    const auto controls = form.OwnDesigner()->Tree().Controls();
    // Named by component, the first of that name in the active project would be meant.
    Root()->Select(form.shared_from_this());
    const String own = controls.empty() ? String() : controls.front()->Name;
    if (own.empty()) {
      environment_.AddControl(form.PlainName(), u"CommandButton", Fresh(u"Command"), {});
    } else if (random_.Draw(2) == 0) {
      environment_.RenameControl(form.PlainName(), own, Fresh(u"cmd"));
    } else {
      environment_.RemoveControl(form.PlainName(), own);
    }
  }
  void Act() {
    const auto component = AnyComponent();
    if (!component || random_.Draw(3) == 0) return OfProjects(random_.Draw(9));
    OfAComponent(random_.Draw(12), component);
  }

  MemberGenerator random_{Seed()};
  int number_ = 0;
};

TEST_F(FilesStorm, BehindTheTimersTheRowsAreTheTruth) {
  constexpr int Rounds = 400, PauseMs = 1000;
  int changes = 0;
  for (int round = 0; round < Rounds; ++round) {
    for (unsigned actions = 1 + random_.Draw(4); actions > 0; --actions) {
      Act();
      Wait(10 + static_cast<int>(random_.Draw(140)));
    }
    static_cast<void>(tree_->fgTree.TakeChanges());
    Wait(PauseMs);
    changes += tree_->fgTree.TakeChanges().Shape ? 1 : 0;
    ASSERT_EQ(RowsIn(tree_->fgTree), Expected()) << "round " << round;
  }
  EXPECT_GT(changes, Rounds / 20);
}

}  // namespace
}  // namespace tessel
