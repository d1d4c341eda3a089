-- Tallyboard.mdb as it was delivered before files carried a version, with a school of one student in it.
-- It stays as it is: offices have files like this one.

CREATE TABLE StateMaster (
    StateCode INTEGER PRIMARY KEY,
    StateName VARCHAR(30) COLLATE NOCASE CHECK (length(StateName) <= 30),
    UserCode INTEGER);

CREATE TABLE CityMaster (
    CityCode INTEGER PRIMARY KEY,
    StateCode INTEGER REFERENCES StateMaster,
    CityName VARCHAR(30) COLLATE NOCASE CHECK (length(CityName) <= 30),
    UserCode INTEGER);

CREATE TABLE BloodGroupMaster (
    BloodGroupCode INTEGER PRIMARY KEY,
    BloodGroupName VARCHAR(5) COLLATE NOCASE CHECK (length(BloodGroupName) <= 5),
    UserCode INTEGER);

CREATE TABLE SalutationMaster (
    SalutationCode INTEGER PRIMARY KEY,
    SalutationName VARCHAR(5) COLLATE NOCASE CHECK (length(SalutationName) <= 5),
    UserCode INTEGER);

CREATE TABLE ExamMaster (
    ExamCode INTEGER PRIMARY KEY,
    ExamName VARCHAR(50) COLLATE NOCASE CHECK (length(ExamName) <= 50),
    ExamOrder INTEGER UNIQUE CHECK (ExamOrder BETWEEN 0 AND 99999),
    UserCode INTEGER);

CREATE TABLE SubjectMaster (
    SubjectCode INTEGER PRIMARY KEY,
    SubjectName VARCHAR(25) COLLATE NOCASE CHECK (length(SubjectName) <= 25),
    SubjectShortName VARCHAR(6) COLLATE NOCASE CHECK (length(SubjectShortName) <= 6),
    UserCode INTEGER);

CREATE TABLE TeacherMaster (
    TeacherCode INTEGER PRIMARY KEY,
    SalutationCode INTEGER REFERENCES SalutationMaster,
    TeacherName VARCHAR(100) COLLATE NOCASE CHECK (length(TeacherName) <= 100),
    TeacherShortName VARCHAR(3) COLLATE NOCASE CHECK (length(TeacherShortName) <= 3) UNIQUE,
    DOB VARCHAR(10) CHECK (DOB IS date(DOB, '+0 days')),
    MaritalStatus VARCHAR(1) COLLATE NOCASE CHECK (length(MaritalStatus) <= 1) CHECK (MaritalStatus IN ('M', 'S', '')),
    WeddingDate VARCHAR(10) CHECK (WeddingDate IS date(WeddingDate, '+0 days')),
    JoiningDate VARCHAR(10) CHECK (JoiningDate IS date(JoiningDate, '+0 days')),
    FHName VARCHAR(100) COLLATE NOCASE CHECK (length(FHName) <= 100),
    Address1 VARCHAR(100) COLLATE NOCASE CHECK (length(Address1) <= 100),
    Address2 VARCHAR(100) COLLATE NOCASE CHECK (length(Address2) <= 100),
    CityCode INTEGER REFERENCES CityMaster,
    PinCode VARCHAR(15) COLLATE NOCASE CHECK (length(PinCode) <= 15),
    Telephone VARCHAR(20) COLLATE NOCASE CHECK (length(Telephone) <= 20),
    BloodGroupCode INTEGER REFERENCES BloodGroupMaster,
    Qualification VARCHAR(50) COLLATE NOCASE CHECK (length(Qualification) <= 50),
    UserCode INTEGER);

CREATE TABLE ClassDivisionMaster (
    ClassCode INTEGER PRIMARY KEY,
    ClassName VARCHAR(4) COLLATE NOCASE CHECK (length(ClassName) <= 4),
    NoOfDivisions INTEGER CHECK (NoOfDivisions BETWEEN 0 AND 99),
    ClassOrder INTEGER,
    UserCode INTEGER);

