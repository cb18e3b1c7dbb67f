#include <tools/tlx/terminal/Progress.h>

#include <tools/tlx/terminal/Interrupt.h>
#include <tools/tlx/terminal/Output.h>
#include <tools/tlx/terminal/Terminal.h>

#include <algorithm>

Progress::Progress(const QString& what, qint64 total)
    : mWhat(what)
    , mTotal(total)
    , mIsShown(NTerminal::isTerminal(stderr))
{}

Progress::~Progress()
{
    if (mDrawn > 0) {
        draw(QString());
        printText(stderr, QStringLiteral("\r"));
        NInterrupt::blankLine(0);
    }
}

void Progress::show(qint64 done)
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

void Progress::draw(const QString& line)
{
    NInterrupt::blankLine(std::max(mDrawn, int(line.size()))); // before it is there: Ctrl-C comes at any time
    printText(stderr, QLatin1Char('\r') + line.leftJustified(mDrawn));
    mDrawn = line.size();
}
