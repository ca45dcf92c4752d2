' If and Select Case.
Function Grade(n)
    If n < 0 Then
        Grade = "negative"
    ElseIf n = 0 Then
        Grade = "zero"
    ElseIf n < 10 Then
        Grade = "small"
    Else
        Grade = "big"
    End If
End Function
Echo Grade(-1), Grade(0), Grade(9), Grade(10)   ' expect: negative zero small big

' An If on one line owns all that its colons join.
If False Then Echo "a": Echo "b"
If True Then Echo "a": Echo "b"             ' expect: a
                                            ' expect: b
If False Then Echo "a": Echo "b" Else Echo "c": Echo "d"   ' expect: c
                                            ' expect: d
If True Then If False Then Echo "inner" Else Echo "inner else"   ' expect: inner else
If True Then Echo "with end" End If         ' expect: with end
If 1 Then For i = 1 To 2: Echo i: Next      ' expect: 1
                                            ' expect: 2
If True Then
Else
    Echo "never"
End If
If "True" Then Echo "text"                  ' expect: text
If 0.5 Then Echo "half"                     ' expect: half
If False Then :
Echo "no block"                             ' expect: no block
If False Then : Else : Echo "colons"        ' expect: colons

Function Name(x)
    Select Case x
        Case 1, 2, 3
            Name = "low"
        Case 4: Name = "four"
        Case "text", "other": Name = "text"
        Case x * 1
            Name = "computed"
        Case Else
            Name = "else"
    End Select
End Function
Echo Name(2), Name(4), Name(99)             ' expect: low four computed
Select Case True
    Case 1 > 2: Echo "first"
    Case 2 > 1: Echo "second"               ' expect: second
    Case True: Echo "third"
End Select
Select Case "b"
    Case "a": Echo "a"
    Case "B": Echo "B"
    Case "b": Echo "b"                      ' expect: b
End Select
Select Case 5
    Case 1: Echo "no"
End Select
evaluated = 0
Function Subject: evaluated = evaluated + 1: Subject = 3: End Function
Select Case Subject
    Case 1: Echo "no"
    Case 2: Echo "no"
    Case 3: Echo "three", evaluated         ' expect: three 1
End Select
Select Case 1
Case Else
    Select Case 2
    Case 2: Echo "nested"                   ' expect: nested
    End Select
End Select
Select Case 3
    Case "test": Echo "no"
    Case "3": Echo "text"                   ' expect: text
End Select
Function Kind(x)
    Select Case x
        Case 1: Kind = "one"
        Case -2: Kind = "minus two"
        Case Else: Kind = "else"
    End Select
End Function
Echo Kind("abc"), Kind(" 1.0"), Kind("-2"), Kind(-2)   ' expect: else one else minus two
v = "5"
Select Case v
    Case 5: Echo "numeric"                  ' expect: numeric
End Select
