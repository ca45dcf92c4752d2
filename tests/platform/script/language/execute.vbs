' Texts that are compiled at run time.
Echo Eval("1 + 2"), Eval("""a"" & ""b""")   ' expect: 3 ab
x = 5: Echo Eval("x = 5"), Eval("x = 6"), x ' expect: True False 5
Execute "x = 6: Echo x"                     ' expect: 6
Execute "Dim e1: e1 = 7": Echo e1           ' expect: 7
Execute "Sub FromText(a): Echo ""text"", a: End Sub"
FromText 1                                  ' expect: text 1
Execute "Function Sum2(a, b)" & vbCrLf & "Sum2 = a + b" & vbCrLf & "End Function"
Echo Sum2(2, 3)                             ' expect: 5

' Eval and Execute see the variables around them, ExecuteGlobal does not.
loc = "global"
Sub Locals
    Dim loc, other: loc = "local"
    Echo Eval("loc")
    Execute "loc = ""changed"": other = 3"
    Echo loc, other
    ExecuteGlobal "loc = ""from inside"""
    Echo loc
    Execute "fresh = ""added""": Echo fresh
    Execute "Dim declared: declared = 1": Execute "Echo declared + 1"
End Sub
Locals                                      ' expect: local
                                            ' expect: changed 3
                                            ' expect: changed
                                            ' expect: added
                                            ' expect: 2
Echo loc, IsEmpty(fresh)                    ' expect: from inside True
Sub Defines
    Execute "Sub Inner1: Echo ""inner"": End Sub"
    Inner1
    ExecuteGlobal "Sub Global1: Echo ""made global"": End Sub"
End Sub
Defines                                     ' expect: inner
Global1                                     ' expect: made global
' A procedure that a text defines inside another one is known there alone, and sees global variables.
seen = "global"
Sub Proc1
    Dim seen: seen = "local"
    Execute "Sub Proc2: Echo seen: End Sub"
    Echo Eval("seen"): Proc2
End Sub
Proc1                                       ' expect: local
                                            ' expect: global
On Error Resume Next
Proc2: Echo Err.Number                      ' expect: 13
On Error Goto 0
Function Params(a): Params = Eval("a * 2"): End Function
Echo Params(4)                              ' expect: 8
Sub ByRefParam(p): Execute "p = p & ""!""": End Sub
t = "hey": ByRefParam t: Echo t             ' expect: hey!
Class Host1
    Private mSecret
    Public Sub Test
        mSecret = 1
        Execute "mSecret = mSecret + 1: Helper mSecret: Echo Me Is Self"
        Echo mSecret, Eval("Twice(mSecret)")
    End Sub
    Private Sub Helper(v): Echo "helper", v: v = v * 10: End Sub
    Private Function Twice(v): Twice = v * 2: End Function
    Public Property Get Self: Set Self = Me: End Property
End Class
Set h = New Host1: h.Test                   ' expect: helper 2
                                            ' expect: True
                                            ' expect: 20 40
Echo Eval(5), TypeName(Eval("Nothing"))     ' expect: 5 Nothing
Set d = Eval("CreateObject(""Scripting.Dictionary"")"): Echo d.Count   ' expect: 0
ExecuteGlobal "Class FromText2: Public V: End Class"
Set ft = New FromText2: ft.V = 1: Echo ft.V ' expect: 1

' Errors of the texts can be trapped.
On Error Resume Next
Execute "x = = 1": Echo Err.Number           ' expect: 1023
Err.Clear: r = Eval("1 +"): Echo Err.Number  ' expect: 1023
Err.Clear: Execute "a = 1/0": Echo Err.Number   ' expect: 11
Err.Clear: Execute "For": Echo Err.Number > 1000   ' expect: True
Err.Clear: ExecuteGlobal "Class FromText2: End Class": Echo Err.Number   ' expect: 1041
Err.Clear: Execute "": Echo Err.Number       ' expect: 0
Err.Clear: Execute: Echo Err.Number          ' expect: 450
' A handler of the text is its own.
Err.Clear: Execute "On Error Resume Next: a = 1/0: Echo ""text goes on""": Echo Err.Number   ' expect: text goes on
                                            ' expect: 11
On Error Goto 0

' Procedures as objects.
Function Square(n): Square = n * n: End Function
Set f = GetRef("Square"): Echo f(3), f(4) + 1   ' expect: 9 17
Sub Apply(list, action)
    For i = 0 To UBound(list): list(i) = action(list(i)): Next
End Sub
a = Array(1, 2, 3): Apply a, f: Echo Join(a, ",")   ' expect: 1,4,9
Sub Bump(v): v = v + 1: End Sub
Set b = GetRef("bump"): n = 1: b n: Echo n  ' expect: 2
Call b(n): Echo n                           ' expect: 3
Set table = CreateObject("Scripting.Dictionary")
Set table("sq") = f: Echo table("sq")(5)    ' expect: 25
On Error Resume Next
Set g = GetRef("nothing like it"): Echo Err.Number   ' expect: 5

' What a text of Execute declares in a procedure is the procedure's, for each of its calls on its own.
Sub Grow(x): x = x + 10: End Sub
ExecuteGlobal "Option Explicit" & vbLf & _
    "Sub Declares(n)" & vbLf & _
    "If n = 0 Then Exit Sub" & vbLf & _
    "Execute ""Dim f, cells(2), d(): f = 1: Function Triple(x): Triple = 3 * x: End Function""" & vbLf & _
    "f = f + 1: Grow f: Declares n - 1" & vbLf & _
    "cells(1) = 5: cells(2) = Array(1): cells(2)(0) = 6: ReDim d(4)" & vbLf & _
    "Echo n, f, cells(1), cells(2)(0), UBound(d), Triple(f)" & vbLf & _
    "End Sub"
Declares 2                                  ' expect: 1 12 5 6 4 36
                                            ' expect: 2 12 5 6 4 36
On Error Resume Next
Echo f(3)                                   ' expect: 9
Err.Clear: ExecuteGlobal "Option Explicit: d = cells": Echo Err.Number   ' expect: 500
