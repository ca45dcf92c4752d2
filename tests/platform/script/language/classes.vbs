' Classes: fields, methods, properties, default members.
Class Counter
    Private mCount
    Public Name, Items(2)
    Private Sub Class_Initialize
        mCount = 0
        Name = "unnamed"
    End Sub
    Public Sub Add(n)
        mCount = mCount + n
    End Sub
    Public Property Get Count
        Count = mCount
    End Property
    Public Property Let Count(value)
        If value < 0 Then Err.Raise 5
        mCount = value
    End Property
    Public Function Twice
        Twice = Me.Count * 2
    End Function
    Public Function Chain
        Add 1
        Set Chain = Me
    End Function
    Private Sub Hidden: End Sub
    Sub Plain: Echo "plain", mCount: End Sub
    Public Function SameClass(other): SameClass = other.Count = Count: End Function
End Class
Set c = New Counter
Echo c.Count, c.Name, TypeName(c)           ' expect: 0 unnamed Counter
c.Add 5: c.Name = "five": Echo c.Count, c.Name   ' expect: 5 five
c.Count = 7: Echo c.Twice                   ' expect: 14
Echo c.Chain.Chain.Count                    ' expect: 9
c.Items(1) = "item": Echo c.Items(1), UBound(c.Items)   ' expect: item 2
c.Plain                                     ' expect: plain 9
Set other = New Counter: Echo other.Count, c.SameClass(other)   ' expect: 0 False
Echo (New Counter).Name                     ' expect: unnamed
On Error Resume Next
c.Hidden: Echo Err.Number                   ' expect: 438
Err.Clear: x = c.mCount: Echo Err.Number     ' expect: 438
Err.Clear: x = c.Missing: Echo Err.Number    ' expect: 438
Err.Clear: c.Count = -1: Echo Err.Number     ' expect: 5
Err.Clear: Set c.Count = c: Echo Err.Number  ' expect: 438
Err.Clear: x = c: Echo Err.Number            ' expect: 438
Err.Clear: x = c(1): Echo Err.Number         ' expect: 438
Err.Clear: Set x = New Unknown: Echo Err.Number   ' expect: 506
Err.Clear: c.Add: Echo Err.Number            ' expect: 450
On Error Goto 0

' Properties with indexes; Let and Set apart.
Class Table
    Private mValues, mObject
    Private Sub Class_Initialize: Set mValues = CreateObject("Scripting.Dictionary"): End Sub
    Public Default Property Get Item(row, column): Item = mValues(row & "," & column): End Property
    Public Property Let Item(row, column, value): mValues(row & "," & column) = value: End Property
    Public Property Get Content: Set Content = mObject: End Property
    Public Property Set Content(o): Set mObject = o: End Property
    Public Property Let Content(v): mObject = "let " & v: End Property
    Public Property Get Text: Text = mObject: End Property
End Class
Set t = New Table
t.Item(1, 2) = "a": Echo t.Item(1, 2)       ' expect: a
t(3, 4) = "b": Echo t(3, 4), t.Item(3, 4)   ' expect: b b
Set t.Content = t: Echo t.Content Is t      ' expect: True
t.Content = 5: Echo t.Text                  ' expect: let 5

' Default members.
Class Boxed
    Public Content
    Public Default Property Get Value: Value = Content: End Property
    Public Property Let Value(v): Content = v: End Property
End Class
Set b = New Boxed
b.Value = 20: Echo b + 1, b & "x", b * 2, b = 20, -b   ' expect: 21 20x 40 True -20
b = 30                                      ' assigns the variable, not the member
Echo TypeName(b)                            ' expect: Integer
Set b = New Boxed: b.Content = 4
v = b: Echo v, TypeName(v)                  ' expect: 4 Integer
If b Then Echo "true"                       ' expect: true
Select Case b
    Case 4: Echo "four"                     ' expect: four
End Select
Set b.Content = New Boxed: b.Content.Content = "inner": v = b: Echo v   ' expect: inner
Class Finder
    Public Default Function Find(key): Find = "found " & key: End Function
End Class
Set f = New Finder: Echo f("x"), f.Find("y")   ' expect: found x found y
Class Level
    Public Depth
    Public Default Property Get Down(i)
        Set Down = New Level
        Down.Depth = Depth & i
    End Property
End Class
Set l = New Level: Echo l(1)(2)(3).Depth    ' expect: 123

' Private members of one's own, called by name; names of members hide global ones.
global1 = "global"
Class Scope
    Private global1
    Public Sub Test
        global1 = "field"
        Echo global1, Secret(1), Prop
        Prop = 5
        Prop2(1) = 6
        Echo Prop
        Set Ref = Me
    End Sub
    Private Function Secret(x): Secret = "secret" & x: End Function
    Private mProp
    Private Property Get Prop: Prop = "p" & mProp: End Property
    Private Property Let Prop(v): mProp = v: End Property
    Private Property Let Prop2(i, v): Echo "prop2", i, v: End Property
    Private Property Set Ref(o): Echo "ref", o Is Me: End Property
End Class
Set sc = New Scope: sc.Test                 ' expect: field secret1 p
                                            ' expect: prop2 1 6
                                            ' expect: p5
                                            ' expect: ref True
Echo global1                                ' expect: global

' A recursive method and a method of the name of a global procedure.
Function Fact(n): Fact = "global": End Function
Class Math
    Public Function Fact(n)
        If n <= 1 Then Fact = 1 Else Fact = n * Fact(n - 1)
    End Function
End Class
Set m = New Math: Echo m.Fact(5), Fact(5)   ' expect: 120 global

' Fields that hold arrays and objects.
Class Bag
    Public List, Dict
    Private Sub Class_Initialize
        List = Array(1, 2, 3)
        Set Dict = CreateObject("Scripting.Dictionary")
    End Sub
End Class
Set bag1 = New Bag
bag1.List(1) = 9: Echo bag1.List(1)         ' expect: 9
bag1.Dict("k") = "v": Echo bag1.Dict("k"), bag1.Dict.Count   ' expect: v 1
