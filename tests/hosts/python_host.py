"""A host in Python: python_host.py LIBRARY FOLDER. Shows the dialog and prints what comes back."""

import ctypes
import sys
from ctypes import byref, c_char_p, c_int32, c_uint32


class Dialog(ctypes.Structure):
    _fields_ = [
        ("size", c_uint32), ("iBuildStep", c_int32), ("BuMenuMode", c_int32),
        ("bolIsSoundAvailable", c_int32), ("swavAlertQ", c_char_p), ("swavFinishQ", c_char_p),
        ("sPthStepFolder", c_char_p), ("SEC_APP_NAME", c_char_p), ("SEC_APP_LWDR", c_char_p),
        ("l_EditorBColor", c_int32), ("l_EditorFColor", c_int32), ("s_IniPathAndName", c_char_p),
        ("s_EditorFont", c_char_p), ("i_EditorSize", c_int32), ("bytSpcCount", c_int32),
    ]


library = ctypes.CDLL(sys.argv[1])
library.kvrnstep_request_program_icon.restype = c_char_p
print(library.kvrnstep_request_program_icon(101).decode().rpartition("/")[2])
folder = sys.argv[2].encode()
dialog, text = Dialog(), c_char_p()
library.kvrnstep_dialog_init(byref(dialog), ctypes.sizeof(dialog))
dialog.iBuildStep, dialog.bytSpcCount = 2, 2
dialog.sPthStepFolder, dialog.s_IniPathAndName = folder, folder + b"/steps.ini"
print(library.kvrnstep_show_dialog(byref(dialog), byref(text)), text.value)
