VERSION 5.00
Begin VB.MDIForm frmDesk 
   Caption         =   "Книга счетов"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   Icon            =   "frmDesk.frx":0000
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.Menu mnuFile 
      Caption         =   "&Файл"
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Открыть..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "В&ыход"
      End
   End
End
Attribute VB_Name = "frmDesk"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub MDIForm_Load()
Caption = ProgramTitle
frmJournal.Show
End Sub

Private Sub mnuFileExit_Click()
Unload Me
End Sub

Private Sub mnuFileOpen_Click()
Dim FileName As String
FileName = InputBox("Имя файла:", ProgramTitle)
If FileName <> "" Then ImportFile FileName
End Sub
