VERSION 5.00
Begin VB.Form frmPosting 
   Caption         =   "Проводка"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.Label lblField 
      Caption         =   "Дата"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   20
      Top             =   150
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "Дебет"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   21
      Top             =   630
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "Кредит"
      Height          =   255
      Index           =   2
      Left            =   120
      TabIndex        =   22
      Top             =   1110
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "Сумма"
      Height          =   255
      Index           =   3
      Left            =   120
      TabIndex        =   23
      Top             =   1590
      Width           =   1215
   End
   Begin VB.TextBox txtDay 
      Height          =   315
      Left            =   1440
      TabIndex        =   10
      Top             =   120
      Width           =   3135
   End
   Begin VB.TextBox txtDebit 
      Height          =   315
      Left            =   1440
      TabIndex        =   11
      Top             =   600
      Width           =   3135
   End
   Begin VB.TextBox txtCredit 
      Height          =   315
      Left            =   1440
      TabIndex        =   12
      Top             =   1080
      Width           =   3135
   End
   Begin VB.TextBox txtAmount 
      Height          =   315
      Left            =   1440
      TabIndex        =   13
      Top             =   1560
      Width           =   3135
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   2640
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Caption         =   "Отмена"
      Height          =   375
      Left            =   1420
      TabIndex        =   1
      Top             =   2640
      Width           =   1215
   End
End
Attribute VB_Name = "frmPosting"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdOK_Click()
On Error GoTo Bad
Journal.AddLine txtDay & ";" & txtDebit & ";" & txtCredit & ";" & txtAmount
Unload Me
Exit Sub
Bad:
MsgBox Err.Description, vbExclamation
txtAmount.SetFocus
End Sub

Private Sub cmdCancel_Click()
Unload Me
End Sub

Private Sub txtAmount_KeyPress(KeyAscii As Integer)
Select Case KeyAscii
Case 8, 13
Case Asc("0") To Asc("9"), Asc(","), Asc("."), Asc("-")
Case Else
KeyAscii = 0
End Select
End Sub

Private Sub txtDay_Validate(Cancel As Boolean)
If Not IsDate(txtDay.Text) Then
MsgBox "Неверная дата"
Cancel = True
ElseIf Not Journal.Period.Contains(CDate(txtDay.Text)) Then
MsgBox "Дата вне периода " & Journal.Period.Title
Cancel = True
End If
End Sub
