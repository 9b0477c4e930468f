// The object that the development environment creates and talks to.
#pragma once

#include <memory>
#include <vector>

#include "addin/Commands.h"
#include "addin/frmAbout.h"
#include "builders/frmClassBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmProcedureBuilder.h"
#include "builders/frmPropertyBuilder.h"
#include "controlnaming/frmAddControl.h"
#include "controlnaming/frmControlName.h"
#include "controlnaming/frmUpdateControlName.h"
#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/frmRemoveErrorHandlerCode.h"
#include "explorer/udProjectExplorer.h"
#include "formatter/frmFormatText.h"
#include "foundation/Routine.h"
#include "host/IConnect.h"
#include "host/VBE.h"
#include "settingsdialog/frmSettings.h"
#include "snippets/frmFragmentBuilder.h"
#include "snippets/frmGetFromVbCode.h"
#include "snippets/frmStoreToVbCode.h"
#include "watchers/cMDIClient.h"
#include "watchers/cWinProperties.h"

namespace tessel {

/// Owns the global services from connection to disconnection, the command bar and every dialog.
/// Everything runs inside a call from the environment, a message or a timer tick, on one thread.
/// Made with std::make_shared: the environment may drop it in the middle of any of its routines.
class Connect : public IConnect, public std::enable_shared_from_this<Connect> {
 public:
  Connect();
  ~Connect() override;
  Connect(const Connect&) = delete;
  Connect& operator=(const Connect&) = delete;

  // The environment's calls. A failure of the first two is shown in a plain message box and leaves
  // the steps behind it undone.
  void AddinInstance_OnConnection(const std::shared_ptr<host::VBE>& application);
  void AddinInstance_OnDisconnection();
  void AddinInstance_OnStartupComplete();

  // Answers and the mailbox of the naming dialogs.
  [[nodiscard]] int ReturnOkCancel() const { return returnOkCancel_; }
  void SetReturnOkCancel(int value) override { returnOkCancel_ = value; }
  [[nodiscard]] const String& ItemAddedName() const override { return itemAddedName_; }
  void SetItemAddedName(StringView value) override { itemAddedName_ = value; }
  [[nodiscard]] const String& ItemAddedTag() const { return itemAddedTag_; }
  void SetItemAddedTag(StringView value) { itemAddedTag_ = value; }
  [[nodiscard]] const String& ItemAddedText() const { return itemAddedText_; }
  void SetItemAddedText(StringView value) override { itemAddedText_ = value; }
  /// True while a naming dialog is up; greys the commands.
  [[nodiscard]] bool WindowsFormFennick() const { return windowsFormFennick_; }
  void SetWindowsFormFennick(bool value);
  [[nodiscard]] bool DialogOpen() const override { return dialogOpen_; }
  void SetDialogOpen(bool value) override { dialogOpen_ = value; }

  void HideProjectExplorer() override;
  void ShowProjectExplorer();
  void RefreshTreeExplorer(bool twitchCursor) override;
  void ShowProjectFragment();
  void HideProjectFragment() override;
  void ShowProcedureBuilder() override;
  void HideProcedureBuilder() override;
  void ShowPropertyBuilder() override;
  void HidePropertyBuilder() override;
  void ShowClassBuilder() override;
  void HideClassBuilder() override;
  void ShowEnum() override;
  void HideEnum() override;
  void RunEnded(const RunResult& result) override;
  /// Told of each run that a dialog has started, as it ends: the host's to set.
  std::function<void(const RunResult&)> OnRunEnded;
  void ShowFormatText();
  void HideFormatText() override;
  void ShowSettings(StringView pageName) override;
  void MenuHandlerSetttings_Click();
  void ShowAbout();
  void ShowEditErrorHandlerScheme();
  void HideEditErrorHandlerScheme();
  void ShowInsertErrorHandlerCode();
  void HideInsertErrorHandlerCode() override;
  void ShowGetFromVbCode();
  void HideGetFromVbCode() override;
  void ShowStoreToVbCode();
  void HideStoreToVbCode() override;
  void ShowRemoveErrorHandlerCode();
  void HideRemoveErrorHandlerCode() override;

