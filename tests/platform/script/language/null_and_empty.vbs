' Null spreads; Empty is 0, "" and False.
Echo IsNull(Null + 1), IsNull(1 - Null), IsNull(Null * Null), IsNull(-Null), IsNull(Not Null)   ' expect: True True True True True
Echo IsNull(Null = Null), IsNull(Null < 1), IsNull(Null <> Null)   ' expect: True True True
Echo Null & "a", "a" & Null, IsNull(Null & Null), Null & Null & "x"   ' expect: a a True x
Echo IsNull(Null & Null & Null)             ' expect: True
Echo Null And False, IsNull(Null And True), Null Or True, IsNull(Null Or False)   ' expect: False True True True
Echo Null Imp True, IsNull(True Imp Null), False Imp Null, IsNull(Null Xor True), IsNull(Null Eqv True)   ' expect: True True True True True
Echo Null And 0, IsNull(Null And 1), Null Or 5   ' expect: 0 True 5

If Null Then Echo "then" Else Echo "else"   ' expect: else
If Not Null Then Echo "then" Else Echo "else"   ' expect: else
If Null = Null Then Echo "then" Else Echo "else"   ' expect: else
Do While Null: Echo "never": Loop
n = 0
Do Until Null: n = n + 1: If n = 3 Then Exit Do
Loop
Echo n                                      ' expect: 3
Select Case Null
    Case Null: Echo "null"
    Case Else: Echo "else"                  ' expect: else
End Select

Dim e
Echo e + 1, 5 * e, e & "x", e = 0, e = "", Not e, TypeName(e + e), TypeName(Not e)   ' expect: 1 0 x True True -1 Integer Long
Echo TypeName(e And 1), TypeName(True And e), TypeName(e Or e), TypeName(CByte(1) Xor e), True Or e   ' expect: Long Long Long Long -1
Echo IsEmpty(e), IsEmpty(0), IsEmpty(""), IsEmpty(Empty)   ' expect: True False False True
If e Then Echo "then" Else Echo "else"      ' expect: else

On Error Resume Next
x = CInt(Null): Echo Err.Number             ' expect: 94
Err.Clear: For i = Null To 3: Next: Echo Err.Number   ' expect: 92
Err.Clear: If "abc" Then Echo "body"        ' expect: body
Echo Err.Number                             ' expect: 13
