Attribute VB_Name = "modConstants"
Option Explicit

' Only declarations live here.
Public Const ProgramTitle As String = " нига счетов"
Public Const MaxAccounts As Long = 10000

Public Enum AccountKind
akAsset = 1
akLiability
akIncome
akExpense
End Enum

Public Type PostingRow
Day As Date
Debit As String * 8
Credit As String * 8
Amount As Currency
Note As String
End Type
