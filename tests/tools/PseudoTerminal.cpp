#include <tests/tools/PseudoTerminal.h>

#include <QElapsedTimer>
#include <QFile>
#include <QVector>

#include <array>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

PseudoTerminal::~PseudoTerminal()
{
    if (mProcess > 0 && !hasEnded()) {
        kill(mProcess, SIGKILL);
        waitpid(mProcess, &mStatus, 0);
    }
    if (mMaster >= 0) {
        close(mMaster);
    }
}

void PseudoTerminal::start(const QString& program, const QStringList& arguments, const QString& directory)
{
    QList<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments) {
        words << argument.toLocal8Bit();
    }
    QVector<char*> pointers;
    for (QByteArray& word : words) {
        pointers << word.data();
    }
    pointers << nullptr;
    const QByteArray place = QFile::encodeName(directory);
    winsize size{};
    size.ws_col = static_cast<unsigned short>(mColumns);
    size.ws_row = 50;
    mProcess = forkpty(&mMaster, nullptr, nullptr, &size);
    if (mProcess == 0) {
        if (chdir(place.constData()) == 0) {
            execv(pointers.first(), pointers.data());
        }
        _exit(127);
    }
}

QByteArray PseudoTerminal::read()
{
    pollfd waiting{mMaster, POLLIN, 0};
    if (poll(&waiting, 1, 100) <= 0) {
        return QByteArray();
    }
    std::array<char, 65536> bytes;
    const auto size = ::read(mMaster, bytes.data(), bytes.size());
    return QByteArray(bytes.data(), static_cast<int>(size < 0 ? 0 : size));
}

QByteArray PseudoTerminal::readToEnd()
{
    QByteArray shown;
    QElapsedTimer timer;
    timer.start();
    bool isLast = false;
    while (!isLast && timer.elapsed() < 60000) {
        isLast = hasEnded();
        for (QByteArray bytes = read(); !bytes.isEmpty(); bytes = read()) {
            shown += bytes;
        }
    }
    return shown;
}

void PseudoTerminal::type(char key)
{
    if (write(mMaster, &key, 1) != 1) {
        qFatal("the terminal takes no key");
    }
}

int PseudoTerminal::exitCode() const
{
    return mHasEnded && WIFEXITED(mStatus) ? WEXITSTATUS(mStatus) : -1;
}

int PseudoTerminal::signalOfEnd() const
{
    return mHasEnded && WIFSIGNALED(mStatus) ? WTERMSIG(mStatus) : 0;
}

bool PseudoTerminal::hasEnded()
{
    mHasEnded = mHasEnded || waitpid(mProcess, &mStatus, WNOHANG) == mProcess;
    return mHasEnded;
}
