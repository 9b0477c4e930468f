#include "hosts/workbench/forms/DocumentOpener.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "hosts/workbench/platform/Text.h"
#include "platform/Shell.h"

namespace tessel::workbench {
namespace {

constexpr int NotFound = 2, NoAssociation = 31;

int Open(const QUrl& address) {
  return QDesktopServices::openUrl(address) ? platform::ShellSuccess : NoAssociation;
}

int Start(const QString& program, StringView parameters) {
  const bool started = QProcess::startDetached(program, QProcess::splitCommand(ToQt(parameters)));
  return started ? platform::ShellSuccess : NotFound;
}

/// Whether a text is an address: its scheme has more than the one letter of a drive.
bool IsAddress(const QString& target) { return QUrl(target).scheme().size() > 1; }

int OpenFile(const QFileInfo& file, bool explore, StringView parameters) {
  if (!file.exists()) return NotFound;
  if (file.isFile() && file.isExecutable() && !explore) return Start(file.filePath(), parameters);
  const QString shown = explore && !file.isDir() ? file.absolutePath() : file.absoluteFilePath();
  return Open(QUrl::fromLocalFile(shown));
}

}  // namespace

int OpenTarget(StringView target, StringView verb, StringView parameters) {
  const bool explore = vb::SameText(verb, u"explore");
  if (!explore && !verb.empty() && !vb::SameText(verb, u"open")) return NoAssociation;
  if (IsAddress(ToQt(target))) return Open(QUrl(ToQt(target), QUrl::TolerantMode));
  const QString path = ToQt(vb::Replace(target, u"\\", u"/"));
  const QString program = path.contains(u'/') ? QString() : QStandardPaths::findExecutable(path);
  if (!program.isEmpty()) return Start(program, parameters);
  return OpenFile(QFileInfo(path), explore, parameters);
}

}  // namespace tessel::workbench
