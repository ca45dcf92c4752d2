' Names that nothing declares.
Sub Make(x): x = "made": End Sub
Sub MakeList(x): x = Array(1, 2, 3): End Sub
Sub Inc(x): x = x + 1: End Sub
' At the top a name that is passed becomes a variable if the procedure writes to it.
Make first: r = first & "!": Echo r         ' expect: made!
MakeList list: list(1) = 9: Echo list(1), UBound(list)   ' expect: 9 2
Inc list(1): Echo list(1)                   ' expect: 10
Sub Nothing1(x): End Sub
Nothing1 never: Echo IsEmpty(never), IsEmpty(neverAtAll)   ' expect: True True
' In a procedure it is one of its own.
Sub Own
    Make v: Echo v & "?"
    MakeList w
    Echo w(2), UBound(w)
    w(0) = 7: w(1) = w(0) + w(2)
    Inc w(1): Echo w(1)
    For Each item In w: total = total + item: Next
    Echo total
    MakeList deep: deep(0) = Array(5): deep(0)(0) = 6: Echo deep(0)(0)
End Sub
Own                                         ' expect: made?
                                            ' expect: 3 2
                                            ' expect: 11
                                            ' expect: 21
                                            ' expect: 6
Echo IsEmpty(v), IsEmpty(total)             ' expect: True True
' A global variable that comes while the procedure runs is seen from then on.
Sub Comes
    ExecuteGlobal "arrived = 5"
    arrived = arrived + 1
    Echo arrived
End Sub
Comes: Echo arrived                         ' expect: 6
                                            ' expect: 6
Sub Creates: ExecuteGlobal "late1 = ""late""": End Sub
Sub Waits
    Creates
    Echo late1
    r = late1 & "r": Echo r
End Sub
Waits                                       ' expect: late
                                            ' expect: later
Sub UsesOwnFirst
    mine = 1
    ExecuteGlobal "mine = 2"
    Echo mine
End Sub
UsesOwnFirst: Echo mine                     ' expect: 1
                                            ' expect: 2
' A name that some statement of the text writes to is empty before.
If False Then unset = 1
r = unset & "x": Echo r, unset + 1          ' expect: x 1
' What the language knows is no variable.
Sub Knows: r = vbTab & Len("abc") & UCase("x"): Echo Len(r): End Sub
Knows                                       ' expect: 3
On Error Resume Next
Sub Odd: For Each x1 In Missing1(1): Next: End Sub
Odd: Echo Err.Number                        ' expect: 13
