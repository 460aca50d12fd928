#pragma once

#include "support/FileContent.h"

#include <QByteArray>

namespace pelorin::test {

inline const QByteArray kMarker = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
inline const QByteArray kMarkerLine = kMarker + "\r\n";
inline const QByteArray kZeroLine = "0000,00000000\r\n";

} // namespace pelorin::test
