// What Qt programmers try first with CVariant, CDateTime and CDir, and what to write instead.
#include <core/tlxCore.h>

#include <QDebug>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

// Ends the program when an expectation of this page does not hold.
void expect(bool holds, const char* what)
{
    if (!holds) {
        qCritical() << "does not hold:" << what;
        std::exit(1);
    }
}

void variants()
{
    //! [type]
    CVariant speed(NTypes::TYPE_U16); // a U16 holding 0
    speed.fromStr(QStringLiteral("300"));
    speed = 5; // an I32 now: assignment takes the type of its argument
    speed = CVariant(QStringLiteral("5"), NTypes::TYPE_U16); // a U16 again
    //! [type]
    expect(speed.type() == NTypes::TYPE_U16 && speed.toU16() == 5, "type");

    //! [narrow]
    bool ok = false;
    const CVariant wide(300);
    const unsigned char cut = wide.toU8(&ok); // 44, and ok is true: readers cut
    unsigned char checked = 0;
    const bool fits = CStr::strToU8(wide.toStr(), checked, 10); // false: CStr checks the range
    //! [narrow]
    expect(cut == 44 && ok && !fits, "narrow");

    //! [text]
    const CVariant name(CString32(QStringLiteral("Axis 1"))); // a STRING32
    const QString shown = name.toStr();
    const CVariant bytes(QStringLiteral("Axis 1"), NTypes::TYPE_CHARSTR64); // 8-bit text
    //! [text]
    expect(shown == QLatin1String("Axis 1") && bytes.type() == NTypes::TYPE_CHARSTR64, "text");

    //! [equal]
    const bool sameNumber = CVariant(1).toI64() == CVariant(1U).toI64(); // true
    const bool sameVariant = CVariant(1) == CVariant(1U);                // false: an I32 is not a U32
    //! [equal]
    expect(sameNumber && !sameVariant, "equal");
}

void dateTimes()
{
    //! [date]
    const CDateTime made(QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9), Qt::UTC));
    const quint64 packed = made.toI64(Qt::UTC);                     // what devices exchange
    const CDateTime again(static_cast<long long>(packed), Qt::UTC); // from the packed number
    const CVariant value(QStringLiteral("2024-03-05T13:07:09"), NTypes::TYPE_DATETIME);
    const CDateTime shown(value.toI64(), Qt::UTC);     // a DATETIME variant, shown
    const QString text = shown.toIsoDateTime(Qt::UTC); // "2024-03-05T13:07:09Z"
    //! [date]
    expect(again == made && shown == made && text == QLatin1String("2024-03-05T13:07:09Z"), "date");
}

void directories()
{
    const CTemporaryDir folder;
    //! [files]
    const QString source = CDir::addFileNameToPath(folder.path(), QStringLiteral("a.txt"));
    const QString target = CDir::addFileNameToPath(folder.path(), QStringLiteral("made/b.txt"));
    QFile file(source);
    expect(file.open(QIODevice::WriteOnly), "the file can be written");
    file.close();
    const bool copied = CDir::copyFile(source, target);    // makes the directory "made"
    const bool refused = !CDir::copyFile(source, target);  // never overwrites
    const bool replaced = CDir::copyFileF(source, target); // replaces
    //! [files]
    expect(copied && refused && replaced, "files");
}

} // namespace

int main()
{
    variants();
    dateTimes();
    directories();
    return 0;
}
