VERSION 5.00
Begin VB.Form frmJournal 
   Caption         =   "Журнал"
   ClientHeight    =   3090
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   4680
   Icon            =   "frmJournal.frx":0000
   ScaleHeight     =   3090
   ScaleWidth      =   4680
   Begin VB.ListBox lstPostings 
      Height          =   2400
      ItemData        =   "frmJournal.frx":0000
      Left            =   120
      List            =   "frmJournal.frx":0002
      TabIndex        =   0
      Top             =   120
      Width           =   4455
   End
   Begin VB.CommandButton cmdAdd 
      Caption         =   "&Добавить"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   2640
      Width           =   1215
   End
   Begin VB.CommandButton cmdClose 
      Caption         =   "&Закрыть"
      Height          =   375
      Left            =   1420
      TabIndex        =   1
      Top             =   2640
      Width           =   1215
   End
End
Attribute VB_Name = "frmJournal"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mJournal As Journal
Attribute mJournal.VB_VarHelpID = -1

Private Sub cmdAdd_Click()
frmPosting.Show vbModal
End Sub

Private Sub cmdClose_Click(): Unload Me: End Sub

Private Sub Form_Load()
Set mJournal = modMain.Journal
End Sub

Private Sub mJournal_Booked(ByVal Posting As Posting)
lstPostings.AddItem Posting.Day & "  " & Posting.Debit & " / " & Posting.Credit & "  " & Format$(Posting.Amount, "0.00")
lstPostings.ItemData(lstPostings.NewIndex) = Posting.Id
End Sub

Private Sub mJournal_Refused(ByVal Posting As Posting, Cancel As Boolean)
Cancel = (MsgBox("Вне периода. Пропустить?", vbYesNo + vbQuestion) = vbYes)
End Sub
