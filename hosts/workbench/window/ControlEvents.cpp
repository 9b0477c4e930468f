#include "hosts/workbench/window/ControlEvents.h"

#include <algorithm>
#include <array>

namespace tessel::workbench {
namespace {

constexpr ObjectEvent Click{u"Click", u""}, DblClick{u"DblClick", u""}, Change{u"Change", u""},
    GotFocus{u"GotFocus", u""}, LostFocus{u"LostFocus", u""}, Scroll{u"Scroll", u""},
    Resize{u"Resize", u""}, Paint{u"Paint", u""}, Initialize{u"Initialize", u""},
    Terminate{u"Terminate", u""}, Validate{u"Validate", u"Cancel As Boolean"},
    KeyDown{u"KeyDown", u"KeyCode As Integer, Shift As Integer"},
    KeyPress{u"KeyPress", u"KeyAscii As Integer"},
    KeyUp{u"KeyUp", u"KeyCode As Integer, Shift As Integer"},
    MouseDown{u"MouseDown", u"Button As Integer, Shift As Integer, X As Single, Y As Single"},
    MouseMove{u"MouseMove", u"Button As Integer, Shift As Integer, X As Single, Y As Single"},
    MouseUp{u"MouseUp", u"Button As Integer, Shift As Integer, X As Single, Y As Single"},
    Load{u"Load", u""}, Unload{u"Unload", u"Cancel As Integer"}, Activate{u"Activate", u""},
    Deactivate{u"Deactivate", u""},
    QueryUnload{u"QueryUnload", u"Cancel As Integer, UnloadMode As Integer"};

constexpr std::array ButtonEvents{Click,     GotFocus,  KeyDown,   KeyPress, KeyUp,
                                  LostFocus, MouseDown, MouseMove, MouseUp,  Validate};
constexpr std::array CheckEvents = ButtonEvents;
constexpr std::array OptionEvents{Click,     DblClick,  GotFocus,  KeyDown, KeyPress, KeyUp,
                                  LostFocus, MouseDown, MouseMove, MouseUp, Validate};
constexpr std::array TextEvents{Change, Click,     DblClick,  GotFocus,  KeyDown, KeyPress,
                                KeyUp,  LostFocus, MouseDown, MouseMove, MouseUp, Validate};
constexpr std::array ListEvents{Click,     DblClick,  GotFocus,  KeyDown, KeyPress, KeyUp,
                                LostFocus, MouseDown, MouseMove, MouseUp, Scroll,   Validate};
constexpr std::array ComboEvents{Change,   Click, DblClick,  GotFocus, KeyDown,
                                 KeyPress, KeyUp, LostFocus, Scroll,   Validate};
constexpr std::array FolderEvents{Change, Click,     DblClick,  GotFocus,  KeyDown, KeyPress,
                                  KeyUp,  LostFocus, MouseDown, MouseMove, MouseUp, Scroll};
constexpr std::array DataEvents{ObjectEvent{u"Validate", u"Action As Integer, Save As Integer"},
                                ObjectEvent{u"Reposition", u""},
                                MouseDown,
                                MouseMove,
                                MouseUp,
                                Resize};
constexpr std::array OleEvents{
    ObjectEvent{u"Updated", u"Code As Integer"}, Click, DblClick, GotFocus, LostFocus, Resize};
constexpr std::array LabelEvents{Click, Change, DblClick, MouseDown, MouseMove, MouseUp};
constexpr std::array FrameEvents{Click, DblClick, MouseDown, MouseMove, MouseUp};
constexpr std::array PictureEvents{Click,    Change, DblClick,  GotFocus,  KeyDown,
                                   KeyPress, KeyUp,  LostFocus, MouseDown, MouseMove,
                                   MouseUp,  Paint,  Resize,    Validate};
constexpr std::array ScrollEvents{Change, GotFocus,  KeyDown, KeyPress,
                                  KeyUp,  LostFocus, Scroll,  Validate};
constexpr std::array TimerEvents{ObjectEvent{u"Timer", u""}};
constexpr std::array MenuEvents{Click};
constexpr std::array FormEvents{Load,        Activate,   Click,     DblClick, Deactivate,
                                GotFocus,    Initialize, KeyDown,   KeyPress, KeyUp,
                                LostFocus,   MouseDown,  MouseMove, MouseUp,  Paint,
                                QueryUnload, Resize,     Terminate, Unload};
constexpr std::array ControlRootEvents{Initialize,
                                       ObjectEvent{u"InitProperties", u""},
                                       ObjectEvent{u"ReadProperties", u"PropBag As PropertyBag"},
                                       ObjectEvent{u"WriteProperties", u"PropBag As PropertyBag"},
                                       Resize,
                                       Paint,
                                       Click,
                                       MouseDown,
                                       MouseMove,
                                       MouseUp,
                                       KeyDown,
                                       KeyPress,
                                       KeyUp,
                                       Terminate};
constexpr std::array PageEvents{ObjectEvent{u"ApplyChanges", u""},
                                ObjectEvent{u"SelectionChanged", u""}, Initialize, Terminate};
constexpr std::array ClassEvents{Initialize, Terminate};

struct ClassEventTable {
  StringView Class;
  std::span<const ObjectEvent> Events;
};

const std::array Tables{ClassEventTable{u"VB.CommandButton", ButtonEvents},
                        ClassEventTable{u"VB.CheckBox", CheckEvents},
                        ClassEventTable{u"VB.OptionButton", OptionEvents},
                        ClassEventTable{u"VB.TextBox", TextEvents},
                        ClassEventTable{u"VB.ListBox", ListEvents},
                        ClassEventTable{u"VB.DirListBox", FolderEvents},
                        ClassEventTable{u"VB.FileListBox", ListEvents},
                        ClassEventTable{u"VB.ComboBox", ComboEvents},
                        ClassEventTable{u"VB.DriveListBox", ComboEvents},
                        ClassEventTable{u"VB.Label", LabelEvents},
                        ClassEventTable{u"VB.Frame", FrameEvents},
                        ClassEventTable{u"VB.Image", FrameEvents},
                        ClassEventTable{u"VB.PictureBox", PictureEvents},
                        ClassEventTable{u"VB.HScrollBar", ScrollEvents},
                        ClassEventTable{u"VB.VScrollBar", ScrollEvents},
                        ClassEventTable{u"VB.Data", DataEvents},
                        ClassEventTable{u"VB.OLE", OleEvents},
                        ClassEventTable{u"VB.Timer", TimerEvents},
                        ClassEventTable{u"VB.Menu", MenuEvents},
                        ClassEventTable{u"VB.Form", FormEvents},
                        ClassEventTable{u"VB.MDIForm", FormEvents},
                        ClassEventTable{u"VB.UserControl", ControlRootEvents},
                        ClassEventTable{u"VB.UserDocument", ControlRootEvents},
                        ClassEventTable{u"VB.PropertyPage", PageEvents},
                        ClassEventTable{u"Class", ClassEvents}};

}  // namespace

std::span<const ObjectEvent> EventsOf(StringView className) {
  const auto found = std::find_if(Tables.begin(), Tables.end(), [&](const ClassEventTable& one) {
    return vb::SameText(one.Class, className);
  });
  return found == Tables.end() ? std::span<const ObjectEvent>() : found->Events;
}

}  // namespace tessel::workbench
