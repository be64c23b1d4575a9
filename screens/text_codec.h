// Bytes of the program's files are Windows-1252 text; widgets want QString.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace marloven::screens {

QString fromBytes(std::string_view bytes);
// Characters that Windows-1252 cannot hold become "?".
std::string toBytes(const QString& text);

}  // namespace marloven::screens
