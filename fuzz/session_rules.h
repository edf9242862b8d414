#pragma once

#include <string_view>

#include "dialogs/frm_listwright.h"
#include "forms/stage.h"

/// What must hold of the windows whenever they wait for their user. Each function reads the
/// topmost window, which must be the one that it is named after.
namespace kvrnstep::fuzz {

void checkMainDialog(forms::Stage& stage, const dialogs::frmListwright& dialog);
/// … and besides after something was typed into a numeric box, or its text deleted.
void checkAfterTyping(forms::Stage& stage, std::string_view box);
void checkStorageEditor(forms::Stage& stage);
void checkAffixEditor(forms::Stage& stage);

}  // namespace kvrnstep::fuzz
