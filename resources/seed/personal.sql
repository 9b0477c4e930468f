-- The shared database: format rules, error-handler schemes, types and control prefixes.

CREATE TABLE FormatText (
  KeyWords TEXT NOT NULL,
  Enabled BOOLEAN NOT NULL DEFAULT 1,
  Before INTEGER NOT NULL DEFAULT 0,
  After INTEGER NOT NULL DEFAULT 0
);

-- The blank line stands behind a member and not ahead of it, so that the comment above a member stays with it.
INSERT INTO FormatText (KeyWords, Enabled, Before, After) VALUES
  ('FUNCTION', 1, 0, 0),
  ('SUB', 1, 0, 0),
  ('PROPERTY', 1, 0, 0),
  ('WITH', 1, 0, 0),
  ('FOR', 1, 0, 0),
  ('DO', 1, 0, 0),
  ('IF', 1, 0, 0),
  ('ELSE', 1, 0, 0),
  ('ELSEIF', 1, 0, 0),
  ('CASE', 1, 0, 0),
  ('NEXT', 1, 0, 0),
  ('LOOP', 1, 0, 0),
  ('END FUNCTION', 1, 0, 1),
  ('END SUB', 1, 0, 1),
  ('END PROPERTY', 1, 0, 1),
  ('END IF', 1, 0, 0),
  ('END WITH', 1, 0, 0),
  ('END SELECT', 1, 0, 0),
  ('SELECT CASE', 1, 0, 0),
  ('PRIVATE FUNCTION', 1, 0, 0),
  ('PUBLIC FUNCTION', 1, 0, 0),
  ('FRIEND FUNCTION', 1, 0, 0),
  ('STATIC FUNCTION', 1, 0, 0),
  ('PRIVATE SUB', 1, 0, 0),
  ('PUBLIC SUB', 1, 0, 0),
  ('FRIEND SUB', 1, 0, 0),
  ('STATIC SUB', 1, 0, 0),
  ('PRIVATE STATIC', 1, 0, 0),
  ('PUBLIC STATIC', 1, 0, 0),
  ('FRIEND STATIC', 1, 0, 0),
  ('PRIVATE PROPERTY', 1, 0, 0),
  ('PUBLIC PROPERTY', 1, 0, 0),
  ('FRIEND PROPERTY', 1, 0, 0),
  ('STATIC PROPERTY', 1, 0, 0);

CREATE TABLE ErrorHandlerScheme (
  NameError TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
  Header TEXT,
  Footer TEXT,
  InsertLine BOOLEAN NOT NULL DEFAULT 0,
  BaseNumber INTEGER NOT NULL DEFAULT 0,
  Step INTEGER NOT NULL DEFAULT 0,
  ChangeError BOOLEAN NOT NULL DEFAULT 0,
  LabelNameError TEXT
);

