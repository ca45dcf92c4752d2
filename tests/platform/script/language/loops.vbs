' For, Do, While.
For i = 1 To 3: Echo i: Next                ' expect: 1
                                            ' expect: 2
                                            ' expect: 3
Echo i                                      ' expect: 4
For i = 3 To 1 Step -1: Next: Echo i        ' expect: 0
For i = 1 To 0: Echo "never": Next: Echo i  ' expect: 1
s = "": For i = 0 To 1 Step 0.25: s = s & i & " ": Next: Echo s   ' expect: 0 0.25 0.5 0.75 1
n = 3: s = "": For i = 1 To n: n = 1: s = s & i: Next: Echo s   ' expect: 123
s = "": For i = 1 To 10: i = i + 2: s = s & i & " ": Next: Echo s   ' expect: 3 6 9 12
For i = 32766 To 32767: Next: Echo i, TypeName(i)   ' expect: 32768 Long
For i = 1 To 40000 Step 20000: Echo TypeName(i): Next   ' expect: Long
                                            ' expect: Long
For i = 2147483646 To 2147483647: Next: Echo i   ' expect: 2147483648
For i = "1" To "2": s = i: Next: Echo s     ' expect: 2
s = "": For d = #1/1/2000# To #1/3/2000#: s = s & Day(d): Next: Echo s   ' expect: 123
For i = CByte(254) To CByte(255): Next: Echo i   ' expect: 256
For i = 1 To 3
    If i = 2 Then Exit For
Next
Echo i                                      ' expect: 2
' A loop ends at once with a step of 0 only by Exit.
n = 0: For i = 1 To 1 Step 0: n = n + 1: If n = 5 Then Exit For
Next
Echo n, i                                   ' expect: 5 1
For i = 1 To 2: For j = 1 To 2: Echo i & j: Next: Next   ' expect: 11
                                            ' expect: 12
                                            ' expect: 21
                                            ' expect: 22

n = 0: Do: n = n + 1: If n = 4 Then Exit Do
Loop
Echo n                                      ' expect: 4
n = 0: Do While n < 3: n = n + 1: Loop: Echo n   ' expect: 3
n = 0: Do Until n = 3: n = n + 1: Loop: Echo n   ' expect: 3
n = 9: Do: n = n + 1: Loop While n < 3: Echo n   ' expect: 10
n = 9: Do: n = n + 1: Loop Until n > 3: Echo n   ' expect: 10
n = 0: While n < 3: n = n + 1: Wend: Echo n ' expect: 3
Do While True
    For i = 1 To 3
        Exit Do
    Next
Loop
Echo "out", i                               ' expect: out 1
Sub Leave
    For i = 1 To 3
        Do
            Exit Sub
        Loop
    Next
    Echo "never"
End Sub
Leave

' For Each.
s = "": For Each x In Array(1, "b", 3): s = s & x: Next: Echo s   ' expect: 1b3
Echo IsEmpty(x)                             ' expect: True
Dim grid(1, 1)
grid(0, 0) = 1: grid(1, 0) = 2: grid(0, 1) = 3: grid(1, 1) = 4
s = "": For Each x In grid: s = s & x: Next: Echo s   ' expect: 1234
a = Array(1, 2): For Each x In a: x = 9: a = Array(): s = x: Next: Echo s   ' expect: 9
For Each x In Array(): Echo "never": Next
Set dict = CreateObject("Scripting.Dictionary")
dict("k") = 1: dict("l") = 2
s = "": For Each x In dict: s = s & x: Next: Echo s   ' expect: kl
s = "": For Each x In dict.Items: s = s & x: Next: Echo s   ' expect: 12
For Each x In Array(1, 2, 3): If x = 2 Then Exit For
Next
Echo x                                      ' expect: 2
On Error Resume Next
x = "kept"
For Each x In 5: Echo "body": Next          ' expect: body
Echo Err.Number, x                          ' expect: 451 kept
Err.Clear
Set plain = New Thing
For Each x In plain: Next
Echo Err.Number                             ' expect: 451
Class Thing
End Class
