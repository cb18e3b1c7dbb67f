// Values for the debugger's test: gdb stops in done() and prints those of main().
#include <core/tlxCore.h>

namespace {

volatile int gDone = 0;

void done()
{
    gDone = 1;
}

} // namespace

int main()
{
    const CString32 axis(QStringLiteral("Axis \"1\""));
    const CString128 empty;
    const CVariant nothing;
    const CVariant u16(static_cast<unsigned short>(31));
    const CVariant i64(-5LL);
    const CVariant f64(2.5);
    const CVariant narrowDefault(NTypes::TYPE_U8);
    const CVariant text(CString64(QStringLiteral("Feed")));
    const CVariant character(QChar(u'A'));
    const CVariant bytes(QStringLiteral("abc"), NTypes::TYPE_CHARSTR64);
    const CVariant record(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}});
    const CTime period(1500, CTime::UNIT_MS);
    const CTime odd(5, CTime::UNIT_UNKNOWN);
    const CDateTime made(0x07E803050D07092DLL, Qt::UTC);
    const CDateTime never;
    const CIPv6Address address(QStringLiteral("fe80:0:0:0:0:0:0:1"));
    const CDeviceHardwareId board(QStringLiteral("A012_003_Board"));
    done();
    return 0;
}