CREATE TABLE ClassDivisionDetails (
    ClassCode INTEGER REFERENCES ClassDivisionMaster,
    DivisionName VARCHAR(3) COLLATE NOCASE CHECK (length(DivisionName) <= 3),
    DivisionCode INTEGER,
    PRIMARY KEY (ClassCode, DivisionCode)) WITHOUT ROWID;

CREATE TABLE MonthMaster (
    MonthSlNo INTEGER PRIMARY KEY CHECK (MonthSlNo BETWEEN 1 AND 12),
    MonthShortName VARCHAR(3) COLLATE NOCASE CHECK (length(MonthShortName) <= 3),
    MonthCode INTEGER);

CREATE TABLE SchoolMaster (
    SchoolName VARCHAR(100) COLLATE NOCASE CHECK (length(SchoolName) <= 100),
    SAddress1 VARCHAR(100) COLLATE NOCASE CHECK (length(SAddress1) <= 100),
    SAddress2 VARCHAR(100) COLLATE NOCASE CHECK (length(SAddress2) <= 100),
    CCityCode INTEGER REFERENCES CityMaster,
    CPinCode VARCHAR(10) COLLATE NOCASE CHECK (length(CPinCode) <= 10),
    MonthShortName VARCHAR(3) COLLATE NOCASE CHECK (length(MonthShortName) <= 3),
    UserCode INTEGER);

CREATE TABLE SchoolSetUp (
    SchoolName VARCHAR(100) COLLATE NOCASE CHECK (length(SchoolName) <= 100),
    Address1 VARCHAR(100) COLLATE NOCASE CHECK (length(Address1) <= 100),
    Address2 VARCHAR(100) COLLATE NOCASE CHECK (length(Address2) <= 100),
    CityCode INTEGER REFERENCES CityMaster,
    PinCode VARCHAR(10) COLLATE NOCASE CHECK (length(PinCode) <= 10));

CREATE TABLE AcademicYearSetup (
    AcademicYearCode INTEGER PRIMARY KEY,
    YearFrom INTEGER CHECK (YearFrom BETWEEN 1980 AND 2099),
    YearTo INTEGER CHECK (YearTo BETWEEN 1980 AND 2099),
    FromDate VARCHAR(10) CHECK (FromDate IS date(FromDate, '+0 days')),
    ToDate VARCHAR(10) CHECK (ToDate IS date(ToDate, '+0 days')),
    Status VARCHAR(1) COLLATE NOCASE CHECK (length(Status) <= 1) CHECK (Status IN ('Y', 'N')),
    Processed VARCHAR(1) COLLATE NOCASE CHECK (length(Processed) <= 1) CHECK (Processed IN ('Y', 'N')),
    UserCode INTEGER);

CREATE TABLE ApplicationDate (
    ApplicationDate VARCHAR(10) CHECK (ApplicationDate IS date(ApplicationDate, '+0 days')) PRIMARY KEY,
    UserCode INTEGER);

CREATE TABLE Options (
    ExitPrompt VARCHAR(1) COLLATE NOCASE CHECK (length(ExitPrompt) <= 1) CHECK (ExitPrompt IN ('Y', 'N', '')),
    AdmissionNoAutoGen VARCHAR(1) COLLATE NOCASE CHECK (length(AdmissionNoAutoGen) <= 1) CHECK (AdmissionNoAutoGen IN ('Y', 'N', '')),
    DateOfBirthSetting VARCHAR(10) CHECK (DateOfBirthSetting IS date(DateOfBirthSetting, '+0 days')),
    GenderOption VARCHAR(1) COLLATE NOCASE CHECK (length(GenderOption) <= 1) CHECK (GenderOption IN ('M', 'F', 'A', '')),
    MarksInFraction VARCHAR(1) COLLATE NOCASE CHECK (length(MarksInFraction) <= 1) CHECK (MarksInFraction IN ('Y', 'N', '')),
    MarksRounded VARCHAR(1) COLLATE NOCASE CHECK (length(MarksRounded) <= 1) CHECK (MarksRounded IN ('Y', 'N', '')));

