#include "Commands.h"

#include "Command.h"

const QList<SCommand>& commands()
{
    static const QList<SCommand> table{
        {"value", "TYPE [TEXT]", "Parses a text as a value type and shows the value in all its forms.",
         "tlx value U16 0x1F", nullptr, runValue},
    };
    return table;
}
