#include "Commands.h"

#include "Command.h"

const QList<SCommand>& commands()
{
    static const QList<SCommand> table{};
    return table;
}
