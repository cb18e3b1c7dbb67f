// A tool that is built together with the library.
#include <core/tlxCore.h>

#include <cstdio>

int wholeNumber();

int main()
{
    CVariant value(NTypes::TYPE_U16);
    value.fromStr(QString::number(wholeNumber()));
    std::printf("%s with tlxCore %s, library %s\n", qPrintable(value.toStr()), TLXCORE_VERSION_STR,
                tlxCoreVersion());
    return 0;
}
