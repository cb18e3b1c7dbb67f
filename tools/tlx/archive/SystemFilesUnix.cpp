#include <tools/tlx/archive/SystemFiles.h>

#include <QFile>

namespace NSystemFiles {

QString nameRefusal(const QString&)
{
    return QString();
}

QString makeLink(const QString& target, const QString& path)
{
    QFile file(target);
    return file.link(path) ? QString()
                           : QStringLiteral("the system cannot make this link: ") + file.errorString();
}

} // namespace NSystemFiles
