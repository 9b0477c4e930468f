#include "hosts/workbench/designer/PropertiesWindow.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "host/Designer.h"
#include "hosts/workbench/designer/ControlClasses.h"
#include "hosts/workbench/designer/PropertyDelegate.h"
#include "hosts/workbench/designer/Values.h"
#include "hosts/workbench/designer/WindowPlace.h"
#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

enum Column { NameColumn, ValueColumn, ColumnCount };

constexpr StringView TypeNames[] = {u"", u"Module", u"Class Module"};

/// "Command1 CommandButton"
QString ObjectText(const model::DesignerNode& node) {
  return ToQt(ShownName(node) + u" " + String(ShortName(node.Class)));
}

QString ComponentText(const model::VBComponent& component) {
  const auto type = static_cast<std::size_t>(component.PlainType());
  const StringView kind = type < std::size(TypeNames) ? TypeNames[type] : StringView();
  return ToQt(component.PlainName() + u" " + String(kind));
}

bool SameNames(const std::vector<PropertyRow>& rows, const std::vector<PropertyRow>& others) {
  return std::equal(rows.begin(), rows.end(), others.begin(), others.end(),
                    [](const PropertyRow& one, const PropertyRow& other) {
                      return one.Name == other.Name && one.Kind == other.Kind;
                    });
}

}  // namespace

