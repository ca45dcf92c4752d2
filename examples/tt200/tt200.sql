-- TT200: a two-channel temperature transmitter, as a device descriptor.
--
-- The file shows every kind of parameter, every form of value and every kind of rule that a descriptor can hold.
-- It is meant to be read from top to bottom and to be copied from. "ovmodel pack" makes a database of it; put that
-- beside this file, since it names help pages, icons and info.xml by paths relative to itself.
--
--   1  Tables
--   2  Module types: what can be loaded, and how a frame application finds it
--   3  Structure: channels, groups, blocks
--   4  Texts, units and files
--   5  Enumerations and look-up tables
--   6  Scripts by name
--   7  Channel "Device":  groups 11 to 16, one chapter each
--   8  Channel "Sensor":  groups 21 to 26, one chapter each, shared by both sensors
--   9  Actions
--  10  Names, descriptions, and places in the device image
--
-- Conventions of this file (none of them is demanded by the format):
--   * A group type 21 has the group id 21, its parameters have the ids 2101, 2102, ... and stand in this order.
--   * The name of parameter 2101 is text 2101, its description text 7101 (the id plus 5000). So the rows don't
--     repeat these numbers: chapter 10 fills both columns.
--   * The row number idx is the parameter id and one digit: 21010 is the first row of 2101, 21011 its next alternative.
--   * The texts of a chapter stand in the chapter; shared ones in chapters 4 and 5.
--   * Flags that hold for many rows are set by an UPDATE at the end of the chapter.
--
-- Rules. The format generation is 1 (row "ModelVersionIndex"), so a text that begins with "#:" is a script that is
-- run once and replaced by its result, one that begins with "!:" is run at each use, and any other text stands for
-- itself. That holds for dependencies and consistency rules too: without a prefix they are words, not rules.
--
-- Loading order. A default value is evaluated while its group is still being read, so a rule in DefaultValue may ask
-- for parameters that stand before it and for other groups, never for what comes after. Limits, scales, units and
-- consistency rules run when the group is complete. Between groups the rules of this file form no circle:
--     15 -> 26 -> 13 -> 23 -> 21 -> 14,   22, 24, 25 and 26 -> 21,   24 -> 23


-- ---------------------------------------------------------------------------------------------------------------------
-- 1  Tables
-- ---------------------------------------------------------------------------------------------------------------------
-- The declared type of a column decides the type of its values. A column that holds a plain value or a script is
-- TEXT. YESNO is stored as -1 and 0. The PRIMARY KEY of a table is its index "PrimaryKey". A table may have columns
-- beyond those that the model reads: scripts and hosts reach them by name.

CREATE TABLE DatabaseProperties (
    Name                     TEXT PRIMARY KEY,
    Value                    TEXT);

CREATE TABLE ModuleTypes (
    IDX                      LONG PRIMARY KEY,
    moduletype               TEXT NOT NULL,           -- the name that a host loads, exact in case
    enable                   YESNO DEFAULT -1,        -- a disabled row is as good as absent
    defaultName              LONG,                    -- text
    mainValue                TEXT,                    -- path of a parameter: CH("..").G("..").P("..")
    ModuleImage              TEXT,                    -- file beside the database
    description              LONG,                    -- text
    deviceHelpFile           LONG,                    -- file
    authentification         YESNO DEFAULT 0,
    FDTmanufacturerId        LONG,
    FDTdeviceTypeId          LONG,
    FDTsubDeviceType         TEXT,
    FDTclassificationId      TEXT,                    -- leading number counts; NULL is 17, DTM specific
    FDTdeviceIcon            TEXT,
    fdtDeviceTypeInformation TEXT,                    -- text, script, or "file:\\" and a path
    FDTversion               LONG NOT NULL);          -- row of Versions; a missing row fails the load

CREATE TABLE Versions (
    FDTversion               LONG PRIMARY KEY,
    [date]                   TEXT,
    descriptor               TEXT,
    name                     TEXT,                    -- NULL: the model makes a name of the device type's numbers
    vendor                   TEXT,
    version                  TEXT);

CREATE TABLE BusCategories (
    module                   LONG NOT NULL,           -- ModuleTypes.IDX
    busCategory              LONG,                    -- BusCategoryTypes; rows with NULL are passed over
    CommunicationTypeEntry   TEXT);                   -- NULL is "required"

CREATE TABLE BusCategoryTypes (
    busCategory              LONG PRIMARY KEY,
    Category                 TEXT NOT NULL,
    CategoryName             TEXT);                   -- NULL: Category

CREATE TABLE SupportedLanguages (
    LangId                   TEXT PRIMARY KEY);       -- hexadecimal digits; the low 10 bits are the primary language

CREATE TABLE Kinds (
    Kind                     LONG PRIMARY KEY,        -- 1 to 11
    KindId                   TEXT);

CREATE TABLE Texts (
    TEXT_IDX                 LONG PRIMARY KEY,
    Text_7                   TEXT,                    -- German, the base language
    Text_9                   TEXT);                   -- English; a gap shows the base language

CREATE TABLE Files (
    FILE_IDX                 LONG PRIMARY KEY,
    Text_7                   TEXT,
    Text_9                   TEXT);

CREATE TABLE Channels (
    ModuleType               LONG NOT NULL,           -- ModuleTypes.IDX
    ChannelId                LONG NOT NULL,           -- CH("1") in scripts
    name                     LONG,                    -- text
    ChannelType              LONG NOT NULL,
    [order]                  LONG,
    EditPlugin               TEXT,
    editPluginArguments      TEXT);

CREATE TABLE ChannelTypes (
    ChannelType              LONG PRIMARY KEY,
    mainValue                TEXT);                   -- path of a parameter: G("..")("..")

CREATE TABLE [Groups] (
    ChannelType              LONG NOT NULL,
    GroupType                LONG NOT NULL,
    groupId                  LONG NOT NULL,           -- G("21") in scripts
    name                     LONG,                    -- text
    block1                   LONG,                    -- up to three display blocks, and the place in each
    block1order              DOUBLE,
    block2                   LONG,
    block2order              DOUBLE,
    block3                   LONG,
    block3order              DOUBLE,
    EditPlugin               TEXT,
    editPluginArguments      TEXT);

CREATE TABLE Blocks (
    BlockId                  LONG PRIMARY KEY,
    idx                      LONG NOT NULL,           -- the number that Groups.block1..3 hold; the same as BlockId
    name                     LONG);                   -- text

CREATE TABLE GroupScripts (
    GroupType                LONG,                    -- NULL: all groups. An id is common or a group's, not both
    ScriptId                 TEXT NOT NULL,
    script                   MEMO);

CREATE TABLE Parameters (
    idx                      LONG PRIMARY KEY,        -- unique among all rows: tells the alternatives apart
    GroupType                LONG NOT NULL,
    [order]                  LONG NOT NULL,           -- rows of one parameter must be neighbours in this order
    ParameterId              LONG NOT NULL,           -- P("2101") in scripts
    enable                   TEXT,                    -- value or script; NULL is true
    Type                     TEXT NOT NULL,
    subtype                  TEXT,
    name                     LONG,                    -- text
    description              LONG,                    -- text
    kind                     LONG NOT NULL,           -- Kinds
    direction                LONG DEFAULT 3,          -- 1 none, 2 read, 3 read and write, 4 write
    unit                     LONG,                    -- text, which may be a script
    Min                      TEXT,                    -- value or script; of a string the length
    Max                      TEXT,                    -- value or script
    DefaultValue             TEXT,                    -- value or script
    realGain                 TEXT,                    -- value or script: display = device x gain + offset
    realOffset               TEXT,                    -- value or script
    displayFormat            TEXT,                    -- a script in FLOAT rows only
    consistency              TEXT,                    -- script; "P()" is the candidate
    actionOnChange           TEXT,                    -- Actions.ActionID
    dependency               TEXT,                    -- script: the row is in force while it is true
    removeOnDependency       YESNO DEFAULT 0,         -- no row in force: 0 disables the parameter, -1 removes it
    editable                 YESNO DEFAULT -1,
    expertOnly               YESNO DEFAULT 0,
    authentification         LONG DEFAULT 0,          -- 0 as the module, 1 write only, 2 read and write
    html                     LONG,                    -- file
    trendvariable            YESNO DEFAULT 0,
    EditPlugin               TEXT,
    editPluginArguments      TEXT,
    imageByte                LONG,                    -- place in the device image; read by the host, not by the model
    imageBit                 LONG,
    imageBits                LONG);

CREATE INDEX ParametersOfGroup ON Parameters (GroupType, [order], ParameterId);

CREATE TABLE Enums (
    enumSubType              TEXT,                    -- Parameters.subtype; NULL is the fallback of all enumerations
    value                    LONG,                    -- NULL: the text for values that are not listed
    valueText                LONG);                   -- text

CREATE TABLE EnumsStr (
    enumSubType              TEXT,
    value                    TEXT,
    valueText                LONG);                   -- text

CREATE TABLE Actions (
    ActionID                 TEXT NOT NULL,
    value                    TEXT,                    -- NULL: any other value
    actionScript             MEMO);                   -- statements; "P()" is the new value

-- Tells a SELECT which of its columns are text numbers: those whose row source looks up the table of texts.
CREATE TABLE FieldProperties (
    TableName                TEXT NOT NULL,
    FieldName                TEXT NOT NULL,
    PropertyName             TEXT NOT NULL,
    PropertyValue            TEXT,
    PRIMARY KEY (TableName, FieldName, PropertyName));

-- Two tables of this device alone, for the SELECT and SELECTSTR parameters.
CREATE TABLE SensorTypes (
    SensorType               LONG PRIMARY KEY,
    name                     LONG NOT NULL,           -- text
    standard                 TEXT NOT NULL);

CREATE TABLE Approvals (
    code                     TEXT PRIMARY KEY,
    name                     LONG NOT NULL,           -- text
    module                   LONG);                   -- ModuleTypes.IDX; NULL: any


-- ---------------------------------------------------------------------------------------------------------------------
-- 2  Module types
-- ---------------------------------------------------------------------------------------------------------------------

