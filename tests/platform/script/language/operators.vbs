' Order and grouping of operators; the types of results.
Echo 2 ^ 3 ^ 2, -2 ^ 2, 2 ^ -1              ' expect: 64 4 0.5
Echo 7 \ 2 * 2, 100 / 10 / 5, 7 Mod 4 \ 2   ' expect: 1 2 1
Echo 2 + 3 & 4 + 5                          ' expect: 59
Echo 10 - 4 - 3, 2 * 3 Mod 4, -7 \ 2, -7 Mod 3   ' expect: 3 2 -3 -1
Echo Not 1 = 2, Not (1 = 2), Not 1 + 1       ' expect: True True -3
Echo 1 = 1 = True, 3 > 2 > 1                ' expect: True False
Echo True Or False And False, (True Or False) And False   ' expect: True False
Echo 1 Or 2 Xor 3, 5 And 3 Or 8             ' expect: 0 9
Echo True Xor True, False Eqv False, True Imp False   ' expect: False True False
Echo "a" & 1 + 2, "a" & -1                  ' expect: a3 a-1
Echo + 5, - - 5, Not Not True               ' expect: 5 5 True

' Whole numbers widen when they overflow.
i = 32767: Echo i + 1, TypeName(i + 1)       ' expect: 32768 Long
i = 2147483647: Echo i + 1, TypeName(i + 1)  ' expect: 2147483648 Double
i = -32768: Echo TypeName(CInt(i) - 1)       ' expect: Long
Echo TypeName(CByte(1) - CByte(2)), CByte(1) - CByte(2)   ' expect: Integer -1
Echo TypeName(CByte(200) + CByte(100)), TypeName(CByte(1) + CByte(2))   ' expect: Integer Byte
Echo TypeName(300 * 300), TypeName(100000 * 100000)   ' expect: Long Double
Echo TypeName(4 / 2), TypeName(CSng(4) / CSng(2)), TypeName(5 \ 2), TypeName(5.5 \ 2)   ' expect: Double Single Integer Long
Echo TypeName(2 ^ 2), TypeName(-CByte(1)), TypeName(-"1"), TypeName(-True)   ' expect: Double Integer Double Integer
Echo TypeName(CCur(1) + 1.5), TypeName(CCur(1) * 1.5)   ' expect: Currency Double
Echo TypeName(#1/1/2000# + 1), TypeName(#1/2/2000# - #1/1/2000#), #1/2/2000# - #1/1/2000#   ' expect: Date Double 1

' \ and Mod round their operands first, half to even.
Echo 5.5 \ 2.5, 6.5 Mod 4, 7.5 Mod 4, 2.5 \ 1   ' expect: 3 2 0 2

' Texts that are numbers; + joins two texts.
Echo "1" + "2", "1" + 2, "3" * "4", "7" - 2 ' expect: 12 3 12 5
Echo TypeName("1" + "2"), TypeName("1" + 2) ' expect: String Double

' Logic works bit by bit and evaluates both sides.
Echo 5 And 6, 5 Or 6, 5 Xor 6, 5 Eqv 6, 5 Imp 6, Not 5   ' expect: 4 7 3 -4 -2 -6
Echo 2.5 And 7, "6" And 3, TypeName(2.5 And 7), TypeName(True And True), TypeName(True And 1)   ' expect: 2 2 Long Boolean Integer
calls = 0
Function Count(result): calls = calls + 1: Count = result: End Function
r = Count(False) And Count(True): r = Count(True) Or Count(False)
Echo calls                                  ' expect: 4

' Errors.
On Error Resume Next
x = 1 / 0: Echo Err.Number, Err.Description  ' expect: 11 Division by zero
On Error Resume Next
x = 0 / 0: Echo Err.Number                   ' expect: 6
Err.Clear: x = 1 \ 0: Echo Err.Number        ' expect: 11
Err.Clear: x = 1 Mod 0: Echo Err.Number      ' expect: 11
Err.Clear: x = 3000000000 \ 1: Echo Err.Number   ' expect: 6
Err.Clear: x = 1e308 * 10: Echo Err.Number   ' expect: 6
Err.Clear: x = "a" * 1: Echo Err.Number      ' expect: 13
Err.Clear: x = "a" + 1: Echo Err.Number      ' expect: 13
Err.Clear: x = Null / 0: Echo Err.Number, IsNull(x)   ' expect: 0 True
Err.Clear: x = (-8) ^ 0.5: Echo Err.Number   ' expect: 5
Err.Clear: x = Array(1) + 1: Echo Err.Number ' expect: 13
Err.Clear: x = Not "a": Echo Err.Number      ' expect: 13

' A long chain of operators needs no depth.
chain = "0"
For i = 1 To 3000: chain = chain & "+1": Next
Echo Eval(chain)                            ' expect: 3000
chain = """"""
For i = 1 To 3000: chain = chain & "&""x""": Next
Echo Len(Eval(chain))                       ' expect: 3000
