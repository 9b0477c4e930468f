#include "hosts/workbench/window/BarView.h"

#include <QSet>
#include <QToolButton>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr StringView MenuBarName = u"Menu Bar";

Qt::ToolBarArea AreaOf(int position) {
  switch (position) {
    case host::msoBarLeft:
      return Qt::LeftToolBarArea;
    case host::msoBarRight:
      return Qt::RightToolBarArea;
    case host::msoBarBottom:
      return Qt::BottomToolBarArea;
    default:
      return Qt::TopToolBarArea;
  }
}

int PositionOf(Qt::ToolBarArea area) {
  switch (area) {
    case Qt::LeftToolBarArea:
      return host::msoBarLeft;
    case Qt::RightToolBarArea:
      return host::msoBarRight;
    case Qt::BottomToolBarArea:
      return host::msoBarBottom;
    default:
      return host::msoBarTop;
  }
}

int PictureOf(host::CommandBarControl& control) {
  const auto* const own = dynamic_cast<model::CommandBarControl*>(&control);
  return own == nullptr ? 0 : own->PictureNumber();
}

}  // namespace

QIcon FaceIcon(int faceId) {
  struct Face {
    int Id, Picture;
  };
  static constexpr Face Faces[] = {{984, 152}, {201, 153}, {1714, 148}, {3253, 130}, {3049, 134}};
  for (const Face& face : Faces) {
    if (face.Id == faceId) return Picture(face.Picture);
  }
  return {};
}

BarView::BarView(QMainWindow& window, std::shared_ptr<model::Vbe> vbe)
    : window_(window), vbe_(std::move(vbe)) {}

void BarView::Rebuild() {
  QSet<QString> there;
  auto& bars = vbe_->OwnBars();
  for (int at = 1; at <= bars.Count(); ++at) {
    const auto bar = bars.Item(at);
    if (bar->Name() == MenuBarName) continue;
    const QString name = ToQt(bar->Name());
    there.insert(name);
    QToolBar*& view = views_[name];
    if (view == nullptr) {
      view = new QToolBar(name, &window_);
      view->setObjectName(QStringLiteral("bar:") + name);
      Place(*view, *bar);
    }
    Fill(*view, *bar);
  }
  for (auto view = views_.begin(); view != views_.end();) {
    if (there.contains(view.key())) {
      ++view;
      continue;
    }
    view.value()->deleteLater();
    view = views_.erase(view);
  }
}

void BarView::Place(QToolBar& view, host::CommandBar& bar) {
  window_.addToolBar(AreaOf(bar.Position()), &view);
  view.setVisible(bar.Visible());
}

void BarView::StorePlaces() {
  auto& bars = vbe_->OwnBars();
  for (auto view = views_.cbegin(); view != views_.cend(); ++view) {
    const auto bar = bars.Item(FromQt(view.key()));
    bar->SetVisible(!view.value()->isHidden());
    bar->SetPosition(view.value()->isFloating() ? host::msoBarFloating
                                                : PositionOf(window_.toolBarArea(view.value())));
    bar->SetLeft(view.value()->x());
    bar->SetTop(view.value()->y());
  }
}

QAction* BarView::ActionOf(const std::shared_ptr<host::CommandBarControl>& control,
                           QObject* owner) {
  auto* const action = new QAction(ToQt(control->Caption()), owner);
  const QIcon picture = Picture(PictureOf(*control));
  action->setIcon(picture.isNull() ? FaceIcon(control->FaceId()) : picture);
  action->setEnabled(control->Enabled());
  action->setVisible(control->Visible());
  action->setToolTip(ToQt(control->Caption()).remove(u'&'));
  QObject::connect(action, &QAction::triggered, owner, [this, control] {
    if (OnClick) OnClick(control);
  });
  return action;
}

void BarView::Fill(QToolBar& view, host::CommandBar& bar) {
  // What was built before goes; the tool bar's own action, which shows and hides it, stays.
  static const auto Content = QStringLiteral("content");
  view.clear();
  delete view.findChild<QWidget*>(Content, Qt::FindDirectChildrenOnly);
  auto* const content = new QWidget(&view);
  content->setObjectName(Content);
  content->hide();
  const auto controls = bar.Controls();
  for (int at = 1; at <= controls->Count(); ++at) {
    const auto control = controls->Item(at);
    if (control->BeginGroup() && at > 1) view.addSeparator();
    if (control->Type() != host::msoControlPopup) {
      view.addAction(ActionOf(control, content));
      continue;
    }
    auto* const menu = new QMenu(ToQt(control->Caption()), content);
    FillWith(*menu, *control->Controls());
    menu->menuAction()->setEnabled(control->Enabled());
    view.addAction(menu->menuAction());
    if (auto* const button = qobject_cast<QToolButton*>(view.widgetForAction(menu->menuAction()))) {
      button->setPopupMode(QToolButton::InstantPopup);
    }
  }
}

void BarView::FillWith(QMenu& menu, host::CommandBarControls& controls) {
  for (int at = 1; at <= controls.Count(); ++at) {
    const auto control = controls.Item(at);
    if (control->BeginGroup() && !menu.isEmpty()) menu.addSeparator();
    if (control->Type() == host::msoControlPopup) {
      QMenu* const below = menu.addMenu(ToQt(control->Caption()));
      FillWith(*below, *control->Controls());
      below->menuAction()->setEnabled(control->Enabled());
    } else {
      menu.addAction(ActionOf(control, &menu));
    }
  }
}

bool BarView::FillMenu(QMenu& menu, StringView caption) {
  const auto menus = vbe_->OwnBars().Item(MenuBarName)->Controls();
  for (int at = 1; at <= menus->Count(); ++at) {
    const auto popup = menus->Item(at);
    if (!vb::SameText(vb::Replace(popup->Caption(), u"&", u""), caption)) continue;
    if (popup->Controls()->Count() == 0) return false;
    if (!menu.isEmpty()) menu.addSeparator();
    FillWith(menu, *popup->Controls());
    return true;
  }
  return false;
}

}  // namespace tessel::workbench
