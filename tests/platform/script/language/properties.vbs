' Procedures of classes that get and give values.
Class Inner
    Public Default Property Get Value: Value = 7: End Property
End Class
Class Taker
    Public Field, Cells(2)
    Public Property Let P(v): Echo "P", TypeName(v): End Property
    Public Property Let Q(i, v): Echo "Q", i, TypeName(v): End Property
    Public Default Property Get D(i): D = "D" & i: End Property
    Public Property Let D(i, v): Echo "D", i, TypeName(v): End Property
    Public Sub Own(o): P = o: Q(2) = o: Me.P = o: End Sub
End Class
Set t = New Taker: Set o = New Inner: Set holder = New Taker

' Property Let takes an object as it is; a variable takes its default value.
t.P = o                                     ' expect: P Inner
t.P = Nothing                               ' expect: P Nothing
t.Q(1) = o                                  ' expect: Q 1 Inner
t(1) = o                                    ' expect: D 1 Inner
t.Own o                                     ' expect: P Inner
                                            ' expect: Q 2 Inner
                                            ' expect: P Inner
With t
    .P = o                                  ' expect: P Inner
End With
Set holder.Field = t
holder.Field(3) = o                         ' expect: D 3 Inner
Dim list(1): Set list(0) = t
list(0).P = o                               ' expect: P Inner
t.Field = o: Echo TypeName(t.Field)         ' expect: Integer
t.Cells(1) = o: Echo TypeName(t.Cells(1))   ' expect: Integer
list(1) = o: Echo TypeName(list(1))         ' expect: Integer
On Error Resume Next
t.Field = Nothing: Echo Err.Number          ' expect: 91
Err.Clear: t.Field = holder: Echo Err.Number   ' expect: 450
Err.Clear: Set t.P = o: Echo Err.Number     ' expect: 438
Err.Clear: Set t.Field = 5: Echo Err.Number ' expect: 424
On Error GoTo 0

' A Sub or a Function in the place of Property Get.
Class Mixed
    Public Sub S(a, b): Echo "sub", a, b: End Sub
    Public Property Let S(v): Echo "let", v: End Property
    Public Property Set F(v): Echo "set", TypeName(v): End Property
    Public Function F(a): F = a * 2: End Function
End Class
Set m = New Mixed
m.S 1, 2                                    ' expect: sub 1 2
m.S = 3                                     ' expect: let 3
Set m.F = o                                 ' expect: set Inner
Echo m.F(4)                                 ' expect: 8

' No script that a default value runs can take an array away in the middle of an assignment.
Class Thief
    Public Default Property Get Value: Erase prey: prey = 5: Value = 0: End Property
End Class
Set thief1 = New Thief
On Error Resume Next
prey = Array(1, 2): prey(0) = thief1: Echo Err.Number   ' expect: 13
Err.Clear: prey = Array(1, 2): prey(thief1) = 1: Echo Err.Number   ' expect: 13
Err.Clear: prey = Array(Array(1), 2): prey(0)(0) = thief1: Echo Err.Number   ' expect: 13
Err.Clear: prey = Array(Array(1), 2): prey(0)(thief1) = 1: Echo Err.Number   ' expect: 13
Err.Clear: prey = Array(Array(1), 2): prey(thief1)(0) = 1: Echo Err.Number   ' expect: 13
