#include "hosts/workbench/window/OptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QSpinBox>

namespace tessel::workbench {
namespace {

struct Fields {
  QFontComboBox Font;
  QSpinBox Size, TabWidth;
  QComboBox Colors;
  QCheckBox LineNumbers{QDialog::tr("Show line &numbers")};
  QCheckBox Tidy{QDialog::tr("Ti&dy spacing and case of lines when they are left")};
};

void Fill(Fields& fields, const Settings& settings) {
  const EditorOptions options = settings.Editor();
  fields.Font.setFontFilters(QFontComboBox::MonospacedFonts);
  fields.Font.setCurrentFont(options.Font);
  fields.Size.setRange(6, 48);
  fields.Size.setValue(options.Font.pointSize());
  fields.TabWidth.setRange(1, 32);
  fields.TabWidth.setValue(options.TabWidth);
  fields.Colors.addItems(
      {QDialog::tr("As the desktop"), QDialog::tr("Light"), QDialog::tr("Dark")});
  fields.Colors.setCurrentIndex(static_cast<int>(settings.Colors()));
  fields.LineNumbers.setChecked(options.LineNumbers);
  fields.Tidy.setChecked(options.TidyLines);
}

void Store(const Fields& fields, Settings& settings) {
  EditorOptions options = settings.Editor();
  options.Font = fields.Font.currentFont();
  options.Font.setPointSize(fields.Size.value());
  options.TabWidth = fields.TabWidth.value();
  options.LineNumbers = fields.LineNumbers.isChecked();
  options.TidyLines = fields.Tidy.isChecked();
  settings.SetEditor(options);
  settings.SetColors(static_cast<ColorScheme>(fields.Colors.currentIndex()));
}

}  // namespace

bool EditOptions(QWidget* parent, Settings& settings) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QDialog::tr("Options"));
  dialog.setObjectName(QStringLiteral("options"));
  Fields fields;
  Fill(fields, settings);
  QFormLayout form(&dialog);
  form.addRow(QDialog::tr("&Font"), &fields.Font);
  form.addRow(QDialog::tr("&Size"), &fields.Size);
  form.addRow(QDialog::tr("&Tab width"), &fields.TabWidth);
  form.addRow(QDialog::tr("&Colours"), &fields.Colors);
  form.addRow(&fields.LineNumbers);
  form.addRow(&fields.Tidy);
  QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  form.addRow(&buttons);
  QObject::connect(&buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(&buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  if (dialog.exec() != QDialog::Accepted) return false;
  Store(fields, settings);
  return true;
}

}  // namespace tessel::workbench
