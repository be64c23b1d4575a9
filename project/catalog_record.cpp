#include "project/catalog_record.h"

#include "common/masks.h"
#include "common/number_text.h"

namespace marloven {

namespace {

constexpr std::string_view kFieldMask = "@@@@@@";

}  // namespace

std::string catalogNumber(std::string_view text, Factor f, int digits, std::string_view mask) {
  return applyMask(bare(roundTo(f.apply(leadingNumber(text)), digits)), mask);
}

CatalogType readCatalogRecord(LineReader& in, UnitSystem units) {
  CatalogType t;
  for (std::string& f : t.fields) f = in.next();
  if (units == UnitSystem::SI) {
    t.fields[kCatalogUFactor] = catalogNumber(t.fields[kCatalogUFactor], times(kUFactorToSI), 3, kFieldMask);
    t.fields[kCatalogCost] = catalogNumber(t.fields[kCatalogCost], over(kSquareMetresPerFoot2), 2, kFieldMask);
  }
  return t;
}

void appendCatalogRecord(std::string& out, const CatalogType& type, UnitSystem units) {
  for (int i = 0; i < kCatalogLines; ++i) {
    const std::string& text = type.fields[i];
    if (units == UnitSystem::SI && i == kCatalogUFactor)
      out += catalogNumber(text, over(kUFactorToSI), 3, kFieldMask);
    else if (units == UnitSystem::SI && i == kCatalogCost)
      out += catalogNumber(text, times(kSquareMetresPerFoot2), 2, kFieldMask);
    else
      out += text;
    out += "\r\n";
  }
}

}  // namespace marloven
