' Texts: search, parts, and what programs do with them.
Option Explicit
Dim s, n, word, part, out

s = "The quick brown fox"
Echo InStr(s, "quick")                                     ' expect: 5
Echo InStr(6, s, "q")                                      ' expect: 0
Echo InStr(1, s, "QUICK", vbTextCompare)                   ' expect: 5
Echo InStr(s, "") & InStr("", s)                           ' expect: 10
Echo InStrRev(s, "o") & "," & InStrRev(s, "o", 17) & "," & InStrRev(s, "o", -1)   ' expect: 18,13,18
Echo Mid(s, 5, 5) & "|" & Mid(s, 17) & "|" & Mid(s, 99)    ' expect: quick|fox|
Echo Left(s, 3) & Right(s, 3)                              ' expect: Thefox
Echo "[" & Trim("  a  ") & LTrim("  b ") & RTrim(" c  ") & "]"   ' expect: [ab  c]
Echo UCase(Left(LCase("ÄBC"), 2))                          ' expect: ÄB
Echo String(3, "ab") & String(2, 66) & Space(1) & "|"      ' expect: aaaBB |
Echo StrReverse("abc")                                     ' expect: cba
Echo StrComp("a", "B") & StrComp("a", "B", vbTextCompare) & StrComp("b", "B", 1)   ' expect: 1-10
Echo Replace("a-b-c", "-", "+", 1, 1)                      ' expect: a+b-c
Echo Replace("a-b-c", "-", "")                             ' expect: abc
Echo Replace("abcabc", "a", "x", 3)                        ' expect: cxbc
Echo Chr(Asc("A") + 1) & ChrW(AscW("€")) & Asc("€")        ' expect: B€128
Echo Len("abc") + Len(12345) + Len(Empty)                  ' expect: 8
Echo IsNull(Len(Null))                                     ' expect: True
Echo Unescape(Escape("a b&ü€"))                            ' expect: a b&ü€
Echo Len(vbCrLf & vbTab & vbNullString & vbNullChar)       ' expect: 4
Echo LenB("ab") & AscB(MidB("ab", 3, 1))                   ' expect: 498

' A text may end with half a character.
Dim a, b, s3, i
a = ChrB(65): Echo LenB(a) & Len(a) & AscB(a) & (a = "") & (a = ChrB(65)) & (a = ChrB(66))   ' expect: 1065FalseTrueFalse
b = a & ChrB(0) & ChrB(66): Echo LenB(b) & Left(b, 1) & AscB(RightB(b, 1))   ' expect: 3A66
b = b & ChrB(0): Echo LenB(b) & b                          ' expect: 4AB
Echo LenB(LeftB("ab", 3)) & LenB(MidB("ab", 2, 1)) & LenB(RightB("ab", 3)) & MidB("ab", 1, 2)   ' expect: 313a
Echo InStrB("ab", ChrB(98)) & InStrB(2, "ab", ChrB(0)) & InStrB("ab", "b")   ' expect: 323
s3 = "": For i = 1 To 3: s3 = s3 & ChrB(48 + i): Next: Echo LenB(s3) & AscB(MidB(s3, 3, 1))   ' expect: 351
Echo vbDatabaseCompare                                     ' expect: 2

' Words, counted and turned around.
n = 0
out = ""
For Each word In Split(s)
    n = n + 1
    out = word & " " & out
Next
Echo n & ":" & Trim(out)                                   ' expect: 4:fox brown quick The
Echo Join(Filter(Split("apple,banana,cherry", ","), "an"), ";")   ' expect: banana
Echo UBound(Split("a,b,c", ",", 2))                        ' expect: 1
Echo Join(Split("abc", ""), "|") & UBound(Split("", ","))   ' expect: abc-1
Echo Split("a,b,c", ",")(1)                                ' expect: b

' A line of quoted fields.
Function Fields(line)
    Dim result(), count, i, c, quoted, field
    count = 0
    For i = 1 To Len(line)
        c = Mid(line, i, 1)
        If c = """" Then
            quoted = Not quoted
        ElseIf c = "," And Not quoted Then
            ReDim Preserve result(count)
            result(count) = field
            count = count + 1
            field = ""
        Else
            field = field & c
        End If
    Next
    ReDim Preserve result(count)
    result(count) = field
    Fields = result
End Function

part = Fields("1,""a, b"",,""c""")
Echo UBound(part) & ":" & Join(part, "|")                  ' expect: 3:1|a, b||c

Function ToRoman(ByVal number)
    Dim values, signs, i
    values = Array(1000, 900, 500, 400, 100, 90, 50, 40, 10, 9, 5, 4, 1)
    signs = Split("M CM D CD C XC L XL X IX V IV I")
    For i = 0 To UBound(values)
        Do While number >= values(i)
            ToRoman = ToRoman & signs(i)
            number = number - values(i)
        Loop
    Next
End Function
Echo ToRoman(1994) & " " & ToRoman(2024)                   ' expect: MCMXCIV MMXXIV

Function IsPalindrome(text)
    Dim c, i, plain
    For i = 1 To Len(text)
        c = UCase(Mid(text, i, 1))
        If c >= "A" And c <= "Z" Then plain = plain & c
    Next
    IsPalindrome = (plain = StrReverse(plain))
End Function
Echo IsPalindrome("A man, a plan, a canal: Panama") And Not IsPalindrome("abca")   ' expect: True

Function HexOfText(text)
    Dim i
    For i = 1 To Len(text)
        HexOfText = HexOfText & Right("0" & Hex(Asc(Mid(text, i, 1))), 2)
    Next
End Function
Echo HexOfText("Az" & vbLf)                                ' expect: 417A0A
