// Where the controls stand, and what they do.

#include "insertion/mGlobals.h"
#include "settingsdialog/frmSettings.h"

namespace tessel {

void frmSettings::Arrange() {
  using namespace forms;
  const auto field = [](Label& label, Control& control) {
    return Row({Item(label), Item(control, 1)});
  };
  const auto font = [](Label& label, TextBox& name, Button& choose) {
    return Row({Item(label), Item(name, 1), Item(choose)});
  };
  std::vector<Layout> pages{
      Column({Row({Item(lblAuthor), Item(txtAuthor, 1), Item(chkIncludeA)}),
              Row({Item(lblDate), Item(lblDateTime, 1), Item(chkIncludeD)}), Space()}),
      Column({field(lblStaticProcedure, ComStaticProcedure),
              field(lblAccessibilityProcedure, ComAccessibilityProcedure),
              field(lblTypeProcedure, ComTypeProcedure),
              field(lblReturnValueTypeProcedure, ComReturnValueTypeProcedure),
              field(lblTypeArgument, ComTypeArgument),
              field(lblDescriptionProcedure, txtDescriptionProcedure),
              Row({Item(chkHeaderProcedure), Item(chkOptional), Item(OptByRef), Item(OptByVal),
                   Space()}),
              font(lblViewFontProcedure, txtRicViewProcedureBuilder, btmRicViewProcedureBuilder),
              Item(RicViewProcedureBuilder, 1)}),
      Column({field(lblStaticProperty, ComStaticProperty),
              field(lblAccessibilityProperty, ComAccessibilityProperty),
              field(lblValueTipeProperty, ComValueTipeProperty),
              Row({Item(chkGet), Item(chkLetSet), Space()}),
              field(lblDescriptionProperty, txtDescriptionProperty), Item(chkHeaderProperty),
              font(lblViewFontProperty, txtRicViewPropertyBuilder, btmRicViewPropertyBuilder),
              Item(RicViewPropertyBuilder, 1)}),
      Column({field(lblCollectionClassName, txtCollectionClassName),
              field(lblPrefixCollectionClassName, txtPrefixCollectionClassName),
              field(lblDescriptionClass, txtDescriptionClass), Item(chkHeaderClass),
              field(lblPrefixClass, txtPrefixClass),
              font(lblViewFontClass, txtRicViewClassBuilder, btmRicViewClassBuilder),
              Item(RicViewClassBuilder, 1)}),
      Column({field(lblAccessibilityEnum, ComAccessibilityEnum),
              field(lblDescriptionEnum, txtDescriptionEnum), Item(chkHeaderEnum),
              field(lblPrefixEnum, txtPrefixEnum),
              font(lblViewFontEnum, txtRicViewEnumBuilder, btmRicViewEnumBuilder),
              Item(RicViewEnumBuilder, 1)}),
      Column({font(lblCodeFont, txtRicCodeFragmentBuilder, btmRicCodeFragmentBuilder),
              Item(RicCodeFragmentBuilder, 1),
              font(lblCodeObjectFont, txtRicCodeObjectFragmentBuilder,
                   btmRicCodeObjectFragmentBuilder),
              Item(RicCodeObjectFragmentBuilder, 1),
              font(lblUserCodeFont, txtRicUserCode, btmRicUserCode), Item(RicUserCode, 1)}),
      Column({Item(fgTable, 1), Row({Item(btmAdd), Item(btmDelete), Space()})}),
      Column(
          {Item(fgTableControl, 1), Row({Item(btmAddControl), Item(btmDeleteControl), Space()})}),
      Column({Item(chkAutoPosition), Space()})};
  SetLayout(Column({Row({Item(List1, 1), Tabs(VSIndexTab1, std::move(pages), 2)}, 1),
                    Row({Item(btmHelp), Space(), Item(btmSave), Item(btmExit), Item(btmCancel)})}));
}

void frmSettings::Wire() {
  List1.Click =
      Handler(u"frmSettings.List1_Click", [this] { VSIndexTab1.SetCurrTab(List1.ListIndex()); });
  WireFonts();
  const auto edits = [](forms::Grid& grid, RecordGrid& records, StringView routine) {
    grid.AfterEdit = [&records, routine](int row, int col) {
      Routine(routine, [&](const Statements& run) { records.StoreCell(row, col, run); });
    };
  };
  edits(fgTable, types_, u"frmSettings.fgTable_AfterEdit");
  edits(fgTableControl, controlTypes_, u"frmSettings.fgTableControl_AfterEdit");
  btmAdd.Click = Handler(u"frmSettings.btmAdd_Click", [this](const Statements& run) {
    AddRecord({types_, &frmSettings::CheckDuplicateName}, run);
  });
  btmAddControl.Click = Handler(u"frmSettings.btmAddControl_Click", [this](const Statements& run) {
    AddRecord({controlTypes_, &frmSettings::CheckDuplicateNameControls}, run);
  });
  btmDelete.Click = Handler(u"frmSettings.btmDelete_Click",
                            [this](const Statements& run) { DeleteRecord(types_, run); });
  btmDeleteControl.Click =
      Handler(u"frmSettings.btmDeleteControl_Click",
              [this](const Statements& run) { DeleteRecord(controlTypes_, run); });
  btmSave.Click = Handler(u"frmSettings.btmSave_Click", [this] { SaveParamert(); });
  btmExit.Click = Handler(u"frmSettings.btmExit_Click", [this] { Unload(); });
  btmCancel.Click = Handler(u"frmSettings.btmCancel_Click", [this] { Unload(); });
  btmHelp.Click =
      Handler(u"frmSettings.btmHelp_Click", [] { mGlobals::RunHelpFennick(u"Settings.htm"); });
}

}  // namespace tessel