  /// Puts the marker line for a scheme (or "Skip") above the member at the caret, or on line 1 of
  /// the module.
  void InsertErrStrInComponent(StringView text);
  /// Inserts a template ahead of the selected line and selects its placeholder.
  void InsertTextInComponent(const std::vector<String>& lines, int column, int lineOffset,
                             int length);
  /// Each line behind `indent` blanks, with CR LF.
  [[nodiscard]] static String ReturnInsertStr(const std::vector<String>& lines, int indent);

  /// The menu's command: from now on the window is the user's, and no component that is added
  /// brings it back.
  void MenuHandlerProjectExplorer_Click();
  /// Asks whether a control's new name goes into the code of its component; nothing while a naming
  /// dialog is up.
  void ShowControlName(StringView oldName, StringView newName, StringView componentName);
  /// Carries a new name into the code in front by hand, the selected word as the old name.
  void VBAUpdateControlName();

  /// Opens the list of members at a place of the code window in front, in pixels, and inserts the
  /// word that is chosen; the word, empty for none. No command runs it, but a key of the host.
  String ShowContextMenu(int codeX, int codeY);

  /// The bar's button for enums, which lets the Explorer follow at once.
  void MenuFastCreadeDeclareEnum_Click();
  /// The same for the insertion of snippets.
  void MenuFastGetFromVbCode_Click();

  /// Runs one of the handlers that no control is hooked to; false when none has that name.
  bool RunUnhooked(StringView handler);
  /// Enables or greys the commands, all but those that stay as they are.
  void EnableDisableCmd(bool enabled);

  [[nodiscard]] double VBEVersion() const { return vbeVersion_; }
  [[nodiscard]] const String& ExplorerWindowGUID() const { return explorerWindowGUID_; }
  [[nodiscard]] const std::shared_ptr<host::Window>& ExplorerWindow() const {
    return explorerWindow_;
  }

 private:
  /// The order in which the sinks of the bar are asked for.
  enum class SinkGroup { BarButtons, Schemes, MenuItems, Statements, Help };

  using ControlPtr = std::shared_ptr<host::CommandBarControl>;
  using ControlsPtr = std::shared_ptr<host::CommandBarControls>;
  /// Gets the control that was clicked. None: the control is greyed for good.
  using ClickHandler = std::function<void(const ControlPtr&)>;

  /// A control of ours with the sink that makes it fire.
  struct Control {
    ControlPtr Button;
    std::shared_ptr<host::CommandBarEvents> Sink;
    StringView Routine;  ///< name of its handler
    ClickHandler OnClick;
    SinkGroup Group;
    bool Follows;  ///< EnableDisableCmd reaches it
  };

  /// What an item of a pop-up looks like and does.
  struct MenuItem {
    StringView Caption;
    StringView OnAction;  ///< empty: left alone
    int FaceId;
    bool BeginGroup;
    int ResId;
    StringView Handler;
    ClickHandler OnClick;
    SinkGroup Group;
    bool Follows;
  };

  /// Runs one of our routines; the root stays alive for the length of it.
  template <class Body>
  void Run(StringView routine, Body&& body) {
    const auto self = weak_from_this().lock();
    Routine(routine, std::forward<Body>(body));
  }
  /// A sink's handler: the door, and nothing once the root is gone.
  template <class Event>
  [[nodiscard]] auto Entering(void (Connect::*handler)()) {
    return [weak = weak_from_this(), handler](const Event&) {
      if (const auto self = weak.lock()) Enter([&] { ((*self).*handler)(); });
    };
  }

  /// The same for an event whose parameters the handler takes.
  template <class... Parameters>
  [[nodiscard]] auto EnteringWith(void (Connect::*handler)(Parameters...)) {
    return [weak = weak_from_this(), handler](Parameters... event) {
      if (const auto self = weak.lock()) Enter([&] { ((*self).*handler)(event...); });
    };
  }

  void OpenDatabases();
  void CreateExplorerWindow();
  void StartWatchers();
  void StopWatchers();
  void RemoveBar();
  void SaveExplorerWindow();
  void ctrVBProjectsEvents_ItemAdded();
  void ctrVBComponentsEvents_ItemAdded();

  using ControlOnDesigner = std::shared_ptr<host::VBControl>;
  void BindControlEvents();
  void ctrFennickEvents_ItemAdded(const ControlOnDesigner& control);
  void ctrFennickEvents_ItemRenamed(const ControlOnDesigner& control, StringView oldName,
                                    int oldIndex);
  void AskForName(const Statements& run, const ControlOnDesigner& control);
  template <class Form, class Body>
  void WhileNaming(StringView routine, std::shared_ptr<Form>& reference, Body&& body);

