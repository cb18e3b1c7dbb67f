#ifndef TLX_INTERRUPT_H
#define TLX_INTERRUPT_H

#include <QString>

/// What is tidied up when the user ends the program with Ctrl-C: the unfinished file and the progress line.
namespace NInterrupt {

/// While it lives, Ctrl-C removes this file. One object at a time.
class RemoveFile
{
public:
    explicit RemoveFile(const QString& path);
    ~RemoveFile();
    RemoveFile(const RemoveFile&) = delete;
    RemoveFile& operator=(const RemoveFile&) = delete;
};

/// While the width is not 0, Ctrl-C blanks a line of so many columns on standard error.
void blankLine(int columns);

} // namespace NInterrupt

#endif // TLX_INTERRUPT_H