-- The labels carry the member's name, so that they meet none of the author's. {ComponentName} is not used: in a run over a project
-- it is the module that was active, not the one at hand.
INSERT INTO ErrorHandlerScheme
  (NameError, Header, Footer, InsertLine, BaseNumber, Step, ChangeError, LabelNameError) VALUES
  ('Message Box', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
MsgBox "Error " & Err.Number & " (" & Err.Description & ") in \cf1 \{MemberType\}\cf0  \cf1 \{MemberName\}\cf0  of \cf1 \{ProjectName\}\cf0 " & IIf(Erl = 0, "", ", line " & Erl), vbExclamation\par
}
', 1, 100, 10, 1, '{MemberName}_Error'),
  ('Message Box, Unnumbered', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
MsgBox "Error " & Err.Number & " (" & Err.Description & ") in \cf1 \{MemberType\}\cf0  \cf1 \{MemberName\}\cf0  of \cf1 \{ProjectName\}\cf0 ", vbExclamation\par
}
', 0, 100, 10, 1, '{MemberName}_Error'),
  ('Raise to Caller', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
Err.Raise Err.Number, "\cf1 \{ProjectName\}\cf0 .\cf1 \{MemberName\}\cf0 " & " < " & Err.Source, Err.Description\par
}
', 0, 100, 10, 1, '{MemberName}_Error'),
  ('Raise to Caller, Numbered', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
Err.Raise Err.Number, "\cf1 \{ProjectName\}\cf0 .\cf1 \{MemberName\}\cf0 " & IIf(Erl = 0, "", ":" & Erl) & " < " & Err.Source, Err.Description\par
}
', 1, 100, 10, 1, '{MemberName}_Error'),
  ('Log to File', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
Dim ErrLogFile As Integer\par
ErrLogFile = FreeFile\par
Open App.Path & "\\" & App.EXEName & ".log" For Append As #ErrLogFile\par
Print #ErrLogFile, Now & "  \cf1 \{ProjectName\}\cf0 .\cf1 \{MemberName\}\cf0 " & IIf(Erl = 0, "", ", line " & Erl) & ": " & Err.Number & " " & Err.Description\par
Close #ErrLogFile\par
}
', 1, 100, 10, 1, '{MemberName}_Error'),
  ('Log to File, Unnumbered', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
Dim ErrLogFile As Integer\par
ErrLogFile = FreeFile\par
Open App.Path & "\\" & App.EXEName & ".log" For Append As #ErrLogFile\par
Print #ErrLogFile, Now & "  \cf1 \{ProjectName\}\cf0 .\cf1 \{MemberName\}\cf0 " & ": " & Err.Number & " " & Err.Description\par
Close #ErrLogFile\par
}
', 0, 100, 10, 1, '{MemberName}_Error'),
  ('Clean Up and Exit', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;\red0\green128\blue0;}
\viewkind4\uc1\pard\f0\fs18 \cf1 \{MemberName\}\cf0 _Exit:\par
On Error Resume Next\par
\cf2 '' Release here what this \cf1 \{MemberType\}\cf2  holds.\par
\cf0 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
MsgBox "Error " & Err.Number & " (" & Err.Description & ") in \cf1 \{MemberType\}\cf0  \cf1 \{MemberName\}\cf0  of \cf1 \{ProjectName\}\cf0 ", vbExclamation\par
Resume \cf1 \{MemberName\}\cf0 _Exit\par
}
', 0, 100, 10, 1, '{MemberName}_Error'),
  ('Clean Up and Exit, Numbered', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;}
\viewkind4\uc1\pard\f0\fs18 On Error GoTo \cf1 \{MemberName\}\cf0 _Error\par
}
', '{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Courier New;}}
{\colortbl ;\red0\green0\blue255;\red0\green128\blue0;}
\viewkind4\uc1\pard\f0\fs18 \cf1 \{MemberName\}\cf0 _Exit:\par
On Error Resume Next\par
\cf2 '' Release here what this \cf1 \{MemberType\}\cf2  holds.\par
\cf0 Exit \cf1 \{MemberType\}\cf0 \par
\cf1 \{MemberName\}\cf0 _Error:\par
MsgBox "Error " & Err.Number & " (" & Err.Description & ") in \cf1 \{MemberType\}\cf0  \cf1 \{MemberName\}\cf0  of \cf1 \{ProjectName\}\cf0 " & IIf(Erl = 0, "", ", line " & Erl), vbExclamation\par
Resume \cf1 \{MemberName\}\cf0 _Exit\par
}
', 1, 100, 10, 1, '{MemberName}_Error');

CREATE TABLE MemberType (
  Name TEXT,
  Prefix TEXT
);

INSERT INTO MemberType (Name, Prefix) VALUES
  ('Boolean', 'b'),
  ('Byte', 'byt'),
  ('Collection', 'col'),
  ('Currency', 'cur'),
  ('Date', 'dt'),
  ('Double', 'dbl'),
  ('Integer', 'i'),
  ('Long', 'l'),
  ('Object', 'obj'),
  ('Single', 'sng'),
  ('String', 's'),
  ('Variant', 'v');

