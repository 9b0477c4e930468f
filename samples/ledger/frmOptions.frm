VERSION 5.00
Begin VB.Form frmOptions 
   Caption         =   "Настройки"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.Frame fraGeneral 
      Caption         =   "Общие"
      Height          =   2415
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   4455
      Begin VB.CheckBox chkAsk 
         Caption         =   "Спрашивать"
         Height          =   255
         Left            =   240
         TabIndex        =   1
         Top             =   360
         Width           =   2175
      End
      Begin VB.OptionButton optFormat 
         Caption         =   "CSV"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   2
         Top             =   840
         Width           =   1215
      End
      Begin VB.OptionButton optFormat 
         Caption         =   "Текст"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   3
         Top             =   1200
         Width           =   1215
      End
   End
End
Attribute VB_Name = "frmOptions"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
chkAsk.Value = GetSetting(App.Title, "Options", "Ask", vbChecked)
optFormat(GetSetting(App.Title, "Options", "Format", 0)).Value = True
End Sub

Private Sub Form_Unload(Cancel As Integer)
SaveSetting App.Title, "Options", "Ask", chkAsk.Value
End Sub

Private Sub optFormat_Click(Index As Integer)
SaveSetting App.Title, "Options", "Format", Index
End Sub
