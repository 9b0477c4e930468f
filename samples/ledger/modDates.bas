Attribute VB_Name = "modDates"
Option Explicit

Public Function FirstOfMonth(ByVal Day As Date) As Date
FirstOfMonth = DateSerial(Year(Day), Month(Day), 1)
End Function

Public Function LastOfMonth(ByVal Day As Date) As Date
LastOfMonth = DateSerial(Year(Day), Month(Day) + 1, 0)
End Function

' Ќазвание мес€ца по-русски.
Public Function MonthTitle(ByVal Month As Integer) As String
Select Case Month
Case 1: MonthTitle = "€нварь"
Case 2: MonthTitle = "февраль"
Case 3: MonthTitle = "март"
Case 4 To 6
MonthTitle = Choose(Month - 3, "апрель", "май", "июнь")
Case 7 To 9
MonthTitle = Choose(Month - 6, "июль", "август", "сент€брь")
Case Else
MonthTitle = Choose(Month - 9, "окт€брь", "но€брь", "декабрь")
End Select
End Function

Public Function IsWorkday(ByVal Day As Date) As Boolean
IsWorkday = Weekday(Day, vbMonday) < 6 And Not IsHoliday(Day)
End Function

Private Function IsHoliday(ByVal Day As Date) As Boolean
Dim Holiday As Variant
For Each Holiday In Array(#1/1/2000#, #3/8/2000#, #5/1/2000#, #5/9/2000#)
If Month(Holiday) = Month(Day) And VBA.Day(Holiday) = VBA.Day(Day) Then
IsHoliday = True
Exit Function
End If
Next
End Function
