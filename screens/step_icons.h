// The artwork of the main screen: one icon per input step, and the sample
// projects and previous output buttons, drawn in code so they scale.
#pragma once

#include <QIcon>

#include "shell/main_menu.h"

namespace marloven::screens {

// Steps 1..kMainMenuSteps; a null icon outside.
QIcon stepIcon(int step);
QIcon sampleProjectsIcon();
QIcon previousOutputIcon();

}  // namespace marloven::screens
