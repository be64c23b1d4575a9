#include "project/project_model.h"

#include "common/number_text.h"

namespace marloven {

bool hasOutsideAirKind(const std::string& text) {
  const std::string kind = text.substr(0, 2);
  return kind == "CP" || kind == "CS" || kind == "PA";
}

OutsideAir splitOutsideAir(const std::string& text) {
  if (hasOutsideAirKind(text)) return {text.substr(0, 2), text.substr(2)};
  return {"CP", text};
}

bool anyStepDone(const Project& p) {
  for (int i = 1; i <= kInputSteps; ++i)
    if (p.flags.stepDone[i]) return true;
  return false;
}

float floorAreaPerPerson(const std::string& area, const std::string& people) {
  const double n = leadingNumber(people);
  if (n <= 0) return 1.0f;
  return static_cast<float>(static_cast<float>(leadingNumber(area)) / static_cast<float>(n));
}

}  // namespace marloven
