' What may stand on one line, and what a blank or a bracket means.
Dim a, b
Sub OneLine x1 = 1: Echo "one line", x1 End Sub
Function Two() Two = 2 End Function
Class Short
    Public Function Give: Give = 3 End Function
    Public Property Get P: P = 4 End Property
    Public Sub Show(x, y): Echo "Show", x, y: End Sub
    Public Function Item(x): Set Item = Me: Echo "Item", x: End Function
    Public Default Function Self(x): Set Self = Me: Echo "Self", x: End Function
    Dim Last End Class
OneLine                                     ' expect: one line 1
Echo Two(), (New Short).Give, (New Short).P ' expect: 2 3 4

' A number may touch the word behind it.
a = 0
If a = 0Then Echo "touches"                 ' expect: touches
If a = 1Then b = 1Else b = 2
Echo b, 7Mod 4, 1And 3                      ' expect: 2 3 1
For i = 1To 3Step 2: Echo i: Next           ' expect: 1
                                            ' expect: 3

' A procedure within a block is as global as beside it.
If a = 5 Then
    Sub InBlock: Echo "in block": End Sub
    Private Function AlsoThere(): AlsoThere = 6: End Function
End If
InBlock                                     ' expect: in block
Echo AlsoThere()                            ' expect: 6

' A dot goes on with a call, also behind a blank or on the next line.
Set o = New Short
o.Item(1) _
    .Item(2) _
    .Show 3, 4                              ' expect: Item 1
                                            ' expect: Item 2
                                            ' expect: Show 3 4
o.Item ("x").Show 0, 0                      ' expect: Item x
                                            ' expect: Show 0 0
o.Item ("y").Item "z"                       ' expect: Item y
                                            ' expect: Item z
o.Show (1) + 1, (2)                         ' expect: Show 2 2
Echo (o).Give + 1, 2                        ' expect: 4 2
Echo (o).Give & "!"                         ' expect: 3!
Echo (o).Give, 5                            ' expect: 3 5
With o
    Echo .Give, _
        .P                                  ' expect: 3 4
    Echo _
        .Give                               ' expect: 3
End With

' Brackets around what is called.
Call (New Short).Show(5, 6)                 ' expect: Show 5 6
list = Array(10, 20)
y = (list)(1): Echo y                       ' expect: 20
Set y = (o)("d")                            ' expect: Self d

' A plus does nothing.
Echo TypeName(+True), TypeName(+"true"), +"true", TypeName(+Empty), - +5   ' expect: Boolean String true Empty -5
Sub Change(n): n = 1: End Sub
a = 0: Change +a: Echo a                    ' expect: 0
