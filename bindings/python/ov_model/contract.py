"""The interfaces of the contract for annotations, and the constants of its enumerations.

Made by generate_contract.py from the library's headers; not to be edited. Nothing is an instance of these classes: the
objects of the library have their members by name. Where an argument is left out, it is optional.
"""

# pylint: skip-file
from __future__ import annotations

import enum
from typing import Any, Generic, Iterator, Protocol, TypeVar

from ._objects import Property
from ._values import ByRef

__all__ = ["eEditType", "eParameterConfigState", "eParameterAuthentification", "eParameterValueExt",
           "eFdtClassificationId", "eParameterKind", "eParameterDirection", "eByteOrder", "standard",
           "enumeration", "MultiLine", "Icon", "eParameterValid", "eParameterDisabled", "eParameterInvalid",
           "eParameterAuthNone", "eParameterAuthWriteOnly", "eParameterAuthReadWrite",
           "eParamValueExtNormalValue", "eParamValueExtNaN", "eParamValueExtOutOfRange",
           "eParamValueExtNoEnum", "eParamValueExtErrorSettingValue", "fdt_classificationId_Ndef",
           "fdt_flow", "fdt_level", "fdt_pressure", "fdt_temperature", "fdt_valve", "fdt_positioner",
           "fdt_actuator", "fdt_nc_rc", "fdt_encoder", "fdt_speedDrive", "fdt_hmi", "fdt_analogInput",
           "fdt_analogOutput", "fdt_digitalInput", "fdt_digitalOutput", "fdt_electrochemicalAnalyser",
           "fdt_dtmSpecific", "eParamKindDtmParam", "eParamKindDeviceParam", "eParamKindCalibration",
           "eParamKindProcessData", "eParamKindDiagnosis", "eParamKindSpecific1", "eParamKindSpecific2",
           "eParamKindSpecific3", "eParamKindSpecific4", "eParamKindInternal", "eParamKindDeviceIdent",
           "eParameterDirectionNone", "eParameterDirectionRead", "eParameterDirectionReadWrite",
           "eParameterDirectionWrite", "eLittleEndian", "eBigEndian", "eMiddleEndian", "eParamKindAllKinds",
           "tBaseDescriptorDB", "tBaseVersionInformation", "tBaseBusCategory", "tBaseFdtDeviceTypeInfo",
           "TypedCollection", "CBase_GuiModuleCollection", "CBase_GuiChannelCollection",
           "CBase_GuiBlockCollection", "CBase_GuiGroupCollection", "CBase_GuiParameterCollection",
           "CBase_SpecModuleCollection", "CBase_SpecChannelCollection", "CBase_SpecGroupCollection",
           "CBase_SpecParameterCollection", "CBase_Module", "IBase_GuiModule", "IBase_SpecModule",
           "CBase_Unload", "CBase_Station", "IBase_GuiStation", "IBase_SpecStation", "CBase_Channel",
           "IBase_GuiChannel", "IBase_SpecChannel", "IBase_ScriptingChannel", "IBase_GuiBlock",
           "CBase_Group", "IBase_GuiGroup", "IBase_SpecGroup", "IBase_ScriptingGroup", "IBase_GuiParameter",
           "IBase_SpecParameter", "IBase_SpecParameterStorage", "CBase_ParameterString", "IBase_Internal",
           "CBase_ParamDependency", "IBase_CallbackParameter", "IBase_CallbackModule",
           "IBase_CallbackStation", "ISpec_ImExport", "CBase_Environment", "CBase_EnvironmentEvents",
           "CBase_ScriptingParameters", "CBase_ScriptingGroups", "CBase_ScriptingChannels",
           "CBase_ScriptingTexts", "IExplain_Read", "IExplain_Rule", "IExplain_Parameter", "ICollection"]


class eEditType(enum.IntEnum):
    """The control that suits an editor of a parameter."""

    standard = 1  # one line of text
    enumeration = 2  # a choice from `editValues`
    MultiLine = 3  # several lines of text
    Icon = 4  # a picture; the value is the path of its file


class eParameterConfigState(enum.IntEnum):
    """Whether a row of the descriptor is in force for a parameter."""

    eParameterValid = 0  # in force
    eParameterDisabled = 1  # not in force for now; to be shown greyed
    eParameterInvalid = 2  # not in force for now; not to be shown


class eParameterAuthentification(enum.IntEnum):
    """What of a parameter asks for a login."""

    eParameterAuthNone = 0
    eParameterAuthWriteOnly = 1  # writing
    eParameterAuthReadWrite = 2  # reading and writing


class eParameterValueExt(enum.IntEnum):
    """The state of a value beside its number. Above 0 the value is never consistent."""

    eParamValueExtNormalValue = 0  # the number counts
    eParamValueExtNaN = 1  # not a number; shown as "QNAN"
    eParamValueExtOutOfRange = 2  # a write that overflowed the value's type
    eParamValueExtNoEnum = 3  # a number that the list does not have
    eParamValueExtErrorSettingValue = 4  # a write or import that failed otherwise


class eFdtClassificationId(enum.IntEnum):
    """What a device type measures or moves, by the classification of the FDT standard."""

    fdt_classificationId_Ndef = 0  # not defined
    fdt_flow = 1
    fdt_level = 2
    fdt_pressure = 3
    fdt_temperature = 4
    fdt_valve = 5
    fdt_positioner = 6
    fdt_actuator = 7
    fdt_nc_rc = 8  # numeric or robot control
    fdt_encoder = 9
    fdt_speedDrive = 10
    fdt_hmi = 11  # human machine interface
    fdt_analogInput = 12
    fdt_analogOutput = 13
    fdt_digitalInput = 14
    fdt_digitalOutput = 15
    fdt_electrochemicalAnalyser = 16
    fdt_dtmSpecific = 17  # also what a descriptor that says nothing gives


class eParameterKind(enum.IntFlag):
    """What a parameter is for. Each value is one bit, so that an argument of this type can name several kinds; a
    parameter has one."""

    eParamKindDtmParam = 1  # of the driver itself
    eParamKindDeviceParam = 2  # stored in the device
    eParamKindCalibration = 4
    eParamKindProcessData = 8
    eParamKindDiagnosis = 16
    eParamKindSpecific1 = 32  # for the use of the device family, as are the three below
    eParamKindSpecific2 = 64
    eParamKindSpecific3 = 128
    eParamKindSpecific4 = 256
    eParamKindInternal = 512
    eParamKindDeviceIdent = 1024  # identifies the device


class eParameterDirection(enum.IntEnum):
    """How the device's copy of a parameter is accessed."""

    eParameterDirectionNone = 1
    eParameterDirectionRead = 2
    eParameterDirectionReadWrite = 3  # what a descriptor that says nothing gives
    eParameterDirectionWrite = 4


