' A script host: late binding, variables by reference, optional arguments left out and given.
Option Explicit
Dim listwright, icons, list, inserted, folder
folder = CreateObject("Scripting.FileSystemObject").GetAbsolutePathName(".")
Set listwright = CreateObject("kvrnstep.Listwright")
WScript.Echo listwright.PlugNameVersion

If WScript.Arguments.Count > 0 Then
  inserted = listwright.ShowListwrightDialog(list, 0, False, False, "", "", folder & "\steps", "Host", "", , , folder & "\steps.ini")
  WScript.Echo inserted & ": " & Replace(list, vbCrLf, "|")
  list = "replaced"
  inserted = listwright.ShowListwrightDialog(list, "2", False, False, "", "", folder & "\steps", "Host", "", , , folder & "\other.ini", "Arial", 10, 2)
  WScript.Echo inserted & ": " & Replace(list, vbCrLf, "|")
End If

Set icons = CreateObject("kvrnstep.cIcon")
WScript.Echo Mid(icons.RequestProgramIcon(102), InStrRev(icons.RequestProgramIcon(102), "\"))
WScript.Echo "no icon: " & icons.RequestProgramIcon(104)
