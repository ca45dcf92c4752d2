/// @file
/// The tables of a generated descriptor.
#pragma once

namespace ov::bench {

inline constexpr const char* kTextsTable = R"sql(
CREATE TABLE Texts (TEXT_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);
)sql";

inline constexpr const char* kParametersTable = R"sql(
CREATE TABLE Parameters (
    idx LONG PRIMARY KEY, GroupType LONG NOT NULL, [order] LONG NOT NULL, ParameterId LONG NOT NULL, enable TEXT,
    Type TEXT NOT NULL, subtype TEXT, name LONG, description LONG, kind LONG NOT NULL, direction LONG, unit LONG,
    Min TEXT, Max TEXT, DefaultValue TEXT, realGain TEXT, realOffset TEXT, reverseMapping YESNO, displayFormat TEXT,
    precision LONG, multiline YESNO, consistency TEXT, actionOnChange TEXT, dependency TEXT, removeOnDependency YESNO,
    editable YESNO, expertOnly YESNO, authentification LONG, html LONG, trendvariable YESNO, EditPlugin TEXT,
    editPluginArguments TEXT, imageByte LONG, imageBit LONG, imageBits LONG);
)sql";
inline constexpr const char* kParametersIndex =
    "CREATE INDEX ParametersOfGroup ON Parameters (GroupType, [order], ParameterId)";

/// All other tables, with the rows that do not depend on the size of the descriptor.
inline constexpr const char* kFrameTables = R"sql(
CREATE TABLE DatabaseProperties (Name TEXT PRIMARY KEY, Value TEXT);
CREATE TABLE ModuleTypes (
    IDX LONG PRIMARY KEY, moduletype TEXT NOT NULL, enable YESNO, defaultName LONG, mainValue TEXT, ModuleImage TEXT,
    description LONG, deviceHelpFile LONG, authentification YESNO, FDTmanufacturerId LONG, FDTdeviceTypeId LONG,
    FDTsubDeviceType TEXT, FDTclassificationId TEXT, FDTdeviceIcon TEXT, fdtDeviceTypeInformation TEXT,
    FDTversion LONG NOT NULL);
CREATE TABLE Versions (
    FDTversion LONG PRIMARY KEY, [date] TEXT, descriptor TEXT, name TEXT, vendor TEXT, version TEXT);
CREATE TABLE BusCategories (module LONG NOT NULL, busCategory LONG, CommunicationTypeEntry TEXT);
CREATE TABLE BusCategoryTypes (busCategory LONG PRIMARY KEY, Category TEXT NOT NULL, CategoryName TEXT);
CREATE TABLE SupportedLanguages (LangId TEXT PRIMARY KEY);
CREATE TABLE Kinds (Kind LONG PRIMARY KEY, KindId TEXT);
CREATE TABLE Files (FILE_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);
CREATE TABLE Channels (
    ModuleType LONG NOT NULL, ChannelId LONG NOT NULL, name LONG, ChannelType LONG NOT NULL, [order] LONG,
    EditPlugin TEXT, editPluginArguments TEXT);
CREATE TABLE ChannelTypes (ChannelType LONG PRIMARY KEY, mainValue TEXT);
CREATE TABLE [Groups] (
    ChannelType LONG NOT NULL, GroupType LONG NOT NULL, groupId LONG NOT NULL, name LONG, block1 LONG,
    block1order DOUBLE, block2 LONG, block2order DOUBLE, block3 LONG, block3order DOUBLE, EditPlugin TEXT,
    editPluginArguments TEXT);
CREATE TABLE Blocks (BlockId LONG PRIMARY KEY, idx LONG NOT NULL, name LONG);
CREATE TABLE GroupScripts (GroupType LONG, ScriptId TEXT NOT NULL, script MEMO);
CREATE TABLE Enums (enumSubType TEXT, value LONG, valueText LONG);
CREATE TABLE EnumsStr (enumSubType TEXT, value TEXT, valueText LONG);
CREATE TABLE Actions (ActionID TEXT NOT NULL, value TEXT, actionScript MEMO);
CREATE TABLE FieldProperties (
    TableName TEXT NOT NULL, FieldName TEXT NOT NULL, PropertyName TEXT NOT NULL, PropertyValue TEXT,
    PRIMARY KEY (TableName, FieldName, PropertyName));

INSERT INTO DatabaseProperties VALUES ('Version', '1.00'), ('ModelVersionIndex', '1');
INSERT INTO ModuleTypes VALUES (1, 'Generated', -1, 1, 'CH("0").G("1").P("2")', NULL, 2, NULL, 0, 193, 4096, 'GEN', '4',
                                NULL, NULL, 1);
INSERT INTO Versions VALUES (1, '2024-03-15', 'Generated descriptor', NULL, 'Orvane', '1.00');
INSERT INTO BusCategoryTypes VALUES (1, '{5A1E6C10-0D52-4B77-9C61-3E2F4D8A0001}', 'HART');
INSERT INTO BusCategories VALUES (1, 1, 'required');
INSERT INTO SupportedLanguages VALUES ('0007'), ('0009');
INSERT INTO Kinds VALUES (1, 'DTM parameter'), (2, 'Device parameter'), (4, 'Process data');
INSERT INTO FieldProperties VALUES
    ('Enums', 'valueText', 'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS'),
    ('EnumsStr', 'valueText', 'RowSource', 'SELECT TEXT_IDX, Text_7 FROM TEXTS');

INSERT INTO Texts VALUES
    (1, 'Erzeugtes Gerät', 'Generated device'),
    (2, 'Gerät aus dem Generator', 'Device from the generator'),
    (3, 'Kanal', 'Channel'),
    (4, 'Gruppe', 'Group'),
    (5, 'Ansicht', 'View'),
    (11, '%', NULL),
    (12, 's', NULL),
    (13, '!:Iif(P("1") = 2, "°F", "°C")', NULL),
    (14, '!:P.sVal("1")', NULL),
    (21, 'Aus', 'Off'),
    (22, 'Langsam', 'Slow'),
    (23, 'Schnell', 'Fast'),
    (29, 'Unbekannter Wert %1dec', 'Unknown value %1dec');
INSERT INTO Enums VALUES ('Mode', 0, 21), ('Mode', 1, 22), ('Mode', 2, 23), (NULL, NULL, 29);
INSERT INTO GroupScripts VALUES
    (NULL, 'GAIN', '!:Iif(P("1") = 2, 1.8, 1)'),
    (NULL, 'OFFSET', '!:Iif(P("1") = 2, 32, 0)');
)sql";

}  // namespace ov::bench
