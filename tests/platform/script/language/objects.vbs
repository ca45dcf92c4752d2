' Objects of the host.
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d("b") = 2
d.Item("c") = 3
Echo d.Count, d("a"), d.Item("b"), d("c"), d.Exists("c"), d.Exists("z")   ' expect: 3 1 2 3 True False
Set d("self") = d: Echo d("self")("a"), d("self")("self")("b")   ' expect: 1 2
keys = d.Keys: Echo keys(0), d.Keys()(1), d.Items()(0)   ' expect: a b 1
d.Key("a") = "A": Echo d.Exists("A")        ' expect: True
d.Remove "A": d.Remove "self": Echo d.Count ' expect: 2
' Optional, left-out and trailing arguments.
Echo Probe.Count(), Probe.Count(1), Probe.Count(1, 2, 3)   ' expect: 0 1 3
Echo Probe.Describe(1), Probe.Describe(1, 2), Probe.Describe(1, , 3)   ' expect: 1-none-none 1-2-none 1-none-3
Echo Probe.Name                             ' expect: probe
Probe.Name = "renamed": Echo Probe.Name, probe.NAME   ' expect: renamed renamed
Probe.Cell(2) = "two": Echo Probe.Cell(2), Probe(2)   ' expect: two two
Probe(3) = "three": Echo Probe.Cell(3)      ' expect: three
With Probe
    .Cell(4) = .Name: Echo .Cell(4)         ' expect: renamed
End With
On Error Resume Next
Probe.Describe: Echo Err.Number             ' expect: 450
Err.Clear: Probe.Name "x", "y": Echo Err.Number   ' expect: 450
Err.Clear: Probe.Missing = 1: Echo Err.Number   ' expect: 438
Err.Clear: x = d.Count.Nothing1: Echo Err.Number   ' expect: 424
' An object that a call site has not met before.
Class Like
    Public Count
End Class
Set l = New Like: l.Count = 77
For Each o In Array(d, l, d, l): Echo o.Count: Next   ' expect: 2
                                            ' expect: 77
                                            ' expect: 2
                                            ' expect: 77
