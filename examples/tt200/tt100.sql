-- TT100: a small, older temperature transmitter, as a device descriptor of format generation 0.
--
-- There is no row "ModelVersionIndex", so the prefixes "#:" and "!:" mean nothing here. What is a script is told by
-- the shape of the text and by the column:
--   * Numbers, limits, scales, flags: a text that reads as the wanted type is a value, any other text is a script.
--   * Texts (default of a STRING, units, display formats, names in lists, file names): a script if the text holds an
--     open bracket directly followed by a double quote, as every call such as P("202") does. A text in double quotes
--     loses them. So GETTEXT(901) alone would be a plain text.
--   * consistency: always a script. dependency: a flag if it reads as one, else a script.
--   * A script with such a call stays live. One without it, such as 60 * 60, is run once.
--
-- Older in other ways: no column "enable" in ModuleTypes, so all types are offered; "staticDependency" in place of
-- "enable" in Parameters; no tables GroupScripts and EnumsStr.

CREATE TABLE DatabaseProperties (Name TEXT PRIMARY KEY, Value TEXT);

CREATE TABLE ModuleTypes (
    IDX LONG PRIMARY KEY, moduletype TEXT NOT NULL, defaultName LONG, mainValue TEXT, ModuleImage TEXT,
    description LONG, deviceHelpFile LONG, authentification YESNO DEFAULT 0, FDTmanufacturerId LONG,
    FDTdeviceTypeId LONG, FDTsubDeviceType TEXT, FDTclassificationId TEXT, FDTdeviceIcon TEXT,
    fdtDeviceTypeInformation TEXT, FDTversion LONG NOT NULL);

CREATE TABLE Versions (
    FDTversion LONG PRIMARY KEY, [date] TEXT, descriptor TEXT, name TEXT, vendor TEXT, version TEXT);

CREATE TABLE BusCategories (module LONG NOT NULL, busCategory LONG, CommunicationTypeEntry TEXT);
CREATE TABLE BusCategoryTypes (busCategory LONG PRIMARY KEY, Category TEXT NOT NULL, CategoryName TEXT);
CREATE TABLE SupportedLanguages (LangId TEXT PRIMARY KEY);
CREATE TABLE Kinds (Kind LONG PRIMARY KEY, KindId TEXT);
CREATE TABLE Texts (TEXT_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);
CREATE TABLE Files (FILE_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);

CREATE TABLE Channels (
    ModuleType LONG NOT NULL, ChannelId LONG NOT NULL, name LONG, ChannelType LONG NOT NULL, [order] LONG,
    EditPlugin TEXT, editPluginArguments TEXT);

CREATE TABLE ChannelTypes (ChannelType LONG PRIMARY KEY, mainValue TEXT);

CREATE TABLE [Groups] (
    ChannelType LONG NOT NULL, GroupType LONG NOT NULL, groupId LONG NOT NULL, name LONG,
    block1 LONG, block1order LONG, block2 LONG, block2order LONG, block3 LONG, block3order LONG,
    EditPlugin TEXT, editPluginArguments TEXT);

CREATE TABLE Blocks (BlockId LONG PRIMARY KEY, idx LONG NOT NULL, name LONG);

CREATE TABLE Parameters (
    idx LONG PRIMARY KEY, GroupType LONG NOT NULL, [order] LONG NOT NULL, ParameterId LONG NOT NULL,
    staticDependency TEXT, Type TEXT NOT NULL, subtype TEXT, name LONG, description LONG, kind LONG NOT NULL,
    direction LONG DEFAULT 3, unit LONG, Min TEXT, Max TEXT, DefaultValue TEXT, realGain TEXT, realOffset TEXT,
    displayFormat TEXT, consistency TEXT, actionOnChange TEXT, dependency TEXT, removeOnDependency YESNO DEFAULT 0,
    editable YESNO DEFAULT -1, expertOnly YESNO DEFAULT 0, authentification LONG DEFAULT 0, html LONG,
    trendvariable YESNO DEFAULT 0, EditPlugin TEXT, editPluginArguments TEXT);

CREATE TABLE Enums (enumSubType TEXT, value LONG, valueText LONG);
CREATE TABLE Actions (ActionID TEXT NOT NULL, value TEXT, actionScript MEMO);
CREATE TABLE FieldProperties (
    TableName TEXT NOT NULL, FieldName TEXT NOT NULL, PropertyName TEXT NOT NULL, PropertyValue TEXT,
    PRIMARY KEY (TableName, FieldName, PropertyName));


-- Module types, structure

