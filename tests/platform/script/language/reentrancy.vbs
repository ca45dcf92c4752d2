' What runs at the end of an object may change anything that is in use.
Dim list, table, log1, text1
Class Hook
    Public Action
    Private Sub Class_Terminate: Execute Action: End Sub
End Class
Function NewHook(action)
    Set NewHook = New Hook
    NewHook.Action = action
End Function

' An element's end changes the array that is written to.
ReDim list(2): Set list(0) = NewHook("ReDim list(5): list(5) = ""changed""")
list(0) = "new"
Echo UBound(list), list(5), list(0)         ' expect: 5 changed
ReDim list(2): Set list(1) = NewHook("list = Empty")
Set list(1) = Nothing
Echo IsEmpty(list)                          ' expect: True
ReDim list(1): Set list(0) = NewHook("Set list(1) = NewHook(""log1 = log1 & """"inner """""")")
Erase list: Echo IsArray(list), log1        ' expect: True inner
list = Array(Array(NewHook("list(0)(0) = ""again""")), 1)
list(0)(0) = "first": Echo list(0)(0)       ' expect: again

' A variable's end writes to the variable.
Set v = NewHook("v = ""from the end""")
v = "assigned": Echo v                      ' expect: from the end
Sub Local
    Dim l: Set l = NewHook("Echo ""local end"": x = 1 / 0: Echo ""never""")
    l = 5
    Echo l
End Sub
Local                                       ' expect: local end
                                            ' expect: 5

' The end of a dictionary's item changes the dictionary.
Set table = CreateObject("Scripting.Dictionary")
Set table("a") = NewHook("table.RemoveAll: table(""z"") = 26")
table("a") = 1: Echo table.Count, table("z")   ' expect: 1 26
table.RemoveAll
Set table("x") = NewHook("table.Add ""late"", 1"): table.Remove "x": Echo table.Exists("late")   ' expect: True

' In loops and calls.
n = 0
For Each item In Array(1, 2, 3)
    Set item = NewHook("n = n + 1: item = Empty")
Next
item = 0: Echo n                            ' expect: 3
Sub Change(p): Set p = NewHook("t = ""gone"""): p = "set": Echo p: End Sub
t = "t": Change t: Echo t                   ' expect: gone
                                            ' expect: gone
Function Result: Set Result = NewHook("log1 = ""result ended"""): Result = 7: End Function
Echo Result, log1                           ' expect: 7 result ended
Function Fails: Dim h: Set h = NewHook("Err.Clear: log1 = ""failed"""): Err.Raise 9: End Function
On Error Resume Next
x = Fails: Echo Err.Number, log1            ' expect: 9 failed
On Error Goto 0
' A text that redefines what runs.
Sub Redefined: ExecuteGlobal "Sub Redefined: Echo ""second"": End Sub": Echo "first": End Sub
Redefined: Redefined                        ' expect: first
                                            ' expect: second
Function Grow(s): s = s & "x": text1 = text1 & "y": Grow = s & text1: End Function
text1 = "t": text1 = text1 & Grow(text1): Echo text1   ' expect: ttxytxy
