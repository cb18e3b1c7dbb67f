#ifndef TLXTEST_MESSAGELOG_H
#define TLXTEST_MESSAGELOG_H

#include <QStringList>

/**
 * @brief Records every message of Qt's log while it lives, so that a test can say what was logged, and that nothing
 * else was.
 *
 * Messages taken by QTest::ignoreMessage do not pass here any more: use one or the other for a message.
 * Only one object may live at a time.
 */
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    /// The texts logged so far, in order, each behind its severity: "warning: text".
    QStringList messages() const;

    /// The texts logged so far; forgets them.
    QStringList take();
};

#endif // TLXTEST_MESSAGELOG_H