INSERT INTO DatabaseProperties (Name, Value) VALUES
    ('Version',           '2.00.00'),
    ('ModelVersionIndex', '1');

-- Types 1 and 2 are one device with two bus heads: the same device type id, another sub device type. Types 1 and 3
-- share the sub device type, so a search for "TT200-H{}" finds both. Type 3 has one sensor channel and shows its
-- output current as the main value. Type 4 is disabled: it can't be loaded or found.
INSERT INTO ModuleTypes (IDX, moduletype, enable, defaultName, mainValue, ModuleImage, description, deviceHelpFile,
                         authentification, FDTmanufacturerId, FDTdeviceTypeId, FDTsubDeviceType, FDTclassificationId,
                         FDTdeviceIcon, fdtDeviceTypeInformation, FDTversion) VALUES
    (1, 'TT200 HART',     -1, 4, 'CH("1").G("22").P("2202")', 'icons/tt200.svg', 5, 1,
     -1, 193, 8193, 'TT200-H', '4',
     'icons/tt200.svg', 'file:\\.\info.xml', 2),
    (2, 'TT200 PROFINET', -1, 6, 'CH("1").G("22").P("2202")', 'icons/tt200.svg', 7, 1,
     -1, 193, 8193, 'TT200-P', '4 temperature',
     'icons/tt200.svg', '#:"<DeviceType name=""" & CONFM("moduletype") & """/>"', 2),
    (3, 'TT200 HART SIL', -1, 8, 'CH("0").G("13").P("1310")', 'icons/tt200.svg', 9, 1,
     -1, 193, 8194, 'TT200-H', NULL,
     'icons/tt200.svg', 'Temperature transmitter for safety loops', 1),
    (4, 'TT200 Prototype', 0, 10, NULL, NULL, NULL, NULL,
      0, 193, 8448, 'TT200-X', NULL,
     NULL, NULL, 1);

INSERT INTO Versions (FDTversion, [date], descriptor, name, vendor, version) VALUES
    (1, '2023-11-02', 'TT200 descriptor', NULL,                        'Orvane', '1.04'),
    (2, '2024-03-15', 'TT200 descriptor', 'Orvane TT200 device model', 'Orvane', '2.00');

INSERT INTO BusCategoryTypes (busCategory, Category, CategoryName) VALUES
    (1, '{5A1E6C10-0D52-4B77-9C61-3E2F4D8A0001}', 'HART'),
    (2, '{5A1E6C10-0D52-4B77-9C61-3E2F4D8A0002}', 'PROFINET'),
    (3, '{5A1E6C10-0D52-4B77-9C61-3E2F4D8A0003}', NULL);

INSERT INTO BusCategories (module, busCategory, CommunicationTypeEntry) VALUES
    (1, 1,    NULL),  -- NULL: required
    (1, 3,    'supported'),  -- the device can live behind it, but isn't found by it
    (1, NULL, 'required'),  -- passed over
    (2, 2,    'required'),
    (2, 1,    'supported'),
    (3, 1,    'required');

INSERT INTO SupportedLanguages (LangId) VALUES ('0007'), ('0009'), ('0407'), ('0409');

INSERT INTO Kinds (Kind, KindId) VALUES
    (1,  'DTM parameter'),
    (2,  'Device parameter'),
    (3,  'Calibration'),
    (4,  'Process data'),
    (5,  'Diagnosis'),
    (6,  'Communication'),
    (7,  'Operation'),
    (8,  'Service'),
    (9,  'Linearisation'),
    (10, 'Internal'),
    (11, 'Device identification');


-- ---------------------------------------------------------------------------------------------------------------------
-- 3  Structure
-- ---------------------------------------------------------------------------------------------------------------------
-- Both sensor channels are of channel type 2: one set of groups and parameters, present twice in the tree.

INSERT INTO Channels (ModuleType, ChannelId, name, ChannelType, [order], EditPlugin, editPluginArguments) VALUES
    (1, 0, 1, 1, 10, NULL,                'unused'),
    (1, 1, 2, 2, 20, 'Orvane.SensorPage', 'view=trend'),
    (1, 2, 3, 2, 30, 'Orvane.SensorPage', 'view=trend'),
    (2, 0, 1, 1, 10, NULL,                NULL),
    (2, 1, 2, 2, 20, 'Orvane.SensorPage', 'view=trend'),
    (2, 2, 3, 2, 30, 'Orvane.SensorPage', 'view=trend'),
    (3, 0, 1, 1, 10, NULL,                NULL),
    (3, 1, 2, 2, 20, 'Orvane.SensorPage', 'view=list'),
    (4, 0, 1, 1, 10, NULL,                NULL);

INSERT INTO ChannelTypes (ChannelType, mainValue) VALUES
    (1, 'G("13")("1310")'),
    (2, 'G("22")("2202")');

-- A channel has its groups in the order of these rows. In a block they stand in the order of the block's own column:
-- block 31 shows 13, 11, 12, 14, and block 41 shows 23 before 25.
INSERT INTO [Groups] (ChannelType, GroupType, groupId, name,
                      block1, block1order, block2, block2order, block3, block3order,
                      EditPlugin, editPluginArguments) VALUES
    (1, 11, 11, 11, 31, 20, 33,   30,   NULL, NULL, NULL,                 NULL),
    (1, 12, 12, 12, 31, 30, 33,   40,   NULL, NULL, NULL,                 NULL),
    (1, 13, 13, 13, 31, 10, 32,   10,   NULL, NULL, NULL,                 NULL),
    (1, 14, 14, 14, 31, 40, 32,   20,   NULL, NULL, NULL,                 NULL),
    (1, 15, 15, 15, 33, 10, NULL, NULL, NULL, NULL, NULL,                 NULL),
    (1, 16, 16, 16, 33, 20, NULL, NULL, NULL, NULL, 'Orvane.ServicePage', 'confirm=1'),
    (2, 21, 21, 21, 41, 10, 42,   30,   NULL, NULL, NULL,                 NULL),
    (2, 22, 22, 22, 42, 10, NULL, NULL, NULL, NULL, NULL,                 NULL),
    (2, 23, 23, 23, 42, 20, 41,   20,   43,   5,    NULL,                 NULL),
    (2, 24, 24, 24, 43, 10, NULL, NULL, NULL, NULL, NULL,                 NULL),
    (2, 25, 25, 25, 41, 30, NULL, NULL, NULL, NULL, NULL,                 NULL),
    (2, 26, 26, 26, 43, 20, 42,   40,   NULL, NULL, NULL,                 NULL);

INSERT INTO Blocks (BlockId, idx, name) VALUES
    (31, 31, 31),
    (32, 32, 32),
    (33, 33, 33),
    (41, 41, 41),
    (42, 42, 42),
    (43, 43, 43);


-- ---------------------------------------------------------------------------------------------------------------------
-- 4  Texts, units and files
-- ---------------------------------------------------------------------------------------------------------------------
-- Text_9 is NULL where the word is the same in both languages, or where nobody has translated it yet.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1,  'Gerät',                                             'Device'),
    (2,  'Sensor 1',                                          NULL),
    (3,  'Sensor 2',                                          NULL),
    (4,  'TT200 Temperaturmessumformer HART',                 'TT200 temperature transmitter HART'),
    (5,  'Zweikanaliger Temperaturmessumformer mit HART',     'Two-channel temperature transmitter with HART'),
    (6,  'TT200 Temperaturmessumformer PROFINET',             'TT200 temperature transmitter PROFINET'),
    (7,  'Zweikanaliger Temperaturmessumformer für PROFINET', 'Two-channel temperature transmitter for PROFINET'),
    (8,  'TT200 Temperaturmessumformer HART SIL',             'TT200 temperature transmitter HART SIL'),
    (9,  'Einkanaliger Messumformer für Sicherheitskreise',   'Single-channel transmitter for safety loops'),
    (10, 'TT200 Prototyp',                                    'TT200 prototype'),
    (11, 'Identifikation',                                    'Identification'),
    (12, 'Kommunikation',                                     'Communication'),
    (13, 'Stromausgang',                                      'Current output'),
    (14, 'Bedienung',                                         'Operation'),
    (15, 'Gerätediagnose',                                    'Device diagnosis'),
    (16, 'Service',                                           NULL),
    (21, 'Eingang',                                           'Input'),
    (22, 'Messwerte',                                         'Measured values'),
    (23, 'Grenzwerte',                                        'Limits'),
    (24, 'Kalibrierung',                                      'Calibration'),
    (25, 'Linearisierung',                                    'Linearisation'),
    (26, 'Sensordiagnose',                                    'Sensor diagnosis'),
    (31, 'Gerät einrichten',                                  'Device set-up'),
    (32, 'Ausgang und Anzeige',                               'Output and display'),
    (33, 'Service und Diagnose',                              'Service and diagnosis'),
    (41, 'Sensor einrichten',                                 'Sensor set-up'),
    (42, 'Messung',                                           'Measurement'),
    (43, 'Wartung',                                           'Maintenance');

-- Units. A unit text may be a rule: 120 and 122 to 124 follow a choice in another place, 121 is settled once.
INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (101, '°C',                                                    NULL),
    (102, '°F',                                                    NULL),
    (103, '°R',                                                    NULL),
    (104, 'K',                                                     NULL),
    (105, 'mV',                                                    NULL),
    (106, 'Ω',                                                     NULL),
    (107, 'mA',                                                    NULL),
    (108, '%',                                                     NULL),
    (109, 's',                                                     NULL),
    (110, 'ms',                                                    NULL),
    (111, 'ns',                                                    NULL),
    (112, 'ppm',                                                   NULL),
    (120, '!:CH(P.script("SRC"))("21").sVal("2102")',              NULL),
    (121, '#:CONFM.sel("FDTsubDeviceType", "TT200-P", "%", "mA")', NULL),
    (122, '!:G("21").sVal("2102")',                                NULL),
    (123, '!:P.sVal("2102")',                                      NULL),
    (124, '!:G("21").sel("2102", 32, "K", G("21").sVal("2102"))',  NULL);