CREATE TABLE ScreenStatus (
    Screen VARCHAR(50) COLLATE NOCASE CHECK (length(Screen) <= 50) PRIMARY KEY);

CREATE TABLE AccessedDate (
    AccessedDate VARCHAR(10) CHECK (AccessedDate IS date(AccessedDate, '+0 days')));

CREATE TABLE ExamBoardMaster (
    BoardCode INTEGER,
    BoardNo INTEGER,
    Status VARCHAR(1) COLLATE NOCASE CHECK (length(Status) <= 1));

CREATE TABLE ControlFileMaster (
    ID VARCHAR(50) COLLATE NOCASE CHECK (length(ID) <= 50),
    NextNo INTEGER);

CREATE TABLE MRCODE (
    MRCODE VARCHAR(20) COLLATE NOCASE CHECK (length(MRCODE) <= 20));

CREATE TABLE UserMaster (
    UserCode INTEGER PRIMARY KEY,
    UserName VARCHAR(50) COLLATE NOCASE CHECK (length(UserName) <= 50),
    EnteredBy INTEGER);

CREATE TABLE UserPrivilegeMaster (
    UserCode INTEGER PRIMARY KEY REFERENCES UserMaster,
    LoginId VARCHAR(15) COLLATE NOCASE CHECK (length(LoginId) <= 15) UNIQUE,
    Password VARCHAR(15) COLLATE NOCASE CHECK (length(Password) <= 15),
    Block VARCHAR(1) COLLATE NOCASE CHECK (length(Block) <= 1) CHECK (Block IN ('Y', 'N')),
    EnteredBy INTEGER,
    Days INTEGER CHECK (Days BETWEEN 0 AND 365));

CREATE TABLE UserPrivilegeDetails (
    FormName VARCHAR(50) COLLATE NOCASE CHECK (length(FormName) <= 50),
    ButtonName VARCHAR(1) COLLATE NOCASE CHECK (length(ButtonName) <= 1),
    UserCode INTEGER REFERENCES UserMaster);

CREATE TABLE StudentMaster (
    StudentCode INTEGER PRIMARY KEY,
    AdmissionNo INTEGER UNIQUE CHECK (AdmissionNo BETWEEN 0 AND 999999999),
    OptionalAdmissionNo VARCHAR(15) COLLATE NOCASE CHECK (length(OptionalAdmissionNo) <= 15) UNIQUE,
    AdmissionDate VARCHAR(10) CHECK (AdmissionDate IS date(AdmissionDate, '+0 days')),
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    StudentName VARCHAR(100) COLLATE NOCASE CHECK (length(StudentName) <= 100),
    FgName VARCHAR(100) COLLATE NOCASE CHECK (length(FgName) <= 100),
    Sex VARCHAR(1) COLLATE NOCASE CHECK (length(Sex) <= 1) CHECK (Sex IN ('M', 'F', '')),
    Address1 VARCHAR(100) COLLATE NOCASE CHECK (length(Address1) <= 100),
    Address2 VARCHAR(100) COLLATE NOCASE CHECK (length(Address2) <= 100),
    CityCode INTEGER REFERENCES CityMaster,
    Pincode VARCHAR(15) COLLATE NOCASE CHECK (length(Pincode) <= 15),
    Telephone VARCHAR(20) COLLATE NOCASE CHECK (length(Telephone) <= 20),
    Email VARCHAR(50) COLLATE NOCASE CHECK (length(Email) <= 50),
    DOB VARCHAR(10) CHECK (DOB IS date(DOB, '+0 days')),
    BloodGroupCode INTEGER REFERENCES BloodGroupMaster,
    ManGenAutoGen VARCHAR(1) COLLATE NOCASE CHECK (length(ManGenAutoGen) <= 1) CHECK (ManGenAutoGen IN ('Y', 'N', '')),
    RelievingDate VARCHAR(10) CHECK (RelievingDate IS date(RelievingDate, '+0 days')),
    RelievingReason VARCHAR(100) COLLATE NOCASE CHECK (length(RelievingReason) <= 100),
    TCNo VARCHAR(15) COLLATE NOCASE CHECK (length(TCNo) <= 15),
    TCDate VARCHAR(10) CHECK (TCDate IS date(TCDate, '+0 days')),
    UserCode INTEGER);