class eByteOrder(enum.IntEnum):
    """The order of a number's bytes in a device image."""

    eLittleEndian = 0  # least significant byte first; what is meant by leaving it out
    eBigEndian = 1  # most significant byte first
    eMiddleEndian = 2  # known by name only


standard = eEditType.standard
enumeration = eEditType.enumeration
MultiLine = eEditType.MultiLine
Icon = eEditType.Icon
eParameterValid = eParameterConfigState.eParameterValid
eParameterDisabled = eParameterConfigState.eParameterDisabled
eParameterInvalid = eParameterConfigState.eParameterInvalid
eParameterAuthNone = eParameterAuthentification.eParameterAuthNone
eParameterAuthWriteOnly = eParameterAuthentification.eParameterAuthWriteOnly
eParameterAuthReadWrite = eParameterAuthentification.eParameterAuthReadWrite
eParamValueExtNormalValue = eParameterValueExt.eParamValueExtNormalValue
eParamValueExtNaN = eParameterValueExt.eParamValueExtNaN
eParamValueExtOutOfRange = eParameterValueExt.eParamValueExtOutOfRange
eParamValueExtNoEnum = eParameterValueExt.eParamValueExtNoEnum
eParamValueExtErrorSettingValue = eParameterValueExt.eParamValueExtErrorSettingValue
fdt_classificationId_Ndef = eFdtClassificationId.fdt_classificationId_Ndef
fdt_flow = eFdtClassificationId.fdt_flow
fdt_level = eFdtClassificationId.fdt_level
fdt_pressure = eFdtClassificationId.fdt_pressure
fdt_temperature = eFdtClassificationId.fdt_temperature
fdt_valve = eFdtClassificationId.fdt_valve
fdt_positioner = eFdtClassificationId.fdt_positioner
fdt_actuator = eFdtClassificationId.fdt_actuator
fdt_nc_rc = eFdtClassificationId.fdt_nc_rc
fdt_encoder = eFdtClassificationId.fdt_encoder
fdt_speedDrive = eFdtClassificationId.fdt_speedDrive
fdt_hmi = eFdtClassificationId.fdt_hmi
fdt_analogInput = eFdtClassificationId.fdt_analogInput
fdt_analogOutput = eFdtClassificationId.fdt_analogOutput
fdt_digitalInput = eFdtClassificationId.fdt_digitalInput
fdt_digitalOutput = eFdtClassificationId.fdt_digitalOutput
fdt_electrochemicalAnalyser = eFdtClassificationId.fdt_electrochemicalAnalyser
fdt_dtmSpecific = eFdtClassificationId.fdt_dtmSpecific
eParamKindDtmParam = eParameterKind.eParamKindDtmParam
eParamKindDeviceParam = eParameterKind.eParamKindDeviceParam
eParamKindCalibration = eParameterKind.eParamKindCalibration
eParamKindProcessData = eParameterKind.eParamKindProcessData
eParamKindDiagnosis = eParameterKind.eParamKindDiagnosis
eParamKindSpecific1 = eParameterKind.eParamKindSpecific1
eParamKindSpecific2 = eParameterKind.eParamKindSpecific2
eParamKindSpecific3 = eParameterKind.eParamKindSpecific3
eParamKindSpecific4 = eParameterKind.eParamKindSpecific4
eParamKindInternal = eParameterKind.eParamKindInternal
eParamKindDeviceIdent = eParameterKind.eParamKindDeviceIdent
eParameterDirectionNone = eParameterDirection.eParameterDirectionNone
eParameterDirectionRead = eParameterDirection.eParameterDirectionRead
eParameterDirectionReadWrite = eParameterDirection.eParameterDirectionReadWrite
eParameterDirectionWrite = eParameterDirection.eParameterDirectionWrite
eLittleEndian = eByteOrder.eLittleEndian
eBigEndian = eByteOrder.eBigEndian
eMiddleEndian = eByteOrder.eMiddleEndian
eParamKindAllKinds = eParameterKind(2047)


class tBaseDescriptorDB(Protocol):
    """An open database and a recordset on the row that an object is to take; handed from parent to child while the tree
    is configured."""

    @property
    def db(self) -> Any:
        """The descriptor database."""

    @property
    def rs(self) -> Any:
        """Its current row is the one that counts; the receiver copies it at once."""


class tBaseVersionInformation(Protocol):
    """The version of a device type description."""

    @property
    def name(self) -> str:
        """Of the device type; made from its numbers where the descriptor has none."""

    @property
    def vendor(self) -> str:
        """Who made the description."""

    @property
    def version(self) -> str:
        """Of the description, in its maker's form."""

    @property
    def date(self) -> str:
        """Of the version, as written in the descriptor."""

    @property
    def descriptor(self) -> str:
        """Free text on the version."""


class tBaseBusCategory(Protocol):
    """A bus protocol of a device type."""

    @property
    def busCategory(self) -> str:
        """The identifier, with braces as stored."""

    @property
    def busCategoryName(self) -> str:
        """For people."""

    @property
    def CommunicationTypeEntry(self) -> str:
        """"required", or how else the type uses the bus."""


class tBaseFdtDeviceTypeInfo(Protocol):
    """What a frame application wants to know of a device type."""

    @property
    def manufacturerId(self) -> int:
        """0 if the descriptor names none."""

    @property
    def deviceTypeId(self) -> int:
        """As the bus reports it; 0 if the descriptor names none."""

    @property
    def subDeviceType(self) -> str:
        """Tells types with one deviceTypeId apart."""

    @property
    def deviceTypeInformation(self) -> str:
        """A document for the frame application, read from a file where one is named."""

    @property
    def classificationId(self) -> int:
        """What it measures."""

    @property
    def version(self) -> tBaseVersionInformation:
        """Of the description."""

    @property
    def supportedLanguages(self) -> list[str]:
        """"&H" and hexadecimal digits; by name an array from 1 on."""

    @property
    def busCategories(self) -> list[tBaseBusCategory]:
        """By name an array from 1 on, never allocated if there is none."""

    @property
    def deviceIcon(self) -> str:
        """As written in the descriptor."""


Element = TypeVar("Element")


class TypedCollection(Protocol, Generic[Element]):
    """A typed collection. Keys are the text forms of the elements' ids and compare without regard to case."""

    def Add(self, obj: Element, key: str, /) -> Element:
        """Adds obj at the end; an element under the same key goes. Answers obj."""

    def Count(self) -> int:
        """Number of elements."""

    def Remove(self, key: str, /) -> None:
        """Does nothing for a missing key."""

    def Item(self, key: str, /) -> Element:
        """The default member. Nothing for a missing key, and for an object that has no facet Element."""

    def Inside(self, key: str, /) -> bool:
        """True if there is an element under key."""

    def Clear(self) -> None:
        """Removes all elements."""

    @property
    def first(self) -> Element:
        """The first element; Nothing if the collection is empty."""

    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Element]: ...
    def __getitem__(self, key: Any, /) -> Element: ...
    def __contains__(self, key: Any, /) -> bool: ...


