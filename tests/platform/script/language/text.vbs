' Building texts.
s = "": For i = 1 To 5: s = s & i: Next: Echo s   ' expect: 12345
s = "a": t = s: s = s & "b": Echo s, t      ' expect: ab a
s = s & s: Echo s                           ' expect: abab
s = s & 1 & True & Empty & "x": Echo s      ' expect: abab1Truex
s = "x" & s: Echo s                         ' expect: xabab1Truex
e = Empty: e = e & "a": Echo e              ' expect: a
n = 5: n = n & 6: Echo n, TypeName(n)       ' expect: 56 String
u = Null: u = u & Null: Echo IsNull(u)      ' expect: True
u = Null: u = u & "x" & Null: Echo u        ' expect: x
' Calls among the parts see the text as it was.
Function Add1: s = s & "!": Add1 = "+": End Function
s = "s": s = s & Add1() & "e": Echo s       ' expect: s+e
s = "s": s = s & Add1(): Echo s             ' expect: s+
p = 1: Function Change: p = 100: Change = 1: End Function
Echo p + Change() + p                       ' expect: 102
Sub ByRefText(r): r = r & "y": r = r & "z" & "!": End Sub
s = "x": ByRefText s: Echo s                ' expect: xyz!
a = Array("q"): a(0) = a(0) & "r": Echo a(0)   ' expect: qr
Class Text: Public T: Public Sub Grow: T = T & "g": T = T & "h" & "i": End Sub: End Class
Set o = New Text: o.T = "f": o.Grow: Echo o.T   ' expect: fghi
On Error Resume Next
x = "a" & Array(1): Echo Err.Number         ' expect: 13
Err.Clear: x = "a" & Nothing: Echo Err.Number   ' expect: 91
