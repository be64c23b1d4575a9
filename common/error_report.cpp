#include "common/error_report.h"

namespace marloven {

void reportError(Prompt& prompt, int number) {
  prompt.message(Icon::Exclamation, errorTitle(number), errorMessage(number));
}

}  // namespace marloven