CBase_GuiModuleCollection = TypedCollection["IBase_GuiModule"]
CBase_GuiChannelCollection = TypedCollection["IBase_GuiChannel"]
CBase_GuiBlockCollection = TypedCollection["IBase_GuiBlock"]
CBase_GuiGroupCollection = TypedCollection["IBase_GuiGroup"]
CBase_GuiParameterCollection = TypedCollection["IBase_GuiParameter"]
CBase_SpecModuleCollection = TypedCollection["IBase_SpecModule"]
CBase_SpecChannelCollection = TypedCollection["IBase_SpecChannel"]
CBase_SpecGroupCollection = TypedCollection["IBase_SpecGroup"]
CBase_SpecParameterCollection = TypedCollection["IBase_SpecParameter"]


class CBase_Module(Protocol):
    """The module as the host drives it: load and unload, language, paths, the catalogue of module types. Paths may be
    used before Load; the database is opened when it is first needed and shared by all modules of the process that name
    it by the same text. It stays open to the end of the process."""

    @property
    def mDB(self) -> Any:
        """The open descriptor database, Nothing before its first use and after Unload."""
    @mDB.setter
    def mDB(self, value: Any, /) -> None: ...

    def GetDllPath(self) -> str:
        """The folder "bin" beside the library's own folder if there is one, else the library's own folder."""

    def GetDBVersion(self) -> Any:
        """A String: the descriptor's version and that of the database engine. "-" without a source path or a readable
        database. Opens the database; the answer is kept until the source path changes."""

    def Gui(self) -> IBase_GuiModule:
        """This object for user interfaces."""

    def Spec(self) -> IBase_SpecModule:
        """This object for the engine."""

    def GetUnloadPointer(self) -> CBase_Unload:
        """A new guard that holds this module and unloads it when the guard's own last reference goes."""

    def GetModuleType(self, deviceTypeId: int = ..., subDeviceType: ByRef | str = ..., /) -> Any:
        """GetModuleType2 without a required bus category."""

    def SetLanguage(self, languageId: int, /) -> bool:
        """Sets the language by its id, of which the low 10 bits (the primary language) count; 7, German, at first. With
        a type loaded the answer is False, and nothing changes, for a language that the type does not support; otherwise
        OnLanguageChanged is told, even for the language that was set before."""

    def GetLanguage(self) -> int:
        """The primary language id, 0 to 1023."""

    def SetSourcePath(self, sourcepath: str, /) -> bool:
        """Names the database file; always True. Another path than before ends the tree; the present one does nothing. A
        path that begins with "." starts at the library's own folder."""

    def GetSourcePath(self) -> str:
        """The path as it was set; made absolute by the first opening."""

    def Types(self) -> ICollection:
        """The names of all enabled module types in table order, without keys; Nothing if the database cannot be
        read."""

    def Load(self, moduletype: str, moduleid: str = ..., modulename: str = ..., /) -> bool:
        """Makes the module a device of type moduletype (exact, case included) and replaces a tree that stands. moduleid
        is the host's name for it; modulename, if given and not "", its display name in every language. A language that
        the type does not support becomes 7. Builds no channel yet. Answers False if the database or the type is missing
        or its row is faulty; the module is then unusable until the next Load."""

    def Unload(self) -> None:
        """Tells OnUnload, then takes the tree down and forgets all listeners. Paths, language and environment stay, so
        that the module can be loaded again. A second call does nothing."""

    def GetModuleType2(self, deviceTypeId: int = ..., subDeviceType: ByRef | str = ..., requiredBusCategory: str = ...,
            /) -> Any:
        """The module types for a device found on a bus: Empty if none fits, else a String with one name. deviceTypeId:
        -1, as when left out, is any. subDeviceType must fit exactly; with "{}" behind it all types that fit are
        answered, joined by "{}", and the two characters are cut off the caller's text. requiredBusCategory: "" for any,
        else a category that the type must mark as required, in any case. -1 with "" asks for the loaded type's name, ""
        if there is none. Needs a source path and no loaded type."""

    def GetDBPath(self) -> str:
        """The folder of the database, "" without a source path."""

    def GetModelVersionIndex(self) -> int:
        """The format generation of the descriptor: 0 if it names none. From 1 on rules carry the marks "#:" and
        "!:"."""

    def RegisterModuleCallbackOnly(self, cb: Any, /) -> None:
        """Registers a listener for the module's events alone; one that has none of them is passed over in silence."""

    def GetIndexedFile(self, index: int, /) -> str:
        """Full path of the translated file number index of the descriptor, "" if there is none."""

    def __enter__(self) -> CBase_Module: ...
    def __exit__(self, *exception: object) -> None: ...


