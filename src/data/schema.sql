-- The empty quiz that ships. Keys are made by the program; a result whose team or round was deleted
-- stays, so no table refers to another.
CREATE TABLE Teams (
    TeamID TEXT NOT NULL PRIMARY KEY,
    TeamName TEXT COLLATE NOCASE
);
CREATE TABLE Rounds (
    RoundID TEXT NOT NULL PRIMARY KEY,
    RoundName TEXT COLLATE NOCASE,
    RoundNumber INTEGER,
    MaxScore INTEGER
);
CREATE TABLE Results (
    ResultID TEXT NOT NULL PRIMARY KEY,
    RoundID TEXT,
    TeamID TEXT,
    Score INTEGER,
    Joker INTEGER
);
CREATE INDEX ResultsByRound ON Results (RoundID);
-- Holds all that the standings read of a team in one place.
CREATE INDEX ResultsByTeam ON Results (TeamID, RoundID, Score, Joker, ResultID);
