#include <tools/tlx/terminal/Terminal.h>

#include <QByteArray>
#include <QtGlobal>

namespace NTerminal {

int outputWidth()
{
    constexpr int USUAL_WIDTH = 80;
    if (!isTerminal(stdout)) {
        return 0;
    }
    const int width = reportedWidth();
    return width > 0 ? width : USUAL_WIDTH;
}

bool wantsColour()
{
    return isTerminal(stdout) && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

} // namespace NTerminal
