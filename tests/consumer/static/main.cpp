// A tool that links the static library: the built-in settings answer, and static objects find the constants ready.
#include <core/tlxCore.h>

#include <QCoreApplication>

#include <cstdio>

static const QString gEarly = CPath::CPATH_COMPANY + CUnitParser::mcUNIT_TO_STR_MAP.value(NUnits::UNIT_U16)
                              + QLatin1Char(' ') + CFTPath::INVALID_STR;

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    std::printf("early %s\n", qPrintable(gEarly));
    std::printf("settings %s\n", qPrintable(CCompanyStrings::getCompanyLongName()));
    std::printf("product %s\n", qPrintable(CCompanyStrings::getProductName(90)));
    return 0;
}
