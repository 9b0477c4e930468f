// A desktop whose user speaks through the channel.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "forms/Form.h"
#include "hosts/drive/Channel.h"
#include "hosts/memory/MemoryClipboard.h"
#include "hosts/memory/PlainScreen.h"
#include "platform/Boxes.h"
#include "platform/Shell.h"

namespace tessel::drive {

/// A message box that waits.
struct MessageBox {
  String Text, Title;
  int Style = 0;
  std::optional<platform::MessageAnswer> Answer;
};

struct InputBox {
  String Prompt, Title, Text;
  bool Done = false;
  std::optional<String> Answer;
};

struct FileBox {
  platform::FileDialogRequest Request;
  bool Done = false;
  std::vector<String> Answer;
};

struct FontBox {
  forms::Font* Font = nullptr;
  String Title;
  bool Done = false, Accepted = false;
};

/// A pop-up menu that is open.
struct MenuBox {
  forms::MenuItem* Menu = nullptr;
  bool Done = false;
  forms::MenuItem* Chosen = nullptr;
};

/// What can wait for the user; forms are held as long as they show.
using Waiting = std::variant<std::shared_ptr<forms::Form>, MessageBox*, InputBox*, FileBox*,
                             FontBox*, MenuBox*>;

/// Shows forms and boxes by waiting on the channel, and notes what leaves the program.
class ChannelDesktop : public platform::Boxes,
                       public memory::PlainScreen,
                       public memory::MemoryClipboard,
                       public platform::Shell {
 public:
  /// Set before anything is shown; not owned.
  void Attach(Channel* channel) { channel_ = channel; }

  /// Gets the keys that are sent while no dialog and no box waits in front.
  std::function<void(StringView keys)> OnKeys;
  /// The front as replies tell it; null when nothing waits.
  [[nodiscard]] Json Front() const;
  /// The topmost of what waits, null for none.
  [[nodiscard]] const Waiting* Top() const { return waiting_.empty() ? nullptr : &waiting_.back(); }
  /// The open form of that name (regardless of case), or the front one for an empty name. Fails
  /// when there is none, or when a box stands in front of it.
  [[nodiscard]] std::shared_ptr<forms::Form> OpenForm(StringView name) const;
  /// Answers the box in front from a request's "button", "text", "file", "files" or "font". Fails
  /// when no box waits or it has no such answer.
  void AnswerBox(const Json& request);
  /// Fails when a box or a menu waits for its answer first.
  void RefuseBehindBox() const;
  /// Chooses an item of the menu in front, or of the menu bar of the form in front. Fails when
  /// there is no such item to choose.
  void ChooseItem(StringView item);
  /// Closes the menu in front without a choice; whether one was open.
  bool CloseMenu();
  /// What left the program since the last call.
  [[nodiscard]] Json TakeJournal();

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override;
  [[nodiscard]] std::optional<String> InputBox(StringView prompt, StringView title,
                                               StringView text) override;
  [[nodiscard]] std::vector<String> FileDialog(const platform::FileDialogRequest& request) override;
  [[nodiscard]] bool FontDialog(forms::Font& font, StringView title) override;
  void Show(forms::Form& form, platform::ShowStyle style) override;
  void Hidden(forms::Form& form) override;
  void Gone(forms::Form& form) override;
  void SetForeground(forms::Form& form) override;
  [[nodiscard]] forms::MenuItem* PopUp(forms::Surface& surface, forms::MenuItem& menu,
                                       std::optional<platform::SurfacePoint> place) override;
  void SetText(StringView text) override;
  void SendKeys(StringView keys) override;
  void Beep() override;
  int OpenDocument(StringView target, StringView verb, StringView parameters) override;
  void ShowHelp(StringView helpFile, StringView topic) override;

 private:
  template <class Box>
  void Wait(Box& box, const std::function<bool()>& done);
  [[nodiscard]] MenuBox* OpenMenu() const;
  void Note(Json entry) { journal_.push_back(std::move(entry)); }

  Channel* channel_ = nullptr;
  std::vector<Waiting> waiting_;
  Json journal_ = Json::array();
};

/// Text as JSON has it.
[[nodiscard]] inline std::string Utf8(StringView text) { return vb::ToUtf8(text); }

}  // namespace tessel::drive
