Attribute VB_Name = "modWinApi"
Option Explicit

#If Win32 Then
Private Declare Function GetTickCount Lib "kernel32" () As Long
Private Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)
#Else
Private Declare Function GetTickCount Lib "user" () As Long
#End If
Private Declare Function GetUserName Lib "advapi32.dll" Alias "GetUserNameA" ( _
    ByVal lpBuffer As String, _
    nSize As Long) As Long

Public Type Watch
Started As Long
Label As String
End Type

Public Enum WaitResult
waitDone = 0
waitTimeout = 258
End Enum

#If Win32 Then
Public Sub Pause(ByVal Milliseconds As Long)
Sleep Milliseconds
End Sub
#Else
Public Sub PauseShort(ByVal Milliseconds As Long)
Dim Until As Long
Until = GetTickCount + Milliseconds
Do While GetTickCount < Until: DoEvents: Loop
End Sub
#End If

Public Function StartWatch(ByVal Label As String) As Watch
StartWatch.Started = GetTickCount: StartWatch.Label = Label
End Function

Public Function UserName() As String
Dim Buffer As String, Size As Long
Size = 255: Buffer = Space$(Size)
If GetUserName(Buffer, Size) <> 0 Then UserName = Left$(Buffer, Size - 1)
End Function
