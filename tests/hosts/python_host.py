"""A host in Python: python_host.py LIBRARY FOLDER. Shows the dialog and prints what comes back."""

import ctypes
import sys
from ctypes import POINTER, byref, c_char_p, c_int32, c_uint32, c_void_p


class Dialog(ctypes.Structure):
    _fields_ = [
        ("size", c_uint32), ("iBuildStep", c_int32), ("BuMenuMode", c_int32),
        ("bolIsSoundAvailable", c_int32), ("swavAlertQ", c_char_p), ("swavFinishQ", c_char_p),
        ("sPthStepFolder", c_char_p), ("SEC_APP_NAME", c_char_p), ("SEC_APP_LWDR", c_char_p),
        ("l_EditorBColor", c_int32), ("l_EditorFColor", c_int32), ("s_IniPathAndName", c_char_p),
        ("s_EditorFont", c_char_p), ("i_EditorSize", c_int32), ("bytSpcCount", c_int32),
    ]


library = ctypes.CDLL(sys.argv[1])
library.kvrnstep_plug_name_version.restype = c_void_p
library.kvrnstep_request_program_icon.restype = c_void_p
library.kvrnstep_show_dialog.argtypes = [POINTER(Dialog), POINTER(c_void_p)]
library.kvrnstep_free.argtypes = [c_void_p]


def taken(text):
    value = ctypes.string_at(text).decode() if text else ""
    library.kvrnstep_free(text)
    return value


print(repr(taken(library.kvrnstep_plug_name_version())))
print(taken(library.kvrnstep_request_program_icon(101)).rpartition("/")[2])
dialog, text = Dialog(), c_void_p()
library.kvrnstep_dialog_init(byref(dialog), ctypes.sizeof(dialog))
dialog.iBuildStep = 2
dialog.sPthStepFolder = sys.argv[2].encode()
dialog.s_IniPathAndName = (sys.argv[2] + "/steps.ini").encode()
dialog.SEC_APP_NAME = b"Listwright"
print(library.kvrnstep_show_dialog(byref(dialog), byref(text)), repr(taken(text.value)))