CREATE TABLE ControlType (
  Name TEXT,
  Prefix TEXT,
  Enable BOOLEAN NOT NULL DEFAULT 1
);

INSERT INTO ControlType (Name, Prefix, Enable) VALUES
  ('CheckBox', 'chk', 1),
  ('ComboBox', 'cbo', 1),
  ('CommandButton', 'cmd', 1),
  ('Data', 'dat', 1),
  ('DirListBox', 'dir', 1),
  ('DriveListBox', 'drv', 1),
  ('FileListBox', 'fil', 1),
  ('Form', 'frm', 1),
  ('Frame', 'fra', 1),
  ('HScrollBar', 'hsb', 1),
  ('Image', 'img', 1),
  ('Label', 'lbl', 1),
  ('Line', 'lin', 1),
  ('ListBox', 'lst', 1),
  ('Menu', 'mnu', 1),
  ('OLE', 'ole', 1),
  ('OptionButton', 'opt', 1),
  ('PictureBox', 'pic', 1),
  ('Shape', 'shp', 1),
  ('TextBox', 'txt', 1),
  ('Timer', 'tmr', 1),
  ('VScrollBar', 'vsb', 1),
  ('ImageList', 'iml', 1),
  ('ListView', 'lvw', 1),
  ('TreeView', 'tvw', 1),
  ('ProgressBar', 'prg', 1),
  ('Slider', 'sld', 1),
  ('StatusBar', 'sta', 1),
  ('TabStrip', 'tab', 1),
  ('Toolbar', 'tlb', 1),
  ('CommonDialog', 'dlg', 1),
  ('RichTextBox', 'rtf', 1),
  ('MSFlexGrid', 'flx', 1),
  ('UpDown', 'upd', 1),
  ('DTPicker', 'dtp', 1),
  ('MonthView', 'mvw', 1),
  ('ImageCombo', 'imc', 1),
  ('Winsock', 'wsk', 1),
  ('Inet', 'int', 1),
  ('MaskEdBox', 'msk', 1),
  ('SSTab', 'sst', 1),
  ('WebBrowser', 'web', 1),
  ('DataGrid', 'dgr', 1),
  ('DataCombo', 'dbc', 1),
  ('DataList', 'dbl', 1),
  ('Adodc', 'ado', 1),
  ('MSComm', 'com', 1),
  ('Animation', 'ani', 1),
  ('FlatScrollBar', 'fsb', 1),
  ('CoolBar', 'cbr', 1),
  ('MSHFlexGrid', 'hfx', 1),
  ('DataRepeater', 'drp', 1),
  ('DBGrid', 'dbg', 1),
  ('DBCombo', 'dcb', 1),
  ('DBList', 'dls', 1),
  ('MSRDC', 'rdc', 1),
  ('MSChart', 'cht', 1),
  ('MMControl', 'mci', 1),
  ('PictureClip', 'clp', 1),
  ('SysInfo', 'sys', 1),
  ('MAPISession', 'mps', 1),
  ('MAPIMessages', 'mpm', 1),
  ('ScriptControl', 'scr', 1),
  ('Grid', 'grd', 1),
  ('SpinButton', 'spn', 1),
  ('Gauge', 'gau', 1),
  ('Graph', 'gra', 1),
  ('Outline', 'out', 1),
  ('MhState', 'key', 1),
  ('AniPushButton', 'apb', 1),
  ('SSPanel', 'pnl', 1),
  ('SSFrame', 'sfr', 1),
  ('SSCommand', 'scm', 1),
  ('SSCheck', 'sck', 1),
  ('SSOption', 'sop', 1),
  ('SSRibbon', 'rib', 1),
  ('ToggleButton', 'tgl', 1),
  ('MultiPage', 'mlp', 1),
  ('ScrollBar', 'scb', 1);