-- Files are relative to the packed database. 3 exists in German only. 4 is settled by a script when it is first asked
-- for; such a script runs on the module's first channel, so it sees CONFM, CONFCH, ENV, G, CH and GETTEXT, but no P.
INSERT INTO Files (FILE_IDX, Text_7, Text_9) VALUES
    (1, 'help/tt200_de.html', 'help/tt200_en.html'),
    (2, 'help/sensor_de.html', 'help/sensor_en.html'),
    (3, 'help/output_de.html', NULL),
    (4, '#:"help/" & CONFM.sel("FDTsubDeviceType", "TT200-P", "profinet", "hart") & ".html"', NULL),
    (5, 'help/calibration_de.html', 'help/calibration_en.html');


-- ---------------------------------------------------------------------------------------------------------------------
-- 5  Enumerations and look-up tables
-- ---------------------------------------------------------------------------------------------------------------------
-- The texts of one list must differ from each other in more than case, in every language.

INSERT INTO FieldProperties (TableName, FieldName, PropertyName, PropertyValue) VALUES
    ('Enums',       'valueText', 'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS'),
    ('EnumsStr',    'valueText', 'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS'),
    ('SensorTypes', 'name',      'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS'),
    ('Approvals',   'name',      'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS');

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (200, 'Aus',                                           'Off'),
    (201, 'Ein',                                           'On'),
    (205, 'Orvane',                                        NULL),
    (206, 'Halvorn',                                       NULL),
    (207, 'Hersteller 0x%1hex4%consistent',                'Manufacturer 0x%1hex4%consistent'),
    (210, 'TT100',                                         NULL),
    (211, 'TT200',                                         NULL),
    (212, 'TT200 SIL',                                     NULL),
    (213, 'TT200 Prototyp',                                'TT200 prototype'),
    (215, 'Deutsch',                                       NULL),
    (216, 'English',                                       NULL),
    (217, 'Français',                                      NULL),
    (220, '50 Hz',                                         NULL),
    (221, '60 Hz',                                         NULL),
    (225, 'Fester Strom',                                  'Fixed current'),
    (226, 'Messwert',                                      'Measured value'),
    (230, 'Sensor 1',                                      NULL),
    (231, 'Sensor 2',                                      NULL),
    (232, 'Differenz 1 - 2',                               'Difference 1 - 2'),
    (233, 'Mittelwert',                                    'Average'),
    (235, 'Niedrig (3,6 mA)',                              'Low (3.6 mA)'),
    (236, 'Hoch (21,5 mA)',                                'High (21.5 mA)'),
    (237, 'Letzten Wert halten',                           'Hold last value'),
    (240, 'Ausgangsstrom',                                 'Output current'),
    (241, 'Messwert Sensor 1',                             'Value of sensor 1'),
    (242, 'Messwert Sensor 2',                             'Value of sensor 2'),
    (243, 'Differenz',                                     'Difference'),
    (244, 'Klemmentemperatur',                             'Terminal temperature'),
    (250, 'icons/ok.svg',                                  NULL),
    (251, 'icons/warning.svg',                             NULL),
    (252, 'icons/failure.svg',                             NULL),
    (255, 'Kein Kommando',                                 'No command'),
    (256, 'Schleppzeiger zurücksetzen',                    'Reset peak values'),
    (257, 'Zähler zurücksetzen',                           'Reset counter'),
    (258, 'Selbsttest',                                    'Self-test'),
    (260, '2-Leiter',                                      '2 wires'),
    (261, '3-Leiter',                                      '3 wires'),
    (262, '4-Leiter',                                      '4 wires'),
    (265, 'Intern',                                        'Internal'),
    (266, 'Fester Wert',                                   'Fixed value'),
    (267, 'Keine',                                         'None'),
    (280, 'Schlecht',                                      'Bad'),
    (281, 'Unsicher',                                      'Uncertain'),
    (282, 'Gut',                                           'Good'),
    (285, 'Nur melden',                                    'Report only'),
    (286, 'Fehlerstrom',                                   'Failure current'),
    (287, '#:"Kanal " & CONFCH("ChannelId") & " sperren"', '#:"Block channel " & CONFCH("ChannelId")'),
    (290, 'Werkskalibrierung',                             'Factory calibration'),
    (291, 'Ein Punkt',                                     'One point'),
    (292, 'Zwei Punkte',                                   'Two points'),
    (299, 'Unbekannter Wert %1dec',                        'Unknown value %1dec');

-- Not listed: 'Manufacturer' accepts values beyond its list ("%consistent"); all others show the fallback text.
-- "_reverse" at the end of a name turns the byte order in the device image round. The texts of 'StatusIcon' are file
-- names of pictures. One text of 'AlarmAction' is a script, so it reads differently in each channel.
INSERT INTO Enums (enumSubType, value, valueText) VALUES
    ('OnOff',              0,    200),
    ('OnOff',              1,    201),
    ('Manufacturer',       193,  205),
    ('Manufacturer',       194,  206),
    ('Manufacturer',       NULL, 207),
    ('DeviceType_reverse', 4097, 210),
    ('DeviceType_reverse', 8193, 211),
    ('DeviceType_reverse', 8194, 212),
    ('DeviceType_reverse', 8448, 213),
    ('Language',           7,    215),
    ('Language',           9,    216),
    ('Language',           12,   217),
    ('Mains',              50,   220),
    ('Mains',              60,   221),
    ('LoopMode',           0,    225),
    ('LoopMode',           1,    226),
    ('OutputSource',       1,    230),
    ('OutputSource',       2,    231),
    ('OutputSource',       3,    232),
    ('OutputSource',       4,    233),
    ('FailureMode',        0,    235),
    ('FailureMode',        1,    236),
    ('FailureMode',        2,    237),
    ('DisplaySource',      0,    240),
    ('DisplaySource',      1,    241),
    ('DisplaySource',      2,    242),
    ('DisplaySource',      3,    243),
    ('DisplaySource',      4,    244),
    ('StatusIcon',         0,    250),
    ('StatusIcon',         1,    251),
    ('StatusIcon',         2,    252),
    ('ServiceCommand',     0,    255),
    ('ServiceCommand',     1,    256),
    ('ServiceCommand',     2,    257),
    ('ServiceCommand',     3,    258),
    ('Wires',              2,    260),
    ('Wires',              3,    261),
    ('Wires',              4,    262),
    ('ColdJunction',       0,    265),
    ('ColdJunction',       1,    266),
    ('ColdJunction',       2,    267),
    ('TempUnit',           32,   101),
    ('TempUnit',           33,   102),
    ('TempUnit',           34,   103),
    ('TempUnit',           35,   104),
    ('VoltUnit',           36,   105),
    ('OhmUnit',            37,   106),
    ('ValueStatus',        0,    280),
    ('ValueStatus',        64,   281),
    ('ValueStatus',        128,  282),
    ('AlarmAction',        0,    285),
    ('AlarmAction',        1,    286),
    ('AlarmAction',        2,    287),
    ('CalMode',            0,    290),
    ('CalMode',            1,    291),
    ('CalMode',            2,    292),
    (NULL,                 NULL, 299);

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (301, 'Pt100',                     NULL),
    (302, 'Pt500',                     NULL),
    (303, 'Pt1000',                    NULL),
    (304, 'Ni100',                     NULL),
    (305, 'Thermoelement K',           'Thermocouple K'),
    (306, 'Thermoelement J',           'Thermocouple J'),
    (307, 'Thermoelement T',           'Thermocouple T'),
    (308, 'Thermoelement S',           'Thermocouple S'),
    (309, 'Widerstand 400 Ω',          'Resistance 400 Ω'),
    (310, 'Widerstand 2000 Ω',         'Resistance 2000 Ω'),
    (311, 'Spannung 100 mV',           'Voltage 100 mV'),
    (312, 'Platin nach Koeffizienten', 'Platinum by coefficients'),
    (320, 'Deutschland',               'Germany'),
    (321, 'Vereinigte Staaten',        'United States'),
    (322, 'Frankreich',                'France'),
    (323, 'Japan',                     NULL),
    (324, 'Land %1dec%consistent',     'Country %1dec%consistent'),
    (330, 'ohne',                      'none'),
    (331, 'Gas, Zone 1',               NULL),
    (332, 'Gas, weltweit',             'Gas, worldwide'),
    (333, 'Gas, Nordamerika',          'Gas, North America'),
    (334, 'Funktionale Sicherheit',    'Functional safety');

INSERT INTO SensorTypes (SensorType, name, standard) VALUES
    (1,  301, 'IEC 60751'),
    (2,  302, 'IEC 60751'),
    (3,  303, 'IEC 60751'),
    (4,  304, 'DIN 43760'),
    (5,  305, 'IEC 60584'),
    (6,  306, 'IEC 60584'),
    (7,  307, 'IEC 60584'),
    (8,  308, 'IEC 60584'),
    (9,  309, 'linear'),
    (10, 310, 'linear'),
    (11, 311, 'linear'),
    (12, 312, 'Callendar-van Dusen');

-- A list keyed by text stands in the order of its rows.
INSERT INTO EnumsStr (enumSubType, value, valueText) VALUES
    ('Country', 'DE', 320),
    ('Country', 'US', 321),
    ('Country', 'FR', 322),
    ('Country', 'JP', 323),
    ('Country', NULL, 324);

INSERT INTO Approvals (code, name, module) VALUES
    ('NONE',  330, NULL),
    ('ATEX',  331, NULL),
    ('IECEX', 332, NULL),
    ('CSA',   333, 1),
    ('SIL2',  334, 3);


-- ---------------------------------------------------------------------------------------------------------------------
-- 6  Scripts by name
-- ---------------------------------------------------------------------------------------------------------------------
-- P.script("NAME") runs one, and remembers the result until the group's next sweep. It needs at least one parameter
-- in the group, so the DefaultValue of a group's first parameter can't use it.

