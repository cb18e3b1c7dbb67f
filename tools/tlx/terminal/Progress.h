#ifndef TLX_PROGRESS_H
#define TLX_PROGRESS_H

#include <QElapsedTimer>
#include <QString>

/**
 * @brief One line on standard error that shows how far long work has come: "copying: 12 of 340 (3 %)".
 *
 * It is drawn again over itself, at most ten times a second, and is gone when the object is. Nothing is written when
 * standard error is no terminal.
 */
class Progress
{
public:
    /// `total` is the amount of work in any unit; 0 when it is not known.
    Progress(const QString& what, qint64 total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Shows that `done` of the total is done.
    void show(qint64 done);

private:
    void draw(const QString& line);

    QString mWhat;
    qint64 mTotal;
    int mDrawn = 0; // columns of the line that is on the terminal
    bool mIsShown;
    QElapsedTimer mSinceDrawn;
};

#endif // TLX_PROGRESS_H
