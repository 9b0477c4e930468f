#include "hosts/workbench/window/PlaceLine.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/CodeWindow.h"
#include "hosts/workspace/ComponentFile.h"

namespace tessel::workbench {
namespace {

struct CodePageName {
  int Number;
  const char* Name;
};
constexpr CodePageName CodePageNames[] = {
    {1252, QT_TRANSLATE_NOOP("CodePage", "Western European")},
    {1250, QT_TRANSLATE_NOOP("CodePage", "Central European")},
    {1251, QT_TRANSLATE_NOOP("CodePage", "Cyrillic")},
    {1253, QT_TRANSLATE_NOOP("CodePage", "Greek")},
    {1254, QT_TRANSLATE_NOOP("CodePage", "Turkish")},
    {1255, QT_TRANSLATE_NOOP("CodePage", "Hebrew")},
    {1256, QT_TRANSLATE_NOOP("CodePage", "Arabic")},
    {1257, QT_TRANSLATE_NOOP("CodePage", "Baltic")},
    {1258, QT_TRANSLATE_NOOP("CodePage", "Vietnamese")},
    {874, QT_TRANSLATE_NOOP("CodePage", "Thai")},
    {932, QT_TRANSLATE_NOOP("CodePage", "Japanese")},
    {936, QT_TRANSLATE_NOOP("CodePage", "Chinese, simplified")},
    {949, QT_TRANSLATE_NOOP("CodePage", "Korean")},
    {950, QT_TRANSLATE_NOOP("CodePage", "Chinese, traditional")},
    {65001, QT_TRANSLATE_NOOP("CodePage", "Unicode (UTF-8)")}};

std::shared_ptr<workspace::ComponentFile> FileOf(
    const std::shared_ptr<model::VBComponent>& component) {
  return component ? std::dynamic_pointer_cast<workspace::ComponentFile>(component->Storage())
                   : nullptr;
}

}  // namespace

PlaceLine::PlaceLine(QStatusBar& bar)
    : QObject(&bar),
      place_(new QLabel(&bar)),
      member_(new QLabel(&bar)),
      codePage_(new QToolButton(&bar)) {
  place_->setObjectName(QStringLiteral("place"));
  member_->setObjectName(QStringLiteral("member"));
  codePage_->setObjectName(QStringLiteral("codePage"));
  codePage_->setAutoRaise(true);
  codePage_->setPopupMode(QToolButton::InstantPopup);
  codePage_->setToolTip(tr("Open again as..."));
  codePage_->hide();
  auto* const pages = new QMenu(codePage_);
  codePage_->setMenu(pages);
  connect(pages, &QMenu::aboutToShow, this, [this, pages] { FillCodePages(*pages); });
  bar.addWidget(member_, 1);
  bar.addPermanentWidget(place_);
  bar.addPermanentWidget(codePage_);
}

void PlaceLine::Show(const CodeWindow* code, const std::shared_ptr<model::VBComponent>& component) {
  if (code == nullptr || !component) {
    place_->clear();
    member_->clear();
  } else {
    const host::Selection at = code->Editor().Selected();
    place_->setText(tr("Ln %1, Col %2").arg(at.EndLine).arg(at.EndColumn));
    host::vbext_ProcKind kind{};
    const String member = component->Module()->Index().ProcOfLine(at.EndLine, kind);
    member_->setText(member.empty() ? tr("(Declarations)") : ToQt(member));
  }
  const auto file = FileOf(component);
  codePage_->setVisible(file != nullptr);
  if (file) codePage_->setText(tr("Code page %1").arg(file->CodePage()));
}

/// Every code page that files can be read in, for the project of the present component.
void PlaceLine::FillCodePages(QMenu& menu) {
  menu.clear();
  const auto component = Current();
  const auto file = FileOf(component);
  if (!file) return;
  menu.addSection(tr("Open %1 again as").arg(ToQt(component->Project()->PlainName())));
  for (const CodePageName& page : CodePageNames) {
    QAction* const action =
        menu.addAction(QStringLiteral("%1  %2").arg(page.Number).arg(tr(page.Name)));
    action->setCheckable(true);
    action->setChecked(page.Number == file->CodePage());
    connect(action, &QAction::triggered, this,
            [this, number = page.Number, weak = std::weak_ptr(component->Project())] {
              if (const auto project = weak.lock()) OnOpenAgain(project, number);
            });
  }
}

}  // namespace tessel::workbench
