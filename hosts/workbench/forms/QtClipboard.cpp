#include "hosts/workbench/forms/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "forms/RichTextBox.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int PictureSide = 32;

/// The program's own mark of a picture on the clipboard; others see the picture itself.
const QString& PictureFormat() {
  static const QString format = QStringLiteral("application/x-tessel-picture");
  return format;
}

}  // namespace

String QtClipboard::GetText() {
  return forms::WithCrLf(FromQt(QGuiApplication::clipboard()->text()));
}

void QtClipboard::SetText(StringView text) {
  QGuiApplication::clipboard()->setText(ToQt(vb::Replace(text, vb::CrLf, u"\n")));
}

void QtClipboard::SetPicture(int picture) {
  auto* const data = new QMimeData;
  data->setImageData(Picture(picture).pixmap(PictureSide).toImage());
  data->setData(PictureFormat(), QByteArray::number(picture));
  QGuiApplication::clipboard()->setMimeData(data);
}

int QtClipboard::GetPicture() {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data == nullptr ? 0 : data->data(PictureFormat()).toInt();
}

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

}  // namespace tessel::workbench
