VERSION 5.00
Begin VB.Form frmFind 
   Caption         =   "Поиск"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.TextBox txtFind 
      Height          =   315
      Left            =   1440
      TabIndex        =   10
      Top             =   120
      Width           =   3135
   End
   Begin VB.CommandButton cmdNext 
      Caption         =   "Дальше"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   2640
      Width           =   1215
   End
End
Attribute VB_Name = "frmFind"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdNext_Click()
Dim i As Long
For i = 0 To frmJournal.lstPostings.ListCount - 1
If InStr(1, frmJournal.lstPostings.List(i), txtFind, vbTextCompare) > 0 Then
frmJournal.lstPostings.ListIndex = i
Exit For
End If
Next i
End Sub
