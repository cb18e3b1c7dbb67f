// Numbers in an editor: shown under a format descriptor, and read back from what the user typed.
#include <core/tlxCore.h>

#include <QDebug>

int main()
{
    //! [show]
    // Two digits after the point, six characters, no shift, fixed point.
    const CTlString::SFormatValue fixed(2, 6, 0, CTlString::NOTATION_FIXED_POINT);
    const QString shown = CTlString::toStr(1234, fixed); // " 12.34"
    //! [show]

    //! [read]
    bool ok = false;
    const int read = CTlString::toI32(shown.trimmed(), fixed, 1.0, &ok); // 1234: the point is only shown
    //! [read]

    //! [hex]
    const CTlString::SFormatValue hex(0, 8, 0, CTlString::NOTATION_HEX);
    const QString digits = CTlString::toStr(0xCAFE, hex); // "0000.cafe"
    const unsigned int bits = CTlString::toU32(digits, hex, 1.0, &ok);
    //! [hex]

    //! [range]
    // Parsing checks the range: 256 does not fit 8 bits, so the result is the fallback.
    const unsigned char level = CStr::strToU8(static_cast<unsigned char>(7), QStringLiteral("256"), 10);
    //! [range]

    qInfo() << shown << read << digits << bits << level;
    return shown == QLatin1String(" 12.34") && read == 1234 && digits == QLatin1String("0000.cafe")
                   && bits == 0xCAFE && ok && level == 7
               ? 0
               : 1;
}
