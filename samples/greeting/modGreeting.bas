Attribute VB_Name = "modGreeting"
Option Explicit

Public Const Greeting As String = "Schöne Grüße, café!"

' Gives the greeting for an hour of the day.
Public Function GreetingFor(ByVal Hour As Integer) As String
Select Case Hour
Case 0 To 11
GreetingFor = "Good morning"
Case 12 To 17: GreetingFor = "Good afternoon"   ' one line
Case Else
GreetingFor = "Good evening"
End Select
End Function


Public Sub Greet(ByVal Name As String, _
    Optional ByVal Hour As Integer = 9)
    Dim Text As String
If Len(Name) = 0 Then
      MsgBox Greeting
  Else
Text = GreetingFor(Hour) & ", " & _
  Name & "!"
        MsgBox Text, vbInformation
End If
End Sub
