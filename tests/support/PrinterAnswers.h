#pragma once

#include <QByteArray>

// A status answer, as a printer sends it after "~HS", from a printer out of paper.
inline const QByteArray kPaperOutAnswer = "\x02"
                                          "030,1,0,1218,000,0,0,0,000,0,0,0\x03\r\n\x02"
                                          "000,0,0,0,1,2,6,0,00000000,1,000\x03\r\n\x02"
                                          "1234,0\x03\r\n";
