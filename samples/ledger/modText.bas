Attribute VB_Name = "modText"
Option Explicit

Public Function Quote(ByVal Text As String) As String
Quote = """" & Replace(Text, """", """""") & """"
End Function

Public Function SplitFields(ByVal Line As String) As Collection
Dim Position As Long, Start As Long, InQuotes As Boolean
Set SplitFields = New Collection
Start = 1
For Position = 1 To Len(Line)
Select Case Mid$(Line, Position, 1)
Case """"
InQuotes = Not InQuotes
Case ";"
If Not InQuotes Then
SplitFields.Add Unquote(Mid$(Line, Start, Position - Start))
Start = Position + 1
End If
End Select
Next Position
SplitFields.Add Unquote(Mid$(Line, Start))
End Function

Public Function Unquote(ByVal Text As String) As String
Text = Trim$(Text)
If Left$(Text, 1) = """" And Right$(Text, 1) = """" And Len(Text) > 1 Then
Unquote = Replace(Mid$(Text, 2, Len(Text) - 2), """""", """")
Else
Unquote = Text
End If
End Function

' it's a comment with an apostrophe: and a colon
Public Function PadLeft(ByVal Text As String, ByVal Width As Integer, Optional ByVal Fill As String = " ") As String
If Len(Text) >= Width Then PadLeft = Text Else PadLeft = String$(Width - Len(Text), Fill) & Text
End Function
