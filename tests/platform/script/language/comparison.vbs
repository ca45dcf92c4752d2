' Comparison of values of different types.
Dim five, text5, nothingYet
five = 5: text5 = "5"
' A literal number makes the comparison numeric, a literal text makes it textual; without one a text is greater than
' any number.
Echo text5 = 5, "5" = five, text5 = five    ' expect: True True False
Echo text5 > five, five < text5, text5 < five   ' expect: True True False
Echo "10" > five, text5 > 10, "10" > "9"    ' expect: False False False
Echo "" < five, (text5) = 5                 ' expect: True True
Echo text5 = -5, text5 = 5.0                ' expect: False True
Echo "a" = "A", "a" > "B", "abc" < "abd", "" < "a"   ' expect: False True True True
Echo nothingYet = 0, nothingYet = "", nothingYet = False, nothingYet = Empty   ' expect: True True True True
Echo "x" > nothingYet, -1 < nothingYet      ' expect: True True
Echo True = -1, False = 0, True > False, True < False   ' expect: True True False True
Echo 1 = 1.0, CByte(1) = 1, CCur(1) = 1, CSng(0.5) = 0.5   ' expect: True True True True
Echo #1/1/2000# = 36526, #1/1/2000# < #1/2/2000#   ' expect: True True
Echo 1 <> 2, 1 >< 2, 1 <= 1, 1 =< 1, 2 >= 1, 2 => 1   ' expect: True True True True True True

On Error Resume Next
r = "never": r = ("abc" = 5): Echo Err.Number, r   ' expect: 13 never
Err.Clear: r = ("abc" = -5): Echo Err.Number, r   ' expect: 0 False
Err.Clear: r = (text5 = -5): Echo Err.Number, r   ' expect: 0 False
Err.Clear: r = (text5 = Array(1)): Echo Err.Number   ' expect: 13

' Objects compare by their default value; Is compares the objects.
Set d = CreateObject("Scripting.Dictionary")
Set e = d
Echo d Is e, d Is Nothing, Not d Is Nothing  ' expect: True False True
Set e = CreateObject("Scripting.Dictionary")
Echo d Is e                                 ' expect: False
Err.Clear: r = d = 1: Echo Err.Number        ' expect: 450
Err.Clear: r = five Is d: Echo Err.Number    ' expect: 424
Err.Clear: r = Nothing Is Nothing: Echo Err.Number, r   ' expect: 0 True
