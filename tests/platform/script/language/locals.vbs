' Values in variables of procedures, called and indexed.
Sub Inc(x): x = x + 1: End Sub
Function Add(a, b): Add = a + b: End Function
Sub Locals
    Dim grid(1, 2), d, f, list, n
    grid(1, 2) = "corner": Echo grid(1, 2)
    Set d = CreateObject("Scripting.Dictionary")
    d("k") = Array(1, 2): Echo d("k")(1), d.Item("k")(0)
    Set f = GetRef("Add"): Echo f(1, 2)
    Set f = GetRef("Inc"): n = 5: f n: Echo n
    Call f(n): Echo n
    list = Array(Array(1, 2), Array(3, 4))
    list(1)(0) = 9: Echo list(1)(0)
    Inc grid(0, 0): Echo grid(0, 0)
    Inc list(0)(1): Echo list(0)(1)
    Echo +n, -n, Not n
    Set list(0) = d: list(0)("z") = 1: Echo d.Count
End Sub
Locals                                      ' expect: corner
                                            ' expect: 2 1
                                            ' expect: 3
                                            ' expect: 6
                                            ' expect: 7
                                            ' expect: 9
                                            ' expect: 1
                                            ' expect: 2
                                            ' expect: 7 -7 -8
                                            ' expect: 2
Sub Statements
    On Error Resume Next
    Dim n: n = 1
    n: Echo Err.Number
    Err.Clear: n 2: Echo Err.Number
    Err.Clear: x = n(): Echo Err.Number
    Err.Clear: n(0)(1) = 2: Echo Err.Number
End Sub
Statements                                  ' expect: 13
                                            ' expect: 13
                                            ' expect: 13
                                            ' expect: 13
Class Props
    Private mList(3)
    Public Property Get Value(i)
        If i < 0 Then
            Value = "negative"
            Exit Property
        End If
        Value = mList(i)
    End Property
    Public Property Let Value(i, v)
        If i > 3 Then Exit Property
        mList(i) = v
    End Property
    Public Sub Resize
        Dim list: list = mList
        ReDim Preserve list(0): Echo UBound(list), UBound(mList)
    End Sub
End Class
Set p = New Props
p.Value(1) = "one": p.Value(9) = "beyond": Echo p.Value(1), p.Value(-1)   ' expect: one negative
