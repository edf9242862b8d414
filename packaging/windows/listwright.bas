Attribute VB_Name = "Listwright"
' For programs that speak Visual Basic. Import this file as a module, and give InsertStepList a key.
Option Explicit

' Shows the dialog and puts the list at the caret. Where the program's selection goes by another
' name than Selection, write that name here.
Public Sub InsertStepList()
    InsertStepListAt Selection
End Sub

' The same for any object that is a selection in a text.
Public Sub InsertStepListAt(caret)
    Dim folder, list
    folder = CreateObject("WScript.Shell").ExpandEnvironmentStrings("%APPDATA%") & "\Listwright"
    If CreateObject("kvrnstep.Listwright").ShowListwrightDialog(list, 0, False, False, "", "", _
        folder, "Listwright", "", , , folder & "\steps.ini") Then PutAt caret, list
End Sub

' Selections have one of these members.
Private Sub PutAt(caret, list)
    On Error Resume Next
    caret.TypeText list
    If Err.Number = 0 Then Exit Sub
    Err.Clear
    caret.Insert list
    If Err.Number = 0 Then Exit Sub
    On Error GoTo 0
    caret.Text = list
End Sub
