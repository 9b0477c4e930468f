VERSION 5.00
Begin VB.Form frmAccount 
   Caption         =   "Счёт"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.TextBox txtNumber 
      Height          =   315
      Left            =   1440
      TabIndex        =   10
      Top             =   120
      Width           =   3135
   End
   Begin VB.TextBox txtTitle 
      Height          =   315
      Left            =   1440
      TabIndex        =   11
      Top             =   600
      Width           =   3135
   End
   Begin VB.ComboBox cboKind 
      Height          =   315
      Left            =   1440
      Style           =   2  'Dropdown List
      TabIndex        =   3
      Top             =   1080
      Width           =   3135
   End
   Begin VB.CommandButton cmdSave 
      Caption         =   "Сохранить"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   2640
      Width           =   1215
   End
End
Attribute VB_Name = "frmAccount"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
Public Account As Account

Private Sub Form_Load()
With cboKind
.AddItem "Актив": .ItemData(.NewIndex) = akAsset
.AddItem "Пассив": .ItemData(.NewIndex) = akLiability
.AddItem "Доход": .ItemData(.NewIndex) = akIncome
.AddItem "Расход": .ItemData(.NewIndex) = akExpense
.ListIndex = 0
End With
End Sub

Private Sub cmdSave_Click()
If Account Is Nothing Then Set Account = New Account
Account.Number = txtNumber
Account.Title = txtTitle
Account.Kind = cboKind.ItemData(cboKind.ListIndex)
Unload Me
End Sub
