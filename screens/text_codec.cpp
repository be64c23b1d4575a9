#include "screens/text_codec.h"

#include <array>

namespace marloven::screens {

namespace {

// 0x80..0x9F; 0 marks the five unassigned codes, kept as the C1 control of the
// same number so that no byte is lost on the way back.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

}  // namespace

QString fromBytes(std::string_view bytes) {
  QString out;
  out.reserve(static_cast<qsizetype>(bytes.size()));
  for (char ch : bytes) {
    const auto b = static_cast<unsigned char>(ch);
    const char16_t mapped = (b >= 0x80 && b < 0xA0) ? kHigh[b - 0x80] : 0;
    out.append(QChar(mapped != 0 ? mapped : static_cast<char16_t>(b)));
  }
  return out;
}

std::string toBytes(const QString& text) {
  std::string out;
  out.reserve(static_cast<std::size_t>(text.size()));
  for (QChar qc : text) {
    const char16_t c = qc.unicode();
    if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
      out += static_cast<char>(c);
      continue;
    }
    char byte = '?';
    for (std::size_t i = 0; i < kHigh.size(); ++i) {
      const char16_t own = kHigh[i] != 0 ? kHigh[i] : static_cast<char16_t>(0x80 + i);
      if (own == c) byte = static_cast<char>(0x80 + i);
    }
    out += byte;
  }
  return out;
}

}  // namespace marloven::screens
