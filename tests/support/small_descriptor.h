/// @file
/// A descriptor of two device types that tests change with further SQL.
#pragma once

#include <string>

namespace ov::testing {

inline const std::string kSmallDescriptor = R"(
CREATE TABLE DatabaseProperties (Name TEXT PRIMARY KEY, Value TEXT);
INSERT INTO DatabaseProperties VALUES ('Version', '1.2'), ('ModelVersionIndex', '1');
CREATE TABLE ModuleTypes (
    IDX LONG PRIMARY KEY, moduletype TEXT, enable YESNO, defaultName LONG, mainValue TEXT, ModuleImage TEXT,
    description LONG, deviceHelpFile LONG, authentification YESNO, FDTmanufacturerId LONG, FDTdeviceTypeId LONG,
    FDTsubDeviceType TEXT, FDTclassificationId TEXT, FDTdeviceIcon TEXT, fdtDeviceTypeInformation TEXT,
    FDTversion LONG);
INSERT INTO ModuleTypes VALUES
    (1, 'A', -1, 1, '', 'a.png', 2, 1, -1, 77, 10, 'x', '4', 'a.ico', 'plain', 1),
    (2, 'B', -1, 1, NULL, NULL, NULL, NULL, 0, NULL, 11, 'x', NULL, NULL, NULL, 2),
    (3, 'Off', 0, 1, NULL, NULL, NULL, NULL, 0, NULL, 12, 'x', NULL, NULL, NULL, 1);
CREATE TABLE Versions (
    FDTversion LONG PRIMARY KEY, [date] TEXT, descriptor TEXT, name TEXT, vendor TEXT, version TEXT);
INSERT INTO Versions VALUES (1, '2026-01-02', 'd', 'n', 'v', '3.4'), (2, NULL, NULL, NULL, NULL, NULL);
CREATE TABLE BusCategories (module LONG, busCategory LONG, CommunicationTypeEntry TEXT);
INSERT INTO BusCategories VALUES (1, 1, NULL), (1, NULL, 'required'), (1, 2, 'supported'), (2, 2, 'required');
CREATE TABLE BusCategoryTypes (busCategory LONG PRIMARY KEY, Category TEXT, CategoryName TEXT);
INSERT INTO BusCategoryTypes VALUES (1, '{AAAA}', 'Bus one'), (2, '{BBBB}', NULL);
CREATE TABLE SupportedLanguages (LangId TEXT PRIMARY KEY);
INSERT INTO SupportedLanguages VALUES ('0407'), ('0809');
CREATE TABLE Kinds (Kind LONG PRIMARY KEY, KindId TEXT);
INSERT INTO Kinds VALUES (1, 'DTM'), (2, 'Device');
CREATE TABLE Texts (TEXT_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);
INSERT INTO Texts VALUES (1, 'Gerät', 'Device'), (2, 'Beschreibung', NULL), (3, NULL, NULL);
CREATE TABLE Files (FILE_IDX LONG PRIMARY KEY, Text_7 TEXT, Text_9 TEXT);
INSERT INTO Files VALUES (1, 'hilfe.htm', 'help.htm');
CREATE TABLE Channels (ModuleType LONG, ChannelId LONG, name LONG, ChannelType LONG, [order] LONG);
)";

}  // namespace ov::testing
