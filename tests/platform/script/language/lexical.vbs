' Lines, names, comments and literals.
Echo 1 + _
     2                                      ' expect: 3
Echo "a" : Echo "b"                         ' expect: a
                                            ' expect: b
Rem a comment: Echo "not run"
Echo 1: Rem another one                     ' expect: 1
dIM MixedCase: mixedcase = 5: Echo MIXEDCASE   ' expect: 5
[a name with blanks!] = 7: Echo [A Name With Blanks!]   ' expect: 7
Dim [select]: [select] = 8: Echo [Select]   ' expect: 8
Echo "doubled ""quotes"""                   ' expect: doubled "quotes"
Echo "'no comment'"                         ' expect: 'no comment'

' The type of a number is the narrowest that holds it.
Echo TypeName(32767), TypeName(32768), TypeName(2147483647), TypeName(2147483648)   ' expect: Integer Long Long Double
Echo TypeName(-32768), -32768               ' expect: Long -32768
Echo TypeName(1.0), TypeName(1e2), TypeName(.5), TypeName(5.)   ' expect: Double Double Double Double
Echo .5 + 1., 1e2, 1E-2, 1e+2               ' expect: 1.5 100 0.01 100
Echo &HFF, &hFFFF, &H10000, &HFFFF&, &H8000, &HFFFFFFFF   ' expect: 255 -1 65536 65535 -32768 -1
Echo TypeName(&HFFFF), TypeName(&HFFFF&), TypeName(&H10000), TypeName(&HFFFFFFFF)   ' expect: Integer Long Long Long
Echo &O17, &o17&, TypeName(&o17&)           ' expect: 15 15 Long
Echo "a"&"b", 1&2                           ' expect: ab 12

' Dates are the same in every locale.
Echo CDbl(#1/2/2000#), CDbl(#12/31/1999#), CDbl(#31/12/1999#)   ' expect: 36527 36525 36525
Echo CDbl(#January 2, 2000#), CDbl(#2 Jan 2000#), CDbl(#2000-01-02#)   ' expect: 36527 36527 36527
Echo CDbl(#6:00:00 AM#), CDbl(#18:00#), CDbl(#6 PM#)   ' expect: 0.25 0.75 0.75
Echo CDbl(#1/2/2000 12:00:00 PM#), CDbl(#1/2/2000 12:00 AM#)   ' expect: 36527.5 36527
Echo CDbl(#1/2/30#), CDbl(#1/2/29#)         ' expect: 10960 47120
Echo TypeName(#1/2/2000#)                   ' expect: Date
Echo CDbl(#1/2000#), CDbl(#Jan 2000#), Year(#12/25#) = Year(Now), Month(#25/12#)   ' expect: 36526 36526 True 12

' Words that mean something in one place only are names elsewhere.
Dim default, property, explicit, error, step, preserve
default = 1: property = 2: explicit = 3: error = 4: step = 5: preserve = 6
Echo default + property + explicit + error + step + preserve   ' expect: 21
Set holder = New Words
Echo holder.Next, holder.End, holder.Select  ' expect: next end select

Class Words
    Public Property Get [Next]: [Next] = "next": End Property
    Public Property Get [End]: [End] = "end": End Property
    Public Property Get [Select]: [Select] = "select": End Property
End Class