class IBase_GuiModule(Protocol):
    """The module for user interfaces. The state questions and commands go to its channels in their order."""

    def name(self) -> str:
        """The name given to Load, else the type's default name in the module's language."""

    def consistent(self, kind: int = ..., /) -> bool:
        """True unless a channel says False, so True without channels. Loads; False if that fails."""

    def image(self) -> str:
        """Full path of the type's picture, "" if it has none."""

    def modified(self, kind: int = ..., /) -> bool:
        """True if a channel is modified."""

    def id(self) -> Any:
        """The id given to Load, a String."""

    def ClearModified(self, kind: int = ..., /) -> None:
        """Takes the present values for unmodified."""

    def unknown(self, kind: int = ..., /) -> bool:
        """True if a channel has a value that is not known to be the device's."""

    def SetUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as unknown."""

    def LockDataset(self, kind: int = ..., /) -> None:
        """Makes parameters uneditable. Loads."""

    def UnlockDataset(self, kind: int = ..., /) -> None:
        """Ends LockDataset; loads."""

    def channels(self) -> CBase_GuiChannelCollection:
        """The channels. Loads; Nothing if that fails."""

    def station(self) -> IBase_GuiStation:
        """Always Nothing: a station does not tell its modules of itself."""

    def mainValue(self) -> IBase_GuiParameter:
        """The parameter that stands for the device as a whole. Loads; Nothing if the type names none or one that is not
        there."""

    def deviceHelpFile(self) -> str:
        """Full path of the help file in the module's language, "" if there is none."""

    def description(self) -> str:
        """Of the type."""

    def authentification(self) -> bool:
        """True if the device asks for a login before protected parameters may be written."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers cb for the parameter events of the whole tree and for the module's events, as far as it has them;
        an object that has neither is passed over in silence. Registered twice, it is told twice."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes cb off both lists, however often it stands there."""

    def Spec(self) -> IBase_SpecModule:
        """This object for the engine."""

    def Base(self) -> CBase_Module:
        """This object for its host."""

    def ClearUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as known; loads."""

    def ResetValue(self, kind: int = ..., /) -> None:
        """Sets parameters to their default values. Loads."""


class IBase_SpecModule(Protocol):
    """The module for the driver engine."""

    def id(self) -> Any:
        """The id given to Load, a String."""

    def channels(self) -> CBase_SpecChannelCollection:
        """The channels. Loads; Nothing if that fails."""

    def station(self) -> IBase_SpecStation:
        """Always Nothing, as in IBase_GuiModule."""

    def Clone(self) -> IBase_SpecModule:
        """A new module of the same type, id, name, language, environment and import service. If this module has a tree,
        the clone has one with the same device values, none of them modified. Nothing if the copying fails."""

    def Compare(self, other: IBase_SpecModule, kind: int = ..., /) -> bool:
        """True if all channels of other are here with equal values. What only this module has is not noticed. Loads;
        True if that fails, False for Nothing."""

    def CheckConsistency(self) -> None:
        """Checks every parameter that is loaded anew, to the last one. The answers are told by events and by
        `consistent`."""

    def UpdateDependencies(self) -> None:
        """Reconfigures parameters by their dependency rules until nothing changes, then checks consistency. Rules that
        never settle end after 10,000 passes, or as many as the registry value "MaxPasses" says, with a line in the
        log."""

    def RegisterImExport(self, cb: Any, /) -> None:
        """Sets the host's import and export service, in place of the one before; Nothing takes it off."""

    def Import(self, importdata: Any, sourceId: Any, /) -> bool:
        """Calls DoImport of the service, and again after every round that made dependencies change, since these may
        have brought in parameters that the round could not fill. False once the service says False. Raises RuntimeError
        91 without a service (Export only says False then), and what the service raises."""

    def Export(self, exportdata: Any, sourceId: Any, /) -> bool:
        """Calls DoExport of the service once and answers what it says. False without a service."""

    def desc(self) -> Any:
        """The type's row of the descriptor, a keyed collection of column name to value."""

    def Gui(self) -> IBase_GuiModule:
        """This object for user interfaces."""

    def Base(self) -> CBase_Module:
        """This object for its host."""

    def fdtDeviceTypeInformation(self) -> tBaseFdtDeviceTypeInfo:
        """A copy of the type's record; an empty one before Load."""

    def Environment(self) -> CBase_Environment:
        """The module's store of values from the host. Lives as long as the module, through Unload and Load."""

    def ParameterKindToString(self, kind: int, /) -> str:
        """The descriptor's word for one kind. "" for a mask of several kinds or none."""

    def Unload(self) -> None:
        """CBase_Module::Unload."""

    def CloneType(self) -> IBase_SpecModule:
        """A new module of the same type, id, name and language, without values, environment and import service."""

    def scriptAccess(self) -> bool:
        """Always False: no rule reaches a module from outside."""

    def __enter__(self) -> IBase_SpecModule: ...
    def __exit__(self, *exception: object) -> None: ...


class CBase_Unload(Protocol):
    """A guard of a module for hosts that cannot tell when their last use of the tree ends: releasing the guard unloads
    the module, even if facets of it are still held. Those answer from an empty module then."""

    @property
    def o(self) -> Any:
        """The module; Nothing for a guard that was created by itself."""


class CBase_Station(Protocol):
    """The station as the host drives it."""

    @property
    def id(self) -> Any:
        """Any value of the host's; Empty at first."""
    @id.setter
    def id(self, value: Any, /) -> None: ...

    @property
    def name(self) -> str:
        """Any text of the host's."""
    @name.setter
    def name(self, value: str, /) -> None: ...

    def AddModule(self, module: CBase_Module, /) -> bool:
        """Adds a module at the end under the text of its id; a module of that id that stood there goes. False for
        Nothing."""

    def RemoveModule(self, other: Any, /) -> bool:
        """Removes every entry that is the object other or, if that is none, has it as its id. True even if there was
        nothing to remove. The module itself is not unloaded."""


class IBase_GuiStation(Protocol):
    """The station for user interfaces. The state questions and commands go to its modules in their order."""

    def name(self) -> str:
        """That of CBase_Station."""

    def consistent(self, kind: int = ..., /) -> bool:
        """True unless a module says False, so True without modules. Loads their trees."""

    def modified(self, kind: int = ..., /) -> bool:
        """True if a module is modified."""

    def ClearModified(self, kind: int = ..., /) -> None:
        """Takes all values for unmodified."""

    def unknown(self, kind: int = ..., /) -> bool:
        """True if a module has unknown values."""

    def SetUnknown(self, kind: int = ..., /) -> None:
        """Marks all values as unknown."""

    def modules(self) -> CBase_GuiModuleCollection:
        """Never Nothing."""

    def id(self) -> Any:
        """That of CBase_Station."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers cb as IBase_CallbackStation and as IBase_CallbackParameter, as far as it is one. Neither is told
        anything today."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes cb off both lists."""

    def ClearUnknown(self, kind: int = ..., /) -> None:
        """Marks all values as known; loads."""


class IBase_SpecStation(Protocol):
    """The station for the driver engine."""

    def id(self) -> Any:
        """That of CBase_Station."""

    def modules(self) -> CBase_SpecModuleCollection:
        """The list of IBase_GuiStation::modules in this view."""

    def Clone(self) -> IBase_SpecStation:
        """Always Nothing."""

    def Compare(self, other: IBase_SpecStation, kind: int = ..., /) -> bool:
        """True if every module of other that is here too, by its id, is equal. Modules that are missing here are passed
        over."""


class CBase_Channel(Protocol):
    """The channel's own interface."""

    def ExecuteScript(self, script: str, /) -> Any:
        """Runs statements in the channel's script engine. Always answers Empty; a failing script is logged."""


