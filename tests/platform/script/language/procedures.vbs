' Procedures, their arguments and their results.
Function NoResult: End Function
Echo IsEmpty(NoResult), IsEmpty(NoResult()) ' expect: True True
Function Fib(n)
    If n < 2 Then Fib = n Else Fib = Fib(n - 1) + Fib(n - 2)
End Function
Echo Fib(15)                                ' expect: 610
Function Self: Self = 1: Self = Self + 1: End Function
Echo Self                                   ' expect: 2
Function Objectify: Set Objectify = CreateObject("Scripting.Dictionary"): End Function
Echo TypeName(Objectify), Objectify.Count   ' expect: Dictionary 0
Echo Later(2)                               ' expect: 4
Function Later(x): Later = x * 2: End Function

' Ways to call.
Sub Show(a, b): Echo a, b: End Sub
Show 1, 2                                   ' expect: 1 2
Call Show(3, 4)                             ' expect: 3 4
Call Show (5, 6)                            ' expect: 5 6
Show (1 + 2) * 3, 4                         ' expect: 9 4
Show -1, +2                                 ' expect: -1 2
Sub One(a): Echo a: End Sub
One 5                                       ' expect: 5
One(6)                                      ' expect: 6
One (7)                                     ' expect: 7
One (1) + 1                                 ' expect: 2
Sub None: Echo "none": End Sub
None                                        ' expect: none
None()                                      ' expect: none
Call None                                   ' expect: none
Call None()                                 ' expect: none
Fib 3
Call Fib(3)

' The last procedure of a name holds.
Function Twice: Twice = "first": End Function
Function Twice: Twice = "second": End Function
Echo Twice                                  ' expect: second

' A procedure's own name beats the language's function.
Function LCase(x): LCase = "mine": End Function
Echo LCase("A")                             ' expect: mine

' Left-out arguments.
Function Kind(a, b): Kind = TypeName(a) & TypeName(b): End Function
Echo Kind(, 1)                              ' expect: ErrorInteger
On Error Resume Next
Echo Kind(1)
Echo Err.Number                             ' expect: 450
Err.Clear: Show 1, 2, 3: Echo Err.Number     ' expect: 450
Err.Clear: Unknown: Echo Err.Number          ' expect: 13
Err.Clear: Unknown 1: Echo Err.Number        ' expect: 13
Err.Clear: x = Unknown(1): Echo Err.Number   ' expect: 13
Err.Clear: x = NoResult(1): Echo Err.Number  ' expect: 450

' The result is empty again in each call.
Function Sticky(assign): If assign Then Sticky = 1
End Function
r = Sticky(True): Echo IsEmpty(Sticky(False))   ' expect: True
Function Early(x)
    Early = "before"
    If x Then Exit Function
    Early = "after"
End Function
Echo Early(True), Early(False)              ' expect: before after
