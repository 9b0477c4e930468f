Attribute VB_Name = "modMain"
Option Explicit

' Точка входа программы.
Public Accounts As New Accounts
Public Journal As New Journal

Public Sub Main()
Dim Period As New Period
Period.Init DateSerial(Year(Now), 1, 1), DateSerial(Year(Now), 12, 31)
Set Journal.Period = Period
If Command$ <> "" Then
ImportFile Command$
Else
frmDesk.Show
End If
End Sub

' Читает файл и добавляет проводки в журнал.
Public Sub ImportFile(ByVal FileName As String)
Dim FileNumber As Integer, Line As String, Count As Long
On Error GoTo Failed
FileNumber = FreeFile
Open FileName For Input As #FileNumber
Do Until EOF(FileNumber)
Line Input #FileNumber, Line
If Len(Trim$(Line)) > 0 Then
Journal.AddLine Line
Count = Count + 1
End If
Loop
Close #FileNumber
MsgBox "Загружено: " & Count, vbInformation
Exit Sub
Failed:
Close #FileNumber
MsgBox Err.Description & " (строка " & Count + 1 & ")", vbExclamation
End Sub