CREATE TABLE StudentClassDivision (
    StudentCode INTEGER REFERENCES StudentMaster,
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    Status VARCHAR(1) COLLATE NOCASE CHECK (length(Status) <= 1) CHECK (Status IN ('Y', 'N')),
    UserCode INTEGER,
    PRIMARY KEY (StudentCode, AcademicYearCode),
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails) WITHOUT ROWID;

CREATE TABLE ClassSubjectTeacher (
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster,
    TeacherCode INTEGER REFERENCES TeacherMaster,
    MaximumMark DOUBLE,
    MaximumAllowed DOUBLE,
    TakenForRank VARCHAR(3) COLLATE NOCASE CHECK (length(TakenForRank) <= 3) CHECK (TakenForRank IN ('Yes', 'No')),
    SlNo INTEGER CHECK (SlNo BETWEEN 0 AND 99999),
    PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, SubjectCode),
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails) WITHOUT ROWID;

CREATE TABLE RankMaster (
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    ExamCode INTEGER REFERENCES ExamMaster,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    TotalAverage DOUBLE,
    SubjectAverage DOUBLE,
    Grade VARCHAR(2) COLLATE NOCASE CHECK (length(Grade) <= 2),
    Status INTEGER,
    UserCode INTEGER,
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails);

CREATE TABLE MarkMaster (
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    StudentCode INTEGER REFERENCES StudentMaster,
    ExamCode INTEGER REFERENCES ExamMaster,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster,
    Mark DOUBLE,
    LeaveOrPresent VARCHAR(1) COLLATE NOCASE CHECK (length(LeaveOrPresent) <= 1) CHECK (LeaveOrPresent IN ('P', 'A')),
    TeacherCode INTEGER REFERENCES TeacherMaster,
    UserCode INTEGER,
    PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, ExamCode, StudentCode, SubjectCode),
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails) WITHOUT ROWID;

CREATE TABLE TempRankTotal (
    StudentCode INTEGER REFERENCES StudentMaster,
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    ExamCode INTEGER REFERENCES ExamMaster,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    Total DOUBLE,
    Average DOUBLE,
    Rank INTEGER,
    Grade VARCHAR(2) COLLATE NOCASE CHECK (length(Grade) <= 2),
    PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, ExamCode, StudentCode),
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails) WITHOUT ROWID;

CREATE TABLE TransactionMaster (
    TransactionCode INTEGER PRIMARY KEY,
    TransactionDate VARCHAR(10) CHECK (TransactionDate IS date(TransactionDate, '+0 days')),
    StudentCode INTEGER REFERENCES StudentMaster,
    AcademicYearCode INTEGER REFERENCES AcademicYearSetup,
    Amount DOUBLE,
    DeleteStatus VARCHAR(1) COLLATE NOCASE CHECK (length(DeleteStatus) <= 1) CHECK (DeleteStatus IN ('Y', 'N')),
    UserCode INTEGER);

CREATE TABLE FeesSetup (
    FeesCode INTEGER PRIMARY KEY,
    ClassCode INTEGER REFERENCES ClassDivisionMaster,
    FeesName VARCHAR(50) COLLATE NOCASE CHECK (length(FeesName) <= 50),
    Amount DOUBLE,
    UserCode INTEGER);

CREATE INDEX ClassStudents ON StudentClassDivision (ClassCode, DivisionCode, AcademicYearCode, Status);

