' A script host: late binding, variables by reference, optional arguments left out and given.
Option Explicit
Dim listwright, icons, files, list, inserted, folder, number, icon, caret

' What stands for a number by its default property.
Class Two
  Public Default Property Get Value
    Value = 2
  End Property
End Class

' A selection in a host's text. The macro that is packed comes behind this script.
Class HostSelection
  Public Text
  Public Sub Insert(what)
    Text = Text & what
  End Sub
End Class

Set files = CreateObject("Scripting.FileSystemObject")
folder = files.GetAbsolutePathName(".")
Set listwright = CreateObject("kvrnstep.Listwright")
WScript.Echo listwright.PlugNameVersion

If WScript.Arguments.Count > 0 Then
  inserted = listwright.ShowListwrightDialog(list, 0, False, False, "", "", folder & "\steps", "Host", "", , , folder & "\steps.ini")
  WScript.Echo inserted & ": " & Replace(list, vbCrLf, "|")
  list = "replaced"
  inserted = listwright.ShowListwrightDialog(list, New Two, False, False, "", "", folder & "\steps", "Host", "", , , folder & "\other.ini", "Arial", 10, 2)
  WScript.Echo inserted & ": " & Replace(list, vbCrLf, "|")
  Set caret = New HostSelection
  InsertStepListAt caret
  WScript.Echo Replace(caret.Text, vbCrLf, "|")
End If

Set icons = CreateObject("kvrnstep.cIcon")
For number = 101 To 104
  icon = icons.RequestProgramIcon(number)
  WScript.Echo number & ": " & files.GetFileName(icon)
  If icon <> "" Then files.CopyFile icon, folder & "\icon-" & number & ".ico"
Next