class IBase_GuiChannel(Protocol):
    """The channel for user interfaces. The state questions and commands go to its groups."""

    def name(self) -> str:
        """"" once unloaded."""

    def consistent(self, kind: int = ..., /) -> bool:
        """True unless a group says False. Loads; False if that fails."""

    def modified(self, kind: int = ..., /) -> bool:
        """True if a group is modified."""

    def ClearModified(self, kind: int = ..., /) -> None:
        """Takes the values for unmodified."""

    def unknown(self, kind: int = ..., /) -> bool:
        """True if a group has unknown values."""

    def SetUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as unknown."""

    def LockDataset(self, kind: int = ..., /) -> None:
        """Makes uneditable; loads."""

    def UnlockDataset(self, kind: int = ..., /) -> None:
        """Ends LockDataset; loads."""

    def id(self) -> Any:
        """The channel's name for rules."""

    def mainValue(self) -> IBase_GuiParameter:
        """The parameter that stands for the whole channel. Loads; Nothing if the descriptor names none or one that is
        not there."""

    def module(self) -> IBase_GuiModule:
        """Nothing once unloaded."""

    def blocks(self) -> CBase_GuiBlockCollection:
        """The blocks in the order in which groups first named them. Loads; Nothing if that fails."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers a listener for the events of all parameters of the channel, which hears after those of parameter,
        group and blocks. Registered twice, it is told twice. Raises RuntimeError 13 for an object that has none of
        these events."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes off every entry of cb."""

    def Spec(self) -> IBase_SpecChannel:
        """This object for the engine."""

    def EditPlugin(self, args: ByRef | str = ..., /) -> str:
        """Name of the plugin that edits the channel, "" for none. With a name, args takes the plugin's arguments."""

    def ClearUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as known; loads."""

    def ResetValue(self, kind: int = ..., /) -> None:
        """Sets default values; loads."""


class IBase_SpecChannel(Protocol):
    """The channel for the driver engine."""

    def id(self) -> Any:
        """That of the Gui facet."""

    def module(self) -> IBase_SpecModule:
        """Nothing once unloaded."""

    def groups(self) -> CBase_SpecGroupCollection:
        """The groups. Loads; Nothing if that fails."""

    def desc(self) -> Any:
        """The channel's row of the descriptor, a keyed collection of column name to value."""

    def Gui(self) -> IBase_GuiChannel:
        """This object for user interfaces."""

    def Clone(self) -> IBase_SpecChannel:
        """Always Nothing: a module is cloned as a whole."""

    def Compare(self, other: IBase_SpecChannel, kind: int = ..., /) -> bool:
        """True if all groups of this channel are in other with equal values. What only other has is not noticed. Loads;
        True if that fails, False for Nothing."""

    def EvaluateScript(self, script: Any, /) -> Any:
        """The value of an expression in the channel's script engine: the text is a script whatever its marks, so "#:"
        and "!:" are not for here. Loads. Empty for Null and for a script that fails."""

    def scriptAccess(self) -> bool:
        """True once a script has reached this channel by path (`CH`): changes here may then matter to other channels.
        Stays until the tree is unloaded."""

    def CheckConsistency(self) -> None:
        """Checks every parameter that is loaded anew."""

    def UpdateDependencies(self) -> None:
        """Reconfigures parameters by their dependency rules until nothing changes, then checks consistency; with
        `scriptAccess` over the whole module."""


class IBase_ScriptingChannel(Protocol):
    """The channel as scripts of other channels reach it."""

    def groups(self) -> CBase_ScriptingGroups:
        """The script object `G` of this channel. Loads."""


class IBase_GuiBlock(Protocol):
    """The block for user interfaces. The state questions and commands go to its groups and load what those load."""

    def name(self) -> str:
        """"" once unloaded."""

    def consistent(self, kind: int = ..., /) -> bool:
        """True unless a group says False."""

    def modified(self, kind: int = ..., /) -> bool:
        """True if a group is modified."""

    def ClearModified(self, kind: int = ..., /) -> None:
        """Takes the values for unmodified."""

    def unknown(self, kind: int = ..., /) -> bool:
        """True if a group has unknown values."""

    def SetUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as unknown."""

    def LockDataset(self, kind: int = ..., /) -> None:
        """Makes uneditable."""

    def UnlockDataset(self, kind: int = ..., /) -> None:
        """Ends LockDataset."""

    def id(self) -> Any:
        """The key in `blocks`."""

    def channel(self) -> IBase_GuiChannel:
        """Nothing once unloaded."""

    def groups(self) -> CBase_GuiGroupCollection:
        """The groups by their position in this block; those of one position in the order of the channel. Never
        Nothing."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers a listener for the events of all parameters of the block's groups. One on a block and one on its
        channel each hear an event once, however many blocks hold the group. Raises RuntimeError 13 for an object that
        has none of these events."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes off every entry of cb."""

    def ClearUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as known."""

    def ResetValue(self, kind: int = ..., /) -> None:
        """Sets default values."""


class CBase_Group(Protocol):
    """The group's own interface."""

    def ExecuteScript(self, script: str, /) -> Any:
        """Runs statements in the group's script engine. Always answers Empty; a failing script is logged."""


class IBase_GuiGroup(Protocol):
    """The group for user interfaces. The state questions and commands go to its parameters of the kinds asked for."""

    def name(self) -> str:
        """"" once unloaded."""

    def consistent(self, kind: int = ..., /) -> bool:
        """True unless a parameter whose `configState` is valid says False; parameters that are disabled or invalid do
        not count. Loads; False if that fails."""

    def modified(self, kind: int = ..., /) -> bool:
        """Of valid parameters, as `consistent`."""

    def ClearModified(self, kind: int = ..., /) -> None:
        """Takes the values for unmodified."""

    def unknown(self, kind: int = ..., /) -> bool:
        """Of valid parameters, as `consistent`."""

    def SetUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as unknown."""

    def LockDataset(self, kind: int = ..., /) -> None:
        """Makes uneditable; loads."""

    def UnlockDataset(self, kind: int = ..., /) -> None:
        """Ends LockDataset; loads."""

    def id(self) -> Any:
        """The group's name for rules."""

    def expertOnly(self) -> bool:
        """True if every parameter is for experts only, so True without parameters. Loads; False if that fails."""

    def blocks(self) -> CBase_GuiBlockCollection:
        """The blocks, at most three, in which this group stands; Nothing once unloaded."""

    def channel(self) -> IBase_GuiChannel:
        """Nothing once unloaded."""

    def parameters(self) -> CBase_GuiParameterCollection:
        """The parameters in the descriptor's order. Loads; after a failure those that were built."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers a listener for the events of all parameters of the group, which hears after those of the parameter.
        Registered twice, it is told twice. Raises RuntimeError 13 for an object that has none of these events."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes off every entry of cb."""

    def Spec(self) -> IBase_SpecGroup:
        """This object for the engine."""

    def EditPlugin(self, args: ByRef | str = ..., /) -> str:
        """Name of the plugin that edits the group, "" for none. With a name, args takes the plugin's arguments."""

    def ClearUnknown(self, kind: int = ..., /) -> None:
        """Marks the values as known; loads."""

    def ResetValue(self, kind: int = ..., /) -> None:
        """Sets default values; loads."""