CREATE INDEX ClassGrades ON RankMaster (ClassCode, DivisionCode, AcademicYearCode, ExamCode, Status);

CREATE INDEX StudentMarks ON MarkMaster (StudentCode, AcademicYearCode);

CREATE INDEX StudentRanks ON TempRankTotal (StudentCode);

CREATE INDEX UserRights ON UserPrivilegeDetails (UserCode, FormName, ButtonName);

CREATE INDEX StateCities ON CityMaster (StateCode);

CREATE INDEX CityStudents ON StudentMaster (CityCode);

INSERT INTO StateMaster VALUES (0, '', 0);
INSERT INTO CityMaster VALUES (0, 0, '', 0);
INSERT INTO BloodGroupMaster VALUES (0, '', 0);
INSERT INTO SubjectMaster VALUES (0, '', '', 0);
INSERT INTO TeacherMaster VALUES (0, NULL, '', '', NULL, '', NULL, NULL, '', '', '', 0, '', '', 0, '', 0);
INSERT INTO UserMaster VALUES (0, '', 0);
INSERT INTO ClassDivisionMaster VALUES (0, '', 0, 0, 0);
INSERT INTO AcademicYearSetup VALUES (0, NULL, NULL, NULL, NULL, 'N', 'N', 0);
INSERT INTO StudentMaster VALUES (0, 0, '', NULL, 0, '', '', '', '', '', 0, '', '', '', NULL, 0, '', NULL, '', '', NULL, 0);
INSERT INTO MonthMaster VALUES (1, 'JAN', 1);
INSERT INTO MonthMaster VALUES (2, 'FEB', 2);
INSERT INTO MonthMaster VALUES (3, 'MAR', 3);
INSERT INTO MonthMaster VALUES (4, 'APR', 4);
INSERT INTO MonthMaster VALUES (5, 'MAY', 5);
INSERT INTO MonthMaster VALUES (6, 'JUN', 6);
INSERT INTO MonthMaster VALUES (7, 'JUL', 7);
INSERT INTO MonthMaster VALUES (8, 'AUG', 8);
INSERT INTO MonthMaster VALUES (9, 'SEP', 9);
INSERT INTO MonthMaster VALUES (10, 'OCT', 10);
INSERT INTO MonthMaster VALUES (11, 'NOV', 11);
INSERT INTO MonthMaster VALUES (12, 'DEC', 12);
INSERT INTO MRCODE VALUES ('TALLYBOARD');

INSERT INTO StateMaster VALUES (1, 'Kerala', 1);
INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1);
INSERT INTO BloodGroupMaster VALUES (1, 'A+', 1);
INSERT INTO SalutationMaster VALUES (1, 'Mr.', 1);
INSERT INTO ExamMaster VALUES (1, 'Annual', 1, 1);
INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1);
INSERT INTO TeacherMaster (TeacherCode, SalutationCode, TeacherShortName, CityCode, BloodGroupCode) VALUES (1, 1, 'AMA', 1, 1);
INSERT INTO ClassDivisionMaster VALUES (1, 'X', 1, 1, 1);
INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1);
INSERT INTO AcademicYearSetup VALUES (1, 2025, 2026, '2025-06-01', '2026-05-31', 'Y', 'N', 1);
INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AcademicYearCode, StudentName, CityCode, BloodGroupCode) VALUES (1, 1, '1', 1, 'Asha', 1, 1);
INSERT INTO StudentClassDivision VALUES (1, 1, 1, 1, 'Y', 1);
INSERT INTO ClassSubjectTeacher VALUES (1, 1, 1, 1, 1, 100, 100, 'Yes', 1);
INSERT INTO RankMaster VALUES (1, 1, 1, 1, 0, 0, 'A', 1, NULL);
INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 1, 50, 'P', 1, 1);
INSERT INTO TempRankTotal VALUES (1, 1, 1, 1, 1, 50, 50, 1, 'A');
