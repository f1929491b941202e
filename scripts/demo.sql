-- A believable evening: twelve teams, six rounds of ten questions, each team's joker on the
-- round that it trusts most, and two teams that share the second place.
BEGIN;

INSERT INTO Rounds (RoundID, RoundName, RoundNumber, MaxScore)
WITH names (number, name) AS (VALUES
    (1, 'Around the World'),
    (2, 'Name That Tune'),
    (3, 'Food & Drink'),
    (4, 'Sporting Moments'),
    (5, 'Science & Nature'),
    (6, 'Pot Luck'))
SELECT printf('20260313190000%012d', number), name, number, 10 FROM names;

CREATE TEMP TABLE Sheet (Team, Name, Round1, Round2, Round3, Round4, Round5, Round6, JokerRound);
INSERT INTO Sheet VALUES
    ( 1, 'Quizzy Rascals',           8, 9, 7, 6, 8, 9, 2),
    ( 2, 'The Know-It-Ales',         7, 8, 9, 7, 8, 7, 3),
    ( 3, 'Risky Quizness',           9, 6, 7, 8, 9, 7, 5),
    ( 4, 'Let''s Get Quizzical',     6, 9, 8, 5, 7, 8, 2),
    ( 5, 'Universally Challenged',   8, 5, 6, 9, 7, 6, 4),
    ( 6, 'Tequila Mockingbird',      5, 7, 9, 4, 6, 8, 3),
    ( 7, 'Only Here for the Crisps', 6, 6, 8, 3, 5, 7, 3),
    ( 8, 'The Quizzard of Oz',       7, 8, 5, 6, 6, 5, 2),
    ( 9, 'Beer Necessities',         4, 7, 7, 8, 3, 6, 4),
    (10, 'Table Number Seven',       5, 4, 6, 7, 8, 4, 5),
    (11, 'Back of the Net',          3, 5, 4, 9, 4, 5, 4),
    (12, 'Last Orders',              2, 6, 5, 4, 3, 6, 6);

INSERT INTO Teams (TeamID, TeamName)
SELECT printf('20260313191500%012d', Team), Name FROM Sheet;

INSERT INTO Results (ResultID, RoundID, TeamID, Score, Joker)
WITH Scores (Team, Round, Score, JokerRound) AS (
    SELECT Team, 1, Round1, JokerRound FROM Sheet UNION ALL
    SELECT Team, 2, Round2, JokerRound FROM Sheet UNION ALL
    SELECT Team, 3, Round3, JokerRound FROM Sheet UNION ALL
    SELECT Team, 4, Round4, JokerRound FROM Sheet UNION ALL
    SELECT Team, 5, Round5, JokerRound FROM Sheet UNION ALL
    SELECT Team, 6, Round6, JokerRound FROM Sheet)
SELECT printf('20260313200000%010d%02d', Round, Team), printf('20260313190000%012d', Round),
       printf('20260313191500%012d', Team), Score, Round = JokerRound
FROM Scores;

DROP TABLE Sheet;
COMMIT;
