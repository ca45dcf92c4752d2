' Loads a device type and prints its record.
'
'   ovmodel run show_type.vbs DB TYPE [LANGUAGE]

Option Explicit

If WScript.Arguments.Count < 2 Then
    WScript.StdErr.WriteLine "usage: ovmodel run show_type.vbs DB TYPE [LANGUAGE]"
    WScript.Quit 2
End If

Dim device
Set device = CreateObject("OV_Model.CBase_Module")
device.SetSourcePath WScript.Arguments(0)
If WScript.Arguments.Count > 2 Then device.SetLanguage CLng(WScript.Arguments(2))
If Not device.Load(WScript.Arguments(1)) Then
    WScript.StdErr.WriteLine "there is no type " & WScript.Arguments(1)
    WScript.Quit 1
End If

Dim info
Set info = device.Spec.fdtDeviceTypeInformation
WScript.Echo device.Gui.name & ": " & device.Gui.description
WScript.Echo "database " & device.GetDBVersion & ", generation " & device.GetModelVersionIndex
WScript.Echo "device type " & info.deviceTypeId & ", sub type " & info.subDeviceType & ", maker " & info.manufacturerId
WScript.Echo "version " & info.version.version & " of " & info.version.date & " by " & info.version.vendor

Dim bus
If IsArray(info.busCategories) Then
    For Each bus In info.busCategories
        WScript.Echo "bus " & bus.busCategoryName & " (" & bus.CommunicationTypeEntry & ")"
    Next
End If
WScript.Echo "languages " & Join(info.supportedLanguages, " ")

device.Unload