INSERT INTO DatabaseProperties (Name, Value) VALUES ('Version', '1.03');

INSERT INTO ModuleTypes (IDX, moduletype, defaultName, mainValue, description, deviceHelpFile, FDTmanufacturerId,
                         FDTdeviceTypeId, FDTsubDeviceType, FDTclassificationId, fdtDeviceTypeInformation, FDTversion) VALUES
    (1, 'TT100',    1, 'CH("1").G("2").P("206")', 2, 1, 193, 4097, 'TT100',    '4', 'Temperature transmitter',       1),
    (2, 'TT100 Ex', 1, 'CH("1").G("2").P("206")', 2, 1, 193, 4098, 'TT100-EX', '4', '"Type " & CONFM("moduletype")', 1);

INSERT INTO Versions (FDTversion, [date], descriptor, name, vendor, version) VALUES
    (1, '2011-05-09', 'TT100 descriptor', 'Orvane TT100 device model', 'Orvane', '1.03');

INSERT INTO BusCategoryTypes (busCategory, Category, CategoryName) VALUES
    (1, '{5A1E6C10-0D52-4B77-9C61-3E2F4D8A0001}', 'HART');
INSERT INTO BusCategories (module, busCategory, CommunicationTypeEntry) VALUES (1, 1, NULL), (2, 1, NULL);
INSERT INTO SupportedLanguages (LangId) VALUES ('0407'), ('0409');
INSERT INTO Kinds (Kind, KindId) VALUES (2, 'Parameter'), (4, 'Process data'), (11, 'Identification');

INSERT INTO Channels (ModuleType, ChannelId, name, ChannelType, [order], editPluginArguments) VALUES
    (1, 0, 11, 1, 1, NULL),
    (1, 1, 12, 2, 2, NULL),
    (2, 0, 11, 1, 1, NULL),
    (2, 1, 12, 2, 2, NULL);

INSERT INTO ChannelTypes (ChannelType, mainValue) VALUES (1, NULL), (2, 'G("2")("206")');

INSERT INTO [Groups] (ChannelType, GroupType, groupId, name, block1, block1order) VALUES
    (1, 1, 1, 13, 1, 1),
    (2, 2, 2, 14, 2, 1);

INSERT INTO Blocks (BlockId, idx, name) VALUES (1, 1, 11), (2, 2, 12);


-- Texts and files. Unit 32 and one word of a list are scripts, and so is the English name of file 2.

INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES
    (1,   'TT100 Temperaturmessumformer',            'TT100 temperature transmitter'),
    (2,   'Einfacher Messumformer mit HART',         'Basic transmitter with HART'),
    (11,  'Gerät',                                   'Device'),
    (12,  'Sensor',                                  NULL),
    (13,  'Identifikation',                          'Identification'),
    (14,  'Messung',                                 'Measurement'),
    (31,  'mA',                                      NULL),
    (32,  'P.sVal("202")',                           NULL),
    (33,  's',                                       NULL),
    (41,  'Pt100',                                   NULL),
    (42,  'Thermoelement K',                         'Thermocouple K'),
    (43,  '"Kanal " & CONFCH("ChannelId") & " aus"', '"Channel " & CONFCH("ChannelId") & " off"'),
    (44,  '°C',                                      NULL),
    (45,  '°F',                                      NULL),
    (46,  'Niedrig',                                 'Low'),
    (47,  'Hoch',                                    'High'),
    (49,  'Unbekannt',                               'Unknown'),
    (101, 'Messstelle',                              'Tag'),
    (102, 'Adresse',                                 'Address'),
    (103, 'Seriennummer',                            'Serial number'),
    (104, 'Einbauort',                               'Location'),
    (105, 'Zündschutzart',                           'Type of protection'),
    (201, 'Sensortyp',                               'Sensor type'),
    (202, 'Einheit',                                 'Unit'),
    (203, 'Messanfang',                              'Lower range value'),
    (204, 'Messende',                                'Upper range value'),
    (205, 'Dämpfung',                                'Damping'),
    (206, 'Messwert',                                'Measured value'),
    (207, 'Fehlersignal',                            'Failure signal'),
    (208, 'Fehlerstrom',                             'Failure current');

INSERT INTO Files (FILE_IDX, Text_7, Text_9) VALUES
    (1, 'help/tt100_de.html',  'help/tt100_en.html'),
    (2, 'help/sensor_de.html', 'Iif(CONFM("IDX") = 2, "help/tt100_en.html", "help/sensor_en.html")');