INSERT INTO GroupScripts (GroupType, ScriptId, script) VALUES
    -- For all groups of the sensor channels. Scale of a temperature: the device counts in °C, the user reads in the
    -- unit of parameter 2102 (32 °C, 33 °F, 34 °R, 35 K). Group 21 itself doesn't use these two: going through G
    -- would mark the group as read from outside while it is still being loaded.
    (NULL, 'T_GAIN',   '!:G("21").sel("2102", 33, 1.8, 34, 1.8, 1)'),
    (NULL, 'T_OFFSET', '!:G("21").sel("2102", 33, 32, 34, 491.67, 35, 273.15, 0)'),
    -- Limits of the sensor of type 2101, in the user's unit. Positions: 0 unused, 1 Pt100, 2 Pt500, 3 Pt1000, 4 Ni100,
    -- 5 K, 6 J, 7 T, 8 S, 9 and 10 resistance, 11 voltage, 12 coefficients, 13 to 15 unused, and one for all else.
    (NULL, 'SENSOR_LO', '!:P.script("T_OFFSET") + P.script("T_GAIN") * Choose16(G("21")("2101"), '
                     || '0, -200, -200, -200, -60, -270, -210, -270, -50, 0, 0, -10, -200, 0, 0, 0, 0)'),
    (NULL, 'SENSOR_HI', '!:P.script("T_OFFSET") + P.script("T_GAIN") * Choose16(G("21")("2101"), '
                     || '0, 850, 250, 250, 250, 1372, 1200, 400, 1768, 400, 2000, 100, 850, 0, 0, 0, 0)'),

    -- Group 13: the channel that feeds the output, and the scale of the output's range.
    (13, 'SRC',      '!:Iif(P("1301") = 2, "2", "1")'),
    (13, 'OUT_GAIN', '!:CH(P.script("SRC"))("21").sel("2102", 33, 1.8, 34, 1.8, 1)'),
    (13, 'OUT_OFFSET',  '!:Iif(P("1301") = 3, 0, '
                     || 'CH(P.script("SRC"))("21").sel("2102", 33, 32, 34, 491.67, 35, 273.15, 0))'),

    -- Group 21.
    (21, 'GAIN',   '!:P.sel("2102", 33, 1.8, 34, 1.8, 1)'),
    (21, 'OFFSET', '!:P.sel("2102", 33, 32, 34, 491.67, 35, 273.15, 0)'),
    (21, 'IS_RTD', '!:P.isIn("2101", 1, 2, 3, 4, 9, 10, 12)'),
    (21, 'IS_TC',  '!:P.isIn("2101", 5, 6, 7, 8)');


-- ---------------------------------------------------------------------------------------------------------------------
-- 7  Channel "Device"
-- ---------------------------------------------------------------------------------------------------------------------

-- 7.1  Group 11, identification. All forms of text: packed ASCII, dates, version numbers, several lines, a picture;
--      the enumerations keyed by text; wide integers.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (901,  'Temperatur Tank 1',                                   'Temperature tank 1'),
    (902,  'Einbau: Oberseite, Stutzen 3',                        'Mounting: top, nozzle 3'),
    (903,  'Wartung jährlich',                                    'Yearly maintenance'),
    (1101, 'Messstelle kurz',                                     'Short tag'),
    (1102, 'Messstelle',                                          'Tag'),
    (1103, 'Beschreibung',                                        'Descriptor'),
    (1104, 'Nachricht',                                           'Message'),
    (1105, 'Notizen',                                             'Notes'),
    (1106, 'Einbaudatum',                                         'Date of installation'),
    (1107, 'Hersteller',                                          'Manufacturer'),
    (1108, 'Gerätetyp',                                           'Device type'),
    (1109, 'Seriennummer',                                        'Serial number'),
    (1110, 'Fertigungsschlüssel',                                 'Production key'),
    (1111, 'Hardwarestand',                                       'Hardware revision'),
    (1112, 'Firmware',                                            NULL),
    (1113, 'Bootloader',                                          NULL),
    (1114, 'Softwarestand',                                       'Software build'),
    (1115, 'Gerätebild',                                          'Picture of the device'),
    (1116, 'Einsatzland',                                         'Country of use'),
    (1117, 'Zulassung',                                           'Approval'),
    (6101, 'Bis zu acht Zeichen, nur Großbuchstaben',             'Up to eight characters, capital letters only'),
    (6102, 'Bis zu 32 Zeichen',                                   'Up to 32 characters'),
    (6105, 'Bleibt im Projekt, wird nicht ins Gerät geschrieben', 'Kept in the project, never written to the device'),
    (6108, 'Wird beim Laden vom Modultyp gesetzt',                'Set by the module type when it is loaded'),
    (6109, 'Nummer auf dem Typenschild',                          'Number on the type plate'),
    (6112, 'Haupt- und Nebenversion, im Gerät doppelt abgelegt',  'Major and minor version, stored twice in the device'),
    (6117, 'Nur die Zulassungen des Modultyps',                   'Only the approvals of the module type');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (11020, 11, 20,  1102, 11, 'STRING',  NULL,                 NULL, NULL, '32',    '#:GETTEXT(901)',             NULL),
    (11030, 11, 30,  1103, 11, 'STRING',  'packedascii',        NULL, NULL, '16',    '',                           NULL),
    (11040, 11, 40,  1104, 11, 'STRING',  'packedascii',        NULL, NULL, '32',    'ORVANE TT200',               NULL),
    (11060, 11, 60,  1106, 11, 'STRING',  'hartdate',           NULL, NULL, NULL,    '2024-03-15',                 'yyyy-mm-dd'),
    (11070, 11, 70,  1107, 11, 'ENUM',    'Manufacturer',       NULL, '0',  '65535', '193',                        NULL),
    (11080, 11, 80,  1108, 11, 'ENUM',    'DeviceType_reverse', NULL, NULL, NULL,    '#:CONFM("FDTdeviceTypeId")', NULL),
    (11090, 11, 90,  1109, 11, 'INT',     'u32',                NULL, NULL, NULL,    '24011745',                   NULL),
    (11100, 11, 100, 1110, 11, 'INT',     'u64',                NULL, NULL, NULL,    '1234605616436508552',        'hex16'),
    (11110, 11, 110, 1111, 11, 'STRING',  'version8_8',         NULL, NULL, NULL,    '2.1',                        NULL),
    (11120, 11, 120, 1112, 11, 'STRING',  'version8_8_32',      NULL, NULL, NULL,    '1.4.1.4',                    NULL),
    (11130, 11, 130, 1113, 11, 'STRING',  'version4_4',         NULL, NULL, NULL,    '1.2',                        NULL),
    (11140, 11, 140, 1114, 11, 'INT',     's32',                NULL, NULL, NULL,    '16909060',                   'version'),
    (11150, 11, 150, 1115, 1,  'STRING',  'icon',               NULL, NULL, NULL,    'icons/tt200.svg',            'icon'),
    (11160, 11, 160, 1116, 11, 'ENUMSTR', 'Country',            NULL, NULL, NULL,    'DE',                         NULL);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, Min, Max, DefaultValue,
                        consistency, EditPlugin, editPluginArguments) VALUES
    -- In a rule of a text, "P()" becomes the candidate in double quotes.
    (11010, 11, 10, 1101, 11, 'STRING', 'packedascii', NULL, '8', 'TT200',
     '!:Len(P()) > 0', NULL, NULL),
    (11050, 11, 50, 1105, 1, 'STRING', 'multiline', NULL, '500', '#:GETTEXT(902) & vbCrLf & GETTEXT(903)',
     NULL, 'Orvane.TextEditor', 'columns=60');

-- The subtype of a SELECTSTR (and of a SELECT) is a whole query; "$module" is the IDX of the loaded module type. The
-- first column is the stored value, displayFormat makes the text: "$1" is the second column, here a text number.
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, DefaultValue, displayFormat,
                        subtype) VALUES
    (11170, 11, 170, 1117, 11, 'SELECTSTR', 'NONE', '$0: $1',
     'SELECT [code], [name] FROM [Approvals] WHERE [module] IS NULL OR [module] = $module ORDER BY [code]');

UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (1107, 1108, 1109, 1110, 1111, 1112, 1113, 1114);
UPDATE Parameters SET editable = 0, direction = 1 WHERE ParameterId = 1115;
UPDATE Parameters SET html = 1 WHERE ParameterId IN (1101, 1102);
UPDATE Parameters SET direction = 1 WHERE ParameterId = 1105;


-- 7.2  Group 12, communication. Rows that exist in some module types only, byte streams, network names and
--      addresses, a text that comes from the host's environment.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1201, 'Kurzadresse',                                 'Polling address'),
    (1202, 'Präambeln',                                   'Preambles'),
    (1203, 'Schleifenstrom',                              'Loop current'),
    (1204, 'Erweiterter Gerätetyp',                       'Expanded device type'),
    (1205, 'Eindeutige Kennung',                          'Unique identifier'),
    (1206, 'Typkennung im Telegramm',                     'Type code in the telegram'),
    (1207, 'MAC-Adresse',                                 'MAC address'),
    (1208, 'Stationsname',                                'Name of station'),
    (1209, 'IP-Adresse',                                  'IP address'),
    (1210, 'Gateway',                                     NULL),
    (1211, 'Bediener',                                    'Operator'),
    (1220, 'Aktualisierungszeit',                         'Update time'),
    (1221, 'Medienredundanz',                             'Media redundancy'),
    (6201, '0: Einzelgerät, sonst Mehrpunktbetrieb',      '0: single device, else multidrop'),
    (6203, 'Im Mehrpunktbetrieb nicht wählbar',           'Fixed in multidrop operation'),
    (6208, 'Name nach den Regeln für PROFINET-Stationen', 'Name by the rules for PROFINET stations'),
    (6211, 'Wird beim Lesen vom Bedienprogramm erfragt',  'Asked of the host when the device is read');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (12040, 12, 40,  1204, 6, 'HEX',        'u16',           NULL, NULL, NULL,  '&HC120',                 'hex4'),
    (12050, 12, 50,  1205, 6, 'INT',        'u40',           NULL, NULL, NULL,  '829465638103',           'hex10'),
    (12060, 12, 60,  1206, 6, 'STRING',     'hexwordstream', NULL, '4',  '4',   '#:P.hVal("1204", 4, 1)', NULL),
    (12080, 12, 80,  1208, 6, 'STRING',     'dcpname',       NULL, '1',  '240', 'tt200-tank-1',           NULL),
    (12100, 12, 100, 1210, 6, 'STRING',     'ascii0',        NULL, NULL, '16',  'GW-01',                  NULL),
    (12110, 12, 110, 1211, 1, 'ENVIROMENT', 'USER_NAME',     NULL, NULL, '40',  '',                       NULL);

