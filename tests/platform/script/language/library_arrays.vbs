' Arrays as arguments and results of functions.
Option Explicit
Dim a, b(2), c(), grid(2, 3), i, many

a = Array(3, 1, 2)
Echo LBound(a) & UBound(a) & UBound(b) & UBound(grid) & UBound(grid, 2)   ' expect: 02223
Echo IsArray(a) & IsArray(b) & IsArray(c) & IsArray(grid) & IsArray("a")   ' expect: TrueTrueTrueTrueFalse
Echo UBound(Array())                                       ' expect: -1
Echo TypeName(a) & " " & TypeName(c)                       ' expect: Variant() Variant()
Echo VarType(a)                                            ' expect: 8204
Echo Array(1, Array(2, 3))(1)(0)                           ' expect: 2
Echo Join(Array(1, "b", True, Empty, #2024-01-02#), "|")   ' expect: 1|b|True||1/2/2024

Sub Sort(list)
    Dim i, j, kept
    For i = LBound(list) + 1 To UBound(list)
        kept = list(i)
        j = i - 1
        Do While j >= LBound(list)
            If list(j) <= kept Then Exit Do
            list(j + 1) = list(j)
            j = j - 1
        Loop
        list(j + 1) = kept
    Next
End Sub
Sort a
Echo Join(a)                                               ' expect: 1 2 3
many = Split("pear apple fig banana")
Sort many
Echo Join(many, ",")                                       ' expect: apple,banana,fig,pear

Echo Copied(a) & Join(a)                                   ' expect: 9 2 31 2 3
Function Copied(ByVal list)
    list(0) = 9
    Copied = Join(list)
End Function

ReDim c(1)
c(0) = "x": c(1) = "y"
ReDim Preserve c(3)
Echo Join(c, "-")                                          ' expect: x-y--
Erase c
Echo UBound(Filter(Array("ab", "cd", "abc"), "AB", True, vbTextCompare))   ' expect: 1
Echo Join(Filter(Array("ab", "cd", "abc"), "ab", False))   ' expect: cd

' Primes by a sieve.
Function Primes(most)
    Dim sieve(), i, j, found
    ReDim sieve(most)
    For i = 2 To most
        If Not sieve(i) Then
            found = found & " " & i
            For j = i * i To most Step i
                sieve(j) = True
            Next
        End If
    Next
    Primes = LTrim(found)
End Function
Echo Primes(50)                                            ' expect: 2 3 5 7 11 13 17 19 23 29 31 37 41 43 47
Echo UBound(Split(Primes(2000))) + 1                       ' expect: 303