INSERT INTO Enums (enumSubType, value, valueText) VALUES
    ('Sensor',  1,    41),
    ('Sensor',  2,    42),
    ('Sensor',  3,    43),
    ('Unit',    32,   44),
    ('Unit',    33,   45),
    ('Failure', 0,    46),
    ('Failure', 1,    47),
    (NULL,      NULL, 49);

INSERT INTO FieldProperties (TableName, FieldName, PropertyName, PropertyValue) VALUES
    ('Enums', 'valueText', 'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS');


-- Group 1: texts in quotes, a script that makes a text, a row for one module type only.

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, name, kind, Type, subtype, Min, Max, DefaultValue,
                        consistency, staticDependency) VALUES
    (101, 1, 1, 101, 101, 11, 'STRING', 'packedascii', NULL, '8',  '"TT100"', NULL,       NULL),
    (102, 1, 2, 102, 102, 2,  'INT',    'u8',          '0',  '15', '0',       'P() <> 8', NULL),
    (103, 1, 3, 103, 103, 11, 'INT',    'u32',         NULL, NULL, '4711001', NULL,       'True'),
    (104, 1, 4, 104, 104, 11, 'STRING', NULL,          NULL, '32',
     '"Channel " & CONFCH("ChannelId")', 'Len(P()) > 0', NULL),
    (105, 1, 5, 105, 105, 11, 'STRING', NULL,          NULL, '32',
     'Ex ia', NULL, 'CONFM("IDX") = 2');

-- Group 2: limits, scale and unit by live scripts; a limit that is computed once; two alternatives and an action.

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, name, kind, Type, subtype, unit, Min, Max, DefaultValue,
                        displayFormat, realGain, realOffset, consistency) VALUES
    (201, 2, 1, 201, 201, 2, 'ENUM', 'Sensor', NULL, NULL, NULL, '1',
     NULL, NULL, NULL, NULL),
    (202, 2, 2, 202, 202, 2, 'ENUM', 'Unit', NULL, NULL, NULL, '32',
     NULL, NULL, NULL, NULL),
    (203, 2, 3, 203, 203, 2, 'FLOAT', 'f32', 32, 'P.sel("202", 33, -328, -200)', 'P("204")', 'P.sel("202", 33, 32, 0)',
     '0.0', 'P.sel("202", 33, 1.8, 1)', 'P.sel("202", 33, 32, 0)', NULL),
    (204, 2, 4, 204, 204, 2, 'FLOAT', 'f32', 32, NULL, 'P.sel("202", 33, 1562, 850)', 'P.sel("202", 33, 212, 100)',
     'Iif(P("201") = 1, "0.0", "0")', 'P.sel("202", 33, 1.8, 1)', 'P.sel("202", 33, 32, 0)', 'P() > P("203")'),
    (205, 2, 5, 205, 205, 2, 'INT', 'u16', 33, '0', '60 * 60', '10 / 2',
     NULL, NULL, NULL, NULL),
    (206, 2, 6, 206, 206, 4, 'FLOAT', 'f32', 32, NULL, NULL, 'P.sel("202", 33, 70.7, 21.5)',
     '0.0', 'P.sel("202", 33, 1.8, 1)', 'P.sel("202", 33, 32, 0)', NULL);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, name, kind, Type, subtype, unit, Min, Max, DefaultValue,
                        dependency, removeOnDependency, actionOnChange, EditPlugin, editPluginArguments) VALUES
    (207,  2, 7, 207, 207, 2, 'ENUM', 'Failure', NULL, NULL, NULL, '1',
     NULL, 0, 'FAILURE', NULL, NULL),
    -- Arguments of a plugin go out as they stand, prefix and all.
    (208,  2, 8, 208, 208, 2, 'FLOAT', 'f32', 31, '3.5', '3.8', '3.6',
     'P("207") = 0', -1, NULL, 'Orvane.Slider', '#:3.5-3.8'),
    (2081, 2, 9, 208, 208, 2, 'FLOAT', 'f32', 31, '21', '23', '21.5',
     'P("207") = 1', -1, NULL, 'Orvane.Slider', '#:21-23');

UPDATE Parameters SET editable = 0, direction = 2, trendvariable = -1 WHERE ParameterId = 206;
UPDATE Parameters SET editable = 0, direction = 2 WHERE ParameterId IN (103, 105);
UPDATE Parameters SET html = 2 WHERE GroupType = 2;

INSERT INTO Actions (ActionID, value, actionScript) VALUES
    ('FAILURE', '0',  'P.SetValue "208", 3.6'),
    ('FAILURE', NULL, 'P.SetValue "208", 21.5');
