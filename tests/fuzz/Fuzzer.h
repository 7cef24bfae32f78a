// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FUZZER_H
#define FUZZER_H

#include <QtCore/QSize>
#include <QtCore/QString>

#include <cstddef>
#include <cstdint>

/*!
    \file
    What all fuzzers share. A fuzzer defines fuzz(), which takes its decisions from the bytes of one
    input and aborts, by FUZZ_CHECK(), where the library does what it should not.
*/

/*! The bytes of one input, read from its beginning. All that is read past the end is 0. */
class FuzzInput
{
public:
    FuzzInput(const uint8_t *data, size_t size) : m_next(data), m_end(data + size) { }

    bool atEnd() const { return m_next == m_end; }
    int byte() { return atEnd() ? 0 : *m_next++; }
    bool flag() { return byte() & 1; }
    /*! Returns a number from 0 to \a count - 1; \a count is at most 65536. */
    int below(int count) { return (count > 256 ? byte() * 256 + byte() : byte()) % count; }
    /*! Returns any int: mostly a small one, or one near a limit. */
    int integer();
    /*! Returns any double: the limits, infinities and what is no number included. */
    double number();
    QSize size();
    /*! Returns a text of at most \a length characters. */
    QString text(int length);
    /*! Returns all bytes that are left. */
    QByteArray rest();

private:
    quint32 word();

    const uint8_t *m_next;
    const uint8_t *const m_end;
};

/*! Runs the fuzzer on one input. */
void fuzz(FuzzInput &input);

/*! Prints where and \a what, and aborts. */
[[noreturn]] void fuzzFailed(const char *file, int line, const QString &what);

#define FUZZ_CHECK(condition, what) \
    do { \
        if (!(condition)) \
            fuzzFailed(__FILE__, __LINE__, QStringLiteral(#condition ": ") + (what)); \
    } while (false)

/*! Processes what is posted, deferred deletions included, without waiting for anything. */
void settle();

#endif // FUZZER_H
