#include "Progress.h"

#include "Output.h"
#include "Terminal.h"

CProgress::CProgress(const QString& what, qint64 total)
    : mWhat(what)
    , mTotal(total)
    , mIsShown(NTerminal::isErrorTerminal())
{}

CProgress::~CProgress()
{
    if (mDrawn > 0) {
        draw(QString());
        printText(stderr, QStringLiteral("\r"));
    }
}

void CProgress::show(qint64 done)
{
    constexpr qint64 PAUSE_MS = 100;
    if (!mIsShown || (mSinceDrawn.isValid() && mSinceDrawn.elapsed() < PAUSE_MS)) {
        return;
    }
    mSinceDrawn.start();
    QString line = QStringLiteral("%1: %2").arg(mWhat).arg(done);
    if (mTotal > 0) {
        const int percent = static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(mTotal));
        line += QStringLiteral(" of %1 (%2 %)").arg(mTotal).arg(percent);
    }
    draw(line);
}

void CProgress::draw(const QString& line)
{
    printText(stderr, QLatin1Char('\r') + line.leftJustified(mDrawn));
    mDrawn = line.size();
}
