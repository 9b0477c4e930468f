Attribute VB_Name = "modParse"
Option Explicit
DefLng A-Z

' Старый разбор сумм: номера строк и метки.
Public Function ParseAmount(ByVal Text As String) As Currency
10 On Error GoTo Bad
20 Text = Replace(Trim$(Text), " ", "")
30 If Len(Text) = 0 Then GoTo Nothing_
40 If Right$(Text, 1) = "-" Then
50 Text = "-" & Left$(Text, Len(Text) - 1)
60 End If
70 ParseAmount = CCur(Replace(Text, ",", "."))
80 Exit Function
Nothing_:
ParseAmount = 0
Exit Function
Bad:
MsgBox "Неверная сумма: " & Text & " (строка " & Erl & ")"
Resume Nothing_
End Function

Public Sub CountWords(ByVal Text As String, Words, Letters)
Dim i
Words = 0: Letters = 0
While i < Len(Text)
i = i + 1
If Mid$(Text, i, 1) Like "[A-Za-z]" Then Letters = Letters + 1
If Mid$(Text, i, 1) = " " Then Words = Words + 1
Wend
Words = Words + 1
End Sub
