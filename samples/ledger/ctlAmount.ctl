VERSION 5.00
Begin VB.UserControl ctlAmount 
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   Icon            =   "ctlAmount.ctx":0000
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.TextBox txtValue 
      Height          =   315
      Left            =   1440
      TabIndex        =   10
      Top             =   120
      Width           =   3135
   End
End
Attribute VB_Name = "ctlAmount"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Option Explicit
'Event Declarations:
Event Change()

Public Property Get Value() As Currency
Attribute Value.VB_UserMemId = 0
Attribute Value.VB_MemberFlags = "200"
Value = ParseAmount(txtValue.Text)
End Property

Public Property Let Value(ByVal New_Value As Currency)
txtValue.Text = Format$(New_Value, "0.00")
PropertyChanged "Value"
End Property

Private Sub txtValue_Change()
RaiseEvent Change
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
Value = PropBag.ReadProperty("Value", 0)
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
Call PropBag.WriteProperty("Value", Value, 0)
End Sub
