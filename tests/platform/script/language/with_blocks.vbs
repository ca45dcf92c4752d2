' With.
Class Point
    Public X, Y, Inner
    Public Function Sum: Sum = X + Y: End Function
    Public Sub Move(dx, dy): X = X + dx: Y = Y + dy: End Sub
    Public Property Get Scaled(f): Scaled = (X + Y) * f: End Property
End Class
Set p = New Point
With p
    .X = 1: .Y = 2
    .Move 10, 20
    Echo .X, .Y, .Sum, .Scaled(2)           ' expect: 11 22 33 66
    Set .Inner = New Point
    With .Inner
        .X = 5
        Echo .X, p.X                        ' expect: 5 11
    End With
    Echo .Inner.X                           ' expect: 5
    Set p = Nothing
    Echo .X                                 ' expect: 11
End With
Sub Show(a, b): Echo a, b: End Sub
Set p = New Point: p.X = 3
With p
    Show .X, -.X                            ' expect: 3 -3
    Show (.X), .X + 1                       ' expect: 3 4
    Call Show(.X, .X)                       ' expect: 3 3
End With
For i = 1 To 2
    With p
        Exit For
    End With
Next
Echo i                                      ' expect: 1
On Error Resume Next
Set nothing1 = Nothing
With nothing1
    .X = 1
    Echo Err.Number                         ' expect: 91
End With
Err.Clear
x = .X: Echo Err.Number                     ' expect: 505
Err.Clear: .X = 1: Echo Err.Number          ' expect: 505
Err.Clear: .Move 1, .Y: Echo Err.Number     ' expect: 505
Err.Clear
With 5
    Echo Err.Number                         ' expect: 424
End With
