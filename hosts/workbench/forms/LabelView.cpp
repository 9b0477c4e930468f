#include "hosts/workbench/forms/LabelView.h"

#include "hosts/workbench/forms/WrappedLabel.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int ParagraphColumns = 56;

}  // namespace

LabelView::LabelView(forms::Label& label, ViewHost& host)
    : ControlView(label, host),
      label_(label),
      widget_(new WrappedLabel),
      hasKey_(label.Caption().find(u'&') != String::npos) {
  widget_->setTextFormat(Qt::PlainText);
}

QWidget* LabelView::Widget() const { return widget_; }

void LabelView::LeadTo(QWidget* widget) { widget_->setBuddy(widget); }

void LabelView::AllowWrapping() { widget_->SetColumns(ParagraphColumns); }

void LabelView::Update() { widget_->ShowText(ToQt(label_.Caption())); }

}  // namespace tessel::workbench
