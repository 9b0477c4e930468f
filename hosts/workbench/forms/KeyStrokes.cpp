#include "hosts/workbench/forms/KeyStrokes.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <optional>

#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::workbench {
namespace {

struct NamedKey {
  StringView Name;
  int Key;
};
constexpr NamedKey NamedKeys[] = {{u"BACKSPACE", Qt::Key_Backspace},
                                  {u"BS", Qt::Key_Backspace},
                                  {u"BKSP", Qt::Key_Backspace},
                                  {u"BREAK", Qt::Key_Pause},
                                  {u"CAPSLOCK", Qt::Key_CapsLock},
                                  {u"DELETE", Qt::Key_Delete},
                                  {u"DEL", Qt::Key_Delete},
                                  {u"DOWN", Qt::Key_Down},
                                  {u"END", Qt::Key_End},
                                  {u"ENTER", Qt::Key_Return},
                                  {u"ESC", Qt::Key_Escape},
                                  {u"HELP", Qt::Key_Help},
                                  {u"HOME", Qt::Key_Home},
                                  {u"INSERT", Qt::Key_Insert},
                                  {u"INS", Qt::Key_Insert},
                                  {u"LEFT", Qt::Key_Left},
                                  {u"NUMLOCK", Qt::Key_NumLock},
                                  {u"PGDN", Qt::Key_PageDown},
                                  {u"PGUP", Qt::Key_PageUp},
                                  {u"PRTSC", Qt::Key_Print},
                                  {u"RIGHT", Qt::Key_Right},
                                  {u"SCROLLLOCK", Qt::Key_ScrollLock},
                                  {u"TAB", Qt::Key_Tab},
                                  {u"UP", Qt::Key_Up}};

constexpr int FunctionKeys = 16;

[[noreturn]] void BadKeys() { throw vb::RuntimeFailure(vb::InvalidCall); }

std::optional<int> FindKey(StringView name) {
  for (const NamedKey& one : NamedKeys) {
    if (vb::SameText(one.Name, name)) return one.Key;
  }
  for (int number = 1; number <= FunctionKeys; ++number) {
    if (vb::SameText(u"F" + vb::Str(number), name)) return Qt::Key_F1 + number - 1;
  }
  return std::nullopt;
}

Qt::KeyboardModifier ModifierOf(char16_t unit) {
  switch (unit) {
    case u'+':
      return Qt::ShiftModifier;
    case u'^':
      return Qt::ControlModifier;
    case u'%':
      return Qt::AltModifier;
    default:
      return Qt::NoModifier;
  }
}

/// Reads the notation from left to right.
class Reader {
 public:
  explicit Reader(StringView keys) : keys_(keys) {}

  std::vector<KeyStroke> Read() {
    while (at_ < keys_.size()) ReadOne(Qt::NoModifier);
    return std::move(strokes_);
  }

 private:
  char16_t Next() {
    if (at_ >= keys_.size()) BadKeys();
    return keys_[at_++];
  }

  void ReadOne(Qt::KeyboardModifiers held) {
    const char16_t unit = Next();
    if (const auto modifier = ModifierOf(unit); modifier != Qt::NoModifier) {
      ReadOne(held | modifier);
    } else if (unit == u'(') {
      ReadGroup(held);
    } else if (unit == u'{') {
      ReadNamed(held);
    } else if (unit == u'~') {
      strokes_.push_back({Qt::Key_Return, held, QStringLiteral("\r")});
    } else {
      AddCharacter(unit, held);
    }
  }

  void ReadGroup(Qt::KeyboardModifiers held) {
    while (at_ >= keys_.size() || keys_[at_] != u')') ReadOne(held);
    ++at_;
  }

  void ReadNamed(Qt::KeyboardModifiers held) {
    // The first unit belongs to the name even when it is a bracket.
    const std::size_t end = keys_.find(u'}', at_ + 1);
    if (end == StringView::npos) BadKeys();
    const StringView inside = keys_.substr(at_, end - at_);
    at_ = end + 1;
    const std::size_t blank = inside.rfind(u' ');
    const bool counted = blank != StringView::npos && blank > 0;
    const int count = counted ? vb::CLng(inside.substr(blank + 1)) : 1;
    const StringView name = counted ? inside.substr(0, blank) : inside;
    for (int each = 0; each < count; ++each) AddNamed(name, held);
  }

  void AddNamed(StringView name, Qt::KeyboardModifiers held) {
    if (name.size() == 1) {
      AddCharacter(name.front(), held);
    } else if (const auto key = FindKey(name)) {
      const bool enter = *key == Qt::Key_Return;
      strokes_.push_back({*key, held, enter ? QStringLiteral("\r") : QString()});
    } else {
      BadKeys();
    }
  }

  void AddCharacter(char16_t unit, Qt::KeyboardModifiers held) {
    const bool types = !(held & (Qt::ControlModifier | Qt::AltModifier));
    const QChar letter = held & Qt::ShiftModifier ? QChar(unit).toUpper() : QChar(unit);
    strokes_.push_back(
        {QChar(unit).toUpper().unicode(), held, types ? QString(letter) : QString()});
  }

  StringView keys_;
  std::size_t at_ = 0;
  std::vector<KeyStroke> strokes_;
};

QKeySequence SequenceOf(const KeyStroke& stroke) {
  return QKeySequence(QKeyCombination(stroke.Modifiers, static_cast<Qt::Key>(stroke.Key)));
}

/// Keys that come from a program don't pass the shortcuts, so these are looked up here.
bool TriggerShortcut(QWidget& window, const KeyStroke& stroke) {
  const QKeySequence keys = SequenceOf(stroke);
  for (QAction* const action : window.findChildren<QAction*>()) {
    if (action->isEnabled() && action->shortcuts().contains(keys)) {
      action->trigger();
      return true;
    }
  }
  for (QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
    if (button->isEnabled() && button->isVisible() && button->shortcut() == keys) {
      button->click();
      return true;
    }
  }
  return false;
}

void Press(QWidget* focus, const KeyStroke& stroke) {
  if (focus == nullptr || TriggerShortcut(*focus->window(), stroke)) return;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, stroke.Key, stroke.Modifiers, stroke.Text);
    QApplication::sendEvent(focus, &event);
  }
}

QWidget* FocusOfFront() {
  if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* const focus = QApplication::focusWidget()) return focus;
  return QApplication::activeWindow();
}

}  // namespace

std::vector<KeyStroke> ReadKeys(StringView keys) { return Reader(keys).Read(); }

void SendStrokes(const std::vector<KeyStroke>& strokes) {
  for (const KeyStroke& stroke : strokes) Press(FocusOfFront(), stroke);
}

}  // namespace tessel::workbench