class IBase_SpecGroup(Protocol):
    """The group for the driver engine."""

    def id(self) -> Any:
        """That of the Gui facet."""

    def channel(self) -> IBase_SpecChannel:
        """Nothing once unloaded."""

    def parameters(self) -> CBase_SpecParameterCollection:
        """The list of IBase_GuiGroup::parameters in this view. Loads; Nothing if that fails."""

    def desc(self) -> Any:
        """The group's row of the descriptor, a keyed collection of column name to value."""

    def Gui(self) -> IBase_GuiGroup:
        """This object for user interfaces."""

    def Clone(self) -> IBase_SpecGroup:
        """Always Nothing: a module is cloned as a whole."""

    def Compare(self, other: IBase_SpecGroup, kind: int = ..., /) -> bool:
        """True if all parameters of this group, of the kinds asked for, are in other with equal values. What only other
        has is not noticed. Loads; True if that fails, False for Nothing."""

    def EvaluateScript(self, script: Any, /) -> Any:
        """The value of an expression in the group's script engine; see IBase_SpecChannel::EvaluateScript."""

    def scriptAccess(self) -> bool:
        """True once a script has reached this group by path (`G`, `CH`): changes here may then matter to other groups.
        Stays until the tree is unloaded."""


class IBase_ScriptingGroup(Protocol):
    """The group as scripts of other groups reach it."""

    def parameters(self) -> CBase_ScriptingParameters:
        """The script object `P` of this group. Loads."""


class IBase_GuiParameter(Protocol):
    """The parameter for user interfaces: formatted texts, edit hints, limits."""

    @property
    def value(self) -> str:
        """The display view as text in its display format and the locale; "QNAN", "Overflow" or "Internal error" in the
        states NaN, out of range and error."""
    @value.setter
    def value(self, value: str, /) -> None: ...

    def editType(self) -> int:
        """The control that suits an editor."""

    def editValues(self) -> ICollection:
        """The texts to choose from, a keyed collection; Nothing for a class without a list."""

    def consistent(self, sValue: str = ..., /) -> bool:
        """The answer of the last check; with sValue whether that text would be accepted, without storing it. "" is a
        text to be tested, not the same as leaving it out."""

    def configState(self) -> int:
        """Whether the parameter is in force."""

    def modified(self) -> bool:
        """Value or state differ from those at the last ClearModified."""

    def ClearModified(self) -> None:
        """Tells OnParameterStateChanged if it was modified."""

    def unknown(self) -> bool:
        """The value is not known to be the device's; True at first."""

    def SetUnknown(self) -> None:
        """Tells OnParameterStateChanged if it was known."""

    def LockDataset(self) -> None:
        """Tells OnParameterReconfigured if `editable` changed."""

    def UnlockDataset(self) -> None:
        """Ends LockDataset, however often that was called."""

    def name(self) -> str:
        """"" once unloaded, as are `description` and `html`."""

    def editable(self) -> bool:
        """False while locked; a hint, writes are not refused."""

    def description(self) -> str:
        """A sentence for users."""

    def unit(self) -> str:
        """As shown behind the value; perhaps by a rule, asked at each read."""

    def EditPlugin(self, args: ByRef | str = ..., /) -> str:
        """Name of the plugin that edits the parameter, "" for none; args takes the plugin's arguments, without a mark
        "#:" or "!:" and not evaluated."""

    def Min(self) -> Any:
        """Lowest value in the display view, or for texts fewest characters, as of the last check; before it the
        type's."""

    def Max(self) -> Any:
        """Highest value or most characters, likewise."""

    def expertOnly(self) -> bool:
        """Not for every user."""

    def authentification(self) -> int:
        """What asks for a login; none if the module itself asks for no login."""

    def trendVariable(self) -> bool:
        """Worth recording over time."""

    def html(self) -> str:
        """Name of its help file, relative to the database's folder."""

    def error(self) -> str:
        """The number of the parameter's eParameterValueExt as text, such as "0". Not a message for users."""

    def group(self) -> IBase_GuiGroup:
        """Nothing once unloaded."""

    def id(self) -> Any:
        """The parameter's name for rules."""

    def RegisterCallback(self, cb: Any, /) -> None:
        """Registers a listener, the first to hear of each event. Registered twice, it is told twice."""

    def UnregisterCallback(self, cb: Any, /) -> None:
        """Takes off every entry of cb."""

    def Spec(self) -> IBase_SpecParameter:
        """This object for the engine."""

    def FormatValue(self, val: Any, asRealValue: bool = ..., /) -> str:
        """Val in the form in which `value` would show it; with asRealValue True val is in the device view."""

    def ClearUnknown(self) -> None:
        """Tells OnParameterStateChanged if it was unknown."""

    def ResetValue(self) -> None:
        """Back to the default of the descriptor, unchecked, as if never written, and known; `modified` compares as
        before. Tells OnParameterValueChanged if that changed the value, else what ClearUnknown tells."""


class IBase_SpecParameter(Protocol):
    """The parameter for the driver engine: raw values, comparison, device images. A device image is an array of bytes
    or a text of two hexadecimal digits a byte, as long as the device's memory; it never grows. The four transfers have
    these arguments in common, 0 for what is left out: - `startByte`: the array's own index of the field's first byte;
    of a text, bytes are counted from 0; - `bitlength`: width of the field, 0 for the parameter's own; of a text on
    import the rest of the image, less the byte at its upper bound; - `startBit`: offset in bits from there, bit 0 the
    least significant; whole bytes in it move `startByte`. Fields of 8 bits and more begin at a whole byte all the same;
    - `byteOrder`: of numbers; `eMiddleEndian` is none that an array of bytes can have, which stays as it is. They
    answer False, and raise nothing, for a field that lies outside the image or a width that the class cannot transfer;
    bytes that were written before the failure stay. An import of less than 8 bits takes what lies outside for 0.
    Imports write as let_realvalue does; a failed one may leave the state `eParamValueExtErrorSettingValue`. An
    ENVString has no place in an image: its exports do nothing and answer True, its imports ask the host for the value
    through the module's environment."""

    @property
    def value(self) -> Any:
        """The display view in the class's own type."""
    @value.setter
    def value(self, value: Any, /) -> None: ...

    @property
    def realvalue(self) -> Any:
        """The device view: of the value's own type with gain 1 and offset 0, else Double."""
    @realvalue.setter
    def realvalue(self, value: Any, /) -> None: ...

    @property
    def tag(self) -> Any:
        """A place for anything of the host's; Empty at first and once unloaded."""
    @tag.setter
    def tag(self, value: Any, /) -> None: ...

    def desc(self, fieldname: str, asScript: bool = ..., /) -> Any:
        """A column of the parameter's row: as it is stored, or, with asScript True, with a rule in it evaluated. Empty
        for a missing column."""

    def id(self) -> Any:
        """That of the Gui facet."""

    def kind(self) -> int:
        """One kind."""

    def valid(self) -> bool:
        """True if `configState` is valid."""

    def direction(self) -> int:
        """Whether the device's copy is read or written."""

    def group(self) -> IBase_SpecGroup:
        """Nothing once unloaded."""

    def Clone(self) -> IBase_SpecParameter:
        """Always Nothing: a module is cloned as a whole."""

    def Compare(self, other: IBase_SpecParameter, /) -> bool:
        """True if other has the same value and state."""

    def Gui(self) -> IBase_GuiParameter:
        """This object for user interfaces."""

    def ExportToByteArrayMapByMemory(self, target: bytearray | list[int], startByte: int = ..., bitlength: int = ...,
            startBit: int = ..., byteOrder: int = ..., /) -> bool:
        """Puts the device view into an array of bytes. Bits outside the field stay."""

    def ImportFromByteArrayMapByMemory(self, source: bytearray | list[int], startByte: int = ..., bitlength: int = ...,
            startBit: int = ..., byteOrder: int = ..., /) -> bool:
        """Takes the device view from an array of bytes."""

    def ExportToHexStringMapByMemory(self, target: ByRef | str, startByte: int = ..., bitlength: int = ..., startBit:
            int = ..., byteOrder: int = ..., /) -> bool:
        """Puts the device view into a hexadecimal text."""

    def ImportFromHexStringMapByMemory(self, source: str, startByte: int = ..., bitlength: int = ..., startBit: int =
            ..., byteOrder: int = ..., /) -> bool:
        """Takes the device view from a hexadecimal text. Fields of 9 to 15 bits are counted from the most significant
        bit of the first byte and have neither sign nor byte order."""

    def scriptAccess(self) -> bool:
        """True once a script has read this parameter."""


