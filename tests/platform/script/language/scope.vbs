' Where variables live.
g = "global"
Sub Reads: Echo g: End Sub
Reads                                       ' expect: global
Sub Writes: g = "written": End Sub
Writes: Echo g                              ' expect: written
Sub Shadows: Dim g: g = "local": Echo g: End Sub
Shadows: Echo g                             ' expect: local
                                            ' expect: written
' A name that is no global variable when it is written belongs to the procedure.
Sub Own: own1 = "own": Echo own1: End Sub
Own                                         ' expect: own
Echo IsEmpty(own1)                          ' expect: True
own1 = "now global": Own: Echo own1         ' expect: own
                                            ' expect: own
' A Dim holds for the whole procedure or text, wherever it stands.
Sub Late
    late1 = 1
    Dim late1
    Echo late1
End Sub
late1 = "outer": Late: Echo late1           ' expect: 1
                                            ' expect: outer
declared = 5
Dim declared
Echo declared                               ' expect: 5
' Variables of a procedure are new in each call.
Function Fresh: count = count + 1: Fresh = count: End Function
Echo Fresh, Fresh                           ' expect: 1 1
Sub Recurse(n)
    Dim mine: mine = n
    If n > 0 Then Recurse n - 1
    Echo mine
End Sub
Recurse 2                                   ' expect: 0
                                            ' expect: 1
                                            ' expect: 2
' Constants.
Const One = 1, Text = "t", Neg = -5, Day1 = #1/1/2000#, Yes = True, Hex1 = &HFF, None = Empty
Echo One, Text, Neg, CDbl(Day1), Yes, Hex1, None   ' expect: 1 t -5 36526 True 255
Sub LocalConst
    Const One = "local": Echo One
End Sub
LocalConst                                  ' expect: local
Public Const Visible = "v"
Private Hidden: Hidden = 3
Public Open1: Open1 = 4
Echo Visible, Hidden, Open1                 ' expect: v 3 4
Sub ShowConst: Echo One & Later: End Sub
Const Later = "later"
ShowConst                                   ' expect: 1later
' A parameter hides a global name; the language's constants can be hidden.
Sub Param(g): g = "param": End Sub
g = "again": Param "x": Echo g              ' expect: again
Sub Hides: Dim vbCr: vbCr = "mine": Echo vbCr: End Sub
Hides                                       ' expect: mine
On Error Resume Next
vbTrue = 5: Echo Err.Number                 ' expect: 501
Err.Clear: Reads = 5: Echo Err.Number        ' expect: 501
Err.Clear: Probe = 5: Echo Err.Number        ' expect: 501
