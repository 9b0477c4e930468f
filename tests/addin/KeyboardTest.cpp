// Every dialog by keyboard alone: the order of the fields, the keys of the buttons, the letters.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "addin/frmAbout.h"
#include "builders/frmArgumentBuilder.h"
#include "builders/frmClassBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmParameterEnum.h"
#include "builders/frmProcedureBuilder.h"
#include "builders/frmPropertyBuilder.h"
#include "controlnaming/frmAddControl.h"
#include "controlnaming/frmControlName.h"
#include "controlnaming/frmUpdateControlName.h"
#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/frmRemoveErrorHandlerCode.h"
#include "formatter/frmFormatText.h"
#include "foundation/frmErrorMessage.h"
#include "settingsdialog/frmSettings.h"
#include "snippets/frmFragmentBuilder.h"
#include "snippets/frmGetFromVbCode.h"
#include "snippets/frmStoreToVbCode.h"

namespace tessel {
namespace {

using forms::Layout;

std::vector<std::shared_ptr<forms::Form>> Dialogs() {
  return {std::make_shared<frmAbout>(),
          std::make_shared<frmErrorMessage>(),
          std::make_shared<frmProcedureBuilder>(),
          std::make_shared<frmArgumentBuilder>(),
          std::make_shared<frmPropertyBuilder>(),
          std::make_shared<frmClassBuilder>(),
          std::make_shared<frmEnumBuilder>(),
          std::make_shared<frmParameterEnum>(),
          std::make_shared<frmFormatText>(),
          std::make_shared<frmErrorHandlerScheme>(),
          std::make_shared<frmInsertErrorHandlerCode>(),
          std::make_shared<frmRemoveErrorHandlerCode>(),
          std::make_shared<frmAddControl>(),
          std::make_shared<frmControlName>(),
          std::make_shared<frmUpdateControlName>(),
          std::make_shared<frmFragmentBuilder>(),
          std::make_shared<frmGetFromVbCode>(),
          std::make_shared<frmStoreToVbCode>(),
          std::make_shared<frmSettings>()};
}

using Controls = std::vector<forms::Control*>;

/// Appends what a layout holds, in the order of reading; of tabs only the page of that index (all
/// for -1).
void Read(const Layout& layout, int page, Controls& controls) {
  if (layout.Content != nullptr) controls.push_back(layout.Content);
  for (std::size_t at = 0; at < layout.Children.size(); ++at) {
    if (layout.Type == Layout::Kind::Tabs && page >= 0 && static_cast<int>(at) != page) continue;
    Read(layout.Children[at], page, controls);
  }
}
Controls ControlsOf(const forms::Form& form, int page = -1) {
  Controls controls;
  Read(form.Arrangement(), page, controls);
  return controls;
}

/// Pages that are shown one at a time; one for a form without tabs.
int PagesOf(const forms::Form& form) {
  for (forms::Control* control : form.Controls()) {
    if (const auto* tabs = dynamic_cast<forms::TabControl*>(control)) {
      return static_cast<int>(tabs->Pages().size());
    }
  }
  return 1;
}

std::string NameOf(const forms::Form& form) { return vb::ToUtf8(form.Name()); }

TEST(Keyboard, TheTabOrderIsTheOrderOfReading) {
  for (const auto& form : Dialogs()) {
    Controls read = ControlsOf(*form), made = form->Controls();
    const auto skipped = [](const forms::Control* control) { return !control->TakesFocus(); };
    std::erase_if(read, skipped);
    std::erase_if(made, skipped);
    ASSERT_EQ(read.size(), made.size()) << NameOf(*form);
    for (std::size_t at = 0; at < read.size(); ++at) {
      EXPECT_EQ(vb::ToUtf8(read[at]->Name()), vb::ToUtf8(made[at]->Name())) << NameOf(*form);
    }
  }
}

bool IsButton(const forms::Control* control) {
  return dynamic_cast<const forms::Button*>(control) != nullptr;
}

TEST(Keyboard, TheFirstStopIsAFieldAndNoButton) {
  for (const auto& form : Dialogs()) {
    const Controls read = ControlsOf(*form);
    const auto first = std::find_if(read.begin(), read.end(), [](const forms::Control* control) {
      return control->TakesFocus();
    });
    ASSERT_NE(first, read.end()) << NameOf(*form);
    const bool buttonsAlone = std::all_of(read.begin(), read.end(), [&](const auto* control) {
      return !control->TakesFocus() || IsButton(control);
    });
    EXPECT_TRUE(buttonsAlone || !IsButton(*first)) << NameOf(*form);
  }
}

TEST(Keyboard, ReturnRunsAndEscapeLeaves) {
  for (const auto& form : Dialogs()) {
    // It has nothing to run: an edit counts as soon as its field is left.
    if (form->Name() == u"frmErrorHandlerScheme") continue;
    // Its commands are those of a row, none of which Return could mean.
    const bool runs = form->Name() != u"frmFragmentBuilder";
    int standard = 0, cancel = 0;
    for (const forms::Control* control : form->Controls()) {
      const auto* const button = dynamic_cast<const forms::Button*>(control);
      if (button == nullptr) continue;
      if (button->Default) ++standard;
      if (button->Cancel) ++cancel;
    }
    EXPECT_EQ(standard, runs ? 1 : 0) << NameOf(*form);
    EXPECT_EQ(cancel, 1) << NameOf(*form);
  }
}

/// The letter behind "&", 0 without one.
char16_t LetterOf(const forms::Control& control) {
  const auto* const captioned = dynamic_cast<const forms::CaptionedControl*>(&control);
  if (captioned == nullptr) return 0;
  const String caption = vb::Replace(captioned->Caption(), u"&&", u"");
  const std::size_t at = caption.find(u'&');
  return at != String::npos && at + 1 < caption.size()
             ? vb::UCase(caption.substr(at + 1, 1)).front()
             : char16_t{0};
}

TEST(Keyboard, NoLetterIsGivenTwiceOnAPage) {
  for (const auto& form : Dialogs()) {
    for (int page = 0; page < PagesOf(*form); ++page) {
      std::map<char16_t, String> taken;
      for (const forms::Control* control : ControlsOf(*form, page)) {
        const char16_t letter = LetterOf(*control);
        if (letter == 0) continue;
        const auto [other, isNew] = taken.emplace(letter, control->Name());
        EXPECT_TRUE(isNew) << NameOf(*form) << ", page " << page << ": "
                           << vb::ToUtf8(control->Name()) << " and " << vb::ToUtf8(other->second);
      }
    }
  }
}

TEST(Keyboard, ALabelsLetterLeadsToTheFieldBehindIt) {
  for (const auto& form : Dialogs()) {
    const Controls& made = form->Controls();
    for (std::size_t at = 0; at < made.size(); ++at) {
      if (dynamic_cast<forms::Label*>(made[at]) == nullptr || LetterOf(*made[at]) == 0) continue;
      ASSERT_LT(at + 1, made.size()) << NameOf(*form);
      EXPECT_TRUE(made[at + 1]->TakesFocus() && !IsButton(made[at + 1]))
          << NameOf(*form) << ": " << vb::ToUtf8(made[at]->Name());
    }
  }
}

}  // namespace
}  // namespace tessel
