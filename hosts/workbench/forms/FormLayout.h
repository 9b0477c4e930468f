// A form's arrangement as layouts of Qt.
#pragma once

#include <QWidget>

#include "forms/Layout.h"

class QBoxLayout;
class QGridLayout;

namespace tessel::workbench {

class ControlViews;

/// Walks the arrangement once. Rows that follow each other and begin with a label share the
/// labels' width.
class FormLayout {
 public:
  explicit FormLayout(const ControlViews& views) : views_(views) {}
  /// Fills a widget that has no layout.
  void Build(const forms::Layout& arrangement, QWidget& into) const;

 private:
  using Children = std::vector<forms::Layout>;

  void Add(const forms::Layout& node, QBoxLayout& to) const;
  void AddColumn(const Children& children, QBoxLayout& to) const;
  void AddRow(const Children& children, QBoxLayout& to) const;
  void AddLabelledRow(const forms::Layout& row, QGridLayout& to) const;
  [[nodiscard]] QWidget* MakeDivided(const forms::Layout& node) const;
  [[nodiscard]] QLayout* MakeFlow(const forms::Layout& node) const;
  void HintAtSense(const Children& row) const;
  [[nodiscard]] QWidget* MakeGroup(const forms::Layout& node) const;
  [[nodiscard]] QWidget* MakeTabs(const forms::Layout& node) const;
  [[nodiscard]] QLayout* MakeNumberField(const forms::Layout& field,
                                         const forms::Layout& spin) const;
  void EvenOutButtons(const Children& children) const;
  void AllowWrapping(const forms::Layout& node) const;

  const ControlViews& views_;
};

}  // namespace tessel::workbench