-- The column enable leaves a row out of the tree; its rules are run once, when the group is loaded. A dependency
-- (1203) leaves the parameter in the tree and switches it.
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, enable, dependency) VALUES
    (12010, 12, 10, 1201, 6, 'INT', 'u8', NULL,
     '0', '63', '0', '#:CONFM.isIn("FDTsubDeviceType", "TT200-H")', NULL),
    (12020, 12, 20, 1202, 6, 'INT', 'u8', NULL,
     '5', '#:CONFM.sel("IDX", 3, 10, 20)', '5', '#:CONFM.isIn("FDTsubDeviceType", "TT200-H")', NULL),
    (12030, 12, 30, 1203, 6, 'ENUM', 'LoopMode', NULL,
     NULL, NULL, '1', '#:CONFM.isIn("FDTsubDeviceType", "TT200-H")', '!:P("1201") = 0'),
    (12200, 12, 200, 1220, 6, 'INT', 'u16', 110,
     '1', '512', '8', '#:CONFM.isIn("FDTsubDeviceType", "TT200-P")', NULL),
    (12210, 12, 210, 1221, 6, 'ENUM', 'OnOff', NULL,
     NULL, NULL, '0', '#:CONFM.isIn("FDTsubDeviceType", "TT200-P")', NULL);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, Min, Max, DefaultValue,
                        displayFormat, consistency) VALUES
    -- Stored without colons, shown and accepted with them: the length limits must leave room for both.
    (12070, 12, 70, 1207, 6, 'STRING', 'hexstream', '12', '17', '0A1B2C3D4E5F',
     'MAC', '!:Len(Replace(P(), ":", "")) = 12'),
    (12090, 12, 90, 1209, 6, 'STRING', NULL, '7', '15', '192.168.0.10',
     NULL, '!:ENV.IsValidIP(P())');

UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (1204, 1205, 1206, 1207);
UPDATE Parameters SET editable = 0, direction = 1 WHERE ParameterId = 1211;
UPDATE Parameters SET html = 4 WHERE GroupType = 12;


-- 7.3  Group 13, current output. Rules across channels: unit, limits and scale follow the sensor that is chosen.
--      Alternatives: one parameter, several rows, each with its rule. Rounding, precision, gain.
--
--      The rules of the alternatives are tried in turn from the row in force, and the first that holds wins. A row
--      with an empty rule never goes out of force again, so each alternative has a rule of its own.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1301, 'Quelle',                                     'Source'),
    (1302, 'Messanfang (4 mA)',                          'Lower range value (4 mA)'),
    (1303, 'Messende (20 mA)',                           'Upper range value (20 mA)'),
    (1304, 'Kleinste Messspanne',                        'Minimum span'),
    (1305, 'Verhalten bei Störung',                      'Behaviour on failure'),
    (1306, 'Fehlerstrom',                                'Failure current'),
    (1307, 'Dämpfung',                                   'Damping'),
    (1308, 'Abgleich 4 mA',                              'Trim at 4 mA'),
    (1309, 'Strom bei 20 mA',                            'Current at 20 mA'),
    (1310, 'Ausgangsstrom',                              'Output current'),
    (6301, 'Der Eingang, dem der Ausgang folgt',         'The input that the output follows'),
    (6302, 'Gilt in der Einheit der Quelle',             'In the unit of the source'),
    (6303, 'Gilt in der Einheit der Quelle',             'In the unit of the source'),
    (6305, 'Ausgang bei Sensorbruch oder Gerätestörung', 'Output on sensor break or device failure'),
    (6306, 'Wert nach der gewählten Richtung',           'Value by the chosen direction');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, DefaultValue, displayFormat,
                        subtype) VALUES
    (13010, 13, 10, 1301, 2, 'SELECT', '1', '$1',
     'SELECT [value], [valueText] FROM [Enums] WHERE [enumSubType] = ''OutputSource'' '
  || 'AND ([value] = 1 OR $module <> 3) ORDER BY [value]');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, consistency, dependency, removeOnDependency) VALUES
    -- 1302 and 1303 have one row for a temperature, one for a difference of two. "precision" widens the limits by one
    -- step of a 10000th of the range: rescaling a value and its limit may differ in the last digit.
    (13020, 13, 20, 1302, 2, 'FLOAT', 'f32precision10000', 120,
     '!:CH(P.script("SRC"))("23")("2302")', '!:CH(P.script("SRC"))("23")("2303")', '!:P.script("OUT_OFFSET")', '0.0',
     '!:P.script("OUT_GAIN")', '!:P.script("OUT_OFFSET")', NULL, '!:P("1301") <> 3', 0),
    (13021, 13, 21, 1302, 2, 'FLOAT', 'f32precision10000', 120,
     '!:-500 * P.script("OUT_GAIN")', '!:500 * P.script("OUT_GAIN")', '0', '0.0',
     '!:P.script("OUT_GAIN")', '!:P.script("OUT_OFFSET")', NULL, '!:P("1301") = 3', 0),
    (13030, 13, 30, 1303, 2, 'FLOAT', 'f32precision10000', 120,
     '!:CH(P.script("SRC"))("23")("2302")', '!:CH(P.script("SRC"))("23")("2303")',
     '!:100 * P.script("OUT_GAIN") + P.script("OUT_OFFSET")', '0.0',
     '!:P.script("OUT_GAIN")', '!:P.script("OUT_OFFSET")', '!:Abs(P() - P("1302")) >= P("1304")', '!:P("1301") <> 3', 0),
    (13031, 13, 31, 1303, 2, 'FLOAT', 'f32precision10000', 120,
     '!:-500 * P.script("OUT_GAIN")', '!:500 * P.script("OUT_GAIN")', '!:50 * P.script("OUT_GAIN")', '0.0',
     '!:P.script("OUT_GAIN")', '!:P.script("OUT_OFFSET")', '!:Abs(P() - P("1302")) >= P("1304")', '!:P("1301") = 3', 0),
    (13040, 13, 40, 1304, 2, 'FLOAT', 'f32', 120,
     NULL, NULL, '!:10 * P.script("OUT_GAIN")', '0.0',
     '!:P.script("OUT_GAIN")', NULL, NULL, NULL, 0),
    -- 1306 is gone when the output holds its last value.
    (13060, 13, 60, 1306, 2, 'FLOAT', 'f32rnd2', 107,
     '3.5', '3.6', '3.6', '0.00',
     NULL, NULL, NULL, '!:P("1305") = 0', -1),
    (13061, 13, 61, 1306, 2, 'FLOAT', 'f32rnd2', 107,
     '21', '23', '21.5', '0.00',
     NULL, NULL, NULL, '!:P("1305") = 1', -1),
    -- FLOAT over an integer of the device: "s16rnd" with a gain rounds to whole device counts.
    (13080, 13, 80, 1308, 3, 'FLOAT', 's16rnd', 107,
     '-0.5', '0.5', '0', '0.000',
     '0.001', NULL, NULL, NULL, 0),
    (13090, 13, 90, 1309, 3, 'FLOAT', 'u16rnd', 107,
     '19.5', '20.5', '20', '#:"0." & String(3, "0")',
     '0.001', NULL, NULL, NULL, 0);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat, actionOnChange) VALUES
    (13050, 13, 50,  1305, 2, 'ENUM',  'FailureMode',     NULL, NULL, NULL, '1',    NULL,    'FAILURE_MODE'),
    -- No picture: the precision tells the decimals, here 600 steps over 60 s, so one.
    (13070, 13, 70,  1307, 2, 'FLOAT', 'f32precision600', 109,  '0',  '60', '0',    NULL,    NULL),
    (13100, 13, 100, 1310, 4, 'FLOAT', 'f32',             121,  NULL, NULL, '7.44', '0.000', NULL);

UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (1304, 1310);
UPDATE Parameters SET trendvariable = -1 WHERE ParameterId = 1310;
UPDATE Parameters SET authentification = 1 WHERE ParameterId IN (1308, 1309);
UPDATE Parameters SET html = 3 WHERE GroupType = 13;


-- 7.4  Group 14, operation. Defaults from the host's environment, a list that is narrowed by a rule, times, pictures,
--      a display format that is a rule.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1401, 'Sprache der Anzeige',                         'Display language'),
    (1402, 'Kontrast',                                    'Contrast'),
    (1403, 'Netzfilter',                                  'Mains filter'),
    (1404, 'Anzeigewechsel',                              'Display cycle'),
    (1405, 'Beleuchtung aus nach',                        'Backlight off after'),
    (1406, 'Nachkommastellen',                            'Decimals'),
    (1407, 'Zeilen',                                      'Lines'),
    (1408, 'Angezeigter Wert',                            'Displayed value'),
    (1409, 'Bediencode',                                  'Operating code'),
    (1410, 'Endwert der Balkenanzeige',                   'Full scale of the bar graph'),
    (6401, 'Vorgabe aus der Umgebungsvariablen LANGUAGE', 'Preset by the environment variable LANGUAGE'),
    (6403, 'Vorgabe aus der Umgebungsvariablen REGION',   'Preset by the environment variable REGION'),
    (6404, 'In Schritten von fünf Sekunden',              'In steps of five seconds'),
    (6408, 'Ab drei Zeilen mehr Auswahl',                 'More to choose from with three lines or more');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (14010, 14, 10, 1401, 7, 'ENUM', 'Language', NULL, NULL, NULL,   '#:ENV.sel("LANGUAGE", "en", 9, "fr", 12, 7)',   NULL),
    (14020, 14, 20, 1402, 7, 'INT',  'u8',       108,  '0',  '100',  '50',                                            '0'),
    (14030, 14, 30, 1403, 7, 'ENUM', 'Mains',    NULL, NULL, NULL,   '#:Iif(ENV.isIn("REGION", "US", "CA"), 60, 50)', NULL),
    (14060, 14, 60, 1406, 7, 'INT',  '8',        NULL, '0',  '3',    '1',                                             NULL),
    (14070, 14, 70, 1407, 7, 'INT',  'u4',       NULL, '1',  '4',    '2',                                             NULL),
    (14090, 14, 90, 1409, 7, 'INT',  'u31',      NULL, '0',  '9999', '0',                                             '0000');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, DefaultValue, displayFormat,
                        Min, Max, consistency) VALUES
    (14040, 14, 40, 1404, 7, 'INT', 'u16', '5', 'seconds',
     '5', '3600', '!:P() Mod 5 = 0'),
    -- A limit that is computed once, from the row of another parameter.
    (14050, 14, 50, 1405, 7, 'INT', 's32', '600', 'minutes',
     '0', '#:CONFG.pvalue("1404", "Max") * 24', NULL),
    -- The limits of an enumeration narrow its list.
    (14080, 14, 80, 1408, 7, 'ENUM', 'DisplaySource', '0', NULL,
     NULL, '!:Iif(P("1407") > 2, 4, 2)', NULL),
    (14100, 14, 100, 1410, 7, 'FLOAT', 'f32', '100', '!:P.sel("1406", 0, "0", 1, "0.0", 2, "0.00", "0.000")',
     '1', '10000', NULL);

