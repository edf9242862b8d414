#pragma once

#include <string_view>

#include "dialogs/frm_listwright.h"
#include "driving/script_stage.h"

/// What must hold of the windows whenever they wait for their user. Each function reads the
/// topmost window, which must be the one that it is named after.
namespace kvrnstep::fuzz {

void checkMainDialog(driving::Stage& stage, const dialogs::frmListwright& dialog);
/// … and besides after something was typed into a numeric box, or its text deleted.
void checkAfterTyping(driving::Stage& stage, std::string_view box);
void checkStorageEditor(driving::Stage& stage);
void checkAffixEditor(driving::Stage& stage);

}  // namespace kvrnstep::fuzz
