#include "hosts/drive/ChannelDesktop.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "forms/Controls.h"
#include "forms/User.h"
#include "hosts/drive/Fields.h"
#include "vb/Failure.h"

namespace tessel::drive {
namespace {

using platform::MessageAnswer;

struct NamedAnswer {
  std::string_view Name;
  MessageAnswer Answer;
};
constexpr NamedAnswer Ok{"OK", MessageAnswer::OK}, Cancel{"Cancel", MessageAnswer::Cancel},
    Abort{"Abort", MessageAnswer::Abort}, Retry{"Retry", MessageAnswer::Retry},
    Ignore{"Ignore", MessageAnswer::Ignore}, Yes{"Yes", MessageAnswer::Yes},
    No{"No", MessageAnswer::No};

/// The buttons of a box by its style; the last is what closing the box means.
std::vector<NamedAnswer> ButtonsOf(int style) {
  switch (style & 7) {
    case platform::OKCancel:
      return {Ok, Cancel};
    case platform::AbortRetryIgnore:
      return {Abort, Retry, Ignore};
    case platform::YesNoCancel:
      return {Yes, No, Cancel};
    case platform::YesNo:
      return {Yes, No};
    case platform::RetryCancel:
      return {Retry, Cancel};
    default:
      return {Ok};
  }
}

/// The first control, as the form is read, that takes the focus; null for none.
forms::Control* FirstToFocus(const forms::Layout& node) {
  forms::Control* const content = node.Content;
  if (content != nullptr && !content->Visible()) return nullptr;
  if (content != nullptr && content->Enabled() && content->TakesFocus()) return content;
  const auto* const tabs = node.Type == forms::Layout::Kind::Tabs
                               ? dynamic_cast<const forms::TabControl*>(content)
                               : nullptr;
  for (std::size_t at = 0; at < node.Children.size(); ++at) {
    if (tabs != nullptr && static_cast<int>(at) != tabs->CurrTab()) continue;
    if (forms::Control* const first = FirstToFocus(node.Children[at])) return first;
  }
  return nullptr;
}

/// The answer of a box that is closed without one.
MessageAnswer AnswerOfClosing(int style) {
  const auto buttons = ButtonsOf(style);
  return (style & 7) == platform::AbortRetryIgnore ? MessageAnswer::Abort : buttons.back().Answer;
}

Json FontJson(const forms::Font& font) {
  return {{"name", Utf8(font.Name)},     {"size", font.Size},
          {"bold", font.Bold},           {"italic", font.Italic},
          {"charset", font.Charset},     {"strikethrough", font.Strikethrough},
          {"underline", font.Underline}, {"weight", font.Weight}};
}

/// Items as the user sees them; hidden ones aren't there.
Json MenuJson(const forms::MenuItem& menu) {
  Json items = Json::array();
  for (const forms::MenuItem* item : menu.Items()) {
    if (!item->Visible()) continue;
    items.push_back({{"item", Utf8(item->Name())},
                     {"caption", Utf8(item->Caption())},
                     {"enabled", item->Enabled()},
                     {"checked", item->Checked()},
                     {"items", MenuJson(*item)}});
  }
  return items;
}

/// Nobody opens a submenu here: each is made ready with the menu.
void OpenSubmenus(const forms::MenuItem& menu) {
  for (forms::MenuItem* item : menu.Items()) {
    if (item->Items().empty()) continue;
    item->RaiseClick();
    OpenSubmenus(*item);
  }
}

/// How each thing that waits is told.
struct Describe {
  Json operator()(const std::shared_ptr<forms::Form>& form) const {
    return {{"form", Utf8(form->Name())},
            {"caption", Utf8(form->Caption())},
            {"modal", form->IsModal()}};
  }
  Json operator()(const MessageBox* box) const {
    Json buttons = Json::array();
    for (const auto& button : ButtonsOf(box->Style)) buttons.push_back(button.Name);
    return {{"message",
             {{"text", Utf8(box->Text)},
              {"title", Utf8(box->Title)},
              {"style", box->Style},
              {"buttons", buttons}}}};
  }
  Json operator()(const struct InputBox* box) const {
    return {
        {"input",
         {{"prompt", Utf8(box->Prompt)}, {"title", Utf8(box->Title)}, {"text", Utf8(box->Text)}}}};
  }
  Json operator()(const FileBox* box) const {
    return {{"file-dialog",
             {{"kind", box->Request.Save ? "save" : "open"},
              {"filter", Utf8(box->Request.Filter)},
              {"title", Utf8(box->Request.Title)}}}};
  }
  Json operator()(const FontBox* box) const { return {{"font-dialog", FontJson(*box->Font)}}; }
  Json operator()(const MenuBox* box) const { return {{"menu", MenuJson(*box->Menu)}}; }
};

bool IsCancelled(const Json& request) {
  return request.contains("button") && TextField(request, "button") == u"Cancel";
}

/// Takes an answer from a request, for each kind of box.
struct TakeAnswer {
  const Json& Request;

