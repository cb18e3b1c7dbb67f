#ifndef TLXCORE_QTCALENDAR_H
#define TLXCORE_QTCALENDAR_H

#include <QCalendar>

/**
 * Qt makes its Gregorian calendar where a date is first taken apart, shown or read, and guards nothing: a second thread
 * that begins then finds it half made (no date, or a pure virtual call). Called before such uses, this makes it once.
 */
inline void makeQtCalendar()
{
    static const QCalendar calendar;
    Q_UNUSED(calendar)
}

#endif // TLXCORE_QTCALENDAR_H