UPDATE Parameters SET expertOnly = -1, authentification = 2 WHERE ParameterId = 1409;


-- 7.5  Group 15, device diagnosis. Display forms: hexadecimal, times, Unix time, engineering and scientific numbers,
--      versions, thousands; signed and unsigned integers of many widths; a status picture by a rule across channels.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1501, 'Gerätezustand',                             'Device state'),
    (1502, 'Statusbits',                                'Status bits'),
    (1503, 'Betriebszeit',                              'Operating time'),
    (1504, 'Letzter Start',                             'Last start'),
    (1505, 'Elektroniktemperatur',                      'Electronics temperature'),
    (1506, 'Isolationswiderstand',                      'Insulation resistance'),
    (1507, 'Nullpunktdrift',                            'Zero drift'),
    (1508, 'Rauschen der Referenz',                     'Reference noise'),
    (1509, 'Messzyklen',                                'Measuring cycles'),
    (1510, 'Letzte Wartung',                            'Last maintenance'),
    (1511, 'Gangabweichung der Uhr',                    'Clock deviation'),
    (1512, 'Prüfsumme',                                 'Checksum'),
    (1513, 'Quarzabweichung',                           'Crystal deviation'),
    (1514, 'Stand des Optionsmoduls',                   'Option module version'),
    (6501, 'Vom Zustand des ersten Sensors abgeleitet', 'Derived from the state of the first sensor'),
    (6503, 'Stunden, Minuten, Sekunden',                'Hours, minutes, seconds');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (15010, 15, 10,  1501, 5, 'ENUM',   'StatusIcon',        NULL, NULL,   NULL,  '!:CH("1")("26")("2601")', 'icon'),
    (15020, 15, 20,  1502, 5, 'HEX',    'u8',                NULL, NULL,   NULL,  '0',                       'hex'),
    (15030, 15, 30,  1503, 5, 'INT',    'u32',               NULL, NULL,   NULL,  '5400000',                 'seconds'),
    (15040, 15, 40,  1504, 5, 'INT',    'u32',               NULL, NULL,   NULL,  '1710484200',              'unixtime'),
    (15050, 15, 50,  1505, 5, 'INT',    's8',                101,  '-40',  '85',  '31',                      NULL),
    (15060, 15, 60,  1506, 5, 'FLOAT',  'f32',               106,  NULL,   NULL,  '15000000',                'techexpo3'),
    (15070, 15, 70,  1507, 5, 'INT',    's24',               NULL, NULL,   NULL,  '-1200',                   '#,##0'),
    (15080, 15, 80,  1508, 5, 'FLOAT',  NULL,                NULL, NULL,   NULL,  '0.0000123',               'scientific'),
    (15090, 15, 90,  1509, 5, 'INT',    'u64',               NULL, NULL,   NULL,  '123456789012',            '#,##0'),
    (15100, 15, 100, 1510, 5, 'STRING', 'hartdate',          NULL, NULL,   NULL,  '2023-11-02',              NULL),
    (15110, 15, 110, 1511, 5, 'INT',    's64',               111,  NULL,   NULL,  '-1500',                   'techexpo4'),
    (15120, 15, 120, 1512, 5, 'INT',    '64',                NULL, NULL,   NULL,  '81985529216486895',       'hex16'),
    (15130, 15, 130, 1513, 5, 'INT',    's40',               112,  '-500', '500', '-5',                      NULL),
    (15140, 15, 140, 1514, 5, 'INT',    'u32reverseMapping', NULL, NULL,   NULL,  '66051',                   'version3');

UPDATE Parameters SET editable = 0, direction = 2 WHERE GroupType = 15;
UPDATE Parameters SET editable = -1, direction = 3 WHERE ParameterId = 1510;
UPDATE Parameters SET trendvariable = -1 WHERE ParameterId = 1505;


-- 7.6  Group 16, service, for experts only. Actions: a push button with several faces, integers and enumerations
--      whose change sets other parameters or the environment. Internal values with reversed byte order.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1601, 'Kommando',                                    'Command'),
    (1602, 'Ausgeführte Kommandos',                       'Commands executed'),
    (1603, 'Letztes Kommando',                            'Last command'),
    (1604, 'Simulation',                                  NULL),
    (1605, 'Simulierter Strom',                           'Simulated current'),
    (1606, 'Offset AD-Wandler',                           'ADC offset'),
    (1607, 'Testmaske',                                   'Test mask'),
    (1608, 'Rohwert AD-Wandler',                          'ADC raw value'),
    (1609, 'Serviceanmeldungen',                          'Service log-ins'),
    (1610, 'Servicecode',                                 'Service code'),
    (1611, 'Neuer Filter',                                'New filter'),
    (6601, 'Führt aus und kehrt zum vorigen Wert zurück', 'Executes and returns to the previous value'),
    (6607, 'Erst nach Eingabe des Servicecodes',          'Only after the service code was entered');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (16020, 16, 20, 1602, 8,  'INT',  'u16',               NULL, NULL, NULL, '0',    NULL),
    (16030, 16, 30, 1603, 8,  'ENUM', 'ServiceCommand',    NULL, NULL, NULL, '0',    NULL),
    (16060, 16, 60, 1606, 10, 'INT',  's16reverseMapping', NULL, NULL, NULL, '-2',   'hex4'),
    (16080, 16, 80, 1608, 10, 'INT',  'u16reverseMapping', NULL, NULL, NULL, '4660', 'hex4'),
    (16090, 16, 90, 1609, 10, 'INT',  NULL,                NULL, NULL, NULL, '0',    NULL);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat, enable, actionOnChange,
                        dependency, removeOnDependency) VALUES
    (16010, 16, 10, 1601, 8, 'ACTION', 'ServiceCommand', NULL,
     NULL, NULL, '0', NULL, NULL, 'SERVICE', NULL, 0),
    (16040, 16, 40, 1604, 8, 'ENUM', 'OnOff', NULL,
     NULL, NULL, '0', NULL, NULL, 'SIMULATION', NULL, 0),
    (16050, 16, 50, 1605, 8, 'FLOAT', 'f32', 107,
     '3.5', '23', '12', '0.00', NULL, NULL, '!:P("1604") = 1', -1),
    (16070, 16, 70, 1607, 10, 'HEX', NULL, NULL,
     NULL, NULL, '-1', 'hex8', NULL, NULL, '!:ENV.n("ACCESS_LEVEL") >= 2', 0),
    (16100, 16, 100, 1610, 8, 'INT', 'u16', NULL,
     NULL, NULL, '0', NULL, NULL, 'ACCESS_CODE', NULL, 0),
    -- Prepared, and not offered yet: a plain value in enable.
    (16110, 16, 110, 1611, 10, 'INT', 'u8', NULL,
     NULL, NULL, '0', NULL, '0', NULL, NULL, 0);

UPDATE Parameters SET expertOnly = -1 WHERE GroupType = 16;
UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (1602, 1603, 1608, 1609);
UPDATE Parameters SET direction = 4, authentification = 1 WHERE ParameterId IN (1601, 1610);


-- ---------------------------------------------------------------------------------------------------------------------
-- 8  Channel "Sensor"
-- ---------------------------------------------------------------------------------------------------------------------

