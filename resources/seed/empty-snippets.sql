-- An empty snippet database: one root, and the next node gets the number 71.

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

-- What the trees show of a record, so that a load need not read the texts beside it.
CREATE INDEX ListObjects ON List (Id, NameObj, ClassObj);

CREATE TABLE NameMDB (Name VARCHAR(50));

INSERT INTO NameMDB (Name) VALUES ('User Database');
INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (1, 'root', 1, 2, 1);
INSERT INTO sqlite_sequence (name, seq) SELECT 'Tree', 70 WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name = 'Tree');
UPDATE sqlite_sequence SET seq = 70 WHERE name = 'Tree';