  void AddToAddInCommandBar(StringView caption);
  void AddToAddInCommandBarEvents();
  void AddMenuCommandBarButton(const std::shared_ptr<host::CommandBar>& bar, const CommandRow& row);
  void AddMenuCommandBarPopup(const ControlsPtr& popup, const MenuItem& item);
  void AddMenuCommandBarPopupUPRCommand(const ControlsPtr& popup);
  void AddMenuComBarCommand(const ControlsPtr& popup, const TemplateRow& row);
  void AddCommandBarDinamMenu(StringView caption);
  void AddHelp(const Statements& run, const std::shared_ptr<host::CommandBar>& bar);
  template <class Step>
  void AddItem(const Step& step, const ControlsPtr& popup, const MenuItem& item);
  [[nodiscard]] ClickHandler Clicking(Operation operation);
  void Keep(Control control);
  void HookUp(Control& control, const std::shared_ptr<host::CommandBarEvents>& sink);

  /// How the Explorer follows the hiding of a dialog: not at all, once, or with a move of the
  /// cursor first.
  enum class Refresh { None, Once, WithTwitch };
  template <class Form, class... Parts>
  void ShowGuarded(StringView routine, std::shared_ptr<Form>& reference, platform::ShowStyle style,
                   const Parts&... parts);
  /// Tells a dialog whom it works for, and lets it go with the root.
  void Adopt(const std::shared_ptr<ToolForm>& form);
  template <class Form>
  void HideDialog(StringView routine, std::shared_ptr<Form>& reference, Refresh refresh);

  std::shared_ptr<host::VBE> vbInstance_;
  double vbeVersion_ = 0;
  bool explorerOpenedByUser_ = false;
  String explorerWindowGUID_;
  std::shared_ptr<host::Window> explorerWindow_;
  std::shared_ptr<udProjectExplorer> explorerDocument_;
  std::shared_ptr<host::VBControlsEvents> ctrFennickEvents_;
  std::shared_ptr<host::VBProjectsEvents> ctrVBProjectsEvents_;
  std::shared_ptr<host::VBComponentsEvents> ctrVBComponentsEvents_;
  std::vector<Control> controls_;
  std::shared_ptr<cWinProperties> WinProperties;
  std::shared_ptr<cMDIClient> MDIClient;

  std::shared_ptr<frmFragmentBuilder> FragmentBuilder;
  std::shared_ptr<frmProcedureBuilder> ProcedureBuilder;
  std::shared_ptr<frmPropertyBuilder> PropertyBuilder;
  std::shared_ptr<frmClassBuilder> ClassBuilder;
  std::shared_ptr<frmEnumBuilder> EnumBuilder;
  // What a run leaves behind is there for the next one, whichever dialog starts it.
  std::shared_ptr<mFormatText::FormatRun> formatRun_ = std::make_shared<mFormatText::FormatRun>();
  std::shared_ptr<mInsertErrorHandlerCode::RunContext> handlersRun_ =
      std::make_shared<mInsertErrorHandlerCode::RunContext>();

  std::shared_ptr<frmFormatText> FormatText;
  std::shared_ptr<frmSettings> SettingsDialog;
  std::shared_ptr<frmAbout> About;
  std::shared_ptr<frmErrorHandlerScheme> EditErrorHandlerScheme;
  std::shared_ptr<frmInsertErrorHandlerCode> InsertErrorHandlerCode;
  std::shared_ptr<frmGetFromVbCode> GetFromVbCode;
  std::shared_ptr<frmStoreToVbCode> StoreToVbCode;
  std::shared_ptr<frmRemoveErrorHandlerCode> RemoveErrorHandlerCode;

  std::shared_ptr<frmAddControl> AddControl;
  std::shared_ptr<frmControlName> ControlName;

  std::vector<std::weak_ptr<forms::Form>> dialogs_;  // all that were made and live

  int returnOkCancel_ = 0;
  String itemAddedName_, itemAddedTag_, itemAddedText_;
  bool windowsFormFennick_ = false, dialogOpen_ = false;
};

}  // namespace tessel
