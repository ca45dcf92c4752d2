Option Explicit
' Undeclared names are errors when they are met, not before.
Dim x: x = 1: Echo x                        ' expect: 1
On Error Resume Next
y = 2: Echo Err.Number, Err.Description      ' expect: 500 Variable is undefined
Err.Clear: x = z: Echo Err.Number            ' expect: 500
Err.Clear: Test: Echo Err.Number             ' expect: 500
Err.Clear: x = 1 + q: Echo Err.Number        ' expect: 500
Err.Clear: For i = 1 To 2: Echo Err.Number: Next   ' expect: 500
Err.Clear: x = Len("abc") & vbTab: Echo Err.Number, Len(x)   ' expect: 0 2
Err.Clear: ReDim made(2): Echo Err.Number, UBound(made)   ' expect: 0 2
Err.Clear: Unknown 1: Echo Err.Number         ' expect: 13
Sub Local
    ReDim list(1): list(0) = "local": Echo list(0)
End Sub
Local                                       ' expect: local
x = list: Echo Err.Number                    ' expect: 500
Sub Test
    Dim a: a = 1
    undeclared = 2
    Echo "never"
End Sub
Function F: F = 3: End Function
Echo F                                      ' expect: 3