PropertiesWindow::PropertiesWindow(QWidget* parent)
    : QWidget(parent),
      objects_(new QComboBox(this)),
      table_(new QTableWidget(0, ColumnCount, this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(objects_);
  column->addWidget(table_);
  objects_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  objects_->setAccessibleName(QStringLiteral("Object"));
  setFocusProxy(table_);
  SetUpTable();
  QObject::connect(table_, &QTableWidget::cellChanged, this, [this](int row, int) {
    if (!filling_) CellChanged(row);
  });
  QObject::connect(table_, &QTableWidget::cellClicked, this, [this](int row, int) { Edit(row); });
  QObject::connect(objects_, &QComboBox::activated, this,
                   [this](int index) { ObjectActivated(index); });
}

PropertiesWindow::~PropertiesWindow() {
  // A field that is open gives its value up as it goes, when the rows are gone already.
  QObject::disconnect(table_, nullptr, this, nullptr);
}

void PropertiesWindow::SetUpTable() {
  table_->setAccessibleName(QStringLiteral("Properties"));
  table_->horizontalHeader()->hide();
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  // A click opens a value; keys walk over the rows, and typing or F2 opens one.
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  table_->setItemDelegateForColumn(
      ValueColumn, new PropertyDelegate(table_, [this](int row) { return ChoicesOfRow(row); }));
}

QStringList PropertiesWindow::ChoicesOfRow(int row) const {
  const PropertyRow& property = rows_[static_cast<std::size_t>(row)];
  QStringList choices;
  for (const String& choice : ShownChoices(property.Kind, property.List)) choices << ToQt(choice);
  return choices;
}

void PropertiesWindow::Edit(int row) {
  if (rows_[static_cast<std::size_t>(row)].ReadOnly()) return;
  table_->setCurrentCell(row, ValueColumn);
  table_->editItem(table_->item(row, ValueColumn));
}

void PropertiesWindow::ShowObjects(std::shared_ptr<model::VBComponent> component,
                                   const std::vector<model::DesignerNode*>& nodes,
                                   std::shared_ptr<DesignerEditor> editor) {
  component_ = std::move(component);
  editor_ = std::move(editor);
  if (!editor_ && component_) {
    editor_ = std::make_shared<DesignerEditor>(component_);
    editor_->OnFailure = [this](const String& text) {
      if (OnFailure) OnFailure(text);
    };
  }
  nodes_.clear();
  for (model::DesignerNode* node : nodes) nodes_.push_back(node->weak_from_this());
  Settle();
}

void PropertiesWindow::Refresh() {
  if (waiting_) return;
  waiting_ = true;
  QTimer::singleShot(0, this, [this] {
    waiting_ = false;
    Settle();
  });
}

const std::vector<PropertyRow>& PropertiesWindow::Rows() {
  Settle();
  return rows_;
}

std::vector<model::DesignerNode*> PropertiesWindow::Shown() const {
  std::vector<model::DesignerNode*> shown;
  const model::Designer* const designer = component_ ? component_->OwnDesigner().get() : nullptr;
  if (designer == nullptr || designer->Tree().Root() == nullptr) return shown;
  for (const auto& weak : nodes_) {
    const auto node = weak.lock();
    if (designer->Tree().Holds(node.get())) shown.push_back(node.get());
  }
  if (shown.empty()) shown.push_back(designer->Tree().Root());
  return shown;
}

std::vector<PropertyRow> PropertiesWindow::ReadRows() const {
  const auto shown = Shown();
  if (!shown.empty()) return RowsOf(shown);
  std::vector<PropertyRow> rows;
  if (component_) (void)editor_->Try([&] { rows = RowsOf(*component_); });
  return rows;
}

void PropertiesWindow::Settle() {
  ListObjects();
  FillTable(ReadRows());
}

std::vector<PropertiesWindow::Object> PropertiesWindow::ReadObjects() const {
  std::vector<Object> objects;
  if (!component_) return objects;
  const auto& designer = component_->OwnDesigner();
  model::DesignerNode* const root = designer ? designer->Tree().Root() : nullptr;
  if (root == nullptr) return {{ComponentText(*component_), nullptr}};
  for (model::DesignerNode* node : designer->Tree().Controls()) {
    objects.push_back({ObjectText(*node), node});
  }
  std::stable_sort(objects.begin(), objects.end(), [](const Object& one, const Object& other) {
    return one.Text.compare(other.Text, Qt::CaseInsensitive) < 0;
  });
  objects.insert(objects.begin(), {ObjectText(*root), root});
  return objects;
}

void PropertiesWindow::ListObjects() {
  const QSignalBlocker quiet(objects_);
  const auto shown = Shown();
  int current = shown.size() > 1 ? -1 : 0;
  QStringList texts, before;
  listed_.clear();
  for (const Object& object : ReadObjects()) {
    if (shown.size() == 1 && object.Node == shown.front()) current = static_cast<int>(texts.size());
    texts << object.Text;
    listed_.push_back(object.Node == nullptr ? std::weak_ptr<model::DesignerNode>()
                                             : object.Node->weak_from_this());
  }
  for (int at = 0; at < objects_->count(); ++at) before << objects_->itemText(at);
  if (before != texts) {
    objects_->clear();
    objects_->addItems(texts);
  }
  objects_->setCurrentIndex(current);
}

void PropertiesWindow::ObjectActivated(int index) {
  if (index < 0 || index >= static_cast<int>(listed_.size())) return;
  const auto node = listed_[static_cast<std::size_t>(index)].lock();
  if (!node) return;
  nodes_ = {node};
  Settle();
  if (OnChosen) OnChosen(node.get());
}

void PropertiesWindow::FillTable(const std::vector<PropertyRow>& rows) {
  const std::vector<PropertyRow> before = std::move(rows_);
  rows_ = rows;
  filling_ = true;
  if (SameNames(rows, before)) {
    // In place, so that a value that is being typed stays.
    for (std::size_t at = 0; at < rows.size(); ++at) {
      if (!(before[at] == rows[at])) FillRow(static_cast<int>(at));
    }
  } else {
    const int current = table_->currentRow();
    const bool known = current >= 0 && current < static_cast<int>(before.size());
    FillAnew(known ? before[static_cast<std::size_t>(current)].Name : String());
  }
  filling_ = false;
}

/// Fills all rows; the one of the property that was current stays current.
void PropertiesWindow::FillAnew(StringView current) {
  table_->clearContents();
  table_->setRowCount(static_cast<int>(rows_.size()));
  for (int row = 0; row < table_->rowCount(); ++row) {
    FillRow(row);
    if (rows_[static_cast<std::size_t>(row)].Name == current) {
      table_->setCurrentCell(row, ValueColumn);
    }
  }
}

void PropertiesWindow::FillRow(int row) {
  const PropertyRow& property = rows_[static_cast<std::size_t>(row)];
  auto* name = table_->item(row, NameColumn);
  auto* value = table_->item(row, ValueColumn);
  if (name == nullptr) table_->setItem(row, NameColumn, name = new QTableWidgetItem);
  if (value == nullptr) table_->setItem(row, ValueColumn, value = new QTableWidgetItem);
  name->setText(ToQt(property.Name));
  name->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  value->setText(ToQt(property.Shown));
  value->setFlags(property.ReadOnly() ? name->flags() : name->flags() | Qt::ItemIsEditable);
  // What the file doesn't say is shown fainter.
  const bool faint = !property.InFile || property.ReadOnly();
  value->setForeground(palette().color(faint ? QPalette::PlaceholderText : QPalette::Text));
  value->setData(Qt::DecorationRole, {});
  if (property.Kind == ValueKind::Color && !property.Shown.empty()) {
    value->setData(Qt::DecorationRole, ColorFromNumber(PlainNumber(property.Shown)));
  }
}

void PropertiesWindow::CellChanged(int row) {
  const PropertyRow property = rows_[static_cast<std::size_t>(row)];
  const String typed = FromQt(table_->item(row, ValueColumn)->text());
  if (typed == property.Shown) return;
  Apply(property, typed);
  // The value that stands now, also when the edit was refused. Rows come and go only later, when
  // the field in the table is closed.
  const std::vector<PropertyRow> rows = ReadRows();
  if (SameNames(rows, rows_)) rows_ = rows;
  filling_ = true;
  FillRow(row);
  filling_ = false;
  Refresh();
}

void PropertiesWindow::Apply(const PropertyRow& row, const String& shown) {
  const auto nodes = Shown();
  if (nodes.empty()) return ApplyToHost(row, shown);
  if (row.IsName) {
    (void)editor_->Rename(*nodes.front(), vb::Trim(shown));
    return;
  }
  (void)editor_->Try([&] {
    std::vector<PropertyEdits> edits;
    for (model::DesignerNode* node : nodes) {
      const String before = node->RawValue(row.Name).value_or(String());
      const String raw = RawFromShown(row.Kind, row.List, shown, before);
      edits.push_back(IsWindowPlace(*node, row.Name)
                          ? WindowPlaceEdits(*node, row.Name, PlainNumber(raw))
                          : PropertyEdits{node, {{row.Name, raw}}});
    }
    (void)editor_->SetValues(edits, QStringLiteral("Change %1").arg(ToQt(row.Name)));
  });
}

void PropertiesWindow::ApplyToHost(const PropertyRow& row, const String& shown) {
  (void)editor_->Try([&] {
    const StringView name = row.IsName ? StringView(u"Name") : StringView(row.Name);
    component_->Properties()->Item(name)->SetValue(row.IsName ? vb::Trim(shown)
                                                              : StringView(shown));
  });
}

void PropertiesWindow::EditProperty(StringView property) {
  Settle();
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const PropertyRow& row) {
    return vb::SameText(row.Name, property);
  });
  if (found == rows_.end()) return;
  table_->setFocus(Qt::OtherFocusReason);
  Edit(static_cast<int>(found - rows_.begin()));
}

}  // namespace tessel::workbench
