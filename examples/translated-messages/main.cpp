// The library's messages in the user's language.
#include <core/tlxCore.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QTextStream>
#include <QTranslator>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);

    //! [load]
    auto* const translator = new QTranslator(&application);
    if (translator->load(QLocale(), QStringLiteral("tlxCore"), QStringLiteral("_"),
                         QStringLiteral(TOOL_CATALOGUES))) {
        QCoreApplication::installTranslator(translator);
    }
    //! [load]

    QDataStream empty(QByteArray{});
    CVariant speed;
    empty >> speed;
    QString message;
    const bool read = CStr::inStreamStatus(empty, QStringLiteral("speed"), message);
    QTextStream(stdout) << message << '\n';
    return read ? 1 : 0;
}