class IBase_SpecParameterStorage(Protocol):
    """The parameter's value as a text for files, the same in every locale."""

    @property
    def realvalueForStorage(self) -> str:
        """The device view, numbers with "." as decimal point; texts unchanged."""
    @realvalueForStorage.setter
    def realvalueForStorage(self, value: str, /) -> None: ...


class CBase_ParameterString(Protocol):
    """What a text parameter has of its own."""

    def DcpNameCheck(self, dcpName: str, /) -> Any:
        """A Boolean: whether dcpName may be the name of a PROFINET device. "" may; exactly four parts between dots may
        not, as they would read as an address."""


class IBase_Internal(Protocol):
    """The parameter as its group sees it."""

    @property
    def configState(self) -> int:
        """Whether the parameter is in force."""
    @configState.setter
    def configState(self, value: int, /) -> None: ...

    @property
    def scriptAccess(self) -> bool:
        """The mark that a script has read this parameter; rules that read it are run again when it is reconfigured."""
    @scriptAccess.setter
    def scriptAccess(self, value: bool, /) -> None: ...

    def CheckConsistency(self) -> bool:
        """Evaluates gain, offset, limits and the consistency rule anew and answers whether the value passes. Never
        changes the device view. Tells OnParameterReconfigured and OnParameterStateChanged as far as anything
        changed."""

    def Config(self, parent: Any, desc: Any, /) -> bool:
        """Takes a row of the descriptor: parent is the group, desc a tBaseDescriptorDB on the row or the row itself as
        a keyed collection. A value that was written before stays; else the row's default comes in force. Evaluates no
        limits. Tells OnParameterReconfigured, except at the first time. Answers False, with nothing changed, for other
        arguments and for a database row that is held already."""

    def id(self) -> Any:
        """That of the other facets."""

    def DBindex(self) -> int:
        """The number, unique in the descriptor, of the row in force."""

    def dependencies(self) -> CBase_ParamDependency:
        """Never Nothing."""

    def Unload(self) -> None:
        """Drops listeners, row and group."""

    def CheckNeedForReConfig(self) -> Any:
        """A Boolean: whether gain or offset would come out otherwise now. Changes nothing."""

    def __enter__(self) -> IBase_Internal: ...
    def __exit__(self, *exception: object) -> None: ...


class CBase_ParamDependency(Protocol):
    """The rows that one parameter may take, in a ring with a cursor; at most one of them is in force. Twenty fit, a
    further one is dropped in silence. The four readers give the row under the cursor, the first one before any move.
    Raises RuntimeError 9 from the readers of an empty ring."""

    @property
    def idx(self) -> int:
        """The row's number, IBase_Internal::DBindex while it is in force."""

    @property
    def dep(self) -> str:
        """The rule that puts the row in force; "" is always in force."""

    @property
    def removeOnDep(self) -> str:
        """"True" if the parameter becomes invalid, "False" if it becomes disabled, when no row is in force. A word, not
        a Boolean."""

    @property
    def desc(self) -> ICollection:
        """The row itself: column name to value."""

    def MoveFirst(self) -> None:
        """Ends the filling of the ring and goes to the first row. Does nothing on an empty ring."""

    def MoveNext(self) -> None:
        """Goes to the next row, behind the last one to the first."""

    def Add(self, idxx: int, depp: str, removeOnDepp: bool, descc: ICollection, /) -> None:
        """Adds a row at the end. Once MoveFirst was called there is no room: RuntimeError 9."""


class IBase_CallbackParameter(Protocol):
    """Hears of changes of parameters. An event goes to the listeners of the parameter, then of its group, of the blocks
    that hold the group, of the channel, of the module. The change is complete when its event is told. What a listener
    raises ends the round and goes to whoever caused the event, except for writes through IBase_SpecParameter, which log
    it."""

    def OnParameterReconfigured(self, p: IBase_GuiParameter, /) -> None:
        """Limits, gain, offset, unit or `editable` changed, or another row of the descriptor came into force."""

    def OnParameterStateChanged(self, p: IBase_GuiParameter, /) -> None:
        """`unknown` or `consistent` changed, or `modified` was cleared, with no new value."""

    def OnParameterValueChanged(self, p: IBase_GuiParameter, /) -> None:
        """The value or its eParameterValueExt changed. Parameters that depend on it have told their events before."""

    def OnParameterConfigStateChanged(self, p: IBase_GuiParameter, /) -> None:
        """`configState` changed."""


class IBase_CallbackModule(Protocol):
    """Hears of changes of a module."""

    def OnLanguageChanged(self, m: IBase_GuiModule, /) -> None:
        """SetLanguage took a language for a loaded type. The first listener that raises an error ends the round,
        unnoticed by the caller."""

    def OnUnload(self, m: IBase_GuiModule, /) -> None:
        """The module is about to be unloaded; its tree still stands. Errors are ignored."""

    def OnEnvironmentChanged(self, m: IBase_GuiModule, key: str, value: Any, /) -> None:
        """A variable of the module's environment changed. The variable "GET_FROM_BASE" with a text asks the host to
        write the variable of that name before it returns. Errors are logged, and the next listener is told."""


class IBase_CallbackStation(Protocol):
    """Listener of a station. Nothing tells these events today."""

    def OnAddModule(self, m: IBase_GuiModule, /) -> None:
        """A module came into the station."""

    def OnRemoveModule(self, m: IBase_GuiModule, /) -> None:
        """A module left the station."""


