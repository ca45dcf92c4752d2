' Me outside classes: the global names as the members of one object.
Dim v, cells(3)
v = 5
Function Twice(x): Twice = x * 2: x = 99: End Function
Sub Inside
    Echo TypeName(Me), Me Is Me, Me.v       ' expect: Object True 5
    Me.v = Me.v + 1
    local = 1
    Me.cells(2) = 7
End Sub
Inside
Echo v, cells(2), Me.cells(2)               ' expect: 6 7 7
y = 4: Echo Me.Twice(y), y                  ' expect: 8 99
Set Me.v = Me: Echo v Is Me, v.v.y          ' expect: True 99
Me.Echo "a member of the host"              ' expect: a member of the host
Echo Me.Host Is Host, TypeName(Me.Probe)    ' expect: True Probe
Sub ByText: Execute "Me.y = Me.y + 1": End Sub
ByText: Echo y                              ' expect: 100
Class Own
    Public Property Get Self: Set Self = Me: End Property
    Public Sub Calls: Inside2: End Sub
End Class
Sub Inside2: Echo TypeName(Me): End Sub
Set o = New Own: Echo TypeName(o.Self)      ' expect: Own
o.Calls                                     ' expect: Object
On Error Resume Next
x = Me.local: Echo Err.Number               ' expect: 438
Err.Clear: Me.fresh = 1: Echo Err.Number    ' expect: 438
Err.Clear: x = Me.Len("abc"): Echo Err.Number   ' expect: 438
Err.Clear: Me.Inside = 1: Echo Err.Number   ' expect: 438
Err.Clear: x = Me.Own: Echo Err.Number      ' expect: 438
Err.Clear: x = Me: Echo Err.Number          ' expect: 438
