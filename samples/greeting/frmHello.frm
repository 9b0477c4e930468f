VERSION 5.00
Begin VB.Form frmHello 
   Caption         =   "Grüße"
   ClientHeight    =   1500
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   3600
   LinkTopic       =   "Form1"
   ScaleHeight     =   1500
   ScaleWidth      =   3600
   StartUpPosition =   3  'Windows Default
   Begin VB.TextBox txtName 
      Height          =   315
      Left            =   120
      TabIndex        =   0
      Text            =   "Zoë"
      Top             =   120
      Width           =   3375
   End
   Begin VB.CommandButton cmdGreet 
      Caption         =   "&Greet"
      Default         =   -1  'True
      Height          =   375
      Left            =   2280
      TabIndex        =   1
      Top             =   960
      Width           =   1215
   End
End
Attribute VB_Name = "frmHello"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdGreet_Click()
Greet txtName.Text, Hour(Now)
End Sub

Private Sub Form_Load()
txtName.SelStart = 0
txtName.SelLength = Len(txtName.Text)
End Sub
