' Dates: parts, sums and calendars.
Option Explicit
Dim d, i, out, before

d = #2024-02-29 13:14:15#
Echo Year(d) & "/" & Month(d) & "/" & Day(d) & " " & Hour(d) & ":" & Minute(d) & ":" & Second(d)   ' expect: 2024/2/29 13:14:15
Echo Weekday(d) & Weekday(d, vbMonday)                     ' expect: 54
Echo WeekdayName(Weekday(d)) & " " & MonthName(Month(d), True)   ' expect: Thursday Feb
Echo DateSerial(2024, 13, 0)                               ' expect: 12/31/2024
Echo Day(DateSerial(2023, 2 + 1, 0))                       ' expect: 28
Echo TimeSerial(12, -30, 90)                               ' expect: 11:31:30 AM
Echo DateAdd("m", 1, #2024-01-31#)                         ' expect: 2/29/2024
Echo DateAdd("h", 36, d)                                   ' expect: 3/2/2024 1:14:15 AM
Echo DateDiff("yyyy", #2023-12-31#, #2024-01-01#) & DateDiff("h", #10:59:00#, #11:01:00#)   ' expect: 11
Echo DatePart("q", d) & "," & DatePart("y", d) & "," & DatePart("ww", d)   ' expect: 1,60,9
Echo DatePart("ww", #2021-01-01#, vbMonday, vbFirstFourDays)   ' expect: 53
Echo DateValue(d) + TimeValue(d) = d                       ' expect: True
Echo CDbl(#1900-01-01#) & CLng(#1899-12-30#)               ' expect: 20
Echo #2024-03-01# - #2024-02-28#                           ' expect: 2
Echo d + 0.5                                               ' expect: 3/1/2024 1:14:15 AM
Echo CDate("2024-02-29") = #2024-02-29# And IsDate("29 Feb 2024") And Not IsDate("30 Feb 2024 x")   ' expect: True
Echo CStr(d) & "|" & #13:00# & "|" & #2024-01-02#          ' expect: 2/29/2024 1:14:15 PM|1:00:00 PM|1/2/2024
Echo FormatDateTime(d, vbShortTime) & " " & FormatDateTime(d, vbShortDate)   ' expect: 13:14 2/29/2024
Echo FormatDateTime(d, vbLongDate)                         ' expect: Thursday, February 29, 2024
Echo IsNull(Year(Null)) And IsNull(DateDiff("d", Null, Now)) And Not IsDate(Null)   ' expect: True

before = Now
Echo Date + Time >= before And Now - before < 1 And TypeName(Timer) = "Single"   ' expect: True
Echo Date = DateSerial(Year(Now), Month(Now), Day(Now))    ' expect: True

' The days of a month, week by week.
Function Calendar(year, month)
    Dim day, cells
    cells = Weekday(DateSerial(year, month, 1), vbMonday) - 1
    Calendar = String(cells, ".")
    For day = 1 To DateDiff("d", DateSerial(year, month, 1), DateSerial(year, month + 1, 1))
        Calendar = Calendar & Chr(64 + Weekday(DateSerial(year, month, day)))
        If (day + cells) Mod 7 = 0 Then Calendar = Calendar & " "
    Next
End Function
Echo Calendar(2024, 2)                                     ' expect: ...EFGA BCDEFGA BCDEFGA BCDEFGA BCDE

Function EasterSunday(y)
    Dim c, n, k, i, j, l, m
    c = y \ 100
    n = y - 19 * (y \ 19)
    k = (c - 17) \ 25
    i = c - c \ 4 - (c - k) \ 3 + 19 * n + 15
    i = i - 30 * (i \ 30)
    i = i - (i \ 28) * (1 - (i \ 28) * (29 \ (i + 1)) * ((21 - n) \ 11))
    j = y + y \ 4 + i + 2 - c + c \ 4
    j = j - 7 * (j \ 7)
    l = i - j
    m = 3 + (l + 40) \ 44
    EasterSunday = DateSerial(y, m, l + 28 - 31 * (m \ 4))
End Function
Echo EasterSunday(2024) & " " & EasterSunday(2025)         ' expect: 3/31/2024 4/20/2025

' Locales.
i = SetLocale("de-de")
Echo CStr(1.5) & " " & CStr(#2024-02-29#) & " " & MonthName(3) & " " & FormatNumber(1234.5)   ' expect: 1,5 29.02.2024 März 1.234,50
Echo CDate("1.3.2024") = #2024-03-01#                      ' expect: True
SetLocale i
Echo GetLocale & " " & CStr(1.5)                           ' expect: 1033 1.5