-- 8.1  Group 21, input. The sensor type decides which of the other parameters exist and which units there are.
--      "^^" in a script is a mark for tools; it is taken out before the script runs.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2101, 'Sensortyp',                                              'Sensor type'),
    (2102, 'Einheit',                                                'Unit'),
    (2103, 'Anschluss',                                              'Connection'),
    (2104, 'Leitungswiderstand',                                     'Lead resistance'),
    (2105, 'Vergleichsstelle',                                       'Cold junction'),
    (2106, 'Temperatur der Vergleichsstelle',                        'Cold junction temperature'),
    (2107, 'Filterzeit',                                             'Filter time'),
    (2108, 'Fühleroffset',                                           'Sensor offset'),
    (2109, 'Bezeichnung',                                            'Label'),
    (2110, 'Brucherkennung nach',                                    'Break detection after'),
    (7101, 'Ein Wechsel setzt Einheit und Grenzwerte neu',           'A change sets unit and limits anew'),
    (7102, 'Das Gerät rechnet in °C, alles andere wird umgerechnet', 'The device counts in °C, all else is converted'),
    (7103, 'Nur für Widerstandssensoren',                            'For resistance sensors only'),
    (7104, 'Nur bei 2-Leiter-Anschluss',                             'With two wires only'),
    (7105, 'Nur für Thermoelemente',                                 'For thermocouples only'),
    (7107, 'Kleinster Wert nach dem Netzfilter des Geräts',          'Smallest value by the mains filter of the device');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, DefaultValue, displayFormat,
                        actionOnChange, subtype) VALUES
    (21010, 21, 10, 2101, 2, 'SELECT', '1', '$1 ($2)', 'SENSOR_TYPE',
     'SELECT [SensorType], [name], [standard] FROM [SensorTypes] ORDER BY [SensorType]');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, DefaultValue,
                        dependency, removeOnDependency, actionOnChange) VALUES
    (21020, 21, 20, 2102, 2, 'ENUM', 'TempUnit',     '#:ENV.sel("REGION", "US", 33, 32)',
     '!:P("2101") < 9 Or P("2101") = 12', 0, NULL),
    (21021, 21, 21, 2102, 2, 'ENUM', 'OhmUnit',      '37',
     '!:P.isIn("2101", 9, 10)', 0, NULL),
    (21022, 21, 22, 2102, 2, 'ENUM', 'VoltUnit',     '36',
     '!:P("2101") = 11', 0, NULL),
    (21030, 21, 30, 2103, 2, 'ENUM', 'Wires',        '3',
     '!:P.script("IS_RTD")', -1, NULL),
    (21050, 21, 50, 2105, 2, 'ENUM', 'ColdJunction', '0',
     '!:P.script("IS_TC")', -1, 'COLD_JUNCTION');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, dependency, removeOnDependency) VALUES
    (21040, 21, 40, 2104, 2, 'FLOAT', 'f32', 106,
     '0', '30', '0', '0.00',
     NULL, NULL, '!:P.script("IS_RTD") ^^And P("2103") = 2', 0),
    (21060, 21, 60, 2106, 2, 'FLOAT', 'f32', 123,
     '!:-40 * P.script("GAIN") + P.script("OFFSET")', '!:85 * P.script("GAIN") + P.script("OFFSET")',
     '!:20 * P.script("GAIN") + P.script("OFFSET")', '0.0',
     '!:P.script("GAIN")', '!:P.script("OFFSET")', '!:P.script("IS_TC") And P("2105") = 1', -1),
    (21070, 21, 70, 2107, 2, 'FLOAT', 'f32rnd1', 109,
     '!:Iif(CH("0")("14")("1403") = 60, 0.1, 0.2)', '60', '0.5', '0.0',
     NULL, NULL, NULL, 0),
    (21080, 21, 80, 2108, 2, 'FLOAT', 'f32', 123,
     '!:-10 * P.script("GAIN")', '!:10 * P.script("GAIN")', '0', '0.00',
     '!:P.script("GAIN")', NULL, NULL, 0),
    (21090, 21, 90, 2109, 11, 'STRING', 'ascii0', NULL,
     NULL, '16', '#:"Sensor " & CONFCH("ChannelId")', NULL,
     NULL, NULL, NULL, 0),
    (21100, 21, 100, 2110, 2, 'INT', 'u8', NULL,
     '1', '240', '10', 'seconds',
     NULL, NULL, NULL, 0);

UPDATE Parameters SET html = 2 WHERE GroupType = 21;


-- 8.2  Group 22, measured values: process data, read only, for trends. Scale and limits by scripts common to all
--      groups; a raw value with a unit of its own for each family of sensors; a display format that is a rule.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2201, 'Status',                              NULL),
    (2202, 'Messwert',                            'Measured value'),
    (2203, 'Rohwert',                             'Raw value'),
    (2204, 'Messwert in Prozent',                 'Value in percent'),
    (2205, 'Klemmentemperatur',                   'Terminal temperature'),
    (2206, 'AD-Wandlerwert',                      'ADC counts'),
    (2207, 'Messungen',                           'Measurements'),
    (2208, 'Mittelwert',                          'Average'),
    (7202, 'Hauptwert des Kanals',                'Main value of the channel'),
    (7203, 'Widerstand oder Spannung am Eingang', 'Resistance or voltage at the input');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (22010, 22, 10, 2201, 4, 'ENUM',  'ValueStatus',      NULL, NULL, NULL,  '128',     NULL),
    (22040, 22, 40, 2204, 4, 'FLOAT', 'f32precision1000', 108,  '0',  '100', '21.5',    NULL),
    (22060, 22, 60, 2206, 4, 'INT',   's16',              NULL, NULL, NULL,  '12346',   'techexpo'),
    (22070, 22, 70, 2207, 4, 'INT',   'u24',              NULL, NULL, NULL,  '1500000', 'scientific');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, dependency) VALUES
    (22020, 22, 20, 2202, 4, 'FLOAT', 'f32', 122,
     '!:P.script("SENSOR_LO")', '!:P.script("SENSOR_HI")', '!:21.5 * P.script("T_GAIN") + P.script("T_OFFSET")',
     '!:G("21").sel("2102", 36, "0.000", 37, "0.00", "0.0")',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL),
    (22030, 22, 30, 2203, 4, 'FLOAT', 'f32reverseMapping', 106,
     '0', '4000', '108.4', 'techexpo4',
     NULL, NULL, '!:G("21").isIn("2101", 1, 2, 3, 4, 9, 10, 12)'),
    (22031, 22, 31, 2203, 4, 'FLOAT', 'f32reverseMapping', 105,
     '-100', '100', '0.86', 'techexpo4',
     NULL, NULL, '!:G("21").isIn("2101", 5, 6, 7, 8, 11)'),
    (22050, 22, 50, 2205, 4, 'FLOAT', 's16rnd', 101,
     '-40', '125', '24.5', '0.0',
     '#:1 / 10', NULL, NULL),
    -- A subtype without a letter counts as an IEEE number.
    (22080, 22, 80, 2208, 4, 'FLOAT', '32rnd1', 122,
     NULL, NULL, '!:21.4 * P.script("T_GAIN") + P.script("T_OFFSET")', '#,##0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL);

UPDATE Parameters SET editable = 0, direction = 2, trendvariable = -1 WHERE GroupType = 22;


-- 8.3  Group 23, limits: limits that are other parameters, a limit that is computed of two.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2301, 'Überwachung',                                 'Monitoring'),
    (2302, 'Untere Sensorgrenze',                         'Lower sensor limit'),
    (2303, 'Obere Sensorgrenze',                          'Upper sensor limit'),
    (2304, 'Unterer Grenzwert',                           'Lower alarm limit'),
    (2305, 'Oberer Grenzwert',                            'Upper alarm limit'),
    (2306, 'Hysterese',                                   'Hysteresis'),
    (2307, 'Bei Grenzwertverletzung',                     'On limit violation'),
    (2308, 'Verzögerung',                                 'Delay'),
    (7304, 'Zwischen Sensorgrenze und oberem Grenzwert',  'Between the sensor limit and the upper alarm limit'),
    (7305, 'Zwischen unterem Grenzwert und Sensorgrenze', 'Between the lower alarm limit and the sensor limit'),
    (7306, 'Höchstens der halbe Abstand der Grenzwerte',  'At most half the distance of the limits');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, dependency) VALUES
    (23010, 23, 10, 2301, 2, 'ENUM', 'OnOff', NULL,
     NULL, NULL, '1', NULL,
     NULL, NULL, NULL),
    (23020, 23, 20, 2302, 2, 'FLOAT', 'f32', 122,
     NULL, NULL, '!:P.script("SENSOR_LO")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL),
    (23030, 23, 30, 2303, 2, 'FLOAT', 'f32', 122,
     NULL, NULL, '!:P.script("SENSOR_HI")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL),
    (23040, 23, 40, 2304, 2, 'FLOAT', 'f32precision10000', 122,
     '!:P("2302")', '!:P("2305")', '!:P("2302")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL),
    (23050, 23, 50, 2305, 2, 'FLOAT', 'f32precision10000', 122,
     '!:P("2304")', '!:P("2303")', '!:P("2303")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL),
    (23060, 23, 60, 2306, 2, 'FLOAT', 'f32', 124,
     '0', '!:(P.val("2305") - P.val("2304")) / 2', '!:P.script("T_GAIN")', '0.0',
     '!:P.script("T_GAIN")', NULL, NULL),
    (23070, 23, 70, 2307, 2, 'ENUM', 'AlarmAction', NULL,
     NULL, NULL, '0', NULL,
     NULL, NULL, '!:P("2301") = 1'),
    (23080, 23, 80, 2308, 2, 'INT', 'u16', NULL,
     '0', '3600', '10', 'seconds',
     NULL, NULL, '!:P("2301") = 1');

UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (2302, 2303);


-- 8.4  Group 24, calibration: consistency rules over groups, parameters that come with a choice, an integer with a
--      gain. The level of authentification counts only while the module type has authentification.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2401, 'Kalibrierung',                'Calibration'),
    (2402, 'Unterer Punkt',               'Lower point'),
    (2403, 'Oberer Punkt',                'Upper point'),
    (2404, 'Kalibriert am',               'Calibrated on'),
    (2405, 'Kalibriert von',              'Calibrated by'),
    (2406, 'Steigung',                    'Slope'),
    (2407, 'Nullpunkt',                   'Zero'),
    (7402, 'Innerhalb der Sensorgrenzen', 'Within the sensor limits'),
    (7403, 'Oberhalb des unteren Punkts', 'Above the lower point');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat) VALUES
    (24040, 24, 40, 2404, 3, 'STRING', 'hartdate',    NULL, NULL,  NULL,  '2024-02-29', 'yyyy-mm-dd'),
    (24050, 24, 50, 2405, 3, 'STRING', 'packedascii', NULL, NULL,  '12',  'ORVANE',     NULL),
    (24060, 24, 60, 2406, 3, 'FLOAT',  'f32',         NULL, '0.9', '1.1', '1',          '0.0000');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, consistency, dependency, removeOnDependency) VALUES
    (24020, 24, 20, 2402, 3, 'FLOAT', 'f32', 122,
     NULL, NULL, '!:P.script("T_OFFSET")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")',
     '!:P() >= G("23")("2302") And P() <= G("23")("2303")', '!:P("2401") >= 1', -1),
    (24030, 24, 30, 2403, 3, 'FLOAT', 'f32', 122,
     NULL, '!:G("23")("2303")', '!:100 * P.script("T_GAIN") + P.script("T_OFFSET")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")',
     '!:P() > P("2402")', '!:P("2401") = 2', -1),
    -- The device counts in steps of 10 ppm.
    (24070, 24, 70, 2407, 3, 'INT', 's16', 112,
     '-10000', '10000', '0', NULL,
     '10', NULL, NULL, NULL, 0);

-- A parameter that is away isn't converted when the unit changes, as long as it holds its default. So the choice that
-- brings the points back proposes them anew, by an action. The same goes for 2105 and 2106.
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, DefaultValue, actionOnChange) VALUES
    (24010, 24, 10, 2401, 3, 'ENUM', 'CalMode', '0', 'CAL_POINTS');

