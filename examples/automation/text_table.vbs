' Prints a table of a descriptor's texts in two languages, and marks those that fall back.
'
'   ovmodel run text_table.vbs DB FIRST LAST [LANGUAGE [LANGUAGE]]

Option Explicit

Dim device, first, last, languages(1), texts(1), i, k
Set device = CreateObject("OV_Model.CBase_Module")
device.SetSourcePath WScript.Arguments(0)
first = CLng(WScript.Arguments(1))
last = CLng(WScript.Arguments(2))
languages(0) = 7
languages(1) = 9
For k = 3 To WScript.Arguments.Count - 1
    languages(k - 3) = CLng(WScript.Arguments(k))
Next

' The table of texts is a table of the database like any other.
Function TextIn(rows, language)
    Dim text
    text = Null
    On Error Resume Next
    text = rows.Fields("Text_" & language).Value
    If Err.Number <> 0 Then text = Null
    On Error GoTo 0
    TextIn = text
End Function

device.GetDBVersion                              ' opens the database
Dim rows
Set rows = device.mDB.OpenRecordset("SELECT * FROM Texts WHERE TEXT_IDX BETWEEN " & first & " AND " & last & _
                                    " ORDER BY TEXT_IDX")
Do Until rows.EOF
    For k = 0 To 1
        texts(k) = TextIn(rows, languages(k))
        If IsNull(texts(k)) Then texts(k) = "(as in language 7)"
    Next
    WScript.Echo Right(Space(6) & rows.Fields("TEXT_IDX").Value, 6) & "  " & Left(texts(0) & Space(40), 40) & "  " & texts(1)
    rows.MoveNext
Loop
rows.Close