  void operator()(const std::shared_ptr<forms::Form>&) const {
    Refuse("no box waits for an answer");
  }
  void operator()(const MenuBox*) const { Refuse("a menu is open: choose an item or close it"); }
  void operator()(MessageBox* box) const {
    const std::string wanted = Utf8(TextField(Request, "button"));
    for (const auto& button : ButtonsOf(box->Style)) {
      if (button.Name == wanted) box->Answer = button.Answer;
    }
    if (!box->Answer) Refuse("the box has no button \"" + wanted + "\"");
  }
  void operator()(struct InputBox* box) const {
    if (!IsCancelled(Request)) {
      box->Answer = Request.contains("text") ? TextField(Request, "text") : box->Text;
    }
    box->Done = true;
  }
  void operator()(FileBox* box) const {
    if (Request.contains("files")) {
      box->Answer = TextListField(Request, "files");
    } else if (!IsCancelled(Request)) {
      box->Answer = {TextField(Request, "file")};
    }
    box->Done = true;
  }
  void operator()(FontBox* box) const {
    if (!IsCancelled(Request)) {
      const Json& wanted = ObjectField(Request, "font");
      forms::Font font = *box->Font;
      if (wanted.contains("name")) font.Name = TextField(wanted, "name");
      if (wanted.contains("size")) font.Size = NumberField(wanted, "size");
      if (wanted.contains("bold")) font.Bold = BoolField(wanted, "bold");
      if (wanted.contains("italic")) font.Italic = BoolField(wanted, "italic");
      if (wanted.contains("charset")) font.Charset = IntField(wanted, "charset");
      if (wanted.contains("underline")) font.Underline = BoolField(wanted, "underline");
      if (wanted.contains("strikethrough")) font.Strikethrough = BoolField(wanted, "strikethrough");
      if (wanted.contains("weight")) font.Weight = IntField(wanted, "weight");
      *box->Font = font;
      box->Accepted = true;
    }
    box->Done = true;
  }
};

const std::shared_ptr<forms::Form>* FormOf(const Waiting& waiting) {
  return std::get_if<std::shared_ptr<forms::Form>>(&waiting);
}

}  // namespace

Json ChannelDesktop::Front() const {
  return waiting_.empty() ? Json(nullptr) : std::visit(Describe{}, waiting_.back());
}

void ChannelDesktop::RefuseBehindBox() const {
  if (OpenMenu() != nullptr) Refuse("a menu is open: choose an item or close it");
  if (!waiting_.empty() && FormOf(waiting_.back()) == nullptr) {
    Refuse("a box waits for its answer first");
  }
}

std::shared_ptr<forms::Form> ChannelDesktop::OpenForm(StringView name) const {
  if (waiting_.empty()) Refuse("no form is open");
  RefuseBehindBox();
  if (name.empty()) return *FormOf(waiting_.back());
  for (auto one = waiting_.rbegin(); one != waiting_.rend(); ++one) {
    const auto* form = FormOf(*one);
    if (form != nullptr && vb::SameText((*form)->Name(), name)) return *form;
  }
  Refuse("no form \"" + Utf8(name) + "\" is open");
}

void ChannelDesktop::AnswerBox(const Json& request) {
  if (waiting_.empty()) Refuse("no box waits for an answer");
  std::visit(TakeAnswer{request}, waiting_.back());
}

MenuBox* ChannelDesktop::OpenMenu() const {
  MenuBox* const* const box = waiting_.empty() ? nullptr : std::get_if<MenuBox*>(&waiting_.back());
  return box == nullptr ? nullptr : *box;
}

void ChannelDesktop::ChooseItem(StringView item) {
  if (MenuBox* const box = OpenMenu()) {
    box->Chosen = &forms::user::ItemOf(*box->Menu, item);
    box->Done = true;
  } else {
    forms::user::ChooseFromBar(*OpenForm({}), item);
  }
}

bool ChannelDesktop::CloseMenu() {
  MenuBox* const box = OpenMenu();
  if (box != nullptr) box->Done = true;
  return box != nullptr;
}

Json ChannelDesktop::TakeJournal() { return std::exchange(journal_, Json::array()); }

template <class Box>
void ChannelDesktop::Wait(Box& box, const std::function<bool()>& done) {
  waiting_.emplace_back(&box);
  channel_->WaitUntil(done);
  waiting_.pop_back();
}

MessageAnswer ChannelDesktop::ShowMessage(StringView text, StringView title, int style) {
  MessageBox box{String(text), String(title), style, std::nullopt};
  Wait(box, [&] { return box.Answer.has_value(); });
  return box.Answer.value_or(AnswerOfClosing(style));
}

std::optional<String> ChannelDesktop::InputBox(StringView prompt, StringView title,
                                               StringView text) {
  struct InputBox box {
    String(prompt), String(title), String(text), false, std::nullopt
  };
  Wait(box, [&] { return box.Done; });
  return box.Answer;
}

std::vector<String> ChannelDesktop::FileDialog(const platform::FileDialogRequest& request) {
  FileBox box{request, false, {}};
  Wait(box, [&] { return box.Done; });
  return box.Answer;
}

bool ChannelDesktop::FontDialog(forms::Font& font, StringView title) {
  FontBox box{&font, String(title), false, false};
  Wait(box, [&] { return box.Done; });
  return box.Accepted;
}

forms::MenuItem* ChannelDesktop::PopUp(forms::Surface&, forms::MenuItem& menu,
                                       std::optional<platform::SurfacePoint>) {
  OpenSubmenus(menu);
  MenuBox box{&menu};
  Wait(box, [&] { return box.Done; });
  return box.Chosen;
}

void ChannelDesktop::Show(forms::Form& form, platform::ShowStyle style) {
  waiting_.emplace_back(form.shared_from_this());
  if (form.ActiveControl() == nullptr) {
    if (forms::Control* const first = FirstToFocus(form.Arrangement())) first->SetFocus();
  }
  if (style == platform::ShowStyle::Modeless) return;
  channel_->WaitUntil([&] { return !form.Visible(); });
  if (form.Visible()) form.CloseByFrame();
  if (form.Visible()) form.Hide();
}

void ChannelDesktop::Hidden(forms::Form& form) {
  std::erase_if(waiting_, [&](const Waiting& one) {
    const auto* shown = FormOf(one);
    return shown != nullptr && shown->get() == &form;
  });
}

void ChannelDesktop::Gone(forms::Form& form) {
  Hidden(form);
  PlainScreen::Gone(form);
}

void ChannelDesktop::SetForeground(forms::Form& form) {
  const auto found = std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& one) {
    const auto* shown = FormOf(one);
    return shown != nullptr && shown->get() == &form;
  });
  if (found != waiting_.end()) std::rotate(found, found + 1, waiting_.end());
}

void ChannelDesktop::SetText(StringView text) {
  MemoryClipboard::SetText(text);
  Note({{"kind", "clipboard"}, {"text", Utf8(text)}});
}

void ChannelDesktop::SendKeys(StringView keys) {
  Note({{"kind", "keys"}, {"keys", Utf8(keys)}});
  if (waiting_.empty() && OnKeys) OnKeys(keys);
}

void ChannelDesktop::Beep() { Note({{"kind", "beep"}}); }

int ChannelDesktop::OpenDocument(StringView target, StringView verb, StringView parameters) {
  Note({{"kind", "open"},
        {"target", Utf8(target)},
        {"verb", Utf8(verb)},
        {"parameters", Utf8(parameters)}});
  return platform::ShellSuccess;
}

void ChannelDesktop::ShowHelp(StringView helpFile, StringView topic) {
  Note({{"kind", "help"}, {"file", Utf8(helpFile)}, {"topic", Utf8(topic)}});
}

}  // namespace tessel::drive
