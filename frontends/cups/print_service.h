#pragma once

#include <cstddef>

/// Hands a text to the user's default printer as one job of plain text; returns when the scheduler
/// has it. Font, margins, orientation and copies are the queue's and the user's settings.
///
/// `text` is UTF-8 with CR LF line ends, `length` its size in bytes. False: no printer, no
/// scheduler, or one that does not take the job; nothing stays in the queue, nothing is shown.
extern "C" bool kvrnstepPrint(const char* text, std::size_t length);
