#ifndef TLXCORE_STATICOBJECTS_H
#define TLXCORE_STATICOBJECTS_H

#include <QString>

#include <utility>

/**
 * @file
 * Static objects that the static objects of a program may already use.
 *
 * Next to a shared library the order is given: the library is loaded and initialised first. In a program that links
 * the static library, the order between source files is the linker's; there, texts have to be constants that need no
 * code to come into being (TLX_CONSTINIT), and what cannot be such a constant is built ahead of everything that does
 * not ask for a place (TLX_INIT_EARLY).
 */

// The compiler refuses the definition when its initialiser would have to run.
#if defined(__clang__)
#define TLX_CONSTINIT [[clang::require_constant_initialization]]
#elif defined(__GNUC__) && __GNUC__ >= 10
#define TLX_CONSTINIT __constinit
#else
#define TLX_CONSTINIT
#endif

// Behind the name in the definition of an object. Objects of one source file keep their order.
#if defined(__GNUC__) && !defined(__APPLE__)
#define TLX_INIT_EARLY __attribute__((init_priority(1000)))
#else
#define TLX_INIT_EARLY
#endif
// MSVC knows one place a source file: every object of a file that includes this header is built early.
#if defined(_MSC_VER) && !defined(__clang__)
#pragma warning(disable : 4073)
#pragma init_seg(lib)
#endif

namespace NStatic {

/// Storage of a text of up to `Capacity` code units that needs neither code nor memory at run time. It is laid out as
/// QStringLiteral lays out its own (QStaticStringData, which cannot be named in a constant expression).
template <int Capacity>
struct Text
{
    QStringData header;
    qunicodechar units[Capacity + 1];
};

template <int Capacity, typename Character, int... Index>
constexpr Text<Capacity> textOf(const Character* text, int size, std::integer_sequence<int, Index...>)
{
    return {{{Q_REFCOUNT_INITIALIZE_STATIC, size, 0, 0, sizeof(QStringData)}},
            {(Index < size ? static_cast<qunicodechar>(text[Index]) : qunicodechar(0))..., qunicodechar(0)}};
}

/// The first `size` characters of a Latin-1 or UTF-16 text.
template <int Capacity, typename Character>
constexpr Text<Capacity> text(const Character* text, int size)
{
    return textOf<Capacity>(text, size, std::make_integer_sequence<int, Capacity>());
}

/// A literal.
template <int SizeAndZero>
constexpr Text<SizeAndZero - 1> text(const char (&literal)[SizeAndZero])
{
    return text<SizeAndZero - 1>(literal, SizeAndZero - 1);
}

/// What a QString is made of to share the storage: `TLX_CONSTINIT const QString x(NStatic::data(X));`
template <int Capacity>
constexpr QStringDataPtr data(const Text<Capacity>& storage)
{
    return QStringDataPtr{const_cast<QStringData*>(&storage.header)};
}

} // namespace NStatic

#endif // TLXCORE_STATICOBJECTS_H
