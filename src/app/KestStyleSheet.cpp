// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyleSheet.h"

#include "QtVersions.h"

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QMetaObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

const char OriginStyleProperty[] = "originStyle";
const char GeoRateProperty[] = "geoRate";

const int LongestNumber = std::numeric_limits<int>::digits10 + 2; // with its sign

inline bool isLetter(QChar c, char lowerCase)
{
    return (c.unicode() | 0x20) == ushort(lowerCase);
}

// As QString::toInt(), without its locale: 0 for what is no int, or not written in ASCII.
int toInt(const QChar *begin, const QChar *end)
{
    qint64 value = 0;
    for (; begin != end; ++begin) {
        value = value * 10 + (begin->unicode() - '0');
        if (begin->unicode() > '9' || value > std::numeric_limits<int>::max())
            return 0;
    }
    return int(value);
}

// qRound() is undefined outside the range of int.
int roundedToInt(float value)
{
    // The nearest float to the largest int is one above it.
    if (value >= float(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= float(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    if (qIsNaN(value))
        return 0;
    // Halves go up, as qRound() has them below zero no more since Qt 6.
    return value < 0 ? int(std::floor(double(value) + 0.5)) : qRound(value);
}

// Writes \a value to \a to, which has room for LongestNumber, and returns the end of it.
QChar *write(int value, QChar *to)
{
    char digits[LongestNumber] = {};
    const char *const end = std::to_chars(digits, digits + LongestNumber, value).ptr;
    for (const char *digit = digits; digit != end; ++digit)
        *to++ = QLatin1Char(*digit);
    return to;
}

// One walk over a tree of widgets.
class Rescaling
{
public:
    explicit Rescaling(double rate) : m_rate(rate) { }

    void rescaleBelow(QObject *object);

private:
    QVariant savedSheet(const QWidget *widget);
    QString scaled(const QString &sheet);

    const double m_rate;
    const QByteArray m_savedSheetName = OriginStyleProperty;
    const QMetaObject *m_class = nullptr; // of the last widget
    bool m_classSavesSheet = false; // it declares the property itself
    QString m_sheet; // the last one that was scaled
    QString m_scaledSheet;
};

void Rescaling::rescaleBelow(QObject *object)
{
    // A changed sheet may make a widget build or drop children, or even itself: the list is read
    // afresh for every index, and nobody is touched after death.
    const QPointer<QObject> parent(object);
    for (int i = 0; parent && i < parent->children().size(); ++i) {
        const QPointer<QWidget> child(qobject_cast<QWidget *>(parent->children().at(i)));
        if (!child)
            continue;
        child->setProperty(GeoRateProperty, m_rate);
        if (!child)
            continue;
        const QVariant saved = savedSheet(child);
        const bool unsaved = isNull(saved);
        const QString origin = unsaved ? child->styleSheet() : saved.toString();
        if (unsaved)
            child->setProperty(OriginStyleProperty, origin);
        if (child && !origin.isEmpty()) {
            const QString sheet = scaled(origin);
            // A sheet that is set again has the style polish the widget again.
            if (sheet != child->styleSheet())
                child->setStyleSheet(sheet);
        }
        if (child && !child->children().isEmpty())
            rescaleBelow(child);
    }
}

// A property's name is compared with those of all properties of the class, which is most of the
// walk's own cost: one that cannot be there is not asked for.
QVariant Rescaling::savedSheet(const QWidget *widget)
{
    const QMetaObject *const meta = widget->metaObject();
    if (meta != m_class) {
        m_class = meta;
        m_classSavesSheet = meta->indexOfProperty(OriginStyleProperty) >= 0;
    }
    if (m_classSavesSheet || widget->dynamicPropertyNames().contains(m_savedSheetName))
        return widget->property(OriginStyleProperty);
    return QVariant();
}

// Many widgets have the same sheet.
QString Rescaling::scaled(const QString &sheet)
{
    if (sheet != m_sheet) {
        m_sheet = sheet;
        m_scaledSheet = KestStyleSheet::scaleSheet(sheet, float(m_rate));
    }
    return m_scaledSheet;
}

} // namespace

QString KestStyleSheet::defaultStyleSheet()
{
    QString result;
    for (const char *name : { "default-light.css", "sw-light.css" }) {
        QFile file(QStringLiteral(":/stylesheet/Resources/stylesheet/") + QLatin1String(name));
        if (file.open(QIODevice::ReadOnly))
            result += QString::fromUtf8(file.readAll().constData());
    }
    return result;
}

QString KestStyleSheet::scaleSheet(const QString &sheet, float rate)
{
    if (sheet.isEmpty() || rate == 1.0f)
        return sheet;

    const QChar *const end = sheet.constData() + sheet.size();
    QString result(sheet.size() + sheet.size() / 64 + LongestNumber, Qt::Uninitialized);
    QChar *out = result.data();
    const QChar *copied = sheet.constData(); // all before it stands in the result
    // Copies up to \a part, and leaves room for a number.
    const auto copyUpTo = [&](const QChar *part) {
        const int size = int(out - result.constData());
        const int needed = size + int(part - copied) + LongestNumber;
        if (needed > result.size()) {
            result.resize(needed + needed / 2);
            out = result.data() + size;
        }
        out = std::copy(copied, part, out);
    };
    // A sheet has digits everywhere, but few an x: each length is found by the end of its unit.
    const auto isX = [](QChar c) { return isLetter(c, 'x'); };
    for (const QChar *x = copied; (x = std::find_if(x, end, isX)) != end; ++x) {
        if (x == copied || !isLetter(x[-1], 'p'))
            continue;
        const QChar *const unit = x - 1;
        const QChar *number = unit;
        while (number != copied && number[-1].isDigit())
            --number;
        if (number == unit)
            continue;
        copyUpTo(number);
        out = write(roundedToInt(float(toInt(number, unit)) * rate), out);
        copied = unit;
    }
    copyUpTo(end);
    result.resize(int(out - result.constData()));
    return result;
}

void KestStyleSheet::ChangeObjectSizeAndFontSize(QObject *object, double geoRate, double)
{
    Rescaling(geoRate).rescaleBelow(object);
}
