-- The main snippet database with a small starter library.

CREATE TABLE Tree (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name VARCHAR(255),
  lft INTEGER,
  rgt INTEGER,
  Root INTEGER
);
CREATE INDEX "Left" ON Tree (lft);

CREATE TABLE List (
  Id INTEGER PRIMARY KEY REFERENCES Tree (ID) ON UPDATE CASCADE ON DELETE CASCADE,
  Text TEXT,
  TitleObj TEXT,
  TextObj TEXT,
  CompObj TEXT,
  NameObj VARCHAR(50),
  ClassObj VARCHAR(3),
  TextUserNotes TEXT
);

CREATE TABLE NameMDB (Name VARCHAR(50));

INSERT INTO NameMDB (Name) VALUES ('VB Code');

INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES
  (1, 'root', 1, 22, 1),
  (2, 'Files', 2, 9, 1),
  (3, 'Read a text file', 3, 4, 0),
  (4, 'File exists', 5, 6, 0),
  (5, 'Folder with a closing backslash', 7, 8, 0),
  (6, 'Strings', 10, 15, 1),
  (7, 'Count a text in a text', 11, 12, 0),
  (8, 'Quote for SQL', 13, 14, 0),
  (9, 'Forms', 16, 21, 1),
  (10, 'Centre a form over another', 17, 18, 0),
  (11, 'Select the text of a box on entry', 19, 20, 0);

INSERT INTO List (Id, Text) VALUES
  (3, 'Public Function ReadTextFile(ByVal FileName As String) As String
    Dim FileNumber As Integer
    FileNumber = FreeFile
    Open FileName For Binary Access Read As #FileNumber
    ReadTextFile = Space$(LOF(FileNumber))
    Get #FileNumber, , ReadTextFile
    Close #FileNumber
End Function
'),
  (4, 'Public Function FileExists(ByVal FileName As String) As Boolean
    On Error Resume Next
    FileExists = (GetAttr(FileName) And vbDirectory) = 0
End Function
'),
  (5, 'Public Function WithBackslash(ByVal Folder As String) As String
    WithBackslash = Folder
    If Right$(Folder, 1) <> "\" Then WithBackslash = Folder & "\"
End Function
'),
  (7, 'Public Function CountText(ByVal Text As String, ByVal What As String) As Long
    CountText = UBound(Split(Text, What))
End Function
'),
  (8, 'Public Function SqlText(ByVal Text As String) As String
    SqlText = "''" & Replace(Text, "''", "''''") & "''"
End Function
'),
  (10, 'Public Sub CenterOver(ByVal Child As Form, ByVal Parent As Form)
    Child.Move Parent.Left + (Parent.Width - Child.Width) \ 2, Parent.Top + (Parent.Height - Child.Height) \ 2
End Sub
'),
  (11, 'Public Sub SelectAll(ByVal Box As TextBox)
    Box.SelStart = 0
    Box.SelLength = Len(Box.Text)
End Sub
');

UPDATE sqlite_sequence SET seq = 70 WHERE name = 'Tree';
