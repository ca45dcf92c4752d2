' When objects end.
Class Life
    Public Name
    Private Sub Class_Initialize: Echo "begin": End Sub
    Private Sub Class_Terminate: Echo "end", Name: End Sub
End Class
Function Born(n): Set Born = New Life: Born.Name = n: End Function

Set a = Born("a"): Set a = Nothing: Echo "after a"   ' expect: begin
                                            ' expect: end a
                                            ' expect: after a
Set a = Born("b"): Set c = a: Set a = Nothing: Echo "still": Set c = Nothing   ' expect: begin
                                            ' expect: still
                                            ' expect: end b
Set a = Born("old"): Set a = Born("new")    ' expect: begin
                                            ' expect: begin
                                            ' expect: end old
a = 5                                       ' expect: end new
Sub Local
    Dim x: Set x = Born("local")
    Echo "in"
End Sub
Local: Echo "out"                           ' expect: begin
                                            ' expect: in
                                            ' expect: end local
                                            ' expect: out
Echo Born("temporary").Name: Echo "next"    ' expect: begin
                                            ' expect: end temporary
                                            ' expect: temporary
                                            ' expect: next
With Born("with")                           ' expect: begin
    Echo .Name                              ' expect: with
End With                                    ' expect: end with
Echo "behind With"                          ' expect: behind With
If Born("condition").Name = "condition" Then Echo "body"   ' expect: begin
                                            ' expect: end condition
                                            ' expect: body
Born "discarded": Echo "next"               ' expect: begin
                                            ' expect: end discarded
                                            ' expect: next
list = Array(Born("element")): list = Empty: Echo "gone"   ' expect: begin
                                            ' expect: end element
                                            ' expect: gone
Function Early
    Dim e: Set e = Born("early")
    Exit Function
End Function
Early: Echo "left"                          ' expect: begin
                                            ' expect: end early
                                            ' expect: left
On Error Resume Next
Sub Fails
    Dim f: Set f = Born("failed")
    x = 1 / 0
    Echo "never"
End Sub
Fails: Echo "survived", Err.Number          ' expect: begin
                                            ' expect: end failed
                                            ' expect: survived 11
On Error Goto 0
For Each item In Array(Born("each")): Echo item.Name: Next   ' expect: begin
                                            ' expect: each
Set item = Nothing                          ' expect: end each
Echo "done"                                 ' expect: done

' An object may be kept alive by its own end.
Class Phoenix
    Public Name
    Private Sub Class_Terminate: Set kept = Me: Echo "terminate": End Sub
End Class
Dim kept
Set p = New Phoenix: p.Name = "phoenix": Set p = Nothing   ' expect: terminate
Echo kept.Name                              ' expect: phoenix
Set kept = Nothing: Echo "quiet"            ' expect: quiet

' Errors at the end of an object are nobody's.
Class Faulty
    Private Sub Class_Terminate: x = 1 / 0: Echo "never": End Sub
End Class
Set q = New Faulty: Set q = Nothing: Echo "fine"   ' expect: fine

' A list of many objects ends without depth.
Class Node
    Public NextNode
    Private Sub Class_Terminate: ended = ended + 1: End Sub
End Class
Dim ended, head, node1, i
ended = 0: Set head = Nothing
For i = 1 To 20000
    Set node1 = New Node
    Set node1.NextNode = head
    Set head = node1
Next
Set node1 = Nothing
Set head = Nothing
Echo ended                                  ' expect: 20000
