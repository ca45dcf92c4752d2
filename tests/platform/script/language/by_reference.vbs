' Arguments go by reference unless the procedure or the caller says otherwise.
Sub Inc(x): x = x + 1: End Sub
Sub IncByRef(ByRef x): x = x + 1: End Sub
Sub IncByVal(ByVal x): x = x + 1: Echo "inside", x: End Sub
Dim n: n = 1
Inc n: Echo n                               ' expect: 2
IncByRef n: Echo n                          ' expect: 3
IncByVal n: Echo n                          ' expect: inside 4
                                            ' expect: 3
Inc (n): Echo n                             ' expect: 3
Call Inc(n): Echo n                         ' expect: 4
Call Inc((n)): Echo n                       ' expect: 4
Inc n + 0: Echo n                           ' expect: 4
Inc(n): Echo n                              ' expect: 4

' Through several procedures, and of a function.
Sub Outer(y): Inc y: Inc y: End Sub
Outer n: Echo n                             ' expect: 6
Function AddTo(total, x): total = total + x: AddTo = total: End Function
sum = 0: r = AddTo(sum, 5) + AddTo(sum, 6): Echo sum, r   ' expect: 11 16

' Variables of procedures, undeclared ones too.
Sub Make(result): result = "made": End Sub
Sub UseLocal
    Dim mine
    Make mine: Echo mine
    Make undeclared: Echo undeclared
End Sub
UseLocal                                    ' expect: made
                                            ' expect: made
Make fresh: Echo fresh                      ' expect: made

' Elements of arrays go by reference, fields of objects do not.
a = Array(1, 2, 3)
Inc a(1): Echo a(1)                         ' expect: 3
i = 2: Inc a(i): Echo a(2)                  ' expect: 4
IncByVal a(0): Echo a(0)                    ' expect: inside 2
                                            ' expect: 1
Dim grid(1, 1): grid(1, 0) = 5
Inc grid(1, 0): Echo grid(1, 0)             ' expect: 6
Sub Swap(x, y): t = x: x = y: y = t: End Sub
Swap a(0), a(1): Echo a(0), a(1)            ' expect: 3 1
Call Swap(a(0), a(1)): Echo a(0), a(1)      ' expect: 1 3
Sub MoveIndex(x, k): k = 0: x = 99: End Sub
i = 1: MoveIndex a(i), i: Echo a(0), a(1), i   ' expect: 1 99 0
Set box = New Holder
box.Value = 1: Inc box.Value: Echo box.Value   ' expect: 1
box.Test                                    ' expect: 2

' A whole array.
Sub Fill(list): list(0) = "filled": ReDim Preserve list(5): End Sub
b = Array("x"): Fill b: Echo b(0), UBound(b)   ' expect: filled 5
Sub FillFirst(list): list(0) = "first": End Sub
nested = Array(Array(1), 2): FillFirst nested(0): Echo nested(0)(0)   ' expect: first
Sub FillCopy(ByVal list): list(0) = "copy": End Sub
FillCopy b: Echo b(0)                       ' expect: filled

' The same variable twice, and a global one that changes meanwhile.
Sub Both(x, y): x = 1: y = y + 1: Echo x: End Sub
m = 5: Both m, m                            ' expect: 2
g = 1
Sub SeesChange(x): g = 7: Echo x: End Sub
SeesChange g                                ' expect: 7

' An object passed by value is the same object.
Sub Rename(ByVal o): o.Value = "renamed": Set o = Nothing: End Sub
Rename box: Echo box.Value                  ' expect: renamed
Sub Drop(o): Set o = Nothing: End Sub
Drop box: Echo box Is Nothing               ' expect: True

' The result of a function as an argument of a call inside it.
Function Collect: Make Collect: End Function
Echo Collect                                ' expect: made

' Arguments that the host writes.
x = 1: y = 2
Probe.Swap x, y: Echo x, y                  ' expect: 2 1
c = Array(1, 2): Probe.Swap c(0), c(1): Echo c(0), c(1)   ' expect: 2 1
Probe.Swap (x), y: Echo x, y                ' expect: 2 2
Sub ThroughHost(p, q): Probe.Swap p, q: End Sub
x = 1: y = 2: ThroughHost x, y: Echo x, y   ' expect: 2 1

Class Holder
    Public Value
    Private mCount
    Public Sub Test
        mCount = 1
        Inc mCount
        Echo mCount
    End Sub
End Class
