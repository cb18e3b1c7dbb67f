#ifndef TLXCORE_BASE_DEBUGFIELDS_H
#define TLXCORE_BASE_DEBUGFIELDS_H

#include <QDebug>

/**
 * @brief Writes a value class for QDebug as "CName(field value, field value)". A field at its default is left out, so
 * that unequal values show different texts and long records stay short.
 */
class DebugFields
{
public:
    DebugFields(QDebug& debug, const char* className)
        : mSaver(debug)
        , mDebug(debug)
    {
        mDebug.nospace() << className << '(';
    }

    ~DebugFields() { mDebug << ')'; }

    DebugFields(const DebugFields&) = delete;
    DebugFields& operator=(const DebugFields&) = delete;

    /// Writes the field unless it holds its default.
    template <typename T>
    DebugFields& field(const char* name, const T& value, const T& standard = T())
    {
        return value == standard ? *this : always(name, value);
    }

    /// Writes the field.
    template <typename T>
    DebugFields& always(const char* name, const T& value)
    {
        mDebug << (mFirst ? "" : ", ") << name << ' ' << value;
        mFirst = false;
        return *this;
    }

private:
    const QDebugStateSaver mSaver;
    QDebug& mDebug;
    bool mFirst = true;
};

#endif // TLXCORE_BASE_DEBUGFIELDS_H
