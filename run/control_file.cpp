#include "run/control_file.h"

#include "common/column_printer.h"
#include "common/number_text.h"

namespace marloven {

std::string controlFileText(const ControlFile& c) {
  ColumnPrinter out;
  out.text("Run type  : ").text(padded(c.runKind)).endLine();
  out.text("Wthr type : ").text(padded(c.weatherFormat));
  if (c.weatherFormat != 0) out.zone().number(1);
  out.endLine();
  out.text("1st day   : ").number(c.firstWeekday).endLine();
  out.text("Run begin : ").text(padded(c.beginDay)).endLine();
  out.text("Run end   : ").text(padded(c.endDay)).endLine();
  out.text("Hourly out: ").number(c.hourly ? 1 : 0).endLine();
  out.text("Skip month: ");
  for (int m = 0; m < 12; ++m)
    if (c.skip[m]) out.number(m + 1).text(" ");
  out.endLine();
  out.text("Comfort   : ").number(c.comfortLow).tab(23).number(c.comfortHigh).endLine();
  return out.take();
}

}  // namespace marloven
