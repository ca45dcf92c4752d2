' On Error, and the object Err.
On Error Resume Next
a = 1: a = 1 / 0: Echo a, Err.Number        ' expect: 1 11
Echo Err.Description, Err.Source            ' expect: Division by zero Microsoft VBScript runtime error
Err.Clear: Echo Err.Number, Err.Description = ""   ' expect: 0 True
a = CInt("x"): On Error Goto 0: Echo Err.Number   ' expect: 0

' It holds for one procedure.
Sub Inner: x = 1 / 0: Echo "never": End Sub
Sub Middle: Inner: Echo "never": End Sub
Sub Catcher
    On Error Resume Next
    Middle
    Echo "caught", Err.Number
End Sub
Catcher                                     ' expect: caught 11
Echo Err.Number                             ' expect: 11
Err.Clear
Sub OwnHandler
    On Error Resume Next
    y = 1 / 0
    Echo "goes on"
End Sub
OwnHandler: Echo Err.Number                 ' expect: goes on
                                            ' expect: 11
Err.Clear
Sub SwitchesOff
    On Error Resume Next
    z = 1 / 0
    On Error Goto 0
    z = CInt("x")
    Echo "never"
End Sub
On Error Resume Next
SwitchesOff: Echo Err.Number                ' expect: 13

' The rest of the statement is skipped; a condition that fails enters the body.
Err.Clear
Function Boom: Boom = 1: Err.Raise 1000, "me", "boom": End Function
r = "kept": r = "x" & Boom(): Echo r, Err.Number, Err.Source, Err.Description   ' expect: kept 1000 me boom
If Boom() Then
    Echo "then"                             ' expect: then
Else
    Echo "else"
End If
n = 0
Do While Boom()
    n = n + 1: If n = 2 Then Exit Do
Loop
Echo n                                      ' expect: 2
Do
    n = n + 1
Loop While Boom()
Echo n                                      ' expect: 3
Select Case Boom()                          ' no Case, and on behind End Select
    Case 5: Echo "first"
    Case Else: Echo "else"
End Select
Select Case 5
    Case Boom(): Echo "item"                ' expect: item
    Case Else: Echo "else"
End Select
For i = Boom() To 3
    Echo "body"                             ' expect: body
Next
Echo Err.Number                             ' expect: 92
If True Then
    q = Boom()
    Echo "in block"                         ' expect: in block
End If
For i = 1 To 2
    q = Boom()
    Echo "loop", i                          ' expect: loop 1
                                            ' expect: loop 2
Next
If False Then
ElseIf True Then
    q = Boom()
Else
    Echo "never"
End If
Echo "behind"                               ' expect: behind

' Any On Error clears Err; leaving a procedure does not.
Err.Raise 7: On Error Resume Next: Echo Err.Number   ' expect: 0
Sub Raises: On Error Resume Next: Err.Raise 9: End Sub
Raises: Echo Err.Number                     ' expect: 9

' Raise.
Err.Clear
Err.Raise 6: Echo Err.Number, Err.Description   ' expect: 6 Overflow
Err.Clear: Err.Raise 12345: Echo Err.Number, Err.Description   ' expect: 12345 Unknown runtime error
Err.Clear: Err.Raise vbObjectError + 5, "src", "desc", "help.hlp", 42
Echo Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext   ' expect: -2147221499 src desc help.hlp 42
Err.Clear: Echo Err.HelpFile = "", Err.HelpContext   ' expect: True 0
Err.Raise 0: Echo Err.Number                ' expect: 5
Err.Clear: Err.Raise 65535: Echo Err.Number ' expect: 65535
Err.Clear: Err.Raise 65536: Echo Err.Number ' expect: 5
Err.Clear: Err.Raise 1, "s", "d": Err.Raise 5   ' what was not cleared stays
Echo Err.Number, Err.Source, Err.Description    ' expect: 5 s d
Err.Clear: Err.Raise 5: Echo Err.Source, Err.Description   ' expect: Microsoft VBScript runtime error Invalid procedure call or argument
Err.Clear: Err.Raise: Echo Err.Number        ' expect: 450
Err.Number = 77: Err.Description = "own": Echo Err, Err.Description   ' expect: 77 own
If Err Then Echo "has error"                ' expect: has error
If Err = 77 Then Echo "default member"      ' expect: default member
Err.Clear
Probe.Fail 4711, "host source", "host words"
Echo Err.Number, Err.Source, Err.Description   ' expect: 4711 host source host words
Err.Clear

' Errors of objects and names.
Dim empty1, nothing1: Set nothing1 = Nothing
empty1.Member: Echo Err.Number              ' expect: 424
Err.Clear: x = nothing1.Member: Echo Err.Number   ' expect: 424
Err.Clear: x = (5).Member: Echo Err.Number   ' expect: 424
Err.Clear: Set x = 5: Echo Err.Number        ' expect: 424
Err.Clear: x = nothing1: Echo Err.Number     ' expect: 91
Err.Clear: x = empty1(0): Echo Err.Number    ' expect: 13
Set dict = CreateObject("Scripting.Dictionary")
Err.Clear: dict.Missing: Echo Err.Number     ' expect: 438
Err.Clear: dict.Count 1, 2, 3: Echo Err.Number   ' expect: 450
Err.Clear: Set x = CreateObject("No.Such"): Echo Err.Number   ' expect: 429
Err.Clear: Const K = 1: K = 2: Echo Err.Number, K   ' expect: 501 1

' Errors in properties and initialization reach the caller.
Class Shaky
    Private Sub Class_Initialize: Err.Raise 600: End Sub
End Class
Err.Clear: Set s = Nothing: Set s = New Shaky: Echo Err.Number, s Is Nothing   ' expect: 600 True
Class Prop
    Public Property Get Bad: Bad = 1 / 0: End Property
    Public Property Let Bad(v): Err.Raise 601: End Property
    Public Default Property Get Value: Err.Raise 602: End Property
End Class
Set p = New Prop
Err.Clear: x = p.Bad: Echo Err.Number        ' expect: 11
Err.Clear: p.Bad = 1: Echo Err.Number        ' expect: 601
Err.Clear: x = p + 1: Echo Err.Number        ' expect: 602
Err.Clear: x = p: Echo Err.Number            ' expect: 602
