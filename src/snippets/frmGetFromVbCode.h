// The dialog that inserts stored objects into the active project, any number in one run.
#pragma once

#include <memory>

#include "forms/Controls.h"
#include "forms/Grid.h"
#include "foundation/ToolForm.h"
#include "snippets/CSQLTrees.h"

namespace tessel {

class frmGetFromVbCode : public ToolForm {
 public:
  frmGetFromVbCode();

  forms::Grid fgTree{this, "fgTree"};
  forms::Button btmExpand{this, "btmExpand", {.Caption = u"Expand all projects"}};
  forms::Button btmCollapse{this, "btmCollapse", {.Caption = u"&Collapse all projects"}};
  forms::Button btmSelectAll{this, "btmSelectAll", {.Caption = u"Select &All"}};
  forms::Button btmSelectNone{this, "btmSelectNone", {.Caption = u"Select &None"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmRun{this, "btmRun", {.Caption = u"&Run"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Arrange();
  void Wire();
  void RunLoadTree();
  void EnablebtmRun();
  void TickAll(StringView routine, bool ticked);
  void Run();
  [[nodiscard]] bool InsertRow(const Statements& run, int row);
  [[nodiscard]] bool IsTicked(int row) const;

  std::shared_ptr<CSQLTrees> trees_;
};

}  // namespace tessel
