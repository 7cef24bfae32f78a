// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyleSheet.h"

#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <limits>

namespace {

const char OriginStyleProperty[] = "originStyle";
const char GeoRateProperty[] = "geoRate";

// QChar::isDigit() looks the category up for every character; nearly all of a sheet is ASCII.
bool isDigit(QChar c)
{
    return c.unicode() < 0x80 ? c >= QLatin1Char('0') && c <= QLatin1Char('9') : c.isDigit();
}

bool isLetter(QChar c, char lowerCase)
{
    return (c.unicode() | 0x20) == ushort(lowerCase);
}

// qRound() is undefined outside the range of int.
int roundedToInt(float value)
{
    // The nearest float to the largest int is one above it.
    if (value >= float(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= float(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return qIsNaN(value) ? 0 : qRound(value);
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

    QString result;
    result.reserve(sheet.size() + sheet.size() / 16);

    const int size = sheet.size();
    int copied = 0; // all before this index stands in the result
    int position = 0;
    while (position < size) {
        if (!isDigit(sheet.at(position))) {
            ++position;
            continue;
        }
        const int begin = position;
        while (position < size && isDigit(sheet.at(position)))
            ++position;
        if (position + 1 >= size || !isLetter(sheet.at(position), 'p')
            || !isLetter(sheet.at(position + 1), 'x')) {
            continue;
        }
        const int pixels = sheet.midRef(begin, position - begin).toInt();
        result += sheet.midRef(copied, begin - copied);
        result += QString::number(roundedToInt(float(pixels) * rate));
        copied = position;
    }
    result += sheet.midRef(copied);
    return result;
}

void KestStyleSheet::ChangeObjectSizeAndFontSize(QObject *object, double geoRate, double fontRate)
{
    // A changed sheet may make a widget build or drop children, or even itself: the list is read
    // afresh for every index, and nobody is touched after death.
    const QPointer<QObject> parent(object);
    for (int i = 0; parent && i < parent->children().size(); ++i) {
        const QPointer<QWidget> child(qobject_cast<QWidget *>(parent->children().at(i)));
        if (!child)
            continue;
        child->setProperty(GeoRateProperty, geoRate);
        if (child && child->property(OriginStyleProperty).isNull())
            child->setProperty(OriginStyleProperty, child->styleSheet());
        if (!child)
            continue;
        const QString origin = child->property(OriginStyleProperty).toString();
        if (!origin.isEmpty())
            child->setStyleSheet(scaleSheet(origin, float(geoRate)));
        if (child)
            ChangeObjectSizeAndFontSize(child, geoRate, fontRate);
    }
}