class ISpec_ImExport(Protocol):
    """The host's service that moves values between a module and data of the host's own form. The module passes the data
    through untouched; the service may write both of its arguments, which the caller of the module then sees."""

    def DoImport(self, module: IBase_SpecModule, importdata: Any, sourceId: Any, /) -> bool:
        """Fills the module from importdata. Called again while its writes make dependencies change; False stops
        that."""

    def DoExport(self, module: IBase_SpecModule, exportdata: Any, sourceId: Any, /) -> bool:
        """Fills exportdata from the module."""

    def DoReImportParameter(self, pModified: IBase_SpecParameter, /) -> bool:
        """One parameter is to be filled again. Nothing calls it today."""


class CBase_Environment(Protocol):
    """The store. Names compare without regard to case; nothing is saved with the module. A new one holds "DEBUG" alone,
    "1" or "0" by the process's debug switch."""

    Variable: Property
    """Writes a variable; raises `Changed` if it is new or its value differs."""

    def CopyContentsTo(self, env: CBase_Environment, /) -> None:
        """Empties env without events, then writes each variable to it in the order of first use, with events."""

    VariableNoEvent: Property
    """Let_Variable without the event."""


class CBase_EnvironmentEvents(Protocol):
    """The event of an environment; the source interface of CBase_Environment."""

    def Changed(self, key: str, value: Any, /) -> None:
        """A variable got a value that differs from its old one, or its first. Raised before the write returns."""


class CBase_ScriptingParameters(Protocol):
    """`P`. All its reads mark the parameter as read by a script."""

    def value(self, id: Any, /) -> Any:
        """The default member: the parameter's IBase_SpecParameter value; Empty for an unknown id."""

    def val(self, id: Any, /) -> Any:
        """The same as `value`."""

    def sVal(self, id: Any, /) -> str:
        """The text that a user sees."""

    def sel(self, id: Any, *arguments: Any) -> Any:
        """Picks by the value: arguments are pairs of a value and a result, and at the end perhaps a single default. A
        picked text may be a marked script of its own, which is then evaluated. Empty if nothing fits."""

    def hVal(self, id: Any, chars: int = ..., byteOrder: int = ..., /) -> str:
        """The device view in chars hexadecimal digits; "" for 0 or none."""

    def script(self, id: Any, /) -> Any:
        """The result of the group's named script id, which runs at most once in each pass over the dependency rules."""

    def SetValue(self, id: Any, value: Any, /) -> bool:
        """Writes the parameter as IBase_SpecParameter::let_value does, then runs the dependency rules. Marks
        nothing."""

    def Gui(self, id: Any, /) -> Any:
        """The same as sVal."""

    def isIn(self, id: Any, *arguments: Any) -> bool:
        """True if the text of the value equals that of one of arguments, case included."""


class CBase_ScriptingGroups(Protocol):
    """`G`."""

    def parameters(self, id: Any, /) -> CBase_ScriptingParameters:
        """The default member: `P` of the group id, which is marked and loaded. Nothing for an unknown one."""


class CBase_ScriptingChannels(Protocol):
    """`CH`."""

    def groups(self, id: Any, /) -> CBase_ScriptingGroups:
        """The default member: `G` of the channel id, which is marked and loaded. Nothing for an unknown one."""


class CBase_ScriptingTexts(Protocol):
    """`GETTEXT`."""

    def text(self, idx: int, /) -> str:
        """The default member: text number idx of the descriptor in the module's language."""


class IExplain_Read(Protocol):
    """Something that a rule has read: the value and state of a parameter, or a variable of the environment."""

    def path(self) -> str:
        """The parameter's path "CHANNEL/GROUP/PARAMETER", or `ENV.Variable("KEY")`."""

    def name(self) -> str:
        """The parameter's name; "" for a variable."""

    def value(self) -> Any:
        """The value of now, as the rule sees it."""

    def shown(self) -> str:
        """The same as a user sees it."""

    def parameter(self) -> IBase_GuiParameter:
        """Nothing for a variable."""


class IExplain_Rule(Protocol):
    """One rule: a text in a column of a row."""

    def path(self) -> str:
        """Of the parameter whose rule it is."""

    def column(self) -> str:
        """"dependency", "realGain", "realOffset", "Min", "Max", "consistency", ..."""

    def row(self) -> int:
        """The key `idx` of the row in the table Parameters."""

    def text(self) -> str:
        """As it stands in the row, with its prefix."""

    def isInForce(self) -> bool:
        """Whether the parameter has this row now."""

    def hasRun(self) -> bool:
        """Whether it has ever been evaluated."""

    def result(self) -> Any:
        """What it came to last; Empty if it failed or has not run."""

    def volatility(self) -> str:
        """Why a sweep evaluates it anew each time though nothing that it read has changed, in a few words; "" if it
        does not."""

    def reads(self) -> ICollection:
        """What the last evaluation read, in its order: IExplain_Read."""


class IExplain_Parameter(Protocol):
    """A facet of every parameter."""

    def path(self) -> str:
        """"CHANNEL/GROUP/PARAMETER"; "" once the parameter has left its tree."""

    def writtenBy(self) -> str:
        """Who wrote the value last: "default", "user", "engine" or "rule"."""

    def rules(self) -> ICollection:
        """The rules of all rows that the parameter may take, by `dependency`, then the other rules of the row in force:
        IExplain_Rule."""

    def readers(self) -> ICollection:
        """The rules of other parameters, and its own, whose last evaluation read this parameter: IExplain_Rule."""

    def refusal(self) -> str:
        """Why the last edit of a user was refused, if it was one of this parameter; else ""."""

    def refusedBy(self) -> str:
        """The column whose rule or limit refused it: "Min", "Max", "consistency"; "" for a text that is no value, and
        where nothing was refused."""

    def remedies(self) -> ICollection:
        """What would put the parameter in force: the listed values of the parameters that its rules read, each tried
        alone in a copy of the device: IExplain_Read with the value that helps. Empty where none does, and for a
        parameter in force."""


class ICollection(Protocol):
    """The keyed collection as hosts and scripts see it."""

    def Count(self) -> int:
        ...

    def Item(self, index: Any, /) -> Any:
        """The item under a text key, without regard to case, or at a position from 1 on. The default member. Raises
        RuntimeError 5 for a missing key, 9 for a position out of range."""

    def Add(self, item: Any, key: str, before: Any, after: Any, /) -> None:
        """Adds an item at the end, or before or behind another one. Raises RuntimeError 457 for a key that is taken."""

    def Remove(self, index: Any, /) -> None:
        """Raises as Item."""

    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Any]: ...
    def __getitem__(self, key: Any, /) -> Any: ...
    def __contains__(self, key: Any, /) -> bool: ...
