' What functions raise, and what of it a script sees.
Option Explicit
Dim list, item, parts, number, value, wrong

' Each line: the number that an expression raises, and the expression.
list = Array( _
    "5 Left(""abc"", -1)", "5 Mid(""abc"", 0)", "5 Mid(""abc"", 1, -1)", "5 Asc("""")", "5 Chr(256)", _
    "5 Sqr(-1)", "5 Log(0)", "5 String(2, """")", "5 Space(-1)", "5 InStr(0, ""a"", ""a"")", "5 Round(1, -1)", _
    "5 DateAdd(""x"", 1, Now)", "5 MonthName(13)", "5 WeekdayName(0)", "5 DateSerial(10000, 1, 1)", _
    "5 FormatNumber(1, -2)", "5 FormatDateTime(Now, 9)", "5 StrComp(""a"", ""b"", 3)", "5 SetLocale(""nowhere"")", _
    "5 RGB(-1, 0, 0)", "6 CInt(32768)", "6 CByte(256)", "6 CLng(3000000000)", "6 CByte(-1)", "6 Exp(1000)", _
    "6 Hex(3000000000)", "6 DateSerial(40000, 1, 1)", "9 UBound(Array(1), 2)", "9 LBound(Array(1), 0)", _
    "13 CInt(""abc"")", "13 CDbl("""")", "13 CDate(""never"")", "13 UBound(5)", "13 Join(""a"")", _
    "13 Join(Array(Array(1)))", "13 Abs(""x"")", "13 Year(""x"")", "13 CStr(Array(1))", "13 FormatNumber(""x"")", _
    "91 CStr(Nothing)", "91 Len(Nothing)", "94 CInt(Null)", "94 CStr(Null)", "94 CBool(Null)", "94 Chr(Null)", _
    "94 Sgn(Null)", "94 Replace(Null, ""a"", ""b"")", "94 StrReverse(Null)", "94 Split(Null)", _
    "94 Left(""abc"", Null)", "94 MonthName(Null)", "450 Left(""abc"")", "450 Len()", "450 Mid(""a"", 1, 2, 3)", _
    "450 Date(1)", "450 Now(1, 2)", "450 Split()", "481 LoadPicture(""a.bmp"")", "506 TypeName(New Collection)")

On Error Resume Next
For Each item In list
    parts = Split(item, " ", 2)
    Err.Clear
    value = Eval(parts(1))
    number = Err.Number
    If number <> CLng(parts(0)) Then wrong = wrong & parts(1) & " raises " & number & "; "
Next
Echo wrong & "all seen"                                    ' expect: all seen

Err.Clear
value = "kept"
value = CInt("abc")
Echo value & Err.Description                               ' expect: keptType mismatch
Err.Clear
value = UCase(Nothing)
Echo Err.Number & value                                    ' expect: 91kept
On Error GoTo 0

' Without an error.
Echo IsNull(Nothing) & IsEmpty(Nothing) & IsNumeric(Nothing) & IsDate(Array(1)) & IsObject(Nothing)   ' expect: FalseFalseFalseFalseTrue
Echo VarType(Nothing) & TypeName(Nothing)                  ' expect: 9Nothing

Class Money
    Public Amount
    Public Default Property Get Value()
        Value = Amount
    End Property
End Class
Dim m
Set m = New Money
m.Amount = 12.5
Echo Int(m) & FormatNumber(m) & Len(m) & VarType(m) & TypeName(m) & IsNumeric(m) & Left(m, 2)   ' expect: 1212.5045MoneyTrue12
m.Amount = Null
Echo IsNull(m) & IsNull(Len(m)) & IsNull(UCase(m)) & IsObject(m)   ' expect: TrueTrueTrueTrue
m.Amount = Array("x", "y")
Echo Join(m, "-") & UBound(m) & IsArray(m) & VarType(m)    ' expect: x-y1False8204

' Names of functions and constants belong to whoever takes them first.
Echo Shadow()                                              ' expect: shadowed
Function Shadow()
    Dim left
    left = "shadowed"
    Shadow = left
End Function
Echo Shown(Date) = Date                                    ' expect: True
Function Shown(value)
    Shown = value
End Function
