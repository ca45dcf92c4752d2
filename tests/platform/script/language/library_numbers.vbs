' Numbers: types of results through expressions, rounding, conversions, formats.
Option Explicit
Dim i, sum, x

Echo TypeName(Int(5))                                      ' expect: Integer
Echo Int(-2.5)                                             ' expect: -3
Echo Fix(-2.5)                                             ' expect: -2
Echo CInt(0.5) & CInt(1.5) & CInt(2.5) & CInt(-0.5)        ' expect: 0220
Echo Round(0.5) & Round(1.5) & Round(2.5)                  ' expect: 022
Echo Round(3.14159, 3)                                     ' expect: 3.142
Echo TypeName(Round(3))                                    ' expect: Integer
Echo Abs(-32768)                                           ' expect: 32768
Echo Sgn(-3) & Sgn(0) & Sgn("7")                           ' expect: -101
Echo Hex(-1) & Hex(255) & Hex(65535) & Hex(&HFFFF)         ' expect: FFFFFFFFFFFFFF
Echo Hex(CLng(-1))                                         ' expect: FFFFFFFF
Echo Oct(8) & "," & Oct(-1)                                ' expect: 10,177777
Echo CLng("&H10") + CInt("&O17")                           ' expect: 31
Echo CInt(True) + CByte(True) * 2                          ' expect: 509
Echo TypeName(Abs(CCur(-1.25)))                            ' expect: Currency
Echo Sqr(Abs(Int(-15.3)))                                  ' expect: 4
Echo Round(Exp(Log(10)), 10)                               ' expect: 10
Echo Round(4 * Atn(1), 10)                                 ' expect: 3.1415926536
Echo IsNumeric("1e3") & IsNumeric("1,000") & IsNumeric("(5)") & IsNumeric("5%") & IsNumeric(Empty) & IsNumeric("")   ' expect: TrueTrueTrueFalseTrueFalse
Echo "3" + 4                                               ' expect: 7
Echo IsNull(Abs(Null)) And IsNull(Hex(Null)) And IsNull(Int(Null)) And IsNull(Round(Null))   ' expect: True

' A fixed series of random numbers.
Rnd -1
Randomize 1
x = Rnd
Rnd -1
Randomize 1
Echo Rnd = x                                               ' expect: True
Echo Rnd(0) = x                                            ' expect: True
sum = 0
For i = 1 To 1000
    sum = sum + Int(Rnd * 6) + 1
Next
Echo sum > 3200 And sum < 3800                             ' expect: True
Echo TypeName(Rnd)                                         ' expect: Single

Echo FormatNumber(1234567.891)                             ' expect: 1,234,567.89
Echo FormatNumber(-0.5, , 0, -1)                           ' expect: (.50)
Echo FormatNumber(1234.5, 0, , , vbFalse)                  ' expect: 1235
Echo FormatPercent(0.1234, 1)                              ' expect: 12.3%
Echo FormatCurrency(-5.5)                                  ' expect: ($5.50)

Echo RGB(255, 128, 0)                                      ' expect: 33023
Echo vbRed + vbGreen + vbBlue = vbWhite                    ' expect: True
Echo VarType(1) & VarType("") & VarType(Array()) & VarType(Null)   ' expect: 2882041
