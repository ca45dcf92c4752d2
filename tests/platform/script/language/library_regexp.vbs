' RegExp: searches, matches as objects, replacement by procedures.
Option Explicit
Dim re, matches, match, out, i

Set re = New RegExp
Echo re.Pattern & re.Global & re.IgnoreCase & re.Multiline   ' expect: FalseFalseFalse
re.Pattern = "(\w+)@(\w+)\.com"
Echo re.Test("x joe@example.com y") & re.Test("nobody")    ' expect: TrueFalse
Set matches = re.Execute("a@b.com, joe@example.com")
Echo matches.Count & matches(0) & matches(0).Value         ' expect: 1a@b.coma@b.com
re.Global = True
Set matches = re.Execute("a@b.com, joe@example.com")
Echo matches.Count                                         ' expect: 2
Echo matches(1).FirstIndex & "," & matches.Item(1).Length & "," & matches(1).Value   ' expect: 9,15,joe@example.com
Echo matches(1).SubMatches.Count & matches(1).SubMatches(0) & matches(1).SubMatches.Item(1)   ' expect: 2joeexample
out = ""
For Each match In matches
    out = out & match & ":" & match.SubMatches(0) & ";"
    For Each i In match.SubMatches
        out = out & i & ","
    Next
Next
Echo out                                                   ' expect: a@b.com:a;a,b,joe@example.com:joe;joe,example,
Echo TypeName(re) & " " & TypeName(matches) & " " & TypeName(matches(0))   ' expect: IRegExp2 IMatchCollection2 IMatch2
Echo "<" & matches(0) & ">" & Len(matches(0)) & UCase(matches(0))   ' expect: <a@b.com>7A@B.COM

With New RegExp
    .Pattern = "(a)|(b)"
    .Global = True
    Set matches = .Execute("ab")
End With
Echo IsEmpty(matches(0).SubMatches(1)) & VarType(matches(1).SubMatches(1))   ' expect: True8

re.Pattern = "(\d+)/(\d+)/(\d+)"
Echo re.Replace("on 1/2/2024 and 3/4/2025", "$3-$1-$2")    ' expect: on 2024-1-2 and 2025-3-4
re.Pattern = "^\s*(\S+)"
re.Multiline = True
Echo Replace(re.Replace("a b" & vbLf & "  c d", "<$1>"), vbLf, "|")   ' expect: <a> b|<c> d
re.Multiline = False
re.IgnoreCase = True
re.Pattern = "[äöü]"
Echo re.Replace("ÄbÜ", "_")                                ' expect: _b_
re.Pattern = ""
Echo re.Replace("ab", "-")                                 ' expect: -a-b-

' Procedures that give the replacement.
Function Twice(match, word, place, text)
    Twice = place & UCase(word) & Len(text)
End Function
re.Pattern = "b(.)"
re.IgnoreCase = False
Echo re.Replace("abcbd", GetRef("Twice"))                  ' expect: a1C53D5

Class Counter
    Public Count
    Public Default Function Take(match, place, text)
        Count = Count + 1
        Take = "[" & Count & "]"
    End Function
End Class
Dim counted
Set counted = New Counter
re.Pattern = "x"
Echo re.Replace("axbxc", counted) & counted.Count          ' expect: a[1]b[2]c2

Function Fails(match, place, text)
    Err.Raise vbObjectError + 7, "Fails", "no more"
End Function
On Error Resume Next
out = "kept"
out = re.Replace("axb", GetRef("Fails"))
Echo out & (Err.Number = vbObjectError + 7) & Err.Description   ' expect: keptTrueno more
Err.Clear
out = re.Execute("abc")(0)
Echo Err.Number                                            ' expect: 5
Dim wrong
For Each wrong In Array("*", "(", "[", "a)", "[z-a]")
    Err.Clear
    re.Pattern = wrong
    re.Test "x"
    out = out & " " & Err.Number
Next
Echo out                                                   ' expect: kept 5018 5020 5019 5017 5021
Echo Err.Description                                       ' expect: Invalid range in character set
On Error GoTo 0

' The procedure changes the object that calls it.
Function Changes(match, place, text)
    If Not re Is Nothing Then
        re.Pattern = "y"
        re.Global = False
        Set re = Nothing
    End If
    Changes = "!"
End Function
Set re = New RegExp
re.Global = True
re.Pattern = "x"
Echo re.Replace("axbxy", GetRef("Changes"))                ' expect: a!b!y

' Tokens of an expression, and its value.
Class Parser
    Private tokens, at

    Public Function Value(text)
        Dim lexer
        Set lexer = New RegExp
        lexer.Global = True
        lexer.Pattern = "\d+(?:\.\d+)?|[-+*/()]"
        Set tokens = lexer.Execute(text)
        at = 0
        Value = Sum()
    End Function

    Private Function Token()
        If at < tokens.Count Then Token = tokens(at).Value Else Token = ""
    End Function

    Private Function Sum()
        Dim sign
        Sum = Product()
        Do While Token() = "+" Or Token() = "-"
            sign = Token()
            at = at + 1
            If sign = "+" Then Sum = Sum + Product() Else Sum = Sum - Product()
        Loop
    End Function

    Private Function Product()
        Dim sign
        Product = Factor()
        Do While Token() = "*" Or Token() = "/"
            sign = Token()
            at = at + 1
            If sign = "*" Then Product = Product * Factor() Else Product = Product / Factor()
        Loop
    End Function

    Private Function Factor()
        If Token() = "(" Then
            at = at + 1
            Factor = Sum()
            at = at + 1
        ElseIf Token() = "-" Then
            at = at + 1
            Factor = -Factor()
        Else
            Factor = CDbl(Token())
            at = at + 1
        End If
    End Function
End Class
Dim calculator
Set calculator = New Parser
Echo calculator.Value("2 * (3 + 4) - 10 / 4 + -1.5")       ' expect: 10
