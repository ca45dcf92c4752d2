' Arrays.
Dim fixed(2), two(1, 2), dynamic()
Echo UBound(fixed), LBound(fixed), UBound(two, 1), UBound(two, 2), IsEmpty(fixed(0))   ' expect: 2 0 1 2 True
fixed(1) = 5: two(1, 2) = "x": Echo fixed(1), two(1, 2)   ' expect: 5 x
ReDim dynamic(1): dynamic(1) = 7
ReDim Preserve dynamic(3): Echo dynamic(1), UBound(dynamic)   ' expect: 7 3
ReDim dynamic(1, 1): Echo IsEmpty(dynamic(1, 1))   ' expect: True
n = 4: ReDim made(n * 2): Echo UBound(made)   ' expect: 8
ReDim made(-1): Echo UBound(made)           ' expect: -1
fixed(1.5) = "even": Echo fixed(2), fixed("2"), fixed(2.5)   ' expect: even even even

' Copied on assignment.
a = Array(1, 2, 3): b = a: b(0) = 9: Echo a(0), b(0)   ' expect: 1 9
Function Changed(ByVal list): list(0) = "new": Changed = list: End Function
c = Changed(a): Echo a(0), c(0)             ' expect: 1 new
a(1) = a: a(0) = "later": Echo a(1)(0), a(1)(1)   ' expect: 1 2

' Arrays in arrays: in place through variables, a copy through objects.
aa = Array(Array(1, 2), 3): aa(0)(1) = 9: Echo aa(0)(1)   ' expect: 9
deep = Array(Array(Array(1))): deep(0)(0)(0) = 5: Echo deep(0)(0)(0)   ' expect: 5
Set dict = CreateObject("Scripting.Dictionary")
dict("a") = Array(1, 2): dict("a")(0) = 9: Echo dict("a")(0)   ' expect: 1
ReDim objects(1): Set objects(0) = dict: objects(0)("k") = "v": Echo dict("k")   ' expect: v
objects(0).Item("k") = "w": Echo dict("k"), objects(0)("k")   ' expect: w w

' Erase.
Erase fixed: Echo UBound(fixed), IsEmpty(fixed(1))   ' expect: 2 True
Erase dynamic
On Error Resume Next
x = UBound(dynamic): Echo Err.Number        ' expect: 9
Err.Clear: x = dynamic(0): Echo Err.Number   ' expect: 9
Err.Clear: x = fixed(3): Echo Err.Number, Err.Description   ' expect: 9 Subscript out of range
Err.Clear: x = fixed(-1): Echo Err.Number    ' expect: 9
Err.Clear: x = fixed(0, 0): Echo Err.Number  ' expect: 9
Err.Clear: fixed(3) = 1: Echo Err.Number     ' expect: 9
Err.Clear: x = fixed("a"): Echo Err.Number   ' expect: 13
Err.Clear: ReDim fixed(5): Echo Err.Number   ' expect: 10
ReDim m(1, 1)
Err.Clear: ReDim Preserve m(2, 1): Echo Err.Number   ' expect: 9
Err.Clear: ReDim Preserve m(1, 2): Echo Err.Number, UBound(m, 2)   ' expect: 0 2
Err.Clear: ReDim bad(-2): Echo Err.Number    ' expect: 9
Err.Clear: Erase n: Echo Err.Number          ' expect: 13
Err.Clear: n(0) = 1: Echo Err.Number         ' expect: 13
Err.Clear: x = n(0): Echo Err.Number         ' expect: 13
Err.Clear: Set a(0) = 5: Echo Err.Number     ' expect: 424
Err.Clear: x = a + 1: Echo Err.Number        ' expect: 13
On Error Goto 0

' In procedures.
Sub Locals
    Dim l(2), k()
    l(0) = 1: ReDim k(1): k(1) = 2
    ReDim undeclared(1): undeclared(0) = 3
    Echo l(0), k(1), undeclared(0), IsEmpty(l(1))
    l(1) = "left behind"
End Sub
Locals                                      ' expect: 1 2 3 True
Locals                                      ' expect: 1 2 3 True
Function GetArray: GetArray = Array("a", "b"): End Function
Echo GetArray()(1), UBound(GetArray)        ' expect: b 1
Function BuildArray
    Dim r(1): r(0) = "x"
    BuildArray = r
End Function
x = BuildArray: x(1) = "y": Echo Join(x, "")   ' expect: xy
For i = 0 To 1: x(i) = i: Next: Echo x(0) + x(1)   ' expect: 1
Echo TypeName(x), VarType(x), IsArray(x), IsArray(dynamic), IsArray(5)   ' expect: Variant() 8204 True True False
