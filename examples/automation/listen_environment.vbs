' Listens to the environment of a module in both ways that there are: as the sink of its event, and as a module listener.
'
'   ovmodel run listen_environment.vbs DB TYPE

Option Explicit

Dim device, environment
Set device = CreateObject("OV_Model.CBase_Module")
device.SetSourcePath WScript.Arguments(0)
If Not device.Load(WScript.Arguments(1)) Then WScript.Quit 1

' Procedures of this script whose names begin with "env_" are called for the events of the environment.
Sub env_Changed(key, value)
    WScript.Echo "event:    " & key & " = " & value
End Sub
Set environment = device.Spec.Environment
WScript.ConnectObject environment, "env_"

' Any object with at least one of a listener's operations is a listener; the operations that it lacks do nothing.
Class ModuleListener
    Public Sub OnEnvironmentChanged(m, key, value)
        WScript.Echo "listener: " & key & " = " & value & " in " & m.name
    End Sub
    Public Sub OnUnload(m)
        WScript.Echo "listener: the module is unloaded"
    End Sub
End Class
device.Gui.RegisterCallback New ModuleListener

environment.Variable("USER") = "test bench 3"
environment.Variable("RUN") = 1
environment.Variable("RUN") = 1                 ' the same value again: no event
environment.VariableNoEvent("RUN") = 2          ' another value, in silence
environment.Variable("RUN") = 3

WScript.DisconnectObject environment
environment.Variable("RUN") = 4                 ' the listener alone
device.Unload
