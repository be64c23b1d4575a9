// The one error report: a message under "Marloven Error # <n>".
#pragma once

#include "common/file_error.h"
#include "common/prompt.h"

namespace marloven {

void reportError(Prompt& prompt, int number);
inline void reportError(Prompt& prompt, const FileError& e) { reportError(prompt, e.number()); }

}  // namespace marloven
