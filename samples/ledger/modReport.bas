Attribute VB_Name = "modReport"
Option Explicit

Private Const Width As Integer = 72

Public Sub PrintTrialBalance(ByVal Accounts As Accounts, ByVal Exporter As IExporter)
Dim Account As Account
Dim Debit As Currency, Credit As Currency
Exporter.Begin "Оборотная ведомость"
For Each Account In Accounts
With Account
If .Debit <> 0 Or .Credit <> 0 Then
Exporter.WriteRow .Number, .Title, _
Format$(.Debit, "#,##0.00"), _
Format$(.Credit, "#,##0.00")
Debit = Debit + .Debit: Credit = Credit + .Credit
End If
End With
Next Account
Exporter.WriteRow "", "Итого", Format$(Debit, "#,##0.00"), Format$(Credit, "#,##0.00")
Exporter.Finish
End Sub

Public Function Ruler() As String
Ruler = String$(Width, "-")
End Function
