#include "hosts/workbench/forms/StandardBoxes.h"

#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

#include "forms/Control.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

using platform::MessageAnswer;

struct ButtonOf {
  QMessageBox::StandardButton Button;
  MessageAnswer Answer;
};
constexpr ButtonOf Ok{QMessageBox::Ok, MessageAnswer::OK},
    Cancel{QMessageBox::Cancel, MessageAnswer::Cancel},
    Abort{QMessageBox::Abort, MessageAnswer::Abort},
    Retry{QMessageBox::Retry, MessageAnswer::Retry},
    Ignore{QMessageBox::Ignore, MessageAnswer::Ignore}, Yes{QMessageBox::Yes, MessageAnswer::Yes},
    No{QMessageBox::No, MessageAnswer::No};

/// The buttons of a style in their order, and the one that closing the box stands for.
struct ButtonSet {
  std::vector<ButtonOf> Buttons;
  ButtonOf Closing;
};

ButtonSet ButtonsOf(int style) {
  constexpr int ButtonMask = 0xF;
  switch (style & ButtonMask) {
    case platform::OKCancel:
      return {{Ok, Cancel}, Cancel};
    case platform::AbortRetryIgnore:
      return {{Abort, Retry, Ignore}, Abort};
    case platform::YesNoCancel:
      return {{Yes, No, Cancel}, Cancel};
    case platform::YesNo:
      return {{Yes, No}, No};
    case platform::RetryCancel:
      return {{Retry, Cancel}, Cancel};
    default:
      return {{Ok}, Ok};
  }
}

QMessageBox::Icon IconOf(int style) {
  constexpr int IconMask = 0xF0;
  switch (style & IconMask) {
    case platform::Critical:
      return QMessageBox::Critical;
    case platform::Question:
      return QMessageBox::Question;
    case platform::Exclamation:
      return QMessageBox::Warning;
    case platform::Information:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

/// Place of the default button, from 0.
std::size_t DefaultOf(int style) {
  constexpr int DefaultMask = 0x300;
  return static_cast<std::size_t>((style & DefaultMask) / platform::DefaultButton2);
}

QString FilterText(const QString& caption, QString pattern) {
  // Many captions repeat their pattern, which the dialog adds by itself.
  const auto bracket = caption.indexOf(u'(');
  const QString name = bracket > 0 ? caption.left(bracket).trimmed() : caption;
  return QStringLiteral("%1 (%2)").arg(name, pattern.replace(u';', u' '));
}

QString SuffixOf(StringView extension) {
  QString suffix = ToQt(extension);
  while (suffix.startsWith(u'.') || suffix.startsWith(u'*')) suffix.remove(0, 1);
  return suffix;
}

void SetUp(QFileDialog& dialog, const platform::FileDialogRequest& request) {
  dialog.setAcceptMode(request.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.Save          ? QFileDialog::AnyFile
                     : request.MultiSelect ? QFileDialog::ExistingFiles
                                           : QFileDialog::ExistingFile);
  if (!request.Title.empty()) dialog.setWindowTitle(ToQt(request.Title));
  if (!request.InitialDir.empty()) dialog.setDirectory(ToQt(request.InitialDir));
  if (!request.FileName.empty()) dialog.selectFile(ToQt(request.FileName));
  if (!request.DefaultExt.empty()) dialog.setDefaultSuffix(SuffixOf(request.DefaultExt));
  QStringList filters;
  for (const String& filter : FileFilters(request.Filter)) filters.append(ToQt(filter));
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
}

QFont ToQtFont(const forms::Font& font) {
  QFont result(ToQt(font.Name));
  result.setPointSizeF(font.Size);
  result.setWeight(static_cast<QFont::Weight>(font.Weight));
  if (font.Bold) result.setBold(true);
  result.setItalic(font.Italic);
  result.setStrikeOut(font.Strikethrough);
  result.setUnderline(font.Underline);
  return result;
}

void TakeFont(forms::Font& font, const QFont& chosen) {
  font.Name = FromQt(chosen.family());
  font.Size = chosen.pointSizeF();
  font.Weight = chosen.weight();
  font.Bold = chosen.bold();
  font.Italic = chosen.italic();
  font.Strikethrough = chosen.strikeOut();
  font.Underline = chosen.underline();
}

/// A dialog that lives no longer than the call. What stands below it, its parent, may go while it
/// is open and takes it along.
template <class Dialog>
class Held {
 public:
  explicit Held(Dialog* dialog) : dialog_(dialog) {}
  ~Held() { delete dialog_.data(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  Dialog* operator->() const { return dialog_; }
  Dialog& operator*() const { return *dialog_; }
  /// The dialog's result, 0 when it was taken along.
  int Exec() const {
    const int result = dialog_->exec();
    return dialog_ ? result : 0;
  }

 private:
  QPointer<Dialog> dialog_;
};

}  // namespace

MessageAnswer AskMessage(QWidget* parent, StringView text, StringView title, int style) {
  const ButtonSet set = ButtonsOf(style);
  const Held<QMessageBox> box(new QMessageBox(parent));
  box->setIcon(IconOf(style));
  box->setWindowTitle(ToQt(title));
  box->setTextFormat(Qt::PlainText);
  box->setText(ToQt(text));
  for (const ButtonOf& one : set.Buttons) box->addButton(one.Button);
  box->setEscapeButton(set.Closing.Button);
  const std::size_t first = DefaultOf(style);
  box->setDefaultButton(set.Buttons[first < set.Buttons.size() ? first : 0].Button);
  const int pressed = box.Exec();
  for (const ButtonOf& one : set.Buttons) {
    if (one.Button == pressed) return one.Answer;
  }
  return set.Closing.Answer;
}

std::optional<String> AskInput(QWidget* parent, StringView prompt, StringView title,
                               StringView text) {
  constexpr int Columns = 48;
  const Held<QInputDialog> box(new QInputDialog(parent));
  box->setWindowTitle(ToQt(title));
  box->setLabelText(ToQt(prompt));
  for (QLabel* const label : box->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  box->setTextValue(ToQt(text));
  box->resize(Columns * box->fontMetrics().averageCharWidth(), box->sizeHint().height());
  if (box.Exec() != QDialog::Accepted) return std::nullopt;
  return FromQt(box->textValue());
}

std::vector<String> FileFilters(StringView filter) {
  std::vector<String> filters;
  const QStringList parts = ToQt(filter).split(u'|');
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    filters.push_back(FromQt(FilterText(parts[at], parts[at + 1])));
  }
  return filters;
}

std::vector<String> AskFiles(QWidget* parent, const platform::FileDialogRequest& request) {
  const Held<QFileDialog> dialog(new QFileDialog(parent));
  SetUp(*dialog, request);
  std::vector<String> files;
  if (dialog.Exec() != QDialog::Accepted) return files;
  for (const QString& file : dialog->selectedFiles()) files.push_back(FromQt(file));
  return files;
}

bool AskFont(QWidget* parent, forms::Font& font, StringView title) {
  const Held<QFontDialog> dialog(new QFontDialog(ToQtFont(font), parent));
  if (!title.empty()) dialog->setWindowTitle(ToQt(title));
  if (dialog.Exec() != QDialog::Accepted) return false;
  TakeFont(font, dialog->selectedFont());
  return true;
}

}  // namespace tessel::workbench