UPDATE Parameters SET authentification = 1, html = 5 WHERE GroupType = 24;


-- 8.5  Group 25, linearisation by coefficients: small numbers, disabled unless the sensor type asks for them.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2501, 'R0',            NULL),
    (2502, 'Koeffizient A', 'Coefficient A'),
    (2503, 'Koeffizient B', 'Coefficient B'),
    (2504, 'Koeffizient C', 'Coefficient C'),
    (2505, 'Tabelle',       'Table');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat, dependency) VALUES
    (25010, 25, 10, 2501, 9, 'FLOAT', 'f32', 106,  '10',     '2000',  '100',           '0.000',      '!:G("21")("2101") = 12'),
    (25020, 25, 20, 2502, 9, 'FLOAT', 'f32', NULL, '0',      '0.01',  '0.0039083',     'scientific', '!:G("21")("2101") = 12'),
    (25030, 25, 30, 2503, 9, 'FLOAT', 'f32', NULL, '-0.001', '0.001', '-0.0000005775', 'scientific', '!:G("21")("2101") = 12'),
    (25040, 25, 40, 2504, 9, 'FLOAT', 'f32', NULL, '-0.001', '0.001', '-4.183E-12',    '0.00E+00',   '!:G("21")("2101") = 12');

-- The prefix of plugin arguments is dropped, and the rest goes to the plugin as it stands: no script is run.
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, Max, DefaultValue,
                        EditPlugin, editPluginArguments) VALUES
    (25050, 25, 50, 2505, 9, 'STRING', 'hexstream', '64', '0000FFFF', 'Orvane.TableEditor', '#:width=16');

UPDATE Parameters SET expertOnly = -1 WHERE GroupType = 25;


-- 8.6  Group 26, sensor diagnosis: peak values that an action resets, offset and gain of integers, a rule that asks
--      the device channel, a trace line in the diagnostic log.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (2601, 'Sensorzustand',                             'Sensor state'),
    (2602, 'Höchster Messwert',                         'Highest value'),
    (2603, 'Niedrigster Messwert',                      'Lowest value'),
    (2604, 'Zeit über Grenzwert',                       'Time above limit'),
    (2605, 'Anschlusskopf',                             'Connection head'),
    (2606, 'Driftüberwachung',                          'Drift monitoring'),
    (2607, 'Driftgrenze',                               'Drift limit'),
    (7606, 'Nur wenn der Ausgang beide Sensoren nutzt', 'Only if the output uses both sensors');

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, unit,
                        Min, Max, DefaultValue, displayFormat,
                        realGain, realOffset, dependency, removeOnDependency) VALUES
    (26010, 26, 10, 2601, 5, 'ENUM', 'StatusIcon', NULL,
     NULL, NULL, '0', 'icon',
     NULL, NULL, NULL, 0),
    (26020, 26, 20, 2602, 5, 'FLOAT', 'f32', 122,
     NULL, NULL, '!:23.8 * P.script("T_GAIN") + P.script("T_OFFSET")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL, 0),
    (26030, 26, 30, 2603, 5, 'FLOAT', 'f32', 122,
     NULL, NULL, '!:19.2 * P.script("T_GAIN") + P.script("T_OFFSET")', '0.0',
     '!:P.script("T_GAIN")', '!:P.script("T_OFFSET")', NULL, 0),
    -- The device counts minutes; the value is in seconds, as the form "minutes" wants it.
    (26040, 26, 40, 2604, 5, 'INT', 'u31', NULL,
     NULL, NULL, '7200', 'minutes',
     '60', NULL, NULL, 0),
    -- One unsigned byte for -40 to 215 °C.
    (26050, 26, 50, 2605, 5, 'INT', 'u8', 101,
     '-40', '215', '25', NULL,
     NULL, '#:-40', NULL, 0),
    (26060, 26, 60, 2606, 5, 'ENUM', 'OnOff', NULL,
     NULL, NULL, '1', NULL,
     NULL, NULL, '!:ENV.Out(CH("0")("13")("1301") >= 3, "drift monitoring wanted")', -1),
    (26070, 26, 70, 2607, 5, 'FLOAT', 'f32', 108,
     '0', '100', '5', '0.0',
     NULL, NULL, '!:CH("0")("13")("1301") >= 3 And P("2606") = 1', -1);

UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (2601, 2602, 2603, 2604, 2605);


-- ---------------------------------------------------------------------------------------------------------------------
-- 9  Actions
-- ---------------------------------------------------------------------------------------------------------------------
-- The row of the new value runs, else the row with NULL, else nothing. An action is a text of statements, without a
-- prefix. It runs on the parameter's group, after the value is stored and all dependencies have settled.

INSERT INTO Actions (ActionID, value, actionScript) VALUES
    ('FAILURE_MODE', '0', 'P.SetValue "1306", 3.6'),
    ('FAILURE_MODE', '1', 'P.SetValue "1306", 21.5'),

    ('SERVICE', '1',
'CH("1")("26").SetValue "2602", CH("1")("22")("2202")
CH("1")("26").SetValue "2603", CH("1")("22")("2202")
If CONFM("IDX") <> 3 Then
    CH("2")("26").SetValue "2602", CH("2")("22")("2202")
    CH("2")("26").SetValue "2603", CH("2")("22")("2202")
End If
P.SetValue "1602", P("1602") + 1
P.SetValue "1603", P()'),
    ('SERVICE', '2',  'P.SetValue "1602", 0 : P.SetValue "1603", P()'),
    ('SERVICE', NULL, 'P.SetValue "1602", P("1602") + 1 : P.SetValue "1603", P()'),

    ('SIMULATION', NULL, 'ENV.SetVariable "SIMULATION", P.Gui("1604")'),

    -- SetValue settles the dependencies again, so the test mask appears at once.
    ('ACCESS_CODE', '4711', 'ENV.SetVariable "ACCESS_LEVEL", 2 : P.SetValue "1609", P("1609") + 1'),
    ('ACCESS_CODE', NULL,   'ENV.SetVariable "ACCESS_LEVEL", 0 : P.SetValue "1609", P("1609")'),

    ('COLD_JUNCTION', '1', 'P.SetValue "2106", 20 * P.script("GAIN") + P.script("OFFSET")'),

    ('CAL_POINTS', '1', 'P.SetValue "2402", P.script("T_OFFSET")'),
    ('CAL_POINTS', '2',
'P.SetValue "2402", P.script("T_OFFSET")
P.SetValue "2403", 100 * P.script("T_GAIN") + P.script("T_OFFSET")'),

    -- The unit that fits the new sensor, then the limits that follow from both.
    ('SENSOR_TYPE', NULL,
'P.SetValue "2102", P.sel("2101", 9, 37, 10, 37, 11, 36, Iif(P("2102") > 35, 32, P("2102")))
G("23").SetValue "2302", G("23").script("SENSOR_LO")
G("23").SetValue "2303", G("23").script("SENSOR_HI")
G("23").SetValue "2304", G("23")("2302")
G("23").SetValue "2305", G("23")("2303")');


-- ---------------------------------------------------------------------------------------------------------------------
-- 10  Names, descriptions, and places in the device image
-- ---------------------------------------------------------------------------------------------------------------------

UPDATE Parameters
SET    name = ParameterId,
       description = (SELECT TEXT_IDX FROM Texts WHERE TEXT_IDX = Parameters.ParameterId + 5000);

-- One image per channel: 75 bytes for the device, 68 for a sensor. A host that exports or imports an image finds a
-- parameter's place through its row: imageByte, imageBit and imageBits. NULL: the parameter isn't in the image.

WITH place (ParameterId, imageByte, imageBit, imageBits) AS (VALUES
    (1101,  0, 0,  48), (1106,  6, 0,  24), (1107,  9, 0,  16), (1108, 11, 0,  16), (1109, 13, 0,  32), (1113, 17, 0,   8),
    (1111, 18, 0,  16), (1112, 20, 0,  32), (1301, 24, 0,   8), (1302, 25, 0,  32), (1303, 29, 0,  32), (1305, 33, 0,   2),
    (1407, 33, 4,   4), (1403, 34, 0,   8), (1406, 35, 0,   8), (1404, 36, 0,  16), (1405, 38, 0,  32), (1402, 42, 0,   8),
    (1308, 43, 0,  16), (1309, 45, 0,  16), (1306, 47, 0,  32), (1606, 51, 0,  16), (1608, 53, 0,  16), (1210, 55, 0, 128),
    (1410, 71, 0,  32),

    (2101,  0, 0,   8), (2102,  1, 0,   8), (2103,  2, 0,   3), (2105,  2, 3,   2), (2301,  2, 5,   1), (2307,  2, 6,   2),
    (2104,  3, 0,  32), (2106,  7, 0,  32), (2107, 11, 0,  32), (2108, 15, 0,  32), (2110, 19, 0,   8), (2304, 20, 0,  32),
    (2305, 24, 0,  32), (2306, 28, 0,  32), (2308, 32, 0,  16), (2404, 34, 0,  24), (2405, 37, 0,  72), (2406, 46, 0,  32),
    (2407, 50, 0,  16), (2109, 52, 0, 128))
UPDATE Parameters
SET    imageByte = place.imageByte, imageBit = place.imageBit, imageBits = place.imageBits
FROM   place
WHERE  Parameters.ParameterId = place.ParameterId;
